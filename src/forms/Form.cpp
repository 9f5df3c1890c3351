#include "forms/Form.h"

#include <algorithm>
#include <charconv>

namespace corvanna {

Form::Form(FormHost& host, std::string name) : host_(&host), name_(std::move(name)) {}

Form::~Form() {
    for (auto& c : controls_)
        if (c->kind() == ControlKind::Timer)
            host_->timerDestroyed(static_cast<Timer&>(*c));
    observers_.tell(*this, Prop::Destroyed);
    // Children before their containers, so no view sees a dangling parent.
    while (!controls_.empty())
        controls_.pop_back();
}

void Form::adopt(std::unique_ptr<Control> c) {
    controls_.push_back(std::move(c));
    notify(Prop::ControlAdded);
}

Control& Form::addControl(ControlKind kind, const std::string& name, int index,
                          Control* container) {
    return add<Control>(kind, name, index, container);
}

Menu& Form::addMenu(const std::string& name, const std::string& caption, Menu* parent, int index) {
    return add<Menu>(name, index, parent, caption);
}

Menu& Form::addMenuAfter(const std::string& name, const std::string& caption, Menu& after,
                         int index) {
    Menu& m = addMenu(name, caption, after.parentMenu(), index);
    auto at = [this](const Control* c) {
        return std::find_if(controls_.begin(), controls_.end(),
                            [c](const auto& owned) { return owned.get() == c; });
    };
    auto made = at(&m);
    std::unique_ptr<Control> owned = std::move(*made);
    controls_.erase(made);
    controls_.insert(at(&after) + 1, std::move(owned));
    return m;
}

Control* Form::find(const std::string& name, int index) const {
    for (auto& c : controls_)
        if (c->name() == name && c->index() == index)
            return c.get();
    return nullptr;
}

std::vector<Menu*> Form::topMenus() const {
    std::vector<Menu*> out;
    for (auto& c : controls_)
        if (c->kind() == ControlKind::Menu && !c->container())
            out.push_back(static_cast<Menu*>(c.get()));
    return out;
}

std::vector<Control*> Form::childrenOf(const Control* container) const {
    std::vector<Control*> out;
    for (auto& c : controls_)
        if (c->container() == container)
            out.push_back(c.get());
    return out;
}

void Form::setCaption(const std::string& v) {
    if (v == caption_)
        return;
    caption_ = v;
    notify(Prop::Caption);
}

void Form::setBounds(int left, int top, int width, int height) {
    width = std::max(width, kFrameWidthTwips);
    height = std::max(height, kFrameHeightTwips);
    if (left == left_ && top == top_ && width == width_ && height == height_)
        return;
    const bool resized = width != width_ || height != height_;
    left_ = left, top_ = top, width_ = width, height_ = height;
    notify(Prop::Geometry);
    if (resized && Resize)
        Resize();
}

int Form::scaleWidth() const {
    return std::max(0, width_ - kFrameWidthTwips);
}

int Form::scaleHeight() const {
    return std::max(0, height_ - kFrameHeightTwips - (hasMenuBar() ? kMenuBarTwips : 0));
}

void Form::setWindowState(WindowState s) {
    if (s == state_)
        return;
    state_ = s;
    notify(Prop::WindowState);
    if (Resize)
        Resize();
}

void Form::setVisibleFlag(bool v) {
    if (v == visible_)
        return;
    visible_ = v;
    notify(Prop::Visible);
}

void Form::setKeyboardPlay(bool on) {
    keyboardPlay_ = on;
    if (!on)
        setPlayCursor(nullptr, false);
}

void Form::setPlayCursor(Control* at, bool shown) {
    shown = shown && at;
    const Control* before = playCursor();
    cursorAt_ = at;
    cursorShown_ = shown;
    if (playCursor() != before)
        notify(Prop::PlayCursor);
}

void Form::setFontScale(double scale) {
    if (!(scale > 0) || scale == fontScale_)
        return;
    fontScale_ = scale;
    notify(Prop::Font);
}

void Form::setMousePointer(MousePointer p) {
    if (p == pointer_)
        return;
    pointer_ = p;
    notify(Prop::MousePointer);
}

void Form::setBackColor(Color c) {
    if (c == backColor_)
        return;
    backColor_ = c;
    notify(Prop::BackColor);
}

int Form::subscribe(Observer obs) {
    return observers_.add(std::move(obs));
}

void Form::unsubscribe(int id) {
    observers_.remove(id);
}

void Form::notify(Prop p) {
    observers_.tell(*this, p);
}

std::string Form::property(const std::string& p) const {
    if (p == "Caption")
        return caption_;
    if (p == "Left")
        return std::to_string(left_);
    if (p == "Top")
        return std::to_string(top_);
    if (p == "Width")
        return std::to_string(width_);
    if (p == "Height")
        return std::to_string(height_);
    if (p == "ScaleWidth")
        return std::to_string(scaleWidth());
    if (p == "ScaleHeight")
        return std::to_string(scaleHeight());
    if (p == "WindowState")
        return std::to_string(static_cast<int>(state_));
    if (p == "Visible")
        return formatBool(visible_);
    if (p == "Enabled")
        return formatBool(enabled_);
    if (p == "MousePointer")
        return pointer_ == MousePointer::Hourglass ? "Hourglass" : "Default";
    // The control with the focus, empty for none; not in a dump, as the window moves it.
    if (p == "ActiveControl")
        return activeControl_ ? activeControl_->fullName() : std::string();
    // The control under the arrow-key cursor, empty while it is not shown.
    if (p == "PlayCursor")
        return playCursor() ? playCursor()->fullName() : std::string();
    return "\x01";
}

bool Form::setProperty(const std::string& p, const std::string& v) {
    int n = 0;
    const char* end = v.data() + v.size();
    const bool isInt = std::from_chars(v.data(), end, n).ptr == end && !v.empty();
    if (p == "Caption")
        return setCaption(v), true;
    if (p == "WindowState" && isInt && n >= 0 && n <= 2)
        return setWindowState(static_cast<WindowState>(n)), true;
    if (!isInt || n < -1000000 || n > 1000000)
        return false;
    if (p == "Left")
        return setBounds(n, top_, width_, height_), true;
    if (p == "Top")
        return setBounds(left_, n, width_, height_), true;
    if (p == "Width")
        return setBounds(left_, top_, n, height_), true;
    if (p == "Height")
        return setBounds(left_, top_, width_, n), true;
    return false;
}

}  // namespace corvanna
