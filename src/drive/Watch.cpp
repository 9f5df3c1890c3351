// Watches: a property printed as it changes. A round's messages come and go
// inside one timer tick (the flashes are blocking waits), so a script that only
// asks between commands would never see "Times Up!"; a watch listens as the
// window does.

#include "drive/DriveText.h"
#include "drive/Driver.h"

namespace corvanna::drive {

void Driver::changed(Watch& w) {
    const std::string now =
        w.control ? w.control->property(w.property) : w.form->property(w.property);
    if (now == w.last)
        return;
    w.last = now;
    print("watch @" + std::to_string(platform_.elapsedMs()) + "ms " + w.label + " = " +
          printable(now));
}

void Driver::dropWatch(Watch& w) {
    if (!w.alive)
        return;
    w.alive = false;
    if (w.control)
        w.control->unsubscribe(w.subscription);
    else
        w.form->unsubscribe(w.subscription);
}

void Driver::cmdWatch(const std::string& args) {
    const std::string ref = trim(args);
    const auto dot = ref.find('.');
    if (ref.empty() || ref.find_first_of(" \t") != std::string::npos || dot == std::string::npos)
        return error("usage: watch FORM[.CONTROL].PROPERTY");
    Form* form = findForm(ref.substr(0, dot));
    if (!form)
        return;
    auto w = std::make_unique<Watch>();
    w->form = form;
    const std::string rest = ref.substr(dot + 1);
    const auto dot2 = rest.find('.');
    if (dot2 == std::string::npos) {
        w->property = rest;
        w->last = form->property(rest);
    } else {
        w->control = findControl(*form, rest.substr(0, dot2));
        if (!w->control)
            return;
        w->property = rest.substr(dot2 + 1);
        w->last = w->control->property(w->property);
    }
    if (w->last == "\x01")
        return error("no property '" + shown(w->property) + "' to watch in " + shown(ref));
    w->label = form->name() + "." + (w->control ? w->control->fullName() + "." : "") + w->property;
    for (auto& old : watches_)
        if (old->alive && old->label == w->label)
            return;  // already watched
    Watch* raw = w.get();
    // The form or control may go before the watch does: then it just stops.
    if (w->control)
        w->subscription = w->control->subscribe([this, raw](Control&, Prop p) {
            if (p == Prop::Destroyed)
                raw->alive = false;
            else
                changed(*raw);
        });
    else
        w->subscription = form->subscribe([this, raw](Form&, Prop p) {
            if (p == Prop::Destroyed)
                raw->alive = false;
            else
                changed(*raw);
        });
    print("watch @" + std::to_string(platform_.elapsedMs()) + "ms " + w->label + " = " +
          printable(w->last));
    watches_.push_back(std::move(w));
}

void Driver::cmdUnwatch(const std::string& args) {
    const std::string ref = trim(args);
    bool found = false;
    for (auto& w : watches_) {
        if (!ref.empty() && w->label != ref)
            continue;
        found = found || w->alive;
        dropWatch(*w);
    }
    std::erase_if(watches_, [](const auto& w) { return !w->alive; });
    if (!ref.empty() && !found)
        error("'" + shown(ref) + "' is not watched");
}

}  // namespace corvanna::drive
