// Lettermine's scoring dialog: the order of its refusals, what OK and Default put in
// force, which values mark high scores as custom, and the picture of a lost guess.

#include <gtest/gtest.h>

#include "games/lettermine/LettermineValues.h"
#include "games/lettermine/frmLettermine.h"
#include "games/lettermine/frmLettermineCustomScoring.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

frmLettermine& open(TestProgram& t) {
    return static_cast<frmLettermine&>(t.openGame("frmLettermine"));
}

// Runs the scoring dialog; `script` works it and must close it.
void scoring(TestProgram& t, const std::function<void(frmLettermineCustomScoring&)>& script) {
    t.fake.queueModal([&](Form& form) { script(static_cast<frmLettermineCustomScoring&>(form)); });
    t.click("frmLettermine", "mnuCustom");
}

}  // namespace

TEST(LettermineOptions, OkRefusesTheFirstBadFieldInOrderAndStoresNothingUntilAllAreGood) {
    TestProgram t;
    open(t);
    const auto& v = lettermineValues(t.prog);
    const AppState& g = t.prog.state;
    const std::string title = g.AppTitle;
    scoring(t, [&](frmLettermineCustomScoring& d) {
        EXPECT_EQ(d.caption(), title + " User Options");
        EXPECT_EQ(d.frmScoringOptions.caption(), title + " Scoring Options");
        EXPECT_EQ(d.find("lblCompletionBonus")->caption(), "Bonus awarded for completing phrase: ");
        EXPECT_EQ(d.txtShowPhrase.text(), "5");
        EXPECT_TRUE(d.chkCountDown.checked());
        struct Case {
            TextBox& box;
            std::string bad, good, message;
        };
        const Case cases[] = {
            {d.txtGuessValue, "50001", "12abc",
             "Sorry, the Bonus Value for remaining guesses must fall between 1 and 50,000."},
            {d.txtCompletionBonus, "100001", "100000",
             "Sorry, the score awarded for completing the phrase must fall between 1 and "
             "100,000,000."},
            {d.txtTimeBonus, "abc", "5000",
             "Sorry, the score awarded for each second remaining in the game after selecting "
             "'Take Score' must fall between 1 and 5,000."},
            {d.txtGuessCount, "0", "1",
             "Sorry, the number of guesses allowed must fall between 1 and 8."},
            {d.txtBonusRoundScore, "1000001", "1000000",
             "Sorry, the score required for the Bonus Round must fall between 1 and 1,000,000."},
            {d.txtShowPhrase, "30.5", "2.5",
             "Sorry, the number of seconds to display the phrase must fall between 1 and 30."},
        };
        for (const Case& c : cases)
            c.box.setText(c.bad);
        for (const Case& c : cases) {
            SCOPED_TRACE(c.box.name());
            t.fake.queueAnswer(MsgResult::OK);
            t.click(d.name(), "cmdOK");
            EXPECT_EQ(t.fake.log().back(),
                      "msgbox " + title + " | exclamation | " + c.message + " -> OK");
            EXPECT_EQ(d.activeControl(), &c.box);
            EXPECT_EQ(c.box.selLength, static_cast<int>(c.bad.size()));
            // The good fields before it are not taken yet.
            EXPECT_EQ(v.GuessBonus, 3000);
            EXPECT_EQ(v.ShowPhraseMs, 5000);
            c.box.setText(c.good);
        }
        t.click(d.name(), "chkCountDown");
        t.click(d.name(), "cmdOK");
    });
    EXPECT_EQ(t.prog.findForm("frmLettermineCustomScoring"), nullptr);
    EXPECT_EQ(t.fake.messages().size(), 6u);
    EXPECT_EQ(v.GuessBonus, 12);
    EXPECT_EQ(v.CompletionBonus, 100000);
    EXPECT_EQ(g.TimeBonus, 5000);
    EXPECT_EQ(v.GuessCount, 1);
    EXPECT_EQ(g.BonusRoundScore, 1000000);
    EXPECT_EQ(v.ShowPhraseMs, 2500);
    EXPECT_FALSE(g.CountDownScore);
    EXPECT_TRUE(g.CustomScoring);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(LettermineOptions, DefaultAndTheFaultyGuessPictureHoldThroughCancelAndOnlyScoringIsCustom) {
    TestProgram t;
    frmLettermine& f = open(t);
    const std::string sad = f.GuessPicture("UNHAPPY");
    const auto& v = lettermineValues(t.prog);
    const AppState& g = t.prog.state;
    // The wait and the count-down are no scoring.
    scoring(t, [&](frmLettermineCustomScoring& d) {
        d.txtShowPhrase.setText("7");
        t.click(d.name(), "chkCountDown");
        t.click(d.name(), "cmdOK");
    });
    EXPECT_EQ(v.ShowPhraseMs, 7000);
    EXPECT_FALSE(g.CountDownScore);
    EXPECT_FALSE(g.CustomScoring);
    scoring(t, [&](frmLettermineCustomScoring& d) {
        d.txtGuessCount.setText("7");
        t.click(d.name(), "cmdOK");
    });
    EXPECT_TRUE(g.CustomScoring);

    // Default is in force at once and Cancel keeps it; the mark waits for the next OK or load.
    scoring(t, [&](frmLettermineCustomScoring& d) {
        EXPECT_EQ(d.cmdBadGuess[0]->picture(), sad);
        t.click(d.name(), "cmdDefault");
        EXPECT_EQ(d.txtGuessCount.text(), "8");
        EXPECT_EQ(d.txtShowPhrase.text(), "5");
        EXPECT_TRUE(d.chkCountDown.checked());
        EXPECT_EQ(v.GuessCount, 8);
        t.click(d.name(), "cmdBadGuess", 1);
        EXPECT_NE(d.cmdBadGuess[1]->picture(), sad);
        EXPECT_EQ(f.GuessPicture("UNHAPPY"), d.cmdBadGuess[1]->picture());
        t.click(d.name(), "cmdCancel");
    });
    EXPECT_EQ(v.ShowPhraseMs, 5000);
    EXPECT_TRUE(g.CountDownScore);
    EXPECT_TRUE(g.CustomScoring);
    t.leaveGame("frmLettermine");
    const std::string ini = t.file("Lettermine.Ini");
    EXPECT_NE(ini.find("[Guess Count]\r\n8\r\n"), std::string::npos);
    EXPECT_NE(ini.find("[ShowPhrase]\r\n5000\r\n"), std::string::npos);
    EXPECT_NE(ini.find("[Count Down Score]\r\nTrue\r\n"), std::string::npos);
    // A new load starts with the sad face again.
    EXPECT_EQ(open(t).GuessPicture("UNHAPPY"), sad);
    EXPECT_FALSE(g.CustomScoring);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

}  // namespace corvanna
