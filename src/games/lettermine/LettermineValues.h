#pragma once
// Lettermine's own program-wide values: what a solved phrase and each guess left are worth, and the
// guesses a round allows. The form sets them at load; the rules text reads them.

#include <cstdint>

#include "common/Program.h"

namespace corvanna {

struct LettermineValues {
    static constexpr std::int32_t kDefaultGuessBonus = 3000;
    static constexpr std::int32_t kDefaultCompletionBonus = 10000;
    static constexpr std::int16_t kDefaultGuessCount = 8;
    static constexpr std::int16_t kDefaultShowPhraseMs = 5000;

    std::int32_t GuessBonus = kDefaultGuessBonus;
    std::int32_t CompletionBonus = kDefaultCompletionBonus;
    std::int16_t GuessCount = kDefaultGuessCount;
    std::int16_t ShowPhraseMs = kDefaultShowPhraseMs;  // how long a lost phrase stands
    // 0 for Random, or a topic from 1 to 7.
    std::int16_t CurrentTopic = 0;
};

inline LettermineValues& lettermineValues(Program& prog) {
    return prog.gameValues<LettermineValues>();
}

inline const LettermineValues& lettermineValues(const Program& prog) {
    return prog.gameValues<LettermineValues>();
}

}  // namespace corvanna
