// Spirefold's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"
#include "games/spirefold/SpirefoldValues.h"

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
    // Its own values take their defaults at load; they join the file with its rules.
    row.settings.push_back(
        setting("", &SpirefoldValues::CardValue, SpirefoldValues::kDefaultCardValue).notInFile());
    row.settings.push_back(
        setting("", &SpirefoldValues::TowerBonus, SpirefoldValues::kDefaultTowerBonus).notInFile());
    row.settings.push_back(
        setting("", &SpirefoldValues::HighRunBonus, SpirefoldValues::kDefaultHighRunBonus)
            .notInFile());
    row.rules.headingBlanks = 33;
    using V = SpirefoldValues;
    row.rules.paragraphs = {
        openingParagraph("two", score(&AppState::BonusRoundScore)),
        para({"You earn points in a number ways:"}),
        para({"1. Clicking on exposed cards to create runs. For example, Ace-2-3 or 9-8-7-6-5. A "
              "run may span from a King to an Ace and vice versa. For example Queen-King-Ace-2 and "
              "3-2-Ace-King are both valid runs. The longer the run the more points you earn. Each "
              "time a new card is added to a run, the selected card's value increases by ",
              score(&V::CardValue), " points."}),
        para({"2. Creating the longest run. ", title(),
              " keeps a record of the longest run attained. When you exceed the longest run you "
              "receive an additional ",
              score(&V::HighRunBonus), " points for each card in the run."}),
        para({"3. Clearing Towers. The upper card area is layed out in a manner that represents "
              "three 'Towers'. You can earn an additional bonus by clearing these Towers. This "
              "bonus is equal to the number of Towers cleared multiplied by ",
              score(&V::TowerBonus), " points."}),
        para({"4. Time Bonus. If you have no playable cards remaining, clicking the 'Take Score' "
              "button will end the current round and award you ",
              score(&AppState::TimeBonus),
              " points for each second remaining on the clock. You do not get the Time Bonus if "
              "you have not cleared at least one tower."}),
    };
    return row;
}

}  // namespace corvanna
