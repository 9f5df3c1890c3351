#include "forms/Keys.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <vector>

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

// A control's middle and height in the form's own twips, whatever holds it.
struct Spot {
    Control* control;
    double x, y, height;
};

Spot spotOf(Control* c) {
    int x = c->left(), y = c->top();
    for (const Control* k = c->container(); k; k = k->container())
        x += k->left(), y += k->top();
    return {c, x + c->width() / 2.0, y + c->height() / 2.0, static_cast<double>(c->height())};
}

// The page's rows, top to bottom, each left to right. A control whose middle lies within
// a fifth of the smaller height below the middle of a row's first one is in that row: cards
// fanned down a column by a quarter of their height make rows of their own.
std::vector<std::vector<Spot>> rowsOf(std::vector<Spot> spots) {
    std::stable_sort(spots.begin(), spots.end(),
                     [](const Spot& a, const Spot& b) { return a.y < b.y; });
    std::vector<std::vector<Spot>> rows;
    for (const Spot& s : spots) {
        if (!rows.empty()) {
            const Spot& first = rows.back().front();
            if (s.y - first.y <= std::min(s.height, first.height) / 5) {
                rows.back().push_back(s);
                continue;
            }
        }
        rows.push_back({s});
    }
    for (auto& row : rows)
        std::stable_sort(row.begin(), row.end(),
                         [](const Spot& a, const Spot& b) { return a.x < b.x; });
    return rows;
}

bool isArrow(Key key) {
    return key == Key::Left || key == Key::Right || key == Key::Up || key == Key::Down;
}

}  // namespace

bool playable(const Control& c) {
    if (c.kind() == ControlKind::Menu || c.kind() == ControlKind::Timer)
        return false;
    const bool clicks =
        c.Click || c.kind() == ControlKind::CheckBox || c.kind() == ControlKind::OptionButton;
    return clicks && usable(&c);
}

Control* letterTarget(const Form& form, char letter) {
    if (!form.keyboardPlay() || letter < 'A' || letter > 'Z')
        return nullptr;
    for (const auto& c : form.controls())
        if (c->kind() == ControlKind::CommandButton && c->caption().size() == 1 &&
            c->caption()[0] == letter && playable(*c))
            return c.get();
    return nullptr;
}

Control* playTarget(const Form& form, Key arrow) {
    if (!isArrow(arrow))
        return nullptr;
    std::vector<Spot> spots;
    for (const auto& c : form.controls())
        if (playable(*c))
            spots.push_back(spotOf(c.get()));
    if (spots.empty())
        return nullptr;
    // From the cursor, or the focused button; a cursor whose card has gone keeps its place.
    Control* from = form.playCursorAnchor();
    if (!from && form.activeControl() && playable(*form.activeControl()))
        from = form.activeControl();
    const bool listed = std::any_of(spots.begin(), spots.end(),
                                    [from](const Spot& s) { return s.control == from; });
    if (from && !listed)
        spots.push_back(spotOf(from));
    const auto rows = rowsOf(std::move(spots));
    std::vector<Control*> order;
    std::size_t row = 0, at = 0;
    for (std::size_t r = 0; r < rows.size(); ++r)
        for (const Spot& s : rows[r]) {
            if (s.control == from)
                row = r, at = order.size();
            order.push_back(s.control);
        }
    const bool forward = arrow == Key::Right || arrow == Key::Down;
    if (!from)
        return forward ? order.front() : order.back();
    if (arrow == Key::Left || arrow == Key::Right) {
        const std::size_t n = order.size();
        for (std::size_t step = 1; step <= n; ++step) {
            Control* c = order[(at + (forward ? step : n - step)) % n];
            if (c != from || listed)
                return c;
        }
        return nullptr;
    }
    // Up and Down: the nearest in the next row that way; at the edge the cursor stays.
    if (forward ? row + 1 >= rows.size() : row == 0)
        return listed ? from : nullptr;
    const double x = spotOf(from).x;
    const auto& next = rows[forward ? row + 1 : row - 1];
    const Spot* best = &next.front();
    for (const Spot& s : next)
        if (std::abs(s.x - x) < std::abs(best->x - x))
            best = &s;
    return best->control;
}

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
    // A text or list box with the focus keeps the arrows, Space and Enter for itself.
    const bool boxKeys =
        dynamic_cast<const TextBox*>(focus) || dynamic_cast<const ListControl*>(focus);
    Control* cursor = form.keyboardPlay() && !boxKeys ? form.playCursor() : nullptr;
    if (cursor && !playable(*cursor))
        cursor = nullptr;
    switch (key) {
        case Key::Left:
        case Key::Right:
        case Key::Up:
        case Key::Down:
            if (!form.keyboardPlay() || boxKeys)
                return {};
            if (Control* to = playTarget(form, key))
                return {KeyRoute::Cursor, to, true};
            return {};
        case Key::Space:
            if (cursor)
                return {KeyRoute::Press, cursor, true};
            if (focus && (focus->kind() == ControlKind::CommandButton ||
                          focus->kind() == ControlKind::CheckBox ||
                          focus->kind() == ControlKind::OptionButton))
                return {KeyRoute::Press, focus};
            return {};
        case Key::Enter:
            if (cursor)
                return {KeyRoute::Press, cursor, true};
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
        case Key::Space: return "Space";
        case Key::Left: return "Left";
        case Key::Right: return "Right";
        case Key::Up: return "Up";
        case Key::Down: return "Down";
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
    else if (k == "space")
        out = Key::Space;
    else if (k == "left")
        out = Key::Left;
    else if (k == "right")
        out = Key::Right;
    else if (k == "up")
        out = Key::Up;
    else if (k == "down")
        out = Key::Down;
    else
        return false;
    return true;
}

}  // namespace corvanna
