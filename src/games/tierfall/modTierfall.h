#pragma once
// What Tierfall's cards are worth in each scoring mode, what a move costs, and the
// test of custom scoring. Plain rules, so a test or a bot can check them by hand.

#include <cstdint>
#include <string>

#include "common/AppState.h"

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

// CustomScoring: a value off its default, the combination bonus by the mode in force; the
// card bonus counts too, since the player can raise it as far as any other.
bool TierfallCustomScoring(const AppState& g);

// The table's name: "Tierfall Hi Score Table ", "ES " ahead of it in the enhanced mode,
// then the card goal and "_".
std::string TierfallTableName(const TierfallValues& values);
inline constexpr std::int64_t kTierfallTableSeedScore = 50000;

// The game's variables for the driver's `get` (TierfallVariables.cpp).
void addTierfallVariables();

}  // namespace corvanna
