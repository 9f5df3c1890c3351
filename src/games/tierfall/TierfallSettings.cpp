// Tierfall.Ini: its keys in the writer's order, with their defaults and what counts as
// custom scoring.

#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/modTierfall.h"

namespace corvanna {

namespace {

frmTierfall& tierfall(GameFrame& form) {
    return static_cast<frmTierfall&>(form);
}

bool enhanced(const Program& prog) {
    return tierfallValues(prog).EnhancedScoring;
}

}  // namespace

SettingTable TierfallSettings(const GameInfo& row) {
    using T = TierfallValues;
    return {
        // The colour menu's handler: another number changes nothing.
        setting("Color", &T::SelectionColorIndex, 1)
            .limits(0, 5)
            .passOverOffLimits()
            .then([](GameFrame& f, double v) { tierfall(f).SelectionColor(static_cast<int>(v)); }),
        musicSetting(),
        timeSetting("Time", row.defaultSeconds),
        countDownSetting("DrawTimer"),
        soundsSetting(),
        // A goal off the menu stays the goal, with no entry checked.
        setting("CardGoal", &T::CardGoal, T::kDefaultCardGoal).then([](GameFrame& f, double v) {
            frmTierfall& form = tierfall(f);
            if (v >= 10 && v <= 15)
                form.lblElevens.setCaption(frmTierfall::GoalCaption(static_cast<int>(v)));
            form.ClearGoalCheck();
        }),
        bonusScoreSetting("Bonus Round Score", row.defaultBonusRoundScore),
        setting("Completion Bonus", &T::CompletionBonus, T::kDefaultCompletionBonus).custom(),
        // Each mode's combination bonus counts in its own mode only.
        setting("Elevens Bonus", &T::ElevensBonus, T::kDefaultElevensBonus)
            .customWhen([](const Program& p) { return !enhanced(p); }),
        setting("Elevens Bonus ES", &T::ElevensBonusES, T::kDefaultElevensBonusES)
            .customWhen(enhanced),
        timeBonusSetting(row.defaultTimeBonus),
        stateSetting(),
        setting("New Score Mode", &T::EnhancedScoring, true),
        widthSetting(),
        heightSetting(),
        deckSetting(row.defaultDeckBack),
        // Ours: the card bonus a player sets is kept and counts like the others.
        setting("Card Bonus", &T::CardBonus, T::kDefaultCardBonus).custom(),
    };
}

}  // namespace corvanna
