// Hitspree's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"
#include "games/hitspree/HitspreeValues.h"

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
    // Its own values take their defaults at load; they join the file with its rules.
    row.settings.push_back(setting("", &HitspreeValues::TwentyOneBonusValue,
                                   HitspreeValues::kDefaultTwentyOneBonusValue)
                               .notInFile());
    row.settings.push_back(setting("", &HitspreeValues::CardsUsedBonusValue,
                                   HitspreeValues::kDefaultCardsUsedBonusValue)
                               .notInFile());
    row.settings.push_back(
        setting("", &HitspreeValues::FiveCardGimmeBonus, HitspreeValues::kDefaultFiveCardGimmeBonus)
            .notInFile());
    row.settings.push_back(setting("", &HitspreeValues::DeckCompletionBonus,
                                   HitspreeValues::kDefaultDeckCompletionBonus)
                               .notInFile());
    row.rules.headingBlanks = 33;
    using V = HitspreeValues;
    row.rules.paragraphs = {
        openingParagraph("three", score(&AppState::BonusRoundScore)),
        para({"You earn points by creating cards combinations that total 21. Each card is worth "
              "it's face value (face cards are 10 points each, Aces are worth 1 or 11 points). If "
              "any column exceeds 21 points (ie: busted), your score is reduced by 100 points. At "
              "the end of each round, the total number of 21 combinations that you created is "
              "multiplied by the 21 Bonus Value. The 21 Bonus Value increases by ",
              score(&V::TwentyOneBonusValue),
              " each time a 21 combination is created. The 21 Bonus Value is reset to ",
              score(&V::TwentyOneBonusValue),
              " if the '21 Counter' (a timer) expires. The '21 Counter' is reset each time a 21 "
              "combination is created. The '21 Counter' is set for approxiametly 10 seconds. Once "
              "you create your first 21 combination, you must create another one before the '21 "
              "Counter' expires or your 21 Bonus Value is reset to ",
              score(&V::TwentyOneBonusValue), "."}),
        para({"You also earn points by creating columns of 5 cards that do not exceed 21 (called a "
              "'five card gimme'). Each time a column of this type is created you are awarded ",
              score(&V::FiveCardGimmeBonus),
              " points. Each time you create a 21 card combination or a 'five card gimme' the "
              "column is automatically cleared. If you are able to use all the cards in the deck "
              "you are awarded an additional ",
              score(&V::DeckCompletionBonus),
              " points. At the end of each round you are also awarded ",
              score(&V::CardsUsedBonusValue), " points for each card you used during the round."}),
    };
    return row;
}

}  // namespace corvanna
