#include "drive/Driver.h"

#include <exception>

#include "drive/DriveText.h"

namespace corvanna::drive {

Driver::Driver(FakePlatform& platform, Program& program, std::FILE* in, std::FILE* out)
    : platform_(platform), program_(program), in_(in), out_(out) {
    platform_.modalRunner = [this](Form& form) { runModal(form); };
}

Driver::~Driver() {
    platform_.modalRunner = nullptr;
    for (auto& w : watches_)
        dropWatch(*w);
}

int Driver::run() {
    printPlatformErrors();
    std::fflush(out_);
    std::string line;
    while (!platform_.quitRequested() && !eof_ && nextCommand(line))
        execute(line);
    if (platform_.quitRequested()) {
        print("quit");
        std::fflush(out_);
    }
    return 0;
}

bool Driver::nextCommand(std::string& line) {
    while (!eof_) {
        line.clear();
        bool tooLong = false;
        int c;
        while ((c = std::fgetc(in_)) != EOF && c != '\n') {
            if (line.size() < kMaxLine)
                line += static_cast<char>(c);
            else
                tooLong = true;
        }
        if (c == EOF) {
            eof_ = true;
            if (line.empty() && !tooLong)
                return false;
        }
        if (tooLong) {
            error("line too long (more than " + std::to_string(kMaxLine) + " bytes), ignored");
            std::fflush(out_);
            continue;
        }
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        const std::string t = trim(line);
        if (t.empty() || t[0] == '#')
            continue;
        return true;
    }
    return false;
}

void Driver::execute(const std::string& line) {
    std::string args;
    const std::string word = firstWord(line, args);
    const Command* command = nullptr;
    for (const auto& c : commands())
        if (word == c.name)
            command = &c;
    if (!command) {
        error("unknown command '" + shown(word) + "' (see --help)");
    } else {
        try {
            (this->*command->run)(args);
        } catch (const std::exception& e) {
            // A fault in a handler must not take the driver down with it.
            error(std::string("internal failure: ") + e.what());
        }
    }
    printPlatformErrors();
    std::fflush(out_);
}

void Driver::runModal(Form& form) {
    // What was said before the dialog came up belongs before its commands.
    printPlatformErrors();
    std::fflush(out_);
    std::string line;
    while (isLoaded(&form) && form.visible() && !platform_.quitRequested() && nextCommand(line))
        execute(line);
}

bool Driver::isLoaded(const Form* form) const {
    for (Form* f : program_.forms())
        if (f == form)
            return true;
    return false;
}

void Driver::print(const std::string& text) {
    std::fputs(text.c_str(), out_);
    std::fputc('\n', out_);
}

void Driver::error(const std::string& text) {
    print("error: " + text);
}

void Driver::printPlatformErrors() {
    for (const auto& e : platform_.takeErrors())
        error(printable(e));
}

Form* Driver::findForm(const std::string& name) {
    if (name.empty()) {
        error("a form name is missing");
        return nullptr;
    }
    Form* f = program_.findForm(name);
    if (!f)
        error("no form named '" + shown(name) + "' is loaded");
    return f;
}

Control* Driver::findControl(Form& form, const std::string& ref) {
    std::string name = ref;
    int index = -1;
    const auto open = ref.find('(');
    if (open != std::string::npos) {
        std::int64_t n = 0;
        if (ref.back() != ')' ||
            !parseWhole(ref.substr(open + 1, ref.size() - open - 2), 0, 32767, n)) {
            error("bad index in '" + shown(ref) + "'");
            return nullptr;
        }
        name = ref.substr(0, open);
        index = static_cast<int>(n);
    }
    if (Control* c = form.find(name, index))
        return c;
    bool array = false, plain = false;
    for (const auto& c : form.controls())
        if (c->name() == name)
            (c->index() < 0 ? plain : array) = true;
    if (array && index < 0)
        error(form.name() + "." + name + " is a control array: give an index, e.g. " + name +
              "(0)");
    else if (array || plain)
        error(form.name() + "." + name + " has no element (" + std::to_string(index) + ")");
    else
        error(form.name() + " has no control '" + shown(name) + "'");
    return nullptr;
}

Control* Driver::findControl(const std::string& ref) {
    const auto dot = ref.find('.');
    if (dot == std::string::npos) {
        error("expected FORM.CONTROL, not '" + shown(ref) + "'");
        return nullptr;
    }
    Form* form = findForm(ref.substr(0, dot));
    return form ? findControl(*form, ref.substr(dot + 1)) : nullptr;
}

bool Driver::reachable(const Control& c, std::string& why) const {
    const char* reason = !c.form().visible()       ? "is on a form that is not shown"
                         : !c.form().enabled()     ? "is behind a modal dialog"
                         : !c.effectivelyVisible() ? "is not visible"
                         : !c.effectivelyEnabled() ? "is disabled"
                                                   : nullptr;
    if (!reason)
        return true;
    why = c.form().name() + "." + c.fullName() + " " + reason;
    return false;
}

bool Driver::windowReachable(const Form& f, std::string& why) const {
    const char* reason = !f.visible()   ? "is not shown"
                         : !f.enabled() ? "is behind a modal dialog"
                                        : nullptr;
    if (!reason)
        return true;
    why = f.name() + " " + reason;
    return false;
}

}  // namespace corvanna::drive
