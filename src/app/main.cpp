// The program: read the command line, bring up Qt and the selector, run.

#include <QApplication>
#include <QIcon>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>

#include "common/Program.h"
#include "qt/CardArt.h"
#include "qt/QtPlatform.h"
#include "shell/Startup.h"

namespace {

const char kUsage[] =
    "Usage: corvanna [--data-dir DIR] [--seed N] [--help] [GAME.tfl]\n"
    "\n"
    "  GAME.tfl        a saved Tierfall game: Tierfall opens and replays it\n"
    "  --data-dir DIR  keep settings, high scores and saved games in DIR\n"
    "                  (default: the per-user application data folder)\n"
    "  --seed N        start the random numbers from N, so a run repeats\n"
    "                  (default: from the clock)\n"
    "  --help          show this text\n"
    "\n"
    "Options with a single dash (-platform, -style, ...) are Qt's own.\n";

struct Options {
    std::string dataDir;
    std::uint64_t seed = 0;
    bool seedGiven = false;
    std::string savedGame;
};

// Our options have two dashes; Qt's own have one and are left to QApplication.
// Returns -1 to go on, or the exit code.
int parse(int argc, char** argv, Options& out) {
    bool optionsEnded = false;
    auto takeFile = [&out](const char* name) {
        if (!out.savedGame.empty()) {
            std::fputs("corvanna: only one saved game can be opened\n\n", stderr);
            std::fputs(kUsage, stderr);
            return false;
        }
        out.savedGame = name;
        return true;
    };
    for (int i = 1; i < argc; ++i) {
        std::string arg = argv[i];
        if (optionsEnded || arg.empty() || arg[0] != '-') {
            if (!takeFile(argv[i]))
                return 2;
            continue;
        }
        if (arg == "--") {
            optionsEnded = true;
            continue;
        }
        std::string value;
        bool hasValue = false;
        if (auto eq = arg.find('='); arg.rfind("--", 0) == 0 && eq != std::string::npos) {
            value = arg.substr(eq + 1);
            arg.resize(eq);
            hasValue = true;
        }
        auto next = [&](std::string& v) {
            if (hasValue)
                return v = value, true;
            if (i + 1 >= argc)
                return false;
            v = argv[++i];
            return true;
        };
        if (arg == "--help" || arg == "-h") {
            std::fputs(kUsage, stdout);
            return 0;
        }
        if (arg == "--data-dir") {
            if (!next(out.dataDir) || out.dataDir.empty()) {
                std::fputs("corvanna: --data-dir needs a folder\n\n", stderr);
                std::fputs(kUsage, stderr);
                return 2;
            }
            continue;
        }
        if (arg == "--seed") {
            std::string v;
            const bool got = next(v);
            auto r = std::from_chars(v.data(), v.data() + v.size(), out.seed);
            if (!got || v.empty() || r.ec != std::errc() || r.ptr != v.data() + v.size()) {
                std::fprintf(stderr, "corvanna: --seed needs a whole number from 0 to %llu\n\n",
                             static_cast<unsigned long long>(UINT64_MAX));
                std::fputs(kUsage, stderr);
                return 2;
            }
            out.seedGiven = true;
            continue;
        }
        if (arg.size() > 1 && arg[0] == '-' && arg[1] != '-') {
            // A Qt option; those with a value take the next word too.
            static const char* const withValue[] = {"-platform",
                                                    "-platformpluginpath",
                                                    "-platformtheme",
                                                    "-plugin",
                                                    "-qwindowgeometry",
                                                    "-qwindowtitle",
                                                    "-qwindowicon",
                                                    "-style",
                                                    "-stylesheet",
                                                    "-display",
                                                    "-geometry",
                                                    "-session",
                                                    "-name",
                                                    "-title"};
            for (const char* q : withValue)
                if (arg == q)
                    ++i;
            continue;
        }
        std::fprintf(stderr, "corvanna: unknown option %s\n\n", argv[i]);
        std::fputs(kUsage, stderr);
        return 2;
    }
    return -1;
}

}  // namespace

int main(int argc, char** argv) {
    Options opt;
    if (const int code = parse(argc, argv, opt); code >= 0)
        return code;

    QApplication::setApplicationName(QStringLiteral("Corvanna"));
    QApplication::setOrganizationName(QStringLiteral("Velmora"));
    QApplication app(argc, argv);
    // The program ends when its last form is unloaded or it says so, not when a
    // window closes: the close box only asks the form.
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(QIcon(corvanna::CardArt::pixmap("1S", QSize(48, 64), 2.0)));

    if (!opt.seedGiven)
        opt.seed =
            static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
    const std::string dataDir = opt.dataDir.empty() ? corvanna::defaultDataDir() : opt.dataDir;

    corvanna::QtPlatform platform;
    corvanna::Program program(platform, dataDir, opt.seed);
    // The sounds and the tune the build made, beside the program.
    program.setAssetsDir((QCoreApplication::applicationDirPath() + "/assets").toStdString());
    program.setCommandLine(opt.savedGame);
    corvanna::startSelector(program);
    return app.exec();
}
