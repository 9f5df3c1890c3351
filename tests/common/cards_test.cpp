#include "common/Cards.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "testkit/TestProgram.h"

namespace corvanna {

TEST(Cards, CodesReadBackTheirRankAndSuit) {
    EXPECT_EQ(cardRank("1S"), 1);
    EXPECT_EQ(cardRank("10H"), 10);
    EXPECT_EQ(cardRank("13D"), 13);
    EXPECT_EQ(cardSuit("12C"), 'C');
    for (const char* bad : {"", "S", "0S", "14H", "01S", "1X", "1", "100S", "-1S"})
        EXPECT_FALSE(isCardCode(bad)) << bad;
}

TEST(Cards, CreateDeckLaysOutTheStandardOrder) {
    TestProgram t;
    ASSERT_TRUE(CreateDeck(t.prog));
    const auto& deck = t.prog.state.Deck;
    ASSERT_EQ(deck.size(), 53u);
    EXPECT_EQ(deck[0], "");
    // Ace to king of spades, hearts, clubs and diamonds.
    for (int i = 1; i <= 52; ++i)
        EXPECT_EQ(deck[i], std::to_string((i - 1) % 13 + 1) + "SHCD"[(i - 1) / 13]) << i;
}

TEST(Cards, ShuffleKeepsEveryCardOnDecksOfAnyLength) {
    TestProgram t;
    for (int length : {0, 1, 2, 7, 22, 52, 104}) {
        auto& deck = t.prog.state.Deck;
        deck.assign(static_cast<std::size_t>(length) + 1, "");
        for (int i = 1; i <= length; ++i)
            deck[i] = std::to_string((i - 1) % 13 + 1) + "SHCD"[(i - 1) / 13 % 4];
        std::map<std::string, int> before, after;
        for (int i = 1; i <= length; ++i)
            ++before[deck[i]];
        ASSERT_TRUE(ShuffleDeck(t.prog));
        ASSERT_EQ(static_cast<int>(deck.size()), length + 1);
        EXPECT_EQ(deck[0], "");
        for (int i = 1; i <= length; ++i)
            ++after[deck[i]];
        EXPECT_EQ(before, after) << "length " << length;
    }
}

TEST(Cards, ShuffleSwapsWithTheWholeDeckAndRepeatsWithTheSeed) {
    // The same seed on the same virtual clock deals the same deck; another seed does not.
    auto dealt = [](std::uint64_t seed) {
        TestProgram t(seed);
        CreateDeck(t.prog);
        ShuffleDeck(t.prog);
        return t.prog.state.Deck;
    };
    EXPECT_EQ(dealt(7), dealt(7));
    EXPECT_NE(dealt(7), dealt(8));
    // Every position swaps with a draw from the whole deck, so the first card can land
    // anywhere, the last position included.
    TestProgram t(3);
    std::map<int, int> whereAceWent;
    for (int round = 0; round < 400; ++round) {
        CreateDeck(t.prog);
        ShuffleDeck(t.prog);
        const auto& deck = t.prog.state.Deck;
        whereAceWent[static_cast<int>(std::find(deck.begin(), deck.end(), "1S") - deck.begin())]++;
    }
    EXPECT_GT(whereAceWent.size(), 45u);
    EXPECT_GT(whereAceWent[52], 0);
}

TEST(Cards, RandomNumberCoversItsRangeAndBothEnds) {
    TestProgram t;
    EXPECT_EQ(t.prog.randomNumber(1, 1), 1);
    std::map<int, int> seen;
    for (int i = 0; i < 5000; ++i) {
        const int n = t.prog.randomNumber(14, 65);
        ASSERT_GE(n, 14);
        ASSERT_LE(n, 65);
        ++seen[n];
    }
    EXPECT_EQ(seen.size(), 52u);
    // Within one tick of a frozen clock the draws still differ.
    const int a = t.prog.randomNumber(1, 1000000), b = t.prog.randomNumber(1, 1000000);
    EXPECT_NE(a, b);
    // Any numeric arguments: fractions and a reversed range do not leave the integer part.
    const int f = t.prog.randomNumber(1.5, 2.5);
    EXPECT_TRUE(f == 1 || f == 2 || f == 3);
}

TEST(PictureStore, BackDesignKeysMoveBetweenSlots) {
    PictureStore store;
    EXPECT_EQ(store.picture("BACK"), "palm-back");
    EXPECT_EQ(store.picture("FULL"), "palm-full");
    EXPECT_EQ(store.picture("HALF"), "palm-half");
    EXPECT_EQ(store.picture("EMPTY"), "EMPTY");
    // The faces are slots 14 to 65, where the splash and the selector draw them from.
    EXPECT_EQ(store.slotOf("1S"), 14);
    EXPECT_EQ(store.slotOf("13D"), 65);
    const char* expected[] = {"", "palm-back", "magic-back", "night-back", "hot-back"};
    for (int design : {3, 2, 4, 1, 4}) {
        store.selectDesign(design);
        int keyed = 0;
        for (int s = 1; s <= 12; ++s)
            keyed += !store.keyOfSlot(s).empty();
        EXPECT_EQ(keyed, 3);
        EXPECT_EQ(store.picture("BACK"), expected[design]);
        EXPECT_EQ(store.slotOf("FULL"), (design - 1) * 3 + 1);
        EXPECT_EQ(store.slotOf("HALF"), (design - 1) * 3 + 3);
    }
    store.selectDesign(5);  // no such design: the keys stay
    EXPECT_EQ(store.picture("BACK"), "hot-back");
}

}  // namespace corvanna
