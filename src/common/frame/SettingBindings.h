#pragma once
// A game's settings as data: one binding per key of its settings file, in the order
// its writer keeps them. From the table come the reader and the writer of the file,
// the defaults a form loads with, CheckForCustom and a scoring dialog's Default.

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "common/Program.h"

namespace corvanna {

class GameFrame;

enum class SettingType { Truth, Int16, Int32, Real, Text };

// What a value the binding can't take does to the file.
enum class Refusal {
    Damage,    // the default stays and the file is kept aside (".bad") before it is rewritten
    PassOver,  // the default stays, and that is all
};

struct SettingBinding {
    using Variable = std::variant<bool*, std::int16_t*, std::int32_t*, double*, std::string*>;

    // Without brackets. Empty: a value the game sets at load but keeps in no file.
    std::string key;
    SettingType type = SettingType::Int32;
    // Where the value lives; empty for one the form holds (the time menu, the window).
    std::function<Variable(Program&)> variable;
    // Inclusive; a number of the type's width outside them is refused.
    double low = -std::numeric_limits<double>::infinity();
    double high = std::numeric_limits<double>::infinity();
    double byDefault = 0;  // truth values as 0 and 1
    std::string textByDefault;
    bool hasDefault = true;
    Refusal unreadable = Refusal::Damage;  // not of the type, or past its width
    Refusal offLimits = Refusal::Damage;
    bool written = true;
    // Whether a value off its default marks high scores as custom, and when (a scoring
    // mode's own value counts only in its mode). Empty: never.
    std::function<bool(const Program&)> countsForCustom;
    // Runs after a value read (or the default of a binding without a variable) is taken:
    // a menu check, the form's own handler.
    std::function<void(GameFrame&, double)> handler;
    // A text key's handler, given the text as the file had it (a key read by its own rule).
    std::function<void(GameFrame&, const std::string&)> textHandler;
    // What is written for a value the form holds.
    std::function<std::string(GameFrame&)> writes;

    SettingBinding& limits(double lowest, double highest) {
        low = lowest, high = highest;
        return *this;
    }
    SettingBinding& passOverOffLimits() {
        offLimits = Refusal::PassOver;
        return *this;
    }
    SettingBinding& passOverAnything() {
        unreadable = offLimits = Refusal::PassOver;
        return *this;
    }
    SettingBinding& custom() {
        countsForCustom = [](const Program&) { return true; };
        return *this;
    }
    SettingBinding& customWhen(std::function<bool(const Program&)> when) {
        countsForCustom = std::move(when);
        return *this;
    }
    SettingBinding& then(std::function<void(GameFrame&, double)> apply) {
        handler = std::move(apply);
        return *this;
    }
    SettingBinding& thenText(std::function<void(GameFrame&, const std::string&)> apply) {
        textHandler = std::move(apply);
        return *this;
    }
    SettingBinding& readOnly() {
        written = false;
        return *this;
    }
    SettingBinding& notInFile() {
        key.clear();
        countsForCustom = nullptr;
        return *this;
    }
};

using SettingTable = std::vector<SettingBinding>;

// A key bound to a member of the program-wide variables (AppState) or of a game's own
// values (Program::gameValues): the type and width follow the member's.
template <class Store, class T>
SettingBinding setting(std::string key, T Store::*member, std::type_identity_t<T> byDefault) {
    SettingBinding b;
    b.key = std::move(key);
    b.variable = [member](Program& prog) -> SettingBinding::Variable {
        return &(prog.storeOf<Store>().*member);
    };
    if constexpr (std::is_same_v<T, bool>) {
        b.type = SettingType::Truth;
        b.byDefault = byDefault ? 1 : 0;
    } else if constexpr (std::is_same_v<T, std::int16_t>) {
        b.type = SettingType::Int16;
        b.byDefault = byDefault;
    } else if constexpr (std::is_same_v<T, std::int32_t>) {
        b.type = SettingType::Int32;
        b.byDefault = byDefault;
    } else if constexpr (std::is_same_v<T, double>) {
        b.type = SettingType::Real;
        b.byDefault = byDefault;
    } else {
        static_assert(std::is_same_v<T, std::string>, "a setting is a truth, number or text");
        b.type = SettingType::Text;
        b.textByDefault = byDefault;
    }
    return b;
}

// A key whose value the form holds: read through `then`, written through `writes`.
SettingBinding formSetting(std::string key, SettingType type);

// ---- The frame's keys (FrameSettings.cpp): the same in every game but for their names.
// [Time]: an entry of the time menu; a number the menu lacks changes nothing.
SettingBinding timeSetting(std::string key, std::int16_t seconds);
SettingBinding soundsSetting();
SettingBinding musicSetting();
SettingBinding countDownSetting(std::string key);
SettingBinding bonusScoreSetting(std::string key, std::int32_t score);
SettingBinding timeBonusSetting(std::int32_t points);
// [Deck]: DeckBack 1 to 4 by the game's numbering; anything else is passed over.
SettingBinding deckSetting(std::int16_t deckBack);
SettingBinding stateSetting();
// The window's size; a maximised window writes the game's table size.
SettingBinding widthSetting();
SettingBinding heightSetting();

// ---- What the table gives.
enum class SettingRead { Taken, PassedOver, Refused };
// Applies one value as read from the file: taken, passed over, or refused as damage. A
// binding's handler runs only with a form.
SettingRead readSetting(const SettingBinding& b, const std::string& value, Program& prog,
                        GameFrame* form);
// Applies the whole text of a file; true when a value was refused as damage.
bool readSettings(const SettingTable& table, const std::string& text, Program& prog,
                  GameFrame* form);
// The file's text: every written key in the table's order.
std::string settingsText(const SettingTable& table, Program& prog, GameFrame* form);
// Every variable takes its default; then a binding without one gets its default through
// its handler (the time menu), once the rest are in place.
void setSettingDefaults(const SettingTable& table, Program& prog, GameFrame* form);
// True when a value that counts is off its default.
bool customScoring(const SettingTable& table, Program& prog);

const SettingBinding* findSetting(const SettingTable& table, const std::string& key);
// A number variable's value (truth values as 0 and 1), and a store that holds the value
// within the variable's width, whole numbers rounded half to even.
double settingNumber(const SettingBinding& b, Program& prog);
void storeSetting(const SettingBinding& b, Program& prog, double value);
// A number as a settings file and a dialog field show it: plain decimals, no exponent.
std::string plainDecimal(double value);

}  // namespace corvanna
