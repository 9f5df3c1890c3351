// Tierfall's own variables for the driver's `get`: the scoring values kept
// program-wide, and the board read from the form while it is loaded.

#include "common/Program.h"
#include "common/Variables.h"
#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/frmTierfall.h"

namespace corvanna {

namespace {

using P = const Program&;

const TierfallBoard& boardOf(P p) {
    static const TierfallBoard none;  // no form: an empty board
    const auto* form = dynamic_cast<const frmTierfall*>(p.findForm("frmTierfall"));
    return form ? form->board : none;
}

// Name(N) over an array that starts at `first`.
template <class Array>
bool at(const Array& a, int index, int first, std::string& out) {
    if (index < first || index >= static_cast<int>(a.size()))
        return false;
    out = a[static_cast<std::size_t>(index)];
    return true;
}

}  // namespace

void addTierfallVariables() {
    addVariable("CardGoal", [](P p) { return numberText(tierfallValues(p).CardGoal); });
    addVariable("EnhancedScoring", [](P p) { return flagText(tierfallValues(p).EnhancedScoring); });
    addVariable("CompletionBonus",
                [](P p) { return numberText(tierfallValues(p).CompletionBonus); });
    addVariable("ElevensBonus", [](P p) { return numberText(tierfallValues(p).ElevensBonus); });
    addVariable("ElevensBonusES", [](P p) { return numberText(tierfallValues(p).ElevensBonusES); });
    addVariable("CardBonus", [](P p) { return numberText(tierfallValues(p).CardBonus); });
    addVariable("LastScore", [](P p) { return numberText(tierfallValues(p).LastScore); });
    addVariable("ReplayRequested", [](P p) { return flagText(tierfallValues(p).ReplayRequested); });
    for (int round = 1; round <= 3; ++round) {
        addIndexedVariable("Round" + std::to_string(round) + "Deck",
                           [round](P p, int i, std::string& out) {
                               return at(tierfallValues(p).RoundDecks[round - 1], i, 1, out);
                           });
    }
    addVariable("UpCount", [](P p) { return numberText(boardOf(p).UpCount); });
    addVariable("PlayPileTop", [](P p) { return numberText(boardOf(p).PlayPileTop); });
    addVariable("CardTotal", [](P p) { return numberText(boardOf(p).CardTotal); });
    addVariable("GoalCount", [](P p) { return numberText(boardOf(p).GoalCount); });
    addVariable("UpCardUsed", [](P p) { return flagText(boardOf(p).UpCardUsed); });
    addIndexedVariable("FieldCards", [](P p, int i, std::string& out) {
        return at(boardOf(p).FieldCards, i, 0, out);
    });
    addIndexedVariable(
        "UpCards", [](P p, int i, std::string& out) { return at(boardOf(p).UpCards, i, 0, out); });
    addIndexedVariable("PlayPile", [](P p, int i, std::string& out) {
        return at(boardOf(p).PlayPile, i, 0, out);
    });
}

}  // namespace corvanna
