#pragma once
// Number rules shared by every game: rounding, integer widths and the score format.

#include <cstdint>
#include <string>

#include "platform/Platform.h"

namespace corvanna {

// A real number to an integer, half to even.
std::int64_t roundHalfEven(double v);
// Adds to a 32-bit score, which holds at its ends rather than wrap.
void addToScore(std::int32_t& score, std::int64_t amount);
// "###,###,###,##0": thousands grouped, "0" for zero.
std::string formatScore(std::int64_t v);
// "h:mm AM" / "h:mm PM", as the status bar shows the time of day.
std::string formatTimeOfDay(int hour, int minute);
// Minute boundaries crossed from a to b, as a date difference counts them.
long long MinutesBetween(const DateTime& a, const DateTime& b);
// A whole number if the text is one (blanks round it allowed), for settings values.
bool parseInteger(const std::string& text, std::int64_t& out);
bool parseReal(const std::string& text, double& out);
// parseInteger within 32 bits, as the settings' score values are held.
bool parseInt32(const std::string& text, std::int32_t& out);
// A number typed into a dialog: the plain number at the start of the text (blanks,
// a sign, digits, a decimal point), 0 when there is none; held within +-1e15.
double plainNumber(const std::string& text);

}  // namespace corvanna
