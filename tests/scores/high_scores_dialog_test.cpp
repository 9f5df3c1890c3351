// The Hall of Fame dialog and the View and Clear commands of the game forms, played
// through on the virtual platform.

#include <gtest/gtest.h>

#include <QFile>
#include <algorithm>
#include <map>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/frame/GameFrame.h"
#include "games/GameRegistry.h"
#include "scores/HighScores.h"
#include "scores/ScoreMenus.h"
#include "scores/frmHighScores.h"
#include "testkit/TestProgram.h"

namespace corvanna {

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

bool logHas(const std::vector<std::string>& log, const std::string& line) {
    return std::find(log.begin(), log.end(), line) != log.end();
}

std::vector<std::string> only(const std::vector<std::string>& log,
                              const std::vector<std::string>& prefixes) {
    std::vector<std::string> out;
    for (const auto& line : log)
        for (const auto& p : prefixes)
            if (line.rfind(p, 0) == 0) {
                out.push_back(line);
                break;
            }
    return out;
}

// A program with the high score commands in place, as the shell wires them.
struct ScoresProgram : TestProgram {
    ScoresProgram() { InstallHighScoreDialogs(prog); }

    // The game opens with its table in place and its top score on the board, as a
    // game's load leaves them.
    GameFrame& openGame(const std::string& formName) {
        GameFrame& f = TestProgram::openGame(formName);
        const HighScoreChoice choice = CurrentHighScoreTable(prog);
        EXPECT_TRUE(ShowHighScoreLabel(prog, choice.tableName, f, choice.table->seedScore));
        return f;
    }

    void writeTable(const std::string& plainName, const std::string& text) {
        ASSERT_TRUE(writeFileAtomic(prog.filePath(plainName), text));
    }
    frmHighScores& dialog(Form& f) { return dynamic_cast<frmHighScores&>(f); }
    // Opens the game's View command and runs script while the dialog is up.
    void view(const GameInfo& game, std::function<void(frmHighScores&)> script) {
        bool ran = false;
        fake.queueModal([&](Form& f) {
            ran = true;
            script(dialog(f));
            if (prog.findForm("frmHighScores"))
                click("frmHighScores", "cmdDone");
        });
        click(game.formName, game.viewMenu);
        EXPECT_TRUE(ran) << "no High Scores dialog for " << game.formName;
    }
};

const GameInfo& game(const std::string& formName) {
    return *findGame(formName);
}

// Every caption a label takes, in order.
struct Captions {
    std::vector<std::string> seen;
    Control& control;
    int id;
    explicit Captions(Control& c)
        : control(c), id(c.subscribe([this](Control& ctl, Prop p) {
              if (p == Prop::Caption)
                  seen.push_back(ctl.caption());
          })) {}
    ~Captions() { control.unsubscribe(id); }
};

}  // namespace

TEST(HighScoresDialog, AFreshTableShowsTenVelmorasWithoutDatesAndNoFanfare) {
    ScoresProgram t;
    const GameInfo& five = game("frmFivestack");
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
        EXPECT_EQ(d.Timer1.interval(), 500);
        EXPECT_FALSE(t.fake.isRunning(d.Timer1));
        t.fake.advance(2000);
        EXPECT_TRUE(d.ScoreList[0]->visible());
    });
    // Viewing leaves the table as it was.
    EXPECT_EQ(t.file("Fivestack Hi Score Table 60.Txt"), seedTable(50000));
    const auto log = t.fake.takeLog();
    EXPECT_FALSE(logHas(log, "sound Applause.wav"));
    EXPECT_TRUE(logHas(log, "show frmHighScores modal"));
    EXPECT_TRUE(logHas(log, "unload frmHighScores"));
    EXPECT_EQ(t.prog.findForm("frmHighScores"), nullptr);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoresDialog, ShowsTheTableOfTheTimeLimitWithScoresGroupedAndRealDates) {
    ScoresProgram t;
    const GameInfo& tier = game("frmTierfall");
    t.openGame(tier.formName);
    t.prog.state.Tierfall.EnhancedScoring = false;  // the standard mode's table
    t.click(tier.formName, "mnu30");
    std::string table = row("Ann*", 1234567, "Nov 05 2001 09:07 pm") +
                        row("Bo", 98765, "Feb 29 2024 12:00 am") +
                        row("Cy", 1000, "Jul 04 2026 01:30 pm");
    for (int i = 3; i < 10; ++i)
        table += row("Velmora", 999, kSeedDate);
    table += row("Eleventh", 5, "Dec 31 2025 11:59 pm");  // left by an entry in last place
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
        for (const auto& c : d.controls())
            EXPECT_NE(c->caption(), "Eleventh");
    });
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoresDialog, ADamagedTableIsNamedAndLeftAsItIs) {
    ScoresProgram t;
    const GameInfo& wild = game("frmWildslot");
    t.openGame(wild.formName);
    const std::string bad = row("Ann", 100, kSeedDate) + "Bo, lots, " + kSeedDate + "\r\n";
    t.writeTable("Wildslot Hi Score Table 90.Txt", bad);
    t.fake.queueAnswer(MsgResult::OK);
    t.view(wild, [&](frmHighScores& d) {
        EXPECT_EQ(d.ScoreList[0]->caption(), "");
        EXPECT_EQ(d.lblHiScoreInfo.caption(), std::string("\n") + kAsteriskNote);
    });
    ASSERT_EQ(t.fake.messages().size(), 1u);
    EXPECT_NE(t.fake.messages()[0].find("Wildslot Hi Score Table 90.Txt"), std::string::npos);
    EXPECT_NE(t.fake.messages()[0].find("not a number"), std::string::npos);
    EXPECT_EQ(t.file("Wildslot Hi Score Table 90.Txt"), bad);
}

TEST(HighScoresDialog, ANewEntryFlashesWithApplauseUntilDone) {
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
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoresDialog, SoundsOffMeansNoApplauseAndTheCloseBoxLeavesTheNewRowSet) {
    ScoresProgram t;
    t.openGame("frmColclear");
    auto& g = t.prog.state;
    t.click("frmColclear", "mnuSounds");
    ASSERT_FALSE(g.SoundsOn);
    t.writeTable("Colclear Hi Score Table 120.Txt", seedTable(50000));
    g.NewHighScoreRow = 9;
    t.fake.queueModal([&](Form& f) {
        auto& d = dynamic_cast<frmHighScores&>(f);
        EXPECT_TRUE(t.fake.isRunning(d.Timer1));
        EXPECT_EQ(d.ScoreList[18]->foreColor(), colors::White);
        t.fake.advance(500);
        EXPECT_FALSE(d.ScoreList[18]->visible());
        t.prog.platform.onCloseRequest(f);
    });
    t.fake.takeLog();
    ShowHighScores(t.prog);
    EXPECT_EQ(t.prog.findForm("frmHighScores"), nullptr);
    EXPECT_FALSE(logHas(t.fake.takeLog(), "sound Applause.wav"));
    // Only Done resets the row; the next ranking does the rest.
    EXPECT_EQ(g.NewHighScoreRow, 9);
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
        EXPECT_EQ(t.file(file), seedTable(50000));
        EXPECT_EQ(g.NewHighScoreRow, -1);
        EXPECT_FALSE(t.fake.isRunning(d.Timer1));
        EXPECT_TRUE(d.ScoreList[0]->visible());
        EXPECT_TRUE(d.ScoreList[1]->visible());
        EXPECT_EQ(d.ScoreList[0]->caption(), "Velmora");
        EXPECT_EQ(d.ScoreList[1]->caption(), "50,000");
        EXPECT_FALSE(d.DateList[1]->visible());
        EXPECT_EQ(d.ScoreList[0]->foreColor(), colors::Blue);
        EXPECT_EQ(d.ScoreList[1]->foreColor(), colors::Red);
        EXPECT_EQ(d.DateList[1]->foreColor(), colors::Black);
        for (int k = 0; k < 10; ++k)
            EXPECT_EQ(d.ScoreList[2 * k + 1]->caption(), "50,000");
        // The game's own board shows the new top score at once.
        EXPECT_EQ(duo.lblHighScore.caption(), "High Score: 50,000");
        t.fake.advance(2000);
        EXPECT_TRUE(d.ScoreList[0]->visible());
        t.click("frmHighScores", "cmdDone");
    });
    t.fake.takeLog();
    ShowHighScores(t.prog);
    const auto boxes = only(t.fake.takeLog(), {"msgbox"});
    EXPECT_EQ(boxes, (std::vector<std::string>{
                         "msgbox Duomatch! | question | This will clear all High Scores. Are You "
                         "Sure? -> No",
                         "msgbox Duomatch! | question | This will clear all High Scores. Are You "
                         "Sure? -> Yes"}));
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoresDialog, TheWebPageOpensOrTheMissingBrowserIsNamed) {
    ScoresProgram t;
    t.openGame("frmGridflush");
    t.fake.queueModal([&](Form&) {
        t.click("frmHighScores", "cmdHighScores");
        t.fake.urlResult = UrlResult::NoBrowser;
        t.fake.queueAnswer(MsgResult::OK);
        t.click("frmHighScores", "cmdHighScores");
        // Neither closes the dialog.
        EXPECT_NE(t.prog.findForm("frmHighScores"), nullptr);
        t.click("frmHighScores", "cmdDone");
    });
    ShowHighScores(t.prog);
    const auto log = only(t.fake.takeLog(), {"url", "msgbox"});
    EXPECT_EQ(log,
              (std::vector<std::string>{
                  "url https://www.example.org/orlund/High%20Scores.htm",
                  "url https://www.example.org/orlund/High%20Scores.htm",
                  "msgbox Gridflush! | exclamation | Unable to find default web Browser -> OK"}));
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoreMenus, ViewPausesARunningGameByItsPauseFormAndResumes) {
    // Form A (pause button) in Tierfall, Fivestack and Wildslot; form B for the rest.
    ScoresProgram t;
    for (const GameInfo& info : allGames()) {
        SCOPED_TRACE(info.formName);
        GameFrame& f = t.openGame(info.formName);
        auto& g = t.prog.state;
        g.Tierfall.EnhancedScoring = false;  // Tierfall's clock runs from the deal
        t.click(info.formName, "cmdPlay");
        t.fake.advance(3000);
        ASSERT_EQ(g.ElapsedSeconds, 3);
        t.view(info, [&](frmHighScores&) {
            EXPECT_EQ(f.lblMessage.caption(), "Game Paused");
            EXPECT_FALSE(t.fake.isRunning(f.Timer1));
            t.fake.advance(10000);
            EXPECT_EQ(g.ElapsedSeconds, 3);
        });
        EXPECT_EQ(f.lblMessage.caption(), "");
        EXPECT_FALSE(f.lblMessage.visible());
        EXPECT_TRUE(t.fake.isRunning(f.Timer1));
        t.fake.advance(1000);
        EXPECT_EQ(g.ElapsedSeconds, 4);

        // A game the player paused stays paused.
        t.click(info.formName, "cmdPause");
        t.view(info, [&](frmHighScores&) { EXPECT_EQ(f.lblMessage.caption(), "Game Paused"); });
        EXPECT_EQ(f.lblMessage.caption(), "Game Paused");
        EXPECT_FALSE(t.fake.isRunning(f.Timer1));
        t.click(info.formName, "cmdPause");

        // No game: the dialog opens and nothing is paused.
        t.fake.queueAnswer(MsgResult::Yes);
        t.click(info.formName, "cmdPlay");  // End Game
        ASSERT_FALSE(g.GameInProgress);
        Captions messages(f.lblMessage);
        t.view(info, [&](frmHighScores&) {});
        EXPECT_TRUE(messages.seen.empty());

        t.fake.queueAnswer(MsgResult::Yes);
        t.click(info.formName, info.exitButton);
        ASSERT_EQ(t.prog.findForm(info.formName), nullptr);
    }
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoreMenus, ViewOfPauseButtonGamesMakesTheTableTheOthersCountOnIt) {
    ScoresProgram t;
    std::map<std::string, bool> madeByView;
    for (const GameInfo& info : allGames()) {
        t.openGame(info.formName);
        const std::string path = HighScoreFilePath(t.prog, CurrentHighScoreTable(t.prog).tableName);
        // Gone, as if removed while the form was open.
        QFile::remove(QString::fromStdString(path));
        bool shown = false;
        t.fake.queueModal([&](Form&) {
            shown = true;
            t.click("frmHighScores", "cmdDone");
        });
        if (info.dialogPause != DialogPause::ByPauseButton)
            t.fake.queueAnswer(MsgResult::OK);  // the table can't be shown
        t.click(info.formName, info.viewMenu);
        EXPECT_TRUE(shown);
        madeByView[info.title] = fileExists(path);
        if (fileExists(path)) {
            EXPECT_EQ(t.file(path.substr(t.prog.state.AppPath.size())),
                      seedTable(highScoreTableFor(info.title)->seedScore));
        }
        t.fake.queueAnswer(MsgResult::Yes);
        t.click(info.formName, info.exitButton);
    }
    EXPECT_EQ(madeByView, (std::map<std::string, bool>{{"Tierfall!", true},
                                                       {"Fivestack!", true},
                                                       {"Hitspree!", false},
                                                       {"Spirefold!", false},
                                                       {"Duomatch!", false},
                                                       {"Gridflush!", false},
                                                       {"Colclear!", false},
                                                       {"Lettermine!", false},
                                                       {"Wildslot!", true}}));
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(HighScoreMenus, ClearAsksUnderTheGamesPauseFormAndSeedsTheGamesOwnScore) {
    ScoresProgram t;
    // Which games pause for the question, and the seed their own Clear writes.
    const std::map<std::string, std::pair<bool, long long>> expected{
        {"Tierfall!", {false, 50000}}, {"Fivestack!", {true, 50000}},
        {"Hitspree!", {false, 50000}}, {"Spirefold!", {true, 30000}},
        {"Duomatch!", {true, 30000}},  {"Gridflush!", {true, 30000}},
        {"Colclear!", {true, 50000}},  {"Lettermine!", {true, 30000}},
        {"Wildslot!", {true, 50000}}};
    for (const GameInfo& info : allGames()) {
        SCOPED_TRACE(info.formName);
        const auto [pauses, seed] = expected.at(info.title);
        GameFrame& f = t.openGame(info.formName);
        auto& g = t.prog.state;
        g.Tierfall.EnhancedScoring = false;  // Tierfall's clock runs from the deal
        const std::string plain =
            CurrentHighScoreTable(t.prog).tableName + std::to_string(g.RoundSeconds) + ".Txt";
        const std::string kept = row("Ann", 777777, "Nov 05 2001 09:07 pm") + seedTable(1);
        t.writeTable(plain, kept);
        f.lblHighScore.setCaption(info.highScorePrefix + "777,777");
        if (!g.MusicOn)
            t.click(info.formName, "mnuMusic");
        t.click(info.formName, "cmdPlay");
        t.fake.advance(2000);

        // No: nothing is cleared, the round goes on.
        t.fake.takeLog();
        t.fake.queueAnswer(MsgResult::No);
        t.click(info.formName, info.clearMenu);
        const std::string question =
            "msgbox " + info.title +
            " | question | This will clear all High Scores. Are You Sure? -> No";
        const auto around = only(t.fake.takeLog(), {"msgbox", "music"});
        if (pauses)
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
        EXPECT_EQ(t.file(plain), seedTable(seed));
        EXPECT_EQ(f.lblHighScore.caption(), info.highScorePrefix + formatScore(seed));
        EXPECT_TRUE(t.fake.isRunning(f.Timer1));

        // A paused game stays paused through the question.
        t.click(info.formName, "cmdPause");
        t.fake.queueAnswer(MsgResult::No);
        t.click(info.formName, info.clearMenu);
        EXPECT_EQ(f.lblMessage.caption(), "Game Paused");
        EXPECT_FALSE(t.fake.isRunning(f.Timer1));
        t.click(info.formName, "cmdPause");

        t.fake.queueAnswer(MsgResult::Yes);
        t.click(info.formName, info.exitButton);
        ASSERT_EQ(t.prog.findForm(info.formName), nullptr);
    }
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

}  // namespace corvanna
