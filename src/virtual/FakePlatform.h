#pragma once
// A platform with a virtual clock: timers fire only when the clock is advanced,
// a blocking wait moves the clock without firing them, message boxes take
// scripted answers, and everything the program does outside is recorded.

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace corvanna {

class FakePlatform : public Platform {
public:
    FakePlatform();
    ~FakePlatform() override;

    // ---- The virtual clock
    // Runs due timers in order of due time until the clock reaches now + ms.
    void advance(std::int64_t ms);
    std::int64_t elapsedMs() const { return nowMs_; }
    // The wall clock at elapsed 0.
    void setStartTime(const DateTime& t) { start_ = t; }

    // ---- Scripts
    void queueAnswer(MsgResult answer) { answers_.push_back(answer); }
    // Runs while a form is shown modal; when none is queued the modal runner is asked.
    void queueModal(std::function<void(Form&)> script) {
        modalScripts_.push_back(std::move(script));
    }
    std::function<void(Form&)> modalRunner;
    // Input that arrives at the next DoEvents or return to the loop.
    void post(std::function<void()> input) { input_.push_back(std::move(input)); }
    UrlResult urlResult = UrlResult::Opened;
    // What the next mails get back from the "mail program".
    MailResult mailResult{true, ""};

    // ---- Records
    // "msgbox TITLE | ICON | TEXT -> ANSWER", "sound NAME", "music start", "url URL", "show F", ...
    std::vector<std::string> takeLog();
    const std::vector<std::string>& log() const { return log_; }
    std::vector<std::string> takeErrors();
    std::vector<std::string> messages() const;  // the texts of every message box so far
    std::vector<std::string> takeMessages();    // ... and forgets them, for long runs
    const std::vector<MailMessage>& mails() const { return mails_; }  // every mail handed over
    bool quitRequested() const { return quit_; }
    int sleepDepth() const { return sleeping_; }
    bool isRunning(const Timer& t) const { return timers_.count(const_cast<Timer*>(&t)) != 0; }
    std::vector<Form*> modalStack() const { return modal_; }

    // ---- Platform
    std::int64_t monotonicMs() override { return nowMs_; }
    DateTime now() override;
    double secondsSinceMidnight() override;
    void sleep(int ms) override;
    void doEvents() override;
    MsgResult msgBox(const std::string& text, MsgButtons buttons, MsgIcon icon,
                     const std::string& title) override;
    void showForm(Form& form, bool modal) override;
    void hideForm(Form& form) override;
    void formUnloaded(Form& form) override;
    int screenWidthTwips() override { return 1280 * kTwipsPerPixel; }
    int screenHeightTwips() override { return 1024 * kTwipsPerPixel; }
    void playWave(const std::string& path) override;
    void startMusic(const std::string& path) override;
    void stopMusic() override;
    UrlResult openUrl(const std::string& url) override;
    MailResult sendMail(const MailMessage& mail) override;
    void quit() override;
    void timerChanged(Timer& timer) override;
    void timerDestroyed(Timer& timer) override;

private:
    struct Due {
        std::int64_t at;
        std::uint64_t order;
    };
    // Fires every timer due by now, once each; false when none was.
    bool runDue(std::int64_t limit);
    void deliverInput();

    DateTime start_;
    std::int64_t nowMs_ = 0;
    std::uint64_t order_ = 0;
    std::map<Timer*, Due> timers_;
    std::set<Timer*> firing_;
    std::deque<MsgResult> answers_;
    std::deque<std::function<void(Form&)>> modalScripts_;
    std::deque<std::function<void()>> input_;
    std::vector<Form*> modal_;
    std::set<Form*> unloaded_;
    std::set<Form*> shown_;
    std::vector<std::string> log_;
    std::vector<std::string> errors_;
    std::vector<std::string> messages_;
    std::vector<MailMessage> mails_;
    int sleeping_ = 0;
    bool quit_ = false;
};

}  // namespace corvanna
