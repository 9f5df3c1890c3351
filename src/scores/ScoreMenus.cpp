#include "scores/ScoreMenus.h"

#include "common/frame/GameFrame.h"
#include "scores/HighScores.h"
#include "scores/frmHighScores.h"

namespace corvanna {

HighScoreChoice CurrentHighScoreTable(const Program& prog) {
    HighScoreChoice choice;
    choice.table = highScoreTableFor(prog.state.AppTitle);
    if (!choice.table)
        return choice;
    if (choice.table->tableName == TierfallHiScoreTable) {
        // Tierfall keeps a table per card goal and scoring mode.
        const int cardGoal = prog.state.Tierfall.CardGoal;
        const bool enhanced = prog.state.Tierfall.EnhancedScoring;
        choice.tableName = HighScoreTableName(choice.table->tableName, cardGoal, enhanced);
        choice.info = (enhanced ? "V 7.0 Enhanced Scoring - High Scores for a card goal of "
                                : "High Scores for a card goal of ") +
                      std::to_string(cardGoal);
    } else {
        choice.tableName = std::string(choice.table->tableName);
    }
    return choice;
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
    if (game && choice.table && game->info().dialogPause == DialogPause::ByPauseButton &&
        !HighScoreTable(HighScoreFilePath(prog, choice.tableName)).exists())
        CreateHighScoreTable(prog, choice.tableName, choice.table->seedScore);
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
        if (!choice.table)
            return;
        if (CreateHighScoreTable(prog, choice.tableName, choice.table->seedScore, true))
            ShowHighScoreLabel(prog, choice.tableName, *game, choice.table->seedScore);
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
