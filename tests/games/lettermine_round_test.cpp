// A round of Lettermine on its own: consonants first, hits and misses, solve mode, the
// letter timer, and the bonus round's six picks with their instructions.

#include <gtest/gtest.h>

#include "games/lettermine/LettermineRound.h"

namespace corvanna {

namespace {
int letter(char c) {
    return c - 'A';
}
LettermineRound roundOf(const std::string& phrase, int guesses = 8, bool bonus = false) {
    PhraseLayout layout;
    EXPECT_FALSE(LayoutPhrase(phrase, layout));
    LettermineRound r;
    r.start(layout, guesses, bonus);
    return r;
}
}  // namespace

TEST(LettermineRound, ConsonantsFirstHitsMissesAndTheLastSmiley) {
    LettermineRound r = roundOf("BETTER LATE", 2);
    // Only consonants at first; a miss leaves the vowels shut and costs the right smiley.
    EXPECT_FALSE(r.letterEnabled[letter('E')]);
    EXPECT_FALSE(r.letterEnabled[letter('Y')]);
    EXPECT_TRUE(r.letterEnabled[letter('B')]);
    LettermineRound::Pick p = r.pick(letter('Z'));
    EXPECT_FALSE(p.found);
    EXPECT_EQ(p.smileyLost, 1);
    EXPECT_EQ(r.Guess[1], "UNHAPPY");
    EXPECT_FALSE(r.letterEnabled[letter('E')]);
    // T occurs three times: three cells, and the vowels open.
    p = r.pick(letter('T'));
    EXPECT_EQ(p.cells.size(), 3u);
    EXPECT_TRUE(r.VowelsOpen);
    EXPECT_TRUE(r.letterEnabled[letter('E')] && r.letterEnabled[letter('Y')]);
    EXPECT_FALSE(r.letterEnabled[letter('T')]);
    EXPECT_EQ(r.board.caption[p.cells[0]], "T");
    // The second miss takes the last smiley: the round is lost, and the reveal shows all.
    p = r.pick(letter('Q'));
    EXPECT_TRUE(p.lost);
    EXPECT_EQ(r.GuessIndex, -1);
    r.reveal();
    EXPECT_TRUE(r.complete());
}

TEST(LettermineRound, SolveModeOpensTheVowelsAndOneWrongLetterEndsTheRound) {
    LettermineRound r = roundOf("GO TEAM");
    r.solve();
    EXPECT_TRUE(r.SolveMode && r.VowelsOpen);
    EXPECT_TRUE(r.letterEnabled[letter('O')]);
    for (char c : std::string("GOTEA"))
        EXPECT_FALSE(r.pick(letter(c)).complete) << c;
    EXPECT_TRUE(r.pick(letter('M')).complete);
    EXPECT_TRUE(r.RoundSolved);

    LettermineRound wrong = roundOf("GO TEAM");
    wrong.solve();
    const LettermineRound::Pick p = wrong.pick(letter('Z'));
    EXPECT_TRUE(p.lost);
    EXPECT_EQ(p.smileyLost, -1);  // no smiley turns sad: the round simply ends
    // The letter timer in solve mode ends the round too; in normal play it costs a smiley.
    LettermineRound timed = roundOf("GO TEAM", 2);
    EXPECT_TRUE(timed.timerFull(1));
    EXPECT_FALSE(timed.timerFull(1));
    EXPECT_EQ(timed.GuessIndex, -1);
}

TEST(LettermineRound, TheBonusRoundsSixPicksAndTheirInstructions) {
    for (const char* picks : {"BCDFG", "ABCDF"}) {
        LettermineRound r = roundOf("SILVER LINING", 8, true);
        EXPECT_TRUE(r.BonusPicking);
        std::vector<std::string> messages;
        for (char c : std::string(picks))
            messages.push_back(r.pickForBonus(letter(c)).message);
        if (picks[0] == 'B') {
            EXPECT_EQ(messages[0], "Select 4 consonants and 1 vowel");
            EXPECT_EQ(messages[4], "Select 0 consonants and 1 vowel");
            EXPECT_FALSE(r.letterEnabled[letter('G')]);  // five consonants: no more
        } else {
            EXPECT_EQ(messages[0], "Select 5 consonants and no vowels");
            EXPECT_FALSE(r.letterEnabled[letter('Y')]);  // a vowel taken: no other
        }
        const LettermineRound::BonusPick last =
            r.pickForBonus(letter(picks[0] == 'B' ? 'Y' : 'G'));  // Y counts as the vowel
        EXPECT_TRUE(last.done);
        EXPECT_EQ(last.message, "");
        EXPECT_FALSE(r.BonusPicking);
        r.startBonusSolve();
        EXPECT_TRUE(r.SolveMode);
        EXPECT_EQ(r.GuessIndex, 0);
        EXPECT_FALSE(r.letterEnabled[letter('B')]);
        EXPECT_TRUE(r.letterEnabled[letter('S')]);
    }
}

}  // namespace corvanna
