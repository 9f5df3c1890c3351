#pragma once
// A form: a window's worth of controls and menus, with its load, unload and
// resize events. Whoever shows forms (the platform) implements FormHost.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "forms/Control.h"
#include "forms/Controls.h"

namespace corvanna {

class Form;

class FormHost {
public:
    virtual ~FormHost() = default;
    virtual void timerChanged(Timer& timer) = 0;
    virtual void timerDestroyed(Timer& timer) = 0;
};

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };
enum class MousePointer { Default, Hourglass };

// Twips of window frame round the client area, so that Width/Height mean the
// outer size as the settings files store it.
inline constexpr int kFrameWidthTwips = 120;
inline constexpr int kFrameHeightTwips = 420;
inline constexpr int kMenuBarTwips = 300;
inline constexpr int kTwipsPerPixel = 15;  // at 96 dpi; the view scales for HiDPI

class Form {
public:
    using Observer = std::function<void(Form&, Prop)>;

    Form(FormHost& host, std::string name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& name() const { return name_; }
    FormHost& host() const { return *host_; }

    // Controls are created once by the form and live as long as it.
    template <class T = Control, class... Args>
    T& add(Args&&... args) {
        auto c = std::make_unique<T>(*this, std::forward<Args>(args)...);
        T& ref = *c;
        adopt(std::move(c));
        return ref;
    }
    Control& addControl(ControlKind kind, const std::string& name, int index = -1,
                        Control* container = nullptr);
    Menu& addMenu(const std::string& name, const std::string& caption, Menu* parent = nullptr,
                  int index = -1);
    // A menu item placed right after another of the same menu, for a game's own items.
    Menu& addMenuAfter(const std::string& name, const std::string& caption, Menu& after,
                       int index = -1);
    // The control that has the focus, nullptr for none.
    Control* activeControl() const { return activeControl_; }

    Control* find(const std::string& name, int index = -1) const;
    const std::vector<std::unique_ptr<Control>>& controls() const { return controls_; }
    std::vector<Menu*> topMenus() const;
    std::vector<Control*> childrenOf(const Control* container) const;  // nullptr: the form's own

    const std::string& caption() const { return caption_; }
    void setCaption(const std::string& v);
    int left() const { return left_; }
    int top() const { return top_; }
    int width() const { return width_; }
    int height() const { return height_; }
    // Outer size in twips; a normal window's Resize event runs.
    void setBounds(int left, int top, int width, int height);
    void setSize(int width, int height) { setBounds(left_, top_, width, height); }
    void setPosition(int left, int top) { setBounds(left, top, width_, height_); }
    int scaleWidth() const;
    int scaleHeight() const;
    WindowState windowState() const { return state_; }
    void setWindowState(WindowState s);
    bool visible() const { return visible_; }
    void setVisibleFlag(bool v);  // for the platform; forms call Show/Hide on their owner
    MousePointer mousePointer() const { return pointer_; }
    void setMousePointer(MousePointer p);
    Color backColor() const { return backColor_; }
    void setBackColor(Color c);
    bool hasMenuBar() const { return !topMenus().empty(); }
    // Disabled while a modal dialog of its own is up.
    bool enabled() const { return enabled_; }
    void setEnabled(bool e) { enabled_ = e; }

    // The button Enter presses and the one Escape presses; nullptr where the form has none.
    Control* defaultButton() const { return defaultButton_; }
    Control* cancelButton() const { return cancelButton_; }
    void setDefaultButton(Control* button) { defaultButton_ = button; }
    void setCancelButton(Control* button) { cancelButton_ = button; }

    // Keyboard play, for the game forms: the arrow keys move a cursor over what can be
    // clicked (cards, buttons) in reading order, and Space or Enter clicks what it is on
    // (Keys.h). A form without it keeps the arrows for its widgets.
    bool keyboardPlay() const { return keyboardPlay_; }
    void setKeyboardPlay(bool on);
    // The control the cursor is on while it is shown; nullptr while it is not.
    Control* playCursor() const { return cursorShown_ ? cursorAt_ : nullptr; }
    // Where the next arrow key starts from, shown or not; nullptr for nowhere yet.
    Control* playCursorAnchor() const { return cursorAt_; }
    // Puts the cursor on a control, shown or kept out of sight (a mouse click, Tab).
    void setPlayCursor(Control* at, bool shown);

    // How much larger than their design size the form's texts are drawn: the layout sets it
    // when the window grows, so text keeps its proportion to the controls it sits in.
    double fontScale() const { return fontScale_; }
    void setFontScale(double scale);

    // Events, as the form's own handlers set them.
    std::function<void(bool& cancel)> QueryUnload;  // Form_Unload with its Cancel
    std::function<void()> Resize;
    std::function<void()> Activate;

    int subscribe(Observer obs);
    void unsubscribe(int id);
    void notify(Prop p);

    std::string property(const std::string& prop) const;
    bool setProperty(const std::string& prop, const std::string& value);

    // Expires with the form: a caller whose handler may unload it looks here afterwards.
    std::weak_ptr<const void> liveness() const { return alive_; }

private:
    void adopt(std::unique_ptr<Control> c);

    FormHost* host_;
    std::string name_;
    std::vector<std::unique_ptr<Control>> controls_;
    std::string caption_;
    int left_ = 0, top_ = 0, width_ = 9540, height_ = 7200;
    WindowState state_ = WindowState::Normal;
    bool visible_ = false;
    bool enabled_ = true;
    MousePointer pointer_ = MousePointer::Default;
    Color backColor_ = colors::ButtonFace;
    Observers<Form&, Prop> observers_;
    int zCounter_ = 0;
    Control* activeControl_ = nullptr;
    Control* defaultButton_ = nullptr;
    Control* cancelButton_ = nullptr;
    double fontScale_ = 1.0;
    std::shared_ptr<const void> alive_ = std::make_shared<int>(0);
    bool keyboardPlay_ = false;
    Control* cursorAt_ = nullptr;
    bool cursorShown_ = false;
    friend class Control;
};

}  // namespace corvanna
