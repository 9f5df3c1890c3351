#pragma once
// The control model: plain objects that hold what a form shows. A view (the Qt
// renderer) or a test subscribes to changes; the game code only sets properties.

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "forms/Observers.h"

namespace corvanna {

class Form;

using Color = std::uint32_t;  // 0xRRGGBB

namespace colors {
inline constexpr Color Black = 0x000000;
inline constexpr Color White = 0xFFFFFF;
inline constexpr Color Red = 0xFF0000;
inline constexpr Color Green = 0x00FF00;
inline constexpr Color Blue = 0x0000FF;
inline constexpr Color Yellow = 0xFFFF00;
inline constexpr Color Cyan = 0x00FFFF;
inline constexpr Color LightGrey = 0xC0C0C0;
inline constexpr Color ButtonFace = 0xD4D0C8;
inline constexpr Color FeltGreen = 0x0B6623;
inline constexpr Color DarkGrey = 0x808080;
}  // namespace colors

enum class ControlKind {
    Label,
    CommandButton,
    Timer,
    Image,
    Shape,
    PictureBox,
    Frame,
    TextBox,
    CheckBox,
    OptionButton,
    ComboBox,
    ListBox,
    StatusBar,
    Menu,
    ProgressBar,
    Line,
};

const char* kindName(ControlKind kind);

// What changed, so a view repaints only that.
enum class Prop {
    Caption,
    Text,
    Visible,
    Enabled,
    ForeColor,
    BackColor,
    Geometry,
    ToolTip,
    Checked,
    Picture,
    Font,
    ZOrder,
    Items,
    Drawing,
    Panels,
    Style,
    Interval,
    WindowState,
    MousePointer,
    ControlAdded,
    Destroyed,
    Focus,
    Selection,   // a text box's selected part
    Value,       // a progress bar's value or range
    PlayCursor,  // the form's arrow-key cursor moved, came or went
};

enum class Align { Left, Center, Right };

// What a label does with a text wider than itself: one line in a smaller font (the
// usual, so a message never loses a line), one line cut with an ellipsis (a name in a
// list), or whole words on further lines (a paragraph).
enum class TextFit { Shrink, Elide, Wrap };

class Control {
public:
    using Observer = std::function<void(Control&, Prop)>;

    Control(Form& form, ControlKind kind, std::string name, int index, Control* container);
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Form& form() const { return *form_; }
    ControlKind kind() const { return kind_; }
    const std::string& name() const { return name_; }
    int index() const { return index_; }  // -1 when not in a control array
    std::string fullName() const;         // "imgSplashImage(3)"
    Control* container() const { return container_; }

    // Properties. Geometry in twips, relative to the container.
    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& v);
    bool visible() const { return visible_; }
    void setVisible(bool v);
    bool enabled() const { return enabled_; }
    virtual void setEnabled(bool v);
    Color foreColor() const { return foreColor_; }
    void setForeColor(Color v);
    Color backColor() const { return backColor_; }
    void setBackColor(Color v);
    bool backTransparent() const { return backTransparent_; }
    void setBackTransparent(bool v);
    int left() const { return left_; }
    int top() const { return top_; }
    int width() const { return width_; }
    int height() const { return height_; }
    void move(int left, int top);
    void move(int left, int top, int width, int height);
    void setLeft(int v) { move(v, top_, width_, height_); }
    void setTop(int v) { move(left_, v, width_, height_); }
    const std::string& toolTipText() const { return toolTip_; }
    void setToolTipText(const std::string& v);
    bool checked() const { return checked_; }
    void setChecked(bool v);
    // The picture shown (a stable picture name from the picture store), empty for none.
    const std::string& picture() const { return picture_; }
    void setPicture(const std::string& v);
    double fontSize() const { return fontSize_; }
    bool fontBold() const { return fontBold_; }
    void setFont(double size, bool bold);
    // The typeface by name ("Arial"); empty for the program's own, which a view also uses
    // where it lacks the face.
    const std::string& fontName() const { return fontName_; }
    void setFontName(const std::string& name);
    // A thin single border round an image or a label (BorderStyle 1); none is 0.
    bool border() const { return border_; }
    void setBorder(bool v);
    Align alignment() const { return alignment_; }
    void setAlignment(Align a);
    TextFit textFit() const { return textFit_; }
    void setTextFit(TextFit f);
    // Stacking among siblings: higher is in front.
    int zOrder() const { return zOrder_; }
    void sendToBack();
    void bringToFront();
    // Takes the focus: the window's keys go to this control; a text box selects its text.
    void setFocus();
    // Mouse pointer over the control: empty for the default, or a picture name.
    const std::string& mouseIcon() const { return mouseIcon_; }
    void setMouseIcon(const std::string& v);

    // Visible and enabled up the container chain and on the form: what a user can click.
    bool effectivelyVisible() const;
    bool effectivelyEnabled() const;

    // Events. A control array's handler gets the index through the closure.
    std::function<void()> Click;
    std::function<void()> DblClick;
    std::function<void()> Change;
    // Enter pressed in a text box.
    std::function<void()> KeyEnter;

    // Generic access by property name, for the driver and dumps.
    virtual std::string property(const std::string& prop) const;
    virtual bool setProperty(const std::string& prop, const std::string& value);
    virtual std::vector<std::string> propertyNames() const;

    int subscribe(Observer obs);
    void unsubscribe(int id);
    void notify(Prop p);
    // Repaint now: during a blocking wait the view still paints.
    void refresh() { notify(Prop::Drawing); }

protected:
    Form* form_;
    ControlKind kind_;
    std::string name_;
    int index_;
    Control* container_;
    std::string caption_;
    bool visible_ = true;
    bool enabled_ = true;
    Color foreColor_ = colors::Black;
    Color backColor_ = colors::ButtonFace;
    bool backTransparent_ = false;
    int left_ = 0, top_ = 0, width_ = 1200, height_ = 375;
    std::string toolTip_;
    bool checked_ = false;
    std::string picture_;
    double fontSize_ = 8.25;
    bool fontBold_ = false;
    std::string fontName_;
    bool border_ = false;
    Align alignment_ = Align::Left;
    TextFit textFit_ = TextFit::Shrink;
    int zOrder_ = 0;
    std::string mouseIcon_;

private:
    Observers<Control&, Prop> observers_;
};

using Label = Control;
using CommandButton = Control;
using Image = Control;
using Frame = Control;
using CheckBox = Control;
using OptionButton = Control;

std::string formatBool(bool b);  // "True" / "False"
std::string colorText(Color c);  // "#RRGGBB"

}  // namespace corvanna
