#pragma once
// A peer binds one control to the widget that shows it. It listens to the
// control's announcements and sends the user's clicks and edits back through
// the model's own entry points; it never decides anything itself.

#include <QPointer>
#include <QWidget>
#include <memory>

#include "forms/Controls.h"

namespace corvanna {

class FormWindow;

class ControlPeer {
public:
    ControlPeer(Control& model, FormWindow& window);
    virtual ~ControlPeer();
    ControlPeer(const ControlPeer&) = delete;
    ControlPeer& operator=(const ControlPeer&) = delete;

    // Null once detached or the control is gone.
    Control* model() const { return model_; }
    QWidget* widget() const { return widget_; }

    // Makes the widget under parent and shows the control as it stands.
    void build(QWidget* parent);
    // Stops listening; the widget goes with its window.
    void detach();
    void applyCursor();
    // Shows one property again, as when the form's font scale changes.
    void reapply(Prop p) {
        if (model_ && widget_)
            apply(p);
    }
    // The place of the widget, from twips relative to the container.
    virtual void applyGeometry();

protected:
    virtual QWidget* create(QWidget* parent) = 0;
    // One announced change; kinds handle theirs and pass the rest to the base.
    virtual void apply(Prop p);
    virtual Qt::CursorShape defaultCursor() const { return Qt::ArrowCursor; }
    virtual bool hasOwnCursor() const { return false; }

    // The user's click, through the one guarded way in.
    void click();
    // True when the control takes double clicks (then it ran, if allowed).
    bool doubleClick();
    void applyFont();
    // A control that can take the focus again may find the window without one.
    void regainFocus();
    // Fore colour as text colour; back colour filled unless transparent.
    void applyColors(bool fillBack);

    Control* model_;
    FormWindow* window_;
    QPointer<QWidget> widget_;

private:
    void onChanged(Prop p);
    int sub_ = 0;
};

// The peer for a label (LabelPeer.cpp).
std::unique_ptr<ControlPeer> makeLabelPeer(Control& control, FormWindow& window);

// The peer for a control, or nullptr for kinds without a widget (timers, menus).
std::unique_ptr<ControlPeer> makePeer(Control& control, FormWindow& window);

// Twips to logical pixels, rounded so that adjacent controls meet without gaps.
int twipsToPx(int twips);

}  // namespace corvanna
