#pragma once
// Web pages open in the user's browser, with a message when that fails.

#include <string>

namespace corvanna {

class Program;

// The distributor's home page, opened from the selector.
inline constexpr const char* kHomePageUrl = "https://www.example.org/velmora/";
// The high score page, opened from the High Scores dialog.
inline constexpr const char* kHighScorePageUrl = "https://www.example.org/orlund/High%20Scores.htm";

// Who keeps the high score page, and takes the listings players send by e-mail.
inline constexpr const char* kHighScoreKeeperName = "Orlund";
inline constexpr const char* kHighScoreKeeperAddress = "highscores@example.org";

void OpenWebPage(Program& prog, const std::string& url);

}  // namespace corvanna
