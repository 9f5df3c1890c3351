// Duomatch's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"
#include "games/duomatch/DuomatchValues.h"

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
    // Its own values take their defaults at load; they join the file with its rules.
    row.settings.push_back(
        setting("", &DuomatchValues::PairsBonus, DuomatchValues::kDefaultPairsBonus).notInFile());
    row.settings.push_back(
        setting("", &DuomatchValues::RunsBonus, DuomatchValues::kDefaultRunsBonus).notInFile());
    row.settings.push_back(
        setting("", &DuomatchValues::CompletionBonus, DuomatchValues::kDefaultCompletionBonus)
            .notInFile());
    row.rules.headingBlanks = 33;
    using V = DuomatchValues;
    row.rules.paragraphs = {
        openingParagraph("two", score(&AppState::BonusRoundScore)),
        para({"You earn points in a number ways:"}),
        para({"1. Clicking on pairs of exposed cards to create pairs and runs. For example, 2-2, "
              "5-6, and 10-9. A run may span from a King to an Ace and vice versa. For example "
              "King-Ace and Ace-King are both valid runs. You are awarded ",
              score(&V::PairsBonus), " points for each pair you create and ", score(&V::RunsBonus),
              " points for each run you create. These points are awarded at the end of each "
              "round. Obviously it is to your advantage to collect pairs rather than runs."}),
        para({"2. Clearing the upper cards. If you manage to clear all of the cards from the "
              "upper playing field you are awarded and additional ",
              score(&V::CompletionBonus), " points at the end of the round."}),
        para({"3. Time Bonus. If you have no playable cards remaining, clicking the 'Take Score' "
              "button will end the current round and award you ",
              score(&AppState::TimeBonus), " points for each second remaining on the clock. "}),
    };
    return row;
}

}  // namespace corvanna
