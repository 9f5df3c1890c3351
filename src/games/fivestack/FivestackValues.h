#pragma once
// Fivestack's own program-wide values: the Time Bonus's limits and step, the passes, the
// wait between rounds. The form and its scoring dialog set them; the rules text reads them.

#include <cstdint>

#include "common/Program.h"

namespace corvanna {

struct FivestackValues {
    static constexpr std::int16_t kDefaultTimeBonusMax = 300;
    static constexpr std::int16_t kDefaultTimeBonusMin = 100;
    static constexpr std::int16_t kDefaultCardsToPass = 1;
    static constexpr std::int16_t kDefaultWaitPeriod = 2000;

    std::int16_t TimeBonusMax = kDefaultTimeBonusMax;
    std::int16_t TimeBonusMin = kDefaultTimeBonusMin;
    // (TimeBonusMax - TimeBonusMin) / RoundSeconds, a 32-bit real, worked out anew at
    // load, on a new time limit and when the options are accepted.
    float TimeBonusStep = 200.0f / 60;
    // What a round starts with, and what is left of it in this round.
    std::int16_t CardsToPassSetting = kDefaultCardsToPass;
    std::int16_t CardsToPass = kDefaultCardsToPass;
    std::int16_t WaitPeriod = kDefaultWaitPeriod;  // milliseconds

    void UpdateTimeBonusStep(std::int16_t roundSeconds) {
        TimeBonusStep = roundSeconds > 0
                            ? static_cast<float>(static_cast<double>(TimeBonusMax - TimeBonusMin) /
                                                 roundSeconds)
                            : 0.0f;
    }
};

inline FivestackValues& fivestackValues(Program& prog) {
    return prog.gameValues<FivestackValues>();
}
inline const FivestackValues& fivestackValues(const Program& prog) {
    return prog.gameValues<FivestackValues>();
}

}  // namespace corvanna
