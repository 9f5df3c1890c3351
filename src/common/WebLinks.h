#pragma once
// Web pages open in the user's browser, with a message when that fails.

#include <string>

namespace corvanna {

class Program;

// The distributor's home page, opened from the selector.
inline constexpr const char* kHomePageUrl = "https://www.example.org/velmora/";

void OpenWebPage(Program& prog, const std::string& url);

}  // namespace corvanna
