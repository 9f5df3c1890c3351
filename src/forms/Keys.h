#pragma once
// The keys a form answers itself, as desktop dialogs do: Enter presses the focused
// button or the default one, Escape the cancel one, Tab moves the focus. The window
// leaves every other key, and Enter in a box of several lines, to the widget.

#include <string>

#include "forms/Form.h"

namespace corvanna {

enum class Key { Enter, Escape, Tab, BackTab };

// Where a key goes in a form as it stands.
struct KeyRoute {
    enum Kind {
        Nowhere,    // the form has no button for it, or nothing takes the focus
        Press,      // a button's click: the focused one, the default or the cancel one
        TextEnter,  // the focused one-line text box's own Enter handler
        NewLine,    // a line break typed into the focused text box of several lines
        Focus,      // the focus moves to the control
    };
    Kind kind = Nowhere;
    Control* control = nullptr;
};

KeyRoute routeKey(const Form& form, Key key);

// Controls a user can give the focus to, by Tab or the mouse, when shown and enabled.
bool takesFocus(const Control& control);

// "Enter", "Escape", "Tab", "Shift+Tab".
const char* keyName(Key key);
// A key by its name (case ignored; "Return", "Esc" and "Backtab" too).
bool parseKey(const std::string& name, Key& out);

}  // namespace corvanna
