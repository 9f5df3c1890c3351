#pragma once
// The controls that hold more than the common properties.

#include <functional>
#include <string>
#include <vector>

#include "forms/Control.h"

namespace corvanna {

// A timer's schedule belongs to the platform: the control only says what it wants.
class Timer : public Control {
public:
    Timer(Form& form, std::string name, int index, int intervalMs);
    int interval() const { return interval_; }
    void setInterval(int ms);
    // Enabled is the running flag; turning it on starts the count from now.
    void setEnabled(bool v) override;
    void start() { setEnabled(true); }
    void stop() { setEnabled(false); }
    std::function<void()> OnTimer;

    std::string property(const std::string& prop) const override;
    bool setProperty(const std::string& prop, const std::string& value) override;
    std::vector<std::string> propertyNames() const override;

private:
    int interval_;
};

enum class ShapeType { Rectangle, Square, Oval, Circle, RoundedRectangle };

// A border and optional fill: selection frames, bevels and box outlines.
class Shape : public Control {
public:
    Shape(Form& form, std::string name, int index, Control* container);
    ShapeType shapeType() const { return shape_; }
    Color borderColor() const { return foreColor(); }
    void setBorderColor(Color c) { setForeColor(c); }
    int borderWidth() const { return borderWidth_; }
    void setBorderWidth(int px);
    bool filled() const { return filled_; }  // fill with BackColor
    void setFilled(bool f);
    void setShapeType(ShapeType s);

    std::string property(const std::string& prop) const override;
    std::vector<std::string> propertyNames() const override;

private:
    ShapeType shape_ = ShapeType::Rectangle;
    int borderWidth_ = 1;
    bool filled_ = false;
};

// One retained drawing step; coordinates in twips inside the box.
struct DrawOp {
    enum Kind { Line, Pie, Circle } kind = Line;
    int x1 = 0, y1 = 0, x2 = 0, y2 = 0;  // Line ends
    int cx = 0, cy = 0;                  // Pie / Circle centre
    double radius = 0;
    double startDeg = 0, spanDeg = 0;  // Pie: clockwise from 12 o'clock
    Color pen = colors::Black;
    Color fill = colors::Black;
    bool filled = false;
    int width = 1;
};

class PictureBox : public Control {
public:
    PictureBox(Form& form, std::string name, int index, Control* container);
    void Cls();
    void Line(int x1, int y1, int x2, int y2, Color color);
    // A pie wedge from startDeg, spanDeg clockwise, with its two radii drawn.
    void Pie(int cx, int cy, double r, double startDeg, double spanDeg, Color pen, Color fill);
    void CircleOutline(int cx, int cy, double r, Color pen);
    const std::vector<DrawOp>& ops() const { return ops_; }
    // The ops are many small edits: views are told once per finished picture.
    void endPaint() { notify(Prop::Drawing); }

    std::string property(const std::string& prop) const override;
    std::vector<std::string> propertyNames() const override;

private:
    std::vector<DrawOp> ops_;
};

class TextBox : public Control {
public:
    TextBox(Form& form, std::string name, int index, Control* container);
    const std::string& text() const { return text_; }
    void setText(const std::string& t);  // fires Change when the text differs
    int maxLength() const { return maxLength_; }
    void setMaxLength(int n) { maxLength_ = n; }
    // Shown but not typed into.
    bool locked() const { return locked_; }
    void setLocked(bool v);
    // Several lines, with Enter starting a new one; chosen before the form is first shown.
    bool multiLine() const { return multiLine_; }
    void setMultiLine(bool v) { multiLine_ = v; }
    // The selected part, in bytes of the text; with no length it is where the caret
    // stands. Read here, changed only through select(), which the view follows.
    int selStart = 0, selLength = 0;
    void select(int start, int length);
    void selectAll() { select(0, static_cast<int>(text_.size())); }

    std::string property(const std::string& prop) const override;
    bool setProperty(const std::string& prop, const std::string& value) override;
    std::vector<std::string> propertyNames() const override;

private:
    std::string text_;
    int maxLength_ = 0;
    bool locked_ = false;
    bool multiLine_ = false;
};

// Combo and list boxes: a list of items and the chosen one.
class ListControl : public Control {
public:
    ListControl(Form& form, ControlKind kind, std::string name, int index, Control* container);
    void clear();
    void addItem(const std::string& item);
    const std::vector<std::string>& items() const { return items_; }
    int listIndex() const { return listIndex_; }
    void setListIndex(int i);  // -1 for none; fires Click
    std::string text() const;

    std::string property(const std::string& prop) const override;
    bool setProperty(const std::string& prop, const std::string& value) override;
    std::vector<std::string> propertyNames() const override;

private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
};

class StatusBar : public Control {
public:
    StatusBar(Form& form, std::string name, int panelCount);
    // Panels are numbered from 1.
    const std::string& panelText(int panel) const;
    void setPanelText(int panel, const std::string& text);
    int panelCount() const { return static_cast<int>(panels_.size()); }

    std::string property(const std::string& prop) const override;
    bool setProperty(const std::string& prop, const std::string& value) override;
    std::vector<std::string> propertyNames() const override;

private:
    std::vector<std::string> panels_;
};

// A bar that fills from Min to Max as Value rises: a counter the player watches run.
// Value stays within the range, and the range never turns over: a Min set above Max
// takes Max with it (and the other way round).
class ProgressBar : public Control {
public:
    ProgressBar(Form& form, std::string name, int index, Control* container);
    int min() const { return min_; }
    int max() const { return max_; }
    int value() const { return value_; }
    void setMin(int v);
    void setMax(int v);
    void setValue(int v);

    std::string property(const std::string& prop) const override;
    bool setProperty(const std::string& prop, const std::string& value) override;
    std::vector<std::string> propertyNames() const override;

private:
    void changed(int min, int max, int value);
    int min_ = 0, max_ = 100, value_ = 0;
};

// A straight line from (X1, Y1) to (X2, Y2), in twips in its container, in BorderColor
// and BorderWidth pixels: a cross over a card, the rule beside a column. Its bounds are
// the box the two ends span, so moving it moves both ends.
class LineControl : public Control {
public:
    LineControl(Form& form, std::string name, int index, Control* container);
    void setEnds(int x1, int y1, int x2, int y2);
    int x1() const { return flipX_ ? left() + width() : left(); }
    int x2() const { return flipX_ ? left() : left() + width(); }
    int y1() const { return flipY_ ? top() + height() : top(); }
    int y2() const { return flipY_ ? top() : top() + height(); }
    Color borderColor() const { return foreColor(); }
    void setBorderColor(Color c) { setForeColor(c); }
    int borderWidth() const { return borderWidth_; }
    void setBorderWidth(int px);

    std::string property(const std::string& prop) const override;
    bool setProperty(const std::string& prop, const std::string& value) override;
    std::vector<std::string> propertyNames() const override;

private:
    bool flipX_ = false, flipY_ = false;  // X1 (Y1) is the right (bottom) end
    int borderWidth_ = 1;
};

// A menu item; its container is the menu it opens from, none for the menu bar.
class Menu : public Control {
public:
    Menu(Form& form, std::string name, int index, Menu* parent, std::string caption);
    bool isSeparator() const { return caption() == "-"; }
    std::vector<Menu*> children() const;
    Menu* parentMenu() const { return static_cast<Menu*>(container()); }
};

}  // namespace corvanna
