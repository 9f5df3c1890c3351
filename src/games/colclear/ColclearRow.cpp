// Colclear's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"

namespace corvanna {

GameInfo colclearRow() {
    GameInfo row = gameRow("colclear", "Colclear");
    row.defaultSeconds = 120;
    row.timeLimits = {{60, "&60 seconds"},
                      {75, "&75 seconds"},
                      {90, "&90 seconds"},
                      {105, "&105 seconds"},
                      {120, "1&20 seconds (default)"},
                      {135, "1&35 seconds"},
                      {150, "1&50 seconds"},
                      {180, "1&80 seconds"}};
    row.hasTakeScore = true;
    row.takeScoreTip = "Ends the round and awards points";
    row.exitButton = "cmdQuit";
    row.exitTip = "Closes Colclear";
    row.viewMenu = "mnuView";
    row.clearMenu = "mnuClear";
    row.rulesCaption = "&Rules";
    row.roundLabelAlone = true;
    row.clockRepaintAtLoad = true;
    row.nextRoundText = "Prepare For Round %n";
    row.bonusRoundText = "Prepare For Bonus Round";
    row.bonusRoundSound = "";
    row.countUp.speedMessageLeftOfScoring = 100;
    row.defaultBonusRoundScore = 100000;
    row.defaultTimeBonus = 200;
    row.minWidth = row.maximisedWidth = 9540;
    row.minHeight = row.maximisedHeight = 7305;
    row.hintLine = "Create runs and triples by moving available cards!   ";
    row.submitMinimum = 225000;
    row.submitSeconds = 120;
    // The game's own keys join the table with its rules.
    row.settings = {timeSetting("Time", row.defaultSeconds),
                    soundsSetting(),
                    musicSetting(),
                    countDownSetting("Count Down Score"),
                    deckSetting(row.defaultDeckBack),
                    timeBonusSetting(row.defaultTimeBonus),
                    bonusScoreSetting("Bonus Score", row.defaultBonusRoundScore),
                    stateSetting(),
                    widthSetting(),
                    heightSetting()};
    return row;
}

}  // namespace corvanna
