#pragma once
// Colclear's own program-wide values: what trips, runs, flushes and a cleared deck pay, and the
// penalty per card left over (kept positive). The form sets them at load; the rules text reads
// them.

#include <cstdint>

#include "common/Program.h"

namespace corvanna {

struct ColclearValues {
    static constexpr std::int32_t kDefaultTripScore = 6000;
    static constexpr std::int32_t kDefaultRunScore = 300;
    static constexpr std::int32_t kDefaultFlushScore = 5000;
    static constexpr std::int32_t kDefaultDeckBonus = 15000;
    static constexpr std::int32_t kDefaultLeftOverPenalty = 250;

    std::int32_t TripScore = kDefaultTripScore;
    std::int32_t RunScore = kDefaultRunScore;
    std::int32_t FlushScore = kDefaultFlushScore;
    std::int32_t DeckBonus = kDefaultDeckBonus;
    std::int32_t LeftOverPenalty = kDefaultLeftOverPenalty;
};

inline const ColclearValues& colclearValues(const Program& prog) {
    return prog.gameValues<ColclearValues>();
}

}  // namespace corvanna
