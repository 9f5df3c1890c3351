#pragma once
// The View and Clear high score commands every game form carries, and the choice
// of the table they work on.

#include <string>

#include "common/Program.h"
#include "common/frame/GameInfo.h"

namespace corvanna {

class GameFrame;

inline constexpr const char* kClearHighScoresQuestion =
    "This will clear all High Scores. Are You Sure?";

// A game's table at the present time limit, all from its row.
struct HighScoreChoice {
    const GameInfo* game = nullptr;  // nullptr: no game of AppTitle is loaded
    std::string tableName;           // whole name, without the seconds
    std::string info;                // the game's own line above the asterisk note
};
HighScoreChoice HighScoreTableOf(const Program& prog, const GameInfo& game);
// The table of the running game: the loaded form of AppTitle's game.
HighScoreChoice CurrentHighScoreTable(const Program& prog);

// The game form on show, or nullptr when none is loaded.
GameFrame* CurrentGameForm(const Program& prog);

// How the Clear command pauses: in two games it doesn't, where their View does.
DialogPause ClearHighScoresPause(const GameInfo& game);

// The View command inside the frame's pause: makes sure of the table where the game's
// pause form asks for it, then shows the dialog.
void ViewHighScores(Program& prog);
// The whole Clear command: pause by the game's form for it, the question, a fresh
// table with the game's seed, lblHighScore anew, resume.
void ClearHighScores(Program& prog);
// Puts both commands into the program's shared dialogs.
void InstallHighScoreDialogs(Program& prog);

}  // namespace corvanna
