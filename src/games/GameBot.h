#pragma once
// A player a game's row can carry (GameInfo::bot): it plays the real form through the
// user's clicks and the virtual clock, for the soak (bench/soak.cpp), the tests and the
// benchmarks. Bots are linked into those alone, never into the program.

#include <cstdint>
#include <random>
#include <string>

namespace corvanna {

class GameBot {
public:
    virtual ~GameBot() = default;

    // Plays one whole game from the idle form to game over by the user's clicks and the
    // clock, answering the high score dialogs; hands back the final score.
    virtual std::int64_t playGame() = 0;
    // What went wrong so far: a refused click, an unanswered message box, a stuck round.
    // Empty when all was well.
    virtual std::string fault() const = 0;
    // Clicks made so far.
    virtual long long clicks() const = 0;

    // Between games: changes some of the game's own options through its menus, so
    // more of its high score tables come into play. The time limit is the soak's.
    virtual void changeOptions(std::mt19937_64& rng) { (void)rng; }
    // The game's own options as text: the same before leaving the form and after coming
    // back, since the settings file carries them.
    virtual std::string options() const { return {}; }
};

}  // namespace corvanna
