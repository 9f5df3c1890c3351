// Wildslot's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"

namespace corvanna {

GameInfo wildslotRow() {
    GameInfo row = gameRow("wildslot", "Wildslot");
    row.defaultSeconds = 90;
    row.timeLimits = {{60, "&60 Seconds"},
                      {75, "&75 Seconds"},
                      {90, "&90 Seconds  (default)"},
                      {105, "&105 Seconds"},
                      {120, "1&20 Seconds"}};
    row.deckDesigns = {1, 3, 2, 4};
    row.scoreLabel = "lblTotalScore";
    row.countUp.speedMessageAboveMiddle = 800;
    row.countUp.countMessageRaise = 800;
    row.defaultBonusRoundScore = 5000000;
    row.playQuitQuestion = "You have a game in progress, are you sure you want to quit now?";
    row.unloadPausesFirst = true;
    row.dialogPause = DialogPause::ByPauseButton;
    row.minWidth = row.maximisedWidth = 9540;
    row.minHeight = row.maximisedHeight = 7305;
    row.clearPause = DialogPause::ByPauseButton;
    row.bonusLine = " for bonus round.  ";
    row.submitMinimum = 13000000;
    row.submitSeconds = 90;
    // The game's own keys join the table with its rules. [State] is read but not written.
    row.settings = {soundsSetting(),
                    musicSetting(),
                    deckSetting(row.defaultDeckBack),
                    bonusScoreSetting("Bonus Score", row.defaultBonusRoundScore),
                    timeBonusSetting(row.defaultTimeBonus),
                    countDownSetting("Count Down"),
                    timeSetting("Time", row.defaultSeconds),
                    widthSetting(),
                    heightSetting(),
                    stateSetting().readOnly()};
    return row;
}

}  // namespace corvanna
