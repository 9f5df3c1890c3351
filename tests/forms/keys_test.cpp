// Enter and Escape in every dialog of the program, Enter on a focused button, and the
// arrow-key cursor of keyboard play.

#include <gtest/gtest.h>

#include "forms/Input.h"
#include "games/tierfall/frmOpen.h"
#include "games/tierfall/frmSave.h"
#include "scores/frmHiScoreName.h"
#include "scores/frmHighScores.h"
#include "shell/frmAbout.h"
#include "testkit/TestProgram.h"
#include "virtual/FakePlatform.h"

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

// A board as the games lay theirs out: a row of cards a little out of line, a row that
// half covers it, a card in a frame, a column fanned downwards, a label and two buttons.
struct Board {
    FakePlatform fake;
    Form f{fake, "frmBoard"};
    std::string clicked;
    Board() {
        Control& frame = f.addControl(ControlKind::Frame, "fra");
        frame.move(5000, 0, 1500, 2500);
        struct Place {
            const char* name;
            int left, top;
            Control* in = nullptr;
        };
        for (const Place& p :
             {Place{"a0", 0, 0}, Place{"a1", 1200, 30}, Place{"a2", 2400, 0}, Place{"b0", 600, 700},
              Place{"b1", 1800, 700}, Place{"d0", 0, 1400}, Place{"c0", 4000, 1400},
              Place{"c1", 4000, 1750}, Place{"inFrame", 100, 700, &frame}}) {
            Control& c = f.addControl(ControlKind::Image, p.name, -1, p.in);
            c.move(p.left, p.top, 1000, 1400);
            c.Click = [this, n = std::string(p.name)] { clicked += n + " "; };
        }
        f.addControl(ControlKind::Label, "lblNote").move(3000, 0, 900, 300);  // no Click
        for (const Place& p : {Place{"cmdGo", 0, 3500}, Place{"cmdOff", 1500, 3500}}) {
            Control& c = f.addControl(ControlKind::CommandButton, p.name);
            c.move(p.left, p.top, 1200, 375);
            c.Click = [this, n = std::string(p.name)] { clicked += n + " "; };
        }
        f.find("cmdOff")->setEnabled(false);
        f.setVisibleFlag(true);
        f.setKeyboardPlay(true);
    }
    // The cursor after each key: "-" where the key was refused, "." where none is on show.
    std::string keys(std::initializer_list<Key> keys) {
        std::string trail;
        for (Key k : keys)
            trail += (trail.empty() ? "" : " ") + (!userKey(f, k)   ? "-"
                                                   : f.playCursor() ? f.property("PlayCursor")
                                                                    : ".");
        return trail;
    }
};

TEST(Keys, ArrowsMoveTheCursorInReadingOrderAndSpaceOrEnterClicks) {
    using enum Key;
    Board b;
    const struct {
        const char* start;  // where the cursor is put first, "" for nowhere yet
        std::initializer_list<Key> keys;
        const char* trail;
    } cases[] = {
        // Rows from the top, left to right; a fanned card is a row of its own; round the end.
        {"",
         {Right, Right, Right, Right, Right, Right, Right, Right, Right, Right, Right},
         "a0 a1 a2 b0 b1 inFrame d0 c0 c1 cmdGo a0"},
        {"", {Left, Left}, "cmdGo c1"},
        // Up and Down: the nearest in the row above or below; at the edge it stays.
        {"a2", {Down, Down, Down, Down, Down, Up}, "b1 d0 c1 cmdGo cmdGo c1"},
        {"c0", {Up, Up, Up}, "inFrame a2 a2"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.trail);
        b.f.setPlayCursor(b.f.find(c.start), *c.start);
        EXPECT_EQ(b.keys(c.keys), c.trail);
    }
    EXPECT_EQ(b.clicked, "");

    b.f.setPlayCursor(b.f.find("a0"), true);
    EXPECT_EQ(b.keys({Space, Down, Enter}), "a0 b0 b0");
    // A card that leaves with its click hands the cursor on to the next one; one the game
    // hides keeps its place for the next arrow.
    b.f.find("b1")->Click = [&] { b.f.find("b1")->setVisible(false); };
    EXPECT_EQ(b.keys({Right, Space, Left}), "b1 inFrame b0");
    b.f.setPlayCursor(b.f.find("c1"), true);
    b.f.find("c1")->setVisible(false);
    EXPECT_EQ(b.keys({Up, Left, Down}), "c0 d0 cmdGo");

    // The mouse puts the cursor out of sight: Space and Enter are the focused button's.
    ASSERT_TRUE(userClick(*b.f.find("cmdGo")));
    EXPECT_EQ(b.keys({Space, Enter}), ". .");
    EXPECT_EQ(b.clicked, "a0 b0 cmdGo cmdGo cmdGo ");
    EXPECT_EQ(b.keys({Up}), "d0");  // on from the button clicked
    ASSERT_TRUE(userKey(b.f, Tab));
    EXPECT_EQ(b.f.playCursor(), nullptr);

    // A text box with the focus, and a form without keyboard play, keep the arrows.
    std::string why;
    ASSERT_TRUE(userFocus(b.f.add<TextBox>("txtName", -1, nullptr)));
    EXPECT_FALSE(userKey(b.f, Down));
    b.f.setKeyboardPlay(false);
    ASSERT_TRUE(userClick(*b.f.find("cmdGo")));
    EXPECT_FALSE(userKey(b.f, Right, &why));
    EXPECT_EQ(why, "frmBoard has no keyboard play");
}

}  // namespace corvanna
