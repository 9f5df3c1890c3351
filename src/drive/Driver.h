#pragma once
// The headless driver: reads one command a line, runs it on the real forms over
// the virtual platform and prints what it is asked for. A modal form shown by a
// handler runs a nested loop over the same input until it goes away.

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "common/Program.h"
#include "virtual/FakePlatform.h"

namespace corvanna::drive {

class Driver {
public:
    Driver(FakePlatform& platform, Program& program, std::FILE* in, std::FILE* out);
    ~Driver();
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    // Runs commands until the end of the input or until the program quits; the exit code.
    int run();
    // Runs one command line and prints what it says, its errors last.
    void execute(const std::string& line);

    // The help lines of the commands, for --help.
    static std::vector<std::string> commandHelp();

    // The longest line read; the rest of a longer one is dropped with an error.
    static constexpr std::size_t kMaxLine = 1 << 20;
    // The most virtual time one `advance` may run.
    static constexpr std::int64_t kMaxAdvanceMs = 24LL * 60 * 60 * 1000;

private:
    struct Command {
        const char* name;
        const char* usage;
        const char* description;  // lines split by \n
        void (Driver::*run)(const std::string& args);
    };
    static const std::vector<Command>& commands();

    // The next command line; false at the end of the input.
    bool nextCommand(std::string& line);
    void runModal(Form& form);
    bool isLoaded(const Form* form) const;

    void print(const std::string& text);
    void error(const std::string& text);
    void printPlatformErrors();

    // Name resolution; on failure an error is printed and nullptr comes back.
    Form* findForm(const std::string& name);
    Control* findControl(Form& form, const std::string& ref);
    Control* findControl(const std::string& ref);
    // What a user cannot reach: not shown, behind a modal, hidden or disabled.
    bool reachable(const Control& c, std::string& why) const;
    bool windowReachable(const Form& f, std::string& why) const;

    // The commands (Commands.cpp).
    // One control's input as a user gives it: a click, a double click, Enter.
    void userInput(const std::string& args, const char* usage,
                   bool (*input)(Control&, std::string*), bool textBoxOnly = false);
    void cmdClick(const std::string& args);
    void cmdDblClick(const std::string& args);
    void cmdEnter(const std::string& args);
    void cmdType(const std::string& args);
    void cmdKey(const std::string& args);
    void cmdKeys(const std::string& args);
    void cmdSelect(const std::string& args);
    void cmdAdvance(const std::string& args);
    void cmdAnswer(const std::string& args);
    void cmdGet(const std::string& args);
    void cmdDump(const std::string& args);
    void cmdLog(const std::string& args);
    void cmdResize(const std::string& args);
    void cmdMinimize(const std::string& args);
    void cmdMaximize(const std::string& args);
    void cmdRestore(const std::string& args);
    void cmdClose(const std::string& args);
    void cmdEcho(const std::string& args);
    void cmdVariables(const std::string& args);
    void cmdWatch(const std::string& args);
    void cmdUnwatch(const std::string& args);
    void setWindowState(const std::string& args, WindowState state, const char* verb);

    // A property printed each time it changes, as a view would see it (Watch.cpp).
    struct Watch {
        std::string label;  // "frmTierfall.lblMessage.Caption"
        Form* form = nullptr;
        Control* control = nullptr;  // null for a form's own property
        std::string property;
        std::string last;
        int subscription = 0;
        bool alive = true;
    };
    void changed(Watch& w);
    void dropWatch(Watch& w);

    FakePlatform& platform_;
    Program& program_;
    std::FILE* in_;
    std::FILE* out_;
    bool eof_ = false;
    std::vector<std::unique_ptr<Watch>> watches_;
};

}  // namespace corvanna::drive
