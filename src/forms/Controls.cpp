#include "forms/Controls.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "forms/Form.h"

namespace corvanna {

static bool toInt(const std::string& v, int& out) {
    const char* end = v.data() + v.size();
    auto r = std::from_chars(v.data(), end, out);
    return r.ec == std::errc() && r.ptr == end;
}

// ---- Timer

Timer::Timer(Form& form, std::string name, int index, int intervalMs)
    : Control(form, ControlKind::Timer, std::move(name), index, nullptr), interval_(intervalMs) {
    enabled_ = false;
    visible_ = false;
}

void Timer::setEnabled(bool v) {
    if (v == enabled_)
        return;
    enabled_ = v;
    form().host().timerChanged(*this);
    notify(Prop::Enabled);
}

void Timer::setInterval(int ms) {
    if (ms < 0)
        ms = 0;
    if (ms == interval_)
        return;
    interval_ = ms;
    form().host().timerChanged(*this);
    notify(Prop::Interval);
}

std::string Timer::property(const std::string& p) const {
    if (p == "Interval")
        return std::to_string(interval_);
    return Control::property(p);
}

bool Timer::setProperty(const std::string& p, const std::string& v) {
    int n;
    if (p == "Interval" && toInt(v, n))
        return setInterval(n), true;
    if (p == "Enabled") {
        if (v == "True")
            return start(), true;
        if (v == "False")
            return stop(), true;
    }
    return false;
}

std::vector<std::string> Timer::propertyNames() const {
    return {"Enabled", "Interval"};
}

// ---- Shape

Shape::Shape(Form& form, std::string name, int index, Control* container)
    : Control(form, ControlKind::Shape, std::move(name), index, container) {
    backTransparent_ = true;
}

void Shape::setBorderWidth(int px) {
    if (px == borderWidth_)
        return;
    borderWidth_ = px;
    notify(Prop::Style);
}

void Shape::setFilled(bool f) {
    if (f == filled_)
        return;
    filled_ = f;
    notify(Prop::Style);
}

void Shape::setShapeType(ShapeType s) {
    if (s == shape_)
        return;
    shape_ = s;
    notify(Prop::Style);
}

std::string Shape::property(const std::string& p) const {
    if (p == "BorderColor")
        return colorText(foreColor_);
    if (p == "FillColor")
        return colorText(backColor_);
    if (p == "BorderWidth")
        return std::to_string(borderWidth_);
    return Control::property(p);
}

std::vector<std::string> Shape::propertyNames() const {
    return {"Visible", "Left", "Top", "Width", "Height", "BorderColor", "BorderWidth"};
}

// ---- PictureBox

PictureBox::PictureBox(Form& form, std::string name, int index, Control* container)
    : Control(form, ControlKind::PictureBox, std::move(name), index, container) {}

void PictureBox::Cls() {
    ops_.clear();
}

void PictureBox::Line(int x1, int y1, int x2, int y2, Color color) {
    DrawOp op;
    op.kind = DrawOp::Line;
    op.x1 = x1, op.y1 = y1, op.x2 = x2, op.y2 = y2;
    op.pen = color;
    ops_.push_back(op);
}

void PictureBox::Pie(int cx, int cy, double r, double startDeg, double spanDeg, Color pen,
                     Color fill) {
    DrawOp op;
    op.kind = DrawOp::Pie;
    op.cx = cx, op.cy = cy, op.radius = r;
    op.startDeg = startDeg, op.spanDeg = spanDeg;
    op.pen = pen, op.fill = fill, op.filled = true;
    ops_.push_back(op);
}

void PictureBox::CircleOutline(int cx, int cy, double r, Color pen) {
    DrawOp op;
    op.kind = DrawOp::Circle;
    op.cx = cx, op.cy = cy, op.radius = r, op.pen = pen;
    ops_.push_back(op);
}

std::string PictureBox::property(const std::string& p) const {
    if (p == "Drawing") {
        // A summary a script can compare: the colour of each pie, in order.
        std::string out;
        for (const auto& op : ops_) {
            if (op.kind != DrawOp::Pie)
                continue;
            if (!out.empty())
                out += ' ';
            out += colorText(op.fill) + "@" + std::to_string(static_cast<int>(op.startDeg)) + "+" +
                   std::to_string(static_cast<int>(op.spanDeg));
        }
        return out;
    }
    return Control::property(p);
}

std::vector<std::string> PictureBox::propertyNames() const {
    auto names = Control::propertyNames();
    names.push_back("Drawing");
    return names;
}

// ---- TextBox

TextBox::TextBox(Form& form, std::string name, int index, Control* container)
    : Control(form, ControlKind::TextBox, std::move(name), index, container) {
    backColor_ = colors::White;
}

void TextBox::setText(const std::string& t) {
    std::string v = t;
    if (maxLength_ > 0 && static_cast<int>(v.size()) > maxLength_)
        v.resize(maxLength_);
    if (v == text_)
        return;
    text_ = v;
    // A selection past the end of a shorter text ends with it. Part of the text's change,
    // not a selection of its own: a view reads it with the text.
    const int size = static_cast<int>(text_.size());
    selStart = std::min(selStart, size);
    selLength = std::min(selLength, size - selStart);
    notify(Prop::Text);
    if (Change)
        Change();
}

void TextBox::select(int start, int length) {
    const int size = static_cast<int>(text_.size());
    start = std::clamp(start, 0, size);
    length = std::clamp(length, 0, size - start);
    if (start == selStart && length == selLength)
        return;
    selStart = start;
    selLength = length;
    notify(Prop::Selection);
}

void TextBox::setLocked(bool v) {
    if (v == locked_)
        return;
    locked_ = v;
    notify(Prop::Style);
}

std::string TextBox::property(const std::string& p) const {
    if (p == "Text")
        return text_;
    if (p == "Locked")
        return locked_ ? "True" : "False";
    // Not in a dump: what the user selects is no part of a form's state worth comparing.
    if (p == "SelStart")
        return std::to_string(selStart);
    if (p == "SelLength")
        return std::to_string(selLength);
    if (p == "SelText")
        return text_.substr(static_cast<std::size_t>(selStart),
                            static_cast<std::size_t>(selLength));
    return Control::property(p);
}

bool TextBox::setProperty(const std::string& p, const std::string& v) {
    if (p == "Text")
        return setText(v), true;
    return Control::setProperty(p, v);
}

std::vector<std::string> TextBox::propertyNames() const {
    auto names = Control::propertyNames();
    names.erase(names.begin());  // a text box has no caption
    names.insert(names.begin(), "Text");
    names.push_back("Locked");
    return names;
}

// ---- ListControl

ListControl::ListControl(Form& form, ControlKind kind, std::string name, int index,
                         Control* container)
    : Control(form, kind, std::move(name), index, container) {
    backColor_ = colors::White;
}

void ListControl::clear() {
    items_.clear();
    listIndex_ = -1;
    notify(Prop::Items);
}

void ListControl::addItem(const std::string& item) {
    items_.push_back(item);
    notify(Prop::Items);
}

void ListControl::setListIndex(int i) {
    if (i < -1 || i >= static_cast<int>(items_.size()))
        return;
    listIndex_ = i;
    notify(Prop::Text);
    if (Click)
        Click();
}

std::string ListControl::text() const {
    return listIndex_ >= 0 ? items_[static_cast<std::size_t>(listIndex_)] : std::string();
}

std::string ListControl::property(const std::string& p) const {
    if (p == "Text")
        return text();
    if (p == "ListIndex")
        return std::to_string(listIndex_);
    if (p == "ListCount")
        return std::to_string(items_.size());
    // List(0) ... List(ListCount - 1); not in a dump, where a folder's files would flood it.
    if (p.rfind("List(", 0) == 0 && p.back() == ')') {
        int n;
        if (toInt(p.substr(5, p.size() - 6), n) && n >= 0 && n < static_cast<int>(items_.size()))
            return items_[static_cast<std::size_t>(n)];
    }
    return Control::property(p);
}

bool ListControl::setProperty(const std::string& p, const std::string& v) {
    int n;
    if (p == "ListIndex" && toInt(v, n))
        return setListIndex(n), true;
    return Control::setProperty(p, v);
}

std::vector<std::string> ListControl::propertyNames() const {
    return {"Text", "ListIndex", "ListCount", "Visible", "Enabled", "ToolTipText"};
}

// ---- StatusBar

StatusBar::StatusBar(Form& form, std::string name, int panelCount)
    : Control(form, ControlKind::StatusBar, std::move(name), -1, nullptr),
      panels_(static_cast<std::size_t>(std::max(1, panelCount))) {}

const std::string& StatusBar::panelText(int panel) const {
    static const std::string none;
    return panel >= 1 && panel <= panelCount() ? panels_[static_cast<std::size_t>(panel - 1)]
                                               : none;
}

void StatusBar::setPanelText(int panel, const std::string& text) {
    if (panel < 1 || panel > panelCount())
        return;
    auto& slot = panels_[static_cast<std::size_t>(panel - 1)];
    if (slot == text)
        return;
    slot = text;
    notify(Prop::Panels);
}

std::string StatusBar::property(const std::string& p) const {
    // Panels(1) ... Panels(n)
    if (p.rfind("Panels(", 0) == 0 && p.back() == ')') {
        int n;
        if (toInt(p.substr(7, p.size() - 8), n) && n >= 1 && n <= panelCount())
            return panelText(n);
    }
    return Control::property(p);
}

bool StatusBar::setProperty(const std::string& p, const std::string& v) {
    if (p.rfind("Panels(", 0) == 0 && p.back() == ')') {
        int n;
        if (toInt(p.substr(7, p.size() - 8), n) && n >= 1 && n <= panelCount())
            return setPanelText(n, v), true;
    }
    return Control::setProperty(p, v);
}

std::vector<std::string> StatusBar::propertyNames() const {
    std::vector<std::string> names{"Visible"};
    for (int i = 1; i <= panelCount(); ++i)
        names.push_back("Panels(" + std::to_string(i) + ")");
    return names;
}

// ---- ProgressBar

ProgressBar::ProgressBar(Form& form, std::string name, int index, Control* container)
    : Control(form, ControlKind::ProgressBar, std::move(name), index, container) {}

void ProgressBar::changed(int min, int max, int value) {
    value = std::clamp(value, min, max);
    if (min == min_ && max == max_ && value == value_)
        return;
    min_ = min, max_ = max, value_ = value;
    notify(Prop::Value);
}

void ProgressBar::setMin(int v) {
    changed(v, std::max(v, max_), value_);
}

void ProgressBar::setMax(int v) {
    changed(std::min(v, min_), v, value_);
}

void ProgressBar::setValue(int v) {
    changed(min_, max_, v);
}

std::string ProgressBar::property(const std::string& p) const {
    if (p == "Min")
        return std::to_string(min_);
    if (p == "Max")
        return std::to_string(max_);
    if (p == "Value")
        return std::to_string(value_);
    return Control::property(p);
}

bool ProgressBar::setProperty(const std::string& p, const std::string& v) {
    int n;
    if (!toInt(v, n))
        return Control::setProperty(p, v);
    if (p == "Min")
        return setMin(n), true;
    if (p == "Max")
        return setMax(n), true;
    if (p == "Value")
        return setValue(n), true;
    return Control::setProperty(p, v);
}

std::vector<std::string> ProgressBar::propertyNames() const {
    return {"Min", "Max", "Value", "Visible", "Left", "Top", "Width", "Height", "ToolTipText"};
}

// ---- LineControl

LineControl::LineControl(Form& form, std::string name, int index, Control* container)
    : Control(form, ControlKind::Line, std::move(name), index, container) {
    backTransparent_ = true;
}

void LineControl::setEnds(int x1, int y1, int x2, int y2) {
    const bool fx = x1 > x2, fy = y1 > y2;
    if (fx != flipX_ || fy != flipY_) {
        flipX_ = fx, flipY_ = fy;
        notify(Prop::Style);
    }
    move(std::min(x1, x2), std::min(y1, y2), std::abs(x2 - x1), std::abs(y2 - y1));
}

void LineControl::setBorderWidth(int px) {
    px = std::max(0, px);
    if (px == borderWidth_)
        return;
    borderWidth_ = px;
    notify(Prop::Style);
}

std::string LineControl::property(const std::string& p) const {
    if (p == "X1")
        return std::to_string(x1());
    if (p == "Y1")
        return std::to_string(y1());
    if (p == "X2")
        return std::to_string(x2());
    if (p == "Y2")
        return std::to_string(y2());
    if (p == "BorderColor")
        return colorText(foreColor_);
    if (p == "BorderWidth")
        return std::to_string(borderWidth_);
    return Control::property(p);
}

bool LineControl::setProperty(const std::string& p, const std::string& v) {
    int n;
    if (!toInt(v, n) || n <= -1000000 || n >= 1000000)
        return Control::setProperty(p, v);
    if (p == "X1")
        return setEnds(n, y1(), x2(), y2()), true;
    if (p == "Y1")
        return setEnds(x1(), n, x2(), y2()), true;
    if (p == "X2")
        return setEnds(x1(), y1(), n, y2()), true;
    if (p == "Y2")
        return setEnds(x1(), y1(), x2(), n), true;
    if (p == "BorderWidth" && n <= 100)
        return setBorderWidth(n), true;
    return Control::setProperty(p, v);
}

std::vector<std::string> LineControl::propertyNames() const {
    return {"Visible", "X1", "Y1", "X2", "Y2", "BorderColor", "BorderWidth"};
}

// ---- Menu

Menu::Menu(Form& form, std::string name, int index, Menu* parent, std::string caption)
    : Control(form, ControlKind::Menu, std::move(name), index, parent) {
    caption_ = std::move(caption);
}

std::vector<Menu*> Menu::children() const {
    std::vector<Menu*> out;
    for (Control* c : form().childrenOf(this))
        if (c->kind() == ControlKind::Menu)
            out.push_back(static_cast<Menu*>(c));
    return out;
}

}  // namespace corvanna
