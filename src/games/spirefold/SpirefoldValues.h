#pragma once
// Spirefold's own program-wide values: what each further card of a run adds, the longest run's
// bonus and a cleared tower's. The form sets them at load; the rules text reads them.

#include <cstdint>

#include "common/Program.h"

namespace corvanna {

struct SpirefoldValues {
    static constexpr std::int16_t kDefaultCardValue = 100;
    static constexpr std::int32_t kDefaultTowerBonus = 5000;
    static constexpr std::int32_t kDefaultHighRunBonus = 1000;

    std::int16_t CardValue = kDefaultCardValue;
    std::int32_t TowerBonus = kDefaultTowerBonus;
    std::int32_t HighRunBonus = kDefaultHighRunBonus;
};

inline const SpirefoldValues& spirefoldValues(const Program& prog) {
    return prog.gameValues<SpirefoldValues>();
}

}  // namespace corvanna
