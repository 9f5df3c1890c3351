#pragma once
// The program-wide variables by the names the games use, read as text: for the
// driver's `get`, for dumps and for bots. A game adds its own variables with one
// addVariable line each, next to where it keeps them.

#include <functional>
#include <string>
#include <vector>

namespace corvanna {

class Program;

// Numbers in decimal, flags "True"/"False", FormLoadTime as "yyyy-mm-dd hh:mm:ss",
// Deck as its codes from position 1 joined by spaces. "Deck(N)" reads one position.
// False for an unknown name or a bad index; *why then says which.
bool getVariable(const Program& prog, const std::string& name, std::string& out,
                 std::string* why = nullptr);

// Every name getVariable knows, in table order; an array also as "Deck(N)".
std::vector<std::string> variableNames();

// How `get` prints a number and a flag ("True"/"False"), for a game's getters too.
std::string numberText(long long v);
std::string flagText(bool b);

using VariableGetter = std::function<std::string(const Program&)>;
// Array elements: false when the index is out of range.
using IndexedVariableGetter = std::function<bool(const Program&, int index, std::string& out)>;

// A game's own variable. A name given again replaces the earlier getter.
void addVariable(const std::string& name, VariableGetter get);
void addIndexedVariable(const std::string& name, IndexedVariableGetter get);

}  // namespace corvanna
