// Tierfall's rounds played through on the virtual clock: what cards, combinations,
// moves and the seconds left are worth in both scoring modes, worked out by hand
// from a stacked deck; time out, the bonus round, game over, End Game and replay.

#include <gtest/gtest.h>

#include <algorithm>

#include "common/FileStore.h"
#include "games/TierfallTable.h"
#include "games/tierfall/TierfallValues.h"

namespace corvanna {

using namespace tierfall_test;

namespace {

// kStack with an ace in slot 21 and 9D for the second draw, Deck(51).
const std::map<int, std::string> kRoundStack = [] {
    auto stack = kStack;
    stack[22] = "1S";
    stack[51] = "9D";
    return stack;
}();

// Every caption, or every colour, a label takes, in order.
template <class T, Prop kProp, auto kGet>
struct Seen {
    std::vector<T> seen;
    explicit Seen(Control& c) {
        c.subscribe([this](Control& ctl, Prop p) {
            if (p == kProp)
                seen.push_back((ctl.*kGet)());
        });
    }
};
using Colours = Seen<Color, Prop::ForeColor, &Control::foreColor>;

struct Captions : Seen<std::string, Prop::Caption, &Control::caption> {
    using Seen::Seen;
    // The first caption starting with `first` and those after it that hold `within`.
    std::vector<std::string> run(const std::string& first, const std::string& within) const {
        std::vector<std::string> out;
        for (const auto& s : seen) {
            if (out.empty() ? s.rfind(first, 0) == 0 : s.find(within) != std::string::npos)
                out.push_back(s);
            else if (!out.empty())
                break;
        }
        return out;
    }
    bool has(const std::string& caption) const {
        return std::find(seen.begin(), seen.end(), caption) != seen.end();
    }
};

constexpr Color kCyan = 0x00FFFF;

// Five combinations and a draw on kRoundStack, with the score after each step.
std::vector<std::int32_t> playFiveCombinationsAndADraw(Table& x) {
    std::vector<std::int32_t> scores;
    x.card(20);  // 5S
    x.up();      // + 6C, the only up card: 10H comes by itself
    scores.push_back(x.g.Score);
    x.up();      // 10H
    x.card(21);  // + 1S; the next draw, 9D, comes by itself
    scores.push_back(x.g.Score);
    x.card(7);   // 9C
    x.card(17);  // + 2D
    scores.push_back(x.g.Score);
    x.card(12);  // 3D
    x.card(16);  // + 8S
    scores.push_back(x.g.Score);
    x.card(3);   // 4H
    x.card(11);  // + 7D
    scores.push_back(x.g.Score);
    x.pile();  // 9D goes back onto the board, into slot 3
    scores.push_back(x.g.Score);
    return scores;
}

}  // namespace

TEST(TierfallRound, RoundsByHandPayRowsCombinationsAndSecondsLeftInBothModes) {
    struct Case {
        bool enhanced;
        std::vector<std::string> tips;  // slot 0, slot 21 and the up card at the deal
        std::vector<std::int32_t> scores;
        std::string upTip;  // after the five combinations and the draw
        std::int32_t perCombination;
        std::vector<std::string> combinationBonus;
        std::string total;
    };
    const Case cases[] = {
        // Up card 100 + row 6 200; 100 + 200; rows 3 and 5 500 + 300; rows 4 and 5 400 +
        // 300; rows 2 and 4 600 + 400; a card back onto the board costs 100.
        {false,
         {"700 points", "200 points", "100 points"},
         {300, 600, 1400, 2100, 3100, 3000},
         "100 points",
         1500,
         {"5 Elevens! Bonus = 7,500", "4 Elevens! Bonus = 6,000", "3 Elevens! Bonus = 4,500",
          "2 Elevens! Bonus = 3,000", "1 Elevens! Bonus = 1,500", "0 Elevens! Bonus = 0"},
         "18,500"},
        // The up card is worth the row of the lowest gap before the cards leave: nothing on
        // a full board, then row 6's 100. Rows: 6 100, 5 200, 4 300, 3 400, 2 500. The card
        // put back into slot 3 costs row 2's 500; the gap at 7 is the up card's now.
        {true,
         {"600 points", "100 points", "0 points"},
         {100, 300, 900, 1400, 2200, 1700},
         "400 points",
         1000,
         {"5 Elevens! Bonus = 5,000", "4 Elevens! Bonus = 4,000", "3 Elevens! Bonus = 3,000",
          "2 Elevens! Bonus = 2,000", "1 Elevens! Bonus = 1,000", "0 Elevens! Bonus = 0"},
         "14,700"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.enhanced ? "enhanced" : "standard");
        Table x;
        tierfallValues(x.t.prog).EnhancedScoring = c.enhanced;
        x.playStacked(kRoundStack);
        EXPECT_EQ((std::vector<std::string>{x.f.FieldCardPicture[0]->toolTipText(),
                                            x.f.FieldCardPicture[21]->toolTipText(),
                                            x.f.UpCardPicture.toolTipText()}),
                  c.tips);
        // The enhanced clock starts at the first combination, the standard one at the deal.
        x.t.fake.advance(5000);
        EXPECT_EQ(x.g.ElapsedSeconds, c.enhanced ? 0 : 5);
        EXPECT_EQ(playFiveCombinationsAndADraw(x), c.scores);
        EXPECT_EQ(x.f.board.GoalCount, 5);
        EXPECT_EQ(x.f.board.FieldCards[3], "9D");
        EXPECT_EQ(x.f.UpCardPicture.toolTipText(), c.upTip);
        x.t.fake.advance(c.enhanced ? 10000 : 5000);
        EXPECT_EQ(x.g.ElapsedSeconds, 10);

        Captions message(x.f.lblMessage);
        Captions time(x.f.lblTime);
        Captions combos(x.f.lblCurrentElevens);
        Colours scoreColour(x.f.lblCurrentScore);
        Colours comboColour(x.f.lblCurrentElevens);
        x.heard();
        const auto before = x.t.fake.elapsedMs();
        x.t.click("frmTierfall", "cmdTakeScore");
        // 5 combinations and 80 seconds at 100.
        EXPECT_EQ(x.g.Score, c.scores.back() + 5 * c.perCombination + 8000);
        EXPECT_EQ(message.run("5 Elevens!", "Elevens!"), c.combinationBonus);
        const auto speed = message.run("Speed Bonus! ", "Speed Bonus! ");
        ASSERT_EQ(speed.size(), 81u);
        EXPECT_EQ(speed.front(), "Speed Bonus! 8,000");
        EXPECT_EQ(speed[1], "Speed Bonus! 7,900");
        EXPECT_EQ(speed.back(), "Speed Bonus! 0");
        EXPECT_TRUE(message.run("Card Bonus!", "Card Bonus!").empty());  // the board stands
        EXPECT_TRUE(message.has("Prepare for Round Two!"));
        // The seconds paid run the clock on to its end; round two starts it afresh.
        ASSERT_EQ(time.seen.size(), 81u);
        EXPECT_EQ(time.seen.front(), "Time: 79");
        EXPECT_EQ(time.seen[79], "Time: 0");
        EXPECT_EQ(time.seen.back(), "Time: 90");
        EXPECT_EQ(combos.seen, (std::vector<std::string>{"4", "3", "2", "1", "0"}));
        EXPECT_EQ(comboColour.seen, (std::vector<Color>{kCyan, colors::Blue}));
        // Cyan while each payment is announced, blue from its first step.
        EXPECT_EQ(scoreColour.seen, (std::vector<Color>{kCyan, colors::Blue, kCyan, colors::Blue}));
        const Sounds heard = x.heard();
        EXPECT_EQ(count(heard, "Snap.wav"), 5 + 80);
        EXPECT_EQ(count(heard, "Wingame.wav"), 0);
        // Each payment: 1 s shown, 75 ms a step, 0.5 s settling, 1 s standing; 11 flashes.
        EXPECT_EQ(x.t.fake.elapsedMs() - before,
                  (1000 + 5 * 75 + 500 + 1000) + (1000 + 80 * 75 + 500 + 1000) + 11 * 250);
        EXPECT_EQ(x.g.RoundNumber, 2);
        EXPECT_EQ(x.f.lblCurrentRound->caption(), "2");
        EXPECT_EQ(x.f.lblCurrentScore.caption(), c.total);
        EXPECT_EQ(tierfallValues(x.t.prog).RoundDecks[0], stackedDeck(kRoundStack));
        EXPECT_EQ(tierfallValues(x.t.prog).RoundDecks[1], x.g.Deck);
        // Round two's clock starts as round one's did.
        x.t.fake.advance(5000);
        EXPECT_EQ(x.g.ElapsedSeconds, c.enhanced ? 0 : 5);
        EXPECT_EQ(x.f.UpCardPicture.toolTipText(), c.tips[2]);
    }
}

TEST(TierfallRound, ClearedBoardPaysCompletionCombinationsCardsLeftAndSeconds) {
    // kStack's bottom tier is 5S and 6H; the pile holds 30 cards.
    struct Case {
        bool enhanced, countDown;
        std::int32_t completion, expected;
    };
    const Case cases[] = {
        // Rows of 100; 10,000; one combination 1,000; 30 cards at 1,000; 90 seconds at 100.
        {true, true, 10000, 200 + 10000 + 1000 + 30000 + 9000},
        // The count-up pays ten whole tenths of the completion bonus; at once, all of it.
        {true, true, 10005, 200 + 10000 + 1000 + 30000 + 9000},
        {true, false, 10005, 200 + 10005 + 1000 + 30000 + 9000},
        // Standard: rows of 200, one combination 1,500 and no card bonus.
        {false, true, 10000, 400 + 10000 + 1500 + 9000},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(&c - cases);
        Table x;
        tierfallValues(x.t.prog).EnhancedScoring = c.enhanced;
        tierfallValues(x.t.prog).CompletionBonus = c.completion;
        x.g.CountDownScore = c.countDown;
        x.playStacked();
        x.leaveTheBottomTier();
        Captions message(x.f.lblMessage);
        const auto before = x.t.fake.elapsedMs();
        x.card(20);
        x.card(21);  // the board is empty: the round ends at once
        EXPECT_EQ(x.g.Score, c.expected);
        EXPECT_EQ(x.g.RoundNumber, 2);
        const Sounds heard = x.heard();
        EXPECT_EQ(count(heard, "Wingame.wav"), 1);
        const auto completion = message.run("Completion Bonus! ", "Completion Bonus! ");
        const auto cards = message.run("Card Bonus! ", "Card Bonus! ");
        if (c.countDown) {
            ASSERT_EQ(completion.size(), 11u);
            EXPECT_EQ(completion.front(), "Completion Bonus! 10,000");
            EXPECT_EQ(completion[1], "Completion Bonus! 9,000");
            EXPECT_EQ(completion.back(), "Completion Bonus! 0");
            EXPECT_EQ(message.run("1 Elevens!", "Elevens!"),
                      (std::vector<std::string>{
                          c.enhanced ? "1 Elevens! Bonus = 1,000" : "1 Elevens! Bonus = 1,500",
                          "0 Elevens! Bonus = 0"}));
            EXPECT_EQ(count(heard, "Snap.wav"), 10 + 1 + (c.enhanced ? 30 : 0) + 90);
        } else {
            EXPECT_EQ(completion, (std::vector<std::string>{"Completion Bonus! 10,005"}));
            EXPECT_EQ(count(heard, "Snap.wav"), 0);
            // Four payments, each shown 1 s and standing 1 s; then 11 flashes.
            EXPECT_EQ(x.t.fake.elapsedMs() - before, 4 * 2000 + 11 * 250);
        }
        if (c.enhanced && c.countDown) {
            ASSERT_EQ(cards.size(), 31u);
            EXPECT_EQ(cards.front(), "Card Bonus! 30,000");
            EXPECT_EQ(cards.back(), "Card Bonus! 0");
        }
        EXPECT_EQ(cards.empty(), !c.enhanced);
    }
}

TEST(TierfallRound, CombinationBonusIsNamedByTheGoal) {
    Table x;
    tierfallValues(x.t.prog).CardGoal = 12;
    x.t.click("frmTierfall", "cmdPlay");
    EXPECT_EQ(x.f.lblElevens.caption(), "Twelves:");
    EXPECT_EQ(x.f.lblCardCount.caption(), "Cards: 34");
    EXPECT_EQ(x.f.StatusBar1.panelText(2), "Click on exposed cards to total 12!   ");
    x.f.board.FieldCards[20] = "5S";
    x.f.board.FieldCards[21] = "7H";
    x.leaveTheBottomTier();  // only 5S and 7H left
    Captions message(x.f.lblMessage);
    x.card(20);
    x.card(21);
    EXPECT_EQ(message.run("1 Twelves!", "Twelves!"),
              (std::vector<std::string>{"1 Twelves! Bonus = 1,000", "0 Twelves! Bonus = 0"}));
    // 34 cards left in the larger pile.
    EXPECT_EQ(x.g.Score, 200 + 10000 + 1000 + 34000 + 9000);
}

TEST(TierfallRound, TimeOutKeepsTheBoardInViewUnderTimesUpAndPaysNoSeconds) {
    for (const bool enhanced : {false, true}) {
        SCOPED_TRACE(enhanced ? "enhanced" : "standard");
        Table x;
        tierfallValues(x.t.prog).EnhancedScoring = enhanced;
        x.t.click("frmTierfall", "mnu30");
        x.playStacked();
        if (enhanced) {
            x.card(20);
            x.card(21);  // 5S + 6H: rows of 100, and the clock starts
            ASSERT_EQ(x.g.Score, 200);
        }
        x.card(7);  // 9C stays selected
        std::set<int> shownAtTimesUp;
        bool lowerShown = true, playEnabled = true, framed = true;
        x.f.lblMessage.subscribe([&](Control& c, Prop p) {
            if (p != Prop::Caption || c.caption() != "Times Up!")
                return;
            shownAtTimesUp = x.shown();
            lowerShown = x.f.UpCardPicture.visible() || x.f.PlayCardPicture.visible();
            playEnabled = x.f.cmdPlay.enabled() || x.f.cmdTakeScore->enabled();
            framed = x.f.FieldSelectionRectangle[7]->visible();
        });
        Captions message(x.f.lblMessage);
        x.t.fake.advance(29000);
        EXPECT_TRUE(x.f.FieldSelectionRectangle[7]->visible());
        x.t.fake.advance(1000);
        EXPECT_EQ(shownAtTimesUp, allSlotsBut(enhanced ? std::set<int>{20, 21} : std::set<int>{}));
        EXPECT_FALSE(lowerShown);
        EXPECT_FALSE(playEnabled);
        EXPECT_FALSE(framed);
        EXPECT_TRUE(message.run("Speed Bonus!", "Speed Bonus!").empty());
        // The one combination of the enhanced round is paid; no seconds are left.
        EXPECT_EQ(x.g.Score, enhanced ? 200 + 1000 : 0);
        EXPECT_EQ(x.g.RoundNumber, 2);
        EXPECT_EQ(x.f.lblCurrentTotal.caption(), "0");  // the 9 held at time out is gone
        EXPECT_FALSE(x.f.lblMessage.visible());
        EXPECT_TRUE(x.f.cmdTakeScore->enabled());
    }
}

TEST(TierfallRound, ClicksDuringTheTakeScorePaymentsFindNothing) {
    Table x;
    x.playStacked();
    // Made during the payments: held, and delivered while the score is still being taken.
    int delivered = 0;
    for (Control* c : std::initializer_list<Control*>{x.f.cmdTakeScore, &x.f.cmdPause, &x.f.cmdPlay,
                                                      x.f.FieldCardPicture[20]}) {
        x.t.fake.post([&, c] {
            ++delivered;
            if (c->Click)
                c->Click();
        });
    }
    x.t.click("frmTierfall", "cmdTakeScore");
    EXPECT_EQ(delivered, 4);
    EXPECT_FALSE(x.f.isPaused());
    EXPECT_TRUE(x.g.GameInProgress);
    EXPECT_EQ(x.f.board.CardTotal, 0);
    EXPECT_FALSE(x.f.FieldSelectionRectangle[20]->visible());
    EXPECT_TRUE(x.t.fake.messages().empty());
    // A double click is one click: the card is selected once.
    EXPECT_TRUE(userClick(*x.f.FieldCardPicture[20]));
    EXPECT_TRUE(userDblClick(*x.f.FieldCardPicture[20]));
    EXPECT_TRUE(x.f.FieldSelectionRectangle[20]->visible());
}

TEST(TierfallRound, BonusRoundAtTheBonusScoreAndGameOverOnePointBelow) {
    // Take Score at once in both rounds: 90 seconds at 100 each time, 18,000 in all.
    for (const std::int32_t needed : {18000, 18001}) {
        SCOPED_TRACE(needed);
        TestProgram t;
        auto& f = static_cast<frmTierfall&>(t.openGame("frmTierfall"));
        auto& g = t.prog.state;
        g.BonusRoundScore = needed;
        t.click("frmTierfall", "cmdPlay");
        t.click("frmTierfall", "cmdTakeScore");
        ASSERT_EQ(g.RoundNumber, 2);
        Captions message(f.lblMessage);
        t.fake.takeLog();
        t.click("frmTierfall", "cmdTakeScore");
        EXPECT_EQ(g.Score, 18000);
        const auto log = t.fake.takeLog();
        if (needed == 18000) {
            EXPECT_EQ(g.RoundNumber, 3);
            EXPECT_EQ(f.lblCurrentRound->caption(), "Bonus");
            EXPECT_TRUE(message.has("Bonus Round!"));
            EXPECT_EQ(count(sounds(log), "HighScore.wav"), 1);
            EXPECT_TRUE(g.GameInProgress);
            EXPECT_TRUE(f.cmdPause.enabled());
            // The bonus round ends the game whatever the score.
            t.click("frmTierfall", "cmdTakeScore");
            EXPECT_EQ(g.Score, 27000);
        } else {
            EXPECT_FALSE(message.has("Bonus Round!"));
        }
        // Ended after round two the clock, round and goal boxes go, and the high score; after
        // the bonus round they stay.
        for (const Control* box : {&f.lblTime, f.lblCurrentRound, &f.lblCurrentElevens,
                                   static_cast<Control*>(&f.lblHighScore)})
            EXPECT_EQ(box->visible(), needed == 18000);
        EXPECT_FALSE(g.GameInProgress);
        EXPECT_EQ(g.RoundNumber, 1);
        EXPECT_EQ(tierfallValues(t.prog).LastScore, g.Score);
        EXPECT_EQ(f.StatusBar1.panelText(2), "Game over");
        EXPECT_EQ(f.lblMessage.caption(), "Game Over");
        EXPECT_FALSE(f.lblMessage.visible());
        EXPECT_TRUE(f.frmSplash.visible());
        EXPECT_TRUE(t.fake.isRunning(f.Timer4));
        EXPECT_FALSE(t.fake.isRunning(f.Timer1));
        EXPECT_TRUE(shownCards(f).empty());
        EXPECT_FALSE(f.UpCardPicture.visible());
        EXPECT_EQ(f.cmdPlay.caption(), "&Play");
        EXPECT_EQ(f.mnuPlay.caption(), "&Play");
        EXPECT_EQ(f.cmdTakeScore->caption(), "&Replay");
        EXPECT_EQ(f.mnuTakeScore->caption(), "&Replay");
        EXPECT_TRUE(f.cmdTakeScore->enabled() && f.mnuTakeScore->enabled());
        EXPECT_EQ(f.cmdTakeScore->toolTipText(), "Replays the last game");
        EXPECT_FALSE(f.cmdPause.enabled() || f.mnuPause.enabled());
        EXPECT_TRUE(f.mnuTime.enabled() && f.mnuCustom.enabled());
        // Below the seeded 50,000: ranked in the enhanced table of goal 11, not entered.
        EXPECT_TRUE(fileExists(t.prog.filePath("ES Tierfall Hi Score Table 11_90.Txt")));
        EXPECT_FALSE(fileExists(t.prog.filePath("Tierfall Hi Score Table 11_90.Txt")));
        EXPECT_EQ(f.lblHighScore.caption(), "High Score: 50,000");
        // Clicks after the game is over are refused.
        t.fake.takeLog();
        f.FieldCardPicture_Click(20);
        f.UpCardPicture_Click();
        EXPECT_EQ(sounds(t.fake.takeLog()), (Sounds{"Chord.wav", "Chord.wav"}));
        EXPECT_TRUE(t.fake.takeErrors().empty());
    }
}

TEST(TierfallRound, ReplayDealsTheLastGamesDecksUnderANewGoal) {
    Table x;
    x.playShortGame();
    const auto decks = tierfallValues(x.t.prog).RoundDecks;
    EXPECT_EQ(decks[2], std::vector<std::string>(53));  // never reached: blanks
    tierfallValues(x.t.prog).CardGoal = 12;
    x.t.click("frmTierfall", "cmdTakeScore");  // "&Replay"
    EXPECT_EQ(x.g.Deck, decks[0]);             // 52 cards, no jacks
    EXPECT_EQ(x.f.board.CardGoal, 12);
    EXPECT_EQ(x.f.lblCardCount.caption(), "Cards: 30");
    EXPECT_TRUE(x.g.GameInProgress);
    EXPECT_TRUE(tierfallValues(x.t.prog).ReplayRequested);
    EXPECT_EQ(tierfallValues(x.t.prog).LastScore, 18000);
    EXPECT_EQ(x.g.Score, 0);
    EXPECT_EQ(x.f.cmdPlay.caption(), "&End Game");
    EXPECT_EQ(x.f.cmdTakeScore->caption(), "&Take Score");
    EXPECT_FALSE(x.f.frmSplash.visible());
    x.t.click("frmTierfall", "cmdTakeScore");
    EXPECT_EQ(x.g.Deck, decks[1]);
}

TEST(TierfallRound, EndGameAsksFirstRecordsNothingAndOffersReplay) {
    TestProgram t;
    auto& f = static_cast<frmTierfall&>(t.openGame("frmTierfall"));
    auto& g = t.prog.state;
    t.click("frmTierfall", "mnuMusic");
    // From the menu the tune waits; from the button it starts.
    t.click("frmTierfall", "mnuPlay");
    EXPECT_EQ(f.cmdPlay.caption(), "&End Game");
    EXPECT_EQ(f.cmdPlay.toolTipText(), "Ends the game in progress");
    EXPECT_FALSE(f.frmSplash.visible());
    EXPECT_EQ(count(t.fake.takeLog(), "music start Orlund.MID"), 0);

    // Answered No: paused for the question, then on as before.
    Captions message(f.lblMessage);
    t.fake.queueAnswer(MsgResult::No);
    t.click("frmTierfall", "mnuPlay");
    EXPECT_EQ(t.fake.messages().back(),
              "You have a game in progress, are you sure you want to restart now?");
    EXPECT_EQ(message.seen, (std::vector<std::string>{"Game Paused", ""}));
    EXPECT_TRUE(g.GameInProgress);
    EXPECT_FALSE(f.isPaused());

    g.Score = 4321;
    t.fake.queueAnswer(MsgResult::Yes);
    t.fake.takeLog();
    t.click("frmTierfall", "cmdPlay");
    EXPECT_EQ(t.fake.messages().back(),
              "You have a game in progress, are you sure you want to quit now?");
    EXPECT_FALSE(g.GameInProgress);
    EXPECT_EQ(tierfallValues(t.prog).LastScore, 4321);
    EXPECT_EQ(g.Score, 0);
    EXPECT_EQ(f.lblCurrentScore.caption(), "0");
    EXPECT_EQ(f.cmdPlay.caption(), "&Play");
    EXPECT_EQ(f.cmdPlay.toolTipText(), "Starts a new game");
    EXPECT_EQ(f.cmdTakeScore->caption(), "&Replay");
    EXPECT_TRUE(f.frmSplash.visible());
    EXPECT_TRUE(t.fake.isRunning(f.Timer4) && !t.fake.isRunning(f.Timer1));
    EXPECT_FALSE(f.lblHighScore.visible() || f.lblTime.visible() || f.lblCurrentTotal.visible());
    EXPECT_EQ(f.lblTime.caption(), "Time:");
    EXPECT_TRUE(shownCards(f).empty());
    EXPECT_TRUE(logHas(t.fake.takeLog(), "music stop"));
    // Nothing was recorded, and the button starts the tune with the next game.
    EXPECT_EQ(t.prog.state.NewHighScoreRow, -1);
    t.click("frmTierfall", "cmdPlay");
    EXPECT_TRUE(logHas(t.fake.takeLog(), "music start Orlund.MID"));
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(TierfallRound, AnEndedRoundOrGameLeavesTheClockEmptyAndStillAndTheTuneOff) {
    TestProgram t;
    auto& f = static_cast<frmTierfall&>(t.openGame("frmTierfall"));
    auto& g = t.prog.state;
    tierfallValues(t.prog).EnhancedScoring = false;
    t.click("frmTierfall", "mnu30");
    t.click("frmTierfall", "mnuDrawTimer");  // seconds left are paid at once
    g.BonusRoundScore = 1;                   // every game earns its bonus round
    auto slices = [&] {
        return std::count_if(f.Surface.ops().begin(), f.Surface.ops().end(),
                             [](const DrawOp& op) { return op.kind == DrawOp::Pie; });
    };
    auto stillAndEmpty = [&] {
        f.setSize(f.width() + 300, f.height() + 300);  // a resize repaints the clock
        t.fake.advance(1000);
        return slices() == 0 && !t.fake.isRunning(f.Timer2) && g.ClockSeconds == 0;
    };
    bool emptiedBeforeRoundTwo = false;
    f.lblMessage.subscribe([&](Control& c, Prop p) {
        if (p == Prop::Caption && c.caption() == "Prepare for Round Two!")
            emptiedBeforeRoundTwo = slices() == 0 && !t.fake.isRunning(f.Timer2);
    });

    t.click("frmTierfall", "cmdPlay");
    t.fake.advance(25000);  // 300 degrees: the last quarter blinks
    ASSERT_TRUE(t.fake.isRunning(f.Timer2));
    t.click("frmTierfall", "cmdTakeScore");
    EXPECT_TRUE(emptiedBeforeRoundTwo);
    t.click("frmTierfall", "cmdTakeScore");  // round two at once: the bonus round is earned
    ASSERT_EQ(g.RoundNumber, 3);

    // The bonus round's seconds counted out run the clock to its end; the tune, switched on
    // during the payments, waits for a round that never comes.
    t.click("frmTierfall", "mnuDrawTimer");
    t.fake.advance(25000);
    t.fake.post([&] { userClick(f.mnuMusic); });
    t.fake.takeLog();
    t.click("frmTierfall", "cmdTakeScore");
    ASSERT_FALSE(g.GameInProgress);
    ASSERT_TRUE(g.MusicOn);
    EXPECT_EQ(count(t.fake.takeLog(), "music start Orlund.MID"), 0);
    EXPECT_TRUE(f.Surface.visible());
    EXPECT_TRUE(stillAndEmpty());

    // End Game clears the clock, and it stays clear.
    t.click("frmTierfall", "cmdPlay");
    t.fake.advance(25000);
    t.fake.queueAnswer(MsgResult::Yes);
    t.click("frmTierfall", "cmdPlay");
    EXPECT_TRUE(f.Surface.ops().empty());
    EXPECT_TRUE(stillAndEmpty());
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(TierfallRound, ScoreBelowZeroStandsInRed) {
    for (const bool enhanced : {false, true}) {
        Table x;
        tierfallValues(x.t.prog).EnhancedScoring = enhanced;
        x.playStacked();
        x.f.board.cardPresent[5] = false;  // a gap in row 3
        x.f.PaintBoard();
        x.pile();  // 6C goes into it: 100 standard, row 3's 400 enhanced
        EXPECT_EQ(x.g.Score, enhanced ? -400 : -100);
        EXPECT_EQ(x.f.lblCurrentScore.caption(), enhanced ? "-400" : "-100");
        EXPECT_EQ(x.f.lblCurrentScore.foreColor(), colors::Red);
        x.card(20);
        x.card(21);  // 5S + 6H: rows of 100 or 200
        EXPECT_EQ(x.g.Score, enhanced ? -200 : 300);
        EXPECT_EQ(x.f.lblCurrentScore.foreColor(), enhanced ? colors::Red : colors::Blue);
    }
}

TEST(TierfallRound, AReplayThatCannotBeDealtSaysSoAndLeavesTheForm) {
    TestProgram t;
    t.openGame("frmTierfall");
    auto& g = t.prog.state;
    // A damaged last game: its first deck is too short for a board.
    tierfallValues(t.prog).ReplayRequested = true;
    tierfallValues(t.prog).RoundDecks[0] = {"", "1S", "2S"};
    t.fake.queueAnswer(MsgResult::OK);
    t.fake.queueAnswer(MsgResult::OK);
    t.click("frmTierfall", "cmdPlay");
    EXPECT_EQ(t.fake.messages(), (std::vector<std::string>{"Unable to deal the cards.",
                                                           "Unknown Error! Unable to play "
                                                           "Tierfall!"}));
    EXPECT_EQ(t.prog.findForm("frmTierfall"), nullptr);
    EXPECT_TRUE(t.select.visible());
    EXPECT_FALSE(g.GameInProgress);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

}  // namespace corvanna
