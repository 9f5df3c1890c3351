// Lettermine's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"

namespace corvanna {

GameInfo lettermineRow() {
    GameInfo row = gameRow("lettermine", "Lettermine");
    row.defaultSeconds = 45;
    row.timeLimits = {{30, "&30 seconds"},  {45, "&45 seconds (default)"}, {60, "&60 seconds"},
                      {75, "&75 seconds"},  {90, "&90 seconds"},           {105, "&105 seconds"},
                      {120, "1&20 seconds"}};
    row.deckDesigns.clear();
    row.countUp.scoringInMiddle = false;
    row.endGameTip = "Ends the current game";
    row.defaultBonusRoundScore = 250000;
    row.minWidth = row.maximisedWidth = 9570;
    row.hintLine = "Discover the phrase by selecting available letters  ";
    row.submitMinimum = 430000;
    row.submitSeconds = 45;
    row.seedScore = row.clearedSeedScore = 30000;
    // The game's own keys join the table with its rules. It has no Deck menu, and DeckBack
    // is set all the same.
    row.settings = {musicSetting(),
                    timeSetting("Time", row.defaultSeconds),
                    soundsSetting(),
                    countDownSetting("Count Down Score"),
                    timeBonusSetting(row.defaultTimeBonus),
                    bonusScoreSetting("Bonus Score", row.defaultBonusRoundScore),
                    stateSetting(),
                    widthSetting(),
                    heightSetting(),
                    deckSetting(row.defaultDeckBack).notInFile()};
    return row;
}

}  // namespace corvanna
