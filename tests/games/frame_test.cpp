// The shared game frame, played through on the virtual clock with an empty board.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "common/FileStore.h"
#include "forms/Input.h"
#include "games/GameRegistry.h"
#include "games/tierfall/TierfallValues.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

std::string panel(GameFrame& f, int n) {
    return f.StatusBar1.panelText(n);
}

// Tierfall in its standard scoring, where the clock runs from the deal as in most games.
GameFrame& openStandardTierfall(TestProgram& t) {
    GameFrame& f = t.openGame("frmTierfall");
    tierfallValues(t.prog).EnhancedScoring = false;
    return f;
}

}  // namespace

TEST(Frame, EveryGameOpensOnItsSplashAndExitsBackToTheSelector) {
    TestProgram t;
    for (const GameInfo& game : allGames()) {
        GameFrame& f = t.openGame(game.formName);
        SCOPED_TRACE(game.formName);
        // Tierfall names its default scoring mode in its caption.
        EXPECT_EQ(f.caption(),
                  game.title + (game.formName == "frmTierfall" ? " - Enhanced Scoring" : ""));
        EXPECT_TRUE(f.visible());
        EXPECT_FALSE(t.select.visible());
        EXPECT_FALSE(f.cmdPause.enabled());
        EXPECT_EQ(panel(f, 1), "Welcome to " + game.title + game.welcomeSuffix);
        EXPECT_EQ(panel(f, 3), "9:00 AM");
        EXPECT_TRUE(f.frmSplash.visible());
        EXPECT_EQ(f.lblCompanyProduct.caption(), "Velmora Presents");
        EXPECT_EQ(f.lblVersion.caption(), "Version 7.0");
        EXPECT_TRUE(t.fake.isRunning(f.Timer4));
        EXPECT_FALSE(t.fake.isRunning(f.Timer1));

        // The splash deals its pictures out on Timer4.
        t.fake.advance(game.splashMs * 3);
        const std::string shown = f.imgSplashImage[0]->picture();
        if (game.splashPicture.empty())
            EXPECT_TRUE(t.prog.pictures.slotOf(shown) >= 14 && t.prog.pictures.slotOf(shown) <= 65)
                << shown;
        else
            EXPECT_EQ(shown, "TFAL");

        // Back to the selector: a fresh form has been open under a minute.
        t.leaveGame(game.formName);
        EXPECT_EQ(t.fake.messages().back(), "Giving up so soon?");
        EXPECT_EQ(t.prog.findForm(game.formName), nullptr);
        EXPECT_TRUE(t.select.visible());
    }
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(Frame, RoundsRunOutToGameOverWithTheirMessages) {
    TestProgram t;
    GameFrame& f = t.openGame("frmSpirefold");
    auto& g = t.prog.state;
    t.click("frmSpirefold", "mnu30");
    t.click("frmSpirefold", "cmdPlay");
    EXPECT_TRUE(g.GameInProgress);
    EXPECT_FALSE(f.frmSplash.visible());
    EXPECT_FALSE(t.fake.isRunning(f.Timer4));
    EXPECT_EQ(f.cmdPlay.caption(), "&End Game");
    EXPECT_EQ(f.cmdPlay.toolTipText(), "Ends the current game");
    EXPECT_TRUE(f.cmdPause.enabled());
    EXPECT_FALSE(f.mnuTime.enabled());
    EXPECT_EQ(f.lblTime.caption(), "Time: 30");
    EXPECT_EQ(f.lblCurrentRound->caption(), "1");
    EXPECT_EQ(panel(f, 1), "Make 40,000 for Bonus Round!   ");
    EXPECT_EQ(panel(f, 2), "Create runs by clicking on exposed cards!   ");

    // 30 seconds: quarter 8 (7.5 to even), half 15.
    t.fake.advance(14000);
    EXPECT_EQ(f.lblTime.caption(), "Time: 16");
    EXPECT_EQ(panel(f, 2), "Create runs by clicking on exposed cards!   ");
    t.fake.advance(1000);
    EXPECT_EQ(panel(f, 2), "Times running out!");
    t.fake.advance(7000);
    EXPECT_EQ(f.lblTime.caption(), "Time: 8");
    EXPECT_EQ(panel(f, 2), "Times running out!");
    t.fake.advance(1000);
    EXPECT_EQ(panel(f, 2), "Better Hurry!");

    t.fake.advance(7000);  // the 30th second: time is up, and the round two flash follows
    EXPECT_EQ(f.lblCurrentRound->caption(), "2");
    EXPECT_EQ(g.ElapsedSeconds, 0);
    EXPECT_FALSE(f.lblMessage.visible());
    EXPECT_TRUE(t.fake.isRunning(f.Timer1));
    // Ten flashes at the time out and eleven before the round, 250 ms each.
    EXPECT_EQ(t.fake.elapsedMs(), 30000 + 21 * 250);
    EXPECT_EQ(panel(f, 2), "Create runs by clicking on exposed cards!   ");

    // Round two runs out below the bonus score: game over. The splash and Play are the game
    // over test's.
    t.fake.advance(30000);
    EXPECT_EQ(f.lblMessage.caption(), "Game Over");
    EXPECT_TRUE(f.lblMessage.visible());
    EXPECT_TRUE(t.fake.isRunning(f.Timer4));
    EXPECT_FALSE(f.cmdPause.enabled());
    EXPECT_FALSE(f.cmdTakeScore->enabled());
    EXPECT_TRUE(f.mnuTime.enabled());
    EXPECT_EQ(panel(f, 2), "Game Over");
    EXPECT_FALSE(t.fake.isRunning(f.Timer1));

    // A new game starts clean from there.
    t.click("frmSpirefold", "cmdPlay");
    EXPECT_EQ(g.RoundNumber, 1);
    EXPECT_FALSE(f.lblMessage.visible());
    EXPECT_TRUE(f.lblTime.visible());
}

TEST(Frame, PauseResumeAndDialogsKeepTheRoundClockStill) {
    TestProgram t;
    GameFrame& f = openStandardTierfall(t);
    auto& g = t.prog.state;
    // No game on: About opens with no pause, and the game form waits behind it.
    t.fake.queueModal([&](Form& about) {
        EXPECT_EQ(about.caption(), "About Tierfall!");
        EXPECT_FALSE(f.isPaused());
        EXPECT_FALSE(userClick(f.cmdPlay));
        t.click("frmAbout", "cmdCoolDude");
    });
    t.click("frmTierfall", "mnuAbout");

    t.click("frmTierfall", "cmdPlay");
    t.fake.advance(5000);
    EXPECT_EQ(g.ElapsedSeconds, 5);
    // A dialog during a round pauses it and resumes it after.
    t.fake.queueModal([&](Form&) {
        EXPECT_TRUE(f.isPaused());
        t.fake.advance(10000);
        t.click("frmAbout", "cmdCoolDude");
    });
    t.click("frmTierfall", "mnuAbout");
    EXPECT_EQ(g.ElapsedSeconds, 5);
    EXPECT_FALSE(f.isPaused());
    EXPECT_TRUE(t.fake.isRunning(f.Timer1));
    EXPECT_EQ(f.cmdPause.caption(), "Pau&se");

    // Paused by hand, a dialog leaves it paused.
    t.click("frmTierfall", "cmdPause");
    EXPECT_EQ(f.cmdPause.caption(), "&Resume");
    EXPECT_TRUE(f.lblMessage.visible());
    EXPECT_FALSE(f.cmdPlay.enabled());
    EXPECT_FALSE(f.cmdExit.enabled());
    EXPECT_FALSE(f.cmdTakeScore->enabled());
    t.fake.queueModal([&](Form&) { t.click("frmAbout", "cmdCoolDude"); });
    t.click("frmTierfall", "mnuAbout");
    EXPECT_TRUE(f.isPaused());
    EXPECT_FALSE(t.fake.isRunning(f.Timer1));
    t.fake.advance(20000);
    EXPECT_EQ(g.ElapsedSeconds, 5);

    // Minimised while paused and restored: still paused.
    f.setWindowState(WindowState::Minimized);
    f.setWindowState(WindowState::Normal);
    EXPECT_TRUE(f.isPaused());
    EXPECT_FALSE(t.fake.isRunning(f.Timer1));
    t.click("frmTierfall", "mnuPause");
    EXPECT_FALSE(f.lblMessage.visible());
    EXPECT_EQ(f.lblMessage.caption(), "");
    EXPECT_TRUE(f.cmdPlay.enabled());
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(Frame, NoRoundClockOrTuneRunsWhileMinimisedWhateverStartsOrResumesTheRound) {
    for (const GameInfo& game : allGames()) {
        SCOPED_TRACE(game.formName);
        TestProgram t;
        GameFrame& f = t.openGame(game.formName);
        auto& g = t.prog.state;
        // Tierfall's clock runs from the deal, as others do.
        tierfallValues(t.prog).EnhancedScoring = false;
        const int seconds = game.timeLimits.front().seconds;
        t.click(game.formName, "mnu" + std::to_string(seconds));
        t.click(game.formName, "mnuMusic");
        auto tuneStarts = [&] {
            const auto log = t.fake.takeLog();
            return count(log, "music start Orlund.MID");
        };
        auto clockStandsStill = [&] {
            const auto before = g.ElapsedSeconds;
            t.fake.advance(5000);
            return !t.fake.isRunning(f.Timer1) && g.ElapsedSeconds == before && tuneStarts() == 0;
        };
        t.click(game.formName, "cmdPlay");
        ASSERT_EQ(tuneStarts(), 1);

        // Minimised while "Times Up!" flashes: the minimise is held, handled at the end of
        // the round, and the next round is dealt into the minimised window.
        f.lblMessage.subscribe([&](Control& c, Prop p) {
            if (p == Prop::Caption && c.caption() == "Times Up!")
                t.fake.post([&] { f.setWindowState(WindowState::Minimized); });
        });
        t.fake.advance(seconds * 1000 + 21 * 250 + 2 * 2000);  // the longest end of a round
        ASSERT_EQ(g.RoundNumber, 2);
        ASSERT_TRUE(g.GameInProgress);
        EXPECT_TRUE(clockStandsStill());

        // The close box answered No, a dialog, Pause and Resume: each one resumes, none runs.
        t.fake.queueAnswer(MsgResult::No);
        t.fake.onCloseRequest(f);
        EXPECT_TRUE(clockStandsStill());
        t.fake.queueModal([&](Form& about) { t.click(about.name(), "cmdCoolDude"); });
        f.mnuAbout.Click();
        EXPECT_TRUE(clockStandsStill());
        f.cmdPause.Click();
        f.cmdPause.Click();
        EXPECT_TRUE(clockStandsStill());

        // Restored: the round goes on from where it stood, with its tune.
        f.setWindowState(WindowState::Normal);
        EXPECT_EQ(tuneStarts(), 1);
        const auto before = g.ElapsedSeconds;
        t.fake.advance(1000);
        EXPECT_EQ(g.ElapsedSeconds, before + 1);
        EXPECT_TRUE(t.fake.takeErrors().empty());
    }
}

TEST(Frame, MusicFollowsThePauseAndTheMenu) {
    TestProgram t;
    t.openGame("frmWildslot");
    t.click("frmWildslot", "mnuMusic");
    t.click("frmWildslot", "cmdPlay");
    t.click("frmWildslot", "cmdPause");
    EXPECT_TRUE(logHas(t.fake.takeLog(), "music stop"));
    t.click("frmWildslot", "mnuMusic");  // off during a pause
    t.click("frmWildslot", "mnuMusic");  // on again: nothing starts until the resume
    EXPECT_FALSE(logHas(t.fake.takeLog(), "music start Orlund.MID"));
    t.click("frmWildslot", "cmdPause");
    EXPECT_TRUE(logHas(t.fake.takeLog(), "music start Orlund.MID"));
    t.click("frmWildslot", "mnuMusic");
    EXPECT_TRUE(logHas(t.fake.takeLog(), "music stop"));
}

TEST(Frame, SoundsAndTheTuneThroughAWholeGame) {
    TestProgram t;
    GameFrame& f = t.openGame("frmSpirefold");
    auto& g = t.prog.state;
    t.click("frmSpirefold", "mnu30");
    t.click("frmSpirefold", "mnuMusic");
    t.fake.takeLog();
    auto soundsAndMusic = [&] { return only(t.fake.takeLog(), {"sound ", "music "}); };
    t.click("frmSpirefold", "cmdPlay");
    t.fake.advance(10000);
    // Minimised: the tune stops; restored: it starts again from the top.
    f.setWindowState(WindowState::Minimized);
    f.setWindowState(WindowState::Normal);
    t.fake.advance(20000 + 21 * 250);  // round one runs out
    EXPECT_EQ(g.RoundNumber, 2);
    g.Score = 40000;                   // enough for the bonus round
    t.fake.advance(30000 + 21 * 250);  // round two runs out: the bonus round starts
    EXPECT_EQ(f.lblCurrentRound->caption(), "Bonus");
    // The bonus round runs out: game over, and 40,000 beats the table's seeds of 30,000:
    // the name is asked and the table shows the new row flashing. 103 s have gone since
    // 9:00:00 (35.25 + 35.25 + 32.5), so the entry is dated 09:01.
    t.fake.queueModal([&](Form& name) {
        static_cast<TextBox&>(*name.find("txtPlayerName")).setText("Rosa");
        t.click(name.name(), "cmdOK");
    });
    t.fake.queueModal([&](Form& table) { t.click(table.name(), "cmdDone"); });
    t.fake.advance(30000 + 10 * 250 + 2000);
    EXPECT_FALSE(g.GameInProgress);
    EXPECT_EQ(f.lblHighScore.caption(), "Current High Score: 40,000");
    const std::string table = t.file("Spirefold Hi Score Table 30.Txt");
    EXPECT_EQ(table.substr(0, table.find('\n') + 1), "Rosa, 40000, Nov 23 2026 09:01 am\r\n");
    EXPECT_TRUE(t.fake.takeErrors().empty());
    EXPECT_EQ(
        soundsAndMusic(),
        (std::vector<std::string>{"music start Orlund.MID", "music stop", "music start Orlund.MID",
                                  "music stop", "music start Orlund.MID", "music stop",
                                  "sound Applause.wav", "music start Orlund.MID", "music stop",
                                  "sound HighScore.wav", "sound Applause.wav"}));

    // With sounds off no wave is asked for, and the tune still follows the rounds.
    t.click("frmSpirefold", "mnuSounds");
    t.click("frmSpirefold", "cmdPlay");
    t.fake.advance(30000 + 21 * 250);
    g.Score = 40000;
    t.fake.advance(30000 + 21 * 250);
    const auto second = soundsAndMusic();
    EXPECT_EQ(count(second, "sound Applause.wav"), 0);
    EXPECT_EQ(count(second, "music start Orlund.MID"), 3);
}

TEST(Frame, ClicksHeldDuringTheEndOfARoundDoNotPauseOrEndTheNextOne) {
    TestProgram t;
    GameFrame& f = openStandardTierfall(t);
    auto& g = t.prog.state;
    t.click("frmTierfall", "mnu30");
    t.click("frmTierfall", "cmdPlay");
    // Pause, End Game, Exit and the close box, clicked while "Times Up!" flashes: held
    // until the next round's DoEvents.
    f.lblMessage.subscribe([&](Control& c, Prop p) {
        if (p != Prop::Caption || c.caption() != "Times Up!")
            return;
        t.fake.post([&] { userClick(f.cmdPause); });
        t.fake.post([&] { userClick(f.cmdPlay); });
        t.fake.post([&] { userClick(f.cmdExit); });
        t.fake.post([&] { t.fake.onCloseRequest(f); });
    });
    t.fake.advance(30000 + 21 * 250);
    EXPECT_EQ(g.RoundNumber, 2);
    EXPECT_FALSE(f.isPaused());
    EXPECT_EQ(f.cmdPause.caption(), "Pau&se");
    EXPECT_TRUE(f.cmdPlay.enabled());
    EXPECT_TRUE(t.fake.isRunning(f.Timer1));
    EXPECT_TRUE(t.fake.messages().empty());
    EXPECT_NE(t.prog.findForm("frmTierfall"), nullptr);
    t.fake.advance(1000);
    EXPECT_EQ(g.ElapsedSeconds, 1);
}

TEST(Frame, TheCloseBoxAndPlayHeldThroughTheGameOverWaitAreTakenAfterIt) {
    for (const char* formName : {"frmSpirefold", "frmTierfall"}) {
        SCOPED_TRACE(formName);
        TestProgram t;
        GameFrame& f = t.openGame(formName);
        auto& g = t.prog.state;
        g.BonusRoundScore = 999999;
        f.lblMessage.subscribe([&](Control& c, Prop p) {
            if (p != Prop::Caption || c.caption() != "Game Over")
                return;
            t.fake.post([&] { t.fake.onCloseRequest(f); });
            t.fake.post([&] { userClick(f.cmdPlay); });
        });
        t.click(formName, "cmdPlay");
        t.click(formName, "cmdTakeScore");
        t.fake.queueAnswer(MsgResult::No);  // the close box's question: stay
        t.click(formName, "cmdTakeScore");  // round two: game over
        EXPECT_EQ(t.fake.messages(), std::vector<std::string>{"Giving up so soon?"});
        EXPECT_NE(t.prog.findForm(formName), nullptr);
        EXPECT_TRUE(g.GameInProgress);  // and Play started the next game
        EXPECT_EQ(g.RoundNumber, 1);
        EXPECT_FALSE(f.frmSplash.visible());
        EXPECT_TRUE(t.fake.takeErrors().empty());
    }
}

TEST(Frame, GamesThatDoNotPauseLeaveTheRoundRunningUnderTheQuestion) {
    TestProgram t;
    GameFrame& f = t.openGame("frmSpirefold");
    t.click("frmSpirefold", "cmdPlay");
    t.fake.queueAnswer(MsgResult::No);
    t.click("frmSpirefold", "cmdExit");
    EXPECT_FALSE(f.isPaused());
    EXPECT_TRUE(t.fake.isRunning(f.Timer1));
    t.fake.queueAnswer(MsgResult::Yes);
    t.click("frmSpirefold", "cmdExit");
    EXPECT_EQ(t.prog.findForm("frmSpirefold"), nullptr);
    EXPECT_FALSE(t.prog.state.GameInProgress);
}

TEST(Frame, BackDesignMenusFollowEachGamesNumbering) {
    TestProgram t;
    struct Case {
        const char* form;
        const char* menu;
        int deckBack;
        const char* back;
    };
    for (const Case& c : {Case{"frmSpirefold", "mnuNight", 3, "night-back"},
                          Case{"frmFivestack", "mnuHot", 1, "hot-back"},
                          Case{"frmHitspree", "mnuPalm", 4, "palm-back"},
                          Case{"frmWildslot", "mnuNight", 2, "night-back"},
                          Case{"frmWildslot", "mnuMagic", 3, "magic-back"}}) {
        SCOPED_TRACE(std::string(c.form) + " " + c.menu);
        t.openGame(c.form);
        t.click(c.form, c.menu);
        EXPECT_EQ(t.prog.state.DeckBack, c.deckBack);
        EXPECT_EQ(t.prog.pictures.picture("BACK"), c.back);
        t.leaveGame(c.form);
    }
    // Hitspree opens on its own default, Night Castle, whatever the last game chose.
    TestProgram fresh;
    fresh.prog.pictures.selectDesign(2);
    fresh.openGame("frmHitspree");
    EXPECT_EQ(fresh.prog.state.DeckBack, 3);
    EXPECT_EQ(fresh.prog.pictures.picture("BACK"), "night-back");
    // And a game reopened in the same folder comes back with the design it was left with.
    t.openGame("frmHitspree");
    EXPECT_EQ(t.prog.state.DeckBack, 4);
}

TEST(Frame, NormalWindowIsHeldAtItsSmallestSize) {
    TestProgram t;
    GameFrame& f = t.openGame("frmHitspree");
    f.setSize(5000, 4000);
    EXPECT_EQ(f.width(), 9060);
    EXPECT_EQ(f.height(), 7155);
    f.setSize(12000, 9000);
    EXPECT_EQ(f.width(), 12000);
    // The side panel follows the right edge.
    EXPECT_GT(f.cmdPlay.left() + f.cmdPlay.width(), 12000 - 600);
    EXPECT_LT(f.cmdPlay.left() + f.cmdPlay.width(), f.scaleWidth());
    f.setWindowState(WindowState::Maximized);
    f.setSize(5000, 4000);
    EXPECT_EQ(f.width(), 5000);
}

// A game whose deal fails or throws, at the first round or a later one: the player is
// told, the form goes, and no round clock, tune or half-shown form is left behind.
TEST(Frame, ADealThatFailsOrThrowsClosesTheFormWithNothingRunning) {
    struct BrokenDeal : GameFrame {
        BrokenDeal(Program& p, const GameInfo& i, bool throws, int failingRound)
            : GameFrame(p, i), throws_(throws), round_(failingRound) {}
        bool DealRound() override {
            if (program().state.RoundNumber < round_)
                return true;
            if (throws_)
                throw std::runtime_error("no cards");
            return false;
        }
        bool throws_;
        int round_;
    };
    for (bool throws : {false, true}) {
        for (int round : {1, 2}) {
            SCOPED_TRACE(std::to_string(throws) + " at round " + std::to_string(round));
            TestProgram t;
            t.prog.state.AppTitle = "Spirefold!";
            auto& f = t.prog.load<BrokenDeal>(*findGame("frmSpirefold"), throws, round);
            f.Form_Load();
            t.prog.state.MusicOn = true;
            f.cmdPlay.Click();
            if (round == 2)
                f.cmdTakeScore->Click();
            EXPECT_EQ(t.fake.messages().back(), "Unknown Error! Unable to play Spirefold!");
            EXPECT_EQ(t.prog.findForm("frmSpirefold"), nullptr);
            EXPECT_FALSE(t.fake.isRunning(f.Timer1));
            EXPECT_FALSE(t.prog.state.GameInProgress);
            EXPECT_FALSE(t.prog.state.TakingScore);
            const auto log = t.fake.takeLog();
            const auto start = std::find(log.rbegin(), log.rend(), "music start Orlund.MID");
            EXPECT_LT(std::find(log.rbegin(), log.rend(), "music stop"), start);
        }
    }
}

}  // namespace corvanna
