// Enter and Escape in every dialog of the program, and Enter on a focused button.

#include <gtest/gtest.h>

#include "forms/Input.h"
#include "games/tierfall/frmOpen.h"
#include "games/tierfall/frmSave.h"
#include "scores/frmHiScoreName.h"
#include "scores/frmHighScores.h"
#include "shell/frmAbout.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

// Shows the dialog modal over a running Tierfall; `script` runs while it is up.
void openDialog(TestProgram& t, const std::string& name, std::function<void(Form&)> script) {
    if (name == "frmComposeHighScore") {
        t.fake.queueModal([&t](Form&) {
            t.click("frmHighScores", "cmdSendScore");
            t.click("frmHighScores", "cmdDone");
        });
        t.fake.queueModal(std::move(script));
        return ShowHighScores(t.prog);
    }
    t.fake.queueModal(std::move(script));
    if (name == "frmAbout")
        ShowAbout(t.prog);
    else if (name == "frmHighScores")
        ShowHighScores(t.prog);
    else if (name == "frmHiScoreName")
        AskHighScoreName(t.prog);
    else if (name == "frmTierfallCustomScoring")
        t.click("frmTierfall", "mnuScoring");
    else if (name == "frmSave")
        ShowSaveGame(t.prog);
    else if (name == "frmOpen")
        ShowOpenGame(t.prog, [](const std::string&) { return true; });
}

}  // namespace

TEST(Keys, EnterAndEscapeInEveryDialog) {
    struct Case {
        const char* dialog;
        Key key;
        const char* focus;    // given by the user before the key, "" for where the dialog puts it
        const char* reached;  // the handler the key ran, "" for none
        bool staysOpen;
    };
    const Case cases[] = {
        {"frmAbout", Key::Enter, "", "cmdCoolDude", false},
        {"frmAbout", Key::Escape, "", "cmdCoolDude", false},
        {"frmHighScores", Key::Enter, "", "cmdDone", false},
        {"frmHighScores", Key::Escape, "cmdClear", "cmdDone", false},
        {"frmHiScoreName", Key::Enter, "", "cmdOK", false},
        {"frmHiScoreName", Key::Escape, "", "cmdOK", false},
        {"frmTierfallCustomScoring", Key::Enter, "txtTimeBonus", "cmdOK", false},
        {"frmTierfallCustomScoring", Key::Escape, "", "cmdCancel", false},
        {"frmTierfallCustomScoring", Key::Enter, "cmdDefault", "cmdDefault", true},
        {"frmSave", Key::Enter, "txtUserName", "cmdOK", true},  // "*.tfl" is no file name
        {"frmSave", Key::Enter, "", "txtGameName.KeyEnter", true},
        {"frmSave", Key::Escape, "txtGameName", "cmdCancel", false},
        {"frmOpen", Key::Enter, "txtGameName", "txtGameName.KeyEnter", true},
        {"frmOpen", Key::Enter, "File1", "cmdOK", true},  // "*.tfl" names no file yet
        {"frmOpen", Key::Escape, "", "cmdCancel", false},
        {"frmComposeHighScore", Key::Enter, "", "cmdSubmit", true},  // below the minimum
        {"frmComposeHighScore", Key::Enter, "txtOther", "", true},   // a new line
        {"frmComposeHighScore", Key::Escape, "txtOther", "cmdCancel", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.dialog) + " " + keyName(c.key) + " " + c.focus);
        TestProgram t;
        t.openGame("frmTierfall");
        t.prog.state.UserName = "Alice";
        std::string reached, byKey;
        bool open = false;
        openDialog(t, c.dialog, [&](Form& f) {
            for (const auto& control : f.controls()) {
                const std::string name = control->name();
                if (auto was = control->Click)
                    control->Click = [&reached, was, name] { reached = name, was(); };
                if (auto was = control->KeyEnter)
                    control->KeyEnter = [&reached, was, name] {
                        reached = name + ".KeyEnter", was();
                    };
            }
            if (*c.focus) {
                ASSERT_TRUE(userFocus(*f.find(c.focus)));
            }
            t.fake.queueAnswer(MsgResult::OK);
            std::string why;
            EXPECT_TRUE(userKey(f, c.key, &why)) << why;
            byKey = reached;
            open = f.visible();
            if (open)
                t.prog.requestUnload(f);
        });
        EXPECT_EQ(byKey, c.reached);
        EXPECT_EQ(open, c.staysOpen);
        EXPECT_EQ(t.fake.takeErrors(), std::vector<std::string>{});
    }
}

TEST(Keys, EnterPressesTheFocusedButtonAndAFormWithoutButtonsRefusesTheKeys) {
    TestProgram t;
    std::string why;
    // The selector has no default or cancel button: only a focused button takes Enter.
    EXPECT_FALSE(userKey(t.select, Key::Escape, &why));
    EXPECT_EQ(why, "frmSelect has no cancel button");
    // It opens with the focus on the first game; Tab goes on to the next and back again.
    Control& tierfall = t.control("frmSelect", "cmdTierfall");
    EXPECT_EQ(t.select.activeControl(), &tierfall);
    ASSERT_TRUE(userKey(t.select, Key::Tab, &why)) << why;
    EXPECT_EQ(t.select.activeControl(), &t.control("frmSelect", "cmdFivestack"));
    ASSERT_TRUE(userKey(t.select, Key::BackTab, &why)) << why;
    ASSERT_TRUE(userKey(t.select, Key::Enter, &why)) << why;
    EXPECT_TRUE(t.form("frmTierfall").visible());
    // The selector is hidden now: its keys are refused.
    EXPECT_FALSE(userKey(t.select, Key::Enter, &why));
    EXPECT_EQ(why, "frmSelect is not shown");
}

}  // namespace corvanna
