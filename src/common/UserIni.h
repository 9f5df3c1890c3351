#pragma once
// "User.ini": the user's name, home town, state and country.

#include <string>

namespace corvanna {

class Program;

// Writes the four texts; false after a message naming the file when it cannot.
bool WriteUserIni(Program& prog, const std::string& name, const std::string& hometown,
                  const std::string& state, const std::string& country);
// Reads what the file holds into the user's data; missing keys keep what they had.
void ReadUserIni(Program& prog, const std::string& fileName);

}  // namespace corvanna
