// Hitspree's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"

namespace corvanna {

GameInfo hitspreeRow() {
    GameInfo row = gameRow("hitspree", "Hitspree");
    row.defaultSeconds = 90;
    row.timeMenu = "mnuTimeLimit";
    row.timeLimits = {{15, "&15 Seconds (for the daring)"},
                      {30, "&30 Seconds"},
                      {60, "&60 Seconds"},
                      {90, "&90 Seconds (default)"},
                      {120, "&120 Seconds"}};
    row.deckDesigns = {4, 2, 3, 1};
    row.defaultDeckBack = 3;
    row.hasTakeScore = true;
    row.takeScoreTip = "Totals score for current round";
    row.endGameCaption = "&End game";
    row.pauseCaption = "P&ause";
    row.pauseTip = "Pauses the game in progress";
    row.customMenu = "mnuUserOptions";
    row.scoreLabel = "lblTotalScore";
    row.messageLabel = "ScoringLabelInfo";
    row.hasScoringLabel = false;
    row.roundLabelAlone = true;
    row.timeOfDayTimer = "Timer6";
    row.normalRounds = 3;
    row.nextRoundText = "Prepare for Round %n";
    row.bonusRoundText = "Prepare for Bonus Round";
    row.bonusRoundSound = "HighScore.wav";
    row.bonusNeedsMoreThanScore = true;
    row.defaultBonusRoundScore = 250000;
    row.defaultTimeBonus = 0;
    row.playQuitQuestion = "You have a game in progress. Are you sure you want to quit?";
    row.unloadPausesFirst = true;
    row.minWidth = row.maximisedWidth = 9060;
    row.minHeight = row.maximisedHeight = 7155;
    row.welcomeSuffix = "!      ";
    row.bonusLine = " for bonus round.";
    row.clearPause = DialogPause::Never;
    row.hintLine = "Create columns of 21 to increase bonus score!";
    row.submitMinimum = 700000;
    row.submitSeconds = 90;
    // The game's own keys join the table with its rules. It keeps no Time Bonus.
    row.settings = {soundsSetting(),
                    musicSetting(),
                    deckSetting(row.defaultDeckBack),
                    timeSetting("Time Limit", row.defaultSeconds),
                    bonusScoreSetting("Bonus Round Score", row.defaultBonusRoundScore),
                    countDownSetting("Count Down Score"),
                    stateSetting(),
                    widthSetting(),
                    heightSetting(),
                    timeBonusSetting(row.defaultTimeBonus).notInFile()};
    return row;
}

}  // namespace corvanna
