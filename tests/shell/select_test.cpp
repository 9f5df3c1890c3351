// The selector: start-up, the user's details, the turning cards, the web page and Close.

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "common/FileStore.h"
#include "common/WebLinks.h"
#include "shell/Startup.h"
#include "shell/frmSelect.h"
#include "testkit/TestProgram.h"

namespace corvanna {

const char kDefaultUserIni[] =
    "[User Name]\r\nUnknown User\r\n\r\n[Hometown]\r\nUnknown\r\n\r\n[State]\r\nNone\r\n\r\n"
    "[Country]\r\nUnited States\r\n\r\n";

TEST(Selector, FirstStartShowsNineGamesAndWritesTheUserDefaults) {
    TestProgram t;
    auto& s = static_cast<frmSelect&>(t.select);
    EXPECT_TRUE(s.visible());
    EXPECT_EQ(s.caption(), "The Corvanna Collection");
    EXPECT_EQ(s.frmGameChoice.caption(), "Select your game");
    const char* names[] = {"Tierfall",  "Fivestack", "Hitspree",   "Spirefold", "Duomatch",
                           "Gridflush", "Colclear",  "Lettermine", "Wildslot"};
    for (const char* n : names) {
        Control& b = t.control("frmSelect", std::string("cmd") + n);
        EXPECT_EQ(b.caption(), std::string("&") + n);
        EXPECT_EQ(b.toolTipText(), std::string("Play ") + n + "!");
        EXPECT_EQ(b.container(), &s.frmGameChoice);
    }
    EXPECT_EQ(s.cmdLaunchBrowser.caption(), "&Go to the Velmora website");
    EXPECT_EQ(s.cmdLaunchBrowser.toolTipText(), "Go to the Velmora Web Site");
    EXPECT_EQ(s.cmdClose.caption(), "Cl&ose");
    EXPECT_EQ(s.cmdClose.toolTipText(), "Close the Corvanna");
    EXPECT_EQ(s.Timer1.interval(), 250);
    EXPECT_TRUE(t.fake.isRunning(s.Timer1));
    EXPECT_EQ(t.prog.state.NewHighScoreRow, -1);
    EXPECT_EQ(t.file("User.ini"), kDefaultUserIni);
    EXPECT_EQ(t.prog.state.AppPath, t.dataDir() + "/");
    EXPECT_TRUE(t.fake.takeErrors().empty());
    EXPECT_TRUE(t.fake.messages().empty());
}

TEST(Selector, UserIniReadBackWithMissingKeysAndCommas) {
    QTemporaryDir dir;
    const std::string path = dir.path().toStdString();
    ASSERT_TRUE(writeFileAtomic(
        path + "/User.ini",
        "[Hometown]\r\nAnn Arbor, MI\r\n\r\n[Country]\r\n\"Canada\"\r\n\r\n[state]\r\nOhio\r\n"));
    TestProgram t(1, path);
    auto& g = t.prog.state;
    EXPECT_EQ(g.UserName, "Unknown User");
    EXPECT_EQ(g.UserHometown, "Ann Arbor");  // cut at the comma
    EXPECT_EQ(g.UserState, "None");          // keys are case-sensitive
    EXPECT_EQ(g.UserCountry, "Canada");
    // A file that is there is not rewritten at start.
    EXPECT_NE(t.file("User.ini"), kDefaultUserIni);

    // Close writes what is in force and ends the program.
    g.UserName = "Rosa";
    t.click("frmSelect", "cmdClose");
    EXPECT_TRUE(t.fake.quitRequested());
    EXPECT_EQ(t.file("User.ini"),
              "[User Name]\r\nRosa\r\n\r\n[Hometown]\r\nAnn Arbor\r\n\r\n[State]\r\nNone\r\n\r\n"
              "[Country]\r\nCanada\r\n\r\n");
}

TEST(Selector, CardsTurnToFacesThenToEachBackInTurn) {
    TestProgram t;
    auto& s = static_cast<frmSelect&>(t.select);
    std::vector<std::string> backsInOrder;  // each back design as it first turns up
    std::set<std::string> facesSeen;
    for (int tick = 0; tick < 200; ++tick) {
        t.prog.state.TakingScore = true;
        t.fake.advance(250);
        EXPECT_FALSE(t.prog.state.TakingScore);  // cleared four times a second
        for (Control* img : s.imgSplashImage) {
            const std::string p = img->picture();
            const int slot = t.prog.pictures.slotOf(p);
            if (slot >= 14 && slot <= 65)
                facesSeen.insert(p);
            else if (std::find(backsInOrder.begin(), backsInOrder.end(), p) == backsInOrder.end())
                backsInOrder.push_back(p);
        }
    }
    EXPECT_GT(facesSeen.size(), 8u);
    // The row starts on the chosen back, then cycles Palm Tree, Magic Hands, Night Castle.
    EXPECT_EQ(backsInOrder, (std::vector<std::string>{"palm-back", "magic-back", "night-back"}));
}

TEST(Selector, WebPageOpensOrSaysWhyNot) {
    TestProgram t;
    t.click("frmSelect", "cmdLaunchBrowser");
    EXPECT_TRUE(logHas(t.fake.takeLog(), std::string("url ") + kHomePageUrl));
    EXPECT_TRUE(t.fake.messages().empty());

    // Each failure is told, and the next click tries the page again.
    t.fake.urlResult = UrlResult::NoBrowser;
    t.fake.queueAnswer(MsgResult::OK);
    t.click("frmSelect", "cmdLaunchBrowser");
    t.fake.urlResult = UrlResult::Failed;
    t.fake.queueAnswer(MsgResult::OK);
    t.click("frmSelect", "cmdLaunchBrowser");
    const std::string url = kHomePageUrl;
    EXPECT_EQ(
        only(t.fake.takeLog(), {"url", "msgbox"}),
        (std::vector<std::string>{
            "url " + url, "msgbox  | exclamation | Unable to find default web Browser -> OK",
            "url " + url, "msgbox  | exclamation | Unable to open web page '" + url + "'. -> OK"}));
}

TEST(Selector, UnusableDataFolderIsNamedAndTheProgramGoesOn) {
    QTemporaryDir dir;
    const std::string blocker = dir.path().toStdString() + "/not-a-folder";
    ASSERT_TRUE(writeFileAtomic(blocker, "x"));
    const std::string dataDir = blocker + "/corvanna";
    FakePlatform fake;
    fake.queueAnswer(MsgResult::OK);
    Program prog(fake, dataDir, 1);
    EXPECT_FALSE(prog.dataDirUsable());
    // The selector comes up all the same, with a message that names the folder.
    Form& select = startSelector(prog);
    EXPECT_TRUE(select.visible());
    ASSERT_EQ(fake.messages().size(), 1u);
    EXPECT_NE(fake.messages()[0].find(dataDir), std::string::npos);
    EXPECT_TRUE(fake.takeErrors().empty());
    // A game still opens and plays.
    auto* button = select.find("cmdDuomatch");
    ASSERT_NE(button, nullptr);
    button->Click();
    EXPECT_NE(prog.findForm("frmDuomatch"), nullptr);
    EXPECT_FALSE(fileExists(dataDir + "/User.ini"));
}

}  // namespace corvanna
