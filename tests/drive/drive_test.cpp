// The driver as a user of it sees it: a process fed a script on stdin, its
// stdout compared with what the program must say.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Result {
    int exitCode = -1;
    std::string out;
    std::string err;
};

std::string readAll(const fs::path& p) {
    std::ifstream in(p, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void writeAll(const fs::path& p, const std::string& text) {
    std::ofstream out(p, std::ios::binary);
    out << text;
}

std::vector<std::string> lines(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string l; std::getline(in, l);)
        out.push_back(l);
    return out;
}

// A fresh folder per test, gone afterwards.
struct TempDir {
    std::string name = ::testing::TempDir() + "corvanna-drive-test-XXXXXX";
    const fs::path dir = ::mkdtemp(name.data()) ? name : "";
    ~TempDir() {
        std::error_code ec;
        fs::remove_all(dir, ec);
    }
    const fs::path& path() const { return dir; }
};

// Runs the driver with the script on stdin; stdout and stderr through files, so a large
// output cannot block it, and a hung driver ended after a minute.
Result runDriver(const std::string& script, const std::vector<std::string>& args) {
    TempDir io;
    const fs::path in = io.path() / "in.cmd", out = io.path() / "out.txt",
                   err = io.path() / "err.txt";
    writeAll(in, script);
    std::string command = "timeout 60 '" CORVANNA_DRIVE "'";
    for (const auto& a : args)
        command += " '" + a + "'";
    command += " <'" + in.string() + "' >'" + out.string() + "' 2>'" + err.string() + "'";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readAll(out), readAll(err)};
}

// The usual run: a fresh data folder and seed 1.
class Drive : public ::testing::Test {
protected:
    Result drive(const std::string& script) {
        return runDriver(script, {"--data-dir", data.path().string(), "--seed", "1"});
    }
    TempDir data;
};

TEST(DriveOptions, HelpListsEveryCommandAndOptionAndBadOptionsExitTwo) {
    const Result help = runDriver("", {"--help"});
    EXPECT_EQ(help.exitCode, 0);
    // Every command and option is named, log at the start of a line of its own.
    for (const char* word : {"\n  log ", "--data-dir DIR", "--seed N", "click FORM.CONTROL",
                             "advance MS", "get VARIABLE", "key FORM", "GAME.tfl"})
        EXPECT_NE(help.out.find(word), std::string::npos) << word;

    for (const std::vector<std::string>& bad : {std::vector<std::string>{"--frobnicate"},
                                                {"--seed", "abc"},
                                                {"--seed", "-1"},
                                                {"--seed"},
                                                {"--data-dir"},
                                                {"one.tfl", "two.tfl"}}) {
        const Result r = runDriver("get AppTitle\n", bad);
        EXPECT_EQ(r.exitCode, 2) << bad[0];
        EXPECT_EQ(r.out, "") << bad[0];
        EXPECT_NE(r.err.find("Usage: corvanna-drive"), std::string::npos) << bad[0];
    }
}

// Each bad line says what is wrong in exactly one error line, and the driver goes on.
TEST_F(Drive, BadInputGivesOneErrorPerLineAndTheDriverGoesOn) {
    std::vector<std::string> bad = lines(
        "advance -5\nadvance abc\nadvance 99999999999999\nadvance 86400001\nadvance\n"
        "frobnicate now\nget frmNowhere.Caption\nget frmSelect.cmdNowhere.Caption\n"
        "get frmSelect.cmdClose.NoSuchProperty\nget frmSelect.NoSuchProperty\n"
        "get NoSuchVariable\nget Deck(0)\nget Deck(x)\nget frmSelect\n"
        "get frmSelect.imgSplashImage.Picture\nget frmSelect.imgSplashImage(8).Picture\n"
        "get frmSelect.imgSplashImage(-1).Picture\nget frmSelect.imgSplashImage(2.Picture\n"
        "get frmSelect.imgSplashImage(99999999999).Picture\nclick frmSelect\nclick\n"
        "click frmSelect.cmdClose extra\ntype frmSelect.cmdClose text\n"
        "select frmSelect.cmdClose 1\nselect frmSelect.cmdClose -1\nenter frmSelect.cmdClose\n"
        "dblclick frmSelect\nenter frmSelect.cmdNowhere\nanswer Perhaps\n"
        "resize frmSelect 0 7000\nresize frmSelect 9000\nresize frmNowhere 9000 7000\n"
        "minimize frmNowhere\nclose frmNowhere\ndump frmNowhere\nlog now\n"
        "unwatch frmSelect.Caption");
    bad.push_back(std::string(200000, 'x'));
    bad.push_back(std::string("\x01\x02\xff\xfe junk \x7f", 11));
    bad.push_back(std::string("get frmSelect.\x01\x02", 16));
    bad.push_back(std::string(2000000, 'z'));  // past the line limit
    std::string script;
    for (std::size_t i = 0; i < bad.size(); ++i)
        script += "echo mark " + std::to_string(i) + "\n" + bad[i] + "\n";
    script += "echo end\nget frmSelect.Caption\nget Score\n";
    const Result r = drive(script);
    EXPECT_EQ(r.exitCode, 0);
    const auto out = lines(r.out);
    // mark, one error, mark, one error, ..., end, the two answers.
    ASSERT_EQ(out.size(), bad.size() * 2 + 3) << r.out.substr(0, 4000);
    for (std::size_t i = 0; i < bad.size(); ++i) {
        EXPECT_EQ(out[2 * i], "mark " + std::to_string(i));
        EXPECT_EQ(out[2 * i + 1].rfind("error: ", 0), 0u) << bad[i].substr(0, 60);
        EXPECT_LT(out[2 * i + 1].size(), 300u) << "error lines stay short";
    }
    EXPECT_EQ(out[bad.size() * 2], "end");
    EXPECT_EQ(out[bad.size() * 2 + 1], "The Corvanna Collection");
    EXPECT_EQ(out[bad.size() * 2 + 2], "0");
    // A few of them word for word.
    EXPECT_EQ(out[1], "error: advance takes whole milliseconds from 0 to 86400000, not '-5'");
    EXPECT_EQ(out[13], "error: no form named 'frmNowhere' is loaded");
    EXPECT_EQ(out[31], "error: frmSelect.imgSplashImage has no element (8)");
}

TEST_F(Drive, DisabledAndHiddenControlsRefuseTheClick) {
    const Result r = drive(
        "click frmSelect.cmdTierfall\n"
        "click frmTierfall.cmdPause\n"
        "click frmTierfall.mnuPause\n"
        "click frmTierfall.cmdTakeScore\n"
        "click frmTierfall.mnuBreak0\n"
        "get frmTierfall.lblMessage.Caption\n"
        "get GameInProgress\n"
        "click frmTierfall.cmdPlay\n"
        "click frmTierfall.cmdPause\n"
        "get frmTierfall.lblMessage.Caption\n"
        "click frmTierfall.cmdTakeScore\n"
        "click frmTierfall.mnuTime\n"
        "minimize frmTierfall\n"
        "click frmTierfall.cmdPause\n");
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out,
              "error: frmTierfall.cmdPause is disabled\n"
              "error: frmTierfall.mnuPause is disabled\n"
              "error: frmTierfall.cmdTakeScore is disabled\n"
              "error: frmTierfall.mnuBreak0 is a separator\n"
              "\n"
              "False\n"
              "Game Paused\n"
              "error: frmTierfall.cmdTakeScore is disabled\n"
              "error: frmTierfall.mnuTime is disabled\n"
              "error: frmTierfall.cmdPause is not visible\n");
}

TEST_F(Drive, AGameButtonSwapsTheFormsAndAnUnansweredMessageBoxIsAnErrorAndTakesTheDefault) {
    const Result r = drive(
        "log\n"
        "click frmSelect.cmdTierfall\n"
        "log\n"
        "get AppTitle\n"
        "get frmTierfall.Caption\n"
        "get frmSelect.Visible\n"
        "click frmSelect.cmdFivestack\n"
        "close frmTierfall\n"
        "log\n"
        "click frmSelect.cmdTierfall\n"
        "answer No\n"
        "close frmTierfall\n"
        "log\n"
        "get frmTierfall.Visible\n");
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_EQ(r.out,
              "show frmSelect\n"
              "show frmTierfall\n"
              "hide frmSelect\n"
              "Tierfall!\n"
              "Tierfall! - Enhanced Scoring\n"
              "False\n"
              "error: frmSelect.cmdFivestack is on a form that is not shown\n"
              "error: unanswered message box: Giving up so soon?\n"
              "msgbox Tierfall! | question | Giving up so soon? -> Yes\n"
              "show frmSelect\n"
              "hide frmTierfall\n"
              "unload frmTierfall\n"
              "show frmTierfall\n"
              "hide frmSelect\n"
              "msgbox Tierfall! | question | Giving up so soon? -> No\n"
              "True\n");
}

TEST(DriveOptions, TheSeedDecidesTheDealAndWithoutADataDirATemporaryOneIsUsedAndRemoved) {
    const std::string script = "click frmSelect.cmdTierfall\nclick frmTierfall.cmdPlay\nget Deck\n";
    TempDir a, b, c;
    const Result one = runDriver(script, {"--data-dir", a.path().string(), "--seed", "7"});
    const Result again = runDriver(script, {"--data-dir", b.path().string(), "--seed=7"});
    const Result other = runDriver(script, {"--data-dir=" + c.path().string(), "--seed", "8"});
    ASSERT_EQ(lines(one.out).size(), 1u) << one.out;
    auto cards = lines(one.out)[0];
    EXPECT_EQ(std::count(cards.begin(), cards.end(), ' '), 51);
    EXPECT_EQ(one.out, again.out);
    EXPECT_NE(one.out, other.out);

    const Result r = runDriver("get AppPath\nclose frmSelect\n", {});
    EXPECT_EQ(r.exitCode, 0);
    const auto out = lines(r.out);
    ASSERT_EQ(out.size(), 2u) << r.out;
    EXPECT_EQ(out[1], "quit");
    ASSERT_GT(out[0].size(), 1u);
    EXPECT_EQ(out[0].back(), '/');
    EXPECT_FALSE(fs::exists(out[0])) << out[0];
}

// tests/scripts/NAME.cmd against NAME.out, word for word. The data folder's path
// changes from run to run and reads as DATA. With CORVANNA_UPDATE_TRANSCRIPTS set
// the .out files are written instead; read every line before keeping them.
TEST(DriveTranscripts, EveryScriptGivesItsTranscript) {
    std::vector<fs::path> scripts;
    for (const auto& e : fs::directory_iterator(CORVANNA_SCRIPTS))
        if (e.path().extension() == ".cmd")
            scripts.push_back(e.path());
    std::sort(scripts.begin(), scripts.end());
    ASSERT_FALSE(scripts.empty());
    const bool update = std::getenv("CORVANNA_UPDATE_TRANSCRIPTS") != nullptr;
    for (const auto& cmd : scripts) {
        SCOPED_TRACE(cmd.filename().string());
        TempDir data;
        Result r = runDriver(readAll(cmd), {"--data-dir", data.path().string(), "--seed", "1"});
        EXPECT_EQ(r.exitCode, 0);
        EXPECT_EQ(r.err, "");
        for (std::size_t at; (at = r.out.find(data.path().string())) != std::string::npos;)
            r.out.replace(at, data.path().string().size(), "DATA");
        fs::path expectedFile = cmd;
        expectedFile.replace_extension(".out");
        if (update) {
            writeAll(expectedFile, r.out);
            continue;
        }
        ASSERT_TRUE(fs::exists(expectedFile));
        EXPECT_EQ(r.out, readAll(expectedFile));
    }
}

}  // namespace
