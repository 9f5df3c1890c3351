// Whole games played one after another in one process and one data folder, the way a
// player plays them: launched from the selector, names typed into the tables, the game
// left through Exit and launched again now and then, the time limit and the game's own
// options changed between games. After every game the form must be idle and every high
// score table whole; memory and open descriptors must stay flat.
//
//   soak [--games N] [--game NAME] [--seed S]
//
// Exit status 1 on the first fault, with the game, the seed and the data folder kept.

#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "Resident.h"
#include "common/FileStore.h"
#include "common/Program.h"
#include "common/frame/GameFrame.h"
#include "forms/Input.h"
#include "games/GameBot.h"
#include "games/GameRegistry.h"
#include "scores/HighScoreTable.h"
#include "shell/Startup.h"
#include "virtual/FakePlatform.h"

using namespace corvanna;
namespace fs = std::filesystem;

namespace {

// The player leaves the game and launches it again this often, and changes an option
// (the time limit, then the game's own, in turn) this often in between.
constexpr long kGamesPerVisit = 100;
constexpr long kGamesPerOptionChange = 25;
constexpr long kGamesPerSample = 1000;
// Resident memory may grow this much from the second sample to the last. Past the first
// thousand games nothing is cached any more: a sample moves by whole pages of malloc's
// arena, and the fake platform keeps the text of every message box (one question a
// visit, some 100 bytes). Any block kept per game (32 bytes at the least) over the 9,000
// games between the samples of a full run comes to more than this.
constexpr long kResidentToleranceKiB = 256;

// The question Exit asks when no game is on: the only message box the soak expects.
const char* const kLeaveQuestions[] = {
    "Giving up so soon?",
    "Are you sure you want to quit now? Were just getting started!",
};

struct Settings {
    long games = 10000;
    std::string game = "frmTierfall";
    std::uint64_t seed = 1;
};

void usage() {
    std::fprintf(stderr, "usage: soak [--games N] [--game NAME] [--seed S]\n  games with a bot:");
    for (const GameInfo& g : allGames())
        if (g.bot)
            std::fprintf(stderr, " %s", g.formName.c_str());
    std::fprintf(stderr, "\n");
}

bool parseArgs(int argc, char** argv, Settings& s) {
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (i + 1 >= argc)
            return false;
        const char* value = argv[++i];
        char* end = nullptr;
        if (arg == "--games") {
            s.games = std::strtol(value, &end, 10);
            if (*end || s.games < 1)
                return false;
        } else if (arg == "--seed") {
            s.seed = std::strtoull(value, &end, 10);
            if (*end)
                return false;
        } else if (arg == "--game") {
            s.game = value;
        } else {
            return false;
        }
    }
    return true;
}

// The form's name, or the game's id ("tierfall") or title.
const GameInfo* gameNamed(const std::string& name) {
    for (const GameInfo& g : allGames())
        if (g.formName == name || g.id == name || g.title == name)
            return &g;
    return nullptr;
}

int openDescriptors() {
    int n = 0;
    std::error_code ec;
    for (fs::directory_iterator it("/proc/self/fd", ec), end; !ec && it != end; it.increment(ec))
        ++n;
    return n - 1;  // the listing's own
}

struct Sample {
    long games;
    long residentKiB;
    int descriptors;
    double gamesPerSecond;  // since the sample before; 0 for the first
};

class Soak {
public:
    Soak(const Settings& settings, const GameInfo& game)
        : settings_(settings),
          game_(game),
          prog_(fake_, dir_.path().toStdString(), settings.seed),
          select_(startSelector(prog_)),
          rng_(settings.seed) {
#ifdef CORVANNA_SHIPPED_DIR
        // What the build ships beside the program: Lettermine's phrase files, the sounds.
        prog_.setAssetsDir(CORVANNA_SHIPPED_DIR);
#endif
    }

    int run();

private:
    bool fail(const std::string& what) {
        if (fault_.empty())
            fault_ = what;
        return false;
    }
    bool click(Control* control, const std::string& what);
    bool launch();
    bool leave();
    bool changeTimeLimit();
    bool newMessages(std::vector<std::string>& texts);
    bool checkIdle();
    bool checkFolder();
    bool checkTable(const std::string& path, const std::string& name);
    void sample(long games);
    bool checkGrowth();

    const Settings& settings_;
    const GameInfo& game_;
    QTemporaryDir dir_;
    FakePlatform fake_;
    Program prog_;
    Form& select_;
    std::mt19937_64 rng_;

    GameFrame* form_ = nullptr;
    std::unique_ptr<GameBot> bot_;
    std::string fault_;

    // What the player chose, to find again after coming back to the game.
    int roundSeconds_ = 0;
    std::string options_;

    long launches_ = 0, optionChanges_ = 0;
    long long clicks_ = 0, scores_ = 0;
    int tables_ = 0;
    std::vector<Sample> samples_;
    std::chrono::steady_clock::time_point lastSample_;
};

bool Soak::click(Control* control, const std::string& what) {
    if (!control)
        return fail("no control " + what);
    std::string why;
    if (!userClick(*control, &why))
        return fail("refused: " + why);
    return true;
}

// The game's button on the selector; a second launch finds the options of the first.
bool Soak::launch() {
    if (bot_) {
        clicks_ += bot_->clicks();
        bot_.reset();  // it lets go of the platform's dialog runner before the next takes it
    }
    if (!click(select_.find(game_.button), "frmSelect." + game_.button))
        return false;
    form_ = dynamic_cast<GameFrame*>(prog_.findForm(game_.formName));
    if (!form_)
        return fail(game_.button + " loaded no " + game_.formName);
    if (select_.visible())
        return fail("the selector stayed on show after launching " + game_.formName);
    if (!form_->visible())
        return fail(game_.formName + " is not on show after its launch");
    const std::uint64_t seed = settings_.seed * 1000003 + static_cast<std::uint64_t>(launches_);
    bot_ = game_.bot(prog_, fake_, *form_, seed);
    if (!bot_)
        return fail("the bot of " + game_.formName + " can't play this form");
    if (launches_++ > 0) {
        if (prog_.state.RoundSeconds != roundSeconds_)
            return fail("the time limit came back as " + std::to_string(prog_.state.RoundSeconds) +
                        " seconds, not " + std::to_string(roundSeconds_));
        if (bot_->options() != options_)
            return fail("the options came back as \"" + bot_->options() + "\", not \"" + options_ +
                        "\"");
    }
    return checkIdle();
}

// Exit, Yes to its question: the settings file is written and the selector shows again.
bool Soak::leave() {
    roundSeconds_ = prog_.state.RoundSeconds;
    options_ = bot_->options();
    const std::string settings = form_->SettingsText();
    fake_.queueAnswer(MsgResult::Yes);
    if (!click(&form_->cmdExit, game_.formName + "." + game_.exitButton))
        return false;
    std::vector<std::string> texts;
    newMessages(texts);
    bool asked = texts.size() == 1;
    if (asked) {
        asked = false;
        for (const char* q : kLeaveQuestions)
            asked = asked || texts[0] == q;
    }
    if (!asked)
        return fail(game_.exitButton + " asked " + std::to_string(texts.size()) +
                    " questions instead of one to leave" +
                    (texts.empty() ? "" : ", the first \"" + texts[0] + "\""));
    if (prog_.findForm(game_.formName))
        return fail(game_.formName + " is still loaded after Yes to leaving");
    form_ = nullptr;
    if (!select_.visible())
        return fail("the selector did not come back after leaving " + game_.formName);
    std::string written;
    if (readWholeFile(prog_.filePath(game_.settingsFile), written) != ReadStatus::Ok)
        return fail("no " + game_.settingsFile + " after leaving the game");
    if (written != settings)
        return fail(game_.settingsFile + " does not hold the settings in force when leaving");
    for (const std::string& e : fake_.takeErrors())
        fail(e);
    return fault_.empty();
}

bool Soak::changeTimeLimit() {
    const auto& limits = game_.timeLimits;
    if (limits.size() < 2)
        return true;
    int seconds = prog_.state.RoundSeconds;
    while (seconds == prog_.state.RoundSeconds)
        seconds =
            limits[std::uniform_int_distribution<std::size_t>(0, limits.size() - 1)(rng_)].seconds;
    Menu* entry = nullptr;
    for (Menu* m : form_->mnuTime.children())
        if (m->name() == "mnu" + std::to_string(seconds))
            entry = m;
    if (!click(entry, "the time limit of " + std::to_string(seconds) + " seconds"))
        return false;
    if (prog_.state.RoundSeconds != seconds)
        return fail("the time menu's " + std::to_string(seconds) +
                    " seconds left RoundSeconds at " + std::to_string(prog_.state.RoundSeconds));
    return true;
}

// The message boxes shown since the last call.
bool Soak::newMessages(std::vector<std::string>& texts) {
    texts = fake_.takeMessages();
    return texts.empty();
}

// Between games: nothing running, nothing open, nothing asked, Play ready for a click.
bool Soak::checkIdle() {
    std::vector<std::string> texts;
    if (!newMessages(texts))
        return fail("a message box: \"" + texts[0] + "\"");
    for (const std::string& e : fake_.takeErrors())
        fail(e);
    if (!fault_.empty())
        return false;
    if (prog_.state.GameInProgress)
        return fail("a game is still in progress");
    if (fake_.isRunning(form_->Timer1))
        return fail("the round clock (Timer1) still runs");
    if (!fake_.modalStack().empty())
        return fail(fake_.modalStack().back()->name() + " is still open modal");
    for (Form* f : prog_.forms())
        if (f != &select_ && f != form_)
            return fail(f->name() + " is still loaded");
    if (!form_->visible() || !form_->enabled())
        return fail(game_.formName + " is not on show and taking input");
    if (form_->isPaused())
        return fail(game_.formName + " is paused");
    if (!form_->cmdPlay.effectivelyVisible() || !form_->cmdPlay.effectivelyEnabled())
        return fail("Play can't be clicked");
    return true;
}

// Every table file whole, and nothing a write should have cleared away.
bool Soak::checkFolder() {
    std::error_code ec;
    int tables = 0;
    for (fs::directory_iterator it(prog_.dataDir(), ec), end; !ec && it != end; it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (name.find(kTempMarker) != std::string::npos)
            return fail("a write left its temporary file " + name);
        if (name.ends_with(".bad"))
            return fail("a file was set aside as damaged: " + name);
        if (name.ends_with(".Txt")) {
            ++tables;
            if (!checkTable(it->path().string(), name))
                return false;
        }
    }
    if (ec)
        return fail("the data folder can't be listed: " + ec.message());
    if (tables == 0)
        return fail("no high score table in the data folder");
    tables_ = tables;
    return true;
}

// Ten rows, or eleven after an entry in tenth place, CR LF each, scores falling. The
// reader takes the first ten; the eleventh is read as the last of rows two to eleven.
bool Soak::checkTable(const std::string& path, const std::string& name) {
    std::string bytes, why;
    if (readWholeFile(path, bytes, &why) != ReadStatus::Ok)
        return fail(name + " can't be read: " + why);
    int lines = 0;
    std::size_t second = 0;
    for (std::size_t pos = 0; pos < bytes.size();) {
        const std::size_t end = bytes.find("\r\n", pos);
        if (end == std::string::npos)
            return fail(name + " ends in a line without CR LF");
        if (++lines == 1)
            second = end + 2;
        pos = end + 2;
    }
    if (lines != HighScoreRowCount && lines != HighScoreRowCount + 1)
        return fail(name + " holds " + std::to_string(lines) + " rows");
    std::vector<HighScoreRow> rows, tail;
    if (!parseHighScoreRows(bytes, rows, &why))
        return fail(name + " is not a table: " + why);
    if (lines > HighScoreRowCount) {
        if (!parseHighScoreRows(std::string_view(bytes).substr(second), tail, &why))
            return fail(name + "'s rows two to eleven are not a table: " + why);
        rows.push_back(tail.back());
    }
    for (std::size_t i = 1; i < rows.size(); ++i)
        if (rows[i].score > rows[i - 1].score)
            return fail(name + ": row " + std::to_string(i + 1) + " (" +
                        std::to_string(rows[i].score) + ") scores above row " + std::to_string(i) +
                        " (" + std::to_string(rows[i - 1].score) + ")");
    return true;
}

void Soak::sample(long games) {
    const auto now = std::chrono::steady_clock::now();
    Sample s{games, residentKiB(), openDescriptors(), 0};
    if (!samples_.empty())
        s.gamesPerSecond = static_cast<double>(games - samples_.back().games) /
                           std::chrono::duration<double>(now - lastSample_).count();
    lastSample_ = now;
    samples_.push_back(s);
    if (s.gamesPerSecond > 0)
        std::printf("%8ld %14ld %10d %10.0f %8d\n", s.games, s.residentKiB, s.descriptors,
                    s.gamesPerSecond, tables_);
    else
        std::printf("%8ld %14ld %10d %10s %8d\n", s.games, s.residentKiB, s.descriptors, "-",
                    tables_);
    std::fflush(stdout);
}

// From the second sample on the caches are warm: descriptors may not grow at all, memory
// by the tolerance. A run of two samples has no warm one to start from, so only its
// descriptors are held to the first.
bool Soak::checkGrowth() {
    const Sample& from = samples_.size() >= 3 ? samples_[1] : samples_.front();
    const Sample& to = samples_.back();
    if (to.descriptors > from.descriptors)
        return fail("open descriptors grew from " + std::to_string(from.descriptors) + " after " +
                    std::to_string(from.games) + " games to " + std::to_string(to.descriptors) +
                    " after " + std::to_string(to.games));
    if (samples_.size() >= 3 && to.residentKiB - from.residentKiB > kResidentToleranceKiB)
        return fail("resident memory grew from " + std::to_string(from.residentKiB) +
                    " KiB after " + std::to_string(from.games) + " games to " +
                    std::to_string(to.residentKiB) + " KiB after " + std::to_string(to.games) +
                    " (tolerance " + std::to_string(kResidentToleranceKiB) + " KiB)");
    return true;
}

int Soak::run() {
    std::printf("soak: %ld games of %s, seed %llu, data folder %s\n", settings_.games,
                game_.title.c_str(), static_cast<unsigned long long>(settings_.seed),
                prog_.dataDir().c_str());
    std::printf("%8s %14s %10s %10s %8s\n", "games", "resident KiB", "open fds", "games/s",
                "tables");
    const auto t0 = std::chrono::steady_clock::now();
    long game = 0;
    bool ok = launch() && checkFolder();
    if (ok)
        sample(0);
    while (ok && game < settings_.games) {
        ++game;
        scores_ += bot_->playGame();
        if (!bot_->fault().empty())
            fail(bot_->fault());
        ok = fault_.empty() && checkIdle() && checkFolder();
        if (!ok)
            break;
        if (game % kGamesPerSample == 0 || game == settings_.games)
            sample(game);
        if (game % kGamesPerVisit == 0 || game == settings_.games) {
            ok = leave() && checkFolder() && (game == settings_.games || launch());
        } else if (game % kGamesPerOptionChange == 0) {
            ++optionChanges_;
            if ((game / kGamesPerOptionChange) % 2 == 1) {
                ok = changeTimeLimit();
            } else {
                bot_->changeOptions(rng_);
                if (!bot_->fault().empty())
                    fail(bot_->fault());
            }
            ok = ok && checkIdle() && checkFolder();
        }
    }
    const double secs =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    if (bot_)
        clicks_ += bot_->clicks();
    // Last, the program is closed from the selector, which writes User.ini.
    if (ok && game == settings_.games) {
        ok = click(select_.find("cmdClose"), "frmSelect.cmdClose");
        if (ok && !fake_.quitRequested())
            ok = fail("Close on the selector did not end the program");
        if (ok && !fileExists(prog_.filePath("User.ini")))
            ok = fail("no User.ini after closing the program");
    }
    ok = ok && checkGrowth();
    if (!ok) {
        dir_.setAutoRemove(false);
        std::printf(
            "soak: FAIL at game %ld of %ld (seed %llu): %s\n  the data folder is kept: %s\n", game,
            settings_.games, static_cast<unsigned long long>(settings_.seed), fault_.c_str(),
            prog_.dataDir().c_str());
        return 1;
    }
    const Sample& from = samples_.size() >= 3 ? samples_[1] : samples_.front();
    const Sample& to = samples_.back();
    std::printf(
        "soak: PASS %ld games of %s in %.2f s, %.0f games/s; %ld launches from the selector, %ld "
        "option changes, %d tables checked after every game; resident %ld -> %ld KiB%s, open "
        "fds %d -> %d (from game %ld to %ld); %lld clicks, mean score %lld\n",
        game, game_.title.c_str(), secs, static_cast<double>(game) / secs, launches_,
        optionChanges_, tables_, from.residentKiB, to.residentKiB,
        samples_.size() >= 3
            ? (" (tolerance +" + std::to_string(kResidentToleranceKiB) + ")").c_str()
            : " (not judged: no sample past the first 1,000 games)",
        from.descriptors, to.descriptors, from.games, to.games, clicks_, scores_ / game);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    Settings settings;
    if (!parseArgs(argc, argv, settings)) {
        usage();
        return 2;
    }
    const GameInfo* game = gameNamed(settings.game);
    if (!game || !game->bot) {
        std::fprintf(stderr, "soak: no bot plays \"%s\"\n", settings.game.c_str());
        usage();
        return 2;
    }
    return Soak(settings, *game).run();
}
