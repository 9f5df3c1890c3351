// Whole-file writes, alone and at every place the program writes a file: after a full
// disk at any byte the old file stays whole and no temporary file is left, the failure is
// told once naming the file and its folder, and play goes on; a planted link is replaced
// rather than written through; and what a crash left is removed at the next start.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/stat.h>

#include "common/FileStore.h"
#include "common/UserIni.h"
#include "scores/HighScores.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

namespace fs = std::filesystem;

struct NoFault {
    ~NoFault() { failWritesAtByte(std::nullopt); }
};

std::string contents(const fs::path& p) {
    std::string bytes;
    EXPECT_EQ(readWholeFile(p.string(), bytes), ReadStatus::Ok) << p;
    return bytes;
}

int entries(const fs::path& folder) {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), {}));
}

int temporaryFiles(const std::string& folder) {
    int n = 0;
    for (const auto& e : fs::directory_iterator(folder))
        n += e.path().filename().string().find(kTempMarker) != std::string::npos;
    return n;
}

// How many message boxes named the file.
std::size_t toldAbout(const TestProgram& t, const std::string& path) {
    std::size_t n = 0;
    for (const std::string& m : t.fake.messages())
        n += m.find(path) != std::string::npos;
    return n;
}

// The failures' boxes were left to their OK; nothing else went wrong.
void expectOnlyUnansweredBoxes(TestProgram& t) {
    for (const std::string& e : t.fake.takeErrors())
        EXPECT_EQ(e.rfind("unanswered message box: ", 0), 0u) << e;
}

// One place that writes: `write` changes what the file should hold (by `step`) and
// makes the program write it, as play would.
struct WriteSite {
    const char* what;
    const char* file;
    std::function<void(TestProgram&, int step)> write;
};

const std::vector<WriteSite>& sites() {
    static const std::vector<WriteSite> all{
        {"settings on leaving a game", "Tierfall.Ini",
         [](TestProgram& t, int step) {
             t.openGame("frmTierfall");
             t.click("frmTierfall", step % 2 ? "mnu60" : "mnu30");
             t.leaveGame("frmTierfall");
         }},
        {"the user's details", "User.ini",
         [](TestProgram& t, int step) {
             WriteUserIni(t.prog, "Player " + std::to_string(step), "Perth", "None", "Australia");
         }},
        {"the count of games played", "Played.ini",
         [](TestProgram& t, int) {
             t.openGame("frmTierfall");
             t.leaveGame("frmTierfall");
         }},
        {"a high score table at game over", "Fivestack Hi Score Table 60.Txt",
         [](TestProgram& t, int step) {
             t.prog.state.AppTitle = "Fivestack!";
             t.prog.state.RoundSeconds = 60;
             t.prog.state.Score = 60000 + step;
             t.fake.queueModal([&t](Form& name) {
                 static_cast<TextBox&>(*name.find("txtPlayerName")).setText("Ines");
                 t.click(name.name(), "cmdOK");
             });
             UpdateHighScoreTable(t.prog, "Fivestack Hi Score Table ", [] {});
         }},
    };
    return all;
}

}  // namespace

TEST(FileStore, AFullDiskAtAnyByteLeavesTheOldFileWholeAndNoTemporaryFile) {
    QTemporaryDir dir;
    const fs::path file = fs::path(dir.path().toStdString()) / "Tierfall.Ini";
    ASSERT_TRUE(writeFileAtomic(file.string(), "old version"));
    const std::string next = "[Color]\r\n1\r\n\r\n[Time]\r\n90\r\n\r\n";
    NoFault restore;
    for (std::size_t at = 0; at < next.size(); ++at) {
        failWritesAtByte(at);
        std::string error;
        EXPECT_FALSE(writeFileAtomic(file.string(), next, &error)) << at;
        EXPECT_EQ(error, "No space left on device");
        EXPECT_EQ(contents(file), "old version") << at;
        EXPECT_EQ(entries(file.parent_path()), 1) << at;
    }
    failWritesAtByte(next.size());  // exactly enough room
    EXPECT_TRUE(writeFileAtomic(file.string(), next));
    EXPECT_EQ(contents(file), next);
    failWritesAtByte(std::nullopt);

    // A new file gets the usual permissions, not a temporary file's private ones.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(fs::status(file).permissions() & fs::perms::all,
              static_cast<fs::perms>(0666 & ~mask));
}

TEST(FileStore, APlantedLinkIsReplacedAndItsTargetNeverWritten) {
    QTemporaryDir dir, elsewhere;
    const fs::path data(dir.path().toStdString());
    const fs::path victim = fs::path(elsewhere.path().toStdString()) / "precious";
    ASSERT_TRUE(writeFileAtomic(victim.string(), "not yours"));
    fs::create_symlink(victim, data / "User.ini");
    ASSERT_TRUE(writeFileAtomic((data / "User.ini").string(), "[UserName]\r\nAda\r\n\r\n"));
    EXPECT_FALSE(fs::is_symlink(data / "User.ini"));
    EXPECT_EQ(contents(data / "User.ini"), "[UserName]\r\nAda\r\n\r\n");
    EXPECT_EQ(contents(victim), "not yours");

    // A folder where the file should be stays, and the write says why it failed.
    fs::create_directory(data / "Tierfall.Ini");
    std::string error;
    EXPECT_FALSE(writeFileAtomic((data / "Tierfall.Ini").string(), "x", &error));
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(fs::is_directory(data / "Tierfall.Ini"));
    EXPECT_EQ(entries(data), 2);
}

TEST(FileStore, WhatACrashLeftIsRemovedAtTheNextStartAndNothingElse) {
    QTemporaryDir dir;
    const fs::path data(dir.path().toStdString());
    const auto make = [&](const std::string& name) { std::ofstream(data / name) << "half"; };
    make(".Tierfall.Ini.tmp-a1B2c3");
    make(".ES Tierfall Hi Score Table 11_90.Txt.tmp-Zz9Yy8");
    make("Tierfall.Ini");
    make(".hidden");
    make(".x.tmp-short");      // not six characters: not ours
    make("plain.tmp-abcdef");  // no leading dot: not ours
    fs::create_symlink("/etc/hostname", data / ".link.tmp-abcdef");
    TestProgram{1, data.string()};
    EXPECT_FALSE(fs::exists(data / ".Tierfall.Ini.tmp-a1B2c3"));
    EXPECT_FALSE(fs::exists(data / ".ES Tierfall Hi Score Table 11_90.Txt.tmp-Zz9Yy8"));
    for (const char* kept : {"Tierfall.Ini", ".hidden", ".x.tmp-short", "plain.tmp-abcdef"})
        EXPECT_TRUE(fs::exists(data / kept)) << kept;
    EXPECT_TRUE(fs::is_symlink(data / ".link.tmp-abcdef"));
}

TEST(FullDisk, EveryWriteSiteKeepsTheOldFileAndTellsOnceWhichFile) {
    NoFault restore;
    for (const WriteSite& site : sites()) {
        for (const std::size_t failAt : {std::size_t{0}, std::size_t{9}}) {
            SCOPED_TRACE(std::string(site.what) + ", full at byte " + std::to_string(failAt));
            TestProgram t;
            const std::string path = t.prog.filePath(site.file);
            if (std::string(site.file).find("Hi Score") != std::string::npos) {
                t.prog.state.RoundSeconds = 60;
                ASSERT_TRUE(CreateHighScoreTable(t.prog, "Fivestack Hi Score Table ", 50000));
            }
            site.write(t, 0);
            const std::string old = contents(path);
            const std::size_t told = toldAbout(t, path);

            failWritesAtByte(failAt, site.file);
            site.write(t, 1);
            ASSERT_EQ(toldAbout(t, path), told + 1);
            std::string message;
            for (const std::string& m : t.fake.messages())
                if (m.find(path) != std::string::npos)
                    message = m;
            EXPECT_NE(message.find("No space left on device"), std::string::npos) << message;
            EXPECT_EQ(contents(path), old);
            EXPECT_EQ(temporaryFiles(t.dataDir()), 0);

            // Said once: the next failure of the same file is quiet, and play went on.
            site.write(t, 2);
            EXPECT_EQ(toldAbout(t, path), told + 1);
            EXPECT_EQ(contents(path), old);
            EXPECT_EQ(temporaryFiles(t.dataDir()), 0);

            // Room again: the file is written, and a later failure is told anew.
            failWritesAtByte(std::nullopt);
            site.write(t, 3);
            EXPECT_NE(contents(path), old);
            EXPECT_EQ(toldAbout(t, path), told + 1);
            const std::string written = contents(path);
            failWritesAtByte(failAt, site.file);
            site.write(t, 4);
            EXPECT_EQ(toldAbout(t, path), told + 2);
            EXPECT_EQ(contents(path), written);
            failWritesAtByte(std::nullopt);
            expectOnlyUnansweredBoxes(t);
        }
    }
}

// The table a game makes when it opens: with no room it is named once, the board shows the
// seed's top score, and a whole game goes on to its end without a word more about it.
TEST(FullDisk, ATableThatCannotBeMadeIsToldOnceAndTheGameShowsTheSeedTop) {
    NoFault restore;
    TestProgram t;
    failWritesAtByte(0);
    GameFrame& f = t.openGame("frmTierfall");
    const std::string table = t.prog.filePath("ES Tierfall Hi Score Table 11_90.Txt");
    EXPECT_EQ(toldAbout(t, table), 1u);
    EXPECT_FALSE(fs::exists(table));
    EXPECT_EQ(f.lblHighScore.caption(), "High Score: 50,000");

    const std::size_t told = t.fake.messages().size();
    t.click("frmTierfall", "cmdPlay");
    for (int round = 1; round <= f.info().normalRounds; ++round) {
        t.click("frmTierfall", "cmdTakeScore");
        t.fake.advance(60000);
    }
    EXPECT_FALSE(t.prog.state.GameInProgress);
    EXPECT_EQ(f.lblMessage.caption(), "Game Over");
    EXPECT_EQ(t.fake.messages().size(), told);
    EXPECT_EQ(temporaryFiles(t.dataDir()), 0);
    expectOnlyUnansweredBoxes(t);
}

}  // namespace corvanna
