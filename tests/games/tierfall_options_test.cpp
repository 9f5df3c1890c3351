// Tierfall's options: its menus, its settings file, and the scoring dialog with the
// order of its checks.

#include <gtest/gtest.h>

#include <QFile>

#include "common/FileStore.h"
#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/frmTierfallCustomScoring.h"
#include "scores/HighScoreTable.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

frmTierfall& open(TestProgram& t) {
    return static_cast<frmTierfall&>(t.openGame("frmTierfall"));
}

std::vector<std::string> names(const std::vector<Menu*>& menus) {
    std::vector<std::string> out;
    for (Menu* m : menus)
        out.push_back(m->name());
    return out;
}

// Runs the scoring dialog; `script` works it and must close it.
void scoring(TestProgram& t, const std::function<void(frmTierfallCustomScoring&)>& script) {
    t.fake.queueModal([&](Form& form) { script(static_cast<frmTierfallCustomScoring&>(form)); });
    t.click("frmTierfall", "mnuScoring");
}

}  // namespace

TEST(TierfallOptions, MenusStandInTheirOrderAndTheFirstFileHoldsTheDefaults) {
    TestProgram t;
    frmTierfall& f = open(t);
    EXPECT_EQ(
        names(static_cast<Menu*>(f.find("mnuOptions"))->children()),
        (std::vector<std::string>{"mnuViewHiScore", "mnuClear", "mnuBreak1", "mnuTime", "mnuGoal",
                                  "mnuScoring", "mnuBreak2", "mnuMusic", "mnuSounds", "mnuSep1",
                                  "mnuDrawTimer", "mnuColor", "mnuDeck"}));
    EXPECT_EQ(names(f.mnuGoal.children()),
              (std::vector<std::string>{"mnu10", "mnu11", "mnu12", "mnu13", "mnu14", "mnu15"}));
    EXPECT_EQ(f.mnuGoals[1]->caption(), "1&1 (Default)");
    EXPECT_TRUE(f.mnuGoals[1]->checked());
    EXPECT_EQ(names(f.mnuColor.children()),
              (std::vector<std::string>{"mnuYellow", "mnuRed", "mnuBlue", "mnuGreen", "mnuPurple",
                                        "mnuBlack"}));
    EXPECT_TRUE(f.mnuColors[1]->checked());
    EXPECT_TRUE(f.mnuDrawTimer.checked());
    EXPECT_EQ(f.mnuCustom.caption(), "C&ustomize Scoring...");
    EXPECT_EQ(t.file("Tierfall.Ini"),
              "[Color]\r\n1\r\n\r\n[Play Music]\r\nFalse\r\n\r\n[Time]\r\n90\r\n\r\n"
              "[DrawTimer]\r\nTrue\r\n\r\n[Play Sounds]\r\nTrue\r\n\r\n[CardGoal]\r\n11\r\n\r\n"
              "[Bonus Round Score]\r\n80000\r\n\r\n[Completion Bonus]\r\n10000\r\n\r\n"
              "[Elevens Bonus]\r\n1500\r\n\r\n[Elevens Bonus ES]\r\n1000\r\n\r\n"
              "[Time Bonus]\r\n100\r\n\r\n[State]\r\n0\r\n\r\n[New Score Mode]\r\nTrue\r\n\r\n"
              "[Width]\r\n9540\r\n\r\n[Height]\r\n7200\r\n\r\n[Deck]\r\n0\r\n\r\n"
              "[Card Bonus]\r\n1000\r\n\r\n");
    // During a game the options wait.
    t.click("frmTierfall", "cmdPlay");
    EXPECT_FALSE(f.mnuGoal.enabled());
    EXPECT_FALSE(f.mnuCustom.enabled());
    EXPECT_FALSE(f.mnuTime.enabled());
}

TEST(TierfallOptions, GoalColourAndCountDownMenusAndTheTableOfEachGoal) {
    TestProgram t;
    frmTierfall& f = open(t);
    const std::string twelve = t.prog.filePath("ES Tierfall Hi Score Table 12_90.Txt");
    ASSERT_TRUE(writeFileAtomic(twelve, HighScoreTable::seedText(61234)));
    t.click("frmTierfall", "mnu12");
    EXPECT_EQ(tierfallValues(t.prog).CardGoal, 12);
    EXPECT_TRUE(f.mnuGoals[2]->checked());
    EXPECT_FALSE(f.mnuGoals[1]->checked());
    EXPECT_EQ(f.lblElevens.caption(), "Twelves:");
    EXPECT_EQ(f.lblHighScore.caption(), "High Score: 61,234");
    EXPECT_EQ(f.StatusBar1.panelText(2), "Click on exposed cards to total 12!   ");
    t.click("frmTierfall", "mnu15");
    EXPECT_EQ(f.lblElevens.caption(), "Fifteens:");
    EXPECT_EQ(f.lblHighScore.caption(), "High Score: 50,000");  // made afresh for goal 15
    EXPECT_TRUE(fileExists(t.prog.filePath("ES Tierfall Hi Score Table 15_90.Txt")));

    t.click("frmTierfall", "mnuPurple");
    EXPECT_EQ(f.FieldSelectionRectangle[0]->borderColor(), Color(0x800080));
    EXPECT_EQ(f.UpCardSelectionRectangle.borderColor(), Color(0x800080));
    EXPECT_TRUE(f.mnuColors[4]->checked());
    EXPECT_FALSE(f.mnuColors[1]->checked());
    t.click("frmTierfall", "mnuGreen");
    EXPECT_EQ(f.FieldSelectionRectangle[21]->borderColor(), Color(0x00C000));

    t.click("frmTierfall", "mnuDrawTimer");
    EXPECT_FALSE(t.prog.state.CountDownScore);
    EXPECT_FALSE(f.mnuDrawTimer.checked());
}

TEST(TierfallOptions, ChoicesComeBackAfterCloseAndReopenAndOddValuesAreReadAsTheyStand) {
    TestProgram t;
    {
        open(t);
        t.click("frmTierfall", "mnu13");
        t.click("frmTierfall", "mnuBlack");
        t.click("frmTierfall", "mnuDrawTimer");
        t.click("frmTierfall", "mnu120");
        scoring(t, [&](frmTierfallCustomScoring& d) {
            t.click(d.name(), "chkScoring");  // standard mode
            d.txtCompletion.setText("12345");
            t.click(d.name(), "cmdOK");
        });
        t.leaveGame("frmTierfall");
    }
    frmTierfall& f = open(t);
    const auto& v = tierfallValues(t.prog);
    EXPECT_EQ(v.CardGoal, 13);
    EXPECT_TRUE(f.mnuGoals[3]->checked());
    EXPECT_EQ(f.lblElevens.caption(), "Thirteens:");
    EXPECT_EQ(v.SelectionColorIndex, 5);
    EXPECT_EQ(f.FieldSelectionRectangle[3]->borderColor(), Color(0x000000));
    EXPECT_FALSE(t.prog.state.CountDownScore);
    EXPECT_FALSE(f.mnuDrawTimer.checked());
    EXPECT_EQ(t.prog.state.RoundSeconds, 120);
    EXPECT_FALSE(v.EnhancedScoring);
    EXPECT_EQ(v.CompletionBonus, 12345);
    EXPECT_TRUE(t.prog.state.CustomScoring);
    EXPECT_EQ(f.caption(), "Tierfall!");
    EXPECT_EQ(f.FieldCardPicture[0]->toolTipText(), "700 points");
    t.leaveGame("frmTierfall");

    // A goal outside the menu stays the goal with no entry checked; a colour outside it
    // changes nothing; a goal that is no number is damage, kept aside on leaving.
    const std::string ini = t.prog.filePath("Tierfall.Ini");
    ASSERT_TRUE(writeFileAtomic(ini, "[CardGoal]\r\n9\r\n\r\n[Color]\r\n7\r\n\r\n"));
    {
        frmTierfall& g = open(t);
        EXPECT_EQ(v.CardGoal, 9);
        for (Menu* m : g.mnuGoals)
            EXPECT_FALSE(m->checked());
        EXPECT_EQ(v.SelectionColorIndex, 1);
        EXPECT_TRUE(g.mnuColors[1]->checked());
        t.leaveGame("frmTierfall");
    }
    EXPECT_FALSE(fileExists(ini + ".bad"));
    ASSERT_TRUE(writeFileAtomic(ini, "[CardGoal]\r\neleven\r\n\r\n"));
    open(t);
    EXPECT_EQ(v.CardGoal, 11);
    t.leaveGame("frmTierfall");
    EXPECT_TRUE(fileExists(ini + ".bad"));
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(TierfallOptions, ScoringDialogChecksItsFieldsInOrderAndStaysOpenOnTheFirstBadOne) {
    TestProgram t;
    frmTierfall& f = open(t);
    auto& g = t.prog.state;
    scoring(t, [&](frmTierfallCustomScoring& d) {
        EXPECT_EQ(d.caption(), "Tierfall! User Options");
        EXPECT_EQ(d.frmScoringOptions.caption(), "Tierfall! Scoring Options");
        EXPECT_EQ(d.lblElevenBonus.caption(), "Score awarded for eleven combination:");
        EXPECT_EQ(d.txtBonus.text(), "80000");
        EXPECT_EQ(d.txtElevensBonus.text(), "1000");
        EXPECT_TRUE(d.chkScoring.checked());
        EXPECT_TRUE(d.txtCardBonus.enabled());
        // The first bad field is named and takes the focus; the others wait.
        d.txtCompletion.setText("0");
        d.txtTimeBonus.setText("abc");
        t.fake.queueAnswer(MsgResult::OK);
        t.click(d.name(), "cmdOK");
        EXPECT_EQ(t.fake.messages().back(),
                  "Sorry, the score awarded for completing the upper playing area must fall "
                  "between 1 and 5,000,000.");
        EXPECT_EQ(d.activeControl(), &d.txtCompletion);
        EXPECT_EQ(d.txtCompletion.selLength, 1);
        d.txtCompletion.setText("5000000");  // the highest passes
        t.fake.queueAnswer(MsgResult::OK);
        t.click(d.name(), "cmdOK");
        EXPECT_EQ(t.fake.messages().back(),
                  "Sorry, the score awarded for each second remaining in the game after "
                  "selecting 'Take Score' must fall between 1 and 5,000,000.");
        EXPECT_EQ(d.activeControl(), &d.txtTimeBonus);
        d.txtTimeBonus.setText("250");
        d.txtCardBonus.setText("5000001");
        t.fake.queueAnswer(MsgResult::OK);
        t.click(d.name(), "cmdOK");
        EXPECT_EQ(t.fake.messages().back(),
                  "Sorry, the score awarded for each remaining card in the deck after "
                  "completing the upper playing area must fall between 1 and 5,000,000.");
        d.txtCardBonus.setText("2500 points");  // a number at the start is enough
        d.txtBonus.setText("90,000");           // reads as 90
        t.click(d.name(), "cmdOK");
    });
    EXPECT_EQ(t.prog.findForm("frmTierfallCustomScoring"), nullptr);
    EXPECT_EQ(g.BonusRoundScore, 90);
    EXPECT_EQ(tierfallValues(t.prog).CompletionBonus, 5000000);
    EXPECT_EQ(g.TimeBonus, 250);
    EXPECT_EQ(tierfallValues(t.prog).CardBonus, 2500);
    EXPECT_TRUE(g.CustomScoring);
    EXPECT_EQ(f.StatusBar1.panelText(1), "Make 90 for Bonus Round!   ");
    EXPECT_EQ(t.fake.messages().size(), 3u);

    // The mode's own default decides: standard with 1,500 and the rest at default is plain.
    scoring(t, [&](frmTierfallCustomScoring& d) {
        t.click(d.name(), "cmdDefault");
        EXPECT_EQ(d.txtBonus.text(), "80000");
        EXPECT_EQ(d.txtElevensBonus.text(), "1000");
        t.click(d.name(), "chkScoring");
        EXPECT_EQ(d.txtElevensBonus.text(), "1500");
        EXPECT_FALSE(d.txtCardBonus.enabled());
        EXPECT_FALSE(d.lblCardBonus.enabled());
        t.click(d.name(), "cmdOK");
    });
    EXPECT_FALSE(tierfallValues(t.prog).EnhancedScoring);
    EXPECT_EQ(tierfallValues(t.prog).ElevensBonus, 1500);
    EXPECT_FALSE(g.CustomScoring);
    EXPECT_EQ(f.caption(), "Tierfall!");
    EXPECT_EQ(f.UpCardPicture.toolTipText(), "100 points");
    EXPECT_TRUE(fileExists(t.prog.filePath("Tierfall Hi Score Table 11_90.Txt")));

    // Cancel after changing the mode keeps nothing.
    scoring(t, [&](frmTierfallCustomScoring& d) {
        t.click(d.name(), "chkScoring");
        d.txtBonus.setText("1");
        t.click(d.name(), "cmdCancel");
    });
    EXPECT_FALSE(tierfallValues(t.prog).EnhancedScoring);
    EXPECT_EQ(g.BonusRoundScore, 80000);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(TierfallOptions, DefaultGivesTheDefaultsInEitherModeAndARaisedCardBonusIsCustom) {
    TestProgram t;
    frmTierfall& f = open(t);
    auto& g = t.prog.state;
    scoring(t, [&](frmTierfallCustomScoring& d) {
        t.click(d.name(), "chkScoring");  // the standard mode, 1,500 a combination
        t.click(d.name(), "cmdOK");
    });
    ASSERT_FALSE(tierfallValues(t.prog).EnhancedScoring);
    // Default from the standard mode: the enhanced mode with its own 1,000.
    scoring(t, [&](frmTierfallCustomScoring& d) {
        EXPECT_EQ(d.txtElevensBonus.text(), "1500");
        t.click(d.name(), "cmdDefault");
        EXPECT_TRUE(d.chkScoring.checked());
        EXPECT_EQ(d.txtElevensBonus.text(), "1000");
        EXPECT_TRUE(d.txtCardBonus.enabled());
        t.click(d.name(), "cmdOK");
    });
    EXPECT_TRUE(tierfallValues(t.prog).EnhancedScoring);
    EXPECT_EQ(tierfallValues(t.prog).ElevensBonusES, 1000);
    EXPECT_EQ(tierfallValues(t.prog).ElevensBonus, 1500);
    EXPECT_FALSE(g.CustomScoring);
    EXPECT_EQ(f.caption(), "Tierfall! - Enhanced Scoring");

    // Only the card bonus raised: custom, and still so when the game is opened again.
    scoring(t, [&](frmTierfallCustomScoring& d) {
        d.txtCardBonus.setText("5000000");
        t.click(d.name(), "cmdOK");
    });
    EXPECT_TRUE(g.CustomScoring);
    t.leaveGame("frmTierfall");
    open(t);
    EXPECT_EQ(tierfallValues(t.prog).CardBonus, 5000000);
    EXPECT_TRUE(g.CustomScoring);
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

}  // namespace corvanna
