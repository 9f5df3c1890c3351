#include "common/frame/SettingBindings.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "common/Format.h"
#include "common/SettingsFile.h"

namespace corvanna {

namespace {

// The range a number of the type can hold at all; past it the value isn't the key's.
bool withinWidth(SettingType type, double v) {
    switch (type) {
        case SettingType::Int16: return v >= INT16_MIN && v <= INT16_MAX;
        case SettingType::Int32: return v >= INT32_MIN && v <= INT32_MAX;
        default: return true;
    }
}

bool parse(const SettingBinding& b, const std::string& text, double& out) {
    switch (b.type) {
        case SettingType::Truth: out = settingsTruth(text) ? 1 : 0; return true;
        case SettingType::Real: return parseReal(text, out);
        case SettingType::Text: return true;
        default: {
            std::int64_t n;
            if (!parseInteger(text, n))
                return false;
            out = static_cast<double>(n);
            return withinWidth(b.type, out);
        }
    }
}

std::string valueText(const SettingBinding& b, Program& prog) {
    if (b.type == SettingType::Text)
        return *std::get<std::string*>(b.variable(prog));
    if (b.type == SettingType::Truth)
        return settingNumber(b, prog) != 0 ? "True" : "False";
    return plainDecimal(settingNumber(b, prog));
}

}  // namespace

SettingBinding formSetting(std::string key, SettingType type) {
    SettingBinding b;
    b.key = std::move(key);
    b.type = type;
    b.hasDefault = false;
    return b;
}

SettingRead readSetting(const SettingBinding& b, const std::string& value, Program& prog,
                        GameFrame* form) {
    double v = 0;
    if (!parse(b, value, v))
        return b.unreadable == Refusal::Damage ? SettingRead::Refused : SettingRead::PassedOver;
    // Written so that a value that is no number at all fails it too.
    if (b.type != SettingType::Text && !(v >= b.low && v <= b.high))
        return b.offLimits == Refusal::Damage ? SettingRead::Refused : SettingRead::PassedOver;
    if (b.variable) {
        if (b.type == SettingType::Text)
            *std::get<std::string*>(b.variable(prog)) = value;
        else
            storeSetting(b, prog, v);
    }
    if (b.handler && form)
        b.handler(*form, v);
    if (b.textHandler && form)
        b.textHandler(*form, value);
    return SettingRead::Taken;
}

bool readSettings(const SettingTable& table, const std::string& text, Program& prog,
                  GameFrame* form) {
    bool damaged = false;
    SettingsReader reader;
    for (const SettingBinding& b : table)
        if (!b.key.empty())
            reader.on(b.key, [&b, &prog, form, &damaged](const std::string& value) {
                if (readSetting(b, value, prog, form) == SettingRead::Refused)
                    damaged = true;
            });
    reader.applyText(text);
    return damaged;
}

std::string settingsText(const SettingTable& table, Program& prog, GameFrame* form) {
    SettingsWriter writer;
    for (const SettingBinding& b : table) {
        if (b.key.empty() || !b.written)
            continue;
        if (b.writes && form)
            writer.add(b.key, b.writes(*form));
        else if (b.variable)
            writer.add(b.key, valueText(b, prog));
    }
    return writer.text();
}

void setSettingDefaults(const SettingTable& table, Program& prog, GameFrame* form) {
    for (const SettingBinding& b : table) {
        if (!b.hasDefault || !b.variable)
            continue;
        if (b.type == SettingType::Text)
            *std::get<std::string*>(b.variable(prog)) = b.textByDefault;
        else
            storeSetting(b, prog, b.byDefault);
    }
    for (const SettingBinding& b : table)
        if (b.hasDefault && !b.variable && b.handler && form)
            b.handler(*form, b.byDefault);
}

bool customScoring(const SettingTable& table, Program& prog) {
    for (const SettingBinding& b : table) {
        if (!b.countsForCustom || !b.variable || !b.countsForCustom(prog))
            continue;
        const bool off = b.type == SettingType::Text
                             ? *std::get<std::string*>(b.variable(prog)) != b.textByDefault
                             : settingNumber(b, prog) != b.byDefault;
        if (off)
            return true;
    }
    return false;
}

const SettingBinding* findSetting(const SettingTable& table, const std::string& key) {
    for (const SettingBinding& b : table)
        if (b.key == key)
            return &b;
    return nullptr;
}

double settingNumber(const SettingBinding& b, Program& prog) {
    if (!b.variable)
        return 0;
    return std::visit(
        [](auto* v) -> double {
            using T = std::remove_pointer_t<decltype(v)>;
            if constexpr (std::is_same_v<T, std::string>)
                return plainNumber(*v);
            else
                return static_cast<double>(*v);
        },
        b.variable(prog));
}

void storeSetting(const SettingBinding& b, Program& prog, double value) {
    if (!b.variable)
        return;
    std::visit(
        [value](auto* v) {
            using T = std::remove_pointer_t<decltype(v)>;
            if constexpr (std::is_same_v<T, bool>) {
                *v = value != 0;
            } else if constexpr (std::is_same_v<T, double>) {
                *v = value;
            } else if constexpr (std::is_same_v<T, std::string>) {
                *v = plainDecimal(value);
            } else {
                // Held within the width first: a huge number has no whole value to round.
                const double held = std::isnan(value)
                                        ? 0
                                        : std::clamp<double>(value, std::numeric_limits<T>::min(),
                                                             std::numeric_limits<T>::max());
                *v = static_cast<T>(roundHalfEven(held));
            }
        },
        b.variable(prog));
}

std::string plainDecimal(double value) {
    char buf[400];
    const auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::fixed);
    return r.ec == std::errc() ? std::string(buf, r.ptr) : std::string("0");
}

}  // namespace corvanna
