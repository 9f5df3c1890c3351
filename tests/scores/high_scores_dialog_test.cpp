// The Hall of Fame dialog and the View and Clear commands of the game forms, and sending a
// listing from it: the form filled from the table and the player's details, the live sample,
// the score box, each game's two checks, the mail handed over and what is kept of the details.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/frame/GameFrame.h"
#include "games/GameRegistry.h"
#include "games/tierfall/TierfallValues.h"
#include "scores/HighScores.h"
#include "scores/ScoreMenus.h"
#include "scores/frmComposeHighScore.h"
#include "scores/frmHighScores.h"
#include "testkit/TestProgram.h"

namespace corvanna {

using ::testing::ElementsAre;

namespace {

constexpr const char* kSeedDate = "Jan 01 2000 12:00 am";
constexpr const char* kAsteriskNote = "* denotes customized scoring was used";

std::string row(const std::string& name, long long score, const std::string& date) {
    return name + ", " + std::to_string(score) + ", " + date + "\r\n";
}

std::string seedTable(long long score) {
    std::string text;
    for (int i = 0; i < 10; ++i)
        text += row("Velmora", score, kSeedDate);
    return text;
}

// A program with the high score commands in place, as the shell wires them.
struct ScoresProgram : TestProgram {
    ScoresProgram() { InstallHighScoreDialogs(prog); }

    // The game opens with its table in place and its top score on the board, as a
    // game's load leaves them.
    GameFrame& openGame(const std::string& formName) {
        GameFrame& f = TestProgram::openGame(formName);
        const HighScoreChoice choice = CurrentHighScoreTable(prog);
        EXPECT_TRUE(ShowHighScoreLabel(prog, choice.tableName, f, choice.game->seedScore));
        return f;
    }

    void writeTable(const std::string& plainName, const std::string& text) {
        ASSERT_TRUE(writeFileAtomic(prog.filePath(plainName), text));
    }
    // Opens the game's View command and runs script while the dialog is up.
    void view(const GameInfo& game, std::function<void(frmHighScores&)> script) {
        bool ran = false;
        fake.queueModal([&](Form& f) {
            ran = true;
            script(dynamic_cast<frmHighScores&>(f));
            if (prog.findForm("frmHighScores"))
                click("frmHighScores", "cmdDone");
        });
        click(game.formName, game.viewMenu);
        EXPECT_TRUE(ran) << "no High Scores dialog for " << game.formName;
    }
};

const char* const kTooHigh =
    "Sorry, but the score you have entered is greater than the highest\nscore attained so far "
    "in this game. Please enter a valid score.";

// A game on show whose current table has this top row, at this time limit.
struct Submission {
    TestProgram t;
    GameFrame* game = nullptr;

    explicit Submission(const std::string& formName = "frmTierfall",
                        const std::string& dataDir = "")
        : t(1, dataDir) {
        open(formName);
    }

    void open(const std::string& formName) {
        game = &t.openGame(formName);
        t.prog.state.RoundSeconds = game->info().submitSeconds;
    }
    void table(const std::string& topName, long long topScore) {
        std::string text = topName + ", " + std::to_string(topScore) + ", Mar 04 2026 09:15 pm\r\n";
        for (int i = 1; i < 10; ++i)
            text += "Velmora, 1000, Jan 01 2000 12:00 am\r\n";
        const HighScoreChoice choice = CurrentHighScoreTable(t.prog);
        ASSERT_TRUE(writeFileAtomic(HighScoreFilePath(t.prog, choice.tableName), text));
    }
    // The Hall of Fame opened, Submit a High Score clicked, the script run on the form.
    void compose(const std::function<void(frmComposeHighScore&)>& script) {
        t.fake.queueModal([&](Form&) {
            t.fake.queueModal([&](Form& f) { script(dynamic_cast<frmComposeHighScore&>(f)); });
            t.click("frmHighScores", "cmdSendScore");
            t.click("frmHighScores", "cmdDone");
        });
        ShowHighScores(t.prog);
    }
    void click(const std::string& control) { t.click("frmComposeHighScore", control); }
    bool open() const { return t.prog.findForm("frmComposeHighScore") != nullptr; }
};

}  // namespace

TEST(HighScoresDialog, AFreshTableShowsTenVelmorasWithoutDatesAndNoFanfare) {
    ScoresProgram t;
    const GameInfo& five = *findGame("frmFivestack");
    t.openGame(five.formName);
    t.fake.takeLog();
    t.view(five, [&](frmHighScores& d) {
        EXPECT_EQ(d.caption(), "Fivestack! Hall of Fame (60 secs)");
        for (int k = 0; k < 10; ++k) {
            SCOPED_TRACE(k);
            EXPECT_EQ(d.ScoreList[2 * k]->caption(), "Velmora");
            EXPECT_EQ(d.ScoreList[2 * k + 1]->caption(), "50,000");
            EXPECT_FALSE(d.DateList[2 * k + 1]->visible());
            EXPECT_EQ(d.ScoreList[2 * k]->foreColor(), colors::Blue);
            EXPECT_EQ(d.ScoreList[2 * k + 1]->foreColor(), colors::Red);
            EXPECT_EQ(d.DateList[2 * k + 1]->foreColor(), colors::Black);
        }
        EXPECT_EQ(d.lblHiScoreInfo.caption(), std::string("\n") + kAsteriskNote);
        EXPECT_EQ(d.lblHiScoreInfo.alignment(), Align::Center);
        EXPECT_EQ(d.cmdDone.caption(), "&Done, let's go play some more!");
        EXPECT_EQ(d.cmdDone.toolTipText(), "Closes this dialog");
        EXPECT_EQ(d.cmdClear.caption(), "&Clear Current High Scores");
        EXPECT_EQ(d.cmdClear.toolTipText(), "Clears all high scores for the current game");
        EXPECT_EQ(d.cmdHighScores.caption(), "&Visit the High Score Website");
        EXPECT_EQ(d.cmdHighScores.toolTipText(),
                  "Launches your Internet Browset and connects to the Corvanna High Score "
                  "Website");
        EXPECT_EQ(d.cmdSendScore.caption(), "&Submit a High Score to the Website");
        EXPECT_EQ(d.cmdSendScore.toolTipText(),
                  "Sends a high score listing via email to Orlund for pulishing on the website.");
        // Centred on the 1280 by 1024 pixel screen.
        EXPECT_EQ(d.left(), (1280 * 15 - d.width()) / 2);
        EXPECT_EQ(d.top(), (1024 * 15 - d.height()) / 2);
        // Opened by the menu: nothing flashes.
        EXPECT_FALSE(t.fake.isRunning(d.Timer1));
        t.fake.advance(2000);
        EXPECT_TRUE(d.ScoreList[0]->visible());
        // The web page opens over the dialog; what a missing browser says is the selector's.
        t.click("frmHighScores", "cmdHighScores");
        EXPECT_TRUE(d.visible());
    });
    // Viewing leaves the table as it was.
    EXPECT_EQ(t.file("Fivestack Hi Score Table 60.Txt"), seedTable(50000));
    const auto log = t.fake.takeLog();
    EXPECT_FALSE(logHas(log, "sound Applause.wav"));
    EXPECT_TRUE(logHas(log, "url https://www.example.org/orlund/High%20Scores.htm"));
    EXPECT_EQ(t.prog.findForm("frmHighScores"), nullptr);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoresDialog, ShowsTheTableOfTheTimeLimitWithScoresGroupedAndRealDates) {
    ScoresProgram t;
    const GameInfo& tier = *findGame("frmTierfall");
    t.openGame(tier.formName);
    tierfallValues(t.prog).EnhancedScoring = false;  // the standard mode's table
    t.click(tier.formName, "mnu30");
    std::string table = row("Ann*", 1234567, "Nov 05 2001 09:07 pm") +
                        row("Bo", 98765, "Feb 29 2024 12:00 am") +
                        row("Cy", 1000, "Jul 04 2026 01:30 pm");
    for (int i = 3; i < 10; ++i)
        table += row("Velmora", 999, kSeedDate);
    t.writeTable("Tierfall Hi Score Table 11_30.Txt", table);
    // Another time limit's table is not the one shown.
    t.writeTable("Tierfall Hi Score Table 11_90.Txt", seedTable(77777));

    t.view(tier, [&](frmHighScores& d) {
        EXPECT_EQ(d.caption(), "Tierfall! Hall of Fame (30 secs)");
        EXPECT_EQ(d.lblHiScoreInfo.caption(),
                  std::string("High Scores for a card goal of 11\n") + kAsteriskNote);
        EXPECT_EQ(d.ScoreList[0]->caption(), "Ann*");
        EXPECT_EQ(d.ScoreList[1]->caption(), "1,234,567");
        EXPECT_EQ(d.DateList[1]->caption(), "Nov 05 2001 09:07 pm");
        EXPECT_TRUE(d.DateList[1]->visible());
        EXPECT_EQ(d.ScoreList[3]->caption(), "98,765");
        EXPECT_EQ(d.DateList[3]->caption(), "Feb 29 2024 12:00 am");
        EXPECT_EQ(d.ScoreList[5]->caption(), "1,000");
        EXPECT_TRUE(d.DateList[5]->visible());
        EXPECT_EQ(d.ScoreList[7]->caption(), "999");
        EXPECT_FALSE(d.DateList[7]->visible());
        EXPECT_EQ(d.ScoreList[19]->caption(), "999");
    });
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoresDialog, ANewEntryFlashesWithApplauseWhenSoundsAreOnUntilDone) {
    ScoresProgram t;
    t.openGame("frmFivestack");
    auto& g = t.prog.state;
    std::string table = row("Ann", 900000, "Nov 05 2001 09:07 pm") +
                        row("Bo", 500000, "Nov 06 2001 10:00 am") +
                        row("Cy", 100000, "Nov 07 2001 11:00 am");
    for (int i = 3; i < 10; ++i)
        table += row("Velmora", 50000, kSeedDate);
    t.writeTable("Fivestack Hi Score Table 60.Txt", table);
    g.Score = 300000;
    t.fake.queueModal([&](Form& name) {
        static_cast<TextBox&>(*name.find("txtPlayerName")).setText("Dee");
        t.click("frmHiScoreName", "cmdOK");
    });
    bool shown = false;
    t.fake.queueModal([&](Form& f) {
        shown = true;
        auto& d = dynamic_cast<frmHighScores&>(f);
        EXPECT_EQ(g.NewHighScoreRow, 2);
        EXPECT_EQ(d.ScoreList[4]->caption(), "Dee");
        EXPECT_EQ(d.ScoreList[5]->caption(), "300,000");
        EXPECT_EQ(d.DateList[5]->caption(), "Nov 23 2026 09:00 am");
        Control* rowLabels[3] = {d.ScoreList[4], d.ScoreList[5], d.DateList[5]};
        for (Control* c : rowLabels)
            EXPECT_EQ(c->foreColor(), colors::White);
        // The rows round it keep their colours.
        EXPECT_EQ(d.ScoreList[2]->foreColor(), colors::Blue);
        EXPECT_EQ(d.ScoreList[7]->foreColor(), colors::Red);
        EXPECT_TRUE(t.fake.isRunning(d.Timer1));
        // Half a second hidden, half a second shown.
        t.fake.advance(499);
        for (Control* c : rowLabels)
            EXPECT_TRUE(c->visible());
        t.fake.advance(1);
        for (Control* c : rowLabels)
            EXPECT_FALSE(c->visible());
        EXPECT_TRUE(d.ScoreList[2]->visible());
        EXPECT_TRUE(d.DateList[3]->visible());
        t.fake.advance(500);
        for (Control* c : rowLabels)
            EXPECT_TRUE(c->visible());
        t.fake.advance(500);
        EXPECT_FALSE(d.ScoreList[4]->visible());
        t.click("frmHighScores", "cmdDone");
    });
    t.fake.takeLog();
    ASSERT_TRUE(UpdateHighScoreTable(t.prog, "Fivestack Hi Score Table "));
    EXPECT_TRUE(shown);
    EXPECT_EQ(g.NewHighScoreRow, -1);
    EXPECT_EQ(only(t.fake.takeLog(), {"sound", "show", "unload"}),
              (std::vector<std::string>{"sound HighScore.wav", "show frmHiScoreName modal",
                                        "unload frmHiScoreName", "sound Applause.wav",
                                        "show frmHighScores modal", "unload frmHighScores"}));

    // Sounds off: no applause, and the close box, unlike Done, leaves the new row set.
    t.click("frmFivestack", "mnuSounds");
    ASSERT_FALSE(g.SoundsOn);
    g.NewHighScoreRow = 9;
    t.fake.queueModal([&](Form& f) {
        auto& d = dynamic_cast<frmHighScores&>(f);
        EXPECT_TRUE(t.fake.isRunning(d.Timer1));
        EXPECT_EQ(d.ScoreList[18]->foreColor(), colors::White);
        t.fake.advance(500);
        EXPECT_FALSE(d.ScoreList[18]->visible());
        t.prog.platform.onCloseRequest(f);
    });
    ShowHighScores(t.prog);
    EXPECT_EQ(t.prog.findForm("frmHighScores"), nullptr);
    EXPECT_FALSE(logHas(t.fake.takeLog(), "sound Applause.wav"));
    EXPECT_EQ(g.NewHighScoreRow, 9);  // the next ranking does the rest
    t.fake.advance(5000);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoresDialog, ClearAsksAndOnYesSeedsTheDialogsOwnScore) {
    ScoresProgram t;
    GameFrame& duo = t.openGame("frmDuomatch");
    auto& g = t.prog.state;
    const std::string file = "Duomatch Hi Score Table 45.Txt";
    std::string table = row("Ann", 900000, "Nov 05 2001 09:07 pm");
    for (int i = 1; i < 10; ++i)
        table += row("Velmora", 30000, kSeedDate);
    t.writeTable(file, table);
    duo.lblHighScore.setCaption("High Score: 900,000");
    g.NewHighScoreRow = 0;
    t.fake.queueModal([&](Form& f) {
        auto& d = dynamic_cast<frmHighScores&>(f);
        t.fake.advance(500);
        ASSERT_FALSE(d.ScoreList[0]->visible());

        // No: nothing changes, the row goes on flashing.
        t.fake.queueAnswer(MsgResult::No);
        t.click("frmHighScores", "cmdClear");
        EXPECT_EQ(t.file(file), table);
        EXPECT_EQ(g.NewHighScoreRow, 0);
        EXPECT_EQ(d.ScoreList[0]->caption(), "Ann");
        t.fake.advance(500);
        EXPECT_TRUE(d.ScoreList[0]->visible());
        t.fake.advance(500);
        EXPECT_FALSE(d.ScoreList[0]->visible());

        // Yes, while the row is hidden: it comes back in its own colours with the seed.
        t.fake.queueAnswer(MsgResult::Yes);
        t.click("frmHighScores", "cmdClear");
        EXPECT_EQ(g.NewHighScoreRow, -1);
        EXPECT_FALSE(t.fake.isRunning(d.Timer1));
        EXPECT_TRUE(d.ScoreList[0]->visible());
        EXPECT_TRUE(d.ScoreList[1]->visible());
        EXPECT_EQ(d.ScoreList[0]->caption(), "Velmora");
        EXPECT_FALSE(d.DateList[1]->visible());
        EXPECT_EQ(d.ScoreList[0]->foreColor(), colors::Blue);
        EXPECT_EQ(d.ScoreList[1]->foreColor(), colors::Red);
        EXPECT_EQ(d.DateList[1]->foreColor(), colors::Black);
        for (int k = 0; k < 10; ++k)
            EXPECT_EQ(d.ScoreList[2 * k + 1]->caption(), "50,000");
        // The game's own board shows the new top score at once.
        EXPECT_EQ(duo.lblHighScore.caption(), "High Score: 50,000");
        t.click("frmHighScores", "cmdDone");
    });
    t.fake.takeLog();
    ShowHighScores(t.prog);
    const std::string q =
        "msgbox Duomatch! | question | This will clear all High Scores. Are You Sure? -> ";
    EXPECT_EQ(only(t.fake.takeLog(), {"msgbox"}), (std::vector<std::string>{q + "No", q + "Yes"}));
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

// Each game's View and Clear: View pauses a running game under the dialog and resumes it, and
// makes a missing table in the pause-button games (the others name it); the game's own Clear
// asks first, under a pause where the game pauses for it, and seeds the game's own score; the
// dialog's Clear seeds its own, which only Duomatch has apart.
TEST(HighScoreMenus, ViewAndClearPauseAsEachGameDoesAndSeedItsOwnScores) {
    struct Case {
        const char* form;
        bool viewMakesTable, clearPauses;
        long long seed, clearedSeed;
    };
    const Case cases[] = {
        {"frmTierfall", true, false, 50000, 50000},  {"frmFivestack", true, true, 50000, 50000},
        {"frmHitspree", false, false, 50000, 50000}, {"frmSpirefold", false, true, 30000, 30000},
        {"frmDuomatch", false, true, 30000, 50000},  {"frmGridflush", false, true, 30000, 30000},
        {"frmColclear", false, true, 50000, 50000},  {"frmLettermine", false, true, 30000, 30000},
        {"frmWildslot", true, true, 50000, 50000}};
    ScoresProgram t;
    auto& g = t.prog.state;
    for (const Case& c : cases) {
        const GameInfo& info = *findGame(c.form);
        SCOPED_TRACE(info.formName);
        GameFrame& f = t.openGame(info.formName);
        tierfallValues(t.prog).EnhancedScoring = false;  // Tierfall's clock runs from the deal
        const std::string plain =
            CurrentHighScoreTable(t.prog).tableName + std::to_string(g.RoundSeconds) + ".Txt";
        const std::string path = t.prog.filePath(plain);

        // No game, and the table gone as if removed while the form was open: nothing pauses.
        QFile::remove(QString::fromStdString(path));
        if (!c.viewMakesTable)
            t.fake.queueAnswer(MsgResult::OK);  // the table can't be shown
        t.view(info, [&](frmHighScores&) { EXPECT_EQ(f.lblMessage.caption(), ""); });
        EXPECT_EQ(fileExists(path), c.viewMakesTable);
        if (c.viewMakesTable) {
            EXPECT_EQ(t.file(plain), seedTable(c.seed));
        }

        const std::string kept = row("Ann", 777777, "Nov 05 2001 09:07 pm") + seedTable(1);
        t.writeTable(plain, kept);
        f.lblHighScore.setCaption(info.highScorePrefix + "777,777");
        if (!g.MusicOn)
            t.click(info.formName, "mnuMusic");
        t.click(info.formName, "cmdPlay");
        t.fake.advance(2000);

        // The game's Clear, No: nothing is cleared, the round goes on.
        t.fake.takeLog();
        t.fake.queueAnswer(MsgResult::No);
        t.click(info.formName, info.clearMenu);
        const std::string question =
            "msgbox " + info.title +
            " | question | This will clear all High Scores. Are You Sure? -> No";
        const auto around = only(t.fake.takeLog(), {"msgbox", "music"});
        if (c.clearPauses)
            EXPECT_EQ(around,
                      (std::vector<std::string>{"music stop", question, "music start Orlund.MID"}));
        else
            EXPECT_EQ(around, (std::vector<std::string>{question}));
        EXPECT_EQ(t.file(plain), kept);
        EXPECT_EQ(f.lblHighScore.caption(), info.highScorePrefix + "777,777");
        EXPECT_TRUE(t.fake.isRunning(f.Timer1));
        EXPECT_EQ(f.lblMessage.caption(), "");
        // Yes: the game's seed, and the board shows it.
        t.fake.queueAnswer(MsgResult::Yes);
        t.click(info.formName, info.clearMenu);
        EXPECT_EQ(t.file(plain), seedTable(c.seed));
        EXPECT_EQ(f.lblHighScore.caption(), info.highScorePrefix + formatScore(c.seed));
        EXPECT_TRUE(t.fake.isRunning(f.Timer1));

        // View pauses the round by the game's pause form; the dialog's Clear has its own seed.
        t.writeTable(plain, kept);
        ASSERT_EQ(g.ElapsedSeconds, 2);
        t.view(info, [&](frmHighScores&) {
            EXPECT_EQ(f.lblMessage.caption(), "Game Paused");
            EXPECT_FALSE(t.fake.isRunning(f.Timer1));
            t.fake.advance(10000);
            EXPECT_EQ(g.ElapsedSeconds, 2);
            t.fake.queueAnswer(MsgResult::Yes);
            t.click("frmHighScores", "cmdClear");
            EXPECT_EQ(t.file(plain), seedTable(c.clearedSeed));
        });
        EXPECT_EQ(f.lblMessage.caption(), "");
        EXPECT_FALSE(f.lblMessage.visible());
        EXPECT_TRUE(t.fake.isRunning(f.Timer1));
        t.fake.advance(1000);
        EXPECT_EQ(g.ElapsedSeconds, 3);

        // A game the player paused stays paused through either.
        t.click(info.formName, "cmdPause");
        t.view(info, [&](frmHighScores&) { EXPECT_EQ(f.lblMessage.caption(), "Game Paused"); });
        t.fake.queueAnswer(MsgResult::No);
        t.click(info.formName, info.clearMenu);
        EXPECT_EQ(f.lblMessage.caption(), "Game Paused");
        EXPECT_FALSE(t.fake.isRunning(f.Timer1));
        t.click(info.formName, "cmdPause");

        t.leaveGame(info.formName);
        ASSERT_EQ(t.prog.findForm(info.formName), nullptr);
    }
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(ComposeHighScore, TheFormIsFilledFromTheTopRowAndThePlayersDetails) {
    Submission s;
    auto& g = s.t.prog.state;
    g.UserHometown = "Dayton";
    g.UserState = "Ohio";
    g.UserCountry = "Canada";
    s.table("Ada Lind", 181250);
    s.compose([&](frmComposeHighScore& f) {
        EXPECT_EQ(f.caption(), "High score submission for Tierfall!");
        EXPECT_EQ(f.lblInfo.caption(),
                  "Please verify the information below. After making any changes click on the "
                  "'Submit' command button. This will e-mail the high score data to Orlund for "
                  "posting on the Corvanna High Score Web Page. At a minimum, please include your "
                  "name and score. Note that you must meet the minimum required score before it "
                  "will be posted to the web. The minimum scores for each game are posted on the "
                  "website. Click on 'Cancel' to cancel this operation.");
        EXPECT_EQ(f.lblSample.caption(), "Your listing will look like:");
        EXPECT_EQ(f.lblOther.caption(), "Additional comments for Orlund:");
        EXPECT_EQ(f.txtName.toolTipText(), "Enter your name");
        EXPECT_EQ(f.txtScore.toolTipText(), "Enter your high score");
        EXPECT_EQ(f.txtHomeTown.toolTipText(), "Enter your home town");
        EXPECT_EQ(f.cmboState.toolTipText(), "Select your state");
        EXPECT_EQ(f.txtCountry.toolTipText(), "Enter your Country");
        EXPECT_EQ(f.txtSample.toolTipText(), "Sample listing");
        EXPECT_EQ(f.txtOther.toolTipText(),
                  "Place additional information you want to send to Orlund here");
        EXPECT_EQ(f.cmdSubmit.caption(), "&Submit");
        EXPECT_EQ(f.cmdCancel.caption(), "&Cancel");
        EXPECT_TRUE(f.txtSample.locked());

        const auto& states = f.cmboState.items();
        ASSERT_EQ(states.size(), 52u);
        EXPECT_EQ(states.front(), "None");
        EXPECT_EQ(states[8], "Deleware");
        EXPECT_EQ(states[9], "District of Columbia");
        EXPECT_EQ(states[22], "Massachsetts");
        EXPECT_EQ(states.back(), "Wyoming");
        EXPECT_TRUE(std::is_sorted(states.begin() + 1, states.end()));

        EXPECT_EQ(f.txtName.text(), "Ada Lind");
        EXPECT_EQ(f.txtScore.text(), "181250");
        EXPECT_EQ(f.txtHomeTown.text(), "Dayton");
        EXPECT_EQ(f.cmboState.text(), "Ohio");
        EXPECT_EQ(f.txtCountry.text(), "Canada");
        EXPECT_EQ(f.txtOther.text(), "");
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton, Ohio, Canada");

        // Every change is in the sample at once; "None" and "United States" are left out.
        f.cmboState.setListIndex(0);
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton, Canada");
        f.txtCountry.setText("United States");
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton");
        f.cmboState.setListIndex(43);
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton, Tennessee");
        f.txtCountry.setText("united states");
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton, Tennessee, united states");
        f.txtName.setText("Bo");
        f.txtHomeTown.setText("");
        EXPECT_EQ(f.txtSample.text(), "181,250 by Bo of , Tennessee, united states");
        s.click("cmdCancel");
    });
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

TEST(ComposeHighScore, TheScoreBoxHoldsTheNumberItReadsAndNoMoreThanTheTopScore) {
    // Halves go to even; too big is held at the top, never wrapped.
    const std::pair<const char*, int> cases[] = {
        {"", 0},      {"1,234,567", 1234567}, {",,,9,,", 9}, {"  42 points", 42},       {"abc", 0},
        {"-17", -17}, {"12.5", 12},           {"13.5", 14},  {"2147483648", 2147483647}};
    for (const auto& [text, value] : cases)
        EXPECT_EQ(ParseScoreText(text), value) << text;
    EXPECT_EQ(ParseScoreText(std::string(100, '9')), 2147483647);

    Submission s;
    s.table("Ada", 200000);
    int refusals = 0;
    s.compose([&](frmComposeHighScore& f) {
        // Commas, letters and blanks go as they are typed.
        f.txtScore.setText("199,999");
        EXPECT_EQ(f.txtScore.text(), "199999");
        f.txtScore.setText("1 2 3");
        EXPECT_EQ(f.txtScore.text(), "1");
        f.txtScore.setText("x7");
        EXPECT_EQ(f.txtScore.text(), "0");
        EXPECT_EQ(f.txtSample.text().substr(0, 5), "0 by ");
        f.txtScore.setText("-5");
        EXPECT_EQ(f.txtScore.text(), "-5");

        // Above the top: refused as typed, the top put back, selected and focused.
        for (const std::string& typed :
             std::vector<std::string>{"200001", "2,000,000", std::string(100, '9')}) {
            s.t.fake.queueAnswer(MsgResult::OK);
            f.txtScore.setText(typed);
            ++refusals;
            EXPECT_EQ(f.txtScore.text(), "200000") << typed;
            EXPECT_EQ(f.txtScore.selStart, 0);
            EXPECT_EQ(f.txtScore.selLength, 6);
            EXPECT_EQ(f.activeControl(), &f.txtScore);
            EXPECT_EQ(f.txtSample.text(), "200,000 by Ada of Unknown");
        }
        f.txtScore.setText("200000");  // the top itself is fine
        s.click("cmdCancel");
    });
    EXPECT_EQ(s.t.fake.messages(), std::vector<std::string>(refusals, kTooHigh));
    EXPECT_THAT(s.t.fake.takeLog(), ::testing::Contains("msgbox Tierfall! | exclamation | " +
                                                        std::string(kTooHigh) + " -> OK"));
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

// Each game's two checks: its minimum passes exactly and a point less is refused, and then
// its time limit; a score too low under the wrong limit is told of the score first.
TEST(ComposeHighScore, EachGamesMinimumAndTimeLimitAreCheckedInTurn) {
    struct Case {
        const char* form;
        int minimum, seconds;
    };
    const Case cases[] = {
        {"frmTierfall", 175000, 90},  {"frmFivestack", 600000, 60},  {"frmHitspree", 700000, 90},
        {"frmSpirefold", 90000, 45},  {"frmDuomatch", 140000, 45},   {"frmGridflush", 130000, 75},
        {"frmColclear", 225000, 120}, {"frmLettermine", 430000, 45}, {"frmWildslot", 13000000, 90}};
    Submission s;
    auto& g = s.t.prog.state;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.form);
        if (s.game->info().formName != c.form) {
            s.t.leaveGame(s.game->info().formName);
            s.open(c.form);
        }
        const std::string title = s.game->info().title;
        g.RoundSeconds = static_cast<std::int16_t>(c.seconds + 15);
        s.table("Ada", c.minimum);
        const std::size_t mailsBefore = s.t.fake.mails().size();
        const std::string wrongLimit = "Sorry, in order to list your " + title +
                                       " high score on the web you must be using the default "
                                       "time limit of " +
                                       std::to_string(c.seconds) + " seconds.";
        s.t.fake.takeLog();
        s.compose([&](frmComposeHighScore& f) {
            for (int i = 0; i < 3; ++i)
                s.t.fake.queueAnswer(MsgResult::OK);
            f.txtScore.setText(std::to_string(c.minimum - 1));
            s.click("cmdSubmit");
            EXPECT_EQ(s.t.fake.messages().back(),
                      "Sorry, in order to list your " + title +
                          " high score on the web you must achieve a minimum score of " +
                          formatScore(c.minimum) + ".\nKeep playing, you can do it!");
            f.txtScore.setText(std::to_string(c.minimum));
            s.click("cmdSubmit");
            EXPECT_EQ(s.t.fake.messages().back(), wrongLimit);
            EXPECT_TRUE(s.open());
            EXPECT_EQ(s.t.fake.mails().size(), mailsBefore);
            g.RoundSeconds = static_cast<std::int16_t>(c.seconds);
            s.click("cmdSubmit");
            EXPECT_FALSE(s.open());
        });
        EXPECT_THAT(
            s.t.fake.takeLog(),
            ::testing::Contains("msgbox " + title + " | information | " + wrongLimit + " -> OK"));
        ASSERT_EQ(s.t.fake.mails().size(), mailsBefore + 1);
        EXPECT_EQ(s.t.fake.mails().back().subject, "Corvanna High Score Listing for " + title);
        EXPECT_EQ(s.t.fake.messages().back(),
                  "The message has been successfully placed in your out box.");
    }
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

// A failed hand-over is named and keeps the dialog open with nothing kept; the next goes to
// the keeper with the listing, and the details are kept.
TEST(ComposeHighScore, TheMailGoesToTheKeeperAfterAFailureIsNamedAndTheDetailsAreKept) {
    Submission s;
    auto& g = s.t.prog.state;
    g.CustomScoring = true;
    tierfallValues(s.t.prog).EnhancedScoring = false;
    s.table("Ada Lind", 190000);
    s.t.fake.mailResult = {false, "No mail program is set up on this computer."};
    s.compose([&](frmComposeHighScore& f) {
        f.txtHomeTown.setText("Lyon");
        f.cmboState.setListIndex(0);
        f.txtCountry.setText("France");
        f.txtOther.setText("Played on a train.\nSecond line & more");
        s.t.fake.queueAnswer(MsgResult::OK);
        s.click("cmdSubmit");
        EXPECT_TRUE(s.open());
        EXPECT_EQ(g.UserHometown, "Unknown");  // nothing kept yet
        s.t.fake.mailResult = {true, ""};
        s.t.fake.queueAnswer(MsgResult::OK);
        s.click("cmdSubmit");
        EXPECT_FALSE(s.open());
    });
    EXPECT_THAT(s.t.fake.messages(),
                ElementsAre("There was an error attempting to access your e-mail messaging "
                            "system. Please report this to highscores@example.org. Error "
                            "description: No mail program is set up on this computer.",
                            "The message has been successfully placed in your out box."));
    EXPECT_THAT(s.t.fake.takeLog(),
                ::testing::Contains(::testing::StartsWith("msgbox Tierfall! | critical | There")));
    ASSERT_EQ(s.t.fake.mails().size(), 2u);
    const MailMessage& mail = s.t.fake.mails()[1];
    EXPECT_EQ(mail.recipientName, "Orlund");
    EXPECT_EQ(mail.recipientAddress, "highscores@example.org");
    EXPECT_EQ(mail.subject, "Corvanna High Score Listing for Tierfall!");
    EXPECT_EQ(mail.body,
              "190,000 by Ada Lind of Lyon, France\r\n\r\nCustom scoring is currently True\r\n\r\n"
              "Tierfall enahnced scoring mode is False\r\n\r\nPlayed on a train.\r\nSecond line & "
              "more");
    EXPECT_EQ(g.UserName, "Ada Lind");
    EXPECT_EQ(g.UserHometown, "Lyon");
    EXPECT_EQ(g.UserState, "None");
    EXPECT_EQ(g.UserCountry, "France");
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

TEST(ComposeHighScore, ADamagedTableIsNamedLeftAsItIsAndGivesAnEmptyListingThatCannotBeSent) {
    Submission s;
    const std::string path = HighScoreFilePath(s.t.prog, CurrentHighScoreTable(s.t.prog).tableName);
    const std::string bad = "Ann, 100, Jan 01 2000 12:00 am\r\nBo, lots, Jan 01 2000 12:00 am\r\n";
    ASSERT_TRUE(writeFileAtomic(path, bad));
    s.t.fake.queueAnswer(MsgResult::OK);  // the Hall of Fame names the damaged file
    s.compose([&](frmComposeHighScore& f) {
        auto& hall = dynamic_cast<frmHighScores&>(*s.t.prog.findForm("frmHighScores"));
        EXPECT_EQ(hall.ScoreList[0]->caption(), "");
        EXPECT_EQ(f.txtName.text(), "");
        EXPECT_EQ(f.txtScore.text(), "");  // nothing typed yet: read as 0
        EXPECT_EQ(f.txtSample.text(), "0 by  of Unknown");
        s.t.fake.queueAnswer(MsgResult::OK);
        s.click("cmdSubmit");
        EXPECT_TRUE(s.open());
        s.click("cmdCancel");
    });
    const auto messages = s.t.fake.messages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].rfind("The high score table \"" + path + "\" could not be shown: ", 0),
              0u)
        << messages[0];
    EXPECT_NE(messages[0].find("not a number"), std::string::npos) << messages[0];
    EXPECT_NE(messages[1].find("minimum score of 175,000"), std::string::npos);
    EXPECT_EQ(s.t.file(path.substr(s.t.prog.state.AppPath.size())), bad);
    EXPECT_TRUE(s.t.fake.mails().empty());
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

TEST(ComposeHighScore, CancelKeepsTheDetailsForTheNextGameAndTheNextRun) {
    QTemporaryDir data;
    {
        Submission s("frmTierfall", data.path().toStdString());
        s.table("Ada", 100);
        s.compose([&](frmComposeHighScore& f) {
            f.txtName.setText("Cy Moor");
            f.txtHomeTown.setText("Perth, WA");
            f.cmboState.setListIndex(51);
            f.txtCountry.setText("Australia");
            s.click("cmdCancel");
        });
        auto& g = s.t.prog.state;
        EXPECT_EQ(g.UserName, "Cy Moor");
        EXPECT_EQ(g.UserState, "Wyoming");
        // The next listing starts from them, but for the name: that is the top row's again,
        // and Cancel keeps it.
        s.compose([&](frmComposeHighScore& f) {
            EXPECT_EQ(f.txtName.text(), "Ada");
            EXPECT_EQ(f.txtHomeTown.text(), "Perth, WA");
            EXPECT_EQ(f.cmboState.text(), "Wyoming");
            EXPECT_EQ(f.txtCountry.text(), "Australia");
            s.click("cmdCancel");
        });
        EXPECT_TRUE(s.t.fake.mails().empty());
        // Closing the selector writes them to User.ini.
        s.t.leaveGame("frmTierfall");
        s.t.click("frmSelect", "cmdClose");
        EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
    }
    // The next run reads them back; the home town ends at its comma, as every value does.
    TestProgram next(1, data.path().toStdString());
    EXPECT_EQ(next.prog.state.UserName, "Ada");
    EXPECT_EQ(next.prog.state.UserHometown, "Perth");
    EXPECT_EQ(next.prog.state.UserState, "Wyoming");
    EXPECT_EQ(next.prog.state.UserCountry, "Australia");
}

}  // namespace corvanna
