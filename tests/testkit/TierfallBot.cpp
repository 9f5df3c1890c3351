#include "testkit/TierfallBot.h"

#include <vector>

#include "common/Cards.h"
#include "forms/Input.h"
#include "games/tierfall/frmTierfall.h"

namespace corvanna {

namespace {
// Enough for any round: a board, the pile and some second thoughts.
constexpr int kActionsPerRound = 400;
}  // namespace

TierfallBot::TierfallBot(Program& prog, FakePlatform& fake, frmTierfall& form, std::uint64_t seed)
    : prog_(prog), fake_(fake), form_(form), rng_(seed) {
    // A score that enters a table: a name, then the table closed.
    fake_.modalRunner = [this](Form& dialog) {
        if (dialog.name() == "frmHiScoreName") {
            static_cast<TextBox&>(*dialog.find("txtPlayerName")).setText("Bot");
            click(*dialog.find("cmdOK"));
        } else if (dialog.name() == "frmHighScores") {
            click(*dialog.find("cmdDone"));
        } else {
            note("unexpected dialog " + dialog.name());
            prog_.requestUnload(dialog);
        }
    };
}

TierfallBot::~TierfallBot() {
    fake_.modalRunner = nullptr;
}

void TierfallBot::note(const std::string& what) {
    if (fault_.empty())
        fault_ = what;
}

bool TierfallBot::click(Control& control) {
    ++clicks_;
    std::string why;
    if (!userClick(control, &why)) {
        note("refused: " + why);
        return false;
    }
    return true;
}

std::int32_t TierfallBot::playGame() {
    auto& g = prog_.state;
    if (!click(form_.cmdPlay))
        return g.Score;
    for (int round = 0; g.GameInProgress && round < 3; ++round)
        playRound();
    if (g.GameInProgress)
        note("the game didn't end after three rounds");
    for (const std::string& e : fake_.takeErrors())
        note(e);
    fake_.takeLog();
    return g.Tierfall.LastScore;
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
            click(*form_.cmdTakeScore);
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
            click(*form_.cmdTakeScore);
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
                click(*finishing);
                continue;
            }
        }
        click(*moves[std::uniform_int_distribution<std::size_t>(0, moves.size() - 1)(rng_)]);
    }
    if (g.GameInProgress && g.RoundNumber == round)
        click(*form_.cmdTakeScore);
}

}  // namespace corvanna
