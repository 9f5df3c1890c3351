// Fivestack's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"

namespace corvanna {

GameInfo fivestackRow() {
    GameInfo row = gameRow("fivestack", "Fivestack");
    row.defaultSeconds = 60;
    row.timeLimits = {{15, "&15 Seconds"},
                      {30, "&30 Seconds"},
                      {45, "&45 Seconds"},
                      {60, "&60 Seconds (default)"},
                      {75, "&75 Seconds"}};
    row.deckDesigns = {4, 2, 3, 1};
    row.defaultDeckBack = 0;
    row.exitButton = "cmdQuit";
    row.scoreLabel = "lblTotalScore";
    row.messageLabel = "ScoringLabel";
    row.hasScoringLabel = false;
    row.roundLabelAlone = true;
    row.normalRounds = 3;
    row.nextRoundText = "Prepare for Round %n";
    row.bonusRoundSound = "HighScore.wav";
    row.defaultBonusRoundScore = 200000;
    row.defaultTimeBonus = 0;
    row.unloadPausesFirst = true;
    row.dialogPause = DialogPause::ByPauseButton;
    row.minWidth = row.maximisedWidth = 9540;
    row.minHeight = row.maximisedHeight = 7305;
    row.bonusLine = " for bonus round.  ";
    row.clearPause = DialogPause::ByPauseButton;
    row.hintLine = "Click on Hit buttons to create columns of 21!   ";
    row.submitMinimum = 600000;
    row.submitSeconds = 60;
    // The game's own keys join the table with its rules. It keeps no Time Bonus.
    row.settings = {timeSetting("Time", row.defaultSeconds),
                    soundsSetting(),
                    musicSetting(),
                    deckSetting(row.defaultDeckBack),
                    bonusScoreSetting("BonusScore", row.defaultBonusRoundScore),
                    countDownSetting("CountDownScore"),
                    stateSetting(),
                    widthSetting(),
                    heightSetting(),
                    timeBonusSetting(row.defaultTimeBonus).notInFile()};
    return row;
}

}  // namespace corvanna
