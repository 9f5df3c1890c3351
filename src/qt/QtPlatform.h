#pragma once
// The real platform: Qt's clock, timers, event loops, message boxes and windows.
// Sleep is a nested event loop that paints but hands neither input nor timer
// ticks to the game; what arrives meanwhile is held and delivered once after.

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/Platform.h"

class QEventLoop;
class QTimer;

namespace corvanna {

class FormWindow;
class MusicPlayer;
class SoundPlayer;

class QtPlatform : public QObject, public Platform {
    Q_OBJECT
public:
    QtPlatform();
    ~QtPlatform() override;

    std::int64_t monotonicMs() override;
    DateTime now() override;
    double secondsSinceMidnight() override;

    void sleep(int ms) override;
    void doEvents() override;

    MsgResult msgBox(const std::string& text, MsgButtons buttons, MsgIcon icon,
                     const std::string& title) override;

    void showForm(Form& form, bool modal) override;
    void hideForm(Form& form) override;
    void formUnloaded(Form& form) override;
    int screenWidthTwips() override;
    int screenHeightTwips() override;

    void playWave(const std::string& path) override;
    void startMusic(const std::string& path) override;
    void stopMusic() override;
    UrlResult openUrl(const std::string& url) override;
    MailResult sendMail(const MailMessage& mail) override;  // MailSender.cpp
    void quit() override;

    void timerChanged(Timer& timer) override;
    void timerDestroyed(Timer& timer) override;

    // For the windows: a blocking wait is running.
    bool inWait() const { return waitDepth_ > 0; }
    // Runs what the user did now, or holds it until the wait ends.
    void deliverUserAction(std::function<void()> action);
    // The window of a form, or nullptr when it has none (yet, or any more).
    FormWindow* windowOf(const Form& form) const;
    // The program ends when its last form is unloaded, unless told otherwise (tests).
    void setQuitWhenLastFormUnloaded(bool on) { quitWhenLastUnloaded_ = on; }

private:
    FormWindow* ensureWindow(Form& form);
    void runModal(Form& form);
    void endModal(const Form& form);
    void giveBackKeys(QWidget* owner);
    void dropTimer(Timer* timer);
    void timerTicked(Timer* timer, QTimer* source);
    void holdTick(Timer* timer);
    void fireTimer(Timer* timer);
    void scheduleFlush();
    void flushHeld();
    void watchUnloaded(Form& form);

    QElapsedTimer clock_;
    int waitDepth_ = 0;
    bool flushScheduled_ = false;
    bool quitWhenLastUnloaded_ = true;

    std::unordered_map<Timer*, QTimer*> timers_;
    // Ticks that came due during a wait, in the order they came; each timer once.
    std::vector<Timer*> heldTicks_;
    // Timers whose handler is running: a tick meanwhile waits for it to return.
    std::unordered_set<Timer*> running_;
    std::deque<std::function<void()>> heldActions_;

    std::map<const Form*, QPointer<FormWindow>> windows_;
    // Unloaded but not yet destroyed: their timers must not come back to life.
    std::unordered_map<const Form*, int> unloaded_;

    struct ModalRun {
        const Form* form;
        QEventLoop* loop;
    };
    std::vector<ModalRun> modalRuns_;

    // Made on the first sound or tune; silent without an audio device.
    std::unique_ptr<SoundPlayer> sound_;
    std::unique_ptr<MusicPlayer> music_;
};

}  // namespace corvanna
