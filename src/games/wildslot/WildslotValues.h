#pragma once
// Wildslot's own program-wide values: what a used-up deck pays. The form sets them at load; the
// rules text reads them.

#include <cstdint>

#include "common/Program.h"

namespace corvanna {

struct WildslotValues {
    static constexpr std::int32_t kDefaultDeckCompletionBonus = 50000;

    std::int32_t DeckCompletionBonus = kDefaultDeckCompletionBonus;
};

inline const WildslotValues& wildslotValues(const Program& prog) {
    return prog.gameValues<WildslotValues>();
}

}  // namespace corvanna
