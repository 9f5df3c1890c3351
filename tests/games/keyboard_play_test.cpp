// A round of Tierfall played by the keyboard alone, as a player without a mouse plays
// it: Enter opens the game from the selector, the arrows walk the cursor over the board
// in reading order, Space and Enter click, and the score is taken by keys.

#include <gtest/gtest.h>

#include "games/TierfallTable.h"

namespace corvanna {

using namespace tierfall_test;

TEST(KeyboardPlay, ATierfallRoundByKeysAlone) {
    TestProgram t(1);
    std::string why;
    ASSERT_TRUE(userKey(t.select, Key::Enter, &why)) << why;  // the focus is on Tierfall
    auto& f = static_cast<frmTierfall&>(t.form("frmTierfall"));
    ASSERT_TRUE(f.keyboardPlay());
    AppState& g = t.prog.state;

    // Where the cursor is, as the player reads it: a board card by its slot.
    auto where = [&] {
        const Control* c = f.playCursor();
        return !c ? std::string("none") : c->index() >= 0 ? std::to_string(c->index()) : c->name();
    };
    // The cursor after each press of one key.
    auto press = [&](Key key, int times = 1) {
        std::string trail;
        for (int i = 0; i < times; ++i) {
            EXPECT_TRUE(userKey(f, key, &why)) << why;
            trail += (trail.empty() ? "" : " ") + where();
        }
        return trail;
    };
    // What lblMessage shows, each text once as it comes up.
    std::vector<std::string> seen;
    f.lblMessage.subscribe([&](Control& c, Prop p) {
        if ((p == Prop::Caption || p == Prop::Visible) && c.visible() && !c.caption().empty() &&
            (seen.empty() || seen.back() != c.caption()))
            seen.push_back(c.caption());
    });

    // Only Play and Exit can be clicked before a game: the first arrow finds Play.
    EXPECT_EQ(press(Key::Right), "cmdPlay");
    EXPECT_EQ(press(Key::Space), "cmdPlay");
    ASSERT_EQ(f.cmdPlay.caption(), "&End Game");
    // The hand-checked deck of the play tests: 5S and 6H at the foot, 9C free in the middle.
    g.Deck = stackedDeck(kStack);
    ASSERT_TRUE(f.Deal());

    // Up from Play to the row of the pile and the up card, then to the foot of the board.
    EXPECT_EQ(press(Key::Up, 2), "UpCardPicture 21");
    EXPECT_EQ(press(Key::Space), "21");  // 6
    EXPECT_EQ(f.lblCurrentTotal.caption(), "6");
    // 6 + 5 is eleven: both leave, and the cursor goes on to the next thing in the order.
    EXPECT_EQ(press(Key::Left), "20");
    EXPECT_EQ(press(Key::Space), "PlayCardPicture");
    EXPECT_EQ(f.lblCurrentScore.caption(), "200");  // two cards of tier one at 100
    // The enhanced clock runs from the first combination.
    t.fake.advance(10000);

    // 2D, free now, and the 9C: Left walks back along the rows.
    EXPECT_EQ(press(Key::Up), "17");
    EXPECT_EQ(press(Key::Space), "17");
    EXPECT_EQ(press(Key::Left, 10), "16 15 14 13 12 11 10 9 8 7");
    EXPECT_EQ(press(Key::Space), "8");
    EXPECT_EQ(f.lblCurrentScore.caption(), "800");  // 200 + 400

    // 3D, free with the 2D gone, and the 8S.
    EXPECT_EQ(press(Key::Right, 4), "9 10 11 12");
    EXPECT_EQ(press(Key::Space), "12");
    EXPECT_EQ(press(Key::Right, 4), "13 14 15 16");
    EXPECT_EQ(press(Key::Enter), "18");
    EXPECT_EQ(f.lblCurrentScore.caption(), "1,300");  // 300 + 200

    // 7D and the 4H of tier five, which nothing covers any more.
    EXPECT_EQ(press(Key::Left, 4), "15 14 13 11");
    EXPECT_EQ(press(Key::Space), "11");
    EXPECT_EQ(press(Key::Left, 8), "10 9 8 6 5 2 4 3");
    EXPECT_EQ(press(Key::Space), "4");
    EXPECT_EQ(f.lblCurrentScore.caption(), "2,100");  // 300 + 500

    // A draw: the 6C goes back into the lowest gap, slot 3 of tier five, for 500.
    EXPECT_EQ(press(Key::Right, 12), "2 5 6 8 9 10 13 14 15 18 19 PlayCardPicture");
    EXPECT_EQ(press(Key::Space), "PlayCardPicture");
    EXPECT_EQ(f.lblCardCount.caption(), "Cards: 29");
    EXPECT_EQ(f.lblCurrentScore.caption(), "1,600");

    // Take Score by Enter: four combinations at 1,000 and 80 seconds left at 100.
    EXPECT_EQ(press(Key::Down, 3), "cmdPlay cmdPause cmdTakeScore");
    seen.clear();
    EXPECT_EQ(press(Key::Enter), "cmdTakeScore");
    EXPECT_EQ(f.lblCurrentScore.caption(), "13,600");  // 1,600 + 4,000 + 8,000
    ASSERT_FALSE(seen.empty());
    EXPECT_EQ(seen.front(), "4 Elevens! Bonus = 4,000");
    EXPECT_NE(std::find(seen.begin(), seen.end(), "1 Elevens! Bonus = 1,000"), seen.end());
    EXPECT_NE(std::find(seen.begin(), seen.end(), "Speed Bonus! 8,000"), seen.end());
    EXPECT_EQ(seen.back(), "Prepare for Round Two!");
    EXPECT_EQ(f.lblCurrentRound->caption(), "2");
    EXPECT_EQ(t.fake.takeErrors(), std::vector<std::string>{});
}

}  // namespace corvanna
