// Lettermine's board layout, worked out by hand: rows of 15, wrapped rows and the last
// centred, the rows placed towards the middle, and the letter value's ceiling.

#include <gtest/gtest.h>

#include "games/lettermine/PhraseLayout.h"

namespace corvanna {

namespace {
// The laid-out text as its six rows, trailing blanks dropped.
std::vector<std::string> rows(const PhraseLayout& l) {
    std::vector<std::string> out;
    for (int r = 0; r < PhraseLayout::kRows; ++r) {
        std::string row = l.text.size() > static_cast<std::size_t>(r * 15)
                              ? l.text.substr(static_cast<std::size_t>(r * 15), 15)
                              : "";
        row.erase(row.find_last_not_of(' ') + 1);
        out.push_back(row);
    }
    return out;
}
}  // namespace

TEST(PhraseLayout, RowsAreWrappedCentredAndPlacedTowardsTheMiddle) {
    PhraseLayout l;
    // Row 1 from column 2, row 2 from column 2, row 3 from column 6, one blank row above.
    ASSERT_FALSE(LayoutPhrase("A STITCH IN TIME SAVES NINE", l));
    EXPECT_EQ(rows(l), (std::vector<std::string>{"", "  A STITCH IN", "  TIME SAVES", "      NINE",
                                                 "", ""}));
    EXPECT_EQ(l.LetterCellCount, 22);
    EXPECT_EQ(l.MaxLetterUnits, 36);  // 4545 doubled, / 250 = 36.36
    EXPECT_TRUE(l.shown[15 + 2]);
    EXPECT_EQ(l.caption[15 + 2], "");   // a letter to find
    EXPECT_EQ(l.caption[15 + 3], " ");  // the blank after A
    EXPECT_FALSE(l.shown[15 + 3]);

    // Fourteen letters take one row, centred by one blank in front, two blank rows above.
    ASSERT_FALSE(LayoutPhrase("ABCDEFGHIJKLMN", l));
    EXPECT_EQ(rows(l)[2], " ABCDEFGHIJKLMN");
    // Fifteen letters are refused, wherever the word stands.
    EXPECT_TRUE(LayoutPhrase("ABCDEFGHIJKLMNO", l));
    EXPECT_TRUE(LayoutPhrase("GO TO THE ABCDEFGHIJKLMNOP NOW", l));
    // Also where it would start a row and fill it exactly, so that nothing wraps it.
    EXPECT_TRUE(LayoutPhrase("GO TO THE ABCDEFGHIJKLMNO NOW", l));

    // Punctuation and digits are on view from the start and count as cells.
    ASSERT_FALSE(LayoutPhrase("Rock 'n' Roll 4-Ever!", l));
    std::string onView;
    for (const std::string& c : l.caption)
        if (!c.empty() && c != " ")
            onView += c;
    EXPECT_EQ(onView, "''4-!");
    EXPECT_EQ(l.LetterCellCount, 18);
}

TEST(PhraseLayout, TheLetterValueCeilingFollowsTheCellsAndNinetyCellsAreTooMany) {
    // 10, 30 and 60 cells: 80, 27 and 13 units of 250 points.
    for (const auto& [phrase, cells, units] :
         {std::tuple{"ABCDE FGHIJ", 10, 80}, std::tuple{"ABCDEFGHIJ KLMNOPQRST UVWXYZABCD", 30, 27},
          std::tuple{"ABCDEFGHIJ KLMNOPQRST UVWXYZABCD EFGHIJKLMN OPQRSTUVWX YZABCDEFGH", 60,
                     13}}) {
        PhraseLayout l;
        ASSERT_FALSE(LayoutPhrase(phrase, l)) << phrase;
        EXPECT_EQ(l.LetterCellCount, cells) << phrase;
        EXPECT_EQ(l.MaxLetterUnits, units) << phrase;
    }
    // Six rows that each end exactly at a word: the text fills all 90 cells, the last word
    // is pushed to a seventh row, and the phrase is refused.
    PhraseLayout l;
    std::string full = "AAAAAAA BBBBBBB";
    for (int r = 1; r < 6; ++r)
        full += " AAAAAAA BBBBBBB";
    EXPECT_TRUE(LayoutPhrase(full, l));
    // Six rows whose last is centred by one blank into cell 89: exactly 90 cells, refused;
    // one letter fewer leaves the last cell free.
    const std::string ninety =
        "AAAAAAA BBBBBBB AAAAAAA BBBBBBB AAAAAAA BBBBBBB AAAAAAA BBBBBBB "
        "AAAAAAAAAAAA CCCCCCC DDDDDD";
    EXPECT_TRUE(LayoutPhrase(ninety, l));
    ASSERT_FALSE(LayoutPhrase(ninety.substr(0, ninety.size() - 1), l));
    EXPECT_EQ(l.text.size(), 89u);
    EXPECT_TRUE(LayoutPhrase("   ", l));
}

}  // namespace corvanna
