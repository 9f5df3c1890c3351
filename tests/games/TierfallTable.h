#pragma once
// Tierfall on the test program, with a stacked deck whose cards are worked out by
// hand: the table the play and the round tests sit at.

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "forms/Input.h"
#include "games/GameRegistry.h"
#include "games/tierfall/frmTierfall.h"
#include "testkit/TestProgram.h"

namespace corvanna::tierfall_test {

inline std::vector<std::string> sounds(const std::vector<std::string>& log) {
    std::vector<std::string> out;
    for (const std::string& line : log)
        if (line.rfind("sound ", 0) == 0)
            out.push_back(line.substr(6));
    return out;
}

using Sounds = std::vector<std::string>;

// The real deck for goal 11 with the given cards moved to the given positions.
inline std::vector<std::string> stackedDeck(const std::map<int, std::string>& wanted) {
    auto deck = TierfallBoard::elevensDeck(11);
    std::set<int> fixed;
    for (const auto& [pos, code] : wanted) {
        for (std::size_t j = 1; j < deck.size(); ++j) {
            if (deck[j] == code && !fixed.count(static_cast<int>(j))) {
                std::swap(deck[j], deck[static_cast<std::size_t>(pos)]);
                break;
            }
        }
        fixed.insert(pos);
    }
    return deck;
}

// Slot s is Deck(s + 1); the up card Deck(23); the first draw Deck(52).
inline const std::map<int, std::string> kStack{
    {4, "4H"},    // slot 3, row 2
    {8, "9C"},    // slot 7, row 3
    {12, "7D"},   // slot 11, row 4
    {13, "3D"},   // slot 12, row 4
    {17, "8S"},   // slot 16, row 5
    {18, "2D"},   // slot 17, row 5
    {21, "5S"},   // slot 20, row 6
    {22, "6H"},   // slot 21, row 6
    {23, "6C"},   // the first up card
    {52, "10H"},  // the first draw
};

// The board slots whose cards are on show.
inline std::set<int> shownCards(const frmTierfall& f) {
    std::set<int> out;
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        if (f.FieldCardPicture[s]->visible())
            out.insert(s);
    return out;
}

struct Table {
    TestProgram t;
    frmTierfall& f;
    AppState& g;
    explicit Table(std::uint64_t seed = 1)
        : t(seed), f(static_cast<frmTierfall&>(t.openGame("frmTierfall"))), g(t.prog.state) {}
    ~Table() { EXPECT_TRUE(t.fake.takeErrors().empty()); }

    // Plays, then deals the stacked deck in place of the shuffled one.
    void playStacked(const std::map<int, std::string>& stack = kStack) {
        t.click("frmTierfall", "cmdPlay");
        g.Deck = stackedDeck(stack);
        ASSERT_EQ(g.Deck[8], "9C");
        ASSERT_TRUE(f.Deal());
        t.fake.takeLog();
    }
    // Two clicks on Take Score: a game of two rounds, 18,000 at 90 seconds.
    void playShortGame() {
        t.click("frmTierfall", "cmdPlay");
        t.click("frmTierfall", "cmdTakeScore");
        t.click("frmTierfall", "cmdTakeScore");
        ASSERT_FALSE(g.GameInProgress);
    }
    void card(int slot) { t.click("frmTierfall", "FieldCardPicture", slot); }
    void up() { t.click("frmTierfall", "UpCardPicture"); }
    void pile() { t.click("frmTierfall", "PlayCardPicture"); }
    Sounds heard() { return sounds(t.fake.takeLog()); }
    std::string pic(const std::string& key) { return t.prog.pictures.picture(key); }
    std::set<int> pointed() {
        std::set<int> out;
        for (int s = 0; s < TierfallBoard::kSlots; ++s)
            if (f.FieldCardPicture[s]->mouseIcon() == pic("POINTER"))
                out.insert(s);
        return out;
    }
    std::set<int> shown() { return shownCards(f); }
    // Everything above the bottom tier already played away: 20 and 21 clear the board.
    void leaveTheBottomTier() {
        for (int s = 0; s < 20; ++s)
            f.board.cardPresent[s] = false;
        f.PaintBoard();
    }
};

// A user's double click on the list's item.
inline void dblClickItem(ListControl& list, const std::string& item) {
    const auto& items = list.items();
    const auto at = std::find(items.begin(), items.end(), item);
    ASSERT_NE(at, items.end()) << item;
    list.setListIndex(static_cast<int>(at - items.begin()));
    std::string why;
    EXPECT_TRUE(userDblClick(list, &why)) << why;
}

inline std::set<int> allSlotsBut(std::set<int> gone) {
    std::set<int> out;
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        if (!gone.count(s))
            out.insert(s);
    return out;
}

}  // namespace corvanna::tierfall_test
