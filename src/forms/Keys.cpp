#include "forms/Keys.h"

#include <algorithm>
#include <cctype>

namespace corvanna {

namespace {

bool usable(const Control* c) {
    return c && c->effectivelyVisible() && c->effectivelyEnabled();
}

// The next control of the tab order after `from` (before it, going back), round the end:
// the order in which the form made its controls, as the window's own.
Control* nextInTabOrder(const Form& form, const Control* from, bool forward) {
    const auto& all = form.controls();
    const int n = static_cast<int>(all.size());
    int here = forward ? -1 : n;
    for (int i = 0; i < n; ++i)
        if (all[static_cast<std::size_t>(i)].get() == from)
            here = i;
    for (int step = 1; step <= n; ++step) {
        const int i = ((here + (forward ? step : -step)) % n + n) % n;
        Control* c = all[static_cast<std::size_t>(i)].get();
        if (takesFocus(*c) && usable(c))
            return c;
    }
    return nullptr;
}

}  // namespace

bool takesFocus(const Control& c) {
    switch (c.kind()) {
        case ControlKind::CommandButton:
        case ControlKind::CheckBox:
        case ControlKind::OptionButton: return true;
        case ControlKind::TextBox: return dynamic_cast<const TextBox*>(&c) != nullptr;
        case ControlKind::ComboBox:
        case ControlKind::ListBox: return dynamic_cast<const ListControl*>(&c) != nullptr;
        default: return false;
    }
}

KeyRoute routeKey(const Form& form, Key key) {
    Control* focus = form.activeControl();
    if (!usable(focus))
        focus = nullptr;
    switch (key) {
        case Key::Enter:
            if (focus && focus->kind() == ControlKind::CommandButton)
                return {KeyRoute::Press, focus};
            if (auto* box = dynamic_cast<TextBox*>(focus)) {
                if (box->multiLine() && !box->locked())
                    return {KeyRoute::NewLine, box};
                if (!box->multiLine() && box->KeyEnter)
                    return {KeyRoute::TextEnter, box};
            }
            if (form.defaultButton())
                return {KeyRoute::Press, form.defaultButton()};
            return {};
        case Key::Escape:
            if (form.cancelButton())
                return {KeyRoute::Press, form.cancelButton()};
            return {};
        case Key::Tab:
        case Key::BackTab:
            if (Control* next = nextInTabOrder(form, form.activeControl(), key == Key::Tab))
                return {KeyRoute::Focus, next};
            return {};
    }
    return {};
}

const char* keyName(Key key) {
    switch (key) {
        case Key::Enter: return "Enter";
        case Key::Escape: return "Escape";
        case Key::Tab: return "Tab";
        case Key::BackTab: return "Shift+Tab";
    }
    return "";
}

bool parseKey(const std::string& name, Key& out) {
    std::string k = name;
    std::transform(k.begin(), k.end(), k.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (k == "enter" || k == "return")
        out = Key::Enter;
    else if (k == "escape" || k == "esc")
        out = Key::Escape;
    else if (k == "tab")
        out = Key::Tab;
    else if (k == "shift+tab" || k == "backtab")
        out = Key::BackTab;
    else
        return false;
    return true;
}

}  // namespace corvanna
