#pragma once
// A player of Lettermine that buys letters through the user's clicks on the real form, on
// the virtual platform: mostly letters of the phrase, some wrong ones, Solve It now and
// then, and pauses that let the letter timer and the clock run out. After every move it
// checks the round against what its own clicks must have left: what each letter paid, the
// board, the smileys, the letters open, the locked value and how long a round may last.

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "games/ClickBot.h"
#include "virtual/FakePlatform.h"

namespace corvanna {

class Control;
class GameFrame;
class Program;
class frmLettermine;

class LettermineBot : public ClickBot {
public:
    LettermineBot(Program& prog, FakePlatform& fake, frmLettermine& form, std::uint64_t seed);

    std::int64_t playGame() override;
    // The topic: the phrase files take turns, and the settings file carries it.
    void changeOptions(std::mt19937_64& rng) override;
    std::string options() const override;

private:
    // What the bot's own clicks tell of the round in play.
    struct Round {
        int number = 0;
        std::array<bool, 26> picked{};   // clicked, or picked for the bonus and applied
        std::array<bool, 26> pending{};  // picked for the bonus, not yet applied
        bool hit = false;                // a letter of the phrase was found
        bool solve = false;              // Solve It, or the bonus round after its picks
        bool picking = false;            // the bonus round's six picks
        int consonants = 0, vowels = 0, picks = 0;
        std::array<int, 6> order{};  // the bonus picks in the order made
        int guessIndex = 0;
        std::int64_t clockStartMs = -1;  // -1 while the round clock stands
        std::int64_t barResetMs = 0;     // the letter timer was last at its minimum
        bool solved = false, lost = false;
    };
    // What happened during one click or wait.
    struct Move {
        std::vector<std::int64_t> paid;  // each rise of the score shown
        std::int64_t roundDealtMs = -1;  // a round was dealt during the move
    };

    void playRound();
    void playBonusPicks();
    // One action of a round: a wait, Solve It or a letter.
    void act();
    void clickLetter(int letter);
    void clickSolve();
    void wait(std::int64_t ms);
    // Runs the move, watching the score and the round shown.
    Move watch(const std::function<void()>& action);
    // After a move: a new round dealt, or the game over, starts the bot's picture afresh.
    void followRound(const Move& m, int roundBefore);
    void checkRound();
    void checkBoard();
    void checkSmileys();
    void checkLetters();
    void checkTiming();
    void checkGameOver();
    int letterToPick();
    // In the phrase on the board, or in a phrase kept from before a click.
    int occurrences(int letter) const;
    static int occurrences(int letter, const std::string& text);
    static bool phraseWhole(const std::array<bool, 26>& picked, const std::string& text);
    bool roundGoesOn(int number) const;

    frmLettermine& form_;
    std::mt19937_64 rng_;
    Round r_;
    int solvedInGame_ = 0;
    int roundsInGame_ = 0;
    bool bonusPlayed_ = false;
};

// The row's bot: nullptr for a form that is not Lettermine's.
std::unique_ptr<GameBot> makeLettermineBot(Program& prog, FakePlatform& fake, GameFrame& form,
                                           std::uint64_t seed);

}  // namespace corvanna
