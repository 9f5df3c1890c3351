#pragma once
// Gridflush's own program-wide values: the hand values and the over-writes a round allows. The form
// sets them at load; the rules text reads them.

#include <cstdint>

#include "common/Program.h"

namespace corvanna {

struct GridflushValues {
    static constexpr std::int32_t kDefaultPairScore = 50;
    static constexpr std::int32_t kDefaultTwoPairScore = 70;
    static constexpr std::int32_t kDefaultTripsScore = 80;
    static constexpr std::int32_t kDefaultStraightScore = 90;
    static constexpr std::int32_t kDefaultFlushScore = 100;
    static constexpr std::int32_t kDefaultFullHouseScore = 200;
    static constexpr std::int32_t kDefaultFourScore = 300;
    static constexpr std::int32_t kDefaultStraightFlushScore = 400;
    static constexpr std::int32_t kDefaultRoyalFlushScore = 500;
    static constexpr std::int16_t kDefaultOverWritesAllowed = 3;

    std::int32_t PairScore = kDefaultPairScore;
    std::int32_t TwoPairScore = kDefaultTwoPairScore;
    std::int32_t TripsScore = kDefaultTripsScore;
    std::int32_t StraightScore = kDefaultStraightScore;
    std::int32_t FlushScore = kDefaultFlushScore;
    std::int32_t FullHouseScore = kDefaultFullHouseScore;
    std::int32_t FourScore = kDefaultFourScore;
    std::int32_t StraightFlushScore = kDefaultStraightFlushScore;
    std::int32_t RoyalFlushScore = kDefaultRoyalFlushScore;
    std::int16_t OverWritesAllowed = kDefaultOverWritesAllowed;
};

inline const GridflushValues& gridflushValues(const Program& prog) {
    return prog.gameValues<GridflushValues>();
}

}  // namespace corvanna
