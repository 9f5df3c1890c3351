#pragma once
// Hitspree's own program-wide values: the 21 Bonus Value's step and what gimmes, a used-up deck and
// each card used pay. The form sets them at load; the rules text reads them.

#include <cstdint>

#include "common/Program.h"

namespace corvanna {

struct HitspreeValues {
    static constexpr std::int32_t kDefaultTwentyOneBonusValue = 1000;
    static constexpr std::int32_t kDefaultCardsUsedBonusValue = 100;
    static constexpr std::int32_t kDefaultFiveCardGimmeBonus = 750;
    static constexpr std::int32_t kDefaultDeckCompletionBonus = 100000;

    std::int32_t TwentyOneBonusValue = kDefaultTwentyOneBonusValue;
    std::int32_t CardsUsedBonusValue = kDefaultCardsUsedBonusValue;
    std::int32_t FiveCardGimmeBonus = kDefaultFiveCardGimmeBonus;
    std::int32_t DeckCompletionBonus = kDefaultDeckCompletionBonus;
};

inline const HitspreeValues& hitspreeValues(const Program& prog) {
    return prog.gameValues<HitspreeValues>();
}

}  // namespace corvanna
