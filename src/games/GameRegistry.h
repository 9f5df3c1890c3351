#pragma once
// The nine games in one table, one row each: selector button, title, form, files,
// tables and the rest the program needs of a game. Each row lives in its game's folder.

#include <vector>

#include "common/frame/GameInfo.h"

namespace corvanna {

class Program;
class GameFrame;

// In the selector's order.
const std::vector<GameInfo>& allGames();
const GameInfo* findGame(const std::string& formName);
// Loads the game's form (not yet shown) and runs its Form_Load.
GameFrame& loadGameForm(Program& prog, const GameInfo& game);

// What every row starts from: the names that come from the game's name (GameInfo), its
// table name constant, and the plain frame for its form.
GameInfo gameRow(const char* id, const char* name);

}  // namespace corvanna
