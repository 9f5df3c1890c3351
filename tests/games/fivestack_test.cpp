// Fivestack played on the virtual clock with stacked decks; every number worked out by hand:
// the Time Bonus falls from 300 to 100 over 60 seconds, a step of 200 / 60.

#include <gtest/gtest.h>

#include <map>

#include "common/FileStore.h"
#include "forms/Input.h"
#include "games/fivestack/frmFivestack.h"
#include "games/fivestack/frmFivestackCustomScoring.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

// The game on the test program, a round dealt from a deck of the given cards: deck
// position 1 is never played, the card on offer starts at position 2.
struct Stack {
    TestProgram t;
    frmFivestack& f;
    AppState& g;
    std::vector<std::string> shown;  // ScoringLabel's captions as they came
    Stack() : f(static_cast<frmFivestack&>(t.openGame("frmFivestack"))), g(t.prog.state) {
        f.lblMessage.subscribe([this](Control& c, Prop p) {
            if (p == Prop::Caption && (shown.empty() || shown.back() != c.caption()))
                shown.push_back(c.caption());
        });
    }
    ~Stack() { EXPECT_TRUE(t.fake.takeErrors().empty()); }
    void play(const std::vector<std::string>& cards) {
        t.click("frmFivestack", "cmdPlay");
        deal(cards);
    }
    void deal(const std::vector<std::string>& cards) {
        std::vector<std::string> deck{"", "2C"};
        deck.insert(deck.end(), cards.begin(), cards.end());
        while (deck.size() < 53)
            deck.push_back("2D");
        g.Deck = deck;
        ASSERT_TRUE(f.Deal());
        f.RoundStarted();
        t.fake.takeLog();
        shown.clear();
    }
    void hit(int column) { t.click("frmFivestack", "cmdHit", column); }
    std::vector<std::string> sounds() { return only(t.fake.takeLog(), {"sound "}); }
};

// Ten cards worth 10 make five columns of 20: a Card Total of 100.
const std::vector<std::string> kHundred{"10S", "11S", "12S", "13S", "10H",
                                        "11H", "12H", "13H", "10D", "11D"};

}  // namespace

TEST(Fivestack, ARoundAtOneHundredAfterThirtySecondsPaysFortyThousandInSteps) {
    Stack x;
    x.play(kHundred);
    for (int c = 0; c < 5; ++c) {
        x.hit(c);
        x.hit(c);
    }
    EXPECT_EQ(x.f.lblCurrentTotal.caption(), "100");
    EXPECT_EQ(x.f.lblCurrentTotal.foreColor(), Color{0x00C000});
    EXPECT_EQ(x.f.cmdGiveUp.caption(), "&Take score");
    EXPECT_EQ(x.f.TotalLabel[4]->foreColor(), colors::Red);  // the row of 100
    EXPECT_TRUE(x.f.TotalLabel[4]->fontBold());
    EXPECT_EQ(x.sounds(), std::vector<std::string>(10, "sound Click.wav"));

    // 30 seconds: 400 - (30 * 3.33 + 100) = 200.
    x.t.fake.advance(30000);
    EXPECT_EQ(x.f.lblTimeBonus.caption(), "200");
    EXPECT_EQ(x.f.lblTime.caption(), "Time Bonus:");
    const auto start = x.t.fake.elapsedMs();
    // Clicks made during the waits are held and find the round already ended.
    int delivered = 0;
    for (Control* c : {x.f.cmdHit[0], &x.f.cmdPass, &x.f.cmdGiveUp})
        x.t.fake.post([&, c] { delivered += c->Click ? (c->Click(), 1) : 0; });
    x.t.click("frmFivestack", "cmdGiveUp");
    EXPECT_EQ(delivered, 3);
    EXPECT_EQ(x.f.board.ColumnCardCount[0], 0);
    EXPECT_EQ(x.f.board.CardsToPass, 1);
    EXPECT_EQ(x.f.ScoringLabelRoundTotal.caption(), "Round 1 Total: ");
    EXPECT_EQ(x.f.ScoringLabelInfo.caption(), "Card Total Value (200) X Time Bonus (200)");
    EXPECT_EQ(x.g.Score, 40000);
    EXPECT_EQ(x.f.lblCurrentScore.caption(), "40,000");
    // Shown for the wait, then counted over 400 a step, 100 steps of 10 ms, a tick on every
    // third, "0" for 50 ms; then "Prepare for Round 2" for the wait.
    ASSERT_GE(x.shown.size(), 103u);
    EXPECT_EQ(x.shown[0], "40,000");
    EXPECT_EQ(x.shown[1], "39,600");
    EXPECT_EQ(x.shown[99], "400");
    EXPECT_EQ(x.shown[100], "0");
    EXPECT_EQ(x.shown[101], "Prepare for Round 2");
    const auto sounds = x.sounds();
    EXPECT_EQ(count(sounds, "sound Tick.wav"), 33);
    EXPECT_EQ(x.t.fake.elapsedMs() - start, 2000 + 100 * 10 + 50 + 2000);
    EXPECT_EQ(x.f.caption(), "Fivestack!: Round 2");
    EXPECT_EQ(x.f.lblRound.caption(), "Round: 2");
    EXPECT_EQ(x.f.lblCurrentTotal.caption(), "0");
    EXPECT_EQ(x.f.cmdGiveUp.caption(), "&Give Up");
    EXPECT_TRUE(x.t.fake.isRunning(x.f.Timer1));
}

TEST(Fivestack, FiveColumnsOfTwentyOneTakeTheScoreAtOnceAsTotallyAwesome) {
    Stack x;
    std::vector<std::string> cards;
    for (int c = 0; c < 5; ++c)
        cards.insert(cards.end(), {"10C", "13C", "1S"});  // 10, 10 and an ace at 1
    x.play(cards);
    x.g.CountDownScore = false;
    // 15 seconds: 400 - (15 * 3.33 + 100) = 250.
    x.t.fake.advance(15000);
    const auto start = x.t.fake.elapsedMs();
    for (int c = 0; c < 5; ++c)
        for (int i = 0; i < 3; ++i)
            x.hit(c);
    // The last hit took the score: 1,000 x 250, paid at once with the count-down off.
    EXPECT_EQ(x.g.Score, 250000);
    EXPECT_EQ(x.shown[0], "250,000");
    EXPECT_EQ(x.f.ScoringLabelInfo.caption(), "Totally Awesome Score!");
    EXPECT_EQ(count(x.sounds(), "sound Applause.wav"), 1);
    // The wait, twice more for the applause, no count-down, then the next round's wait.
    EXPECT_EQ(x.t.fake.elapsedMs() - start, 3 * 2000 + 2000);
    EXPECT_EQ(x.g.RoundNumber, 2);
}

TEST(Fivestack, BustsSoftAcesAndPasses) {
    // A column of 21 hit again with no soft ace busts the round, at 97 or more or not.
    {
        Stack x;
        x.play({"10C", "13C", "1S", "5H"});
        x.hit(0);
        x.hit(0);
        x.hit(0);
        EXPECT_EQ(x.f.ColumnTotal[0]->caption(), "21");
        EXPECT_EQ(x.f.cmdHit[0]->caption(), "Hit");  // 21 doesn't close a column
        x.hit(0);
        EXPECT_EQ(x.g.Score, 0);
        EXPECT_EQ(x.shown.at(0), "Busted!");
        const auto sounds = x.sounds();
        EXPECT_EQ(count(sounds, "sound Busted.wav"), 2);
        EXPECT_EQ(x.g.RoundNumber, 2);
    }
    // 9, an ace at 11 (20, "Soft"), then a 5: 25, saved to 15, and the next card goes by
    // unseen: the 7 is skipped and the 8 is on offer.
    {
        Stack x;
        x.play({"9C", "1H", "5S", "7D", "8D", "1C", "1D"});
        x.hit(1);
        x.hit(1);
        EXPECT_EQ(x.f.ColumnTotal[1]->caption(), "20");
        EXPECT_EQ(x.f.ColumnSoft[1]->caption(), "Soft");
        EXPECT_TRUE(x.f.ColumnSoft[1]->visible());
        x.hit(1);
        EXPECT_EQ(x.f.ColumnTotal[1]->caption(), "15");
        EXPECT_FALSE(x.f.ColumnSoft[1]->visible());
        EXPECT_EQ(x.f.NextCardPicture.picture(), x.t.prog.pictures.picture("8D"));
        EXPECT_EQ(x.f.lblCurrentTotal.foreColor(), colors::Red);
        // The ace counts 1 now: 15 + 8 = 23 busts the round.
        x.hit(1);
        EXPECT_EQ(x.shown.at(0), "Busted!");
    }
    // A second ace counts 1 unless the column is at 10 or less; the fifth card closes it;
    // the one pass goes and Pass is disabled.
    {
        Stack x;
        x.play({"1H", "1C", "2S", "3S", "4S", "6D", "7D"});
        x.hit(2);  // 11, soft
        x.hit(2);  // 12: the second ace counts 1
        EXPECT_EQ(x.f.ColumnTotal[2]->caption(), "12");
        x.hit(2);  // 14
        x.hit(2);  // 17
        EXPECT_TRUE(x.f.cmdPass.enabled());
        x.t.click("frmFivestack", "cmdPass");  // the 4 goes by
        EXPECT_FALSE(x.f.cmdPass.enabled());
        EXPECT_EQ(x.f.NextCardPicture.picture(), x.t.prog.pictures.picture("6D"));
        x.hit(2);  // 6: 23, the soft ace saves it: 13, and the 7 goes by unseen
        EXPECT_EQ(x.f.ColumnTotal[2]->caption(), "13");
        EXPECT_EQ(x.f.cmdHit[2]->caption(), "Closed");
        EXPECT_FALSE(x.f.cmdHit[2]->enabled());
        EXPECT_EQ(x.f.NextCardPicture.picture(), x.t.prog.pictures.picture("2D"));
    }
}

TEST(Fivestack, TimeOutTakesNinetySevenAtTheLowestBonusAndRefusesNinetySix) {
    for (const auto& [cards, total, score] :
         {std::tuple{std::vector<std::string>{"10S", "11S", "12S", "13S", "10H", "11H", "12H",
                                              "13H", "10D", "6D"},
                     "96", 0},
          std::tuple{std::vector<std::string>{"10S", "11S", "12S", "13S", "10H", "11H", "12H",
                                              "13H", "10D", "8D"},
                     "98", 10000}}) {
        Stack x;
        x.play(cards);
        for (int c = 0; c < 5; ++c) {
            x.hit(c);
            x.hit(c);
        }
        ASSERT_EQ(x.f.lblCurrentTotal.caption(), total);
        x.t.fake.advance(60000);
        EXPECT_EQ(x.shown.at(0), "Times Up!");
        // 98 is worth 100, at the lowest bonus of 100.
        EXPECT_EQ(x.g.Score, score) << total;
        if (score == 0)
            EXPECT_EQ(x.shown.at(1), "Sorry, 97 or more needed to win!");
        else
            EXPECT_EQ(x.f.ScoringLabelInfo.caption(), "Card Total Value (100) X Time Bonus (100)");
        EXPECT_EQ(x.g.RoundNumber, 2);
    }
}

TEST(Fivestack, NinetySevenGoingOnToNinetyEightMovesTheMarkedRowAndKeepsTakeScore) {
    Stack x;
    x.play({"10S", "11S", "12S", "13S", "10H", "11H", "12H", "13H", "10D", "7D", "1C"});
    for (int c = 0; c < 5; ++c) {
        x.hit(c);
        x.hit(c);
    }
    EXPECT_EQ(x.f.board.CardTotal, 97);
    EXPECT_EQ(x.f.board.CardTotalValue, 50);
    EXPECT_EQ(x.f.TotalLabel[1]->foreColor(), colors::Red);
    x.hit(0);  // an ace on 20 counts 1
    EXPECT_EQ(x.f.board.CardTotal, 98);
    EXPECT_EQ(x.f.board.CardTotalValue, 100);
    EXPECT_EQ(x.f.TotalLabel[1]->foreColor(), colors::Black);
    EXPECT_EQ(std::pair(x.f.TotalLabel[2]->foreColor(), x.f.ValueLabel[2]->fontBold()),
              std::pair(colors::Red, true));
    EXPECT_EQ(x.f.cmdGiveUp.caption(), "&Take score");
}

TEST(Fivestack, TheBonusRoundAtExactlyTheBonusScoreAndGameOverOnePointBelow) {
    for (const std::int32_t needed : {0, 1}) {
        Stack x;
        x.g.BonusRoundScore = needed;
        x.t.click("frmFivestack", "cmdPlay");
        // Three rounds given up at once: a score of 0.
        for (int round = 1; round <= 3; ++round) {
            ASSERT_EQ(x.g.RoundNumber, round);
            x.t.click("frmFivestack", "cmdGiveUp");
        }
        if (needed == 0) {
            EXPECT_EQ(x.g.RoundNumber, 4);
            EXPECT_TRUE(count(x.shown, "Prepare for Bonus Round!"));
            EXPECT_EQ(count(x.sounds(), "sound HighScore.wav"), 1);
            x.t.click("frmFivestack", "cmdGiveUp");
        }
        EXPECT_FALSE(x.g.GameInProgress);
        EXPECT_EQ(x.f.caption(), "Fivestack!: Game Over");
        EXPECT_EQ(x.f.StatusBar1.panelText(1), "Game over!  ");
        EXPECT_EQ(x.f.StatusBar1.panelText(2), "Click on Play to start a new game.  ");
        EXPECT_EQ(x.f.cmdPlay.caption(), "&Play");
        EXPECT_TRUE(x.f.frmSplash.visible());
        EXPECT_FALSE(x.f.frmScore.visible());
    }
}

TEST(Fivestack, EndGameAsksUnderAPauseAndRecordsNothing) {
    Stack x;
    x.play(kHundred);
    x.t.fake.advance(5000);
    const std::string table = x.t.file("Fivestack Hi Score Table 60.Txt");
    x.t.fake.queueAnswer(MsgResult::No);
    x.t.click("frmFivestack", "cmdPlay");
    EXPECT_EQ(x.t.fake.messages().back(),
              "You have a game in progress, are you sure you want to quit?");
    EXPECT_TRUE(x.g.GameInProgress);
    EXPECT_FALSE(x.f.isPaused());
    x.t.fake.queueAnswer(MsgResult::Yes);
    x.t.click("frmFivestack", "cmdPlay");
    EXPECT_FALSE(x.g.GameInProgress);
    EXPECT_EQ(x.f.caption(), "Fivestack!: Game Over");
    EXPECT_EQ(x.f.cmdPlay.caption(), "&Play");
    EXPECT_EQ(x.t.file("Fivestack Hi Score Table 60.Txt"), table);
    // Clicks after the game find nothing to do.
    x.t.fake.takeLog();
    x.f.cmdHit_Click(0);
    x.f.cmdPass_Click();
    x.f.cmdGiveUp_Click();
    EXPECT_TRUE(x.t.fake.takeLog().empty());
}

TEST(Fivestack, ThePauseHidesTheColumnsAndHoldsTheClock) {
    Stack x;
    x.play(kHundred);
    x.t.fake.advance(3000);
    x.t.click("frmFivestack", "cmdPause");
    EXPECT_EQ(x.f.lblMessage.caption(), "Game Paused");
    EXPECT_EQ(x.f.lblMessage.foreColor(), colors::Blue);
    EXPECT_FALSE(x.f.cmdHit[0]->visible());
    EXPECT_FALSE(x.f.cmdGiveUp.visible());
    x.f.cmdHit_Click(0);
    EXPECT_EQ(x.f.ColumnTotal[0]->caption(), "0");
    x.t.fake.advance(10000);
    x.t.click("frmFivestack", "cmdPause");
    EXPECT_EQ(x.g.ElapsedSeconds, 3);
    EXPECT_TRUE(x.f.cmdHit[0]->visible());
    EXPECT_FALSE(x.f.lblMessage.visible());
}

TEST(FivestackOptions, TheDialogChecksEveryFieldInOrderAndStoresAsItGoes) {
    TestProgram t;
    auto& f = static_cast<frmFivestack&>(t.openGame("frmFivestack"));
    auto& v = fivestackValues(t.prog);
    auto& g = t.prog.state;
    auto dialog = [&](const std::function<void(frmFivestackCustomScoring&)>& script) {
        t.fake.queueModal([&](Form& d) { script(dynamic_cast<frmFivestackCustomScoring&>(d)); });
        t.click("frmFivestack", "mnuCustom");
    };
    dialog([&](frmFivestackCustomScoring& d) {
        EXPECT_EQ(d.caption(), "Fivestack! User Options");
        EXPECT_EQ(d.txtWaitPeriod.text(), "2");
        // Maximum and minimum both 100: the maximum's message puts 101 in its box; a wait of
        // 40 is held at 30; the passes are refused above 10 and only this round's are held.
        d.txtTimeBonusMax.setText("100");
        d.txtTimeBonusMin.setText("100");
        d.txtWaitPeriod.setText("40");
        d.txtNumberOfCardsToPass.setText("12");
        for (int i = 0; i < 3; ++i)
            t.fake.queueAnswer(MsgResult::OK);
        t.click(d.name(), "cmdOK");
        EXPECT_EQ(t.fake.messages(),
                  (std::vector<std::string>{
                      "Sorry, you cannot pass more than 10 cards.",
                      "Sorry, a maximum of 30 seconds is allowed for the waiting period between "
                      "rounds.",
                      "Sorry, the maximum time bonus value must be greater than the minimum time "
                      "bonus value."}));
        EXPECT_EQ(d.txtTimeBonusMax.text(), "101");
        EXPECT_EQ(d.txtNumberOfCardsToPass.text(), "10");
        EXPECT_EQ(v.CardsToPass, 10);
        EXPECT_EQ(v.CardsToPassSetting, 1);
        EXPECT_EQ(v.WaitPeriod, 30000);
        EXPECT_EQ(v.TimeBonusMax, 300);  // refused: unchanged
        EXPECT_EQ(v.TimeBonusMin, 100);  // good against 101: stored
        // A wait of 2.5 seconds and 25 are both fine, though the caption says 10.
        d.txtWaitPeriod.setText("2.5");
        t.click(d.name(), "cmdOK");
    });
    EXPECT_EQ(v.WaitPeriod, 2500);
    EXPECT_EQ(v.TimeBonusMax, 101);
    EXPECT_EQ(v.CardsToPassSetting, 10);
    EXPECT_TRUE(g.CustomScoring);
    EXPECT_FLOAT_EQ(v.TimeBonusStep, 1.0f / 60);
    EXPECT_EQ(f.StatusBar1.panelText(1), "Make 200,000 for bonus round.  ");

    // Default then OK clears the mark; a changed wait alone leaves it clear.
    dialog([&](frmFivestackCustomScoring& d) {
        t.click(d.name(), "cmdDefault");
        d.txtWaitPeriod.setText("25");
        t.click(d.name(), "cmdOK");
    });
    EXPECT_FALSE(g.CustomScoring);
    EXPECT_EQ(v.WaitPeriod, 25000);
    EXPECT_FLOAT_EQ(v.TimeBonusStep, 200.0f / 60);
    // No passes: custom, and Pass stays disabled through the round.
    dialog([&](frmFivestackCustomScoring& d) {
        d.txtNumberOfCardsToPass.setText("0");
        t.click(d.name(), "cmdOK");
    });
    EXPECT_TRUE(g.CustomScoring);
    t.click("frmFivestack", "cmdPlay");
    EXPECT_FALSE(f.cmdPass.enabled());

    // The file keeps every value, in the game's order, and reads back byte for byte.
    t.fake.queueAnswer(MsgResult::Yes);
    t.click("frmFivestack", "cmdPlay");
    t.leaveGame("frmFivestack");
    const std::string written = t.file("Fivestack.Ini");
    EXPECT_EQ(written,
              "[Time]\r\n60\r\n\r\n[Play Sounds]\r\nTrue\r\n\r\n[Play Music]\r\nFalse\r\n\r\n"
              "[Deck]\r\n1\r\n\r\n[TimeBonusMax]\r\n300\r\n\r\n[TimeBonusMin]\r\n100\r\n\r\n"
              "[BonusScore]\r\n200000\r\n\r\n[WaitPeriod]\r\n25000\r\n\r\n[CountDownScore]\r\n"
              "True\r\n\r\n[Cards To Pass]\r\n0\r\n\r\n[State]\r\n0\r\n\r\n[Width]\r\n9540\r\n"
              "\r\n[Height]\r\n7305\r\n\r\n");
    t.openGame("frmFivestack");
    EXPECT_TRUE(g.CustomScoring);
    t.leaveGame("frmFivestack");
    EXPECT_EQ(t.file("Fivestack.Ini"), written);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

// A hand-edited file: a value past 16 bits, a negative wait or pass count keep their
// defaults and the file is kept aside; a minimum above the maximum stands as it is read,
// and the round it makes (a Time Bonus rising below nothing) still ends.
TEST(FivestackOptions, AHandEditedFileKeepsWhatItCanAndNothingHangs) {
    TestProgram t;
    const std::string path = t.prog.filePath("Fivestack.Ini");
    const std::string edited =
        "[TimeBonusMax]\r\n99999\r\n\r\n[TimeBonusMin]\r\n500\r\n\r\n[WaitPeriod]\r\n-5\r\n"
        "\r\n[Cards To Pass]\r\n-1\r\n\r\n[Deck]\r\nnine\r\n\r\n";
    ASSERT_TRUE(writeFileAtomic(path, edited));
    auto& f = static_cast<frmFivestack&>(t.openGame("frmFivestack"));
    const auto& v = fivestackValues(t.prog);
    EXPECT_EQ(v.TimeBonusMax, 300);
    EXPECT_EQ(v.TimeBonusMin, 500);
    EXPECT_EQ(v.WaitPeriod, 2000);
    EXPECT_EQ(v.CardsToPassSetting, 1);
    EXPECT_EQ(t.prog.state.DeckBack, 4);  // anything but 1 to 3 is the Palm Tree
    EXPECT_TRUE(t.prog.state.CustomScoring);
    // (300 - 500) / 60: the bonus climbs from 300 to 500 over the round.
    EXPECT_FLOAT_EQ(v.TimeBonusStep, -200.0f / 60);
    t.click("frmFivestack", "cmdPlay");
    t.fake.advance(30000);
    EXPECT_EQ(f.lblTimeBonus.caption(), "400");
    t.fake.advance(31000);
    EXPECT_EQ(t.prog.state.RoundNumber, 2);
    t.fake.queueAnswer(MsgResult::Yes);
    t.click("frmFivestack", "cmdPlay");
    t.leaveGame("frmFivestack");
    EXPECT_EQ(t.file("Fivestack.Ini.bad"), edited);
    EXPECT_NE(t.file("Fivestack.Ini").find("[TimeBonusMin]\r\n500\r\n"), std::string::npos);
    EXPECT_NE(t.file("Fivestack.Ini").find("[Deck]\r\n4\r\n"), std::string::npos);
}

}  // namespace corvanna
