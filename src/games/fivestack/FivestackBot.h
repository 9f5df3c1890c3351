#pragma once
// A player of Fivestack that makes random legal moves through the user's clicks on the
// real form, on the virtual platform, and checks the rules after every move: the cards
// conserved, the column totals, and a score that moves only by a round's worth.

#include <cstdint>
#include <memory>
#include <random>
#include <string>

#include "games/ClickBot.h"
#include "virtual/FakePlatform.h"

namespace corvanna {

class Control;
class GameFrame;
class Program;
class frmFivestack;

class FivestackBot : public ClickBot {
public:
    FivestackBot(Program& prog, FakePlatform& fake, frmFivestack& form, std::uint64_t seed);

    std::int64_t playGame() override;

private:
    void playRound();
    // The board against what the moves so far must have left.
    void checkBoard(int placed, int passed, int saved);

    frmFivestack& form_;
    std::mt19937_64 rng_;
    std::int64_t lastScore_ = 0;
};

std::unique_ptr<GameBot> makeFivestackBot(Program& prog, FakePlatform& fake, GameFrame& form,
                                          std::uint64_t seed);

}  // namespace corvanna
