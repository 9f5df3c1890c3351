#pragma once
// A player of Tierfall that makes random legal moves through the user's clicks on
// the real form, on the virtual platform: for tests, benchmarks and soaks. It
// answers the high score dialogs when a score enters a table, and between games it
// changes the card goal and the scoring mode through their menus.

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
class frmTierfall;

class TierfallBot : public ClickBot {
public:
    TierfallBot(Program& prog, FakePlatform& fake, frmTierfall& form, std::uint64_t seed);

    // Every action is a user's click or the clock moving on.
    std::int64_t playGame() override;
    // The card goal or the scoring mode: each pair of the two has tables of its own.
    void changeOptions(std::mt19937_64& rng) override;
    std::string options() const override;

private:
    void playRound();
    void changeCardGoal(std::mt19937_64& rng);
    void toggleScoringMode();

    frmTierfall& form_;
    std::mt19937_64 rng_;
};

// The row's bot: nullptr for a form that is not Tierfall's.
std::unique_ptr<GameBot> makeTierfallBot(Program& prog, FakePlatform& fake, GameFrame& form,
                                         std::uint64_t seed);

}  // namespace corvanna
