#pragma once
// The three table operations every game calls, and the file name rules. Each one
// reports its own failure in a message box naming the file, and hands back false;
// the game goes on either way.

#include <cstdint>
#include <functional>
#include <string>

#include "common/Program.h"
#include "scores/HighScoreTable.h"

namespace corvanna {

class Control;
class GameFrame;

// AppPath + whole table name (GameInfo::tableName) + RoundSeconds + ".Txt".
std::string HighScoreFilePath(const Program& prog, const std::string& tableName);

// Makes sure the table exists (a missing one is seeded), then shows its top score on
// the label with the game's prefix. A damaged table is reported and left untouched.
bool ShowHighScoreLabel(Program& prog, const std::string& tableName, Control& lblHighScore,
                        const std::string& prefix, std::int64_t defaultScore);
bool ShowHighScoreLabel(Program& prog, const std::string& tableName, GameFrame& form,
                        std::int64_t defaultScore);

// Writes a fresh table over whatever is there. A failure is told once a session, or
// every time when the user asked for the table to be cleared.
bool CreateHighScoreTable(Program& prog, const std::string& tableName, std::int64_t defaultScore,
                          bool userAsked = false);

// Ranks Score. A score that enters asks for the name, writes the row (with an asterisk
// under CustomScoring), sets NewHighScoreRow and then runs showTable, the High Scores
// dialog (when empty, the program's View command). A missing or damaged table is
// reported, nothing is asked and nothing is written.
bool UpdateHighScoreTable(Program& prog, const std::string& tableName,
                          const std::function<void()>& showTable = {});

}  // namespace corvanna
