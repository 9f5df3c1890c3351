#pragma once
// A phrase laid out on Lettermine's board of 6 rows by 15 cells: word-wrapped, each
// wrapped row and the last centred, the whole placed towards the middle; and the ceiling
// of the letter value from the cells the phrase fills. Plain code: no form, no file.

#include <array>
#include <cstdint>
#include <string>

namespace corvanna {

struct PhraseLayout {
    static constexpr int kColumns = 15;
    static constexpr int kRows = 6;
    static constexpr int kCells = kColumns * kRows;

    // The laid-out text: its character i is cell i, a blank a cell not shown.
    std::string text;
    // For each cell: shown, and its caption from the start (punctuation and digits, a single
    // blank for a blank inside the text, empty for a letter still to find).
    std::array<bool, kCells> shown{};
    std::array<std::string, kCells> caption{};
    std::int16_t LetterCellCount = 0;
    std::int32_t MaxLetterUnits = 0;
};

// LayoutPhrase: true when the phrase can't be laid out (a word of 15 letters or more, a
// text that needs all 90 cells or more, or nothing to guess), and the caller takes another.
bool LayoutPhrase(const std::string& phrase, PhraseLayout& out);

}  // namespace corvanna
