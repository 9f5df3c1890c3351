#include "testkit/SoakBots.h"

#include "common/Program.h"
#include "forms/Input.h"
#include "games/tierfall/frmTierfall.h"
#include "testkit/TierfallBot.h"
#include "virtual/FakePlatform.h"

namespace corvanna {

namespace {

// Tierfall's bot, and its card goal and scoring mode menus between games: each pair of
// the two has tables of its own.
class TierfallSoakBot : public SoakBot {
public:
    TierfallSoakBot(Program& prog, FakePlatform& fake, frmTierfall& form, std::uint64_t seed)
        : prog_(prog), fake_(fake), form_(form), bot_(prog, fake, form, seed) {}

    std::int64_t playGame() override { return bot_.playGame(); }
    std::string fault() const override { return bot_.fault().empty() ? fault_ : bot_.fault(); }
    long long clicks() const override { return bot_.clicks() + clicks_; }

    void changeOptions(std::mt19937_64& rng) override {
        if (std::uniform_int_distribution<int>(0, 1)(rng) == 0)
            changeCardGoal(rng);
        else
            toggleScoringMode();
    }

    std::string options() const override {
        const TierfallValues& t = form_.values();
        return "card goal " + std::to_string(t.CardGoal) + ", " +
               (t.EnhancedScoring ? "enhanced" : "standard") + " scoring";
    }

private:
    void note(const std::string& what) {
        if (fault_.empty())
            fault_ = what;
    }

    bool click(Control* control, const std::string& what) {
        if (!control) {
            note("no control " + what);
            return false;
        }
        ++clicks_;
        std::string why;
        if (!userClick(*control, &why)) {
            note("refused: " + why);
            return false;
        }
        return true;
    }

    void changeCardGoal(std::mt19937_64& rng) {
        const int old = form_.values().CardGoal;
        int goal = old;
        while (goal == old)
            goal = std::uniform_int_distribution<int>(10, 15)(rng);
        if (!click(form_.mnuGoals[static_cast<std::size_t>(goal - 10)],
                   "mnu" + std::to_string(goal)))
            return;
        if (form_.values().CardGoal != goal)
            note("mnu" + std::to_string(goal) + " left the card goal at " +
                 std::to_string(form_.values().CardGoal));
    }

    // The dialog's check box, then OK: the bonuses follow the mode's defaults.
    void toggleScoringMode() {
        const bool was = form_.values().EnhancedScoring;
        bool shown = false;
        fake_.queueModal([this, &shown](Form& dialog) {
            shown = true;
            if (dialog.name() != "frmTierfallCustomScoring") {
                note("mnuScoring opened " + dialog.name());
                prog_.requestUnload(dialog);
                return;
            }
            if (click(dialog.find("chkScoring"), "chkScoring"))
                click(dialog.find("cmdOK"), "cmdOK");
        });
        if (!click(&form_.mnuCustom, "mnuScoring"))
            return;
        if (!shown)
            note("mnuScoring showed no dialog");
        else if (form_.values().EnhancedScoring == was)
            note("the scoring dialog's OK left the scoring mode as it was");
    }

    Program& prog_;
    FakePlatform& fake_;
    frmTierfall& form_;
    TierfallBot bot_;
    std::string fault_;
    long long clicks_ = 0;
};

std::vector<SoakBotEntry> makeBots() {
    return {
        {"frmTierfall",
         [](Program& prog, FakePlatform& fake, GameFrame& form,
            std::uint64_t seed) -> std::unique_ptr<SoakBot> {
             auto* tierfall = dynamic_cast<frmTierfall*>(&form);
             if (!tierfall)
                 return nullptr;
             return std::make_unique<TierfallSoakBot>(prog, fake, *tierfall, seed);
         }},
    };
}

}  // namespace

const std::vector<SoakBotEntry>& soakBots() {
    static const std::vector<SoakBotEntry> bots = makeBots();
    return bots;
}

const SoakBotEntry* findSoakBot(const std::string& formName) {
    for (const SoakBotEntry& b : soakBots())
        if (b.formName == formName)
            return &b;
    return nullptr;
}

}  // namespace corvanna
