#include "forms/Input.h"

#include <algorithm>
#include <memory>

#include "forms/Form.h"

namespace corvanna {

namespace {

bool refuse(const Control& control, const std::string& why, std::string* whyNot) {
    if (whyNot)
        *whyNot = control.form().name() + "." + control.fullName() + " " + why;
    return false;
}

// Hidden, disabled or behind a dialog: a user cannot reach it.
bool reachable(const Control& control, std::string* whyNot) {
    if (!control.form().visible())
        return refuse(control, "is on a form that is not shown", whyNot);
    if (!control.form().enabled())
        return refuse(control, "is behind a modal dialog", whyNot);
    if (!control.effectivelyVisible())
        return refuse(control, "is not visible", whyNot);
    if (!control.effectivelyEnabled())
        return refuse(control, "is disabled", whyNot);
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

namespace {

// A click by the mouse gives the focus first; one by a key leaves it where it is.
bool press(Control& control, bool byMouse, std::string* whyNot) {
    if (!reachable(control, whyNot))
        return false;
    if (control.kind() == ControlKind::Menu) {
        auto& m = static_cast<Menu&>(control);
        if (m.isSeparator())
            return refuse(control, "is a separator", whyNot);
    }
    // So Enter afterwards presses the same button, as in the window.
    if (byMouse && takesFocus(control) && control.form().activeControl() != &control)
        control.setFocus();
    // The mouse puts the arrow-key cursor out of sight; the next arrow goes on from here.
    if (byMouse && control.form().keyboardPlay() && playable(control))
        control.form().setPlayCursor(&control, false);
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

}  // namespace

bool userClick(Control& control, std::string* whyNot) {
    return press(control, true, whyNot);
}

bool userFocus(Control& control, std::string* whyNot) {
    if (!reachable(control, whyNot))
        return false;
    if (!takesFocus(control))
        return refuse(control, "does not take the focus", whyNot);
    control.setFocus();
    // Tab puts the arrow-key cursor out of sight: Space and Enter are the focus's again.
    Form& form = control.form();
    if (form.keyboardPlay())
        form.setPlayCursor(playable(control) ? &control : form.playCursorAnchor(), false);
    return true;
}

bool userType(TextBox& box, const std::string& typed, std::string* whyNot) {
    if (!reachable(box, whyNot))
        return false;
    if (box.locked())
        return refuse(box, "is locked", whyNot);
    if (box.form().activeControl() != &box)
        box.setFocus();
    std::string text = typed;
    // One line takes no line break, as the widget takes none.
    if (!box.multiLine())
        std::erase_if(text, [](char c) { return c == '\n' || c == '\r'; });
    const std::string& old = box.text();
    const auto start = std::min(static_cast<std::size_t>(std::max(0, box.selStart)), old.size());
    const auto length =
        std::min(static_cast<std::size_t>(std::max(0, box.selLength)), old.size() - start);
    if (box.maxLength() > 0) {
        const auto room = static_cast<std::size_t>(
            std::max(0, box.maxLength() - static_cast<int>(old.size() - length)));
        if (text.size() > room)
            text.resize(room);
    }
    const std::string next = old.substr(0, start) + text + old.substr(start + length);
    const int caret = static_cast<int>(start + text.size());
    box.setText(next);  // Change runs; it may change the text again
    box.select(caret, 0);
    return true;
}

namespace {

bool formTakesKeys(const Form& form, std::string* whyNot) {
    const char* reason = !form.visible()                                ? "is not shown"
                         : !form.enabled()                              ? "is behind a modal dialog"
                         : form.windowState() == WindowState::Minimized ? "is minimised"
                                                                        : nullptr;
    if (reason && whyNot)
        *whyNot = form.name() + " " + reason;
    return !reason;
}

// Why a key went nowhere in the form as it stands.
const char* nothingFor(const Form& form, Key key) {
    switch (key) {
        case Key::Enter: return "has no default button";
        case Key::Escape: return "has no cancel button";
        case Key::Space: return "has no button with the focus";
        case Key::Tab:
        case Key::BackTab: return "has no control that takes the focus";
        default: break;
    }
    return form.keyboardPlay() ? "has nothing to move the cursor to" : "has no keyboard play";
}

// A click by Space or Enter on what the cursor is on. A card that leaves the board with
// the click hands the cursor on to the next in reading order, so it stays in sight.
bool pressUnderCursor(Form& form, Control& control, std::string* whyNot) {
    const std::weak_ptr<const void> alive = form.liveness();
    if (!press(control, false, whyNot))
        return false;
    if (alive.expired() || !form.keyboardPlay() || form.playCursor() != &control ||
        playable(control))
        return true;
    Control* next = playTarget(form, Key::Right);
    form.setPlayCursor(next ? next : &control, next != nullptr);
    return true;
}

}  // namespace

bool userKey(Form& form, Key key, std::string* whyNot) {
    if (!formTakesKeys(form, whyNot))
        return false;
    const KeyRoute route = routeKey(form, key);
    switch (route.kind) {
        case KeyRoute::Cursor: form.setPlayCursor(route.control, true); return true;
        case KeyRoute::Press:
            if (route.byCursor)
                return pressUnderCursor(form, *route.control, whyNot);
            return press(*route.control, false, whyNot);
        case KeyRoute::TextEnter: return userKeyEnter(*route.control, whyNot);
        case KeyRoute::NewLine:
            return userType(static_cast<TextBox&>(*route.control), "\n", whyNot);
        case KeyRoute::Focus: return userFocus(*route.control, whyNot);
        case KeyRoute::Nowhere: break;
    }
    if (whyNot)
        *whyNot = form.name() + " " + nothingFor(form, key);
    return false;
}

}  // namespace corvanna
