#include "games/tierfall/TierfallBot.h"

#include <vector>

#include "common/Cards.h"
#include "forms/Input.h"
#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/frmTierfall.h"

namespace corvanna {

namespace {
// Enough for any round: a board, the pile and some second thoughts.
constexpr int kActionsPerRound = 400;
}  // namespace

std::unique_ptr<GameBot> makeTierfallBot(Program& prog, FakePlatform& fake, GameFrame& form,
                                         std::uint64_t seed) {
    auto* tierfall = dynamic_cast<frmTierfall*>(&form);
    if (!tierfall)
        return nullptr;
    return std::make_unique<TierfallBot>(prog, fake, *tierfall, seed);
}

TierfallBot::TierfallBot(Program& prog, FakePlatform& fake, frmTierfall& form, std::uint64_t seed)
    : ClickBot(prog, fake), form_(form), rng_(seed) {}

std::int64_t TierfallBot::playGame() {
    auto& g = prog_.state;
    if (!click(&form_.cmdPlay, "cmdPlay"))
        return g.Score;
    for (int round = 0; g.GameInProgress && round < 3; ++round)
        playRound();
    if (g.GameInProgress)
        note("the game didn't end after three rounds");
    for (const std::string& e : fake_.takeErrors())
        note(e);
    fake_.takeLog();
    return form_.values().LastScore;
}

void TierfallBot::playRound() {
    auto& g = prog_.state;
    TierfallBoard& b = form_.board;
    const int round = g.RoundNumber;
    std::uniform_int_distribution<int> permille(0, 999);
    for (int action = 0; action < kActionsPerRound; ++action) {
        if (!g.GameInProgress || g.RoundNumber != round)
            return;  // the board was cleared, or the clock ran out
        const int roll = permille(rng_);
        if (roll < 4) {
            click(form_.cmdTakeScore, "cmdTakeScore");
            return;
        }
        if (roll < 50) {
            // The clock moves on, sometimes past the end of the round.
            fake_.advance(std::uniform_int_distribution<int>(100, 12000)(rng_));
            continue;
        }
        // A card that keeps the total within the goal, or one already selected.
        std::vector<Control*> moves;
        for (int s = 0; s < TierfallBoard::kSlots; ++s)
            if (b.playable(s) &&
                (b.selected[s] || b.CardTotal + cardRank(b.FieldCards[s]) <= b.CardGoal))
                moves.push_back(form_.FieldCardPicture[s]);
        if (!b.upCardEmpty() &&
            (b.upCardSelected || b.CardTotal + cardRank(b.upCard()) <= b.CardGoal))
            moves.push_back(&form_.UpCardPicture);
        if (b.cardsLeft() > 0 && (moves.empty() || roll < 150))
            moves.push_back(&form_.PlayCardPicture);
        if (moves.empty()) {
            click(form_.cmdTakeScore, "cmdTakeScore");
            return;
        }
        // Mostly a card that reaches the goal when there is one, as a player would.
        if (roll < 800) {
            Control* finishing = nullptr;
            for (int s = 0; s < TierfallBoard::kSlots && !finishing; ++s)
                if (b.playable(s) && !b.selected[s] &&
                    b.CardTotal + cardRank(b.FieldCards[s]) == b.CardGoal)
                    finishing = form_.FieldCardPicture[s];
            if (!finishing && !b.upCardEmpty() && !b.upCardSelected &&
                b.CardTotal + cardRank(b.upCard()) == b.CardGoal)
                finishing = &form_.UpCardPicture;
            if (finishing) {
                click(finishing, "the card that reaches the goal");
                continue;
            }
        }
        click(moves[std::uniform_int_distribution<std::size_t>(0, moves.size() - 1)(rng_)],
              "a card");
    }
    if (g.GameInProgress && g.RoundNumber == round)
        click(form_.cmdTakeScore, "cmdTakeScore");
}

void TierfallBot::changeOptions(std::mt19937_64& rng) {
    if (std::uniform_int_distribution<int>(0, 1)(rng) == 0)
        changeCardGoal(rng);
    else
        toggleScoringMode();
}

std::string TierfallBot::options() const {
    const TierfallValues& t = form_.values();
    return "card goal " + std::to_string(t.CardGoal) + ", " +
           (t.EnhancedScoring ? "enhanced" : "standard") + " scoring";
}

void TierfallBot::changeCardGoal(std::mt19937_64& rng) {
    const int old = form_.values().CardGoal;
    int goal = old;
    while (goal == old)
        goal = std::uniform_int_distribution<int>(10, 15)(rng);
    if (!click(form_.mnuGoals[static_cast<std::size_t>(goal - 10)], "mnu" + std::to_string(goal)))
        return;
    if (form_.values().CardGoal != goal)
        note("mnu" + std::to_string(goal) + " left the card goal at " +
             std::to_string(form_.values().CardGoal));
}

// The dialog's check box, then OK: the bonuses follow the mode's defaults.
void TierfallBot::toggleScoringMode() {
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

}  // namespace corvanna
