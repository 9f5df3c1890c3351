#include "qt/MenuBarPeer.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "forms/Form.h"
#include "forms/Input.h"

namespace corvanna {

MenuBarPeer::MenuBarPeer(Form& form, QMainWindow& window) : form_(&form), window_(&window) {}

MenuBarPeer::~MenuBarPeer() {
    detach();
}

void MenuBarPeer::detach() {
    for (auto& item : items_)
        if (item.model)
            item.model->unsubscribe(item.sub);
    items_.clear();
    form_ = nullptr;
}

void MenuBarPeer::rebuild() {
    if (!form_)
        return;
    for (auto& item : items_)
        if (item.model)
            item.model->unsubscribe(item.sub);
    items_.clear();
    const auto tops = form_->topMenus();
    if (tops.empty() && !bar_)
        return;
    auto* bar = new QMenuBar(window_);
    // Always inside the window: the form's height counts a menu bar row.
    bar->setNativeMenuBar(false);
    for (Menu* top : tops) {
        if (top->children().empty()) {
            // A bare title on the bar is clicked like an item.
            QAction* a = bar->addAction(QString::fromStdString(top->caption()));
            bind(*top, a);
        } else {
            QMenu* menu = bar->addMenu(QString::fromStdString(top->caption()));
            bind(*top, menu->menuAction());
            addChildren(menu, *top);
        }
    }
    // The old bar is deleted later by the window, never under a running click.
    window_->setMenuBar(bar);
    bar_ = bar;
}

void MenuBarPeer::addChildren(QMenu* into, Menu& parent) {
    // Opening a menu is its Click, where a program ticks or greys its items.
    Menu* opened = &parent;
    QObject::connect(into, &QMenu::aboutToShow, into, [this, opened] {
        if (form_)
            userClick(*opened);
    });
    for (Menu* m : parent.children()) {
        if (m->isSeparator()) {
            bind(*m, into->addSeparator());
        } else if (!m->children().empty()) {
            QMenu* sub = into->addMenu(QString::fromStdString(m->caption()));
            bind(*m, sub->menuAction());
            addChildren(sub, *m);
        } else {
            bind(*m, into->addAction(QString::fromStdString(m->caption())));
        }
    }
}

void MenuBarPeer::bind(Menu& m, QAction* action) {
    Menu* model = &m;
    QPointer<QAction> a(action);
    const int sub = m.subscribe([this, model, a](Control&, Prop p) {
        if (a)
            apply(*model, a, p);
    });
    items_.push_back({model, a, sub});
    for (Prop p : {Prop::Caption, Prop::Checked, Prop::Visible, Prop::Enabled})
        apply(m, action, p);
    if (action->menu() || m.isSeparator())
        return;
    QObject::connect(action, &QAction::triggered, action, [this, model, a] {
        if (!form_)
            return;
        // Qt has flipped the tick already; the model decides what it shows.
        if (a)
            a->setChecked(model->checked());
        userClick(*model);
    });
}

void MenuBarPeer::apply(Menu& m, QAction* action, Prop p) {
    switch (p) {
        case Prop::Caption:
            if (!m.isSeparator())
                action->setText(QString::fromStdString(m.caption()));
            break;
        case Prop::Checked:
            // Checkable only while ticked, so unticked items show no box.
            action->setCheckable(m.checked());
            action->setChecked(m.checked());
            break;
        case Prop::Visible: action->setVisible(m.visible()); break;
        case Prop::Enabled: action->setEnabled(m.enabled()); break;
        case Prop::Destroyed:
            for (auto& item : items_)
                if (item.model == &m)
                    item.model = nullptr;
            break;
        default: break;
    }
}

}  // namespace corvanna
