#pragma once
// The one way a user's click reaches a handler, for the window and the driver alike.

#include <string>

#include "forms/Control.h"

namespace corvanna {

// Runs the control's Click as a user's click would. A hidden or disabled control,
// or one on a form behind a modal dialog, takes no click: the reason comes back.
bool userClick(Control& control, std::string* whyNot = nullptr);
// The same for a double click; a control without the handler takes none.
bool userDblClick(Control& control, std::string* whyNot = nullptr);
// The Enter key in a text box; one without the handler does nothing with it.
bool userKeyEnter(Control& control, std::string* whyNot = nullptr);

}  // namespace corvanna
