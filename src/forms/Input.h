#pragma once
// The one way a user's click, key or typing reaches a handler, for the window and the
// driver alike.

#include <string>

#include "forms/Control.h"
#include "forms/Keys.h"

namespace corvanna {

// Runs the control's Click as a user's click would. A hidden or disabled control,
// or one on a form behind a modal dialog, takes no click: the reason comes back.
// A control that takes the focus gets it, as the mouse gives it.
bool userClick(Control& control, std::string* whyNot = nullptr);
// The same for a double click; a control without the handler takes none.
bool userDblClick(Control& control, std::string* whyNot = nullptr);
// The Enter key in a text box; one without the handler does nothing with it.
bool userKeyEnter(Control& control, std::string* whyNot = nullptr);
// A key pressed in the form, where routeKey sends it: a button's click goes through
// userClick, with its guard; an arrow moves the cursor of keyboard play (Keys.h). A form
// not shown or behind a modal dialog takes no key.
bool userKey(Form& form, Key key, std::string* whyNot = nullptr);
// The user gives the control the focus (Tab, the mouse): a text box selects its text.
bool userFocus(Control& control, std::string* whyNot = nullptr);
// Text typed into a text box: it takes the focus if it has not got it, and what is
// typed replaces the selected part, as far as MaxLength leaves room.
bool userType(TextBox& box, const std::string& typed, std::string* whyNot = nullptr);

}  // namespace corvanna
