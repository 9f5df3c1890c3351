#include "shell/Startup.h"

#include <QStandardPaths>

#include "common/FileStore.h"
#include "common/frame/GameFrame.h"
#include "scores/HighScores.h"
#include "scores/ScoreMenus.h"
#include "shell/frmAbout.h"
#include "shell/frmSelect.h"

namespace corvanna {

namespace {
void notYet(Program& prog, const std::string& what) {
    prog.msg(what + " will come with a later version of The Corvanna Collection.", MsgButtons::OK,
             MsgIcon::Information);
}
}  // namespace

Form& startSelector(Program& prog) {
    prog.dialogs.about = [&prog] { ShowAbout(prog); };
    InstallHighScoreDialogs(prog);
    prog.dialogs.showHighScoreLabel = [&prog](Form& form) {
        const HighScoreChoice choice = CurrentHighScoreTable(prog);
        if (choice.table)
            ShowHighScoreLabel(prog, choice.tableName, static_cast<GameFrame&>(form),
                               choice.table->seedScore);
    };
    prog.dialogs.rankFinalScore = [&prog](Form& form) {
        const HighScoreChoice choice = CurrentHighScoreTable(prog);
        const bool ranked = UpdateHighScoreTable(prog, choice.tableName);
        // A damaged table has just been reported; the label would only say it again. A
        // missing one is made afresh by the label.
        if (!ranked && fileExists(HighScoreFilePath(prog, choice.tableName)))
            return;
        prog.dialogs.showHighScoreLabel(form);
    };
    prog.dialogs.rules = [&prog] { notYet(prog, "The rules of " + prog.state.AppTitle); };
    frmSelect& select = prog.load<frmSelect>();
    select.Form_Load();
    prog.platform.showForm(select, false);
    // Started with a saved game: Tierfall comes up and opens it as it is first activated.
    if (!prog.commandLine().empty())
        select.LaunchGame("frmTierfall");
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
