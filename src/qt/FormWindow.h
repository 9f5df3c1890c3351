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

#include "forms/Form.h"

namespace corvanna {

class QtPlatform;
class ControlPeer;
class MenuBarPeer;

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

    // Stops following the model; the window is about to go.
    void detach();
    // Shown as the model says: size, position and window state.
    void showFromModel();

    // Peers ask these when a control restacks, changes its pointer or goes.
    void restack(const Control* container);
    bool hourglass() const;
    void layoutStatusBar();
    void controlGone(Control* c);

protected:
    void closeEvent(QCloseEvent* e) override;
    void changeEvent(QEvent* e) override;
    void moveEvent(QMoveEvent* e) override;

private:
    void onFormChanged(Prop p);
    void addPeer(Control& c);
    QWidget* parentFor(const Control& c) const;
    void applyGeometry();
    void applyWindowState();
    void applyBackColor();
    void applyCursor();
    void clientResized();
    int menuBarHeight() const;
    QSize clientSizeFromModel() const;

    Form* form_;
    QtPlatform* platform_;
    ClientArea* client_;
    std::unique_ptr<MenuBarPeer> menus_;
    std::map<const Control*, std::unique_ptr<ControlPeer>> peers_;
    QPointer<QWidget> statusBar_;
    const Control* statusModel_ = nullptr;
    int formSub_ = 0;
    bool applying_ = false;  // the window is being set from the model
};

}  // namespace corvanna
