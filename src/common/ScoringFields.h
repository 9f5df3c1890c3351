#pragma once
// The number fields of a game's scoring dialog, checked the same way in every
// game: in the dialog's order, each against its limits, with the game's message,
// the text it puts back into a bad field, and the focus on that field.

#include <optional>
#include <string>
#include <vector>

#include "common/Program.h"
#include "forms/Controls.h"

namespace corvanna {

struct ScoringField {
    TextBox* box = nullptr;
    double low = 0;
    double high = 0;
    std::string lowMessage;   // below low
    std::string highMessage;  // above high; empty: lowMessage
    // What the game puts into the box when it fails low or high; none leaves the text.
    std::optional<std::string> lowText;
    std::optional<std::string> highText;
};

struct ScoringChecks {
    MsgIcon icon = MsgIcon::Exclamation;
    // Stop at the first bad field, or go on and test the others too.
    bool stopAtFirst = true;
};

// Reads every field as a plain number and tests it. A bad field shows its message,
// gets the game's text and the focus. values holds each field's number as read (for
// the fields after a stop: as read, untested). True when no field was bad.
bool CheckScoringFields(Program& prog, const std::vector<ScoringField>& fields,
                        const ScoringChecks& checks, std::vector<double>& values);

}  // namespace corvanna
