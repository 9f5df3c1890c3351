// Gridflush's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"
#include "games/gridflush/GridflushValues.h"

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
    // Its own values take their defaults at load; they join the file with its rules.
    row.settings.push_back(
        setting("", &GridflushValues::PairScore, GridflushValues::kDefaultPairScore).notInFile());
    row.settings.push_back(
        setting("", &GridflushValues::TwoPairScore, GridflushValues::kDefaultTwoPairScore)
            .notInFile());
    row.settings.push_back(
        setting("", &GridflushValues::TripsScore, GridflushValues::kDefaultTripsScore).notInFile());
    row.settings.push_back(
        setting("", &GridflushValues::StraightScore, GridflushValues::kDefaultStraightScore)
            .notInFile());
    row.settings.push_back(
        setting("", &GridflushValues::FlushScore, GridflushValues::kDefaultFlushScore).notInFile());
    row.settings.push_back(
        setting("", &GridflushValues::FullHouseScore, GridflushValues::kDefaultFullHouseScore)
            .notInFile());
    row.settings.push_back(
        setting("", &GridflushValues::FourScore, GridflushValues::kDefaultFourScore).notInFile());
    row.settings.push_back(setting("", &GridflushValues::StraightFlushScore,
                                   GridflushValues::kDefaultStraightFlushScore)
                               .notInFile());
    row.settings.push_back(
        setting("", &GridflushValues::RoyalFlushScore, GridflushValues::kDefaultRoyalFlushScore)
            .notInFile());
    row.settings.push_back(
        setting("", &GridflushValues::OverWritesAllowed, GridflushValues::kDefaultOverWritesAllowed)
            .notInFile());
    row.rules.headingBlanks = 31;
    using V = GridflushValues;
    row.rules.paragraphs = {
        openingParagraph("three", score(&AppState::BonusRoundScore)),
        para({"To earn points in this game you must create 10 poker hands by placing cards from "
              "the deck into the provided columns and rows. Once completed, each row and each "
              "column form a complete 5 card poker hand."}),
        para({"Once a card has been played it may not be moved, however, you are allowed to "
              "overwrite ",
              plain(&V::OverWritesAllowed),
              " cards per round. You may not pass cards from the deck, each card off of the deck "
              "must be played before another card is exposed."}),
        lines({{"The hands are awarded points based on the following table:"},
               {"   One Pair = ", plain(&V::PairScore)},
               {"   Two Pair = ", plain(&V::TwoPairScore)},
               {"   Three of a kind = ", plain(&V::TripsScore)},
               {"   Straight = ", plain(&V::StraightScore)},
               {"   Flush = ", plain(&V::FlushScore)},
               {"   Full House = ", plain(&V::FullHouseScore)},
               {"   Four of a kind = ", plain(&V::FourScore)},
               {"   Straight Flush = ", plain(&V::StraightFlushScore)},
               {"   Royal Flush = ", plain(&V::RoyalFlushScore)}}),
        para({"At the end of each round, the total value of all 10 hands is multiplied by the "
              "number of seconds remaing in the round. It is therefore essential to complete each "
              "round as quickly as possible! If time expires before all hands have been completed "
              "you forfeit the round (0 points)."}),
        para({"While each round is played, the current number of points earned is displayed at "
              "the bottom right of the game board. Remember...because your score is so dependent "
              "on the amount of time remaining, you must be quick!"}),
    };
    return row;
}

}  // namespace corvanna
