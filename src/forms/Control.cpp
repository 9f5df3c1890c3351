#include "forms/Control.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

#include "forms/Form.h"

namespace corvanna {

const char* kindName(ControlKind kind) {
    switch (kind) {
        case ControlKind::Label: return "Label";
        case ControlKind::CommandButton: return "CommandButton";
        case ControlKind::Timer: return "Timer";
        case ControlKind::Image: return "Image";
        case ControlKind::Shape: return "Shape";
        case ControlKind::PictureBox: return "PictureBox";
        case ControlKind::Frame: return "Frame";
        case ControlKind::TextBox: return "TextBox";
        case ControlKind::CheckBox: return "CheckBox";
        case ControlKind::OptionButton: return "OptionButton";
        case ControlKind::ComboBox: return "ComboBox";
        case ControlKind::ListBox: return "ListBox";
        case ControlKind::StatusBar: return "StatusBar";
        case ControlKind::Menu: return "Menu";
        case ControlKind::ProgressBar: return "ProgressBar";
        case ControlKind::Line: return "Line";
    }
    return "Control";
}

std::string formatBool(bool b) {
    return b ? "True" : "False";
}

std::string colorText(Color c) {
    char buf[8];
    std::snprintf(buf, sizeof buf, "#%06X", c & 0xFFFFFFu);
    return buf;
}

static bool parseColor(const std::string& v, Color& out) {
    if (v.size() == 7 && v[0] == '#') {
        std::int64_t n = 0;
        for (std::size_t i = 1; i < 7; ++i) {
            const char ch = v[i];
            int d = (ch >= '0' && ch <= '9')   ? ch - '0'
                    : (ch >= 'A' && ch <= 'F') ? ch - 'A' + 10
                    : (ch >= 'a' && ch <= 'f') ? ch - 'a' + 10
                                               : -1;
            if (d < 0)
                return false;
            n = n * 16 + d;
        }
        out = static_cast<Color>(n);
        return true;
    }
    return false;
}

static bool parseInteger(const std::string& v, std::int64_t& out) {
    const char* end = v.data() + v.size();
    auto r = std::from_chars(v.data(), end, out);
    return r.ec == std::errc() && r.ptr == end;
}

static bool parseBool(const std::string& v, bool& out) {
    if (v == "True" || v == "true" || v == "1")
        return out = true, true;
    if (v == "False" || v == "false" || v == "0")
        return out = false, true;
    return false;
}

Control::Control(Form& form, ControlKind kind, std::string name, int index, Control* container)
    : form_(&form), kind_(kind), name_(std::move(name)), index_(index), container_(container) {
    zOrder_ = ++form.zCounter_;
    if (kind == ControlKind::Label || kind == ControlKind::Image)
        backTransparent_ = true;
}

Control::~Control() {
    if (form_->activeControl_ == this)
        form_->activeControl_ = nullptr;
    if (form_->cursorAt_ == this)
        form_->setPlayCursor(nullptr, false);
    // Views let go of their peer here.
    observers_.tell(*this, Prop::Destroyed);
}

std::string Control::fullName() const {
    return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

#define SETTER(field, prop) \
    if (field == v)         \
        return;             \
    field = v;              \
    notify(prop)

void Control::setCaption(const std::string& v) {
    if (caption_ == v)
        return;
    caption_ = v;
    notify(Prop::Caption);
    if (Change)
        Change();
}
void Control::setVisible(bool v) {
    SETTER(visible_, Prop::Visible);
}
void Control::setEnabled(bool v) {
    SETTER(enabled_, Prop::Enabled);
}
void Control::setForeColor(Color v) {
    SETTER(foreColor_, Prop::ForeColor);
}
void Control::setBackColor(Color v) {
    SETTER(backColor_, Prop::BackColor);
}
void Control::setBackTransparent(bool v) {
    SETTER(backTransparent_, Prop::BackColor);
}
void Control::setToolTipText(const std::string& v) {
    SETTER(toolTip_, Prop::ToolTip);
}
void Control::setChecked(bool v) {
    if (v == checked_)
        return;
    checked_ = v;
    notify(Prop::Checked);
    // A check box's value, or an option button coming on, runs its Click whoever sets it,
    // so a dialog that checks one by program gets what a click would have done.
    const bool clicks = kind_ == ControlKind::CheckBox || (kind_ == ControlKind::OptionButton && v);
    if (!clicks)
        return;
    if (kind_ == ControlKind::OptionButton)
        for (Control* sibling : form_->childrenOf(container_))
            if (sibling != this && sibling->kind() == ControlKind::OptionButton)
                sibling->setChecked(false);
    if (Click) {
        auto handler = Click;  // the handler may unload the form, and the control with it
        handler();
    }
}
void Control::setPicture(const std::string& v) {
    SETTER(picture_, Prop::Picture);
}
void Control::setAlignment(Align v) {
    SETTER(alignment_, Prop::Style);
}
void Control::setTextFit(TextFit v) {
    SETTER(textFit_, Prop::Style);
}
void Control::setMouseIcon(const std::string& v) {
    SETTER(mouseIcon_, Prop::Style);
}
void Control::setBorder(bool v) {
    SETTER(border_, Prop::Style);
}
void Control::setFontName(const std::string& v) {
    SETTER(fontName_, Prop::Font);
}
#undef SETTER

void Control::move(int left, int top) {
    move(left, top, width_, height_);
}

void Control::move(int left, int top, int width, int height) {
    width = std::max(0, width);
    height = std::max(0, height);
    if (left == left_ && top == top_ && width == width_ && height == height_)
        return;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    notify(Prop::Geometry);
}

void Control::setFont(double size, bool bold) {
    if (size == fontSize_ && bold == fontBold_)
        return;
    fontSize_ = size;
    fontBold_ = bold;
    notify(Prop::Font);
}

void Control::sendToBack() {
    int lowest = zOrder_;
    for (Control* c : form_->childrenOf(container_))
        lowest = std::min(lowest, c->zOrder_);
    zOrder_ = lowest - 1;
    notify(Prop::ZOrder);
}

void Control::setFocus() {
    form_->activeControl_ = this;
    // A text box selects its whole text as it takes the focus, and the view is told.
    if (auto* box = dynamic_cast<TextBox*>(this))
        box->selectAll();
    notify(Prop::Focus);
}

void Control::bringToFront() {
    zOrder_ = ++form_->zCounter_;
    notify(Prop::ZOrder);
}

bool Control::effectivelyVisible() const {
    for (const Control* c = this; c; c = c->container_)
        if (!c->visible_)
            return false;
    return form_->visible() && form_->windowState() != WindowState::Minimized;
}

bool Control::effectivelyEnabled() const {
    for (const Control* c = this; c; c = c->container_)
        if (!c->enabled_)
            return false;
    return form_->enabled();
}

int Control::subscribe(Observer obs) {
    return observers_.add(std::move(obs));
}

void Control::unsubscribe(int id) {
    observers_.remove(id);
}

void Control::notify(Prop p) {
    observers_.tell(*this, p);
}

std::vector<std::string> Control::propertyNames() const {
    std::vector<std::string> names{"Caption", "Visible", "Enabled",   "Left",      "Top",
                                   "Width",   "Height",  "ForeColor", "BackColor", "ToolTipText"};
    if (kind_ == ControlKind::Menu || kind_ == ControlKind::CheckBox ||
        kind_ == ControlKind::OptionButton)
        names.push_back("Checked");
    if (kind_ == ControlKind::Image || kind_ == ControlKind::PictureBox)
        names.push_back("Picture");
    if (kind_ == ControlKind::Image || kind_ == ControlKind::Label)
        names.push_back("BorderStyle");
    if (kind_ == ControlKind::Menu) {
        std::erase_if(names, [](const std::string& n) {
            return n == "Left" || n == "Top" || n == "Width" || n == "Height" || n == "ForeColor" ||
                   n == "BackColor" || n == "ToolTipText";
        });
    }
    return names;
}

std::string Control::property(const std::string& p) const {
    if (p == "Caption")
        return caption_;
    if (p == "Visible")
        return formatBool(visible_);
    if (p == "Enabled")
        return formatBool(enabled_);
    if (p == "Left")
        return std::to_string(left_);
    if (p == "Top")
        return std::to_string(top_);
    if (p == "Width")
        return std::to_string(width_);
    if (p == "Height")
        return std::to_string(height_);
    if (p == "ForeColor")
        return colorText(foreColor_);
    if (p == "BackColor")
        return colorText(backColor_);
    if (p == "ToolTipText")
        return toolTip_;
    if (p == "Checked" || p == "Value")
        return formatBool(checked_);
    if (p == "Picture")
        return picture_;
    if (p == "FontSize")
        return std::to_string(fontSize_);
    if (p == "FontBold")
        return formatBool(fontBold_);
    if (p == "FontName")
        return fontName_;
    if (p == "BorderStyle")
        return border_ ? "1" : "0";
    if (p == "Index")
        return std::to_string(index_);
    if (p == "Kind")
        return kindName(kind_);
    if (p == "MouseIcon")
        return mouseIcon_;
    return "\x01";  // unknown property
}

bool Control::setProperty(const std::string& p, const std::string& v) {
    bool b;
    std::int64_t n;
    Color c;
    if (p == "Caption")
        return setCaption(v), true;
    if (p == "Visible" && parseBool(v, b))
        return setVisible(b), true;
    if (p == "Enabled" && parseBool(v, b))
        return setEnabled(b), true;
    if (p == "Checked" && parseBool(v, b))
        return setChecked(b), true;
    if (p == "ToolTipText")
        return setToolTipText(v), true;
    if (p == "BorderStyle" && (v == "0" || v == "1"))
        return setBorder(v == "1"), true;
    if (p == "ForeColor" && parseColor(v, c))
        return setForeColor(c), true;
    if (p == "BackColor" && parseColor(v, c))
        return setBackColor(c), true;
    if ((p == "Left" || p == "Top" || p == "Width" || p == "Height") && parseInteger(v, n) &&
        n > -1000000 && n < 1000000) {
        const int x = static_cast<int>(n);
        if (p == "Left")
            move(x, top_, width_, height_);
        if (p == "Top")
            move(left_, x, width_, height_);
        if (p == "Width")
            move(left_, top_, x, height_);
        if (p == "Height")
            move(left_, top_, width_, x);
        return true;
    }
    return false;
}

}  // namespace corvanna
