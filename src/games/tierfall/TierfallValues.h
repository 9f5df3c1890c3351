#pragma once
// Tierfall's own program-wide values: its scoring as the player has set it and what
// the rules text, the high score tables and the submission read back. They live with
// the program, not the form, so a replay and the tables find them after the form has
// gone. The form sets them; everyone else only reads.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "common/Program.h"

namespace corvanna {

struct TierfallValues {
    static constexpr std::int16_t kDefaultCardGoal = 11;
    static constexpr std::int32_t kDefaultCompletionBonus = 10000;
    static constexpr std::int32_t kDefaultElevensBonus = 1500;
    static constexpr std::int32_t kDefaultElevensBonusES = 1000;
    static constexpr std::int32_t kDefaultCardBonus = 1000;

    std::int16_t CardGoal = kDefaultCardGoal;
    std::int16_t SelectionColorIndex = 1;  // the frames' colour: 0 yellow to 5 black
    bool EnhancedScoring = true;
    std::int32_t CompletionBonus = kDefaultCompletionBonus;
    std::int32_t ElevensBonus = kDefaultElevensBonus;      // a combination, standard mode
    std::int32_t ElevensBonusES = kDefaultElevensBonusES;  // a combination, enhanced mode
    // 32 bits wide, so the value the player may set is the value paid.
    std::int32_t CardBonus = kDefaultCardBonus;
    std::int32_t LastScore = 0;
    // The next Play deals the decks of the last game.
    bool ReplayRequested = false;
    // Round1Deck to Round3Deck: each round's deck as dealt, positions from 1. A round
    // that wasn't reached holds blanks.
    std::array<std::vector<std::string>, 3> RoundDecks;

    // The combination bonus of the mode in force.
    std::int32_t combinationBonus() const {
        return EnhancedScoring ? ElevensBonusES : ElevensBonus;
    }
};

inline TierfallValues& tierfallValues(Program& prog) {
    return prog.gameValues<TierfallValues>();
}
inline const TierfallValues& tierfallValues(const Program& prog) {
    return prog.gameValues<TierfallValues>();
}

}  // namespace corvanna
