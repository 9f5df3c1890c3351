// The rules dialog: each game's whole text with its defaults, against texts written out by
// hand and kept CR LF exact in tests/games/rules; then the values in force showing through,
// and the dialog's pause and resume.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "common/FileStore.h"
#include "common/frame/SettingBindings.h"
#include "forms/Controls.h"
#include "forms/Input.h"
#include "games/GameRegistry.h"
#include "games/lettermine/LettermineValues.h"
#include "games/tierfall/TierfallValues.h"
#include "shell/frmRules.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

std::string expected(const std::string& name) {
    std::ifstream in(
        std::filesystem::path(CORVANNA_TESTS_DIR) / "games" / "rules" / (name + ".txt"),
        std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    EXPECT_FALSE(text.str().empty()) << name;
    return text.str();
}

// The text Help, Rules shows on the game form now; the dialog is closed by Enter.
std::string rulesOf(TestProgram& t, const std::string& formName) {
    std::string text;
    t.fake.queueModal([&](Form& f) {
        EXPECT_EQ(f.caption(), t.prog.state.AppTitle + " Rules, Notes and Strategy");
        auto& box = static_cast<TextBox&>(*f.find("lblRules"));
        EXPECT_TRUE(box.locked() && box.multiLine());
        EXPECT_EQ(f.activeControl(), &box);  // the keys scroll the text at once
        EXPECT_EQ(f.find("cmdOK")->caption(), "&OK");
        text = box.text();
        std::string why;
        EXPECT_TRUE(userKey(f, Key::Enter, &why)) << why;
    });
    t.click(formName, "mnuRules");
    EXPECT_EQ(t.prog.findForm("frmRules"), nullptr) << "Enter left the rules open";
    return text;
}

}  // namespace

TEST(Rules, EachGamesTextWithItsDefaults) {
    TestProgram t;
    for (const GameInfo& game : allGames()) {
        SCOPED_TRACE(game.formName);
        t.openGame(game.formName);
        // Tierfall opens in its enhanced mode.
        EXPECT_EQ(rulesOf(t, game.formName),
                  expected(game.id == "tierfall" ? "tierfall_enhanced" : game.id));
        t.leaveGame(game.formName);
    }
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(Rules, TierfallsTwoTextsFollowTheModeTheTimeLimitAndTheTakeScoreCaption) {
    TestProgram t;
    t.openGame("frmTierfall");
    const std::string enhanced = expected("tierfall_enhanced");
    tierfallValues(t.prog).EnhancedScoring = false;
    EXPECT_EQ(rulesOf(t, "frmTierfall"), expected("tierfall_standard"));

    // 30 seconds: the strategy's quarter is 7.5, to even 8; at 90 it was 22.5, to even 22.
    t.click("frmTierfall", "mnu30");
    std::string text = rulesOf(t, "frmTierfall");
    EXPECT_NE(text.find("two rounds, each lasting 30 seconds."), std::string::npos);
    EXPECT_NE(text.find("in the last 8 seconds of play. "), std::string::npos);
    // After a game the button reads Replay, and so do the rules.
    t.click("frmTierfall", "cmdPlay");
    t.click("frmTierfall", "cmdTakeScore");
    t.click("frmTierfall", "cmdTakeScore");
    ASSERT_FALSE(t.prog.state.GameInProgress);
    text = rulesOf(t, "frmTierfall");
    EXPECT_NE(text.find("after selecting the '&Replay' command button."), std::string::npos);

    // Back in the enhanced mode with hand-edited extremes: shown as they stand.
    t.leaveGame("frmTierfall");
    ASSERT_TRUE(writeFileAtomic(t.prog.filePath("Tierfall.Ini"),
                                "[New Score Mode]\r\nTrue\r\n\r\n[Completion Bonus]\r\n-2147483648"
                                "\r\n\r\n[Card Bonus]\r\n2147483647\r\n\r\n[Time Bonus]\r\n-5\r\n"
                                "\r\n"));
    t.openGame("frmTierfall");
    text = rulesOf(t, "frmTierfall");
    EXPECT_NE(text.find("an additional -2,147,483,648 points."), std::string::npos);
    EXPECT_NE(text.find("an additional 2,147,483,647 points for each card remaining"),
              std::string::npos);
    EXPECT_NE(text.find("This is because of the 2,147,483,647 point Card Bonus"),
              std::string::npos);
    EXPECT_NE(text.find("You are awarded -5 points for each second"), std::string::npos);
    EXPECT_NE(text, enhanced);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(Rules, AnotherGamesCustomValueAndTimeLimitShowAtTheNextOpening) {
    TestProgram t;
    t.openGame("frmLettermine");
    t.prog.gameValues<LettermineValues>().GuessCount = 5;
    t.prog.state.BonusRoundScore = 1234567;
    std::string text = rulesOf(t, "frmLettermine");
    EXPECT_NE(text.find("You are allowed 5 incorrect letter selections"), std::string::npos);
    EXPECT_NE(text.find("If you earn more than 1,234,567 points in these rounds, and you"),
              std::string::npos);
    t.leaveGame("frmLettermine");

    // Fivestack's step is the integer part of (300 - 100) / seconds.
    t.openGame("frmFivestack");
    for (const auto& [menu, seconds, step] :
         {std::tuple{"mnu30", "30", "6"}, {"mnu15", "15", "13"}, {"mnu75", "75", "2"}}) {
        t.click("frmFivestack", menu);
        text = rulesOf(t, "frmFivestack");
        EXPECT_NE(text.find(std::string("three rounds, each lasting ") + seconds + " seconds."),
                  std::string::npos)
            << menu;
        EXPECT_NE(text.find(std::string("It decreases by ") + step + " for each second"),
                  std::string::npos)
            << menu;
    }
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

// Rules opened on a running round pause it and resume it; a game paused before stays
// paused; with no game nothing pauses; and nothing the player has set changes.
TEST(Rules, TheDialogPausesAsTheGameDoesAndChangesNoSetting) {
    TestProgram t;
    GameFrame& f = t.openGame("frmDuomatch");
    const SettingTable& table = f.info().settings;
    const std::string settings = settingsText(table, t.prog, &f);
    rulesOf(t, "frmDuomatch");
    EXPECT_FALSE(f.isPaused());
    EXPECT_FALSE(t.prog.state.GameInProgress);

    t.click("frmDuomatch", "cmdPlay");
    t.fake.advance(3000);
    t.fake.queueModal([&](Form&) {
        EXPECT_TRUE(f.isPaused());
        t.fake.advance(5000);  // the clock stands still under the dialog
        t.click("frmRules", "cmdOK");
    });
    t.click("frmDuomatch", "mnuRules");
    EXPECT_FALSE(f.isPaused());
    EXPECT_EQ(t.prog.state.ElapsedSeconds, 3);

    t.click("frmDuomatch", "cmdPause");
    rulesOf(t, "frmDuomatch");
    EXPECT_TRUE(f.isPaused());
    t.click("frmDuomatch", "cmdPause");
    EXPECT_EQ(settingsText(table, t.prog, &f), settings);

    // A click on Rules, About or Clear High Scores while the round's end is being paid is
    // held, and then finds the end of the round done: no dialog or question opens over it.
    int delivered = 0;
    for (Menu* m : {&f.mnuRules, &f.mnuAbout, &f.mnuClearHighScores})
        t.fake.post([&, m] { delivered += userClick(*m); });
    t.fake.takeLog();
    const auto asked = t.fake.messages().size();
    t.click("frmDuomatch", "cmdTakeScore");
    EXPECT_EQ(delivered, 3);
    EXPECT_EQ(t.fake.messages().size(), asked);
    EXPECT_EQ(only(t.fake.takeLog(), {"show frmRules", "show frmAbout"}),
              std::vector<std::string>{});
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(Rules, ATitleOfNoGameLeavesTheBoxAsItWas) {
    TestProgram t;
    t.prog.state.AppTitle = "Corvanna!";
    t.fake.queueModal([&](Form& f) {
        EXPECT_EQ(f.caption(), "Corvanna! Rules, Notes and Strategy");
        EXPECT_EQ(static_cast<TextBox&>(*f.find("lblRules")).text(), "");
        t.click("frmRules", "cmdOK");
    });
    ShowRules(t.prog);
    EXPECT_EQ(t.prog.findForm("frmRules"), nullptr);
}

}  // namespace corvanna
