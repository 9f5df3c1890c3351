// Spirefold's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"

namespace corvanna {

GameInfo spirefoldRow() {
    GameInfo row = gameRow("spirefold", "Spirefold");
    row.defaultSeconds = 45;
    row.timeLimits = {{30, "&30 seconds"},
                      {45, "&45 seconds (default)"},
                      {60, "&60 seconds"},
                      {90, "&90 seconds "}};
    row.hasTakeScore = row.hasTakeScoreMenu = true;
    row.takeScoreTip = "End current round and take score";
    row.endGameTip = "Ends the current game";
    row.fileMenu = "mnuGame";
    row.fileMenuCaption = "&Game";
    row.viewMenu = "mnuViewHiScore";
    row.rulesCaption = "&Rules";
    row.aboutCaption = "&About";
    row.highScorePrefix = "Current High Score: ";
    row.defaultBonusRoundScore = 40000;
    row.minWidth = row.maximisedWidth = 9570;
    row.hintLine = "Create runs by clicking on exposed cards!   ";
    row.submitMinimum = 90000;
    row.submitSeconds = 45;
    row.seedScore = row.clearedSeedScore = 30000;
    // The game's own keys join the table with its rules.
    row.settings = {musicSetting(),
                    timeSetting("Time", row.defaultSeconds),
                    soundsSetting(),
                    bonusScoreSetting("Bonus Score", row.defaultBonusRoundScore),
                    countDownSetting("Count Down Score"),
                    timeBonusSetting(row.defaultTimeBonus),
                    stateSetting(),
                    widthSetting(),
                    heightSetting(),
                    deckSetting(row.defaultDeckBack)};
    return row;
}

}  // namespace corvanna
