// Tierfall played on the virtual platform: the golden deal, covered cards, selecting,
// the goal, the draw pile, pause, game over and the board's layout.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>

#include "games/TierfallTable.h"
#include "games/tierfall/TierfallValues.h"

namespace corvanna {

using namespace tierfall_test;

TEST(TierfallPlay, SeedOneDealsTheGoldenBoard) {
    Table x;
    x.t.click("frmTierfall", "cmdPlay");
    const std::string dump = x.f.board.dump();

    const auto golden =
        std::filesystem::path(CORVANNA_TESTS_DIR) / "games" / "tierfall_deal.golden";
    std::ifstream in(golden, std::ios::binary);
    if (!in) {
        std::ofstream(golden, std::ios::binary) << dump;
        FAIL() << "wrote " << golden << ": check it by hand and run again";
    }
    std::stringstream stored;
    stored << in.rdbuf();
    EXPECT_EQ(dump, stored.str());

    // The deal order: slot s from Deck(s + 1), the up card and the pile's bottom from Deck(23).
    const auto& deck = x.g.Deck;
    ASSERT_EQ(deck.size(), 53u);
    auto sorted = deck;
    auto fresh = TierfallBoard::elevensDeck(11);
    std::sort(sorted.begin(), sorted.end());
    std::sort(fresh.begin(), fresh.end());
    EXPECT_EQ(sorted, fresh);  // the goal's own deck, shuffled
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        EXPECT_EQ(x.f.FieldCardPicture[s]->picture(), x.pic(deck[s + 1]));
    EXPECT_EQ(x.shown(), allSlotsBut({}));
    EXPECT_EQ(x.f.UpCardPicture.picture(), x.pic(deck[23]));
    EXPECT_EQ(x.f.lblCardCount.caption(), "Cards: 30");
    EXPECT_EQ(x.f.PlayCardPicture.picture(), x.pic("FULL"));
    EXPECT_EQ(x.f.lblCurrentTotal.caption(), "0");
    EXPECT_TRUE(x.f.lblCurrentTotal.visible());
    EXPECT_EQ(x.f.lblElevens.caption(), "Elevens:");
    EXPECT_EQ(x.f.lblCurrentElevens.caption(), "0");
    EXPECT_TRUE(x.f.ElevensRectangle.visible());
    EXPECT_EQ(x.f.StatusBar1.panelText(1), "Make 80,000 for Bonus Round!   ");
    EXPECT_EQ(x.f.StatusBar1.panelText(2), "Click on exposed cards to total 11!   ");
    EXPECT_EQ(x.pointed(), (std::set<int>{7, 20, 21}));
    EXPECT_EQ(x.f.PlayCardPicture.mouseIcon(), x.pic("POINTER"));
    EXPECT_EQ(x.f.UpCardPicture.mouseIcon(), x.pic("POINTER"));
}

TEST(TierfallPlay, CoveredCardsWaitUntilEveryCardOnThemHasGone) {
    Table x;
    x.playStacked();
    for (int covered : {0, 3, 11, 16, 19}) {
        x.card(covered);
        EXPECT_EQ(x.heard(), (Sounds{"Chord.wav"})) << covered;
    }
    EXPECT_EQ(x.f.board.CardTotal, 0);
    EXPECT_FALSE(x.f.FieldSelectionRectangle[16]->visible());

    // 5 + 6 take the two bottom cards; four cards of tier two are free.
    x.card(20);
    x.card(21);
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav", "Markq.wav", "TwentyOne.wav"}));
    EXPECT_EQ(x.shown(), allSlotsBut({20, 21}));
    EXPECT_FALSE(x.f.FieldSelectionRectangle[20]->visible());
    EXPECT_EQ(x.f.lblCurrentElevens.caption(), "1");
    EXPECT_EQ(x.f.lblCurrentTotal.caption(), "0");
    EXPECT_EQ(x.pointed(), (std::set<int>{7, 16, 17, 18, 19}));
    x.card(11);  // 16 and 17 still on it
    EXPECT_EQ(x.heard(), (Sounds{"Chord.wav"}));

    x.card(7);   // 9
    x.card(17);  // + 2
    x.card(12);  // 3, free now that 17 has gone
    x.card(16);  // + 8
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav", "Markq.wav", "TwentyOne.wav", "Markq.wav",
                                 "Markq.wav", "TwentyOne.wav"}));
    EXPECT_EQ(x.pointed(), (std::set<int>{3, 10, 11, 18, 19}));
    x.card(3);   // 4
    x.card(11);  // + 7
    EXPECT_EQ(x.f.board.GoalCount, 4);
    EXPECT_EQ(x.f.lblCurrentElevens.caption(), "4");
    EXPECT_EQ(x.shown(), allSlotsBut({3, 7, 11, 12, 16, 17, 20, 21}));
    EXPECT_EQ(x.pointed(), (std::set<int>{6, 10, 18, 19}));  // 6 lay under 11 and 12
    x.heard();

    // A card that has gone takes no click, and a stray call changes nothing.
    std::string why;
    EXPECT_FALSE(userClick(*x.f.FieldCardPicture[20], &why));
    x.f.FieldCardPicture_Click(20);
    x.f.FieldCardPicture_Click(22);
    x.f.FieldCardPicture_Click(-1);
    EXPECT_TRUE(x.heard().empty());
    EXPECT_EQ(x.f.board.CardTotal, 0);

    // Gaps from 3 upward: a draw puts the old up card into 3, the next into 7.
    x.pile();
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav"}));
    EXPECT_TRUE(x.f.FieldCardPicture[3]->visible());
    EXPECT_EQ(x.f.FieldCardPicture[3]->picture(), x.pic("6C"));
    EXPECT_EQ(x.f.UpCardPicture.picture(), x.pic("10H"));
    EXPECT_EQ(x.f.board.UpCount, 1);
    EXPECT_EQ(x.f.lblCardCount.caption(), "Cards: 29");
    x.pile();
    EXPECT_EQ(x.f.board.FieldCards[7], "10H");
    EXPECT_TRUE(x.f.FieldCardPicture[7]->visible());
    // 3 and 7 are back: slot 0 and 3's neighbours are covered again.
    x.card(0);
    x.card(3);  // 12 has gone but 7 is back on it
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav", "Chord.wav", "Chord.wav"}));
}

TEST(TierfallPlay, SelectingDeselectingAndTotalsOverTheGoal) {
    Table x;
    x.playStacked();
    x.card(7);  // 9
    EXPECT_EQ(x.f.lblCurrentTotal.caption(), "9");
    EXPECT_TRUE(x.f.FieldSelectionRectangle[7]->visible());
    x.card(20);  // 9 + 5 is over 11
    x.up();      // 9 + 6 likewise
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav", "Chord.wav", "Chord.wav"}));
    EXPECT_EQ(x.f.lblCurrentTotal.caption(), "9");
    EXPECT_FALSE(x.f.FieldSelectionRectangle[20]->visible());
    EXPECT_FALSE(x.f.UpCardSelectionRectangle.visible());
    x.card(7);
    EXPECT_EQ(x.heard(), (Sounds{"Tick.wav"}));
    EXPECT_EQ(x.f.lblCurrentTotal.caption(), "0");
    EXPECT_FALSE(x.f.FieldSelectionRectangle[7]->visible());

    // The only up card used with cards left in the pile: the next comes by itself, silently.
    x.card(20);  // 5
    x.up();      // + 6
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav", "Markq.wav", "TwentyOne.wav"}));
    EXPECT_FALSE(x.f.FieldCardPicture[20]->visible());
    EXPECT_EQ(x.f.UpCardPicture.picture(), x.pic("10H"));
    EXPECT_FALSE(x.f.UpCardSelectionRectangle.visible());
    EXPECT_EQ(x.f.board.UpCount, 1);
    EXPECT_EQ(x.f.lblCardCount.caption(), "Cards: 29");
    EXPECT_FALSE(x.f.board.UpCardUsed);

    // A draw clears the selection; the old up card fills the gap at 20.
    x.card(21);  // 6
    x.up();      // 6 + 10 is over: refused
    x.pile();
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav", "Chord.wav", "Markq.wav"}));
    EXPECT_EQ(x.f.lblCurrentTotal.caption(), "0");
    EXPECT_FALSE(x.f.FieldSelectionRectangle[21]->visible());
    EXPECT_TRUE(x.f.FieldCardPicture[20]->visible());
    EXPECT_EQ(x.f.FieldCardPicture[20]->picture(), x.pic("10H"));
    EXPECT_EQ(x.f.board.UpCount, 1);
    EXPECT_EQ(x.f.lblCardCount.caption(), "Cards: 28");
}

TEST(TierfallPlay, ADrawPutsOneUpCardBackIntoTheLowestGapAndChargesOneMove) {
    Table x;
    x.playStacked();
    x.pile();
    x.pile();  // a full board: the stack grows to three, 10H and Deck(51) on the 6C
    ASSERT_EQ(x.f.board.UpCount, 3);
    x.card(20);  // 5
    x.card(21);  // + 6: two gaps in tier one, 100 + 100 in the enhanced mode
    ASSERT_EQ(x.g.Score, 200);
    x.heard();

    x.pile();  // Deck(51) goes back to slot 20, slot 21 stays empty, Deck(50) comes up
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav"}));
    EXPECT_EQ(x.f.board.FieldCards[20], x.g.Deck[51]);
    EXPECT_TRUE(x.f.FieldCardPicture[20]->visible());
    EXPECT_FALSE(x.f.FieldCardPicture[21]->visible());
    EXPECT_EQ(x.f.board.UpCount, 3);
    EXPECT_EQ(x.f.UpCardPicture.picture(), x.pic(x.g.Deck[50]));
    EXPECT_EQ(x.f.lblCardCount.caption(), "Cards: 27");
    EXPECT_EQ(x.g.Score, 100);  // one move into tier one
}

TEST(TierfallPlay, DrawPileRunsOutOnAFullBoard) {
    Table x;
    x.playStacked();
    // Pictures by cards left: 21 or more FULL, 11 to 20 HALF, 1 to 10 BACK, none EMPTY.
    const std::map<int, std::string> byDraws{{9, "FULL"},  {10, "HALF"}, {19, "HALF"},
                                             {20, "BACK"}, {29, "BACK"}, {30, "EMPTY"}};
    for (int draws = 1; draws <= 30; ++draws) {
        x.pile();
        if (byDraws.count(draws)) {
            EXPECT_EQ(x.f.PlayCardPicture.picture(), x.pic(byDraws.at(draws))) << draws;
        }
    }
    EXPECT_EQ(x.heard(), Sounds(30, "Markq.wav"));
    EXPECT_EQ(x.f.lblCardCount.caption(), "Cards: 0");
    EXPECT_EQ(x.f.board.UpCount, 31);
    EXPECT_EQ(x.f.UpCardPicture.picture(), x.pic("6C"));  // the first up card, come round again
    EXPECT_EQ(x.f.PlayCardPicture.mouseIcon(), "");
    EXPECT_EQ(x.f.UpCardPicture.mouseIcon(), x.pic("POINTER"));
    x.pile();
    EXPECT_EQ(x.heard(), (Sounds{"Chord.wav"}));
    EXPECT_EQ(x.f.board.UpCount, 31);

    // The stack goes down one card per combination: the one below comes back.
    x.card(20);  // 5
    x.up();      // + 6C
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav", "Markq.wav", "TwentyOne.wav"}));
    EXPECT_EQ(x.f.board.UpCount, 30);
    EXPECT_EQ(x.f.UpCardPicture.picture(), x.pic(x.g.Deck[24]));  // the draw before the last
}

TEST(TierfallPlay, EmptyPileAndUsedUpStackShowEmptyAndRefuseClicks) {
    Table x;
    x.playStacked();
    // The pile taken down to nothing, as thirty draws onto gaps would leave it.
    x.f.board.PlayPileTop = -1;
    x.f.PaintBoard();
    EXPECT_EQ(x.f.PlayCardPicture.picture(), x.pic("EMPTY"));
    x.card(20);  // 5
    x.up();      // + 6C, the last up card: the draw that follows finds nothing, silently
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav", "Markq.wav", "TwentyOne.wav"}));
    EXPECT_EQ(x.f.board.UpCount, 0);
    EXPECT_EQ(x.f.UpCardPicture.picture(), x.pic("EMPTY"));
    EXPECT_EQ(x.f.UpCardPicture.mouseIcon(), "");
    x.up();
    x.pile();
    EXPECT_EQ(x.heard(), (Sounds{"Chord.wav", "Chord.wav"}));
    EXPECT_EQ(x.f.board.CardTotal, 0);
}

TEST(TierfallPlay, PauseShowsBacksAndRefusesClicksUntilResumed) {
    Table x;
    x.playStacked();
    x.card(7);
    x.heard();
    x.t.click("frmTierfall", "cmdPause");
    EXPECT_EQ(x.shown(), allSlotsBut({}));
    for (int s = 0; s < TierfallBoard::kSlots; ++s) {
        EXPECT_EQ(x.f.FieldCardPicture[s]->picture(), x.pic("BACK"));
        EXPECT_FALSE(x.f.FieldSelectionRectangle[s]->visible());
    }
    for (const Control* c : std::initializer_list<const Control*>{
             &x.f.PlayCardPicture, &x.f.UpCardPicture, &x.f.lblCardCount, &x.f.lblCurrentTotal,
             &x.f.CardTotalRectangle})
        EXPECT_FALSE(c->visible()) << c->name();
    x.card(20);
    x.card(7);
    EXPECT_EQ(x.heard(), (Sounds{"Chord.wav", "Chord.wav"}));
    x.f.PlayCardPicture_Click();  // hidden; a stray call is refused as well
    EXPECT_EQ(x.heard(), (Sounds{"Chord.wav"}));
    EXPECT_EQ(x.f.board.cardsLeft(), 30);

    x.t.click("frmTierfall", "cmdPause");
    EXPECT_EQ(x.f.FieldCardPicture[7]->picture(), x.pic("9C"));
    EXPECT_FALSE(x.f.FieldSelectionRectangle[7]->visible());  // the selection is gone
    EXPECT_EQ(x.f.lblCurrentTotal.caption(), "0");
    EXPECT_TRUE(x.f.lblCurrentTotal.visible());
    EXPECT_TRUE(x.f.PlayCardPicture.visible());
    EXPECT_TRUE(x.f.UpCardPicture.visible());
    x.card(20);
    x.card(21);  // 5 + 6: nothing of the 9 is left in the total
    EXPECT_EQ(x.heard(), (Sounds{"Markq.wav", "Markq.wav", "TwentyOne.wav"}));
}

TEST(TierfallPlay, BoardScalesWithTheWindowKeepingCardShapeAndOverlap) {
    Table x;
    x.t.click("frmTierfall", "cmdPlay");
    auto check = [&](int boardRight) {
        const Control& c0 = *x.f.FieldCardPicture[0];
        for (Control* c : x.f.FieldCardPicture) {
            EXPECT_EQ(c->width(), c0.width());
            EXPECT_NEAR(c->height(), c0.width() * 94.0 / 69.0, 1.0);
            EXPECT_GE(c->left(), 150);
            EXPECT_LE(c->left() + c->width(), boardRight);
        }
        // Row two lies over the bottom of row one; row six over the top of row five.
        EXPECT_LT(x.f.FieldCardPicture[3]->top(), c0.top() + c0.height());
        EXPECT_GT(x.f.FieldCardPicture[3]->top(), c0.top());
        EXPECT_LT(x.f.FieldCardPicture[20]->top(),
                  x.f.FieldCardPicture[16]->top() + x.f.FieldCardPicture[16]->height());
        // The lower cards below the bottom tier's top, the up card right of the pile.
        EXPECT_GT(x.f.PlayCardPicture.top(), x.f.FieldCardPicture[20]->top());
        EXPECT_GT(x.f.UpCardPicture.left(),
                  x.f.PlayCardPicture.left() + x.f.PlayCardPicture.width());
        return c0.width();
    };
    const int small = check(x.f.scaleWidth() - 2850);
    x.f.setSize(x.f.width() * 2, x.f.height() * 2);
    const int large = check(x.f.scaleWidth() - 2850);
    EXPECT_GT(large, small * 3 / 2);
}

}  // namespace corvanna
