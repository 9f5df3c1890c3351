// What a damaged or missing high score table does to the game over.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "common/FileStore.h"
#include "testkit/TestProgram.h"

namespace corvanna {

TEST(GameOver, ADamagedOrMissingTableAtGameOverIsNamedKeptAndTheGameGoesIdle) {
    for (const bool removeIt : {false, true}) {
        SCOPED_TRACE(removeIt ? "missing" : "damaged");
        TestProgram t;
        GameFrame& f = t.openGame("frmWildslot");
        auto& g = t.prog.state;
        const std::string path = t.prog.filePath("Wildslot Hi Score Table 90.Txt");
        ASSERT_TRUE(fileExists(path));  // made at load
        t.click("frmWildslot", "cmdPlay");
        t.fake.advance(5000);
        const std::string junk("Velmora, 5O000, \x01\x02\0zz\r\n", 24);
        if (removeIt)
            std::filesystem::remove(path);
        else
            std::ofstream(path, std::ios::binary | std::ios::trunc) << junk;
        g.Score = 6000000;  // would top the table
        g.BonusRoundScore = 999999999;
        t.fake.queueAnswer(MsgResult::OK);  // the message at game over
        t.fake.advance(2 * 90000 + 21 * 250 + 10 * 250 + 2000);
        EXPECT_FALSE(g.GameInProgress);
        ASSERT_FALSE(t.fake.messages().empty());
        EXPECT_NE(t.fake.messages().front().find(path), std::string::npos);
        if (!removeIt) {
            EXPECT_EQ(t.file("Wildslot Hi Score Table 90.Txt"), junk);
        }
        // Idle again: the splash, Play, and a new game starts.
        EXPECT_TRUE(f.frmSplash.visible());
        EXPECT_EQ(f.cmdPlay.caption(), "&Play");
        EXPECT_TRUE(f.cmdPlay.enabled());
        EXPECT_EQ(f.lblMessage.caption(), "Game Over");
        // One report for one fault.
        EXPECT_EQ(t.fake.messages().size(), 1u);
        EXPECT_TRUE(t.fake.takeErrors().empty());
        t.click("frmWildslot", "cmdPlay");
        EXPECT_TRUE(g.GameInProgress);
    }
}

}  // namespace corvanna
