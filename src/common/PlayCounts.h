#pragma once
// How many times each game's form has been opened, kept across runs in
// "Played.ini" under the game's title.

#include <cstdint>
#include <string>

namespace corvanna {

class Program;

// Adds one to the game's count, stores it and returns it.
std::int16_t CountGamePlayed(Program& prog, const std::string& title);

}  // namespace corvanna
