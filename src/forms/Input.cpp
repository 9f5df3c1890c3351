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
}  // namespace

bool userDblClick(Control& control, std::string* whyNot) {
    if (!reachable(control, whyNot))
        return false;
    if (control.DblClick) {
        auto handler = control.DblClick;  // the handler may unload the form
        handler();
    }
    return true;
}

bool userKeyEnter(Control& control, std::string* whyNot) {
    if (!reachable(control, whyNot))
        return false;
    if (control.KeyEnter) {
        auto handler = control.KeyEnter;  // the handler may unload the form
        handler();
    }
    return true;
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
    // A check box or option button changes its value as the click lands.
    if (control.kind() == ControlKind::CheckBox)
        control.setChecked(!control.checked());
    if (control.kind() == ControlKind::OptionButton) {
        for (auto* sib : control.form().childrenOf(control.container()))
            if (sib != &control && sib->kind() == ControlKind::OptionButton)
                sib->setChecked(false);
        control.setChecked(true);
    }
    if (control.Click) {
        auto handler = control.Click;  // the handler may unload the form
        handler();
    }
    return true;
}

}  // namespace corvanna
