#pragma once
// One top-level window for any Form. It only listens to the model: a peer widget
// per control, the menu bar from the Menu controls, the status bar at the bottom
// of the client area. What the user does goes back through the model's own
// entry points (userClick, setBounds, setWindowState, the platform's close request).

#include <QMainWindow>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <set>

#include "forms/Form.h"

namespace corvanna {

class QtPlatform;
class ControlPeer;
class MenuBarPeer;
class FocusRing;
class PlayCursorFrame;

// The client area: the form's ScaleWidth x ScaleHeight, where its controls live.
class ClientArea : public QWidget {
    Q_OBJECT
public:
    explicit ClientArea(QWidget* parent) : QWidget(parent) {}
    std::function<void()> onResized;
    // Painted rather than put in the palette, which every child would inherit.
    void setBackground(const QColor& c) {
        background_ = c;
        update();
    }

protected:
    void resizeEvent(QResizeEvent* e) override;
    void paintEvent(QPaintEvent* e) override;

private:
    QColor background_;
};

class FormWindow : public QMainWindow {
    Q_OBJECT
public:
    FormWindow(Form& form, QtPlatform& platform);
    ~FormWindow() override;

    // Null once the form is unloaded or destroyed.
    Form* form() const { return form_; }
    QtPlatform& platform() const { return *platform_; }
    ClientArea* clientArea() const { return client_; }
    // The widget that shows a control (nullptr for timers and menus).
    QWidget* widgetOf(const Control& c) const;
    // The ring round the focused control; hidden while the window has no focus.
    FocusRing* focusRing() const { return ring_; }
    // The arrow-key cursor of keyboard play; hidden while the form has none on show.
    PlayCursorFrame* playCursorFrame() const { return cursor_; }

    // Stops following the model; the window is about to go.
    void detach();
    // Shown as the model says: size, position and window state.
    void showFromModel();

    // Peers ask these when a control restacks, changes its pointer, can take the focus
    // again, or goes.
    // Exact: Qt's order made the model's even where no two overlap.
    void restack(const Control* container, bool exact = false);
    // A child of the container moved, resized, showed or hid: an order left behind may show.
    void placesChanged(const Control* container);
    // An active window whose widgets have all let the focus go gets it back.
    void refocus();
    bool hourglass() const;
    void layoutStatusBar();
    void controlGone(Control* c);

protected:
    void closeEvent(QCloseEvent* e) override;
    void changeEvent(QEvent* e) override;
    void moveEvent(QMoveEvent* e) override;
    // Enter and Escape that no widget kept for itself: the form's own keys.
    void keyPressEvent(QKeyEvent* e) override;
    // The focus taken by a control's widget, and where its ring goes.
    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void onFormChanged(Prop p);
    void addPeer(Control& c);
    QWidget* parentFor(const Control& c) const;
    void applyGeometry();
    void applyWindowState();
    void applyBackColor();
    void applyCursor();
    void clientResized();
    void focusChanged(QWidget* now);
    void focusTaken(QWidget* w, Qt::FocusReason reason);
    void applyFocus();
    void applyPlayCursor();
    // The arrows, and Space and Enter while the arrow-key cursor is on show: true when the
    // key went to the model.
    bool playKey(QKeyEvent* e);
    // A letter key on a form whose buttons spell the alphabet: a click of that letter.
    bool typedLetter(QKeyEvent* e);
    Control* controlOf(const QWidget* w) const;
    int menuBarHeight() const;
    QSize clientSizeFromModel() const;

    Form* form_;
    QtPlatform* platform_;
    ClientArea* client_;
    std::unique_ptr<MenuBarPeer> menus_;
    std::map<const Control*, std::unique_ptr<ControlPeer>> peers_;
    FocusRing* ring_ = nullptr;
    PlayCursorFrame* cursor_ = nullptr;
    QPointer<QWidget> statusBar_;
    // Containers whose children Qt stacks otherwise than the model where none overlap.
    std::set<const Control*> staleOrder_;
    const Control* statusModel_ = nullptr;
    int formSub_ = 0;
    bool applying_ = false;  // the window is being set from the model
};

}  // namespace corvanna
