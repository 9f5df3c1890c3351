// The driver's commands: each reads its arguments, says what is wrong in one
// error line, or does what a user (or a test) would do and prints the answer.

#include <algorithm>
#include <cctype>

#include "common/Variables.h"
#include "drive/DriveText.h"
#include "drive/Driver.h"
#include "forms/Input.h"

namespace corvanna::drive {

namespace {

std::string lower(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return s;
}

// Splits "A B C" into blank-separated words.
std::vector<std::string> words(const std::string& args) {
    std::vector<std::string> out;
    std::string rest = args;
    while (true) {
        std::string next;
        std::string w = firstWord(rest, next);
        if (w.empty())
            break;
        out.push_back(w);
        rest = next;
    }
    return out;
}

const char* kindText(const Control& c) {
    return kindName(c.kind());
}

}  // namespace

const std::vector<Driver::Command>& Driver::commands() {
    static const std::vector<Command> table{
        {"click", "click FORM.CONTROL[(INDEX)]", "click as a user would (menus too)",
         &Driver::cmdClick},
        {"dblclick", "dblclick FORM.CONTROL[(INDEX)]", "double click as a user would",
         &Driver::cmdDblClick},
        {"enter", "enter FORM.CONTROL", "press Enter in a text box", &Driver::cmdEnter},
        {"type", "type FORM.CONTROL TEXT", "set a text box's text (the rest of the line)",
         &Driver::cmdType},
        {"key", "key FORM Enter|Escape|Tab|Shift+Tab|Space|Left|Right|Up|Down",
         "press a key in the form: Enter presses the focused\n"
         "button, a text box's own Enter or the default\n"
         "button; Escape the cancel button; Tab moves the\n"
         "focus (get FORM.ActiveControl); Space presses the\n"
         "focused button. In a game form the arrows move the\n"
         "cursor over cards and buttons, and Space and Enter\n"
         "click what it is on (get FORM.PlayCursor)",
         &Driver::cmdKey},
        {"keys", "keys FORM TEXT",
         "type TEXT (the rest of the line) into the focused\n"
         "text box: it replaces the selected part\n"
         "(get FORM.CONTROL.SelText)",
         &Driver::cmdKeys},
        {"select", "select FORM.CONTROL INDEX",
         "combo/list box: choose item INDEX (from 0);\n"
         "option button array: click member INDEX;\n"
         "check box: 1 checks, 0 clears (by a click)",
         &Driver::cmdSelect},
        {"advance", "advance MS",
         "run the timers on the virtual clock for MS ms\n(0 to 86400000, one day)",
         &Driver::cmdAdvance},
        {"answer", "answer Yes|No|OK|Cancel", "queue the answer to the next message box",
         &Driver::cmdAnswer},
        {"get", "get FORM.CONTROL[(INDEX)].PROPERTY",
         "print one value: a control's property (Caption,\n"
         "StatusBar1.Panels(2), ...), ...",
         &Driver::cmdGet},
        {"get", "get FORM.PROPERTY", "... a form's (Caption, Width, WindowState, ...)",
         &Driver::cmdGet},
        {"get", "get VARIABLE", "... or a program-wide variable (listed below)", &Driver::cmdGet},
        {"dump", "dump FORM", "the form and every control with its properties,\none line each",
         &Driver::cmdDump},
        {"log", "log",
         "what happened outside since the last log\n"
         "(message boxes, sounds, music, forms shown ...)",
         &Driver::cmdLog},
        {"resize", "resize FORM W H", "set the window's outer size in twips", &Driver::cmdResize},
        {"minimize", "minimize FORM", "minimise the window", &Driver::cmdMinimize},
        {"maximize", "maximize FORM", "maximise the window", &Driver::cmdMaximize},
        {"restore", "restore FORM", "bring the window back to its normal size",
         &Driver::cmdRestore},
        {"close", "close FORM", "the window's close box", &Driver::cmdClose},
        {"echo", "echo TEXT", "print TEXT (a marker in transcripts)", &Driver::cmdEcho},
        {"variables", "variables", "list the variables get knows", &Driver::cmdVariables},
        {"watch", "watch FORM[.CONTROL].PROPERTY",
         "print 'watch @MSms NAME = VALUE' whenever it\n"
         "changes, even inside a handler (MS: virtual time)",
         &Driver::cmdWatch},
        {"unwatch", "unwatch [FORM[.CONTROL].PROPERTY]", "stop watching it (all without a name)",
         &Driver::cmdUnwatch},
    };
    return table;
}

std::vector<std::string> Driver::commandHelp() {
    // Usage in one column, what it does in the next; long usages get their own line.
    constexpr std::size_t kColumn = 36;
    std::vector<std::string> out;
    for (const auto& c : commands()) {
        std::string line = c.usage;
        if (line.size() + 1 > kColumn) {
            out.push_back(line);
            line.clear();
        }
        std::string what = c.description;
        std::size_t from = 0;
        while (true) {
            const auto nl = what.find('\n', from);
            line.resize(kColumn, ' ');
            line += what.substr(from, nl == std::string::npos ? std::string::npos : nl - from);
            out.push_back(line);
            line.clear();
            if (nl == std::string::npos)
                break;
            from = nl + 1;
        }
    }
    return out;
}

void Driver::userInput(const std::string& args, const char* usage,
                       bool (*input)(Control&, std::string*), bool textBoxOnly) {
    const auto w = words(args);
    if (w.size() != 1)
        return error(std::string("usage: ") + usage);
    Control* c = findControl(w[0]);
    if (!c)
        return;
    if (textBoxOnly && !dynamic_cast<TextBox*>(c))
        return error(c->form().name() + "." + c->fullName() + " is a " + kindText(*c) +
                     ", not a text box");
    std::string why;
    if (!input(*c, &why))
        error(why);
}

void Driver::cmdClick(const std::string& args) {
    userInput(args, "click FORM.CONTROL[(INDEX)]", userClick);
}

void Driver::cmdDblClick(const std::string& args) {
    userInput(args, "dblclick FORM.CONTROL[(INDEX)]", userDblClick);
}

void Driver::cmdEnter(const std::string& args) {
    userInput(args, "enter FORM.CONTROL", userKeyEnter, true);
}

void Driver::cmdType(const std::string& args) {
    // The text is everything after the one blank that ends the control's name.
    const auto blank = args.find_first_of(" \t");
    const std::string ref = args.substr(0, blank);
    const std::string text = blank == std::string::npos ? std::string() : args.substr(blank + 1);
    if (ref.empty())
        return error("usage: type FORM.CONTROL TEXT");
    Control* c = findControl(ref);
    if (!c)
        return;
    auto* box = dynamic_cast<TextBox*>(c);
    if (!box)
        return error(c->form().name() + "." + c->fullName() + " is a " + kindText(*c) +
                     ", not a text box");
    std::string why;
    if (!reachable(*box, why))
        return error(why);
    if (box->locked())
        return error(box->form().name() + "." + box->fullName() + " is locked");
    box->setText(text);
}

void Driver::cmdKey(const std::string& args) {
    const auto w = words(args);
    Key key;
    if (w.size() != 2)
        return error("usage: key FORM Enter|Escape|Tab|Shift+Tab|Space|Left|Right|Up|Down");
    if (!parseKey(w[1], key))
        return error("key takes Enter, Escape, Tab, Shift+Tab, Space or an arrow, not '" +
                     shown(w[1]) + "'");
    Form* form = findForm(w[0]);
    if (!form)
        return;
    std::string why;
    if (!userKey(*form, key, &why))
        error(why);
}

void Driver::cmdKeys(const std::string& args) {
    const auto blank = args.find_first_of(" \t");
    const std::string name = args.substr(0, blank);
    const std::string text = blank == std::string::npos ? std::string() : args.substr(blank + 1);
    if (name.empty() || text.empty())
        return error("usage: keys FORM TEXT");
    Form* form = findForm(name);
    if (!form)
        return;
    auto* box = dynamic_cast<TextBox*>(form->activeControl());
    if (!box)
        return error(form->name() + " has no text box with the focus");
    std::string why;
    if (!userType(*box, text, &why))
        error(why);
}

void Driver::cmdSelect(const std::string& args) {
    const auto w = words(args);
    if (w.empty() || w.size() > 2)
        return error("usage: select FORM.CONTROL INDEX");
    const std::string& ref = w[0];
    const std::string number = w.size() == 2 ? w[1] : std::string();
    std::int64_t n = 0;
    if (!number.empty() && !parseWhole(number, 0, 32767, n))
        return error("bad index '" + shown(number) + "'");

    // An option button array by its bare name: the index picks the member.
    const auto dot = ref.find('.');
    if (dot != std::string::npos && ref.find('(') == std::string::npos) {
        Form* form = program_.findForm(ref.substr(0, dot));
        const std::string name = ref.substr(dot + 1);
        if (form && !form->find(name, -1) && !number.empty()) {
            Control* member = form->find(name, static_cast<int>(n));
            if (member && member->kind() == ControlKind::OptionButton) {
                std::string why;
                if (!userClick(*member, &why))
                    error(why);
                return;
            }
        }
    }

    Control* c = findControl(ref);
    if (!c)
        return;
    std::string why;
    if (auto* list = dynamic_cast<ListControl*>(c)) {
        if (number.empty())
            return error("usage: select FORM.CONTROL INDEX");
        const auto count = static_cast<std::int64_t>(list->items().size());
        if (n >= count)
            return error(c->form().name() + "." + c->fullName() + " has " + std::to_string(count) +
                         " items: no item " + std::to_string(n));
        if (!reachable(*list, why))
            return error(why);
        list->setListIndex(static_cast<int>(n));
        return;
    }
    if (c->kind() == ControlKind::OptionButton) {
        if (!number.empty() && n != 1)
            return error("an option button is cleared by selecting another: use 1 or nothing");
        if (!userClick(*c, &why))
            error(why);
        return;
    }
    if (c->kind() == ControlKind::CheckBox) {
        if (number.empty() || n > 1)
            return error("a check box takes 1 (checked) or 0 (clear)");
        if (c->checked() == (n == 1)) {
            // Already so; a user would not click, but a hidden or disabled box is still an error.
            if (!reachable(*c, why))
                error(why);
            return;
        }
        if (!userClick(*c, &why))
            error(why);
        return;
    }
    error(c->form().name() + "." + c->fullName() + " is a " + kindText(*c) +
          ": select works on combo and list boxes, option buttons and check boxes");
}

void Driver::cmdAdvance(const std::string& args) {
    std::int64_t ms = 0;
    const std::string text = trim(args);
    if (!parseWhole(text, 0, kMaxAdvanceMs, ms))
        return error("advance takes whole milliseconds from 0 to " + std::to_string(kMaxAdvanceMs) +
                     ", not '" + shown(text) + "'");
    platform_.advance(ms);
}

void Driver::cmdAnswer(const std::string& args) {
    const std::string a = lower(trim(args));
    if (a == "yes")
        platform_.queueAnswer(MsgResult::Yes);
    else if (a == "no")
        platform_.queueAnswer(MsgResult::No);
    else if (a == "ok")
        platform_.queueAnswer(MsgResult::OK);
    else if (a == "cancel")
        platform_.queueAnswer(MsgResult::Cancel);
    else
        error("answer takes Yes, No, OK or Cancel, not '" + shown(trim(args)) + "'");
}

void Driver::cmdGet(const std::string& args) {
    const auto w = words(args);
    if (w.size() != 1)
        return error("usage: get FORM.CONTROL.PROPERTY | FORM.PROPERTY | VARIABLE");
    const std::string& ref = w[0];
    const auto dot = ref.find('.');
    if (dot == std::string::npos) {
        if (program_.findForm(ref))
            return error("give a property of the form, e.g. " + ref + ".Caption");
        std::string value, why;
        if (!getVariable(program_, ref, value, &why))
            return error(printable(why));
        return print(printable(value));
    }
    Form* form = findForm(ref.substr(0, dot));
    if (!form)
        return;
    const std::string rest = ref.substr(dot + 1);
    const auto dot2 = rest.find('.');
    std::string value;
    if (dot2 == std::string::npos) {
        value = form->property(rest);
        if (value == "\x01")
            return error(form->name() + " has no property '" + shown(rest) + "'");
    } else {
        Control* c = findControl(*form, rest.substr(0, dot2));
        if (!c)
            return;
        const std::string prop = rest.substr(dot2 + 1);
        value = c->property(prop);
        if (value == "\x01")
            return error(form->name() + "." + c->fullName() + " has no property '" + shown(prop) +
                         "'");
    }
    print(printable(value));
}

void Driver::cmdDump(const std::string& args) {
    const auto w = words(args);
    if (w.size() != 1)
        return error("usage: dump FORM");
    Form* form = findForm(w[0]);
    if (!form)
        return;
    std::string line = form->name() + " Form";
    for (const char* p : {"Caption", "Left", "Top", "Width", "Height", "ScaleWidth", "ScaleHeight",
                          "WindowState", "Visible", "Enabled", "MousePointer"})
        line += std::string(" ") + p + "=" + dumpValue(form->property(p));
    print(line);
    for (const auto& c : form->controls()) {
        line = form->name() + "." + c->fullName() + " " + kindText(*c);
        for (const auto& p : c->propertyNames())
            line += " " + p + "=" + dumpValue(c->property(p));
        print(line);
    }
}

void Driver::cmdLog(const std::string& args) {
    if (!trim(args).empty())
        return error("usage: log");
    for (const auto& entry : platform_.takeLog())
        print(printable(entry));
}

void Driver::cmdResize(const std::string& args) {
    const auto w = words(args);
    std::int64_t width = 0, height = 0;
    if (w.size() != 3)
        return error("usage: resize FORM W H");
    if (!parseWhole(w[1], 1, 1000000, width) || !parseWhole(w[2], 1, 1000000, height))
        return error("resize takes a width and height in twips from 1 to 1000000");
    Form* form = findForm(w[0]);
    if (!form)
        return;
    std::string why;
    if (!windowReachable(*form, why))
        return error(why);
    form->setSize(static_cast<int>(width), static_cast<int>(height));
}

void Driver::setWindowState(const std::string& args, WindowState state, const char* verb) {
    const auto w = words(args);
    if (w.size() != 1)
        return error(std::string("usage: ") + verb + " FORM");
    Form* form = findForm(w[0]);
    if (!form)
        return;
    std::string why;
    if (!windowReachable(*form, why))
        return error(why);
    form->setWindowState(state);
}

void Driver::cmdMinimize(const std::string& args) {
    setWindowState(args, WindowState::Minimized, "minimize");
}
void Driver::cmdMaximize(const std::string& args) {
    setWindowState(args, WindowState::Maximized, "maximize");
}
void Driver::cmdRestore(const std::string& args) {
    setWindowState(args, WindowState::Normal, "restore");
}

void Driver::cmdClose(const std::string& args) {
    const auto w = words(args);
    if (w.size() != 1)
        return error("usage: close FORM");
    Form* form = findForm(w[0]);
    if (!form)
        return;
    std::string why;
    if (!windowReachable(*form, why))
        return error(why);
    if (platform_.onCloseRequest)
        platform_.onCloseRequest(*form);
}

void Driver::cmdEcho(const std::string& args) {
    print(printable(args));
}

void Driver::cmdVariables(const std::string& args) {
    if (!trim(args).empty())
        return error("usage: variables");
    for (const auto& name : variableNames())
        print(name);
}

}  // namespace corvanna::drive
