#pragma once
// What Tierfall's cards are worth in each scoring mode, what a move costs, and its
// settings. Plain rules, so a test or a bot can check them by hand.

#include <cstdint>
#include <string>

#include "common/Program.h"
#include "common/frame/GameInfo.h"
#include "games/tierfall/TierfallValues.h"

namespace corvanna {

// A board row's card value: 700 at the top tier down to 200 (standard), 600 to 100
// (enhanced). 0 for a row that isn't on the board.
int TierfallRowValue(int row, bool enhanced);
int TierfallCardValue(int slot, bool enhanced);
// The up card in a combination: 100 in the standard mode; in the enhanced mode the
// value of the row of the lowest gap before the combination's cards left, or 0.
int TierfallUpCardValue(int lowestEmptySlot, bool enhanced);
// The points a card costs when it goes back onto the board at this slot.
int TierfallMoveCost(int slot, bool enhanced);
// "n points", as a card's tooltip shows its value.
std::string PointsText(int points);

// Tierfall.Ini's keys (TierfallSettings.cpp), which also decide CustomScoring: a value off
// its default, the combination bonus by the mode in force; the card bonus counts too,
// since the player can raise it as far as any other.
SettingTable TierfallSettings(const GameInfo& row);
// The rules dialog's two texts, standard and enhanced (TierfallRules.cpp).
RulesText TierfallRules();

// The table name constant; a table per card goal and scoring mode is named from it:
// "ES " ahead of it in the enhanced mode, then the card goal and "_".
inline constexpr const char* kTierfallHiScoreTable = "Tierfall Hi Score Table ";
std::string TierfallTableName(int cardGoal, bool enhanced);
std::string TierfallTableName(const TierfallValues& values);

// The game's variables for the driver's `get` (TierfallVariables.cpp).
void addTierfallVariables();

}  // namespace corvanna
