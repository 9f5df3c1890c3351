// The end of a game on every form: the final score ranked in its table, and what a
// damaged or missing table does to the game over.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "common/FileStore.h"
#include "games/GameRegistry.h"
#include "games/tierfall/TierfallValues.h"
#include "testkit/TestProgram.h"

namespace corvanna {

TEST(GameOver, EveryGameEndsInTheHighScoreTableWithItsNameAndFlashingRow) {
    for (const GameInfo& game : allGames()) {
        SCOPED_TRACE(game.formName);
        TestProgram t;
        GameFrame& f = t.openGame(game.formName);
        auto& g = t.prog.state;
        tierfallValues(t.prog).EnhancedScoring = false;  // Tierfall's clock runs from the deal
        t.click(game.formName, "cmdPlay");
        // Play every normal round to its time out; no bonus round at a score of 0.
        for (int round = 1; round < game.normalRounds; ++round)
            t.fake.advance(g.RoundSeconds * 1000 + 21 * 250);
        g.Score = 123456;
        g.BonusRoundScore = 999999999;  // the game ends after this round
        bool asked = false, flashed = false;
        t.fake.queueModal([&](Form& name) {
            asked = true;
            static_cast<TextBox&>(*name.find("txtPlayerName")).setText("Ines");
            t.click(name.name(), "cmdOK");
        });
        t.fake.queueModal([&](Form& table) {
            EXPECT_EQ(g.NewHighScoreRow, 0);
            t.fake.takeLog();
            t.fake.advance(1000);
            flashed = true;
            t.click(table.name(), "cmdDone");
        });
        t.fake.advance(g.RoundSeconds * 1000 + 10 * 250 + 2000);
        EXPECT_TRUE(asked);
        EXPECT_TRUE(flashed);
        EXPECT_FALSE(g.GameInProgress);
        EXPECT_EQ(f.lblHighScore.caption(), game.highScorePrefix + "123,456");
        EXPECT_TRUE(t.fake.takeErrors().empty());
    }
}

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
