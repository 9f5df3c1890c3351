#pragma once
// The number fields of a game's scoring dialog, checked the same way in every
// game: in the dialog's order, each against its tests and limits, with the game's
// message, the text it puts back into a bad field, and the focus on that field.
// The dialogs themselves are common/frame/ScoringDialog.

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "common/Program.h"
#include "forms/Controls.h"

namespace corvanna {

// A test of a field's number beyond its limits, such as a maximum against its minimum.
struct ScoringCheck {
    std::function<bool(double value)> refuses;
    std::string message;
    // The text put back into the field; empty: the typed text stays.
    std::function<std::string()> putBack;
};

struct ScoringField {
    TextBox* box = nullptr;
    // Tested ahead of the limits, in order; the first that refuses speaks.
    std::vector<ScoringCheck> ahead;
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();
    std::string lowMessage;   // below low
    std::string highMessage;  // above high; empty: lowMessage
    // What the game puts into the box when it fails low or high; none leaves the text.
    std::optional<std::string> lowText;
    std::optional<std::string> highText;
    // Checking every field: takes a good field's number as it is found good (`good`), and,
    // when `storesPutBack`, a refused field's as put back into it.
    std::function<void(double value, bool good)> store;
    bool storesPutBack = false;
};

struct ScoringChecks {
    MsgIcon icon = MsgIcon::Exclamation;
    // Stop at the first bad field, storing nothing; or go on, test the others too and
    // store as it goes.
    bool stopAtFirst = true;
};

// Reads every field as a plain number and tests it. A bad field shows its message,
// gets the game's text and the focus. values holds each field's number as read (for
// the fields after a stop: as read, untested). True when no field was bad.
bool CheckScoringFields(Program& prog, const std::vector<ScoringField>& fields,
                        const ScoringChecks& checks, std::vector<double>& values);

}  // namespace corvanna
