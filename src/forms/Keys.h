#pragma once
// The keys a form answers itself, as desktop dialogs do: Enter presses the focused
// button or the default one, Escape the cancel one, Tab moves the focus, Space presses
// the focused button. The window leaves every other key, and Enter in a box of several
// lines, to the widget.
//
// A form with keyboard play (Form::setKeyboardPlay) also has an arrow-key cursor over
// what can be clicked: cards and buttons that have a Click and are shown and enabled.
// They are read like a page: rows from the top, left to right within a row. Left and
// Right go back and on along that order, round the ends; Up and Down go to the nearest
// one, left or right, in the row above or below. The first arrow starts from the focused
// button, or else from the first (last) of the page. While the cursor is shown, Space and
// Enter click what it is on; a mouse click or Tab puts it out of sight, and Space and
// Enter then work on the focus as in any form. A text or list box with the focus keeps
// the arrows, Space and Enter for itself.

#include <string>

#include "forms/Form.h"

namespace corvanna {

enum class Key { Enter, Escape, Tab, BackTab, Space, Left, Right, Up, Down };

// Where a key goes in a form as it stands.
struct KeyRoute {
    enum Kind {
        Nowhere,    // the form has no button for it, or nothing takes the focus
        Press,      // a button's click: the focused one, the default or the cancel one
        TextEnter,  // the focused one-line text box's own Enter handler
        NewLine,    // a line break typed into the focused text box of several lines
        Focus,      // the focus moves to the control
        Cursor,     // the arrow-key cursor moves onto the control
    };
    Kind kind = Nowhere;
    Control* control = nullptr;
    bool byCursor = false;  // the arrow-key cursor decided: the window keeps the key
};

KeyRoute routeKey(const Form& form, Key key);

// Controls a user can give the focus to, by Tab or the mouse, when shown and enabled.
bool takesFocus(const Control& control);

// Whether the arrow-key cursor visits the control now: it has a Click (or is a check or
// option button) and is shown and enabled.
bool playable(const Control& control);
// Where an arrow key takes the cursor from where it is (or would start), nullptr for
// nowhere: no arrow key or nothing to visit.
Control* playTarget(const Form& form, Key arrow);

// In a form with keyboard play, the button a typed letter clicks: one that is shown,
// enabled and captioned with that letter alone (an alphabet of buttons), or nullptr.
Control* letterTarget(const Form& form, char letter);

// "Enter", "Escape", "Tab", "Shift+Tab", "Space", "Left", "Right", "Up", "Down".
const char* keyName(Key key);
// A key by its name (case ignored; "Return", "Esc" and "Backtab" too).
bool parseKey(const std::string& name, Key& out);

}  // namespace corvanna
