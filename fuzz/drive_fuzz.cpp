// Any bytes as a command script for the headless driver, run on the real program over
// the virtual platform: every command line is run once, in order; the output is printable
// lines of a bounded size; and the program is whole
// afterwards, with no dialog left behind, one game form at most and no half-written file.
//
// Each input runs on a fresh program in an emptied data folder with the seed 1, so an input
// replays the same anywhere and nothing carries over from the one before. The fresh start
// costs about a millisecond under the sanitizers, little beside the scripts themselves.
// What the target changes in a script before it runs it:
//  - after each command it adds `echo` of a marker no input holds, to tell the answers apart;
//  - `advance` runs at most kAdvanceBudgetMs of virtual time in all, the rest is cut;
//  - a command on a file dialog's folder or drive list (Dir1, Drive1) other than get, dump,
//    watch, unwatch and echo is dropped, so no input can save a game outside the data folder.

#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <string>
#include <system_error>
#include <vector>

#include "common/FileStore.h"
#include "common/Program.h"
#include "drive/DriveText.h"
#include "drive/Driver.h"
#include "games/GameRegistry.h"
#include "shell/Startup.h"
#include "virtual/FakePlatform.h"

#define FUZZ_TARGET_NAME "drive_fuzz"
#include "FuzzCheck.h"

using namespace corvanna;
using namespace corvanna::drive;

namespace {

// Ten virtual minutes hold a whole game of any of the nine; a day of timer ticks would take
// longer than the five seconds an input has under the sanitizers.
constexpr std::int64_t kAdvanceBudgetMs = 10 * 60 * 1000;
// The most one command prints besides watches: a dump of the largest form is about 20 KiB.
constexpr std::size_t kMaxAnswerBytes = 64 * 1024;
// Lines past the driver's 1 MiB limit are drive_test's: a script here stays well below it.
constexpr std::size_t kMaxScriptBytes = 256 * 1024;

struct Command {
    std::string raw;   // as the script holds it
    std::string line;  // as the driver reads it
    std::string word;
    std::string args;
};

// In memory where there is one, not on disk: every write is flushed, and that would slow
// each input down.
std::string dataFolder() {
    static const QTemporaryDir dir(QDir("/dev/shm").exists()
                                       ? "/dev/shm/drive_fuzz-XXXXXX"
                                       : QDir::tempPath() + "/drive_fuzz-XXXXXX");
    check(dir.isValid(), "no data folder could be made");
    return dir.path().toStdString();
}

void emptyFolder(const std::string& folder) {
    std::error_code ec;
    for (const auto& e : std::filesystem::directory_iterator(folder, ec))
        std::filesystem::remove_all(e.path(), ec);
}

// The command lines as the driver splits its input: by LF, one CR before it dropped, blank
// lines and # comments passed over. The target's own changes are made here.
std::vector<Command> commandsOf(const std::string& bytes) {
    std::vector<Command> out;
    std::int64_t budget = kAdvanceBudgetMs;
    std::size_t from = 0;
    while (from < bytes.size()) {
        std::size_t nl = bytes.find('\n', from);
        if (nl == std::string::npos)
            nl = bytes.size();
        Command c;
        c.line = c.raw = bytes.substr(from, nl - from);
        from = nl + 1;
        if (!c.line.empty() && c.line.back() == '\r')
            c.line.pop_back();
        const std::string t = trim(c.line);
        if (t.empty() || t[0] == '#')
            continue;
        c.word = firstWord(c.line, c.args);
        std::int64_t ms = 0;
        if (c.word == "advance" && parseWhole(trim(c.args), 0, Driver::kMaxAdvanceMs, ms)) {
            ms = std::min(ms, budget);
            budget -= ms;
            c.line = c.raw = "advance " + std::to_string(ms);
            c.args = std::to_string(ms);
        }
        const bool folderList =
            c.line.find("Dir1") != std::string::npos || c.line.find("Drive1") != std::string::npos;
        if (folderList && c.word != "get" && c.word != "dump" && c.word != "watch" &&
            c.word != "unwatch" && c.word != "echo")
            continue;
        out.push_back(c);
    }
    return out;
}

// A marker the input does not hold: the driver prints only what it was given and its own
// texts, and none of those hold "~@~", so no other line can be taken for it.
std::string markerFor(const std::string& bytes) {
    for (int n = 0;; ++n) {
        const std::string m = "~@~" + std::to_string(n) + "~";
        if (bytes.find(m) == std::string::npos)
            return m;
    }
}

std::vector<std::string> splitLines(const std::string& out) {
    std::vector<std::string> lines;
    std::size_t from = 0;
    while (from < out.size()) {
        const std::size_t nl = out.find('\n', from);
        lines.push_back(out.substr(from, nl - from));
        from = nl + 1;
    }
    return lines;
}

bool startsWith(const std::string& s, const std::string& prefix) {
    return s.rfind(prefix, 0) == 0;
}

bool errorOrWatch(const std::string& line) {
    return startsWith(line, "error: ") || startsWith(line, "watch @");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > kMaxScriptBytes)
        return 0;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const std::vector<Command> commands = commandsOf(bytes);
    const std::string marker = markerFor(bytes);
    std::string script;
    for (std::size_t i = 0; i < commands.size(); ++i)
        script += commands[i].raw + "\necho " + marker + std::to_string(i) + "\n";
    if (script.empty())
        script = "\n";  // a stream of no bytes cannot be opened

    const std::string folder = dataFolder();
    emptyFolder(folder);
    char* outBuf = nullptr;
    std::size_t outLen = 0;
    std::FILE* in = ::fmemopen(script.data(), script.size(), "r");
    std::FILE* out = ::open_memstream(&outBuf, &outLen);
    check(in && out, "the streams could not be opened");

    bool quit = false;
    std::int64_t elapsedMs = 0;
    {
        FakePlatform platform;
        Program program(platform, folder, 1);
        Driver driver(platform, program, in, out);
        startSelector(program);
        check(platform.takeErrors().empty(), "the selector did not come up cleanly");
        driver.run();
        // To see what a failing input did: DRIVE_FUZZ_SHOW=1 drive_replay FILE
        if (std::getenv("DRIVE_FUZZ_SHOW")) {
            std::fflush(out);
            std::fputs("---- script\n", stderr);
            std::fwrite(script.data(), 1, script.size(), stderr);
            std::fputs("---- output\n", stderr);
            std::fwrite(outBuf, 1, outLen, stderr);
        }

        // Every modal loop has returned: nothing waits, no dialog stays loaded.
        quit = platform.quitRequested();
        elapsedMs = platform.elapsedMs();
        check(platform.modalStack().empty(), "a modal form is still on the stack");
        check(platform.sleepDepth() == 0, "a wait did not end");
        int games = 0;
        std::set<std::string> names;
        for (Form* f : program.forms()) {
            check(names.insert(f->name()).second, "two forms of one name are loaded");
            const bool game = findGame(f->name()) != nullptr;
            games += game;
            check(game || f->name() == "frmSelect", "a dialog is still loaded after its loop");
        }
        check(games <= 1, "more than one game form is loaded");
        check(quit != (program.findForm("frmSelect") != nullptr),
              "the selector is loaded after quitting, or gone without it");
    }
    std::fclose(in);
    std::fclose(out);
    const std::string output(outBuf, outLen);
    std::free(outBuf);

    // No half-written file: every write was whole or left nothing behind.
    std::error_code ec;
    for (const auto& e : std::filesystem::directory_iterator(folder, ec))
        check(e.path().filename().string().find(kTempMarker) == std::string::npos,
              "a temporary file was left in the data folder");

    // One printable line per answer.
    for (unsigned char c : output)
        check(c == '\n' || (c >= 0x20 && c != 0x7F), "a control character in the output");
    check(output.empty() || output.back() == '\n', "the output ends inside a line");

    // The markers in order, one each, for every command that ran.
    const std::vector<std::string> lines = splitLines(output);
    std::vector<std::vector<std::string>> answers(1);
    for (const auto& line : lines) {
        if (line.find(marker) != std::string::npos) {
            check(line == marker + std::to_string(answers.size() - 1),
                  "a marker is missing, repeated or out of order");
            answers.emplace_back();
            continue;
        }
        answers.back().push_back(line);
    }
    const std::size_t ran = answers.size() - 1;
    if (quit) {
        check(!lines.empty() && lines.back() == "quit", "the program quit without saying so");
        // The command that quit has no marker: nothing after it runs.
        check(ran < commands.size(), "commands ran after the program quit");
    } else {
        check(ran == commands.size(), "a command was not run, or was run twice");
    }
    // Watch lines are told apart by where they stand: what echo, get, dump, log and
    // variables print is the user's text or the program's, whatever it looks like.
    std::size_t watchLines = 0, watchBytes = 0;
    for (std::size_t i = 0; i <= ran; ++i) {
        if (i < ran) {
            const std::string& w = commands[i].word;
            if (w == "echo" || w == "get" || w == "dump" || w == "log" || w == "variables")
                continue;
        }
        for (const auto& line : answers[i])
            if (startsWith(line, "watch @"))
                ++watchLines, watchBytes += line.size() + 1;
    }
    // After the last command only what closing an open dialog says, and the end.
    for (std::size_t k = 0; k < answers[ran].size(); ++k)
        check(errorOrWatch(answers[ran][k]) ||
                  (quit && k + 1 == answers[ran].size() && answers[ran][k] == "quit"),
              "something was printed after the last command");

    // Bounded by the script: each command's own answer, and watches only as often as what
    // they watch can change (each timer tick, each command's handlers).
    std::size_t watches = 0;
    for (const auto& c : commands)
        watches += c.word == "watch";
    const std::size_t changes = commands.size() * 256 + static_cast<std::size_t>(elapsedMs) / 10;
    check(watchLines <= watches * changes, "watches printed more often than anything changed");
    check(output.size() - watchBytes <= (commands.size() + 1) * kMaxAnswerBytes,
          "the output is out of proportion to the script");
    return 0;
}
