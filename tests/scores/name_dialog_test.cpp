// The name dialog of a new high score: its texts, the name it offers, the comma refusal
// and the empty name, alone and inside a whole entry.

#include <gtest/gtest.h>

#include "common/FileStore.h"
#include "forms/Input.h"
#include "scores/HighScores.h"
#include "scores/frmHiScoreName.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

TextBox& nameBox(Form& f) {
    return dynamic_cast<TextBox&>(*f.find("txtPlayerName"));
}

struct Dialog {
    TestProgram t;
    Dialog(const std::string& title = "Colclear!", const std::string& user = "Unknown User") {
        t.prog.state.AppTitle = title;
        t.prog.state.UserName = user;
        t.fake.takeLog();
    }
    // Shows the dialog; script runs while it is up and hands back the text it found.
    void run(const std::function<void(Form&)>& script) {
        t.fake.queueModal(script);
        AskHighScoreName(t.prog);
        EXPECT_EQ(t.prog.findForm("frmHiScoreName"), nullptr);
        EXPECT_TRUE(t.fake.takeErrors().empty());
    }
};

}  // namespace

TEST(NameDialog, ShowsTheInvitationWithTheTitleAndOffersTheUsersName) {
    Dialog d("Colclear!", "Marta Quill");
    d.run([&](Form& f) {
        EXPECT_EQ(f.caption(), "Colclear!");
        EXPECT_EQ(f.find("lblInfo")->caption(),
                  "Great score! Please enter your name so we can induct you into the Colclear! "
                  "Hall of Fame:");
        EXPECT_EQ(f.find("cmdOK")->caption(), "OK");
        EXPECT_EQ(nameBox(f).text(), "Marta Quill");
        // The whole name is selected, so typing replaces it.
        EXPECT_EQ(nameBox(f).selStart, 0);
        EXPECT_EQ(nameBox(f).selLength, 11);
        // Centred on the screen.
        EXPECT_EQ(f.left(), (d.t.fake.screenWidthTwips() - f.width()) / 2);
        EXPECT_EQ(f.top(), (d.t.fake.screenHeightTwips() - f.height()) / 2);
        d.t.click("frmHiScoreName", "cmdOK");
    });
    EXPECT_EQ(d.t.prog.state.UserName, "Marta Quill");
    EXPECT_TRUE(d.t.fake.messages().empty());
}

TEST(NameDialog, TheStoredNameHasTheFocusSelectedSoATypedNameReplacesIt) {
    Dialog d("Colclear!", "Alice");
    d.run([&](Form& f) {
        TextBox& box = nameBox(f);
        EXPECT_EQ(f.activeControl(), &box);
        EXPECT_EQ(box.property("SelText"), "Alice");
        ASSERT_TRUE(userType(box, "Bob"));
        EXPECT_EQ(box.text(), "Bob");
        // Tab to OK and back: the box selects what it holds again.
        ASSERT_TRUE(userKey(f, Key::Tab));
        ASSERT_TRUE(userKey(f, Key::BackTab));
        EXPECT_EQ(box.property("SelText"), "Bob");
        ASSERT_TRUE(userKey(f, Key::Enter));
    });
    EXPECT_EQ(d.t.prog.state.UserName, "Bob");
}

TEST(NameDialog, PlaceholderNamesAreNotOfferedAndAnEmptyNameIsUnknownUser) {
    for (const std::string placeholder : {"Velmora", "Unknown User"}) {
        SCOPED_TRACE(placeholder);
        Dialog d("Duomatch!", placeholder);
        d.run([&](Form& f) {
            EXPECT_EQ(nameBox(f).text(), "");
            EXPECT_EQ(nameBox(f).selLength, 0);
            d.t.click("frmHiScoreName", "cmdOK");
        });
        EXPECT_EQ(d.t.prog.state.UserName, "Unknown User");
    }
    // A name the player clears to nothing is stored as Unknown User too.
    Dialog d("Duomatch!", "Ola");
    d.run([&](Form& f) {
        nameBox(f).setText("");
        d.t.click("frmHiScoreName", "cmdOK");
    });
    EXPECT_EQ(d.t.prog.state.UserName, "Unknown User");
}

TEST(NameDialog, ACommaIsRefusedAndTheDialogStaysOpen) {
    Dialog d("Wildslot!", "Ola");
    d.t.fake.queueAnswer(MsgResult::OK);
    d.t.fake.queueAnswer(MsgResult::OK);
    d.run([&](Form& f) {
        nameBox(f).setText("Smith, Ola");
        d.t.click("frmHiScoreName", "cmdOK");
        EXPECT_TRUE(f.visible());
        EXPECT_NE(d.t.prog.findForm("frmHiScoreName"), nullptr);
        EXPECT_EQ(d.t.prog.state.UserName, "Ola");
        // The close box is refused the same way.
        EXPECT_FALSE(d.t.prog.requestUnload(f));
        nameBox(f).setText("Ola Smith");
        d.t.click("frmHiScoreName", "cmdOK");
    });
    const auto log = d.t.fake.takeLog();
    int refusals = 0;
    for (const auto& line : log)
        refusals +=
            line ==
            "msgbox Wildslot! | critical | Sorry, you may not use commas in your name. -> OK";
    EXPECT_EQ(refusals, 2);
    EXPECT_EQ(d.t.prog.state.UserName, "Ola Smith");
}

TEST(NameDialog, TheCloseBoxTakesTheNameAsOkDoes) {
    Dialog d("Hitspree!", "Ola");
    d.run([&](Form& f) {
        nameBox(f).setText("Kim");
        EXPECT_TRUE(d.t.prog.requestUnload(f));
    });
    EXPECT_EQ(d.t.prog.state.UserName, "Kim");
}

TEST(NameDialog, AWholeEntryWritesTheNameTypedAfterARefusalAndALongNameWhole) {
    Dialog d("Gridflush!", "Velmora");
    d.t.prog.state.RoundSeconds = 120;
    const std::string table(GridflushHiScoreTable);
    ASSERT_TRUE(CreateHighScoreTable(d.t.prog, table, 30000));
    d.t.prog.state.Score = 31000;
    d.t.fake.queueAnswer(MsgResult::OK);
    d.t.fake.queueModal([&](Form& f) {
        EXPECT_EQ(nameBox(f).text(), "");
        nameBox(f).setText("a,b");
        d.t.click("frmHiScoreName", "cmdOK");
        nameBox(f).setText("");
        d.t.click("frmHiScoreName", "cmdOK");
    });
    bool shown = false;
    ASSERT_TRUE(UpdateHighScoreTable(d.t.prog, table, [&] { shown = true; }));
    EXPECT_TRUE(shown);
    std::string bytes;
    readWholeFile(d.t.prog.filePath("Gridflush Hi Score Table 120.Txt"), bytes);
    std::string want = "Unknown User, 31000, Nov 23 2026 09:00 am\r\n";
    for (int i = 0; i < 9; ++i)
        want += "Velmora, 30000, Jan 01 2000 12:00 am\r\n";
    EXPECT_EQ(bytes, want);
    EXPECT_TRUE(d.t.fake.takeErrors().empty());
    EXPECT_EQ(d.t.fake.messages(),
              std::vector<std::string>{"Sorry, you may not use commas in your name."});

    // A hundred characters go into the table whole: only a list that shows them cuts them.
    std::string name;
    for (int i = 0; i < 10; ++i)
        name += "Velmorian" + std::to_string(i);
    d.t.prog.state.Score = 32000;
    d.t.fake.queueModal([&](Form& f) {
        ASSERT_TRUE(userType(nameBox(f), name));
        d.t.click("frmHiScoreName", "cmdOK");
    });
    ASSERT_TRUE(UpdateHighScoreTable(d.t.prog, table, [] {}));
    readWholeFile(d.t.prog.filePath("Gridflush Hi Score Table 120.Txt"), bytes);
    EXPECT_EQ(bytes.substr(0, bytes.find("\r\n")), name + ", 32000, Nov 23 2026 09:00 am");
}

}  // namespace corvanna
