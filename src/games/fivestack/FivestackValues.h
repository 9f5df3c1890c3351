#pragma once
// Fivestack's own program-wide values: the Time Bonus's two limits and the passes a round allows.
// The form sets them at load; the rules text reads them.

#include <cstdint>

#include "common/Program.h"

namespace corvanna {

struct FivestackValues {
    static constexpr std::int16_t kDefaultTimeBonusMax = 300;
    static constexpr std::int16_t kDefaultTimeBonusMin = 100;
    static constexpr std::int16_t kDefaultCardsToPassSetting = 1;
    static constexpr std::int16_t kDefaultCardsToPass = 1;

    std::int16_t TimeBonusMax = kDefaultTimeBonusMax;
    std::int16_t TimeBonusMin = kDefaultTimeBonusMin;
    std::int16_t CardsToPassSetting = kDefaultCardsToPassSetting;
    std::int16_t CardsToPass = kDefaultCardsToPass;

    // How far the Time Bonus falls each second: a 32-bit real, as the game keeps it.
    float TimeBonusStep(std::int16_t roundSeconds) const {
        if (roundSeconds <= 0)
            return 0;
        return static_cast<float>(static_cast<double>(TimeBonusMax - TimeBonusMin) / roundSeconds);
    }
};

inline const FivestackValues& fivestackValues(const Program& prog) {
    return prog.gameValues<FivestackValues>();
}

}  // namespace corvanna
