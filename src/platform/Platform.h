#pragma once
// Everything the games need from outside: time, waits, message boxes, showing
// forms, sounds, music, web pages and ending the program. The real window
// implements it with Qt; tests and the driver with a virtual clock.

#include <cstdint>
#include <functional>
#include <string>

#include "forms/Form.h"

namespace corvanna {

enum class MsgButtons { OK, OKCancel, YesNo, YesNoCancel };
enum class MsgIcon { None, Critical, Question, Exclamation, Information };
enum class MsgResult { OK, Cancel, Yes, No };
enum class UrlResult { Opened, NoBrowser, Failed };

const char* msgIconName(MsgIcon icon);
const char* msgResultName(MsgResult r);

// One e-mail handed to the user's own mail program, which shows it for sending.
struct MailMessage {
    std::string recipientName;
    std::string recipientAddress;
    std::string subject;
    std::string body;  // lines end in "\r\n"
};
struct MailResult {
    bool sent = false;
    std::string error;  // when not sent: what failed, in words a user can act on
};

// A local date and time, to the millisecond.
struct DateTime {
    int year = 2000, month = 1, day = 1, hour = 0, minute = 0, second = 0, msec = 0;
};

class Platform : public FormHost {
public:
    ~Platform() override = default;

    // Milliseconds on a clock that only moves forward, for intervals.
    virtual std::int64_t monotonicMs() = 0;
    // The local date and time.
    virtual DateTime now() = 0;
    // Seconds since midnight, with fractions: the timer the random routine reseeds from.
    virtual double secondsSinceMidnight() = 0;

    // A wait that keeps the window painted but hands no input and no timer to the game.
    virtual void sleep(int ms) = 0;
    // Let pending events run: held clicks, due timers, repaints.
    virtual void doEvents() = 0;

    virtual MsgResult msgBox(const std::string& text, MsgButtons buttons, MsgIcon icon,
                             const std::string& title) = 0;

    // Modeless show returns at once; modal returns when the form is hidden or unloaded.
    virtual void showForm(Form& form, bool modal) = 0;
    virtual void hideForm(Form& form) = 0;
    // The form is about to be destroyed: drop every reference to it.
    virtual void formUnloaded(Form& form) = 0;
    // Screen size in twips, for centring.
    virtual int screenWidthTwips() = 0;
    virtual int screenHeightTwips() = 0;

    // A wave file by full path; a new sound cuts off the one before. Missing files are silent.
    virtual void playWave(const std::string& path) = 0;
    virtual void startMusic(const std::string& path) = 0;
    virtual void stopMusic() = 0;
    // Hands the address to the user's browser.
    virtual UrlResult openUrl(const std::string& url) = 0;
    // Hands the message to the user's mail program; it doesn't wait for the sending.
    virtual MailResult sendMail(const MailMessage& mail) = 0;

    // End the program once the current handler returns.
    virtual void quit() = 0;

    // Set by the program: the window's close box asks the form to unload, as its
    // own Exit command does.
    std::function<void(Form&)> onCloseRequest;
};

// A form larger than the screen is made the screen's size: for forms whose layout scales.
void ShrinkToScreen(Form& form, Platform& platform);
// Centres the form on the screen, never further left or up than its edge.
void CentreOnScreen(Form& form, Platform& platform);

}  // namespace corvanna
