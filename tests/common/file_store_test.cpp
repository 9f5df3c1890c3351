// Whole-file writes: one whole version after any failure, no temporary file left, a
// planted link replaced rather than written through, and what a crash left removed at
// the next start.

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

#include "common/FileStore.h"
#include "common/Program.h"
#include "virtual/FakePlatform.h"

namespace corvanna {

namespace fs = std::filesystem;

namespace {

std::string read(const fs::path& p) {
    std::string bytes;
    EXPECT_EQ(readWholeFile(p.string(), bytes), ReadStatus::Ok) << p;
    return bytes;
}

int entries(const fs::path& folder) {
    return static_cast<int>(std::distance(fs::directory_iterator(folder), {}));
}

struct NoFault {
    ~NoFault() { failWritesAtByte(std::nullopt); }
};

}  // namespace

TEST(FileStore, AFullDiskAtAnyByteLeavesTheOldFileWholeAndNoTemporaryFile) {
    QTemporaryDir dir;
    const fs::path file = fs::path(dir.path().toStdString()) / "Tierfall.Ini";
    ASSERT_TRUE(writeFileAtomic(file.string(), "old version"));
    const std::string next = "[Color]\r\n1\r\n\r\n[Time]\r\n90\r\n\r\n";
    NoFault restore;
    for (std::size_t at = 0; at < next.size(); ++at) {
        failWritesAtByte(at);
        std::string error;
        EXPECT_FALSE(writeFileAtomic(file.string(), next, &error)) << at;
        EXPECT_EQ(error, "No space left on device");
        EXPECT_EQ(read(file), "old version") << at;
        EXPECT_EQ(entries(file.parent_path()), 1) << at;
    }
    failWritesAtByte(next.size());  // exactly enough room
    EXPECT_TRUE(writeFileAtomic(file.string(), next));
    EXPECT_EQ(read(file), next);
    failWritesAtByte(std::nullopt);

    // A new file gets the usual permissions, not a temporary file's private ones.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(fs::status(file).permissions() & fs::perms::all,
              static_cast<fs::perms>(0666 & ~mask));
}

TEST(FileStore, APlantedLinkIsReplacedAndItsTargetNeverWritten) {
    QTemporaryDir dir, elsewhere;
    const fs::path data(dir.path().toStdString());
    const fs::path victim = fs::path(elsewhere.path().toStdString()) / "precious";
    ASSERT_TRUE(writeFileAtomic(victim.string(), "not yours"));
    fs::create_symlink(victim, data / "User.ini");
    ASSERT_TRUE(writeFileAtomic((data / "User.ini").string(), "[UserName]\r\nAda\r\n\r\n"));
    EXPECT_FALSE(fs::is_symlink(data / "User.ini"));
    EXPECT_EQ(read(data / "User.ini"), "[UserName]\r\nAda\r\n\r\n");
    EXPECT_EQ(read(victim), "not yours");

    // A folder where the file should be stays, and the write says why it failed.
    fs::create_directory(data / "Tierfall.Ini");
    std::string error;
    EXPECT_FALSE(writeFileAtomic((data / "Tierfall.Ini").string(), "x", &error));
    EXPECT_FALSE(error.empty());
    EXPECT_TRUE(fs::is_directory(data / "Tierfall.Ini"));
    EXPECT_EQ(entries(data), 2);
}

TEST(FileStore, WhatACrashLeftIsRemovedAtTheNextStartAndNothingElse) {
    QTemporaryDir dir;
    const fs::path data(dir.path().toStdString());
    const auto make = [&](const std::string& name) { std::ofstream(data / name) << "half"; };
    make(".Tierfall.Ini.tmp-a1B2c3");
    make(".ES Tierfall Hi Score Table 11_90.Txt.tmp-Zz9Yy8");
    make("Tierfall.Ini");
    make(".hidden");
    make(".x.tmp-short");      // not six characters: not ours
    make("plain.tmp-abcdef");  // no leading dot: not ours
    fs::create_symlink("/etc/hostname", data / ".link.tmp-abcdef");
    {
        FakePlatform fake;
        Program prog(fake, data.string(), 1);
    }
    EXPECT_FALSE(fs::exists(data / ".Tierfall.Ini.tmp-a1B2c3"));
    EXPECT_FALSE(fs::exists(data / ".ES Tierfall Hi Score Table 11_90.Txt.tmp-Zz9Yy8"));
    for (const char* kept : {"Tierfall.Ini", ".hidden", ".x.tmp-short", "plain.tmp-abcdef"})
        EXPECT_TRUE(fs::exists(data / kept)) << kept;
    EXPECT_TRUE(fs::is_symlink(data / ".link.tmp-abcdef"));
}

}  // namespace corvanna
