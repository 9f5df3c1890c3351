// Each game's settings file: written at first start, read at load, written on leaving,
// and what a damaged or hand-edited file does.

#include <gtest/gtest.h>

#include <QDir>
#include <algorithm>
#include <filesystem>

#include "common/FileStore.h"
#include "games/GameRegistry.h"
#include "games/lettermine/LettermineValues.h"
#include "games/lettermine/PhraseSupply.h"
#include "testkit/TestProgram.h"

namespace corvanna {

TEST(SettingsFile, FirstStartWritesTheDefaultsInTheGamesOrder) {
    TestProgram t;
    t.openGame("frmWildslot");
    EXPECT_EQ(
        t.file("Wildslot.Ini"),
        "[Play Sounds]\r\nTrue\r\n\r\n[Play Music]\r\nFalse\r\n\r\n[Deck]\r\n1\r\n\r\n"
        "[Bonus Score]\r\n5000000\r\n\r\n[Time Bonus]\r\n100\r\n\r\n[Count Down]\r\nTrue\r\n\r\n"
        "[Time]\r\n90\r\n\r\n[Width]\r\n9540\r\n\r\n[Height]\r\n7305\r\n\r\n");
    t.leaveGame("frmWildslot");
    t.openGame("frmHitspree");
    // Hitspree keeps its time under its own key and has no time bonus key.
    const std::string hit = t.file("Hitspree.Ini");
    EXPECT_NE(hit.find("[Time Limit]\r\n90\r\n"), std::string::npos);
    EXPECT_EQ(hit.find("[Time]"), std::string::npos);
    EXPECT_EQ(hit.find("[Time Bonus]"), std::string::npos);
    EXPECT_NE(hit.find("[Deck]\r\n3\r\n"), std::string::npos);
    EXPECT_NE(hit.find("[State]\r\n0\r\n\r\n[Width]\r\n9060\r\n\r\n[Height]\r\n7155\r\n\r\n"),
              std::string::npos);
    EXPECT_TRUE(t.fake.messages().size() == 1);  // only the question on leaving
}

TEST(SettingsFile, EveryGameKeepsItsChoicesAcrossACloseAndReopen) {
    QTemporaryDir dir;
    const std::string data = dir.path().toStdString();
    for (const GameInfo& game : allGames()) {
        SCOPED_TRACE(game.formName);
        const TimeLimitEntry& lastLimit = game.timeLimits.back();
        {
            TestProgram t(1, data);
            GameFrame& f = t.openGame(game.formName);
            t.click(game.formName, "mnu" + std::to_string(lastLimit.seconds));
            t.click(game.formName, "mnuMusic");
            t.click(game.formName, "mnuSounds");
            if (f.mnuDeck)
                t.click(game.formName, "mnuNight");
            f.setSize(game.minWidth + 1500, game.minHeight + 600);
            t.leaveGame(f.name());
        }
        TestProgram t(1, data);
        GameFrame& f = t.openGame(game.formName);
        auto& g = t.prog.state;
        EXPECT_EQ(g.RoundSeconds, lastLimit.seconds);
        EXPECT_TRUE(t.control(game.formName, "mnu" + std::to_string(lastLimit.seconds)).checked());
        EXPECT_TRUE(g.MusicOn);
        EXPECT_TRUE(f.mnuMusic.checked());
        EXPECT_FALSE(g.SoundsOn);
        EXPECT_FALSE(f.mnuSounds.checked());
        if (f.mnuDeck) {
            EXPECT_TRUE(f.mnuNight->checked());
            EXPECT_EQ(t.prog.pictures.picture("BACK"), "night-back");
        }
        EXPECT_EQ(f.width(), game.minWidth + 1500);
        EXPECT_EQ(f.height(), game.minHeight + 600);
        EXPECT_TRUE(t.fake.takeErrors().empty());
    }
}

TEST(SettingsFile, HandEditedValuesFollowTheReadingRules) {
    TestProgram t;
    // Keys out of order, "true" in lower case, a time off the menu, a deck that is no
    // design, text where a number belongs, a key twice (the last wins), a stray line.
    ASSERT_TRUE(
        writeFileAtomic(t.prog.filePath("Spirefold.Ini"),
                        "[Deck]\r\n5\r\n\r\n[Time]\r\n50\r\n\r\n[Play Sounds]\r\ntrue\r\n\r\n"
                        "garbage line\r\n[Bonus Score]\r\nlots\r\n\r\n[Time Bonus]\r\n250\r\n\r\n"
                        "[Time Bonus]\r\n300\r\n\r\n[Play Music]\r\nTrue\r\n"));
    t.prog.pictures.selectDesign(4);
    GameFrame& f = t.openGame("frmSpirefold");
    auto& g = t.prog.state;
    EXPECT_EQ(g.RoundSeconds, 45);  // 50 is no entry: the default and its check stay
    EXPECT_TRUE(t.control("frmSpirefold", "mnu45").checked());
    EXPECT_FALSE(g.SoundsOn);  // only "True" is true
    EXPECT_FALSE(f.mnuSounds.checked());
    EXPECT_TRUE(g.MusicOn);
    EXPECT_EQ(g.BonusRoundScore, 40000);  // text keeps the default
    EXPECT_EQ(g.TimeBonus, 300);
    // "5" is no design: the back stays the one on show, Hot Cards from the game before.
    EXPECT_EQ(g.DeckBack, 1);
    EXPECT_EQ(t.prog.pictures.picture("BACK"), "hot-back");
    EXPECT_TRUE(f.mnuHot->checked());
    EXPECT_FALSE(f.mnuPalm->checked());
    EXPECT_TRUE(t.fake.messages().empty());  // a bad value is no reason for a message

    // An empty file leaves every default in force and is replaced by a full one on leaving.
    t.leaveGame(f.name());
    EXPECT_TRUE(fileExists(t.prog.filePath("Spirefold.Ini.bad")));  // the hand-edited one, kept
    ASSERT_TRUE(writeFileAtomic(t.prog.filePath("Duomatch.Ini"), ""));
    t.openGame("frmDuomatch");
    EXPECT_EQ(g.RoundSeconds, 45);
    EXPECT_EQ(g.BonusRoundScore, 80000);
    t.leaveGame("frmDuomatch");
    const std::string duo = t.file("Duomatch.Ini");
    EXPECT_EQ(duo.rfind("[Play Music]\r\nFalse\r\n\r\n[Time]\r\n45\r\n", 0), 0u);
    // Play Music stands twice in this game's file.
    EXPECT_EQ(std::count(duo.begin(), duo.end(), '['), 11);
    EXPECT_NE(duo.find("[Play Sounds]\r\nTrue\r\n\r\n[Play Music]\r\nFalse\r\n"),
              std::string::npos);
}

TEST(SettingsFile, MaximisedWindowComesBackMaximisedAndRestoresToTheTableSize) {
    QTemporaryDir dir;
    const std::string data = dir.path().toStdString();
    {
        TestProgram t(1, data);
        GameFrame& f = t.openGame("frmGridflush");
        f.setSize(12000, 9000);
        f.setWindowState(WindowState::Maximized);
        t.leaveGame(f.name());
        const std::string text = t.file("Gridflush.Ini");
        EXPECT_NE(text.find("[State]\r\n2\r\n\r\n[Width]\r\n9570\r\n\r\n[Height]\r\n7200\r\n"),
                  std::string::npos);
    }
    TestProgram t(1, data);
    GameFrame& f = t.openGame("frmGridflush");
    EXPECT_EQ(f.windowState(), WindowState::Maximized);
    f.setWindowState(WindowState::Normal);
    // The size keys stand after State 2 and are passed over: the window restores to the
    // game's own size.
    EXPECT_EQ(f.width(), 9540);
    EXPECT_EQ(f.height(), 7305);
    t.leaveGame(f.name());
    // Width and height ahead of State: read while not maximised, so they take effect.
    ASSERT_TRUE(
        writeFileAtomic(t.prog.filePath("Colclear.Ini"),
                        "[Width]\r\n11000\r\n\r\n[Height]\r\n8000.6\r\n\r\n[State]\r\n2\r\n\r\n"));
    GameFrame& c = t.openGame("frmColclear");
    EXPECT_EQ(c.windowState(), WindowState::Maximized);
    c.setWindowState(WindowState::Normal);
    EXPECT_EQ(c.width(), 11000);
    EXPECT_EQ(c.height(), 8001);
}

TEST(SettingsFile, DamagedFileIsNamedKeptAsideAndReplacedOnLeaving) {
    TestProgram t;
    const std::string path = t.prog.filePath("Lettermine.Ini");
    const std::string junk = std::string("[Time]\r\n60\r\n\0\x01\x02\xff binary", 20);
    ASSERT_TRUE(writeFileAtomic(path, junk));
    t.fake.queueAnswer(MsgResult::OK);
    GameFrame& f = t.openGame("frmLettermine");
    ASSERT_EQ(t.fake.messages().size(), 1u);
    EXPECT_NE(t.fake.messages()[0].find(path), std::string::npos);
    EXPECT_EQ(t.prog.state.RoundSeconds, 45);   // nothing of a damaged file is taken
    EXPECT_EQ(t.file("Lettermine.Ini"), junk);  // untouched until the user leaves
    t.leaveGame(f.name());
    EXPECT_EQ(t.file("Lettermine.Ini.bad"), junk);
    EXPECT_EQ(t.file("Lettermine.Ini").rfind("[Play Music]\r\nFalse\r\n", 0), 0u);

    // A huge file is not read into memory.
    ASSERT_TRUE(writeFileAtomic(path, std::string(1024 * 1024 + 1, 'x')));
    t.fake.queueAnswer(MsgResult::OK);
    t.openGame("frmLettermine");
    EXPECT_NE(t.fake.messages().back().find("'" + path +
                                            "' could not be read: it is larger than 1 MiB "
                                            "(1048577 bytes)."),
              std::string::npos);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(SettingsFile, UnwritableFileGivesAMessageAndTheGameGoesOn) {
    TestProgram t;
    // A folder where the file should be: it can be neither read nor replaced.
    const std::string path = t.prog.filePath("Colclear.Ini");
    ASSERT_TRUE(QDir().mkpath(QString::fromStdString(path)));
    t.fake.queueAnswer(MsgResult::OK);
    GameFrame& f = t.openGame("frmColclear");
    EXPECT_NE(t.fake.messages().back().find(path), std::string::npos);
    t.click("frmColclear", "cmdPlay");
    t.fake.advance(3000);
    EXPECT_EQ(t.prog.state.ElapsedSeconds, 3);
    t.fake.queueAnswer(MsgResult::Yes);  // the question on leaving
    t.fake.queueAnswer(MsgResult::OK);   // the file could not be saved
    t.click("frmColclear", "cmdQuit");
    EXPECT_NE(t.fake.messages().back().find("Unable to save the settings file '" + path),
              std::string::npos);
    EXPECT_EQ(t.prog.findForm("frmColclear"), nullptr);
    EXPECT_TRUE(std::filesystem::is_directory(path));
    (void)f;
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

// Lettermine's own keys: [Topic] takes only "0" to "7" and stands twice in the file; a
// changed guess count marks the scores custom, a changed wait for the phrase doesn't.
TEST(SettingsFile, LettermineKeepsItsTopicAndItsCustomMarkByItsOwnRules) {
    TestProgram t;
    const std::string path = t.prog.filePath("Lettermine.Ini");
    // A guess count past the eight smileys and a wait below nothing are passed over.
    for (const auto& [text, topic, custom, guesses, showMs] :
         {std::tuple{"[Topic]\r\n9\r\n\r\n[ShowPhrase]\r\n2000\r\n\r\n", 0, false, 8, 2000},
          std::tuple{"[Topic]\r\n5\r\n\r\n[Guess Count]\r\n5\r\n\r\n", 5, true, 5, 5000},
          std::tuple{"[Guess Count]\r\n9\r\n\r\n[ShowPhrase]\r\n-5\r\n\r\n", 0, false, 8, 5000}}) {
        ASSERT_TRUE(writeFileAtomic(path, text));
        GameFrame& f = t.openGame("frmLettermine");
        EXPECT_EQ(lettermineValues(t.prog).CurrentTopic, topic) << text;
        EXPECT_TRUE(f.find(PhraseSupply::topic(topic).menu)->checked()) << text;
        EXPECT_EQ(t.prog.state.CustomScoring, custom) << text;
        EXPECT_EQ(lettermineValues(t.prog).GuessCount, guesses) << text;
        EXPECT_EQ(lettermineValues(t.prog).ShowPhraseMs, showMs) << text;
        t.leaveGame("frmLettermine");
        const std::string written = t.file("Lettermine.Ini");
        const std::string key = "[Topic]\r\n" + std::to_string(topic) + "\r\n\r\n";
        EXPECT_TRUE(written.ends_with(key)) << written;
        EXPECT_NE(written.find("[Count Down Score]\r\nTrue\r\n\r\n" + key), std::string::npos);
    }
}

}  // namespace corvanna
