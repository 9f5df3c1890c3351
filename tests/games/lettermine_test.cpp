// Lettermine played on the virtual clock from a phrase file of our own, in file order:
// every number worked out by hand from the letters found, the smileys left, a completion
// bonus of 10,000 and 100 for each of the 45 seconds left.

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>

#include "common/FileStore.h"
#include "common/Format.h"
#include "forms/Keys.h"
#include "games/lettermine/frmLettermine.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

// "Famous Phrases" (LMP.Dat) as the program writes it: a header, the phrases and a last
// empty line. They come in file order: position 0 finds the empty first slot and goes on.
struct Word {
    TestProgram t;
    frmLettermine& f;
    AppState& g;
    std::vector<std::string> shown;  // lblMessage's captions as they came
    explicit Word(const std::vector<std::string>& phrases) : f(open(t, phrases)), g(t.prog.state) {
        f.lblMessage.subscribe([this](Control& c, Prop p) {
            if (p == Prop::Caption && !c.caption().empty())
                shown.push_back(c.caption());
        });
        t.click("frmLettermine", "mnuPhrases");
    }
    ~Word() { EXPECT_TRUE(t.fake.takeErrors().empty()); }
    static frmLettermine& open(TestProgram& t, const std::vector<std::string>& phrases) {
        std::string text = "CURRENT_PHRASE_NUMBER=0\r\n";
        for (const std::string& p : phrases)
            text += p + "\r\n";
        text += "\r\n";
        EXPECT_TRUE(writeFileAtomic(t.prog.filePath("LMP.Dat"), text));
        return static_cast<frmLettermine&>(t.openGame("frmLettermine"));
    }
    void play() {
        t.click("frmLettermine", "cmdPlay");
        t.fake.takeLog();
    }
    // Clicks the letter and says what it paid.
    std::int64_t letter(char c) {
        const std::int64_t before = g.Score;
        t.click("frmLettermine", "cmdLetter", c - 'A');
        return g.Score - before;
    }
    // Clicks each letter: each pays the value on show as it is clicked, once for every
    // time it stands in the phrase.
    void found(const std::string& word) {
        for (char c : word) {
            const std::int64_t value = f.LetterValue;
            std::int64_t times = 0;
            for (char p : f.round.board.text)
                times += std::toupper(static_cast<unsigned char>(p)) == c;
            EXPECT_EQ(letter(c), value * times) << c;
        }
    }
    std::vector<std::string> sounds() { return only(t.fake.takeLog(), {"sound "}); }
    // The board from cell to cell: a letter, "?" for one still hidden, "." for no cell.
    std::string cells(int from, int to) const {
        std::string out;
        for (int i = from; i <= to; ++i) {
            const Control& c = *f.lblLetter[static_cast<std::size_t>(i)];
            out += !c.visible() ? "." : c.caption().empty() ? "?" : c.caption();
        }
        return out;
    }
    bool running(const Timer& timer) const { return t.fake.isRunning(timer); }
    // Game over: the name asked for and the table shown.
    void answerHighScore() {
        t.fake.queueModal([this](Form&) { t.click("frmHiScoreName", "cmdOK"); });
        t.fake.queueModal([this](Form&) { t.click("frmHighScores", "cmdDone"); });
    }
};

const std::vector<std::string> kTwo{"Big Cat", "Dry Run", "Jumping Frog", "Spare Line"};

}  // namespace

TEST(Lettermine, TwoSolvedRoundsPayLettersSmileysCompletionAndTheSecondsLeft) {
    Word x(kTwo);
    x.play();
    // "Big Cat" takes the middle of the third row: 34 to 40, a blank cell at 37.
    EXPECT_EQ(x.f.fmPhrase.caption(), "Topic: Famous and Not So Famous Phrases");
    EXPECT_EQ(x.cells(30, 44), "....???.???....");
    // Six cells: 100000 / 6 = 16666, doubled 33332, / 250 = 133.3: values up to 33,250.
    EXPECT_EQ(x.f.round.board.MaxLetterUnits, 133);
    EXPECT_EQ(x.f.LetterValue % 250, 0);
    EXPECT_TRUE(x.f.LetterValue >= 250 && x.f.LetterValue <= 133 * 250);
    EXPECT_EQ(x.f.txtLetterValue.text(), std::to_string(x.f.LetterValue));
    EXPECT_EQ(x.f.StatusBar1.panelText(1), "Make 250,000 for Bonus Round!   ");
    EXPECT_EQ(x.f.StatusBar1.panelText(2), "Discover the phrase by selecting available letters  ");
    EXPECT_TRUE(x.running(x.f.Timer1) && x.running(x.f.Timer5));
    EXPECT_FALSE(x.f.mnuTopic.enabled());
    // Only consonants at first: a miss leaves the vowels shut, the first hit opens them.
    for (int vowel : {0, 4, 8, 14, 20, 24})
        EXPECT_FALSE(x.f.cmdLetter[vowel]->enabled()) << vowel;
    EXPECT_EQ(x.letter('Z'), 0);
    EXPECT_EQ(x.f.Guess[7]->picture(), "SmileySad");
    EXPECT_EQ(x.f.round.GuessIndex, 6);
    EXPECT_FALSE(x.f.cmdLetter[0]->enabled());
    EXPECT_EQ(x.sounds(), std::vector<std::string>{"sound Chord.wav"});
    x.found("BGCTI");
    EXPECT_TRUE(x.f.cmdLetter[0]->enabled());
    EXPECT_FALSE(x.f.cmdLetter[1]->enabled());
    EXPECT_EQ(x.cells(34, 40), "BIG.C?T");
    const std::int64_t letters = x.g.Score;
    x.sounds();

    // A completes it: the letter, seven smileys at 3,000, 10,000 and 45 seconds at 100.
    const std::int64_t value = x.f.LetterValue;
    const auto before = x.t.fake.elapsedMs();
    EXPECT_EQ(x.letter('A'), value + 7 * 3000 + 10000 + 45 * 100);
    EXPECT_EQ(x.g.Score, letters + value + 35500);
    EXPECT_GE(x.t.fake.elapsedMs() - before, 2000 + 7 * 400 + 11 * 250);
    const auto s = x.sounds();
    EXPECT_EQ(std::vector<std::string>(s.begin(), s.begin() + 2),
              (std::vector<std::string>{"sound Click.wav", "sound Applause.wav"}));
    EXPECT_GE(count(s, "sound Snap.wav"), 7);
    EXPECT_TRUE(count(x.shown, "Phrase Completion Bonus!"));
    EXPECT_TRUE(count(x.shown, "Prepare for Round Two!"));

    // Round two on "Dry Run", every smiley back.
    EXPECT_EQ(x.g.RoundNumber, 2);
    EXPECT_EQ(x.f.PhrasesSolved, 1);
    EXPECT_EQ(x.f.lblCurrentRound->caption(), "2");
    EXPECT_EQ(x.cells(30, 44), "....???.???....");
    for (Control* smiley : x.f.Guess)
        EXPECT_EQ(smiley->picture(), "SmileyHappy");
    EXPECT_TRUE(x.f.cmdSolve.enabled());
    EXPECT_TRUE(x.running(x.f.Timer1) && x.running(x.f.Timer5));
}

TEST(Lettermine, TheLastMissRevealsThePhraseInRedAndTheRoundPaysNoBonus) {
    // Eight misses with eight guesses; one with one, the other seven smileys untouched.
    for (const int guesses : {8, 1}) {
        SCOPED_TRACE(guesses);
        Word x(kTwo);
        lettermineValues(x.t.prog).GuessCount = static_cast<std::int16_t>(guesses);
        x.play();
        int untouched = 0;
        for (int i = guesses; i < 8; ++i)
            x.f.Guess[static_cast<std::size_t>(i)]->subscribe(
                [&](Control&, Prop p) { untouched += p == Prop::Picture; });
        x.found("B");
        const std::int64_t letters = x.g.Score;
        const std::string misses = "ZQXWVKJH";
        for (int i = 0; i + 1 < guesses; ++i)
            EXPECT_EQ(x.letter(misses[static_cast<std::size_t>(i)]), 0);
        EXPECT_EQ(x.f.round.GuessIndex, 0);
        // The C of "Cat" shows in red while the phrase stands; the next round clears it. A
        // letter clicked meanwhile is held and finds the round over: it costs nothing.
        std::vector<std::pair<std::string, Color>> revealed;
        x.f.lblLetter[38]->subscribe([&](Control& c, Prop p) {
            if (p == Prop::Caption)
                revealed.emplace_back(c.caption(), c.foreColor());
        });
        x.t.fake.post([&] { x.f.cmdLetter['M' - 'A']->Click(); });
        const auto before = x.t.fake.elapsedMs();
        x.sounds();
        EXPECT_EQ(x.letter('H'), 0);
        ASSERT_FALSE(revealed.empty());
        EXPECT_EQ(revealed.front(), std::pair(std::string("C"), colors::Red));
        EXPECT_EQ(x.g.Score, letters);  // the letters stay; nothing more
        // The phrase stands for ShowPhraseMs, then the next round is announced.
        EXPECT_GE(x.t.fake.elapsedMs() - before, 5000 + 11 * 250);
        const auto s = x.sounds();
        EXPECT_EQ(count(s, "sound Chord.wav"), 1);
        EXPECT_EQ(count(s, "sound Slide.wav"), 1);
        EXPECT_EQ(count(s, "sound Snap.wav"), 0);
        EXPECT_FALSE(count(x.shown, "Phrase Completion Bonus!"));
        EXPECT_EQ(x.g.RoundNumber, 2);
        EXPECT_EQ(x.f.PhrasesSolved, 0);
        EXPECT_EQ(x.f.round.GuessIndex, guesses - 1);
        EXPECT_TRUE(x.f.cmdLetter['M' - 'A']->enabled());
        EXPECT_EQ(untouched, 0);
    }
}

TEST(Lettermine, ALetterThreeTimesThenThreeSmileysAndTwentySecondsLeft) {
    Word x({"Ta Ta Ta", "Dry Run", "Spare Line"});
    x.play();
    EXPECT_EQ(x.cells(30, 44), "....??.??.??...");
    // Five misses over 25 seconds, each in time for the letter timer: three smileys left.
    for (const auto& [wait, miss] : std::vector<std::pair<int, char>>{
             {8000, 'Q'}, {8000, 'W'}, {8000, 'X'}, {1000, 'Z'}, {0, 'V'}}) {
        x.t.fake.advance(wait);
        EXPECT_EQ(x.letter(miss), 0) << miss;
    }
    EXPECT_EQ(x.g.ElapsedSeconds, 25);
    EXPECT_EQ(x.f.round.GuessIndex, 2);
    const std::int64_t t = x.f.LetterValue;
    EXPECT_EQ(x.letter('T'), 3 * t);
    // A three times completes it: 3 x 3,000, then 10,000, then 20 x 100.
    const std::int64_t a = x.f.LetterValue;
    EXPECT_EQ(x.letter('A'), 3 * a + 9000 + 10000 + 2000);
    EXPECT_EQ(x.g.Score, 3 * t + 3 * a + 21000);
}

TEST(Lettermine, TheBonusRoundNeedsTheScoreAndBothPhrasesSolved) {
    // The score exactly at BonusRoundScore with both solved; a point short; one solved.
    struct Case {
        std::int64_t aboveScore;
        bool solveFirst;
        bool bonus;
    };
    for (const Case& c : {Case{0, true, true}, Case{1, true, false}, Case{-100000, false, false}}) {
        SCOPED_TRACE(c.aboveScore);
        Word x(kTwo);
        x.play();
        if (c.solveFirst) {
            x.found("BGCTI");
            x.letter('A');
        } else {
            x.t.click("frmLettermine", "cmdSolve");
            x.letter('Z');
        }
        ASSERT_EQ(x.g.RoundNumber, 2);
        x.found("DRNY");
        // What U will bring: itself, eight smileys, 10,000 and 45 seconds.
        const std::int64_t final = x.g.Score + x.f.LetterValue + 8 * 3000 + 10000 + 4500;
        x.g.BonusRoundScore =
            static_cast<std::int32_t>(std::max<std::int64_t>(1, final + c.aboveScore));
        if (!c.bonus)
            x.answerHighScore();
        x.letter('U');
        EXPECT_EQ(x.g.Score, final);
        EXPECT_EQ(x.g.GameInProgress, c.bonus);
        EXPECT_EQ(x.g.RoundNumber, 3);
        EXPECT_EQ(count(x.shown, "Prepare for Bonus Round!"), c.bonus ? 1 : 0);
    }
}

TEST(Lettermine, SolveItStopsTheClockLocksTheValueAndAWrongLetterEndsTheRound) {
    Word x(kTwo);
    x.play();
    x.found("B");
    x.t.fake.advance(3000);
    x.t.click("frmLettermine", "cmdSolve");
    EXPECT_FALSE(x.running(x.f.Timer1));
    EXPECT_TRUE(x.running(x.f.Timer5));
    for (Control* c : {&x.f.cmdPlay, &x.f.cmdPause, &x.f.cmdSolve, &x.f.cmdExit})
        EXPECT_FALSE(c->enabled()) << c->name();
    EXPECT_FALSE(x.f.mnuSolve.enabled());
    // The clock stands; the letter timer runs on from the click.
    x.t.fake.advance(5000);
    EXPECT_EQ(x.g.ElapsedSeconds, 3);
    EXPECT_NEAR(x.f.ProgressBar1.value(), 5000 / 90, 1);
    const std::int32_t locked = x.f.LetterValue;
    x.found("GI");
    EXPECT_EQ(x.f.LetterValue, locked);
    EXPECT_EQ(x.f.ProgressBar1.value(), 0);
    const std::int64_t letters = x.g.Score;
    x.sounds();
    // A miss now makes no sound of its own and loses the round: no bonus.
    EXPECT_EQ(x.letter('Z'), 0);
    EXPECT_EQ(count(x.sounds(), "sound Chord.wav"), 0);
    EXPECT_EQ(x.g.Score, letters);
    EXPECT_EQ(x.g.RoundNumber, 2);

    // Round two solved in solve mode after 20 seconds, in which the letter timer ran full
    // twice (every 101 ticks of 90 ms): six smileys and the 25 seconds of that moment.
    x.t.fake.advance(20000);
    EXPECT_EQ(x.f.round.GuessIndex, 5);
    x.t.click("frmLettermine", "cmdSolve");
    x.t.fake.advance(4000);
    x.found("DRYU");
    x.answerHighScore();
    const std::int32_t value = x.f.LetterValue;
    EXPECT_EQ(x.letter('N'), value + 6 * 3000 + 10000 + 25 * 100);
    // One phrase solved: no bonus round, whatever the score.
    EXPECT_FALSE(x.g.GameInProgress);
    EXPECT_TRUE(count(x.shown, "Game Over"));
    EXPECT_FALSE(x.f.lblMessage.visible());
    EXPECT_FALSE(x.f.cmdSolve.enabled());
    EXPECT_TRUE(x.f.mnuTopic.enabled());
    EXPECT_EQ(x.f.StatusBar1.panelText(1), "Welcome to Lettermine!");
    EXPECT_EQ(x.f.StatusBar1.panelText(2), "Game Over");
}

TEST(Lettermine, TheLetterTimerTakesASmileyInPlayAndTheRoundInSolveMode) {
    Word x(kTwo);
    x.play();
    // 100 steps of 90 ms fill the bar; the next tick costs a smiley and starts it again.
    x.t.fake.advance(100 * 90);
    EXPECT_EQ(x.f.ProgressBar1.value(), 100);
    EXPECT_EQ(x.f.round.GuessIndex, 7);
    x.t.fake.advance(90);
    EXPECT_EQ(x.f.round.GuessIndex, 6);
    EXPECT_EQ(x.f.Guess[7]->picture(), "SmileySad");
    EXPECT_EQ(x.f.ProgressBar1.value(), 0);
    EXPECT_EQ(count(x.sounds(), "sound Chord.wav"), 1);
    // The faulty guess picture chosen in the options is the next one given.
    x.f.SelectUnhappyPicture(1);
    x.t.fake.advance(101 * 90);
    EXPECT_EQ(x.f.Guess[6]->picture(), "SmileyBanned");
    EXPECT_EQ(x.f.Guess[7]->picture(), "SmileySad");
    // In solve mode a full bar loses the round.
    x.t.click("frmLettermine", "cmdSolve");
    x.t.fake.advance(101 * 90);
    EXPECT_EQ(x.g.RoundNumber, 2);
    EXPECT_EQ(x.f.PhrasesSolved, 0);
}

TEST(Lettermine, TheBonusRoundPicksFiveConsonantsAndAVowelThenSolvesAgainstOneMistake) {
    Word x(kTwo);
    x.g.BonusRoundScore = 1;
    x.play();
    x.found("BGCTI");
    x.letter('A');
    x.found("DRNY");
    x.sounds();
    x.letter('U');
    // Both solved and the score reached: the bonus round, whose clock waits for the picks.
    EXPECT_EQ(x.g.RoundNumber, 3);
    EXPECT_TRUE(count(x.shown, "Prepare for Bonus Round!"));
    EXPECT_TRUE(count(x.sounds(), "sound Applause.wav") >= 2);
    EXPECT_EQ(x.f.lblCurrentRound->caption(), "3");
    EXPECT_EQ(x.f.StatusBar1.panelText(1), "Bonus Round!   ");
    EXPECT_EQ(x.f.lblMessage.caption(), "Select 5 consonants and 1 vowel");
    EXPECT_TRUE(x.f.lblMessage.visible());
    EXPECT_EQ(x.f.lblMessage.top(), x.f.frmGuess.top());
    EXPECT_FALSE(x.f.frmGuess.visible());
    EXPECT_FALSE(x.f.txtLetterValue.visible());
    EXPECT_FALSE(x.f.cmdSolve.enabled());
    EXPECT_TRUE(x.f.cmdLetter[0]->enabled());
    EXPECT_FALSE(x.running(x.f.Timer1));
    EXPECT_TRUE(x.running(x.f.Timer5));
    // "Jumping Frog": 32 to 45. Y counts as the vowel; after it no vowel can be picked.
    EXPECT_EQ(x.cells(32, 43), "???????.????");
    const std::pair<char, std::string> picks[] = {
        {'J', "Select 4 consonants and 1 vowel"},   {'Y', "Select 4 consonants and no vowels"},
        {'M', "Select 3 consonants and no vowels"}, {'P', "Select 2 consonants and no vowels"},
        {'N', "Select 1 consonants and no vowels"},
    };
    for (const auto& [c, message] : picks) {
        EXPECT_EQ(x.letter(c), 0) << c;
        EXPECT_EQ(x.f.lblMessage.caption(), message);
    }
    EXPECT_FALSE(x.f.cmdLetter[0]->enabled());
    x.sounds();
    // The sixth pick: the six tried in order, Y a miss from the hidden row.
    const std::int64_t before = x.g.Score;
    x.letter('G');
    EXPECT_GT(x.g.Score, before);
    EXPECT_EQ(x.cells(32, 43), "J?MP?NG.???G");
    EXPECT_EQ(x.sounds(),
              (std::vector<std::string>{"sound Click.wav", "sound Click.wav", "sound Chord.wav",
                                        "sound Click.wav", "sound Click.wav", "sound Click.wav",
                                        "sound Click.wav"}));
    EXPECT_FALSE(x.f.lblMessage.visible());
    EXPECT_EQ(x.f.lblLetterValue.caption(), "All Letters worth:");
    EXPECT_TRUE(x.f.txtLetterValue.visible());
    EXPECT_TRUE(x.f.round.SolveMode);
    EXPECT_EQ(x.f.round.GuessIndex, 0);
    EXPECT_TRUE(x.running(x.f.Timer1));
    EXPECT_TRUE(x.f.cmdLetter[0]->enabled());
    EXPECT_FALSE(x.f.cmdLetter['Y' - 'A']->enabled());
    // The value is locked: each letter pays it; the last pays one smiley, 10,000 and 45 s.
    const std::int32_t locked = x.f.LetterValue;
    for (char c : std::string("UIFO"))
        EXPECT_EQ(x.letter(c), locked) << c;
    x.answerHighScore();
    EXPECT_EQ(x.letter('R'), locked + 3000 + 10000 + 45 * 100);
    EXPECT_FALSE(x.g.GameInProgress);
    EXPECT_TRUE(count(x.shown, "Game Over"));
}

TEST(Lettermine, PauseHidesTheBoardEndGameRecordsNothingAndLeavingWritesThePhrases) {
    Word x(kTwo);
    x.play();
    // A typed letter clicks its button; a vowel still shut and a paused board take none.
    EXPECT_EQ(letterTarget(x.f, 'B'), x.f.cmdLetter[1]);
    EXPECT_EQ(letterTarget(x.f, 'A'), nullptr);
    x.t.fake.advance(2000);
    x.t.click("frmLettermine", "cmdPause");
    EXPECT_EQ(x.f.lblMessage.caption(), "Game Paused");
    for (Control* c : {&x.f.fmPhrase, static_cast<Control*>(&x.f.ProgressBar1), x.f.cmdLetter[1],
                       &x.f.frmGuess, x.f.lblCurrentRound})
        EXPECT_FALSE(c->visible()) << c->fullName();
    EXPECT_TRUE(x.f.lblCurrentScore.visible());
    EXPECT_FALSE(x.f.cmdSolve.enabled());
    EXPECT_EQ(letterTarget(x.f, 'B'), nullptr);
    x.t.fake.advance(20000);
    EXPECT_EQ(x.g.ElapsedSeconds, 2);
    EXPECT_EQ(x.f.round.GuessIndex, 7);
    // Resumed: the board back, the vowels still shut without a hit, both clocks running.
    x.t.click("frmLettermine", "cmdPause");
    EXPECT_TRUE(x.f.fmPhrase.visible() && x.f.cmdLetter[1]->enabled());
    EXPECT_FALSE(x.f.cmdLetter[0]->enabled());
    EXPECT_TRUE(x.f.cmdSolve.enabled());
    EXPECT_TRUE(x.running(x.f.Timer1) && x.running(x.f.Timer5));

    // End Game: the question, then nothing recorded and the topics open again.
    const std::string table = x.t.file("Lettermine Hi Score Table 45.Txt");
    x.t.fake.queueAnswer(MsgResult::Yes);
    x.t.click("frmLettermine", "cmdPlay");
    EXPECT_EQ(x.t.fake.messages().back(),
              "You have a game in progress, are you sure you want to quit?");
    EXPECT_FALSE(x.g.GameInProgress);
    EXPECT_FALSE(x.running(x.f.Timer5));
    EXPECT_FALSE(x.f.fmPhrase.visible() || x.f.cmdSolve.enabled());
    EXPECT_TRUE(x.f.mnuTopic.enabled());
    EXPECT_EQ(x.f.StatusBar1.panelText(1), "Welcome to Lettermine!");
    EXPECT_EQ(x.t.file("Lettermine Hi Score Table 45.Txt"), table);

    // Leaving writes the topic that was used, from the position reached, in lower case with
    // a last empty line; a topic never used is not written.
    x.t.leaveGame("frmLettermine");
    EXPECT_EQ(
        x.t.file("LMP.Dat"),
        "CURRENT_PHRASE_NUMBER=2\r\nbig cat\r\ndry run\r\njumping frog\r\nspare line\r\n\r\n");
    EXPECT_FALSE(std::filesystem::exists(x.t.prog.filePath("LMN.Dat")));
}

}  // namespace corvanna
