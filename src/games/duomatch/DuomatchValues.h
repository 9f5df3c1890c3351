#pragma once
// Duomatch's own program-wide values: what pairs, runs and a cleared upper field pay. The form sets
// them at load; the rules text reads them.

#include <cstdint>

#include "common/Program.h"

namespace corvanna {

struct DuomatchValues {
    static constexpr std::int32_t kDefaultPairsBonus = 3000;
    static constexpr std::int32_t kDefaultRunsBonus = 500;
    static constexpr std::int32_t kDefaultCompletionBonus = 10000;

    std::int32_t PairsBonus = kDefaultPairsBonus;
    std::int32_t RunsBonus = kDefaultRunsBonus;
    std::int32_t CompletionBonus = kDefaultCompletionBonus;
};

inline const DuomatchValues& duomatchValues(const Program& prog) {
    return prog.gameValues<DuomatchValues>();
}

}  // namespace corvanna
