#include "scores/ScoreMenus.h"

#include "common/frame/GameFrame.h"
#include "scores/HighScores.h"
#include "scores/frmHighScores.h"

namespace corvanna {

HighScoreChoice HighScoreTableOf(const Program& prog, const GameInfo& game) {
    HighScoreChoice choice;
    choice.game = &game;
    choice.tableName = game.tableName(prog);
    if (game.tableInfo)
        choice.info = game.tableInfo(prog);
    return choice;
}

HighScoreChoice CurrentHighScoreTable(const Program& prog) {
    const GameFrame* form = CurrentGameForm(prog);
    if (!form || form->info().title != prog.state.AppTitle)
        return {};
    return HighScoreTableOf(prog, form->info());
}

GameFrame* CurrentGameForm(const Program& prog) {
    GameFrame* any = nullptr;
    for (Form* f : prog.forms())
        if (auto* game = dynamic_cast<GameFrame*>(f)) {
            if (game->info().title == prog.state.AppTitle)
                return game;
            any = game;
        }
    return any;
}

DialogPause ClearHighScoresPause(const GameInfo& game) {
    return game.clearPause;
}

void ViewHighScores(Program& prog) {
    GameFrame* game = CurrentGameForm(prog);
    const HighScoreChoice choice = CurrentHighScoreTable(prog);
    // The pause-button games make sure of their table here; the others count on the
    // one ShowHighScoreLabel made at load.
    if (game && choice.game && game->info().dialogPause == DialogPause::ByPauseButton &&
        !HighScoreTable(HighScoreFilePath(prog, choice.tableName)).exists())
        CreateHighScoreTable(prog, choice.tableName, choice.game->seedScore);
    ShowHighScores(prog);
}

void ClearHighScores(Program& prog) {
    GameFrame* game = CurrentGameForm(prog);
    if (!game)
        return;
    auto clear = [&prog, game] {
        if (prog.msg(kClearHighScoresQuestion, MsgButtons::YesNo, MsgIcon::Question) !=
            MsgResult::Yes)
            return;
        const HighScoreChoice choice = CurrentHighScoreTable(prog);
        if (!choice.game)
            return;
        if (CreateHighScoreTable(prog, choice.tableName, choice.game->seedScore, true))
            ShowHighScoreLabel(prog, choice.tableName, *game, choice.game->seedScore);
    };
    const DialogPause pause = ClearHighScoresPause(game->info());
    // Where Clear pauses at all, it pauses as the game's View does.
    if (pause == DialogPause::Never)
        clear();
    else
        game->RunPausingDialog(clear);
}

void InstallHighScoreDialogs(Program& prog) {
    prog.dialogs.viewHighScores = [&prog] { ViewHighScores(prog); };
    prog.dialogs.clearHighScores = [&prog] { ClearHighScores(prog); };
}

}  // namespace corvanna
