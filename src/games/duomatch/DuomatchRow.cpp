// Duomatch's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"

namespace corvanna {

GameInfo duomatchRow() {
    GameInfo row = gameRow("duomatch", "Duomatch");
    row.defaultSeconds = 45;
    row.timeLimits = {{30, "&30 seconds"},  {45, "&45 seconds (default)"}, {60, "&60 seconds"},
                      {75, "&75 seconds"},  {90, "&90 seconds"},           {105, "&105 seconds"},
                      {120, "1&20 seconds"}};
    row.hasTakeScore = row.hasTakeScoreMenu = true;
    row.takeScoreTip = "End current round and take score";
    row.endGameTip = "Ends the current game";
    row.viewMenu = "mnuView";
    row.clearMenu = "mnuClear";
    row.rulesCaption = "&Rules";
    row.aboutCaption = "&About";
    row.bonusRoundCaption = "";
    row.defaultBonusRoundScore = 80000;
    row.minWidth = row.maximisedWidth = 9570;
    row.hintLine = "Create runs by clicking on exposed cards!   ";
    row.submitMinimum = 140000;
    row.submitSeconds = 45;
    row.seedScore = 30000;
    // Cleared from the High Scores dialog, the table gets the others' seed.
    row.clearedSeedScore = 50000;
    // The game's own keys join the table with its rules. Play Music stands twice.
    row.settings = {musicSetting(),
                    timeSetting("Time", row.defaultSeconds),
                    soundsSetting(),
                    musicSetting(),
                    countDownSetting("Count Down Score"),
                    timeBonusSetting(row.defaultTimeBonus),
                    bonusScoreSetting("Bonus Score", row.defaultBonusRoundScore),
                    stateSetting(),
                    widthSetting(),
                    heightSetting(),
                    deckSetting(row.defaultDeckBack)};
    return row;
}

}  // namespace corvanna
