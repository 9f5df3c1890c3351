// The about box: its caption, the play count kept across runs, the session minutes.

#include <gtest/gtest.h>

#include "common/FileStore.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {
// What the about box of the game on show says of its plays and of this session.
std::string aboutStats(TestProgram& t, const std::string& gameForm) {
    std::string stats;
    t.fake.queueModal([&](Form& about) {
        stats = about.find("lblStats")->caption();
        EXPECT_EQ(about.find("cmdCoolDude")->caption(), "&Cool Dude");
        t.click("frmAbout", "cmdCoolDude");
    });
    t.click(gameForm, "mnuAbout");
    return stats;
}

std::string stats(const std::string& title, int plays, int minutes) {
    return "You have played " + title + " " + std::to_string(plays) +
           " times.This session has lasted " + std::to_string(minutes) +
           " minutes.Thanks for playing!";
}

void leave(TestProgram& t, const std::string& gameForm, const std::string& exitButton) {
    t.fake.queueAnswer(MsgResult::Yes);
    t.click(gameForm, exitButton);
}
}  // namespace

TEST(About, CountsEachOpeningAndTheMinutesOfThisForm) {
    QTemporaryDir dir;
    const std::string data = dir.path().toStdString();
    {
        TestProgram t(1, data);
        t.openGame("frmLettermine");
        EXPECT_EQ(aboutStats(t, "frmLettermine"),
                  "You have played Lettermine! 1 times.This session has lasted 0 minutes.Thanks "
                  "for playing!");
        // 61 seconds from 9:00:00 crosses one minute boundary.
        t.fake.advance(61000);
        EXPECT_EQ(aboutStats(t, "frmLettermine"), stats("Lettermine!", 1, 1));
        leave(t, "frmLettermine", "cmdExit");
        // Loaded at 9:01:59, one second on is another minute.
        t.fake.advance(58000);
        t.openGame("frmLettermine");
        EXPECT_EQ(aboutStats(t, "frmLettermine"), stats("Lettermine!", 2, 0));
        t.fake.advance(1000);
        EXPECT_EQ(aboutStats(t, "frmLettermine"), stats("Lettermine!", 2, 1));
        leave(t, "frmLettermine", "cmdExit");
        // Another game counts on its own, and its session starts again at 0.
        t.openGame("frmColclear");
        EXPECT_EQ(aboutStats(t, "frmColclear"), stats("Colclear!", 1, 0));
        leave(t, "frmColclear", "cmdQuit");
        t.openGame("frmLettermine");
        EXPECT_EQ(aboutStats(t, "frmLettermine"), stats("Lettermine!", 3, 0));
    }
    // The counts live across runs of the program.
    TestProgram again(1, data);
    again.openGame("frmLettermine");
    EXPECT_EQ(aboutStats(again, "frmLettermine"), stats("Lettermine!", 4, 0));
    EXPECT_EQ(again.file("Played.ini"), "[Colclear!]\r\n1\r\n\r\n[Lettermine!]\r\n4\r\n\r\n");
    EXPECT_TRUE(again.fake.takeErrors().empty());
}

TEST(About, DamagedPlayCountsAreKeptAsideAndWhatCouldBeReadGoesOn) {
    QTemporaryDir dir;
    const std::string data = dir.path().toStdString();
    const std::string damaged =
        "[Tierfall!]\r\nlots\r\n[Wildslot!]\r\n-4\r\n[Gridflush!]\r\n32767\r\n\x01\x02";
    ASSERT_TRUE(writeFileAtomic(data + "/Played.ini", damaged));
    TestProgram t(1, data);
    t.openGame("frmTierfall");
    EXPECT_EQ(t.prog.state.GamesPlayedCount, 1);
    ASSERT_EQ(t.fake.messages().size(), 1u);
    EXPECT_EQ(t.fake.messages()[0],
              "The count of games played in '" + data +
                  "/Played.ini' is damaged: the count of [Tierfall!] is not a number of games. "
                  "The counts that could be read go on. The old file is kept as '" +
                  data + "/Played.ini.bad'.");
    EXPECT_EQ(t.file("Played.ini.bad"), damaged);
    leave(t, "frmTierfall", "cmdExit");
    t.openGame("frmGridflush");
    EXPECT_EQ(t.prog.state.GamesPlayedCount, 32767);  // held at the largest 16-bit count
    EXPECT_EQ(t.fake.messages().size(), 2u);          // and the question on leaving
    EXPECT_EQ(t.file("Played.ini"),
              "[Gridflush!]\r\n32767\r\n\r\n[Tierfall!]\r\n1\r\n\r\n[Wildslot!]\r\n0\r\n\r\n");
}

}  // namespace corvanna
