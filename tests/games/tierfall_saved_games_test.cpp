// Tierfall's saved games through the form: the menu entries and when they may be used,
// a game saved and opened again by another player, the replay of its deals, the time
// limit question, damaged files, and the game the program was started with.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "TierfallTable.h"
#include "common/FileStore.h"
#include "games/tierfall/SavedGame.h"
#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/frmOpen.h"
#include "games/tierfall/frmSave.h"
#include "shell/Startup.h"

namespace corvanna {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using tierfall_test::Table;

namespace {

const char* const kOpenError =
    "Unable to open the requested file. It may be damaged or you may have entered an invalid "
    "file name.";

// Saves the last game through the menu, under the name typed, in the data folder.
void saveThroughMenu(TestProgram& t, const std::string& name, const std::string& player) {
    t.fake.queueModal([&](Form& dialog) {
        auto& save = dynamic_cast<frmSave&>(dialog);
        save.txtGameName.setText(name);
        save.txtUserName.setText(player);
        t.click("frmSave", "cmdOK");
    });
    t.click("frmTierfall", "mnuSave");
}

// Opens a game through the menu: the folder chosen, then a double click on the file.
void openThroughMenu(TestProgram& t, const std::string& folder, const std::string& file) {
    t.fake.queueModal([&](Form& dialog) {
        auto& open = dynamic_cast<frmOpen&>(dialog);
        open.browser.setFolder(folder);
        tierfall_test::dblClickItem(open.File1, file);
    });
    t.click("frmTierfall", "mnuOpen");
}

std::string savedGameFile(int goal, int seconds, const std::string& score,
                          const std::string& name) {
    SavedGame game;
    game.cardGoal = goal;
    game.seconds = seconds;
    game.scoreText = score;
    game.userName = name;
    game.decks[0] = TierfallBoard::elevensDeck(goal);
    std::reverse(game.decks[0].begin() + 1, game.decks[0].end());
    return SavedGameText(game);
}

}  // namespace

TEST(TierfallSavedGames, MenusStandInTheGameMenuAndWaitForAGameToEnd) {
    Table x;
    auto& [t, f, g] = x;
    std::vector<std::string> gameMenu;
    for (Menu* m : f.mnuFile.children())
        gameMenu.push_back(m->name() + " " + m->caption());
    EXPECT_THAT(gameMenu,
                ElementsAre("mnuPlay &Play", "mnuTakeScore &Take Score", "mnuPause Pau&se",
                            "mnuBreak0 -", "mnuSave Sa&ve Last Game...", "mnuOpen &Open Game...",
                            "mnuSep11 -", "mnuExit E&xit"));
    EXPECT_FALSE(f.mnuSave.enabled());
    EXPECT_TRUE(f.mnuOpen.enabled());

    t.click("frmTierfall", "cmdPlay");
    EXPECT_FALSE(f.mnuSave.enabled());
    EXPECT_FALSE(f.mnuOpen.enabled());
    t.fake.queueAnswer(MsgResult::Yes);
    t.click("frmTierfall", "cmdPlay");  // End Game
    EXPECT_TRUE(f.mnuSave.enabled());
    EXPECT_TRUE(f.mnuOpen.enabled());

    // A game started from the menu can't be saved while it runs either.
    t.click("frmTierfall", "mnuPlay");
    EXPECT_FALSE(f.mnuSave.enabled());
    EXPECT_FALSE(f.mnuOpen.enabled());
}

TEST(TierfallSavedGames, AnotherPlayerOpensTheSavedGameAndReplaysItsDeals) {
    TestProgram first(3);
    first.openGame("frmTierfall");
    first.prog.state.BonusRoundScore = 18000;  // the game reaches all three rounds
    first.click("frmTierfall", "cmdPlay");
    first.click("frmTierfall", "cmdTakeScore");
    first.click("frmTierfall", "cmdTakeScore");
    first.click("frmTierfall", "cmdTakeScore");
    ASSERT_FALSE(first.prog.state.GameInProgress);
    const auto decks = tierfallValues(first.prog).RoundDecks;
    ASSERT_NE(decks[2][1], "");
    saveThroughMenu(first, "three rounds", "Ada");
    const std::string path = first.prog.filePath("three rounds.tfl");
    std::string bytes;
    ASSERT_EQ(readWholeFile(path, bytes), ReadStatus::Ok);
    EXPECT_EQ(bytes, SavedGameText(first.prog.state, tierfallValues(first.prog), "Ada"));

    Table x(99);
    auto& [second, f, g] = x;
    second.fake.takeLog();
    second.fake.queueAnswer(MsgResult::OK);
    openThroughMenu(second, first.dataDir(), "three rounds.tfl");
    EXPECT_THAT(second.fake.takeLog(),
                ::testing::Contains("msgbox Saved Game Information | information | This game was "
                                    "saved by Ada. He or she accumulated a sorry score of 27,000 "
                                    "in this game. \nCustomized scoring was not in effect when "
                                    "this game was played.  -> OK"));
    EXPECT_TRUE(g.GameInProgress);
    EXPECT_TRUE(tierfallValues(second.prog).ReplayRequested);
    EXPECT_EQ(f.cmdPlay.caption(), "&End Game");
    EXPECT_FALSE(f.frmSplash.visible());
    EXPECT_FALSE(second.fake.isRunning(f.Timer4));
    EXPECT_EQ(g.Deck, decks[0]);
    second.click("frmTierfall", "cmdTakeScore");
    EXPECT_EQ(g.Deck, decks[1]);
    g.BonusRoundScore = 0;
    second.click("frmTierfall", "cmdTakeScore");
    ASSERT_EQ(g.RoundNumber, 3);
    EXPECT_EQ(g.Deck, decks[2]);
}

TEST(TierfallSavedGames, ADifferentTimeLimitIsOfferedAndNoKeepsTheOwn) {
    Table x;
    auto& [t, f, g] = x;
    ASSERT_TRUE(writeFileAtomic(t.prog.filePath("short.tfl"), savedGameFile(11, 30, "5", "")));
    const std::string question =
        "This game was saved by an anonymous user. He or she amassed a pitiful score of 5 in "
        "this game. \nCustomized scoring was not in effect when this game was played. This game "
        "was saved with the time limit set to 30. Your time limit is currently set to 90. Do you "
        "want to change your time limit to 30?";

    t.fake.queueAnswer(MsgResult::No);
    t.fake.takeLog();
    openThroughMenu(t, t.dataDir(), "short.tfl");
    EXPECT_THAT(
        t.fake.takeLog(),
        ::testing::Contains("msgbox Saved Game Information | question | " + question + " -> No"));
    EXPECT_EQ(g.RoundSeconds, 90);
    EXPECT_TRUE(g.GameInProgress);

    t.fake.queueAnswer(MsgResult::Yes);
    t.click("frmTierfall", "cmdPlay");  // End Game
    t.fake.queueAnswer(MsgResult::Yes);
    openThroughMenu(t, t.dataDir(), "short.tfl");
    EXPECT_EQ(g.RoundSeconds, 30);
    EXPECT_TRUE(static_cast<Menu&>(t.control("frmTierfall", "mnu30")).checked());
    EXPECT_FALSE(static_cast<Menu&>(t.control("frmTierfall", "mnu90")).checked());
    EXPECT_TRUE(fileExists(t.prog.filePath("ES Tierfall Hi Score Table 11_30.Txt")));

    // A limit the menu doesn't offer is taken as it stands, with no entry checked.
    t.fake.queueAnswer(MsgResult::Yes);
    t.click("frmTierfall", "cmdPlay");
    ASSERT_TRUE(writeFileAtomic(t.prog.filePath("odd.tfl"), savedGameFile(11, 45, "5", "")));
    t.fake.queueAnswer(MsgResult::Yes);
    openThroughMenu(t, t.dataDir(), "odd.tfl");
    EXPECT_EQ(g.RoundSeconds, 45);
    for (Menu* m : f.mnuTime.children())
        EXPECT_FALSE(m->checked()) << m->name();
    EXPECT_TRUE(fileExists(t.prog.filePath("ES Tierfall Hi Score Table 11_45.Txt")));
}

TEST(TierfallSavedGames, ADamagedFileChangesNothingAndTheDialogStaysOpen) {
    Table x;
    auto& [t, f, g] = x;
    x.playShortGame();
    const auto decksBefore = tierfallValues(t.prog).RoundDecks;
    std::string goal14 = savedGameFile(14, 90, "1", "x");
    const std::vector<std::pair<std::string, std::string>> damaged{
        {"cut.tfl", goal14.substr(0, goal14.size() / 2)},
        {"goal.tfl", "[Card Goal]\r\n16\r\n" + goal14.substr(goal14.find("[Time"))},
        {"binary.tfl", std::string("[Card Goal]\r\n14\r\n\0\x01\x02", 20)},
    };
    for (const auto& [name, bytes] : damaged)
        ASSERT_TRUE(writeFileAtomic(t.prog.filePath(name), bytes));
    t.fake.takeLog();
    for (std::size_t i = 0; i <= damaged.size(); ++i)
        t.fake.queueAnswer(MsgResult::OK);
    t.fake.queueModal([&](Form& dialog) {
        auto& open = dynamic_cast<frmOpen&>(dialog);
        for (const auto& entry : damaged) {
            open.txtGameName.setText(entry.first);
            t.click("frmOpen", "cmdOK");
            EXPECT_TRUE(open.visible()) << entry.first;
        }
        open.txtGameName.setText("missing");  // no file of that name, with or without ".tfl"
        t.click("frmOpen", "cmdOK");
        EXPECT_TRUE(open.visible());
        t.click("frmOpen", "cmdCancel");
    });
    t.click("frmTierfall", "mnuOpen");
    EXPECT_EQ(t.fake.messages(), std::vector<std::string>(damaged.size() + 1, kOpenError));
    EXPECT_THAT(t.fake.takeLog(), ::testing::Contains("msgbox Tierfall! | critical | " +
                                                      std::string(kOpenError) + " -> OK"));
    EXPECT_EQ(tierfallValues(t.prog).CardGoal, 11);
    EXPECT_TRUE(f.mnuGoals[1]->checked());
    EXPECT_EQ(tierfallValues(t.prog).RoundDecks, decksBefore);
    EXPECT_FALSE(g.GameInProgress);
    EXPECT_FALSE(tierfallValues(t.prog).ReplayRequested);
    EXPECT_EQ(f.cmdTakeScore->caption(), "&Replay");
    EXPECT_TRUE(f.mnuSave.enabled());
}

TEST(TierfallSavedGames, TheProgramStartedWithAGameOpensTierfallSetsItsGoalAndReplaysItOnce) {
    TestProgram maker;
    const std::string path = maker.prog.filePath("from the file manager.tfl");
    ASSERT_TRUE(writeFileAtomic(path, savedGameFile(14, 60, "160001", "Bo, of the hills")));

    FakePlatform fake;
    QTemporaryDir dir;
    Program prog(fake, dir.path().toStdString(), 5);
    prog.setCommandLine(path);
    fake.queueAnswer(MsgResult::Yes);  // take the saved game's 60 seconds
    Form& select = startSelector(prog);
    auto* f = dynamic_cast<frmTierfall*>(prog.findForm("frmTierfall"));
    ASSERT_NE(f, nullptr);
    EXPECT_TRUE(f->visible());
    EXPECT_FALSE(select.visible());
    EXPECT_EQ(prog.state.AppTitle, "Tierfall!");
    // The name was written in quotes, so its comma does not cut it.
    EXPECT_THAT(fake.messages(),
                ElementsAre(HasSubstr("This game was saved by Bo, of the hills. He "
                                      "or she earned an unbelievable score of "
                                      "160,001 in this game.")));
    EXPECT_EQ(tierfallValues(prog).CardGoal, 14);
    EXPECT_TRUE(f->mnuGoals[4]->checked());
    EXPECT_FALSE(f->mnuGoals[1]->checked());
    EXPECT_EQ(f->lblElevens.caption(), "Fourteens:");
    EXPECT_EQ(prog.state.RoundSeconds, 60);
    EXPECT_TRUE(prog.state.GameInProgress);
    auto reversed = TierfallBoard::elevensDeck(14);
    std::reverse(reversed.begin() + 1, reversed.end());
    EXPECT_EQ(prog.state.Deck, reversed);
    EXPECT_EQ(prog.commandLine(), "");
    // A round the saved game never reached is shuffled anew from the goal's deck.
    prog.state.BonusRoundScore = 0;
    userClick(*f->cmdTakeScore);
    userClick(*f->cmdTakeScore);
    ASSERT_EQ(prog.state.RoundNumber, 3);
    EXPECT_EQ(prog.state.Deck.size(), 65u);
    EXPECT_FALSE(tierfallValues(prog).ReplayRequested);

    // Back at the selector and into Tierfall again: a plain start, nothing opened.
    fake.queueAnswer(MsgResult::Yes);  // end the game
    userClick(f->cmdPlay);
    fake.queueAnswer(MsgResult::Yes);  // leave
    userClick(f->cmdExit);
    ASSERT_TRUE(select.visible());
    userClick(*select.find("cmdTierfall"));
    auto* again = dynamic_cast<frmTierfall*>(prog.findForm("frmTierfall"));
    ASSERT_NE(again, nullptr);
    EXPECT_FALSE(prog.state.GameInProgress);
    EXPECT_EQ(fake.messages().size(), 3u);
    EXPECT_THAT(fake.takeErrors(), ElementsAre());
}

TEST(TierfallSavedGames, AStartingFileThatCannotBeOpenedLeavesTierfallIdle) {
    FakePlatform fake;
    QTemporaryDir dir;
    Program prog(fake, dir.path().toStdString(), 5);
    prog.setCommandLine(dir.path().toStdString() + "/no such game.tfl");
    fake.queueAnswer(MsgResult::OK);
    Form& select = startSelector(prog);
    auto* f = dynamic_cast<frmTierfall*>(prog.findForm("frmTierfall"));
    ASSERT_NE(f, nullptr);
    EXPECT_FALSE(select.visible());
    EXPECT_THAT(fake.messages(), ElementsAre(kOpenError));
    EXPECT_FALSE(prog.state.GameInProgress);
    EXPECT_TRUE(f->frmSplash.visible());
    EXPECT_THAT(fake.takeErrors(), ElementsAre());
}

}  // namespace corvanna
