// Fivestack's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include <cmath>

#include "games/GameRegistry.h"
#include "games/fivestack/FivestackValues.h"

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
    // Its own values take their defaults at load; they join the file with its rules.
    row.settings.push_back(
        setting("", &FivestackValues::TimeBonusMax, FivestackValues::kDefaultTimeBonusMax)
            .notInFile());
    row.settings.push_back(
        setting("", &FivestackValues::TimeBonusMin, FivestackValues::kDefaultTimeBonusMin)
            .notInFile());
    row.settings.push_back(setting("", &FivestackValues::CardsToPassSetting,
                                   FivestackValues::kDefaultCardsToPassSetting)
                               .notInFile());
    row.settings.push_back(
        setting("", &FivestackValues::CardsToPass, FivestackValues::kDefaultCardsToPass)
            .notInFile());
    row.rules.headingBlanks = 33;
    using V = FivestackValues;
    row.rules.paragraphs = {
        openingParagraph("three", score(&AppState::BonusRoundScore)),
        para({"You earn points by creating 5 columns of cards to a maximum of 5 cards per column. "
              "Each card is worth it's face value (face cards are 10 points each, Aces are worth 1 "
              "or 11 points). If any column exceeds 21 points (ie: busted), the round is "
              "automatically ended and no points are awarded. Once you achieve a total of 97 "
              "points or greater (total of all 5 columns without busting) you begin to earn points "
              "towards the current round."}),
        para({"The number of points you earn in a round is equal to your Card Total Value "
              "multiplied by the Time Bonus. Your Card Total Value is determined by the total of "
              "all five columns. If the total of all five columns is less than 97, your Card Total "
              "Value is 0. A column total of 97 is worth 50 points, 98 is worth 100 and so on up "
              "to a maximum of 105 which is worth 1000 points. There is a table located on the "
              "right side of the ",
              title(),
              " window which describes the Card Total Value earned for a given card column "
              "total."}),
        para({"The Time Bonus begins at ", plain(&V::TimeBonusMax), ". It decreases by ",
              shown([](const Program& prog) {
                  const float step = fivestackValues(prog).TimeBonusStep(prog.state.RoundSeconds);
                  // Its integer part; a step past 64 bits can't come from 16-bit limits.
                  return std::to_string(static_cast<long long>(std::trunc(step)));
              }),
              " for each second used in the round. If time expires the Time Bonus is worth ",
              plain(&V::TimeBonusMin), "."}),
        para({"You are allowed to pass ", plain(&V::CardsToPass), " card(s) per round."}),
    };
    return row;
}

}  // namespace corvanna
