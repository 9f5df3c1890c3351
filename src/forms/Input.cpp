#include "forms/Input.h"

#include "forms/Form.h"

namespace corvanna {

namespace {
// Hidden, disabled or behind a dialog: a user cannot reach it.
bool reachable(const Control& control, std::string* whyNot) {
    auto refuse = [&](const std::string& why) {
        if (whyNot)
            *whyNot = control.form().name() + "." + control.fullName() + " " + why;
        return false;
    };
    if (!control.form().visible())
        return refuse("is on a form that is not shown");
    if (!control.form().enabled())
        return refuse("is behind a modal dialog");
    if (!control.effectivelyVisible())
        return refuse("is not visible");
    if (!control.effectivelyEnabled())
        return refuse("is disabled");
    return true;
}

void run(const std::function<void()>& event) {
    if (event) {
        auto handler = event;  // the handler may unload the form, and the control with it
        handler();
    }
}
}  // namespace

bool userDblClick(Control& control, std::string* whyNot) {
    return reachable(control, whyNot) && (run(control.DblClick), true);
}

bool userKeyEnter(Control& control, std::string* whyNot) {
    return reachable(control, whyNot) && (run(control.KeyEnter), true);
}

bool userClick(Control& control, std::string* whyNot) {
    if (!reachable(control, whyNot))
        return false;
    auto refuse = [&](const std::string& why) {
        if (whyNot)
            *whyNot = control.form().name() + "." + control.fullName() + " " + why;
        return false;
    };
    if (control.kind() == ControlKind::Menu) {
        auto& m = static_cast<Menu&>(control);
        if (m.isSeparator())
            return refuse("is a separator");
    }
    // A check box or option button changes its value as the click lands, which runs Click;
    // a click on an option button that is already on runs it too.
    if (control.kind() == ControlKind::CheckBox) {
        control.setChecked(!control.checked());
        return true;
    }
    if (control.kind() == ControlKind::OptionButton && !control.checked()) {
        control.setChecked(true);
        return true;
    }
    run(control.Click);
    return true;
}

}  // namespace corvanna
