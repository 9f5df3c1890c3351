#pragma once
// The window's menu bar, built from the form's Menu controls and kept in step
// with their captions, checks, visibility and enabled state.

#include <QPointer>
#include <vector>

#include "forms/Controls.h"

class QAction;
class QMainWindow;
class QMenu;
class QMenuBar;

namespace corvanna {

class MenuBarPeer {
public:
    MenuBarPeer(Form& form, QMainWindow& window);
    ~MenuBarPeer();
    MenuBarPeer(const MenuBarPeer&) = delete;
    MenuBarPeer& operator=(const MenuBarPeer&) = delete;

    // Builds a fresh bar (the old one goes later: it may be the one being clicked).
    void rebuild();
    void detach();
    QMenuBar* bar() const { return bar_; }

private:
    struct Item {
        Menu* model;
        QPointer<QAction> action;
        int sub;
    };
    void addChildren(QMenu* into, Menu& parent);
    void bind(Menu& m, QAction* action);
    void apply(Menu& m, QAction* action, Prop p);

    Form* form_;
    QMainWindow* window_;
    QPointer<QMenuBar> bar_;
    std::vector<Item> items_;
};

}  // namespace corvanna
