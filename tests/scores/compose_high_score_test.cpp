// Sending a high score listing from the Hall of Fame: the form filled from the table
// and the player's details, the live sample, the score box, the two checks of each
// game, the mail handed over and what is kept of the details.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/UserIni.h"
#include "common/frame/GameFrame.h"
#include "games/GameRegistry.h"
#include "scores/HighScores.h"
#include "scores/ScoreMenus.h"
#include "scores/frmComposeHighScore.h"
#include "scores/frmHighScores.h"
#include "shell/Startup.h"
#include "testkit/TestProgram.h"

namespace corvanna {

using ::testing::ElementsAre;

namespace {

const char* const kTooHigh =
    "Sorry, but the score you have entered is greater than the highest\nscore attained so far "
    "in this game. Please enter a valid score.";

// A game on show whose current table has this top row, at this time limit.
struct Submission {
    TestProgram t;
    GameFrame* game = nullptr;

    explicit Submission(const std::string& formName = "frmTierfall",
                        const std::string& dataDir = "")
        : t(1, dataDir) {
        open(formName);
    }

    void open(const std::string& formName) {
        game = &t.openGame(formName);
        t.prog.state.RoundSeconds = game->info().submitSeconds;
    }
    void table(const std::string& topName, long long topScore) {
        std::string text = topName + ", " + std::to_string(topScore) + ", Mar 04 2026 09:15 pm\r\n";
        for (int i = 1; i < 10; ++i)
            text += "Velmora, 1000, Jan 01 2000 12:00 am\r\n";
        const HighScoreChoice choice = CurrentHighScoreTable(t.prog);
        ASSERT_TRUE(writeFileAtomic(HighScoreFilePath(t.prog, choice.tableName), text));
    }
    // The Hall of Fame opened, Submit a High Score clicked, the script run on the form.
    void compose(const std::function<void(frmComposeHighScore&)>& script) {
        t.fake.queueModal([&](Form&) {
            t.fake.queueModal([&](Form& f) { script(dynamic_cast<frmComposeHighScore&>(f)); });
            t.click("frmHighScores", "cmdSendScore");
            t.click("frmHighScores", "cmdDone");
        });
        ShowHighScores(t.prog);
    }
    void click(const std::string& control) { t.click("frmComposeHighScore", control); }
    bool open() const { return t.prog.findForm("frmComposeHighScore") != nullptr; }
};

}  // namespace

TEST(ComposeHighScore, TheFormIsFilledFromTheTopRowAndThePlayersDetails) {
    Submission s;
    auto& g = s.t.prog.state;
    g.UserHometown = "Dayton";
    g.UserState = "Ohio";
    g.UserCountry = "Canada";
    s.table("Ada Lind", 181250);
    s.compose([&](frmComposeHighScore& f) {
        EXPECT_EQ(f.caption(), "High score submission for Tierfall!");
        EXPECT_EQ(f.lblInfo.caption(),
                  "Please verify the information below. After making any changes click on the "
                  "'Submit' command button. This will e-mail the high score data to Orlund for "
                  "posting on the Corvanna High Score Web Page. At a minimum, please include your "
                  "name and score. Note that you must meet the minimum required score before it "
                  "will be posted to the web. The minimum scores for each game are posted on the "
                  "website. Click on 'Cancel' to cancel this operation.");
        EXPECT_EQ(f.lblSample.caption(), "Your listing will look like:");
        EXPECT_EQ(f.lblOther.caption(), "Additional comments for Orlund:");
        EXPECT_EQ(f.txtName.toolTipText(), "Enter your name");
        EXPECT_EQ(f.txtScore.toolTipText(), "Enter your high score");
        EXPECT_EQ(f.txtHomeTown.toolTipText(), "Enter your home town");
        EXPECT_EQ(f.cmboState.toolTipText(), "Select your state");
        EXPECT_EQ(f.txtCountry.toolTipText(), "Enter your Country");
        EXPECT_EQ(f.txtSample.toolTipText(), "Sample listing");
        EXPECT_EQ(f.txtOther.toolTipText(),
                  "Place additional information you want to send to Orlund here");
        EXPECT_EQ(f.cmdSubmit.caption(), "&Submit");
        EXPECT_EQ(f.cmdCancel.caption(), "&Cancel");
        EXPECT_TRUE(f.txtSample.locked());

        const auto& states = f.cmboState.items();
        ASSERT_EQ(states.size(), 52u);
        EXPECT_EQ(states.front(), "None");
        EXPECT_EQ(states[8], "Deleware");
        EXPECT_EQ(states[9], "District of Columbia");
        EXPECT_EQ(states[22], "Massachsetts");
        EXPECT_EQ(states.back(), "Wyoming");
        EXPECT_TRUE(std::is_sorted(states.begin() + 1, states.end()));

        EXPECT_EQ(f.txtName.text(), "Ada Lind");
        EXPECT_EQ(f.txtScore.text(), "181250");
        EXPECT_EQ(f.txtHomeTown.text(), "Dayton");
        EXPECT_EQ(f.cmboState.text(), "Ohio");
        EXPECT_EQ(f.txtCountry.text(), "Canada");
        EXPECT_EQ(f.txtOther.text(), "");
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton, Ohio, Canada");

        // Every change is in the sample at once; "None" and "United States" are left out.
        f.cmboState.setListIndex(0);
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton, Canada");
        f.txtCountry.setText("United States");
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton");
        f.cmboState.setListIndex(43);
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton, Tennessee");
        f.txtCountry.setText("united states");
        EXPECT_EQ(f.txtSample.text(), "181,250 by Ada Lind of Dayton, Tennessee, united states");
        f.txtName.setText("Bo");
        f.txtHomeTown.setText("");
        EXPECT_EQ(f.txtSample.text(), "181,250 by Bo of , Tennessee, united states");
        s.click("cmdCancel");
    });
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

TEST(ComposeHighScore, TheScoreBoxHoldsTheNumberItReadsAndNoMoreThanTheTopScore) {
    EXPECT_EQ(ParseScoreText(""), 0);
    EXPECT_EQ(ParseScoreText("1,234,567"), 1234567);
    EXPECT_EQ(ParseScoreText(",,,9,,"), 9);
    EXPECT_EQ(ParseScoreText("  42 points"), 42);
    EXPECT_EQ(ParseScoreText("abc"), 0);
    EXPECT_EQ(ParseScoreText("-17"), -17);
    EXPECT_EQ(ParseScoreText("12.5"), 12);  // half to even
    EXPECT_EQ(ParseScoreText("13.5"), 14);
    EXPECT_EQ(ParseScoreText(std::string(100, '9')), 2147483647);  // held, never wrapped
    EXPECT_EQ(ParseScoreText("2147483648"), 2147483647);

    Submission s;
    s.table("Ada", 200000);
    int refusals = 0;
    s.compose([&](frmComposeHighScore& f) {
        // Commas, letters and blanks go as they are typed.
        f.txtScore.setText("199,999");
        EXPECT_EQ(f.txtScore.text(), "199999");
        f.txtScore.setText("1 2 3");
        EXPECT_EQ(f.txtScore.text(), "1");
        f.txtScore.setText("x7");
        EXPECT_EQ(f.txtScore.text(), "0");
        EXPECT_EQ(f.txtSample.text().substr(0, 5), "0 by ");
        f.txtScore.setText("-5");
        EXPECT_EQ(f.txtScore.text(), "-5");

        // Above the top: refused as typed, the top put back, selected and focused.
        for (const std::string& typed :
             std::vector<std::string>{"200001", "2,000,000", std::string(100, '9')}) {
            s.t.fake.queueAnswer(MsgResult::OK);
            f.txtScore.setText(typed);
            ++refusals;
            EXPECT_EQ(f.txtScore.text(), "200000") << typed;
            EXPECT_EQ(f.txtScore.selStart, 0);
            EXPECT_EQ(f.txtScore.selLength, 6);
            EXPECT_EQ(f.activeControl(), &f.txtScore);
            EXPECT_EQ(f.txtSample.text(), "200,000 by Ada of Unknown");
        }
        f.txtScore.setText("200000");  // the top itself is fine
        s.click("cmdCancel");
    });
    EXPECT_EQ(s.t.fake.messages(), std::vector<std::string>(refusals, kTooHigh));
    EXPECT_THAT(s.t.fake.takeLog(), ::testing::Contains("msgbox Tierfall! | exclamation | " +
                                                        std::string(kTooHigh) + " -> OK"));
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

TEST(ComposeHighScore, EachGamesMinimumPassesExactlyAndOnePointLessIsRefused) {
    Submission s;
    for (const GameInfo& info : allGames()) {
        SCOPED_TRACE(info.formName);
        if (!s.game || s.game->info().formName != info.formName) {
            s.t.fake.queueAnswer(MsgResult::Yes);
            s.t.click(s.game->info().formName, s.game->info().exitButton);
            s.open(info.formName);
        }
        s.table("Ada", info.submitMinimum);
        const std::size_t mailsBefore = s.t.fake.mails().size();
        const std::string refusal = "Sorry, in order to list your " + info.title +
                                    " high score on the web you must achieve a minimum score of " +
                                    formatScore(info.submitMinimum) +
                                    ".\nKeep playing, you can do it!";
        s.compose([&](frmComposeHighScore& f) {
            f.txtScore.setText(std::to_string(info.submitMinimum - 1));
            s.t.fake.queueAnswer(MsgResult::OK);
            s.click("cmdSubmit");
            EXPECT_TRUE(s.open());
            EXPECT_EQ(s.t.fake.messages().back(), refusal);
            EXPECT_EQ(s.t.fake.mails().size(), mailsBefore);
            f.txtScore.setText(std::to_string(info.submitMinimum));
            s.t.fake.queueAnswer(MsgResult::OK);
            s.click("cmdSubmit");
            EXPECT_FALSE(s.open());
        });
        ASSERT_EQ(s.t.fake.mails().size(), mailsBefore + 1);
        EXPECT_EQ(s.t.fake.mails().back().subject, "Corvanna High Score Listing for " + info.title);
        EXPECT_EQ(s.t.fake.messages().back(),
                  "The message has been successfully placed in your out box.");
    }
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

TEST(ComposeHighScore, TheTimeLimitIsCheckedAfterTheScore) {
    Submission s("frmSpirefold");
    auto& g = s.t.prog.state;
    g.RoundSeconds = 60;  // Spirefold lists scores of 45 seconds only
    s.table("Ada", 95000);
    const std::string wrongLimit =
        "Sorry, in order to list your Spirefold! high score on the web you must be using the "
        "default time limit of 45 seconds.";
    s.compose([&](frmComposeHighScore& f) {
        for (int i = 0; i < 2; ++i)
            s.t.fake.queueAnswer(MsgResult::OK);
        f.txtScore.setText("89999");
        s.click("cmdSubmit");  // low and under the wrong limit: the score is named first
        f.txtScore.setText("95000");
        s.click("cmdSubmit");
        EXPECT_TRUE(s.open());
        s.click("cmdCancel");
    });
    const auto messages = s.t.fake.messages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].substr(0, 73),
              "Sorry, in order to list your Spirefold! high score on the web you must ac");
    EXPECT_EQ(messages[1], wrongLimit);
    EXPECT_THAT(s.t.fake.takeLog(),
                ::testing::Contains("msgbox Spirefold! | information | " + wrongLimit + " -> OK"));
    EXPECT_TRUE(s.t.fake.mails().empty());
}

TEST(ComposeHighScore, TheMailGoesToTheKeeperWithTheListingAndTheDetailsAreKept) {
    Submission s;
    auto& g = s.t.prog.state;
    g.CustomScoring = true;
    g.Tierfall.EnhancedScoring = false;
    s.table("Ada Lind", 190000);
    s.compose([&](frmComposeHighScore& f) {
        f.txtHomeTown.setText("Lyon");
        f.cmboState.setListIndex(0);
        f.txtCountry.setText("France");
        f.txtOther.setText("Played on a train.\nSecond line & more");
        s.t.fake.queueAnswer(MsgResult::OK);
        s.click("cmdSubmit");
    });
    ASSERT_EQ(s.t.fake.mails().size(), 1u);
    const MailMessage& mail = s.t.fake.mails()[0];
    EXPECT_EQ(mail.recipientName, "Orlund");
    EXPECT_EQ(mail.recipientAddress, "highscores@example.org");
    EXPECT_EQ(mail.subject, "Corvanna High Score Listing for Tierfall!");
    EXPECT_EQ(mail.body,
              "190,000 by Ada Lind of Lyon, France\r\n\r\nCustom scoring is currently True\r\n\r\n"
              "Tierfall enahnced scoring mode is False\r\n\r\nPlayed on a train.\r\nSecond line & "
              "more");
    EXPECT_EQ(g.UserName, "Ada Lind");
    EXPECT_EQ(g.UserHometown, "Lyon");
    EXPECT_EQ(g.UserState, "None");
    EXPECT_EQ(g.UserCountry, "France");
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

TEST(ComposeHighScore, AMailFailureIsNamedAndTheDialogStaysOpen) {
    Submission s;
    s.table("Ada", 180000);
    s.t.fake.mailResult = {false, "No mail program is set up on this computer."};
    s.compose([&](frmComposeHighScore& f) {
        f.txtHomeTown.setText("Oslo");
        s.t.fake.queueAnswer(MsgResult::OK);
        s.click("cmdSubmit");
        EXPECT_TRUE(s.open());
        EXPECT_EQ(s.t.prog.state.UserHometown, "Unknown");  // nothing kept yet
        s.t.fake.mailResult = {true, ""};
        s.t.fake.queueAnswer(MsgResult::OK);
        s.click("cmdSubmit");
        EXPECT_FALSE(s.open());
    });
    EXPECT_THAT(s.t.fake.messages(),
                ElementsAre("There was an error attempting to access your e-mail messaging "
                            "system. Please report this to highscores@example.org. Error "
                            "description: No mail program is set up on this computer.",
                            "The message has been successfully placed in your out box."));
    EXPECT_THAT(s.t.fake.takeLog(),
                ::testing::Contains(::testing::StartsWith("msgbox Tierfall! | critical | There")));
    EXPECT_EQ(s.t.fake.mails().size(), 2u);
    EXPECT_EQ(s.t.prog.state.UserHometown, "Oslo");
}

TEST(ComposeHighScore, ADamagedTableGivesAnEmptyListingThatCannotBeSent) {
    Submission s;
    const HighScoreChoice choice = CurrentHighScoreTable(s.t.prog);
    ASSERT_TRUE(writeFileAtomic(HighScoreFilePath(s.t.prog, choice.tableName),
                                std::string("\x01\x02 not a table", 15)));
    s.t.fake.queueAnswer(MsgResult::OK);  // the Hall of Fame names the damaged file
    s.compose([&](frmComposeHighScore& f) {
        EXPECT_EQ(f.txtName.text(), "");
        EXPECT_EQ(f.txtScore.text(), "");  // nothing typed yet: read as 0
        EXPECT_EQ(f.txtSample.text(), "0 by  of Unknown");
        s.t.fake.queueAnswer(MsgResult::OK);
        s.click("cmdSubmit");
        EXPECT_TRUE(s.open());
        s.click("cmdCancel");
    });
    const auto messages = s.t.fake.messages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_NE(messages[0].find("could not be shown"), std::string::npos);
    EXPECT_NE(messages[1].find("minimum score of 175,000"), std::string::npos);
    EXPECT_TRUE(s.t.fake.mails().empty());
    EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
}

TEST(ComposeHighScore, CancelKeepsTheDetailsForTheNextGameAndTheNextRun) {
    QTemporaryDir data;
    {
        Submission s("frmTierfall", data.path().toStdString());
        s.table("Ada", 100);
        s.compose([&](frmComposeHighScore& f) {
            f.txtName.setText("Cy Moor");
            f.txtHomeTown.setText("Perth, WA");
            f.cmboState.setListIndex(51);
            f.txtCountry.setText("Australia");
            s.click("cmdCancel");
        });
        auto& g = s.t.prog.state;
        EXPECT_EQ(g.UserName, "Cy Moor");
        EXPECT_EQ(g.UserState, "Wyoming");
        // The next listing starts from them, but for the name: that is the top row's again,
        // and Cancel keeps it.
        s.compose([&](frmComposeHighScore& f) {
            EXPECT_EQ(f.txtName.text(), "Ada");
            EXPECT_EQ(f.txtHomeTown.text(), "Perth, WA");
            EXPECT_EQ(f.cmboState.text(), "Wyoming");
            EXPECT_EQ(f.txtCountry.text(), "Australia");
            s.click("cmdCancel");
        });
        EXPECT_TRUE(s.t.fake.mails().empty());
        // Closing the selector writes them to User.ini.
        s.t.fake.queueAnswer(MsgResult::Yes);
        s.t.click("frmTierfall", "cmdExit");
        s.t.click("frmSelect", "cmdClose");
        EXPECT_THAT(s.t.fake.takeErrors(), ElementsAre());
    }
    // The next run reads them back; the home town ends at its comma, as every value does.
    TestProgram next(1, data.path().toStdString());
    EXPECT_EQ(next.prog.state.UserName, "Ada");
    EXPECT_EQ(next.prog.state.UserHometown, "Perth");
    EXPECT_EQ(next.prog.state.UserState, "Wyoming");
    EXPECT_EQ(next.prog.state.UserCountry, "Australia");
}

}  // namespace corvanna
