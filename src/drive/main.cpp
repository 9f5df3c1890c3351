// corvanna-drive: the real forms on the virtual platform, driven by text commands
// on stdin. For scripted checks, bots and benchmarks.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

#include "common/Program.h"
#include "common/Variables.h"
#include "drive/DriveText.h"
#include "drive/Driver.h"
#include "games/GameRegistry.h"
#include "shell/Startup.h"
#include "virtual/FakePlatform.h"

namespace corvanna::drive {

namespace {

void usage(std::FILE* out) {
    std::fputs(
        "Usage: corvanna-drive [--data-dir DIR] [--seed N] [--help] [GAME.tfl]\n"
        "\n"
        "Runs the Corvanna Collection without a window, on a virtual clock, and starts\n"
        "at the game selector (frmSelect). Commands come one a line on stdin; answers,\n"
        "and an 'error: ...' line for anything that cannot be done, go to stdout.\n"
        "\n"
        "Options:\n"
        "  --data-dir DIR  the folder for User.ini, settings and high scores\n"
        "                  (default: a fresh temporary folder, removed at exit)\n"
        "  --seed N        the random generator's starting state, 0 to 2^64-1 (default 1):\n"
        "                  the same seed and commands give the same run\n"
        "  --help          print this and exit\n"
        "  GAME.tfl        start with a saved Tierfall game, as the program does: Tierfall\n"
        "                  opens it at once (its message boxes take their default answers)\n"
        "\n"
        "Commands (empty lines and lines starting with # are ignored):\n",
        out);
    for (const auto& line : Driver::commandHelp())
        std::fprintf(out, "  %s\n", line.c_str());
    std::fputs(
        "\n"
        "A click on a hidden or disabled control, or on a form behind a modal dialog, is\n"
        "refused with an error. A message box with no queued answer prints\n"
        "'error: unanswered message box: TEXT' and takes its default button. While a modal\n"
        "form is open, commands keep coming from stdin until it closes. When the program\n"
        "quits (the selector is closed) the driver prints 'quit' and exits. Values print\n"
        "on one line: control characters show as \\n, \\r, \\t or \\xNN.\n"
        "\n"
        "Variables for get:",
        out);
    int column = 80;
    allGames();  // the games add their own variables
    for (const auto& name : variableNames()) {
        if (column + name.size() + 1 > 80) {
            std::fputs("\n ", out);
            column = 1;
        }
        std::fprintf(out, " %s", name.c_str());
        column += static_cast<int>(name.size()) + 1;
    }
    std::fputs("\n", out);
}

int badUsage(const std::string& why) {
    std::fprintf(stderr, "corvanna-drive: %s\n\n", why.c_str());
    usage(stderr);
    return 2;
}

// A fresh folder of our own under the system's temporary folder.
std::string makeTempDir() {
    std::error_code ec;
    std::filesystem::path base = std::filesystem::temp_directory_path(ec);
    if (ec)
        base = "/tmp";
    std::string templ = (base / "corvanna-drive-XXXXXX").string();
    if (!::mkdtemp(templ.data()))
        return {};
    return templ;
}

}  // namespace

int main(int argc, char** argv) {
    std::string dataDir;
    bool dataDirGiven = false;
    std::uint64_t seed = 1;
    std::string savedGame;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        auto value = [&](const std::string& option, std::string& out) {
            if (arg.rfind(option + "=", 0) == 0) {
                out = arg.substr(option.size() + 1);
                return true;
            }
            if (arg == option && i + 1 < argc) {
                out = argv[++i];
                return true;
            }
            return false;
        };
        std::string v;
        if (arg == "--help" || arg == "-h") {
            usage(stdout);
            return 0;
        } else if (arg == "--data-dir" || arg.rfind("--data-dir=", 0) == 0) {
            if (!value("--data-dir", v) || v.empty())
                return badUsage("--data-dir needs a folder");
            dataDir = v;
            dataDirGiven = true;
        } else if (arg == "--seed" || arg.rfind("--seed=", 0) == 0) {
            if (!value("--seed", v) || !parseUnsigned64(v, seed))
                return badUsage("--seed needs a whole number from 0 to 18446744073709551615");
        } else if (!arg.empty() && arg[0] != '-' && savedGame.empty()) {
            savedGame = arg;
        } else {
            return badUsage("unknown option '" + shown(arg) + "'");
        }
    }
    if (!dataDirGiven) {
        dataDir = makeTempDir();
        if (dataDir.empty()) {
            std::fprintf(stderr, "corvanna-drive: cannot make a temporary data folder\n");
            return 1;
        }
    }

    int code = 0;
    {
        FakePlatform platform;
        Program program(platform, dataDir, seed);
        Driver driver(platform, program, stdin, stdout);
        program.setCommandLine(savedGame);
        startSelector(program);
        code = driver.run();
    }
    std::fflush(stdout);
    if (!dataDirGiven) {
        std::error_code ec;
        std::filesystem::remove_all(dataDir, ec);
    }
    return code;
}

}  // namespace corvanna::drive

int main(int argc, char** argv) {
    return corvanna::drive::main(argc, argv);
}
