// Gridflush's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"

namespace corvanna {

GameInfo gridflushRow() {
    GameInfo row = gameRow("gridflush", "Gridflush");
    row.defaultSeconds = 75;
    row.timeLimits = {{30, "&30 seconds"},           {45, "&45 seconds"}, {60, "&60 seconds  "},
                      {75, "&75 seconds (default)"}, {90, "&90 seconds"}, {105, "&105 seconds"},
                      {120, "&120 seconds"}};
    row.exitButton = "cmdQuit";
    row.viewMenu = "mnuView";
    row.clearMenu = "mnuClear";
    row.messageLabel = "ScoringLabel";
    row.roundLabelAlone = true;
    row.clockRepaintAtLoad = true;
    row.normalRounds = 3;
    row.nextRoundText = "Prepare for round %n!";
    row.bonusRoundText = "Bonus round!";
    row.bonusRoundSound = "HighScore.wav";
    row.flashesBeforeRound = 10;
    row.countUp.speedTimesRoundPoints = true;
    row.defaultBonusRoundScore = 100000;
    row.defaultTimeBonus = 1;
    row.minWidth = 9540;
    row.minHeight = 7305;
    row.maximisedWidth = 9570;
    row.maximisedHeight = 7200;
    row.welcomeSuffix = "   ";
    row.bonusLine = " for bonus round.  ";
    row.hintLine = "Click on cards to get the best Poker hand!   ";
    row.submitMinimum = 130000;
    row.submitSeconds = 75;
    row.seedScore = row.clearedSeedScore = 30000;
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
