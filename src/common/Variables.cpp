#include "common/Variables.h"

#include <charconv>
#include <cstdio>
#include <string_view>

#include "common/Program.h"

namespace corvanna {

namespace {

struct Variable {
    std::string name;
    VariableGetter get;           // plain variables
    IndexedVariableGetter getAt;  // arrays: Name(N)
};

std::string dateTime(const DateTime& t) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour,
                  t.minute, t.second);
    return buf;
}

std::string wholeDeck(const Program& p) {
    std::string out;
    for (std::size_t i = 1; i < p.state.Deck.size(); ++i) {
        if (i > 1)
            out += ' ';
        out += p.state.Deck[i];
    }
    return out;
}

bool deckAt(const Program& p, int i, std::string& out) {
    if (i < 1 || i > p.state.deckUpperBound())
        return false;
    out = p.state.Deck[static_cast<std::size_t>(i)];
    return true;
}

// The shared variables, one line each. A game's own come through addVariable.
std::vector<Variable>& table() {
    using P = const Program&;
    static std::vector<Variable> vars{
        {"AppTitle", [](P p) { return p.state.AppTitle; }, {}},
        {"AppPath", [](P p) { return p.state.AppPath; }, {}},
        {"Score", [](P p) { return numberText(p.state.Score); }, {}},
        {"RoundSeconds", [](P p) { return numberText(p.state.RoundSeconds); }, {}},
        {"ElapsedSeconds", [](P p) { return numberText(p.state.ElapsedSeconds); }, {}},
        {"ClockSeconds", [](P p) { return numberText(p.state.ClockSeconds); }, {}},
        {"RoundNumber", [](P p) { return numberText(p.state.RoundNumber); }, {}},
        {"GameInProgress", [](P p) { return flagText(p.state.GameInProgress); }, {}},
        {"TakingScore", [](P p) { return flagText(p.state.TakingScore); }, {}},
        {"SoundsOn", [](P p) { return flagText(p.state.SoundsOn); }, {}},
        {"MusicOn", [](P p) { return flagText(p.state.MusicOn); }, {}},
        {"CountDownScore", [](P p) { return flagText(p.state.CountDownScore); }, {}},
        {"DeckBack", [](P p) { return numberText(p.state.DeckBack); }, {}},
        {"TimeBonus", [](P p) { return numberText(p.state.TimeBonus); }, {}},
        {"BonusRoundScore", [](P p) { return numberText(p.state.BonusRoundScore); }, {}},
        {"CustomScoring", [](P p) { return flagText(p.state.CustomScoring); }, {}},
        {"SkipHighScoreUpdate", [](P p) { return flagText(p.state.SkipHighScoreUpdate); }, {}},
        {"NewHighScoreRow", [](P p) { return numberText(p.state.NewHighScoreRow); }, {}},
        {"GamesPlayedCount", [](P p) { return numberText(p.state.GamesPlayedCount); }, {}},
        {"UserName", [](P p) { return p.state.UserName; }, {}},
        {"UserHometown", [](P p) { return p.state.UserHometown; }, {}},
        {"UserState", [](P p) { return p.state.UserState; }, {}},
        {"UserCountry", [](P p) { return p.state.UserCountry; }, {}},
        {"FormLoadTime", [](P p) { return dateTime(p.state.FormLoadTime); }, {}},
        {"Deck", wholeDeck, deckAt},
    };
    return vars;
}

Variable* findVariable(std::string_view name) {
    for (auto& v : table())
        if (v.name == name)
            return &v;
    return nullptr;
}

void put(const std::string& name, VariableGetter get, IndexedVariableGetter getAt) {
    if (Variable* v = findVariable(name)) {
        if (get)
            v->get = std::move(get);
        if (getAt)
            v->getAt = std::move(getAt);
        return;
    }
    table().push_back({name, std::move(get), std::move(getAt)});
}

}  // namespace

bool getVariable(const Program& prog, const std::string& name, std::string& out, std::string* why) {
    auto fail = [&](const std::string& reason) {
        if (why)
            *why = reason;
        return false;
    };
    const auto open = name.find('(');
    if (open == std::string::npos) {
        const Variable* v = findVariable(name);
        if (!v || !v->get)
            return fail("unknown variable " + name);
        out = v->get(prog);
        return true;
    }
    const std::string base = name.substr(0, open);
    const Variable* v = findVariable(base);
    if (!v || !v->getAt)
        return fail("unknown array variable " + base);
    if (name.back() != ')')
        return fail("bad index in " + name);
    const char* first = name.data() + open + 1;
    const char* last = name.data() + name.size() - 1;
    int index = 0;
    const auto r = std::from_chars(first, last, index);
    if (first == last || r.ec != std::errc() || r.ptr != last)
        return fail("bad index in " + name);
    if (!v->getAt(prog, index, out))
        return fail("index out of range in " + name);
    return true;
}

std::vector<std::string> variableNames() {
    std::vector<std::string> names;
    for (const auto& v : table()) {
        if (v.get)
            names.push_back(v.name);
        if (v.getAt)
            names.push_back(v.name + "(N)");
    }
    return names;
}

std::string numberText(long long v) {
    return std::to_string(v);
}

std::string flagText(bool b) {
    return b ? "True" : "False";
}

void addVariable(const std::string& name, VariableGetter get) {
    put(name, std::move(get), {});
}

void addIndexedVariable(const std::string& name, IndexedVariableGetter get) {
    put(name, {}, std::move(get));
}

}  // namespace corvanna
