// Whole games of Lettermine by random clicks and waits: the bot checks every move against
// the rules (what each letter pays, the board, the smileys, the letters open, the locked
// value, how long a round lasts), so a game without a fault is a game played by them.

#include <gtest/gtest.h>

#include "games/lettermine/LettermineBot.h"
#include "games/lettermine/frmLettermine.h"
#include "testkit/TestProgram.h"

namespace corvanna {

TEST(LettermineBot, RandomGamesKeepTheRules) {
    // Eight smileys and a bonus round often earned; one smiley, so one miss ends a round.
    for (const int guesses : {8, 1}) {
        SCOPED_TRACE("GuessCount " + std::to_string(guesses));
        TestProgram t(5);
        auto& f = static_cast<frmLettermine&>(t.openGame("frmLettermine"));
        lettermineValues(t.prog).GuessCount = static_cast<std::int16_t>(guesses);
        t.prog.state.BonusRoundScore = 60000;
        LettermineBot bot(t.prog, t.fake, f, 3);
        int bonusRounds = 0;
        for (int game = 0; game < 12; ++game) {
            bot.playGame();
            ASSERT_EQ(bot.fault(), "") << "game " << game;
            bonusRounds += t.prog.state.RoundNumber == 4;
        }
        EXPECT_TRUE(t.fake.takeMessages().empty());
        if (guesses == 8) {
            EXPECT_GT(bonusRounds, 0);
        }
    }
}

}  // namespace corvanna
