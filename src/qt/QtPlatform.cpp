#include "qt/QtPlatform.h"

#include <QApplication>
#include <QDateTime>
#include <QDesktopServices>
#include <QEventLoop>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <QUrl>
#include <QWindow>
#include <algorithm>

#include "qt/FormWindow.h"
#include "qt/MusicPlayer.h"
#include "qt/SoundPlayer.h"

namespace corvanna {

QtPlatform::QtPlatform() {
    clock_.start();
}

QtPlatform::~QtPlatform() {
    for (auto& [form, w] : windows_) {
        if (!w)
            continue;
        w->detach();
        delete w.data();
    }
    windows_.clear();
    for (auto& [form, id] : unloaded_)
        const_cast<Form*>(form)->unsubscribe(id);
    for (auto& [timer, q] : timers_)
        q->stop();
}

// ---- Time

std::int64_t QtPlatform::monotonicMs() {
    return clock_.elapsed();
}

DateTime QtPlatform::now() {
    const QDateTime t = QDateTime::currentDateTime();
    const QDate d = t.date();
    const QTime c = t.time();
    return {d.year(), d.month(), d.day(), c.hour(), c.minute(), c.second(), c.msec()};
}

double QtPlatform::secondsSinceMidnight() {
    return QTime::currentTime().msecsSinceStartOfDay() / 1000.0;
}

// ---- Waits and held input

void QtPlatform::sleep(int ms) {
    ++waitDepth_;
    if (ms > 0) {
        QEventLoop loop;
        QTimer done;
        done.setSingleShot(true);
        done.setTimerType(Qt::PreciseTimer);
        connect(&done, &QTimer::timeout, &loop, &QEventLoop::quit);
        done.start(ms);
        // Paints and timer ticks run; clicks and keys stay in Qt's queue until later.
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    } else {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    }
    --waitDepth_;
    if (waitDepth_ == 0 && (!heldTicks_.empty() || !heldActions_.empty()))
        scheduleFlush();
}

void QtPlatform::doEvents() {
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    if (waitDepth_ == 0)
        flushHeld();
}

void QtPlatform::deliverUserAction(std::function<void()> action) {
    if (waitDepth_ > 0) {
        heldActions_.push_back(std::move(action));
        return;
    }
    action();
}

void QtPlatform::scheduleFlush() {
    if (flushScheduled_)
        return;
    flushScheduled_ = true;
    QTimer::singleShot(0, this, [this] { flushHeld(); });
}

void QtPlatform::flushHeld() {
    flushScheduled_ = false;
    while (waitDepth_ == 0) {
        if (!heldActions_.empty()) {
            auto action = std::move(heldActions_.front());
            heldActions_.pop_front();
            action();
            continue;
        }
        // A timer whose handler is still running keeps its tick until it returns.
        auto it = std::find_if(heldTicks_.begin(), heldTicks_.end(),
                               [this](Timer* t) { return !running_.count(t); });
        if (it == heldTicks_.end())
            break;
        Timer* t = *it;
        heldTicks_.erase(it);
        fireTimer(t);
    }
}

// ---- Timers

void QtPlatform::timerChanged(Timer& timer) {
    if (!timer.enabled() || timer.interval() <= 0 || unloaded_.count(&timer.form())) {
        dropTimer(&timer);
        return;
    }
    QTimer*& q = timers_[&timer];
    if (!q) {
        q = new QTimer(this);
        q->setTimerType(Qt::PreciseTimer);
        Timer* model = &timer;
        QTimer* source = q;
        connect(q, &QTimer::timeout, this, [this, model, source] { timerTicked(model, source); });
    }
    // Enabling or a new interval starts the count from now.
    q->start(timer.interval());
}

void QtPlatform::timerDestroyed(Timer& timer) {
    dropTimer(&timer);
}

void QtPlatform::dropTimer(Timer* timer) {
    std::erase(heldTicks_, timer);
    auto it = timers_.find(timer);
    if (it == timers_.end())
        return;
    QTimer* q = it->second;
    timers_.erase(it);
    q->stop();
    // It may be the very timer whose tick is running now.
    q->deleteLater();
}

void QtPlatform::timerTicked(Timer* timer, QTimer* source) {
    auto it = timers_.find(timer);
    if (it == timers_.end() || it->second != source)
        return;
    if (waitDepth_ > 0 || running_.count(timer)) {
        holdTick(timer);
        return;
    }
    // A held tick and a fresh one meet here: they make one call.
    std::erase(heldTicks_, timer);
    fireTimer(timer);
}

void QtPlatform::holdTick(Timer* timer) {
    if (std::find(heldTicks_.begin(), heldTicks_.end(), timer) == heldTicks_.end())
        heldTicks_.push_back(timer);
    if (waitDepth_ == 0 && !running_.count(timer))
        scheduleFlush();
}

void QtPlatform::fireTimer(Timer* timer) {
    if (!timers_.count(timer))
        return;  // stopped, unloaded or destroyed meanwhile
    if (running_.count(timer)) {
        holdTick(timer);
        return;
    }
    if (!timer->OnTimer)
        return;
    running_.insert(timer);
    // A copy: the handler may unload the form, and with it this very function.
    auto handler = timer->OnTimer;
    handler();
    running_.erase(timer);
    if (std::find(heldTicks_.begin(), heldTicks_.end(), timer) != heldTicks_.end() &&
        waitDepth_ == 0)
        scheduleFlush();
}

// ---- Message boxes

MsgResult QtPlatform::msgBox(const std::string& text, MsgButtons buttons, MsgIcon icon,
                             const std::string& title) {
    QMessageBox::Icon qicon = QMessageBox::NoIcon;
    switch (icon) {
        case MsgIcon::Critical: qicon = QMessageBox::Critical; break;
        case MsgIcon::Question: qicon = QMessageBox::Question; break;
        case MsgIcon::Exclamation: qicon = QMessageBox::Warning; break;
        case MsgIcon::Information: qicon = QMessageBox::Information; break;
        case MsgIcon::None: break;
    }
    QMessageBox::StandardButtons qbuttons = QMessageBox::Ok;
    MsgResult dismissed = MsgResult::OK;  // what closing the box without a button means
    switch (buttons) {
        case MsgButtons::OK: break;
        case MsgButtons::OKCancel:
            qbuttons = QMessageBox::Ok | QMessageBox::Cancel;
            dismissed = MsgResult::Cancel;
            break;
        case MsgButtons::YesNo:
            qbuttons = QMessageBox::Yes | QMessageBox::No;
            dismissed = MsgResult::No;
            break;
        case MsgButtons::YesNoCancel:
            qbuttons = QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
            dismissed = MsgResult::Cancel;
            break;
    }
    QString body = QString::fromStdString(text);
    body.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    // On the heap: a game timer running under the box may unload the form it sits on.
    QPointer<QMessageBox> box = new QMessageBox(qicon, QString::fromStdString(title), body,
                                                qbuttons, QApplication::activeWindow());
    box->setTextFormat(Qt::PlainText);
    const int answer = box->exec();
    delete box.data();
    switch (answer) {
        case QMessageBox::Ok: return MsgResult::OK;
        case QMessageBox::Cancel: return MsgResult::Cancel;
        case QMessageBox::Yes: return MsgResult::Yes;
        case QMessageBox::No: return MsgResult::No;
        default: return dismissed;
    }
}

// ---- Forms

FormWindow* QtPlatform::windowOf(const Form& form) const {
    auto it = windows_.find(&form);
    return it == windows_.end() ? nullptr : it->second.data();
}

FormWindow* QtPlatform::ensureWindow(Form& form) {
    if (FormWindow* w = windowOf(form))
        return w;
    auto* w = new FormWindow(form, *this);
    windows_[&form] = w;
    return w;
}

void QtPlatform::showForm(Form& form, bool modal) {
    FormWindow* w = ensureWindow(form);
    const Qt::WindowModality wanted = modal ? Qt::ApplicationModal : Qt::NonModal;
    if (w->windowModality() != wanted) {
        // Qt takes a new modality only at show time.
        if (w->isVisible())
            w->hide();
        w->setWindowModality(wanted);
    }
    QPointer<QWidget> owner;
    if (modal) {
        // Kept above the window it was opened from, as a dialog is.
        owner = QApplication::activeWindow();
        if (owner && owner != w && owner->windowHandle()) {
            w->createWinId();
            w->windowHandle()->setTransientParent(owner->windowHandle());
        }
    }
    form.setVisibleFlag(true);
    w->showFromModel();
    if (modal) {
        runModal(form);
        giveBackKeys(owner);
    } else if (form.Activate) {
        auto activate = form.Activate;  // the handler may unload the form
        activate();
    }
}

void QtPlatform::runModal(Form& form) {
    // The model's own guard: clicks on the other forms are refused while this is up.
    std::vector<const Form*> disabled;
    for (auto& [f, w] : windows_) {
        if (f == &form || !w || !w->form())
            continue;
        Form* other = w->form();
        if (other->visible() && other->enabled()) {
            other->setEnabled(false);
            disabled.push_back(other);
        }
    }
    QEventLoop loop;
    modalRuns_.push_back({&form, &loop});
    if (form.visible() && windowOf(form))
        loop.exec();
    std::erase_if(modalRuns_, [&](const ModalRun& r) { return r.loop == &loop; });
    for (const Form* f : disabled) {
        FormWindow* w = windowOf(*f);
        if (w && w->form())
            w->form()->setEnabled(true);
    }
}

void QtPlatform::giveBackKeys(QWidget* owner) {
    // A window manager gives the keyboard back to the window under a closed dialog;
    // without one it would be left with no window at all.
    const QWidget* active = QApplication::activeWindow();
    if (active && active->isVisible())
        return;
    auto usable = [](const QWidget* w) { return w && w->isVisible() && !w->isMinimized(); };
    QWidget* next = usable(owner) ? owner : nullptr;
    for (auto run = modalRuns_.rbegin(); !next && run != modalRuns_.rend(); ++run)
        if (FormWindow* w = windowOf(*run->form); usable(w))
            next = w;
    for (auto& [f, w] : windows_)
        if (!next && usable(w))
            next = w;
    if (next)
        next->activateWindow();
}

void QtPlatform::endModal(const Form& form) {
    for (auto& run : modalRuns_)
        if (run.form == &form)
            run.loop->quit();
}

void QtPlatform::hideForm(Form& form) {
    if (FormWindow* w = windowOf(form)) {
        w->hide();
        w->setWindowModality(Qt::NonModal);
    }
    form.setVisibleFlag(false);
    endModal(form);
}

void QtPlatform::watchUnloaded(Form& form) {
    if (unloaded_.count(&form))
        return;
    unloaded_[&form] = form.subscribe([this](Form& f, Prop p) {
        if (p == Prop::Destroyed)
            unloaded_.erase(&f);
    });
}

void QtPlatform::formUnloaded(Form& form) {
    endModal(form);
    std::vector<Timer*> mine;
    for (auto& [t, q] : timers_)
        if (&t->form() == &form)
            mine.push_back(t);
    for (Timer* t : mine)
        dropTimer(t);
    auto it = windows_.find(&form);
    if (it != windows_.end()) {
        QPointer<FormWindow> w = it->second;
        windows_.erase(it);
        if (w) {
            // Later: this may run inside a handler of one of the window's own widgets.
            w->detach();
            w->hide();
            w->deleteLater();
        }
    }
    form.setVisibleFlag(false);
    watchUnloaded(form);
    if (quitWhenLastUnloaded_ && windows_.empty()) {
        // The handler that unloaded it may show the next form before it returns.
        QTimer::singleShot(0, this, [this] {
            if (quitWhenLastUnloaded_ && windows_.empty())
                QCoreApplication::exit(0);
        });
    }
}

int QtPlatform::screenWidthTwips() {
    QScreen* s = QGuiApplication::primaryScreen();
    return (s ? s->availableGeometry().width() : 1024) * kTwipsPerPixel;
}

int QtPlatform::screenHeightTwips() {
    QScreen* s = QGuiApplication::primaryScreen();
    return (s ? s->availableGeometry().height() : 768) * kTwipsPerPixel;
}

// ---- Outside world

void QtPlatform::playWave(const std::string& path) {
    if (!sound_)
        sound_ = std::make_unique<SoundPlayer>();
    sound_->play(QString::fromStdString(path));
}

void QtPlatform::startMusic(const std::string& path) {
    if (!music_)
        music_ = std::make_unique<MusicPlayer>();
    music_->start(QString::fromStdString(path));
}

void QtPlatform::stopMusic() {
    if (music_)
        music_->stop();
}

UrlResult QtPlatform::openUrl(const std::string& url) {
    const QUrl u(QString::fromStdString(url), QUrl::StrictMode);
    if (!u.isValid() || u.scheme().isEmpty())
        return UrlResult::Failed;
    // Qt answers false when no program on the system would take the address.
    return QDesktopServices::openUrl(u) ? UrlResult::Opened : UrlResult::NoBrowser;
}

void QtPlatform::quit() {
    // After the current handler: it may still be writing its files.
    // exit(), not quit(): quit() first closes every window, and a close asks the
    // unload question.
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
}

}  // namespace corvanna
