// Save Game and Open Game on the virtual platform: the file written, the overwrite
// question, names and folders refused, the game's open function, and the drive,
// folder and file lists over a real temporary folder.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

#include "common/FileStore.h"
#include "common/FolderBrowser.h"
#include "games/TierfallTable.h"
#include "games/tierfall/SavedGame.h"
#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/frmOpen.h"
#include "games/tierfall/frmSave.h"

namespace corvanna {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using tierfall_test::dblClickItem;

namespace {

const char* const kSaveError =
    "Unable to save the file. Please verify that you have entered a valid path and file name.";
const char* const kOverwrite = "A file of that name already exists. Overwrite?";

struct Dialogs {
    TestProgram t;
    std::string folder;  // the data folder, with its slash

    Dialogs() {
        auto& g = t.prog.state;
        g.AppTitle = "Tierfall";
        g.UserName = "Marta Quill";
        g.RoundSeconds = 120;
        g.CustomScoring = false;
        tierfallValues(t.prog).CardGoal = 12;
        tierfallValues(t.prog).LastScore = 88000;
        auto deck = TierfallBoard::elevensDeck(12);
        std::shuffle(deck.begin() + 1, deck.end(), std::mt19937(5));
        tierfallValues(t.prog).RoundDecks[0] = deck;
        tierfallValues(t.prog).RoundDecks[1] = std::vector<std::string>(57);
        tierfallValues(t.prog).RoundDecks[2] = std::vector<std::string>(57);
        folder = g.AppPath;
        t.fake.takeLog();
    }
    ~Dialogs() { EXPECT_THAT(t.fake.takeErrors(), ElementsAre()); }

    std::string read(const std::string& name) const {
        std::string bytes;
        readWholeFile(folder + name, bytes);
        return bytes;
    }
    void write(const std::string& name, const std::string& bytes) const {
        ASSERT_TRUE(writeFileAtomic(folder + name, bytes));
    }
    // Saves with the script run while the dialog is up.
    bool save(const std::function<void(frmSave&)>& script) {
        t.fake.queueModal([&](Form& f) { script(dynamic_cast<frmSave&>(f)); });
        return ShowSaveGame(t.prog);
    }
    void click(const std::string& form, const std::string& control) { t.click(form, control); }
};

// Drops root's right to read and write anything, in a child process only: a folder's
// permissions then hold as they would for a player.
void becomeUnprivileged() {
    if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
        std::_Exit(3);
}

}  // namespace

TEST(SavedGameDialogs, SaveWritesTheLastGameUnderTheNameTypedWithTfl) {
    Dialogs d;
    const bool saved = d.save([&](frmSave& f) {
        EXPECT_EQ(f.caption(), "Save Game");
        EXPECT_EQ(f.lblSaveInfo.caption(),
                  "Use this dialog to save the last game played. \nYou may load a saved game "
                  "later to replay it. This cannot be used to save a game in progress.");
        EXPECT_EQ(f.lblGameName.caption(), "Save as:");
        EXPECT_EQ(f.lblUserName.caption(), "Player name:");
        EXPECT_EQ(f.txtGameName.text(), "*.tfl");
        EXPECT_EQ(f.txtUserName.text(), "Marta Quill");
        // It opens on the program's folder, shown last of the folders above it.
        EXPECT_EQ(f.browser.folder() + "/", d.folder);
        EXPECT_EQ(f.Dir1.listIndex(), std::count(d.folder.begin(), d.folder.end(), '/') - 1);
        EXPECT_TRUE(d.folder.starts_with(f.Drive1.text()));
        EXPECT_TRUE(f.File1.items().empty());
        f.txtGameName.setText("evening");
        d.click("frmSave", "cmdOK");
    });
    EXPECT_TRUE(saved);
    EXPECT_EQ(d.t.prog.findForm("frmSave"), nullptr);
    EXPECT_TRUE(d.t.fake.messages().empty());
    const std::string bytes = d.read("evening.tfl");
    EXPECT_EQ(bytes, SavedGameText(d.t.prog.state, tierfallValues(d.t.prog), "Marta Quill"));
    EXPECT_FALSE(fileExists(d.folder + "evening"));

    // The next time the file is listed, a click takes its name and Cancel saves nothing.
    EXPECT_FALSE(d.save([&](frmSave& f) {
        EXPECT_THAT(f.File1.items(), ElementsAre("evening.tfl"));
        f.File1.setListIndex(0);
        EXPECT_EQ(f.txtGameName.text(), "evening.tfl");
        d.click("frmSave", "cmdCancel");
    }));
    EXPECT_EQ(d.read("evening.tfl"), bytes);

    // An empty player name is saved as an anonymous user; a name with a dot keeps it.
    EXPECT_TRUE(d.save([&](frmSave& f) {
        f.txtUserName.setText("");
        f.txtGameName.setText("nobody.game");
        d.click("frmSave", "cmdOK");
        EXPECT_EQ(f.txtUserName.text(), "an anonymous user");
    }));
    EXPECT_EQ(d.read("nobody.game"),
              SavedGameText(d.t.prog.state, tierfallValues(d.t.prog), "an anonymous user"));
    EXPECT_EQ(d.t.prog.state.UserName, "Marta Quill");  // the name typed is the file's only
}

TEST(SavedGameDialogs, AnExistingFileIsReplacedOnlyOnYes) {
    Dialogs d;
    d.write("old.tfl", "an older game");
    d.t.fake.queueAnswer(MsgResult::No);
    d.t.fake.queueAnswer(MsgResult::Yes);
    EXPECT_TRUE(d.save([&](frmSave& f) {
        f.txtGameName.setText("old.tfl");
        d.click("frmSave", "cmdOK");
        EXPECT_EQ(d.read("old.tfl"), "an older game");
        EXPECT_TRUE(f.visible());
        d.click("frmSave", "cmdOK");
    }));
    EXPECT_EQ(d.read("old.tfl"),
              SavedGameText(d.t.prog.state, tierfallValues(d.t.prog), "Marta Quill"));
    EXPECT_THAT(d.t.fake.takeLog(),
                ::testing::IsSupersetOf(
                    {"msgbox Tierfall | question | " + std::string(kOverwrite) + " -> No",
                     "msgbox Tierfall | question | " + std::string(kOverwrite) + " -> Yes"}));

    // The name without its ".tfl" is asked about too: No keeps the old game.
    d.write("old.tfl", "kept");
    d.t.fake.queueAnswer(MsgResult::No);
    EXPECT_FALSE(d.save([&](frmSave& f) {
        f.txtGameName.setText("old");
        d.click("frmSave", "cmdOK");
        EXPECT_TRUE(f.visible());
        d.click("frmSave", "cmdCancel");
    }));
    EXPECT_EQ(d.read("old.tfl"), "kept");
    EXPECT_EQ(d.t.fake.messages().back(), kOverwrite);

    // A double click on a listed file saves over it, after the same question.
    d.write("other.tfl", "another");
    d.t.fake.queueAnswer(MsgResult::Yes);
    EXPECT_TRUE(d.save([&](frmSave& f) { dblClickItem(f.File1, "other.tfl"); }));
    EXPECT_EQ(d.read("other.tfl"),
              SavedGameText(d.t.prog.state, tierfallValues(d.t.prog), "Marta Quill"));
}

TEST(SavedGameDialogs, NamesThatLeaveTheFolderOrNameNoFileAreRefused) {
    Dialogs d;
    fs::create_directory(d.folder + "sub");
    const std::vector<std::string> names{
        "*.tfl", "game?.tfl", "../escape.tfl", "sub/inner.tfl", "/tmp/abs.tfl", "", "..", "."};
    for (std::size_t i = 0; i < names.size(); ++i)
        d.t.fake.queueAnswer(MsgResult::OK);
    EXPECT_FALSE(d.save([&](frmSave& f) {
        for (const auto& name : names) {
            f.txtGameName.setText(name);
            d.click("frmSave", "cmdOK");
            EXPECT_TRUE(f.visible()) << name;
        }
        d.click("frmSave", "cmdCancel");
    }));
    EXPECT_EQ(d.t.fake.messages(), std::vector<std::string>(names.size(), kSaveError));
    EXPECT_FALSE(fileExists(d.folder + "../escape.tfl"));
    EXPECT_FALSE(fileExists(d.folder + "sub/inner.tfl"));
    EXPECT_FALSE(fileExists("/tmp/abs.tfl"));
    EXPECT_THAT(d.t.fake.takeLog(), ::testing::Contains("msgbox Tierfall | critical | " +
                                                        std::string(kSaveError) + " -> OK"));
}

TEST(SavedGameDialogs, AFailedWriteKeepsTheOldGameWholeSaysSoEachTimeAndTheDialogStays) {
    Dialogs d;
    d.write("evening.tfl", "the old game");
    // A folder where the file would go: told, and another name still saves.
    fs::create_directory(d.folder + "taken.tfl");
    d.t.fake.queueAnswer(MsgResult::OK);
    EXPECT_TRUE(d.save([&](frmSave& f) {
        f.txtGameName.setText("taken");
        d.click("frmSave", "cmdOK");
        f.txtGameName.setText("free");
        d.click("frmSave", "cmdOK");
    }));
    EXPECT_EQ(d.t.fake.messages(), std::vector<std::string>{kSaveError});
    EXPECT_TRUE(fs::is_directory(d.folder + "taken.tfl"));
    EXPECT_TRUE(fileExists(d.folder + "free.tfl"));
    // A full disk, before the first byte or part way.
    for (const std::size_t failAt : {std::size_t{0}, std::size_t{40}}) {
        failWritesAtByte(failAt, "evening.tfl");
        // Asked to overwrite, then told; and the same again on the second try.
        for (int i = 0; i < 2; ++i) {
            d.t.fake.queueAnswer(MsgResult::Yes);
            d.t.fake.queueAnswer(MsgResult::OK);
        }
        EXPECT_FALSE(d.save([&](frmSave& f) {
            f.txtGameName.setText("evening");
            d.click("frmSave", "cmdOK");
            d.click("frmSave", "cmdOK");
            EXPECT_TRUE(f.visible());
            d.click("frmSave", "cmdCancel");
        }));
        failWritesAtByte(std::nullopt);
        EXPECT_EQ(d.read("evening.tfl"), "the old game");
        for (const auto& e : fs::directory_iterator(d.folder))
            EXPECT_EQ(e.path().filename().string().find(kTempMarker), std::string::npos);
    }
    const std::vector<std::string> told = d.t.fake.messages();
    EXPECT_EQ(std::count(told.begin(), told.end(), kSaveError), 1 + 4);
}

TEST(SavedGameDialogsDeathTest, AnUnwritableFolderKeepsTheOldFileAndAClosedOneListsNothing) {
    Dialogs d;
    const std::string locked = d.folder + "locked", closed = d.folder + "closed";
    fs::create_directory(locked);
    fs::create_directories(closed + "/inner");
    ASSERT_TRUE(writeFileAtomic(locked + "/mine.tfl", "the game saved before"));
    ASSERT_TRUE(writeFileAtomic(closed + "/secret.tfl", "x"));
    ::chmod(d.t.tmp.path().toStdString().c_str(), 0755);
    ::chmod(locked.c_str(), 0555);
    ::chmod(closed.c_str(), 0);
    // In a child without root's rights: one folder is read but not written, one not read.
    auto child = [&] {
        becomeUnprivileged();
        d.t.fake.queueAnswer(MsgResult::Yes);
        d.t.fake.queueAnswer(MsgResult::OK);
        bool open = false;
        const bool saved = d.save([&](frmSave& f) {
            f.browser.setFolder(locked);
            f.txtGameName.setText("mine.tfl");
            d.click("frmSave", "cmdOK");
            open = d.t.prog.findForm("frmSave") != nullptr && f.visible();
            d.click("frmSave", "cmdCancel");
        });
        const std::vector<std::string> asked{kOverwrite, kSaveError};
        std::string bytes;
        readWholeFile(locked + "/mine.tfl", bytes);
        const bool kept = bytes == "the game saved before";
        int current = -1;
        const bool listsNothing =
            listFiles(closed, "*").empty() &&
            listFolders(closed, &current).size() == static_cast<std::size_t>(current) + 1 &&
            listFiles(closed + "/inner", "*").empty();
        const bool ok = !saved && open && d.t.fake.messages() == asked && kept && listsNothing &&
                        d.t.fake.takeErrors().empty();
        std::_Exit(ok ? 0 : 1);
    };
    EXPECT_EXIT(child(), ::testing::ExitedWithCode(0), "");
    ::chmod(locked.c_str(), 0755);
    ::chmod(closed.c_str(), 0755);
    EXPECT_EQ(d.read("locked/mine.tfl"), "the game saved before");
    // No half-written file is left beside it.
    EXPECT_EQ(std::distance(fs::directory_iterator(locked), fs::directory_iterator()), 1);
}

TEST(SavedGameDialogs, OpenHandsThePathToTheGameAndClosesWhenItIsTaken) {
    Dialogs d;
    d.write("a.tfl", "x");
    d.write("b.tfl", "x");
    std::vector<std::string> paths;
    bool take = false;
    auto open = [&](const std::string& path) {
        paths.push_back(path);
        return take;
    };
    d.t.fake.queueModal([&](Form& form) {
        auto& f = dynamic_cast<frmOpen&>(form);
        EXPECT_EQ(f.caption(), "Open Game");
        EXPECT_EQ(f.lblOpenInfo.caption(),
                  "Use this dialog to open a previously saved game. If you want to use "
                  "\ncustomized scoring you must set that option before opening a saved game.");
        EXPECT_EQ(f.lblGameName.caption(), "Game file:");
        EXPECT_THAT(f.File1.items(), ElementsAre("a.tfl", "b.tfl"));
        // A wildcard only narrows the list; the game is not asked.
        f.txtGameName.setText("a*");
        d.click("frmOpen", "cmdOK");
        EXPECT_THAT(f.File1.items(), ElementsAre("a.tfl"));
        // Refused by the game: the dialog stays for another choice.
        f.File1.setListIndex(0);
        d.click("frmOpen", "cmdOK");
        EXPECT_NE(d.t.prog.findForm("frmOpen"), nullptr);
        take = true;
        f.txtGameName.setText("b");
        d.click("frmOpen", "cmdOK");
    });
    EXPECT_TRUE(ShowOpenGame(d.t.prog, open));
    EXPECT_EQ(d.t.prog.findForm("frmOpen"), nullptr);
    EXPECT_THAT(paths, ElementsAre(d.folder + "a.tfl", d.folder + "b.tfl"));

    // A double click opens; Cancel opens nothing.
    paths.clear();
    d.t.fake.queueModal(
        [&](Form& form) { dblClickItem(dynamic_cast<frmOpen&>(form).File1, "b.tfl"); });
    EXPECT_TRUE(ShowOpenGame(d.t.prog, open));
    EXPECT_THAT(paths, ElementsAre(d.folder + "b.tfl"));
    d.t.fake.queueModal([&](Form&) { d.click("frmOpen", "cmdCancel"); });
    EXPECT_FALSE(ShowOpenGame(d.t.prog, open));
    EXPECT_EQ(paths.size(), 1u);
}

TEST(SavedGameDialogs, TheListsFollowTheDriveTheFolderAndThePattern) {
    Dialogs d;
    fs::create_directories(d.folder + "Games/old");
    d.write("Games/first.tfl", "x");
    d.write("Games/notes.txt", "x");
    d.write("top.tfl", "x");
    d.t.fake.queueModal([&](Form& form) {
        auto& f = dynamic_cast<frmSave&>(form);
        EXPECT_THAT(f.File1.items(), ElementsAre("top.tfl"));
        const auto& folders = f.Dir1.items();
        const auto games = std::find_if(folders.begin(), folders.end(),
                                        [](const std::string& s) { return s.ends_with("Games"); });
        ASSERT_NE(games, folders.end());
        f.Dir1.setListIndex(static_cast<int>(games - folders.begin()));
        EXPECT_EQ(f.browser.folder(), d.folder + "Games");
        EXPECT_THAT(f.File1.items(), ElementsAre("first.tfl"));
        EXPECT_EQ(f.Dir1.items().back().substr(f.Dir1.items().back().find_first_not_of(' ')),
                  "old");
        // Enter in the name box sets the pattern.
        f.txtGameName.setText("*.txt");
        f.txtGameName_KeyEnter();
        EXPECT_THAT(f.File1.items(), ElementsAre("notes.txt"));
        // Up to the folder above, then to the root's drive.
        f.Dir1.setListIndex(f.Dir1.listIndex() - 1);
        EXPECT_EQ(f.browser.folder() + "/", d.folder);
        f.Drive1.setListIndex(0);
        EXPECT_EQ(f.browser.folder(), "/");
        EXPECT_EQ(f.Dir1.items().front(), "/");
        EXPECT_EQ(f.Dir1.listIndex(), 0);
        d.click("frmSave", "cmdCancel");
    });
    EXPECT_FALSE(ShowSaveGame(d.t.prog));
}

TEST(SavedGameFolders, ListsTheFolderItsSubfoldersAndItsFiles) {
    QTemporaryDir tmp;
    const std::string root = tmp.path().toStdString();
    for (const char* sub : {"beta", "Alpha", ".cache", "games.tfl"})
        fs::create_directory(root + "/" + sub);
    for (const char* file : {"b.tfl", "A.tfl", "c.TFL", ".hidden.tfl", "notes.txt", "x.tfl.bak"})
        ASSERT_TRUE(writeFileAtomic(root + "/" + file, "x"));
    // Links lead elsewhere: neither kind is listed.
    QTemporaryDir elsewhere;
    ASSERT_TRUE(writeFileAtomic(elsewhere.path().toStdString() + "/far.tfl", "x"));
    fs::create_symlink(elsewhere.path().toStdString() + "/far.tfl", root + "/link.tfl");
    fs::create_directory_symlink(elsewhere.path().toStdString(), root + "/linked");

    EXPECT_THAT(listFiles(root, "*.tfl"), ElementsAre("A.tfl", "b.tfl"));
    EXPECT_THAT(listFiles(root + "/", "?.t*"), ElementsAre("A.tfl", "b.tfl", "x.tfl.bak"));
    EXPECT_THAT(listFiles(root, "*"),
                ElementsAre("A.tfl", "b.tfl", "c.TFL", "notes.txt", "x.tfl.bak"));

    int current = -1;
    const auto folders = listFolders(root + "/./beta/..", &current);
    const int depth = static_cast<int>(std::count(root.begin(), root.end(), '/'));
    ASSERT_EQ(static_cast<int>(folders.size()), depth + 1 + 3);
    EXPECT_EQ(current, depth);
    EXPECT_EQ(folders[0].path, "/");
    EXPECT_EQ(folders[0].label, "/");
    EXPECT_EQ(folders[current].path, root);
    EXPECT_EQ(folders[current].label,
              std::string(2 * depth, ' ') + fs::path(root).filename().string());
    const std::string indent(2 * (depth + 1), ' ');
    EXPECT_EQ(folders[depth + 1].label, indent + "Alpha");
    EXPECT_EQ(folders[depth + 2].label, indent + "beta");
    EXPECT_EQ(folders[depth + 3].label, indent + "games.tfl");
    EXPECT_EQ(folders[depth + 3].path, root + "/games.tfl");

    EXPECT_EQ(cleanFolder("/tmp//a/./b/../c/"), "/tmp/a/c");
    EXPECT_EQ(cleanFolder("/../.."), "/");
    EXPECT_EQ(cleanFolder(""), "/");

    // Folders that cannot be listed list nothing; a huge one is cut short.
    EXPECT_TRUE(listFiles(root + "/missing", "*").empty());
    EXPECT_TRUE(listFiles(root + "/b.tfl", "*").empty());
    const auto chain = listFolders(root + "/missing", &current);
    EXPECT_EQ(chain.size(), static_cast<std::size_t>(current) + 1);
    EXPECT_EQ(chain.back().path, root + "/missing");
    fs::create_directory(root + "/many");
    for (std::size_t i = 0; i < kMaxListedEntries + 50; ++i)
        std::fclose(std::fopen((root + "/many/" + std::to_string(i) + ".tfl").c_str(), "w"));
    EXPECT_EQ(listFiles(root + "/many", "*.tfl").size(), kMaxListedEntries);
}

TEST(SavedGameFolders, PatternsAndMountedDrives) {
    // Case, a whole name and one character for "?" are the listings' own above.
    EXPECT_TRUE(matchesPattern(".tfl", "*.tfl"));
    EXPECT_FALSE(matchesPattern("g.tfl", "g?.tfl"));
    EXPECT_TRUE(matchesPattern("abcabcabd", "*ab*abd"));
    EXPECT_TRUE(matchesPattern("", "*"));
    EXPECT_FALSE(matchesPattern("a", ""));
    // A pattern of many stars against a long name that almost matches ends at once.
    EXPECT_FALSE(matchesPattern(std::string(5000, 'a'), "*a*a*a*a*a*a*a*a*a*a*b"));

    const std::string mounts =
        "proc /proc proc rw 0 0\n"
        "/dev/sda1 / ext4 rw 0 0\n"
        "/dev/sdb1 /media/ola/USB\\040STICK vfat rw 0 0\n"
        "/dev/sdc1 /mnt/backup ext4 rw 0 0\n"
        "tmpfs /mnt/scratch tmpfs rw 0 0\n"
        "/dev/sdd1 /run/media/ola/CARD exfat rw 0 0\n"
        "/dev/sde1 /home ext4 rw 0 0\n"
        "/dev/sdf1 /mnt/../etc ext4 rw 0 0\n"
        "/dev/sdc1 /mnt/backup ext4 rw 0 0\n"
        "half a line\n"
        "\n";
    EXPECT_THAT(drivesFromMounts(mounts, "/home/ola/"),
                ElementsAre("/", "/home/ola", "/media/ola/USB STICK", "/mnt/backup",
                            "/run/media/ola/CARD"));
    EXPECT_THAT(drivesFromMounts("", ""), ElementsAre("/"));
    const auto here = listDrives();
    ASSERT_FALSE(here.empty());
    EXPECT_EQ(here[0], "/");
}

}  // namespace corvanna
