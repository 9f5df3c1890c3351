#pragma once
// A player of Tierfall that makes random legal moves through the user's clicks on
// the real form, on the virtual platform: for tests, benchmarks and soaks. It
// answers the high score dialogs when a score enters a table.

#include <cstdint>
#include <random>
#include <string>

#include "virtual/FakePlatform.h"

namespace corvanna {

class Program;
class frmTierfall;

class TierfallBot {
public:
    TierfallBot(Program& prog, FakePlatform& fake, frmTierfall& form, std::uint64_t seed);
    ~TierfallBot();

    // Plays one whole game from the idle form to its game over and hands back the final
    // score. Every action is a user's click or the clock moving on.
    std::int32_t playGame();

    // What went wrong so far: a click the form should have taken but refused, an
    // unanswered message box, a round that never ended. Empty when all was well.
    const std::string& fault() const { return fault_; }
    long long clicks() const { return clicks_; }

private:
    void playRound();
    bool click(class Control& control);
    void note(const std::string& what);

    Program& prog_;
    FakePlatform& fake_;
    frmTierfall& form_;
    std::mt19937_64 rng_;
    std::string fault_;
    long long clicks_ = 0;
};

}  // namespace corvanna
