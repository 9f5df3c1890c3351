// High score tables: ranking, the eleventh row, custom scoring marks, damaged and missing
// tables, the reader's rules, and the date format under another locale; and the name dialog
// of a new entry: its texts, the name it offers, the comma refusal and the empty name.

#include <gtest/gtest.h>

#include <QLocale>
#include <algorithm>
#include <clocale>
#include <filesystem>
#include <fstream>

#include "common/FileStore.h"
#include "forms/Input.h"
#include "scores/HighScores.h"
#include "scores/frmHiScoreName.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

const std::string kSeedRow = "Velmora, 50000, Jan 01 2000 12:00 am\r\n";
// The fake clock starts on Nov 23 2026 at 9:00.
const std::string kNow = "Nov 23 2026 09:00 am";
const std::string kFivestack("Fivestack Hi Score Table ");

std::string repeat(const std::string& row, int n) {
    std::string s;
    for (int i = 0; i < n; ++i)
        s += row;
    return s;
}

std::string row(const std::string& name, std::int64_t score,
                const std::string& date = "Nov 05 2001 09:07 pm") {
    return name + ", " + std::to_string(score) + ", " + date + "\r\n";
}

// A table of ten rows whose scores fall from 100000 by 10000 (rows 1..10).
std::string fallingTable() {
    std::string s;
    for (int i = 0; i < 10; ++i)
        s += row("P" + std::to_string(i + 1), 100000 - 10000 * i);
    return s;
}

void writeRaw(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::string readRaw(const std::string& path) {
    std::string s;
    readWholeFile(path, s, nullptr, 1 << 24);
    return s;
}

// A program with Fivestack's title and the name dialog answered with name when it shows.
struct Table {
    TestProgram t;
    std::string path;
    int tableShown = 0;
    int namesAsked = 0;

    Table() {
        t.prog.state.AppTitle = "Fivestack!";
        t.prog.state.RoundSeconds = 60;
        path = HighScoreFilePath(t.prog, kFivestack);
        t.fake.takeLog();
        answerNames();
    }
    // Every message box had its answer and every dialog its script.
    ~Table() { EXPECT_TRUE(t.fake.takeErrors().empty()); }
    // A failure is told in a message box with OK.
    void expectMessages(int n) {
        for (int i = 0; i < n; ++i)
            t.fake.queueAnswer(MsgResult::OK);
    }
    std::string nextName = "Ann";

    // The name dialog, whenever it shows, takes nextName.
    void answerNames() {
        t.fake.modalRunner = [this](Form& f) {
            ++namesAsked;
            EXPECT_EQ(f.name(), "frmHiScoreName");
            dynamic_cast<TextBox&>(*f.find("txtPlayerName")).setText(nextName);
            t.click("frmHiScoreName", "cmdOK");
        };
    }
    bool rank(std::int32_t score, const std::string& name = "Ann") {
        t.prog.state.Score = score;
        nextName = name;
        return UpdateHighScoreTable(t.prog, kFivestack, [this] { ++tableShown; });
    }
};

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

TEST(HighScoreRanking, EqualScoreStaysOutAndAHigherOneTopsTheSeededTable) {
    Table tb;
    ASSERT_TRUE(CreateHighScoreTable(tb.t.prog, kFivestack, 50000));
    ASSERT_TRUE(tb.rank(50000));
    EXPECT_EQ(tb.namesAsked, 0);
    EXPECT_EQ(tb.tableShown, 0);
    EXPECT_EQ(tb.t.prog.state.NewHighScoreRow, -1);
    EXPECT_EQ(readRaw(tb.path), repeat(kSeedRow, 10));
    EXPECT_TRUE(tb.t.fake.takeLog().empty());

    ASSERT_TRUE(tb.rank(50001, "Ann"));
    EXPECT_EQ(tb.namesAsked, 1);
    EXPECT_EQ(tb.tableShown, 1);
    EXPECT_EQ(tb.t.prog.state.NewHighScoreRow, 0);
    EXPECT_EQ(tb.t.prog.state.UserName, "Ann");
    // The last seed row has left the file.
    EXPECT_EQ(readRaw(tb.path), row("Ann", 50001, kNow) + repeat(kSeedRow, 9));
    EXPECT_EQ(tb.t.fake.takeLog().at(0), "sound HighScore.wav");
}

TEST(HighScoreRanking, TiesGoBelowEqualScoresAndSoundFollowsSoundsOn) {
    Table tb;
    const std::string head = row("A", 90000) + row("B", 80000) + row("C", 70000) + row("D", 70000);
    std::string rest;
    for (int i = 0; i < 6; ++i)
        rest += row("E" + std::to_string(i), 60000 - i * 1000);
    writeRaw(tb.path, head + rest);
    tb.t.prog.state.SoundsOn = false;
    ASSERT_TRUE(tb.rank(70000, "Tie"));
    EXPECT_EQ(tb.t.prog.state.NewHighScoreRow, 4);
    EXPECT_EQ(readRaw(tb.path), head + row("Tie", 70000, kNow) +
                                    rest.substr(0, rest.size() - row("E5", 55000).size()));
    EXPECT_EQ(only(tb.t.fake.takeLog(), {"sound"}), std::vector<std::string>{});
}

TEST(HighScoreRanking, LastPlaceLeavesElevenRowsUntilTheNextRewrite) {
    Table tb;
    writeRaw(tb.path, fallingTable());
    // 15000 beats only the tenth row (10000).
    ASSERT_TRUE(tb.rank(15000, "Last"));
    EXPECT_EQ(tb.t.prog.state.NewHighScoreRow, 9);
    const std::string eleven =
        fallingTable().substr(0, fallingTable().size() - row("P10", 10000).size()) +
        row("Last", 15000, kNow) + row("P10", 10000);
    EXPECT_EQ(readRaw(tb.path), eleven);

    // A game that does not enter cuts the file back to ten rows, and asks for no name.
    ASSERT_TRUE(tb.rank(100, "Nobody"));
    EXPECT_EQ(tb.namesAsked, 1);
    EXPECT_EQ(tb.t.prog.state.NewHighScoreRow, -1);
    const std::string ten = eleven.substr(0, eleven.size() - row("P10", 10000).size());
    EXPECT_EQ(readRaw(tb.path), ten);

    // So does one that enters: again ten rows, the new one in its place.
    writeRaw(tb.path, eleven);
    ASSERT_TRUE(tb.rank(95000, "Top"));
    const std::string p1 = row("P1", 100000);
    EXPECT_EQ(readRaw(tb.path),
              p1 + row("Top", 95000, kNow) +
                  ten.substr(p1.size(), ten.size() - p1.size() - row("Last", 15000, kNow).size()));
}

TEST(HighScoreRanking, CustomScoringMarksTheRowAndTheMarkStays) {
    Table tb;
    ASSERT_TRUE(CreateHighScoreTable(tb.t.prog, kFivestack, 50000));
    tb.t.prog.state.CustomScoring = true;
    ASSERT_TRUE(tb.rank(60000, "Cus"));
    EXPECT_EQ(readRaw(tb.path), row("Cus*", 60000, kNow) + repeat(kSeedRow, 9));

    tb.t.prog.state.CustomScoring = false;
    tb.t.fake.advance(13 * 3600 * 1000 + 5 * 60 * 1000);  // 22:05 the same day
    ASSERT_TRUE(tb.rank(70000, "Std"));
    EXPECT_EQ(readRaw(tb.path), row("Std", 70000, "Nov 23 2026 10:05 pm") +
                                    row("Cus*", 60000, kNow) + repeat(kSeedRow, 8));
}

TEST(HighScoreDamage, ADamagedTableIsReportedAndKeptByteForByte) {
    const std::string good = fallingTable();
    struct Case {
        const char* what;
        std::string bytes;
        std::string reason;
    };
    const std::string binary = "\177ELF\2\1\1" + std::string("\0\0\0,\x03\0>\0\r\n", 11);
    const std::string fiveRows = good.substr(0, 5 * row("P1", 100000).size() - 5);
    const std::vector<Case> cases = {
        {"cut in a name", fiveRows + "\r\nP6", "row 6 has no score"},
        {"non-numeric score",
         row("A", 90000) + "B, 8O000, Nov 05 2001 09:07 pm\r\n" +
             good.substr(2 * row("A", 90000).size()),
         "row 2 has a score that is not a number (\"8O000\")"},
        {"binary junk", binary, "row 1"},
        {"over 1 MiB", good + std::string(1 << 20, 'x'),
         "it is larger than 1 MiB (" + std::to_string(good.size() + (1 << 20)) + " bytes)"},
        {"empty", "", "it holds no rows"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Table tb;
        writeRaw(tb.path, c.bytes);
        tb.expectMessages(2);
        // Above every row: a good table would have asked for a name.
        EXPECT_FALSE(tb.rank(999999, "Lost"));
        EXPECT_EQ(tb.namesAsked, 0);
        EXPECT_EQ(tb.tableShown, 0);
        EXPECT_EQ(tb.t.prog.state.NewHighScoreRow, -1);
        EXPECT_EQ(readRaw(tb.path), c.bytes);
        ASSERT_EQ(tb.t.fake.messages().size(), 1u);
        const std::string msg = tb.t.fake.messages()[0];
        EXPECT_EQ(msg.rfind("Your score of 999,999 could not be ranked in the high score table \"" +
                                tb.path + "\": ",
                            0),
                  0u)
            << msg;
        EXPECT_NE(msg.find(c.reason), std::string::npos) << msg;
        EXPECT_NE(msg.find("left as it is"), std::string::npos) << msg;

        // The label, told already, says nothing more, never seeds over it, and shows no
        // score that another table left on it.
        Form board(tb.t.fake, "frmBoard");
        Control& label = board.add<Control>(ControlKind::Label, "lblHighScore", -1, nullptr);
        label.setCaption("High Score: 1");
        EXPECT_FALSE(ShowHighScoreLabel(tb.t.prog, kFivestack, label, "High Score: ", 50000));
        EXPECT_EQ(label.caption(), "High Score: ");
        EXPECT_EQ(readRaw(tb.path), c.bytes);
        EXPECT_EQ(tb.t.fake.messages().size(), 1u);
        const auto log = tb.t.fake.takeLog();
        EXPECT_NE(log.back().find("| none |"), std::string::npos) << log.back();
        EXPECT_NE(log.back().find("msgbox Fivestack! |"), std::string::npos) << log.back();
        // The next game over says it again, once.
        EXPECT_FALSE(tb.rank(999999, "Lost"));
        EXPECT_EQ(tb.t.fake.messages().size(), 2u);
    }
}

TEST(HighScoreDamage, ATableRemovedDuringAGameIsNotCreatedByTheRanking) {
    Table tb;
    GameFrame& five = tb.t.openGame("frmFivestack");
    ASSERT_TRUE(ShowHighScoreLabel(tb.t.prog, kFivestack, five, 50000));
    std::filesystem::remove(tb.path);
    tb.expectMessages(1);
    EXPECT_FALSE(tb.rank(60000, "Gone"));
    EXPECT_FALSE(fileExists(tb.path));
    EXPECT_EQ(tb.namesAsked, 0);
    ASSERT_EQ(tb.t.fake.messages().size(), 1u);
    EXPECT_EQ(tb.t.fake.messages()[0],
              "Your score of 60,000 could not be ranked in the high score table \"" + tb.path +
                  "\": it does not exist.");
    // The label that follows the game over makes a fresh one.
    ASSERT_TRUE(ShowHighScoreLabel(tb.t.prog, kFivestack, five, 50000));
    EXPECT_EQ(readRaw(tb.path), repeat(kSeedRow, 10));
}

TEST(HighScoreDates, EnglishMonthsAndLowerCaseAmPmWhateverTheLocale) {
    const std::string oldC = std::setlocale(LC_ALL, nullptr);
    const QLocale oldQ;
    std::setlocale(LC_ALL, "de_DE.UTF-8");  // may be missing; QLocale below is always there
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));

    EXPECT_EQ(formatHighScoreDate({2001, 11, 5, 21, 7, 0, 0}), "Nov 05 2001 09:07 pm");
    EXPECT_EQ(formatHighScoreDate({2001, 3, 9, 0, 0, 0, 0}), "Mar 09 2001 12:00 am");
    EXPECT_EQ(formatHighScoreDate({2001, 12, 31, 12, 59, 0, 0}), "Dec 31 2001 12:59 pm");
    EXPECT_EQ(formatHighScoreDate({2001, 5, 1, 11, 30, 0, 0}), "May 01 2001 11:30 am");

    // The same through a whole entry on the fake clock.
    Table tb;
    ASSERT_TRUE(CreateHighScoreTable(tb.t.prog, kFivestack, 50000));
    ASSERT_TRUE(tb.rank(51000, "Jörg"));
    EXPECT_EQ(readRaw(tb.path), row("Jörg", 51000, "Nov 23 2026 09:00 am") + repeat(kSeedRow, 9));

    QLocale::setDefault(oldQ);
    std::setlocale(LC_ALL, oldC.c_str());
}

TEST(HighScoreReader, ReadsByFieldsWithBlanksSkippedAndStopsAtTenRows) {
    std::vector<HighScoreRow> rows;
    std::string text = "  Spaced Name ,   42, Jan 02 2003 01:04 pm\n";  // LF alone is a line end
    for (int i = 0; i < 9; ++i)
        text += kSeedRow;
    text += "\r\n";  // the one further empty line
    text += "junk that is never read \x01\x02";
    ASSERT_TRUE(parseHighScoreRows(text, rows, nullptr));
    ASSERT_EQ(rows.size(), 10u);
    EXPECT_EQ(rows[0].name, "Spaced Name ");
    EXPECT_EQ(rows[0].score, 42);
    EXPECT_EQ(rows[0].date, "Jan 02 2003 01:04 pm");
    EXPECT_EQ(rows[9].name, "Velmora");

    std::string error;
    EXPECT_FALSE(parseHighScoreRows("A, 1, Jan 02 2003 01:04 pm, extra\r\n", rows, &error));
    EXPECT_EQ(error, "row 1 has more than three fields");
    EXPECT_FALSE(
        parseHighScoreRows("A, 99999999999999999999, Jan 02 2003 01:04 pm\r\n", rows, &error));
    EXPECT_NE(error.find("not a number"), std::string::npos);
}

TEST(HighScoreReader, AnyDateAndAShortTableAreReadAsTheyStandAndRankAmongTheirRows) {
    // A date written by hand is text; three rows are a table of three.
    const std::string three = row("Ann", 90000, "Mar 03 2001 9:15 pm") + row("Bob", 70000, "") +
                              row("Cy", 50000, "sometime") + "\r\n";
    Table tb;
    writeRaw(tb.path, three);
    Form board(tb.t.fake, "frmBoard");
    Control& label = board.add<Control>(ControlKind::Label, "lblHighScore", -1, nullptr);
    EXPECT_TRUE(ShowHighScoreLabel(tb.t.prog, kFivestack, label, "High Score: ", 50000));
    EXPECT_EQ(label.caption(), "High Score: 90,000");
    EXPECT_EQ(readRaw(tb.path), three);

    EXPECT_TRUE(tb.rank(40000));  // below every row: not entered, the three rewritten
    EXPECT_EQ(tb.namesAsked, 0);
    EXPECT_EQ(readRaw(tb.path), three.substr(0, three.size() - 2));
    EXPECT_TRUE(tb.rank(80000, "Di"));  // between Ann and Bob
    EXPECT_EQ(tb.t.prog.state.NewHighScoreRow, 1);
    EXPECT_EQ(readRaw(tb.path), row("Ann", 90000, "Mar 03 2001 9:15 pm") + row("Di", 80000, kNow) +
                                    row("Bob", 70000, "") + row("Cy", 50000, "sometime"));
    EXPECT_TRUE(tb.t.fake.messages().empty());
}

TEST(HighScoreDamage, OnlyTheSelectedTableIsReadAtLoadAndADamagedOneIsNamedOnce) {
    TestProgram t;
    // The default time limit's table is damaged; the settings choose 30 seconds.
    writeRaw(t.prog.filePath("Spirefold Hi Score Table 45.Txt"), "junk");
    writeRaw(t.prog.filePath("Spirefold.Ini"), "[Time]\r\n30\r\n\r\n");
    GameFrame& f = t.openGame("frmSpirefold");
    EXPECT_TRUE(t.fake.messages().empty());
    EXPECT_EQ(f.lblHighScore.caption(), "Current High Score: 30,000");
    EXPECT_EQ(readRaw(t.prog.filePath("Spirefold Hi Score Table 45.Txt")), "junk");

    // Chosen from the menu, it is named once, whatever shows it again; its label has no score.
    t.fake.queueAnswer(MsgResult::OK);
    t.click("frmSpirefold", "mnu45");
    t.click("frmSpirefold", "mnu30");
    t.click("frmSpirefold", "mnu45");
    ASSERT_EQ(t.fake.messages().size(), 1u);
    EXPECT_NE(t.fake.messages()[0].find("Spirefold Hi Score Table 45.Txt"), std::string::npos);
    EXPECT_EQ(f.lblHighScore.caption(), "Current High Score: ");

    EXPECT_TRUE(t.fake.takeErrors().empty());
}

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
        EXPECT_EQ(f.activeControl(), &nameBox(f));
        // Centred on the screen.
        EXPECT_EQ(f.left(), (d.t.fake.screenWidthTwips() - f.width()) / 2);
        EXPECT_EQ(f.top(), (d.t.fake.screenHeightTwips() - f.height()) / 2);
        d.t.click("frmHiScoreName", "cmdOK");
    });
    EXPECT_EQ(d.t.prog.state.UserName, "Marta Quill");
    EXPECT_TRUE(d.t.fake.messages().empty());
}

TEST(NameDialog, PlaceholderNamesAreNotOfferedAndAreStoredAsUnknownUser) {
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
}

TEST(NameDialog, ACommaIsRefusedByOkAndTheCloseBoxWhichOtherwiseTakesTheName) {
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
        // Without a comma the close box takes the name as OK does.
        nameBox(f).setText("Ola Smith");
        EXPECT_TRUE(d.t.prog.requestUnload(f));
    });
    EXPECT_EQ(
        count(d.t.fake.takeLog(),
              "msgbox Wildslot! | critical | Sorry, you may not use commas in your name. -> OK"),
        2);
    EXPECT_EQ(d.t.prog.state.UserName, "Ola Smith");
}

TEST(NameDialog, AWholeEntryWritesTheNameTypedAfterARefusalAndALongNameWhole) {
    Dialog d("Gridflush!", "Velmora");
    d.t.prog.state.RoundSeconds = 120;
    const std::string table("Gridflush Hi Score Table ");
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
    const std::string path = d.t.prog.filePath("Gridflush Hi Score Table 120.Txt");
    EXPECT_EQ(readRaw(path), row("Unknown User", 31000, kNow) +
                                 repeat(row("Velmora", 30000, "Jan 01 2000 12:00 am"), 9));
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
    EXPECT_EQ(readRaw(path).rfind(row(name, 32000, kNow), 0), 0u);
}

}  // namespace corvanna
