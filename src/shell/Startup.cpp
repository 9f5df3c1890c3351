#include "shell/Startup.h"

#include <QStandardPaths>
#include <algorithm>
#include <cctype>

#include "common/FileStore.h"
#include "common/frame/GameFrame.h"
#include "games/GameRegistry.h"
#include "scores/HighScores.h"
#include "scores/ScoreMenus.h"
#include "shell/frmAbout.h"
#include "shell/frmRules.h"
#include "shell/frmSelect.h"

namespace corvanna {

namespace {
bool endsWithNoCase(const std::string& text, const std::string& end) {
    if (end.size() > text.size())
        return false;
    return std::equal(end.rbegin(), end.rend(), text.rbegin(), [](char a, char b) {
        return std::tolower(static_cast<unsigned char>(a)) ==
               std::tolower(static_cast<unsigned char>(b));
    });
}

// The game a saved game on the command line opens in: the one of its extension, else the
// first that opens saved games at all, whose own message then says what the file is not.
const GameInfo* gameOpening(const std::string& fileName) {
    const GameInfo* first = nullptr;
    for (const GameInfo& game : allGames()) {
        if (game.savedGameExtension.empty())
            continue;
        if (endsWithNoCase(fileName, game.savedGameExtension))
            return &game;
        if (!first)
            first = &game;
    }
    return first;
}
}  // namespace

Form& startSelector(Program& prog) {
    prog.dialogs.about = [&prog] { ShowAbout(prog); };
    prog.dialogs.rules = [&prog] { ShowRules(prog); };
    InstallHighScoreDialogs(prog);
    // Both from the form's own row: its table name, seed and label prefix.
    prog.dialogs.showHighScoreLabel = [&prog](Form& form) {
        auto* game = dynamic_cast<GameFrame*>(&form);
        if (!game)
            return;
        const HighScoreChoice choice = HighScoreTableOf(prog, game->info());
        ShowHighScoreLabel(prog, choice.tableName, *game, choice.game->seedScore);
    };
    prog.dialogs.rankFinalScore = [&prog](Form& form) {
        auto* game = dynamic_cast<GameFrame*>(&form);
        if (!game)
            return;
        const HighScoreChoice choice = HighScoreTableOf(prog, game->info());
        const std::string path = HighScoreFilePath(prog, choice.tableName);
        if (choice.game->seedsTableAtGameOver && !fileExists(path))
            CreateHighScoreTable(prog, choice.tableName, choice.game->seedScore);
        const bool ranked = UpdateHighScoreTable(prog, choice.tableName);
        // A damaged table has just been reported; the label would only say it again. A
        // missing one is made afresh by the label.
        if (!ranked && fileExists(path))
            return;
        prog.dialogs.showHighScoreLabel(form);
    };
    // Every game's mail carries every game's own lines.
    prog.dialogs.highScoreMailLines = [&prog] {
        std::string lines;
        for (const GameInfo& game : allGames())
            if (game.mailLines)
                lines += game.mailLines(prog);
        return lines;
    };
    frmSelect& select = prog.load<frmSelect>();
    select.Form_Load();
    prog.platform.showForm(select, false);
    // Started with a saved game: its game comes up and opens it as it is first activated.
    if (!prog.commandLine().empty())
        if (const GameInfo* game = gameOpening(prog.commandLine()))
            select.LaunchGame(game->formName);
    return select;
}

std::string defaultDataDir() {
    // Without an application object the location has no program name in it.
    QString dir = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    if (dir.isEmpty())
        dir = QStandardPaths::writableLocation(QStandardPaths::HomeLocation) + "/.corvanna";
    return dir.toStdString();
}

}  // namespace corvanna
