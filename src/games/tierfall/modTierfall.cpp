#include "games/tierfall/modTierfall.h"

#include "games/tierfall/TierfallBoard.h"

namespace corvanna {

int TierfallRowValue(int row, bool enhanced) {
    if (row < 1 || row > 6)
        return 0;
    return 100 * ((enhanced ? 7 : 8) - row);
}

int TierfallCardValue(int slot, bool enhanced) {
    if (slot < 0 || slot >= TierfallBoard::kSlots)
        return 0;
    return TierfallRowValue(TierfallBoard::slot(slot).row, enhanced);
}

int TierfallUpCardValue(int lowestEmptySlot, bool enhanced) {
    if (!enhanced)
        return 100;
    return TierfallCardValue(lowestEmptySlot, true);
}

int TierfallMoveCost(int slot, bool enhanced) {
    return enhanced ? TierfallCardValue(slot, true) : 100;
}

std::string PointsText(int points) {
    return std::to_string(points) + " points";
}

std::string TierfallTableName(int cardGoal, bool enhanced) {
    return std::string(enhanced ? "ES " : "") + kTierfallHiScoreTable + std::to_string(cardGoal) +
           "_";
}

std::string TierfallTableName(const TierfallValues& values) {
    return TierfallTableName(values.CardGoal, values.EnhancedScoring);
}

}  // namespace corvanna
