#include "virtual/FakePlatform.h"

#include <QDateTime>
#include <algorithm>

namespace corvanna {

namespace {
std::string baseName(const std::string& path) {
    const auto slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}
}  // namespace

FakePlatform::FakePlatform() {
    start_ = DateTime{2026, 11, 23, 9, 0, 0, 0};
}

FakePlatform::~FakePlatform() = default;

DateTime FakePlatform::now() {
    const QDateTime base(QDate(start_.year, start_.month, start_.day),
                         QTime(start_.hour, start_.minute, start_.second, start_.msec), Qt::UTC);
    const QDateTime t = base.addMSecs(nowMs_);
    return DateTime{t.date().year(),   t.date().month(),  t.date().day(), t.time().hour(),
                    t.time().minute(), t.time().second(), t.time().msec()};
}

double FakePlatform::secondsSinceMidnight() {
    const DateTime t = now();
    return t.hour * 3600.0 + t.minute * 60.0 + t.second + t.msec / 1000.0;
}

void FakePlatform::timerChanged(Timer& timer) {
    if (timer.enabled() && timer.interval() > 0)
        timers_[&timer] = Due{nowMs_ + timer.interval(), ++order_};
    else
        timers_.erase(&timer);
}

void FakePlatform::timerDestroyed(Timer& timer) {
    timers_.erase(&timer);
    firing_.erase(&timer);
}

bool FakePlatform::runDue(std::int64_t limit) {
    // The earliest due timer that is not already in its handler.
    Timer* next = nullptr;
    Due best{0, 0};
    for (auto& [t, due] : timers_) {
        if (due.at > limit || firing_.count(t))
            continue;
        if (!next || due.at < best.at || (due.at == best.at && due.order < best.order)) {
            next = t;
            best = due;
        }
    }
    if (!next)
        return false;
    nowMs_ = std::max(nowMs_, best.at);
    // The next tick is one interval on; a tick missed in a long handler comes once, late.
    const std::uint64_t order = best.order;
    timers_[next] = Due{best.at + next->interval(), order};
    firing_.insert(next);
    if (next->OnTimer)
        next->OnTimer();
    firing_.erase(next);
    // Not re-armed by its handler, and the handler ran past the next tick: one late tick, now.
    auto it = timers_.find(next);
    if (it != timers_.end() && it->second.order == order && it->second.at <= nowMs_)
        it->second.at = nowMs_;
    return true;
}

void FakePlatform::deliverInput() {
    while (!input_.empty()) {
        auto fn = std::move(input_.front());
        input_.pop_front();
        fn();
    }
}

void FakePlatform::advance(std::int64_t ms) {
    const std::int64_t target = nowMs_ + std::max<std::int64_t>(0, ms);
    deliverInput();
    while (!quit_ && runDue(target))
        deliverInput();
    nowMs_ = std::max(nowMs_, target);
    deliverInput();
}

void FakePlatform::sleep(int ms) {
    ++sleeping_;
    nowMs_ += std::max(0, ms);
    --sleeping_;
}

void FakePlatform::doEvents() {
    deliverInput();
    // Each due timer once: what fell due during a wait ticks now.
    std::set<Timer*> fired;
    while (true) {
        Timer* next = nullptr;
        for (auto& [t, due] : timers_)
            if (due.at <= nowMs_ && !firing_.count(t) && !fired.count(t))
                next = t;
        if (!next)
            break;
        fired.insert(next);
        timers_[next].at = nowMs_ + next->interval();
        firing_.insert(next);
        if (next->OnTimer)
            next->OnTimer();
        firing_.erase(next);
    }
    deliverInput();
}

MsgResult FakePlatform::msgBox(const std::string& text, MsgButtons buttons, MsgIcon icon,
                               const std::string& title) {
    MsgResult answer;
    const bool yesNo = buttons == MsgButtons::YesNo || buttons == MsgButtons::YesNoCancel;
    if (!answers_.empty()) {
        answer = answers_.front();
        answers_.pop_front();
    } else {
        answer = yesNo ? MsgResult::Yes : MsgResult::OK;
        errors_.push_back("unanswered message box: " + text);
    }
    messages_.push_back(text);
    log_.push_back("msgbox " + title + " | " + msgIconName(icon) + " | " + text + " -> " +
                   msgResultName(answer));
    return answer;
}

void FakePlatform::showForm(Form& form, bool modal) {
    unloaded_.erase(&form);
    shown_.insert(&form);
    form.setVisibleFlag(true);
    log_.push_back("show " + form.name() + (modal ? " modal" : ""));
    if (!modal) {
        if (form.Activate) {
            auto activate = form.Activate;  // the handler may unload the form
            activate();
        }
        return;
    }
    // Everything else waits behind a modal form.
    std::vector<Form*> disabled;
    for (Form* other : shown_)
        if (other != &form && other->enabled()) {
            other->setEnabled(false);
            disabled.push_back(other);
        }
    modal_.push_back(&form);
    if (!modalScripts_.empty()) {
        auto script = std::move(modalScripts_.front());
        modalScripts_.pop_front();
        script(form);
    } else if (modalRunner) {
        modalRunner(form);
    } else {
        errors_.push_back("modal form with no script: " + form.name());
    }
    modal_.erase(std::remove(modal_.begin(), modal_.end(), &form), modal_.end());
    if (!unloaded_.count(&form) && form.visible()) {
        errors_.push_back("modal form left open: " + form.name());
        hideForm(form);
    }
    for (Form* f : disabled)
        if (!unloaded_.count(f))
            f->setEnabled(true);
}

void FakePlatform::hideForm(Form& form) {
    if (!form.visible())
        return;
    form.setVisibleFlag(false);
    log_.push_back("hide " + form.name());
}

void FakePlatform::formUnloaded(Form& form) {
    for (auto it = timers_.begin(); it != timers_.end();)
        it = &it->first->form() == &form ? timers_.erase(it) : std::next(it);
    form.setVisibleFlag(false);
    unloaded_.insert(&form);
    shown_.erase(&form);
    modal_.erase(std::remove(modal_.begin(), modal_.end(), &form), modal_.end());
    log_.push_back("unload " + form.name());
}

void FakePlatform::playWave(const std::string& path) {
    log_.push_back("sound " + baseName(path));
}
void FakePlatform::startMusic(const std::string& path) {
    log_.push_back("music start " + baseName(path));
}
void FakePlatform::stopMusic() {
    log_.push_back("music stop");
}

UrlResult FakePlatform::openUrl(const std::string& url) {
    log_.push_back("url " + url);
    return urlResult;
}

MailResult FakePlatform::sendMail(const MailMessage& mail) {
    mails_.push_back(mail);
    log_.push_back("mail " + mail.recipientName + " <" + mail.recipientAddress + "> | " +
                   mail.subject + " | " + mail.body + " -> " +
                   (mailResult.sent ? std::string("sent") : "failed: " + mailResult.error));
    return mailResult;
}

void FakePlatform::quit() {
    quit_ = true;
    log_.push_back("quit");
}

std::vector<std::string> FakePlatform::takeLog() {
    std::vector<std::string> out;
    out.swap(log_);
    return out;
}

std::vector<std::string> FakePlatform::takeErrors() {
    std::vector<std::string> out;
    out.swap(errors_);
    return out;
}

std::vector<std::string> FakePlatform::messages() const {
    return messages_;
}

std::vector<std::string> FakePlatform::takeMessages() {
    std::vector<std::string> out;
    out.swap(messages_);
    return out;
}

}  // namespace corvanna
