#include "games/lettermine/LettermineRound.h"

#include <algorithm>
#include <cctype>

namespace corvanna {

bool LettermineRound::isVowel(int letter) {
    return letter == 0 || letter == 4 || letter == 8 || letter == 14 || letter == 20 ||
           letter == 24;
}

void LettermineRound::start(const PhraseLayout& layout, int guessCount, bool bonusRound) {
    board = layout;
    RoundSolved = SolveMode = LetterHit = VowelsOpen = false;
    BonusPicking = bonusRound;
    BonusVowel = -1;
    BonusConsonants = 0;
    BonusPickCount = 0;
    BonusPicks.fill(-1);
    GuessIndex = static_cast<std::int16_t>(std::max(0, std::min(guessCount, kSmileys)) - 1);
    if (!bonusRound)
        for (int i = 0; i <= GuessIndex; ++i)
            Guess[static_cast<std::size_t>(i)] = "HAPPY";
    for (int l = 0; l < kLetters; ++l)
        letterEnabled[static_cast<std::size_t>(l)] = !isVowel(l) || bonusRound;
}

LettermineRound::Pick LettermineRound::pick(int letter) {
    Pick p;
    if (letter < 0 || letter >= kLetters || !letterEnabled[static_cast<std::size_t>(letter)])
        return p;
    const char upper = static_cast<char>('A' + letter);
    for (std::size_t i = 0; i < board.text.size(); ++i)
        if (std::toupper(static_cast<unsigned char>(board.text[i])) == upper) {
            p.found = true;
            p.cells.push_back(static_cast<int>(i));
        }
    if (p.found) {
        LetterHit = true;
    } else if (SolveMode) {
        GuessIndex = -1;
    } else if (GuessIndex >= 0) {
        Guess[static_cast<std::size_t>(GuessIndex)] = "UNHAPPY";
        p.smileyLost = GuessIndex;
        --GuessIndex;
    }
    letterEnabled[static_cast<std::size_t>(letter)] = false;
    for (int cell : p.cells) {
        board.shown[static_cast<std::size_t>(cell)] = true;
        board.caption[static_cast<std::size_t>(cell)] = std::string(1, upper);
    }
    // The first hit of the round opens the vowels.
    if (p.found && !SolveMode && !VowelsOpen) {
        VowelsOpen = true;
        enableVowels(true);
        // A vowel already tried stays tried.
        letterEnabled[static_cast<std::size_t>(letter)] = false;
    }
    p.lost = GuessIndex < 0;
    p.complete = !p.lost && complete();
    if (p.complete)
        RoundSolved = true;
    return p;
}

void LettermineRound::solve() {
    SolveMode = true;
    if (!VowelsOpen) {
        VowelsOpen = true;
        enableVowels(true);
    }
}

void LettermineRound::enableVowels(bool enabled) {
    for (int l = 0; l < kLetters; ++l)
        if (isVowel(l))
            letterEnabled[static_cast<std::size_t>(l)] = enabled;
}

void LettermineRound::blankGuess(int index) {
    if (index >= 0 && index < kSmileys)
        Guess[static_cast<std::size_t>(index)] = "BLANK";
}

bool LettermineRound::complete() const {
    for (int i = 0; i < PhraseLayout::kCells; ++i)
        if (board.shown[static_cast<std::size_t>(i)] &&
            board.caption[static_cast<std::size_t>(i)].empty())
            return false;
    return true;
}

void LettermineRound::reveal() {
    for (std::size_t i = 0; i < board.text.size(); ++i) {
        if (board.caption[i] == " ")
            continue;  // a blank of the phrase
        board.caption[i] = std::string(
            1, static_cast<char>(std::toupper(static_cast<unsigned char>(board.text[i]))));
        board.shown[i] = true;
    }
}

bool LettermineRound::timerFull(int roundNumber) {
    if (SolveMode || roundNumber >= 3) {
        GuessIndex = -1;
        return false;
    }
    if (GuessIndex >= 0) {
        Guess[static_cast<std::size_t>(GuessIndex)] = "UNHAPPY";
        --GuessIndex;
    }
    return GuessIndex >= 0;
}

LettermineRound::BonusPick LettermineRound::pickForBonus(int letter) {
    BonusPick b;
    if (!BonusPicking || letter < 0 || letter >= kLetters ||
        !letterEnabled[static_cast<std::size_t>(letter)] || BonusPickCount >= 6)
        return b;
    b.taken = true;
    if (!isVowel(letter)) {
        ++BonusConsonants;
        if (BonusConsonants >= 5)
            for (int l = 0; l < kLetters; ++l)
                if (!isVowel(l))
                    letterEnabled[static_cast<std::size_t>(l)] = false;
        b.message =
            BonusVowel == -1
                ? "Select " + std::to_string(4 - BonusPickCount) + " consonants and 1 vowel"
                : "Select " + std::to_string(5 - BonusPickCount) + " consonants and no vowels";
    } else {
        BonusVowel = static_cast<std::int16_t>('A' + letter);
        enableVowels(false);
        b.message = "Select " + std::to_string(5 - BonusPickCount) + " consonants and no vowels";
    }
    BonusPicks[static_cast<std::size_t>(BonusPickCount)] = static_cast<std::int16_t>('A' + letter);
    letterEnabled[static_cast<std::size_t>(letter)] = false;
    ++BonusPickCount;
    if (BonusPickCount == 6) {
        b.message.clear();
        b.done = true;
        BonusPicking = false;
        // The picks are applied as ordinary clicks, each button open for its own.
        for (std::int16_t code : BonusPicks)
            letterEnabled[static_cast<std::size_t>(code - 'A')] = true;
    }
    return b;
}

void LettermineRound::startBonusSolve() {
    letterEnabled.fill(true);
    for (std::int16_t code : BonusPicks)
        if (code >= 'A' && code <= 'Z')
            letterEnabled[static_cast<std::size_t>(code - 'A')] = false;
    SolveMode = true;
    GuessIndex = 0;
    BonusPickCount = 0;
}

}  // namespace corvanna
