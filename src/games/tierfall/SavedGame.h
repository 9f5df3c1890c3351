#pragma once
// A Tierfall game saved for replay (".tfl"): the card goal, the time limit, the score,
// the scoring mode, the player and the decks of the rounds reached. A file is read
// and checked whole before anything of it is used.

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "common/AppState.h"
#include "common/FileStore.h"
#include "games/tierfall/TierfallValues.h"

namespace corvanna {

struct SavedGame {
    int cardGoal = 0;
    int seconds = 0;
    std::string scoreText;
    bool custom = false;
    std::string userName;
    // By position from 1, as RoundDecks; a round the game didn't reach is empty.
    std::array<std::vector<std::string>, 3> decks;
};

// A saved game is a few hundred lines: anything larger is not one.
inline constexpr std::size_t kMaxSavedGameBytes = kMaxDataFileBytes;
inline constexpr const char* kAnonymousUser = "an anonymous user";
// The most of a player's name the opening message shows.
inline constexpr std::size_t kMaxShownNameBytes = 100;

// The file of the last game played: CardGoal, RoundSeconds, LastScore, CustomScoring,
// the name ("an anonymous user" when empty) and the round decks that were filled.
std::string SavedGameText(const AppState& g, const TierfallValues& t, const std::string& userName);
std::string SavedGameText(const SavedGame& game);

// False, with a short reason, when the text is not a whole, sound saved game.
bool ParseSavedGame(const std::string& bytes, SavedGame& out, std::string* reason = nullptr);
bool ReadSavedGame(const std::string& path, SavedGame& out, std::string* reason = nullptr);

// The number the score text starts with; huge ones hold at the ends of the range.
long long SavedGameScore(const std::string& scoreText);
// What the player's score says of them, e.g. "earned a decent".
std::string SavedGameComment(long long score);
// Who saved the game and how well they did; with a question when the time limits differ.
std::string SavedGameMessage(const SavedGame& game, int currentSeconds);

}  // namespace corvanna
