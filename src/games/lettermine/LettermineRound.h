#pragma once
// A round of Lettermine without the form: the phrase on its board, the 26 letters with
// the vowels shut until the first hit, the smileys, solve mode, and the bonus round's six
// picks. The only thing that changes the round; the form paints what a pick reports,
// pays it and plays the sounds.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "games/lettermine/PhraseLayout.h"

namespace corvanna {

class LettermineRound {
public:
    static constexpr int kLetters = 26;
    static constexpr int kSmileys = 8;
    // A, E, I, O, U and Y.
    static bool isVowel(int letter);

    // ---- State, by the names the game uses
    PhraseLayout board;  // captions fill in as letters are found
    std::array<bool, kLetters> letterEnabled{};
    std::array<std::string, kSmileys> Guess{};  // "HAPPY", "UNHAPPY", "BLANK" or untouched
    std::int16_t GuessIndex = -1;  // the rightmost smiley left; -1: none, the round lost
    bool RoundSolved = false;
    bool SolveMode = false;
    bool LetterHit = false;
    bool VowelsOpen = false;
    bool BonusPicking = false;
    std::int16_t BonusVowel = -1;
    std::int16_t BonusConsonants = 0;
    std::array<std::int16_t, 6> BonusPicks{-1, -1, -1, -1, -1, -1};
    std::int16_t BonusPickCount = 0;

    // InitRound's steps on the round: the board from the layout, every letter open but
    // the vowels, guessCount smileys (the bonus round keeps the row as it was).
    void start(const PhraseLayout& layout, int guessCount, bool bonusRound);

    struct Pick {
        bool found = false;
        std::vector<int> cells;  // the cells it uncovered, left to right
        bool lost = false;       // the last smiley went, or a miss in solve mode
        bool complete = false;   // the phrase is whole
        int smileyLost = -1;     // the smiley that turned sad
    };
    // cmdLetter_Click outside the picking phase.
    Pick pick(int letter);
    // cmdSolve_Click: solve mode, and the vowels open.
    void solve();
    // IsPhraseComplete: no shown cell still waits for its letter.
    bool complete() const;
    // The reveal of a lost round: every cell of the phrase shown with its letter.
    void reveal();

    // The letter timer ran full: in normal play a smiley goes (true while one is left);
    // in solve mode or the bonus round the round is lost.
    bool timerFull(int roundNumber);

    struct BonusPick {
        bool taken = false;
        std::string message;  // lblMessage while picking; empty after the sixth
        bool done = false;    // the sixth: the picks are to be applied in order
    };
    // cmdLetter_Click in the picking phase.
    BonusPick pickForBonus(int letter);
    // The form's ShowControls and EnableVowels: every letter, or the six vowels.
    void enableLetters(bool enabled) { letterEnabled.fill(enabled); }
    void enableVowels(bool enabled);
    // Take Score pays a smiley left: it goes blank.
    void blankGuess(int index);

    // After the sixth pick was applied and the round goes on: every letter but the picks
    // open, one long solve.
    void startBonusSolve();
};

}  // namespace corvanna
