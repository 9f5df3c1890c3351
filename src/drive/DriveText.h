#pragma once
// Small text helpers of the driver: splitting command lines, strict numbers,
// and making any value safe to print on one line.

#include <cstdint>
#include <string>

namespace corvanna::drive {

// The first blank-separated word; rest gets what follows it, leading blanks dropped.
std::string firstWord(const std::string& line, std::string& rest);
std::string trim(const std::string& s);

// Digits only (an optional leading '-' when negatives are allowed), within [low, high].
bool parseWhole(const std::string& text, std::int64_t low, std::int64_t high, std::int64_t& out);
bool parseUnsigned64(const std::string& text, std::uint64_t& out);

// Control characters as \n, \r, \t or \xNN, so a value never breaks the one-line output.
std::string printable(const std::string& s);
// A piece of the user's input for an error message: printable and cut short.
std::string shown(const std::string& s);
// A dump value: quoted when empty or holding blanks or quotes.
std::string dumpValue(const std::string& s);

}  // namespace corvanna::drive
