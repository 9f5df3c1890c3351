// Many whole games of Tierfall by random legal clicks: every one ends idle, the
// scores stay within what a game can pay, and the table stays in order.

#include <gtest/gtest.h>

#include "games/tierfall/TierfallBot.h"
#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/modTierfall.h"
#include "scores/HighScoreTable.h"
#include "scores/HighScores.h"
#include "testkit/TestProgram.h"

namespace corvanna {

TEST(TierfallBot, RandomGamesEndIdleAndKeepTheTableInOrder) {
    for (const bool enhanced : {true, false}) {
        SCOPED_TRACE(enhanced ? "enhanced" : "standard");
        TestProgram t(7);
        auto& f = static_cast<frmTierfall&>(t.openGame("frmTierfall"));
        auto& g = t.prog.state;
        tierfallValues(t.prog).EnhancedScoring = enhanced;
        g.BonusRoundScore = 40000;  // often reached, so the bonus round is played too
        TierfallBot bot(t.prog, t.fake, f, 11);
        int bonusRounds = 0;
        for (int game = 0; game < 60; ++game) {
            bool sawBonus = false;
            auto watch = f.lblCurrentRound->subscribe([&](Control& c, Prop p) {
                if (p == Prop::Caption && c.caption() == "Bonus")
                    sawBonus = true;
            });
            const std::int32_t score = bot.playGame();
            f.lblCurrentRound->unsubscribe(watch);
            bonusRounds += sawBonus;
            ASSERT_EQ(bot.fault(), "") << "game " << game;
            EXPECT_FALSE(g.GameInProgress);
            EXPECT_FALSE(g.TakingScore);
            EXPECT_FALSE(t.fake.isRunning(f.Timer1));
            EXPECT_EQ(f.cmdTakeScore->caption(), "&Replay");
            EXPECT_EQ(f.lblMessage.caption(), "Game Over");
            // Three rounds at most of: 22 cards at 700 and 43 up cards at 600, a
            // completion, 65 combinations, 43 cards left and 90 seconds.
            EXPECT_LT(score, 3 * (22 * 700 + 43 * 600 + 10000 + 65 * 1500 + 43 * 1000 + 9000));
        }
        EXPECT_GT(bonusRounds, 0);
        HighScoreTable table(HighScoreFilePath(t.prog, TierfallTableName(11, enhanced)));
        ASSERT_TRUE(table.read(nullptr));
        const auto& rows = table.rows();
        ASSERT_EQ(rows.size(), 10u);
        for (std::size_t i = 1; i < rows.size(); ++i)
            EXPECT_GE(rows[i - 1].score, rows[i].score);
        EXPECT_GT(rows[0].score, 50000);  // the bot's games entered the table
    }
}

}  // namespace corvanna
