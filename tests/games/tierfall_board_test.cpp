// Tierfall's rules without the form: the deck by goal, the cover table, combinations and the
// largest pile, each worked out by hand from the game's tables.

#include <gtest/gtest.h>

#include <map>

#include "games/tierfall/TierfallBoard.h"

namespace corvanna {

namespace {

// A deck by position from 1, "1S" wherever the test doesn't care.
std::vector<std::string> deckWith(int size, const std::map<int, std::string>& cards) {
    std::vector<std::string> deck(static_cast<std::size_t>(size) + 1, "1S");
    deck[0].clear();
    for (const auto& [pos, code] : cards)
        deck[static_cast<std::size_t>(pos)] = code;
    return deck;
}

}  // namespace

TEST(TierfallBoard, DeckHoldsFourAcesOfEachSuitAndCourtsOnlyAsTheGoalNeedsThem) {
    struct Case {
        int goal, size, pileUpper;
    };
    for (const Case c : {Case{10, 52, 30}, Case{11, 52, 30}, Case{12, 56, 34}, Case{13, 60, 38},
                         Case{14, 64, 42}, Case{15, 64, 42}}) {
        SCOPED_TRACE(c.goal);
        const auto deck = TierfallBoard::elevensDeck(c.goal);
        ASSERT_EQ(static_cast<int>(deck.size()) - 1, c.size);
        EXPECT_EQ(TierfallBoard::playPileUpperBound(c.goal), c.pileUpper);
        EXPECT_TRUE(deck[0].empty());
        for (int pos = 1; pos <= 16; ++pos)
            EXPECT_EQ(deck[pos], std::string("1") + "SHCD"[(pos - 1) / 4]) << pos;
        EXPECT_EQ(deck[17], "2S");
        EXPECT_EQ(deck[25], "10S");
        EXPECT_EQ(deck[26], "2H");
        EXPECT_EQ(deck[35], "2C");
        EXPECT_EQ(deck[44], "2D");
        EXPECT_EQ(deck[52], "10D");
        if (c.size >= 56) {
            EXPECT_EQ((std::vector<std::string>(deck.begin() + 53, deck.begin() + 57)),
                      (std::vector<std::string>{"11S", "11H", "11C", "11D"}));
        }
        if (c.size >= 60) {
            EXPECT_EQ(deck[57], "12S");
        }
        if (c.size >= 64) {
            EXPECT_EQ(deck[60], "12D");
            EXPECT_EQ(deck[61], "13S");
            EXPECT_EQ(deck[64], "13D");
        }
    }
    // A goal out of range, as a damaged settings file may hold, still gets a whole deck.
    EXPECT_EQ(TierfallBoard::elevensDeck(9).size(), 53u);
    EXPECT_EQ(TierfallBoard::elevensDeck(-3).size(), 53u);
    EXPECT_EQ(TierfallBoard::elevensDeck(16).size(), 65u);
    EXPECT_EQ(TierfallBoard::elevensDeck(32767).back(), "13D");
}

// The pile, the deal order and the freeing of covered cards are played through the form.
TEST(TierfallBoard, CoverTableByHand) {
    EXPECT_EQ(TierfallBoard::slot(0).coveredBy, (std::vector<int>{3, 4}));
    EXPECT_EQ(TierfallBoard::slot(11).coveredBy, (std::vector<int>{16, 17}));
    EXPECT_EQ(TierfallBoard::slot(4).row, 2);
    EXPECT_EQ(TierfallBoard::slot(4).top, 1890);
}

TEST(TierfallBoard, AGoalTakesTheSelectedCards) {
    TierfallBoard b;
    // Slot 7 a 9, slot 20 a 5, slot 21 a 6, up card a 2; goal 11.
    ASSERT_TRUE(b.deal(deckWith(52, {{8, "9C"}, {21, "5S"}, {22, "6H"}, {23, "2D"}})));
    using C = TierfallBoard::Click;
    EXPECT_FALSE(b.takeCombination().made);
    EXPECT_EQ(b.clickField(20), C::Selected);  // 5
    EXPECT_EQ(b.clickField(21), C::Selected);  // 11
    const auto c = b.takeCombination();
    EXPECT_TRUE(c.made);
    EXPECT_FALSE(c.upCard);
    EXPECT_EQ(c.boardSlots, (std::vector<int>{20, 21}));
    EXPECT_EQ(c.lowestEmptyBefore, -1);
    EXPECT_FALSE(b.cardPresent[20]);
    EXPECT_FALSE(b.cardPresent[21]);
    EXPECT_EQ(b.FieldCards[20], "5S");  // the code stays behind
    EXPECT_EQ(b.GoalCount, 1);
    EXPECT_EQ(b.lowestEmptySlot(), 20);

    // The up card with the 9: the stack drops to nothing.
    EXPECT_EQ(b.clickField(7), C::Selected);
    EXPECT_EQ(b.clickUpCard(), C::Selected);
    const auto withUp = b.takeCombination();
    EXPECT_TRUE(withUp.upCard);
    EXPECT_EQ(withUp.upCardCode, "2D");
    EXPECT_EQ(withUp.lowestEmptyBefore, 20);  // 7 was still there before
    EXPECT_TRUE(b.UpCardUsed);
    EXPECT_EQ(b.UpCount, 0);
    EXPECT_TRUE(b.upCardEmpty());
    EXPECT_EQ(b.clickUpCard(), C::Refused);
    EXPECT_EQ(b.GoalCount, 2);
}

TEST(TierfallBoard, DrawsStackOnAFullBoardUpToThePilesBound) {
    // Goal 15: a 64-card deck, 42 cards in the pile, so the stack reaches 43.
    TierfallBoard b;
    b.CardGoal = 15;
    auto deck = TierfallBoard::elevensDeck(15);
    ASSERT_TRUE(b.deal(deck));
    EXPECT_EQ(b.cardsLeft(), 42);
    for (int i = 0; i < 42; ++i)
        ASSERT_TRUE(b.draw().drawn) << i;
    EXPECT_EQ(b.UpCount, 43);
    EXPECT_EQ(b.PlayPileTop, -1);
    EXPECT_EQ(b.UpCards[2], "13D");  // Deck(64), the first draw
    EXPECT_EQ(b.UpCards[43], "8S");  // Deck(23) again, the last draw
    EXPECT_EQ(b.UpCards[1], "8S");
    EXPECT_FALSE(b.draw().drawn);
}

}  // namespace corvanna
