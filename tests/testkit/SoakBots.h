#pragma once
// The players the soak (bench/soak.cpp) can put in front of a game form: one entry a
// game, found by the form's name. A game joins the soak with a bot of its own and one
// line in soakBots() (SoakBots.cpp).

#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace corvanna {

class FakePlatform;
class GameFrame;
class Program;

class SoakBot {
public:
    virtual ~SoakBot() = default;

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

using SoakBotFactory = std::function<std::unique_ptr<SoakBot>(Program& prog, FakePlatform& fake,
                                                              GameFrame& form, std::uint64_t seed)>;

struct SoakBotEntry {
    std::string formName;  // "frmTierfall"
    SoakBotFactory make;
};

// Every game that has a bot, in the selector's order.
const std::vector<SoakBotEntry>& soakBots();
const SoakBotEntry* findSoakBot(const std::string& formName);

}  // namespace corvanna
