#include "games/tierfall/modTierfall.h"

#include "games/tierfall/TierfallBoard.h"
#include "scores/HighScores.h"

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

bool TierfallCustomScoring(const AppState& g) {
    const TierfallValues& t = g.Tierfall;
    const bool comboOff = t.EnhancedScoring
                              ? t.ElevensBonusES != TierfallValues::kDefaultElevensBonusES
                              : t.ElevensBonus != TierfallValues::kDefaultElevensBonus;
    return g.BonusRoundScore != TierfallValues::kDefaultBonusRoundScore ||
           t.CompletionBonus != TierfallValues::kDefaultCompletionBonus ||
           g.TimeBonus != TierfallValues::kDefaultTimeBonus || comboOff ||
           t.CardBonus != TierfallValues::kDefaultCardBonus;
}

std::string TierfallTableName(const TierfallValues& values) {
    return HighScoreTableName(TierfallHiScoreTable, values.CardGoal, values.EnhancedScoring);
}

}  // namespace corvanna
