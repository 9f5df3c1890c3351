#include "qt/FormWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <vector>

#include "forms/Input.h"
#include "forms/Keys.h"
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
    ring_ = new FocusRing(client_);
    cursor_ = new PlayCursorFrame(client_);
    menus_ = std::make_unique<MenuBarPeer>(form, *this);
    menus_->rebuild();
    for (auto& c : form.controls())
        addPeer(*c);
    restack(nullptr, true);
    for (auto& [c, peer] : peers_)
        restack(c, true);
    layoutStatusBar();
    formSub_ = form.subscribe([this](Form&, Prop p) { onFormChanged(p); });
    setWindowTitle(QString::fromStdString(form.caption()));
    applyBackColor();
    applyCursor();
    client_->onResized = [this] { clientResized(); };
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* now) { focusChanged(now); });
    applyFocus();
    applyPlayCursor();
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
        case Prop::PlayCursor: applyPlayCursor(); break;
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
            restack(added.container(), true);
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
    // For the focus it takes, the keys it gets, and the rings that follow it round.
    if (peer->widget())
        peer->widget()->installEventFilter(this);
    if (c.kind() == ControlKind::StatusBar) {
        statusBar_ = peer->widget();
        statusModel_ = &c;
    }
    peers_[&c] = std::move(peer);
    if (c.kind() == ControlKind::StatusBar)
        layoutStatusBar();
}

void FormWindow::controlGone(Control* c) {
    staleOrder_.erase(c);
    auto it = peers_.find(c);
    if (it == peers_.end())
        return;
    if (QWidget* w = it->second->widget()) {
        // The ring may stand inside it (a container) or round it; it stays with the window.
        if (w->isAncestorOf(ring_) || ring_->target() == w) {
            ring_->follow(nullptr);
            ring_->setParent(client_);
        }
        if (w->isAncestorOf(cursor_) || cursor_->target() == w) {
            cursor_->follow(nullptr);
            cursor_->setParent(client_);
        }
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

namespace {

// Which of the widgets keep their place: the longest run of them that Qt already stacks
// in the wanted order. `rank` gives, in Qt's order, each one's wanted place.
std::vector<bool> keepPlace(const std::vector<int>& rank, std::size_t count) {
    std::vector<int> tails, tailAt, prev(rank.size(), -1);
    for (int i = 0; i < static_cast<int>(rank.size()); ++i) {
        const auto pos = std::lower_bound(tails.begin(), tails.end(), rank[i]) - tails.begin();
        if (pos > 0)
            prev[i] = tailAt[pos - 1];
        if (pos == static_cast<std::ptrdiff_t>(tails.size())) {
            tails.push_back(rank[i]);
            tailAt.push_back(i);
        } else {
            tails[pos] = rank[i];
            tailAt[pos] = i;
        }
    }
    std::vector<bool> keeps(count, false);
    for (int i = tailAt.empty() ? -1 : tailAt.back(); i >= 0; i = prev[i])
        keeps[rank[i]] = true;
    return keeps;
}

}  // namespace

void FormWindow::placesChanged(const Control* container) {
    if (staleOrder_.count(container))
        restack(container, true);
}

void FormWindow::restack(const Control* container, bool exact) {
    if (!form_)
        return;
    auto kids = form_->childrenOf(container);
    std::stable_sort(kids.begin(), kids.end(),
                     [](const Control* a, const Control* b) { return a->zOrder() < b->zOrder(); });
    std::vector<QWidget*> wanted;  // bottom to top
    for (const Control* k : kids)
        if (QWidget* w = widgetOf(*k))
            wanted.push_back(w);
    if (wanted.empty())
        return;
    std::vector<int> rank;                   // in Qt's order, each one's wanted place
    std::vector<int> at(wanted.size(), -1);  // and the other way round
    for (QObject* o : wanted.front()->parentWidget()->children())
        if (auto it = std::find(wanted.begin(), wanted.end(), o); it != wanted.end()) {
            at[it - wanted.begin()] = static_cast<int>(rank.size());
            rank.push_back(static_cast<int>(it - wanted.begin()));
        }
    // Every widget Qt restacks is repainted. Where no two shown ones overlap in the wrong
    // order the screen is right as it is: Qt's order waits until one moves or shows.
    auto wrongWhereItShows = [&] {
        for (std::size_t i = 0; i < wanted.size(); ++i)
            for (std::size_t j = i + 1; j < wanted.size(); ++j)
                if (at[i] > at[j] && !wanted[i]->isHidden() && !wanted[j]->isHidden() &&
                    wanted[i]->geometry().intersects(wanted[j]->geometry()))
                    return true;
        return false;
    };
    if (!exact && !wrongWhereItShows()) {
        staleOrder_.insert(container);
        return;
    }
    staleOrder_.erase(container);
    // Only those out of order move, top down, each straight under the one above it.
    const std::vector<bool> keeps = keepPlace(rank, wanted.size());
    for (std::size_t i = wanted.size(); i-- > 0;) {
        if (keeps[i])
            continue;
        if (i + 1 == wanted.size())
            wanted[i]->raise();
        else
            wanted[i]->stackUnder(wanted[i + 1]);
    }
    // Over everything: the status bar (aligned to the form), the focus ring, the play
    // cursor; each raised only when something else came over it.
    auto raiseOver = [](QWidget* w, std::initializer_list<const QObject*> mayBeAbove) {
        const QObjectList& all = w->parentWidget()->children();
        for (auto it = all.rbegin(); it != all.rend() && *it != w; ++it)
            if ((*it)->isWidgetType() &&
                std::find(mayBeAbove.begin(), mayBeAbove.end(), *it) == mayBeAbove.end()) {
                w->raise();
                return;
            }
    };
    if (!container && statusBar_)
        raiseOver(statusBar_, {ring_, cursor_});
    raiseOver(ring_, {cursor_});
    raiseOver(cursor_, {});
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

// ---- Focus and keys

void FormWindow::applyFocus() {
    // The model may have chosen the focus before the window existed: Qt gives it when
    // the window is first activated.
    if (!form_ || !form_->activeControl())
        return;
    if (QWidget* w = widgetOf(*form_->activeControl()); w && !w->hasFocus())
        w->setFocus(Qt::OtherFocusReason);
}

void FormWindow::refocus() {
    // Qt lets the focus go when its widget is disabled and it finds no other (a count-up
    // disables every button), and does not look again when they come back.
    if (!form_ || !isActiveWindow())
        return;
    if (const QWidget* now = QApplication::focusWidget(); now && now->window() == this)
        return;
    Control* c = form_->activeControl();
    // A hidden command with nothing to do holds the focus away from every button on purpose.
    if (c && !c->visible() && !c->Click)
        return;
    if (QWidget* w = c ? widgetOf(*c) : nullptr; w && w->isVisible() && w->isEnabled())
        return w->setFocus(Qt::OtherFocusReason);
    // Where that one can't take it, the next that can, as Tab would go.
    if (Control* next = routeKey(*form_, Key::Tab).control)
        userFocus(*next);
}

Control* FormWindow::controlOf(const QWidget* w) const {
    for (auto& [c, peer] : peers_)
        if (peer->widget() == w)
            return const_cast<Control*>(c);
    return nullptr;
}

void FormWindow::focusTaken(QWidget* w, Qt::FocusReason reason) {
    Control* c = controlOf(w);
    if (!form_ || !c)
        return;
    // Coming back to the window, or the model's own setFocus arriving, changes nothing;
    // Tab and the mouse give the focus anew, and a text box selects its text again.
    const bool byUser = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
                        reason == Qt::MouseFocusReason || reason == Qt::ShortcutFocusReason;
    if (form_->activeControl() == c && !byUser)
        return;
    userFocus(*c);
}

void FormWindow::focusChanged(QWidget* now) {
    // The ring goes round the peer that holds the focus (a combo box's own parts too).
    QWidget* target = nullptr;
    for (QWidget* w = now; w && w != this && !target; w = w->parentWidget())
        if (controlOf(w))
            target = w;
    if (now && now->window() != this)
        target = nullptr;
    ring_->follow(target);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* e) {
    auto* w = qobject_cast<QWidget*>(watched);
    switch (e->type()) {
        case QEvent::FocusIn:
            if (w)
                focusTaken(w, static_cast<QFocusEvent*>(e)->reason());
            break;
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::ZOrderChange:
            if (w && w == ring_->target())
                ring_->place();
            if (w && w == cursor_->target())
                cursor_->place();
            break;
        case QEvent::KeyPress:
            if (playKey(static_cast<QKeyEvent*>(e)))
                return true;
            break;
        default: break;
    }
    return QMainWindow::eventFilter(watched, e);
}

void FormWindow::applyPlayCursor() {
    Control* at = form_ ? form_->playCursor() : nullptr;
    QWidget* target = at ? widgetOf(*at) : nullptr;
    cursor_->follow(target);
    // One mark of where the keys go: the cursor, while it is on show, not the focus ring.
    ring_->setSuppressed(target != nullptr);
}

bool FormWindow::playKey(QKeyEvent* e) {
    if (!form_ || !form_->keyboardPlay() ||
        (e->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    Key key;
    switch (e->key()) {
        case Qt::Key_Left: key = Key::Left; break;
        case Qt::Key_Right: key = Key::Right; break;
        case Qt::Key_Up: key = Key::Up; break;
        case Qt::Key_Down: key = Key::Down; break;
        case Qt::Key_Space: key = Key::Space; break;
        case Qt::Key_Return:
        case Qt::Key_Enter: key = Key::Enter; break;
        default: return typedLetter(e);
    }
    // A text box or a list keeps its keys, and with no cursor on show the focused button
    // takes Space as its own.
    const KeyRoute route = routeKey(*form_, key);
    if (!route.byCursor)
        return false;
    e->accept();
    // A key held down clicks once; the arrows go on moving.
    if (e->isAutoRepeat() && route.kind == KeyRoute::Press)
        return true;
    QPointer<FormWindow> self(this);
    platform_->deliverUserAction([self, key] {
        if (self && self->form_)
            userKey(*self->form_, key);
    });
    return true;
}

bool FormWindow::typedLetter(QKeyEvent* e) {
    // A text box takes its letters; elsewhere a letter clicks the button that bears it.
    const auto* box = dynamic_cast<const TextBox*>(form_->activeControl());
    if (box && box->visible() && !box->locked())
        return false;
    if (e->key() < Qt::Key_A || e->key() > Qt::Key_Z || e->isAutoRepeat())
        return false;
    Control* target = letterTarget(*form_, static_cast<char>('A' + (e->key() - Qt::Key_A)));
    if (!target)
        return false;
    e->accept();
    QPointer<FormWindow> self(this);
    QPointer<QWidget> widget(widgetOf(*target));
    platform_->deliverUserAction([self, widget, target] {
        // The button may have gone with its form before the action is delivered.
        if (self && self->form_ && widget)
            userClick(*target);
    });
    return true;
}

void FormWindow::keyPressEvent(QKeyEvent* e) {
    if (playKey(e))
        return;
    const auto mods = e->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    Key key;
    if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter)
        key = Key::Enter;
    else if (e->key() == Qt::Key_Escape)
        key = Key::Escape;
    else
        return QMainWindow::keyPressEvent(e);
    if (!form_ || mods != Qt::NoModifier)
        return QMainWindow::keyPressEvent(e);
    // A box of several lines took its Enter before it came here; nothing else is left.
    const KeyRoute route = routeKey(*form_, key);
    if (route.kind == KeyRoute::Nowhere || route.kind == KeyRoute::NewLine)
        return QMainWindow::keyPressEvent(e);
    e->accept();
    // A key held down presses once.
    if (e->isAutoRepeat())
        return;
    QPointer<FormWindow> self(this);
    platform_->deliverUserAction([self, key] {
        if (self && self->form_)
            userKey(*self->form_, key);
    });
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
    // Back with no widget focused (its buttons were all disabled meanwhile): the focus
    // goes where the model has it, not to the first widget Qt finds.
    if (e->type() == QEvent::ActivationChange)
        refocus();
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
