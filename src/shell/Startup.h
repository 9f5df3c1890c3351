#pragma once
// Bringing the program up: the selector loads, reads the user's data and shows.

#include <string>

namespace corvanna {

class Program;
class Form;

// Loads frmSelect, runs its Form_Load and shows it. Returns the selector form.
Form& startSelector(Program& prog);

// The data folder when none is given: the per-user application data folder.
std::string defaultDataDir();

}  // namespace corvanna
