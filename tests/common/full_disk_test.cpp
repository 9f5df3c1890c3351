// A full disk at every place the program writes a file: the old file stays whole, no
// temporary file is left, the failure is told once naming the file and its folder, and
// play goes on. A good write afterwards lets a new failure be told again.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

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

std::string contents(const std::string& path) {
    std::string bytes;
    EXPECT_EQ(readWholeFile(path, bytes), ReadStatus::Ok) << path;
    return bytes;
}

// One place that writes: `write` changes what the file should hold (by `step`) and
// makes the program write it, as play would.
struct WriteSite {
    const char* what;
    const char* file;
    std::function<void(TestProgram&, int step)> write;
};

void leaveTierfall(TestProgram& t) {
    t.fake.queueAnswer(MsgResult::Yes);
    t.click("frmTierfall", "cmdExit");
}

const std::vector<WriteSite>& sites() {
    static const std::vector<WriteSite> all{
        {"settings on leaving a game", "Tierfall.Ini",
         [](TestProgram& t, int step) {
             t.openGame("frmTierfall");
             t.click("frmTierfall", step % 2 ? "mnu60" : "mnu30");
             leaveTierfall(t);
         }},
        {"the user's details", "User.ini",
         [](TestProgram& t, int step) {
             WriteUserIni(t.prog, "Player " + std::to_string(step), "Perth", "None", "Australia");
         }},
        {"the count of games played", "Played.ini",
         [](TestProgram& t, int) {
             t.openGame("frmTierfall");
             leaveTierfall(t);
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
             UpdateHighScoreTable(t.prog, std::string(FivestackHiScoreTable), [] {});
         }},
    };
    return all;
}

}  // namespace

TEST(FullDisk, EveryWriteSiteKeepsTheOldFileAndTellsOnceWhichFile) {
    NoFault restore;
    for (const WriteSite& site : sites()) {
        for (const std::size_t failAt : {std::size_t{0}, std::size_t{9}}) {
            SCOPED_TRACE(std::string(site.what) + ", full at byte " + std::to_string(failAt));
            TestProgram t;
            const std::string path = t.prog.filePath(site.file);
            if (std::string(site.file).find("Hi Score") != std::string::npos) {
                t.prog.state.RoundSeconds = 60;
                ASSERT_TRUE(
                    CreateHighScoreTable(t.prog, std::string(FivestackHiScoreTable), 50000));
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
            EXPECT_NE(message.find(path), std::string::npos) << message;
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
            // The failures' boxes were left to their OK; nothing else went wrong.
            for (const std::string& e : t.fake.takeErrors())
                EXPECT_EQ(e.rfind("unanswered message box: ", 0), 0u) << e;
        }
    }
}

TEST(FullDisk, ATableThatCannotBeMadeIsToldOnceAndTheGameShowsTheSeedTop) {
    NoFault restore;
    TestProgram t;
    failWritesAtByte(0);
    GameFrame& f = t.openGame("frmWildslot");
    const std::string table = t.prog.filePath("Wildslot Hi Score Table 90.Txt");
    // The settings file of a first start and the count of games are told as well.
    ASSERT_GE(t.fake.messages().size(), 1u);
    int aboutTable = 0;
    for (const std::string& m : t.fake.messages())
        aboutTable += m.find(table) != std::string::npos;
    EXPECT_EQ(aboutTable, 1);
    EXPECT_FALSE(fs::exists(table));
    EXPECT_EQ(f.lblHighScore.caption(), f.info().highScorePrefix + "50,000");

    // A whole game goes on to its end without a word more about that table.
    const std::size_t told = t.fake.messages().size();
    auto& g = t.prog.state;
    t.click("frmWildslot", "cmdPlay");
    for (int round = 1; round <= f.info().normalRounds; ++round)
        t.fake.advance(g.RoundSeconds * 1000 + 10 * 250 + 2000);
    EXPECT_FALSE(g.GameInProgress);
    EXPECT_EQ(t.fake.messages().size(), told);
    EXPECT_EQ(temporaryFiles(t.dataDir()), 0);
    for (const std::string& e : t.fake.takeErrors())
        EXPECT_EQ(e.rfind("unanswered message box: ", 0), 0u) << e;
}

}  // namespace corvanna
