// Tierfall's rules without the form: the deck by goal, the cover table, clicks, combinations
// and draws, each worked out by hand from the game's tables.

#include <gtest/gtest.h>

#include <map>
#include <set>

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

std::set<int> playableSlots(const TierfallBoard& b) {
    std::set<int> out;
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        if (b.playable(s))
            out.insert(s);
    return out;
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
        for (int pos = 1; pos <= 4; ++pos)
            EXPECT_EQ(deck[pos], "1S");
        for (int pos = 5; pos <= 8; ++pos)
            EXPECT_EQ(deck[pos], "1H");
        for (int pos = 9; pos <= 12; ++pos)
            EXPECT_EQ(deck[pos], "1C");
        for (int pos = 13; pos <= 16; ++pos)
            EXPECT_EQ(deck[pos], "1D");
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

TEST(TierfallBoard, DealFillsSlotsUpCardAndPileFromTheDeckPositions) {
    TierfallBoard b;
    const auto deck = TierfallBoard::elevensDeck(11);  // in order: slots get 1S..7S
    ASSERT_TRUE(b.deal(deck));
    EXPECT_EQ(b.FieldCards[0], "1S");   // Deck(1)
    EXPECT_EQ(b.FieldCards[4], "1H");   // Deck(5)
    EXPECT_EQ(b.FieldCards[16], "2S");  // Deck(17)
    EXPECT_EQ(b.FieldCards[21], "7S");  // Deck(22)
    EXPECT_EQ(b.UpCount, 1);
    EXPECT_EQ(b.upCard(), "8S");        // Deck(23)
    EXPECT_EQ(b.PlayPile.size(), 31u);  // upper bound 30
    EXPECT_EQ(b.PlayPileTop, 29);
    EXPECT_EQ(b.cardsLeft(), 30);
    EXPECT_EQ(b.PlayPile[0], "8S");    // the first up card is the pile's bottom card too
    EXPECT_EQ(b.PlayPile[29], "10D");  // Deck(52) is drawn first
    EXPECT_TRUE(b.PlayPile[30].empty());
    EXPECT_EQ(b.CardTotal, 0);
    EXPECT_FALSE(b.complete());
    EXPECT_EQ(b.lowestEmptySlot(), -1);

    TierfallBoard shortDeal;
    EXPECT_FALSE(shortDeal.deal(deckWith(22, {})));
}

TEST(TierfallBoard, CoverTableFreesCardsOnlyWhenEveryCoveringCardHasGone) {
    TierfallBoard b;
    ASSERT_TRUE(b.deal(TierfallBoard::elevensDeck(11)));
    EXPECT_EQ(playableSlots(b), (std::set<int>{7, 20, 21}));
    EXPECT_EQ(TierfallBoard::slot(0).coveredBy, (std::vector<int>{3, 4}));
    EXPECT_EQ(TierfallBoard::slot(11).coveredBy, (std::vector<int>{16, 17}));
    EXPECT_EQ(TierfallBoard::slot(4).row, 2);
    EXPECT_EQ(TierfallBoard::slot(4).top, 1890);

    b.cardPresent[20] = false;  // 20 lies on 16 and 17 only
    EXPECT_EQ(playableSlots(b), (std::set<int>{7, 16, 17, 21}));
    EXPECT_FALSE(b.legal(11));  // still under 16 and 17
    b.cardPresent[16] = false;
    EXPECT_TRUE(b.legal(10));
    EXPECT_FALSE(b.legal(11));
    b.cardPresent[17] = false;
    EXPECT_TRUE(b.legal(11));
    EXPECT_TRUE(b.legal(12));
    EXPECT_FALSE(b.legal(3));  // 7 and 12 still on it
    b.cardPresent[7] = false;
    b.cardPresent[12] = false;
    EXPECT_TRUE(b.legal(3));
    EXPECT_FALSE(b.legal(4));     // 13 still on it
    EXPECT_FALSE(b.playable(7));  // gone cards are never playable
    EXPECT_FALSE(b.legal(-1));
    EXPECT_FALSE(b.legal(22));
}

TEST(TierfallBoard, TotalStaysWithinGoalAndAGoalTakesTheSelectedCards) {
    TierfallBoard b;
    // Slot 7 a 9, slot 20 a 5, slot 21 a 6, up card a 2; goal 11.
    ASSERT_TRUE(b.deal(deckWith(52, {{8, "9C"}, {21, "5S"}, {22, "6H"}, {23, "2D"}})));
    using C = TierfallBoard::Click;
    EXPECT_EQ(b.clickField(7), C::Selected);
    EXPECT_EQ(b.CardTotal, 9);
    EXPECT_EQ(b.clickField(20), C::Refused);  // 14 is over 11
    EXPECT_EQ(b.CardTotal, 9);
    EXPECT_FALSE(b.selected[20]);
    EXPECT_EQ(b.clickField(0), C::Refused);  // covered
    EXPECT_EQ(b.clickField(7), C::Deselected);
    EXPECT_EQ(b.CardTotal, 0);
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
    EXPECT_EQ(b.CardTotal, 0);
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

TEST(TierfallBoard, DrawsStackOnAFullBoardAndFillTheLowestGapOtherwise) {
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

    // Gaps at 3 and 12: the old up card goes to 3 and the stack stays at one.
    TierfallBoard g;
    ASSERT_TRUE(g.deal(TierfallBoard::elevensDeck(11)));
    g.cardPresent[3] = false;
    g.cardPresent[12] = false;
    ASSERT_TRUE(g.clickField(21) == TierfallBoard::Click::Selected);
    const auto d = g.draw();
    EXPECT_EQ(d.movedToSlot, 3);
    EXPECT_EQ(d.card, "10D");
    EXPECT_EQ(g.FieldCards[3], "8S");
    EXPECT_TRUE(g.cardPresent[3]);
    EXPECT_EQ(g.UpCount, 1);
    EXPECT_EQ(g.upCard(), "10D");
    EXPECT_FALSE(g.selected[21]);  // a draw clears every selection
    EXPECT_EQ(g.CardTotal, 0);
    EXPECT_EQ(g.draw().movedToSlot, 12);
    EXPECT_EQ(g.draw().movedToSlot, -1);  // full again: the stack grows
    EXPECT_EQ(g.UpCount, 2);
}

}  // namespace corvanna
