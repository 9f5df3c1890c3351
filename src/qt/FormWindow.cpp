#include "qt/FormWindow.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "qt/ControlPeers.h"
#include "qt/MenuBarPeer.h"
#include "qt/PeerWidgets.h"
#include "qt/QtPlatform.h"

namespace corvanna {

void ClientArea::resizeEvent(QResizeEvent* e) {
    QWidget::resizeEvent(e);
    if (onResized)
        onResized();
}

void ClientArea::paintEvent(QPaintEvent* e) {
    QPainter p(this);
    p.fillRect(e->rect(), background_);
}

FormWindow::FormWindow(Form& form, QtPlatform& platform) : form_(&form), platform_(&platform) {
    client_ = new ClientArea(this);
    setCentralWidget(client_);
    menus_ = std::make_unique<MenuBarPeer>(form, *this);
    menus_->rebuild();
    for (auto& c : form.controls())
        addPeer(*c);
    restack(nullptr);
    for (auto& [c, peer] : peers_)
        restack(c);
    layoutStatusBar();
    formSub_ = form.subscribe([this](Form&, Prop p) { onFormChanged(p); });
    setWindowTitle(QString::fromStdString(form.caption()));
    applyBackColor();
    applyCursor();
    client_->onResized = [this] { clientResized(); };
}

FormWindow::~FormWindow() {
    detach();
}

void FormWindow::detach() {
    if (!form_)
        return;
    form_->unsubscribe(formSub_);
    menus_->detach();
    for (auto& [c, peer] : peers_)
        peer->detach();
    form_ = nullptr;
}

QWidget* FormWindow::widgetOf(const Control& c) const {
    auto it = peers_.find(&c);
    return it == peers_.end() ? nullptr : it->second->widget();
}

bool FormWindow::hourglass() const {
    return form_ && form_->mousePointer() == MousePointer::Hourglass;
}

// ---- Following the model

void FormWindow::onFormChanged(Prop p) {
    if (!form_)
        return;
    switch (p) {
        case Prop::Caption: setWindowTitle(QString::fromStdString(form_->caption())); break;
        case Prop::Geometry: applyGeometry(); break;
        case Prop::WindowState: applyWindowState(); break;
        case Prop::MousePointer: applyCursor(); break;
        case Prop::BackColor: applyBackColor(); break;
        case Prop::Font:  // the form's font scale
            for (auto& [c, peer] : peers_)
                peer->reapply(Prop::Font);
            break;
        case Prop::ControlAdded: {
            Control& added = *form_->controls().back();
            if (added.kind() == ControlKind::Menu) {
                const bool hadBar = menus_->bar() != nullptr;
                menus_->rebuild();
                // A first menu takes a row off the client area.
                if (!hadBar)
                    applyGeometry();
                break;
            }
            addPeer(added);
            restack(added.container());
            break;
        }
        case Prop::Destroyed:
            detach();
            hide();
            break;
        default: break;
    }
}

void FormWindow::addPeer(Control& c) {
    if (peers_.count(&c))
        return;
    auto peer = makePeer(c, *this);
    if (!peer)
        return;
    peer->build(parentFor(c));
    if (c.kind() == ControlKind::StatusBar) {
        statusBar_ = peer->widget();
        statusModel_ = &c;
    }
    peers_[&c] = std::move(peer);
    if (c.kind() == ControlKind::StatusBar)
        layoutStatusBar();
}

void FormWindow::controlGone(Control* c) {
    auto it = peers_.find(c);
    if (it == peers_.end())
        return;
    if (QWidget* w = it->second->widget()) {
        w->hide();
        w->deleteLater();
    }
    if (statusModel_ == c) {
        statusModel_ = nullptr;
        statusBar_ = nullptr;
    }
    peers_.erase(it);
}

QWidget* FormWindow::parentFor(const Control& c) const {
    if (c.container()) {
        auto it = peers_.find(c.container());
        if (it != peers_.end() && it->second->widget())
            return it->second->widget();
    }
    return client_;
}

void FormWindow::restack(const Control* container) {
    if (!form_)
        return;
    auto kids = form_->childrenOf(container);
    std::stable_sort(kids.begin(), kids.end(),
                     [](const Control* a, const Control* b) { return a->zOrder() < b->zOrder(); });
    for (const Control* k : kids)
        if (QWidget* w = widgetOf(*k))
            w->raise();
    // The status bar is aligned to the form and stays over everything.
    if (!container && statusBar_)
        statusBar_->raise();
}

void FormWindow::layoutStatusBar() {
    if (!statusBar_ || !statusModel_)
        return;
    int h = twipsToPx(statusModel_->height());
    if (h < 12)
        h = statusBar_->sizeHint().height();
    statusBar_->setGeometry(0, client_->height() - h, client_->width(), h);
    statusBar_->raise();
}

void FormWindow::applyBackColor() {
    if (!form_)
        return;
    client_->setBackground(toQColor(form_->backColor()));
}

void FormWindow::applyCursor() {
    if (hourglass())
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
    for (auto& [c, peer] : peers_)
        peer->applyCursor();
}

QSize FormWindow::clientSizeFromModel() const {
    if (!form_)
        return client_->size();
    return {twipsToPx(form_->scaleWidth()), twipsToPx(form_->scaleHeight())};
}

int FormWindow::menuBarHeight() const {
    auto* bar = qobject_cast<QMenuBar*>(menuWidget());
    if (!bar)
        return 0;
    // A narrow window wraps the bar onto more rows.
    const int h = bar->heightForWidth(clientSizeFromModel().width());
    return h > 0 ? h : bar->sizeHint().height();
}

void FormWindow::applyGeometry() {
    if (!form_ || form_->windowState() != WindowState::Normal)
        return;
    if (windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    applying_ = true;
    const QSize c = clientSizeFromModel();
    // Only what differs: a window manager that nudges the window is not fought.
    if (!isVisible() || client_->size() != c)
        resize(c.width(), c.height() + menuBarHeight());
    const QPoint at(twipsToPx(form_->left()), twipsToPx(form_->top()));
    if (pos() != at)
        move(at);
    applying_ = false;
    layoutStatusBar();
}

void FormWindow::applyWindowState() {
    if (!form_)
        return;
    Qt::WindowStates st =
        windowState() & ~(Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen);
    if (form_->windowState() == WindowState::Minimized)
        st |= Qt::WindowMinimized;
    if (form_->windowState() == WindowState::Maximized)
        st |= Qt::WindowMaximized;
    applying_ = true;
    if (st != windowState())
        setWindowState(st);
    applying_ = false;
    if (form_->windowState() == WindowState::Normal)
        applyGeometry();
}

void FormWindow::showFromModel() {
    applyWindowState();
    applyGeometry();
    show();
    if (!isMinimized()) {
        raise();
        activateWindow();
    }
}

// ---- What the user does to the window

void FormWindow::clientResized() {
    layoutStatusBar();
    if (!form_ || applying_ || isMinimized())
        return;
    if (client_->size() == clientSizeFromModel())
        return;
    QPointer<FormWindow> self(this);
    platform_->deliverUserAction([self] {
        if (!self || !self->form_ || self->isMinimized())
            return;
        Form& f = *self->form_;
        const QSize c = self->client_->size();
        if (c == self->clientSizeFromModel())
            return;
        const int w = c.width() * kTwipsPerPixel + kFrameWidthTwips;
        const int h =
            c.height() * kTwipsPerPixel + kFrameHeightTwips + (f.hasMenuBar() ? kMenuBarTwips : 0);
        f.setBounds(f.left(), f.top(), w, h);
    });
}

void FormWindow::moveEvent(QMoveEvent* e) {
    QMainWindow::moveEvent(e);
    if (!form_ || applying_ || !isVisible())
        return;
    if (windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen))
        return;
    if (pos() == QPoint(twipsToPx(form_->left()), twipsToPx(form_->top())))
        return;
    QPointer<FormWindow> self(this);
    platform_->deliverUserAction([self] {
        if (!self || !self->form_)
            return;
        Form& f = *self->form_;
        f.setBounds(self->pos().x() * kTwipsPerPixel, self->pos().y() * kTwipsPerPixel, f.width(),
                    f.height());
    });
}

void FormWindow::changeEvent(QEvent* e) {
    QMainWindow::changeEvent(e);
    if (e->type() != QEvent::WindowStateChange || !form_ || applying_)
        return;
    QPointer<FormWindow> self(this);
    platform_->deliverUserAction([self] {
        if (!self || !self->form_)
            return;
        const WindowState s = self->isMinimized()   ? WindowState::Minimized
                              : self->isMaximized() ? WindowState::Maximized
                                                    : WindowState::Normal;
        // Setting the state the model already has does nothing there.
        self->form_->setWindowState(s);
    });
}

void FormWindow::closeEvent(QCloseEvent* e) {
    // The model decides: the form's unload question may keep it open.
    e->ignore();
    QPointer<FormWindow> self(this);
    QtPlatform* platform = platform_;
    platform->deliverUserAction([self, platform] {
        if (!self || !self->form_)
            return;
        if (platform->onCloseRequest)
            platform->onCloseRequest(*self->form_);
        else
            platform->hideForm(*self->form_);
    });
}

}  // namespace corvanna
