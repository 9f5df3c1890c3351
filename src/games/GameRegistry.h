#pragma once
// The nine games in one table: selector button, title, form and files.

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

}  // namespace corvanna
