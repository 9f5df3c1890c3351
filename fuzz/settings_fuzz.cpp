// Any bytes as a game's settings file, and as User.ini: the game loads, applies what it
// can, leaves sane values behind and writes a good file again.

#include <QTemporaryDir>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "common/FileStore.h"
#include "common/Program.h"
#include "common/UserIni.h"
#include "common/frame/GameFrame.h"
#include "games/GameRegistry.h"
#include "virtual/FakePlatform.h"

#define FUZZ_TARGET_NAME "settings_fuzz"
#include "FuzzCheck.h"

using namespace corvanna;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static QTemporaryDir dir;
    static FakePlatform fake;
    static Program prog(fake, dir.path().toStdString(), 1);
    // One loaded form per game, reused: the reader is what is under test, not the load.
    static std::vector<GameFrame*> forms = [] {
        std::vector<GameFrame*> all;
        for (const auto& game : allGames()) {
            prog.state.AppTitle = game.title;
            all.push_back(&loadGameForm(prog, game));
        }
        return all;
    }();
    if (size == 0)
        return 0;

    const std::size_t which = data[0] % forms.size();
    GameFrame& form = *forms[which];
    const GameInfo& game = form.info();
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::string path = prog.filePath(game.settingsFile);
    std::error_code ec;
    std::filesystem::remove(path + ".bad", ec);
    // The input needs no flush to disk: a plain write keeps the runs fast.
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;

    prog.state.AppTitle = game.title;
    // As the form's load does: the game's own time limit before its file is read.
    form.setWindowState(WindowState::Normal);
    form.SetTimeLimit(game.defaultSeconds);
    form.ReadSettingsINI(path);
    auto& g = prog.state;
    bool onMenu = false;
    for (const auto& entry : game.timeLimits)
        onMenu |= entry.seconds == g.RoundSeconds;
    check(onMenu, "RoundSeconds is not one of the game's time limits");
    check(g.DeckBack >= 0 && g.DeckBack <= 4, "DeckBack out of range");
    auto atLeastSmallest = [&] {
        return form.width() >= game.minWidth && form.height() >= game.minHeight;
    };
    check(form.windowState() != WindowState::Normal || atLeastSmallest(),
          "a normal window below its smallest size");

    // Leaving writes a whole new file that is the settings in force.
    form.WriteSettings();
    std::string written;
    check(readWholeFile(path, written) == ReadStatus::Ok, "the settings file was not written");
    check(written == form.SettingsText(), "the file written is not the settings in force");

    // A window that starts minimised keeps whatever size the file gave it until it is
    // restored, and then it is never smaller than the game's table.
    if (form.windowState() == WindowState::Minimized) {
        form.setWindowState(WindowState::Normal);
        check(atLeastSmallest(), "a restored window below its smallest size");
    }

    std::ofstream(prog.filePath("User.ini"), std::ios::binary | std::ios::trunc) << bytes;
    ReadUserIni(prog, prog.filePath("User.ini"));
    fake.takeLog();
    fake.takeErrors();
    fake.takeMessages();
    return 0;
}
