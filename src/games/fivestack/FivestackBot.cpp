#include "games/fivestack/FivestackBot.h"

#include <vector>

#include "forms/Input.h"
#include "games/fivestack/frmFivestack.h"
#include "scores/frmComposeHighScore.h"

namespace corvanna {

namespace {
// Enough for any round: 25 cards, the passes and the clock's steps.
constexpr int kActionsPerRound = 200;
}  // namespace

std::unique_ptr<GameBot> makeFivestackBot(Program& prog, FakePlatform& fake, GameFrame& form,
                                          std::uint64_t seed) {
    auto* fivestack = dynamic_cast<frmFivestack*>(&form);
    if (!fivestack)
        return nullptr;
    return std::make_unique<FivestackBot>(prog, fake, *fivestack, seed);
}

FivestackBot::FivestackBot(Program& prog, FakePlatform& fake, frmFivestack& form,
                           std::uint64_t seed)
    : ClickBot(prog, fake), form_(form), rng_(seed) {
    // The score as it stands before game over sets it back to nothing.
    form_.lblCurrentScore.subscribe([this](Control& c, Prop p) {
        if (p == Prop::Caption && prog_.state.GameInProgress)
            lastScore_ = ParseScoreText(c.caption());
    });
}

std::int64_t FivestackBot::playGame() {
    auto& g = prog_.state;
    lastScore_ = 0;
    if (!click(&form_.cmdPlay, "cmdPlay"))
        return 0;
    for (int round = 0; g.GameInProgress && round < 4; ++round)
        playRound();
    if (g.GameInProgress)
        note("the game didn't end after four rounds");
    for (const std::string& e : fake_.takeErrors())
        note(e);
    fake_.takeLog();
    return lastScore_;
}

void FivestackBot::checkBoard(int placed, int passed, int saved) {
    const FivestackBoard& b = form_.board;
    // Deck position 1 is never played; every card since went to a column, by a pass or by
    // unseen after a soft ace saved its column.
    if (b.NextCardIndex != 2 + placed + passed + saved)
        note("the card on offer is deck position " + std::to_string(b.NextCardIndex) + " after " +
             std::to_string(placed) + " cards, " + std::to_string(passed) + " passes and " +
             std::to_string(saved) + " saves");
    int cards = 0, sum = 0;
    for (int c = 0; c < FivestackBoard::kColumns; ++c) {
        cards += b.ColumnCardCount[c];
        sum += b.ColumnTotal[c];
        if (b.ColumnTotal[c] > 21)
            note("column " + std::to_string(c + 1) + " stands at " +
                 std::to_string(b.ColumnTotal[c]));
        if (form_.ColumnTotal[c]->caption() != std::to_string(b.ColumnTotal[c]))
            note("column " + std::to_string(c + 1) + " shows another total");
    }
    if (cards != placed)
        note(std::to_string(cards) + " cards in the columns after " + std::to_string(placed));
    if (b.CardTotal != sum || form_.lblCurrentTotal.caption() != std::to_string(sum))
        note("the Card Total is not the columns' sum");
}

void FivestackBot::playRound() {
    auto& g = prog_.state;
    const FivestackBoard& b = form_.board;
    const int round = g.RoundNumber;
    const std::int64_t before = g.Score;
    int placed = 0, passed = 0, saved = 0;
    std::uniform_int_distribution<int> permille(0, 999);
    for (int action = 0; action < kActionsPerRound; ++action) {
        if (!g.GameInProgress || g.RoundNumber != round)
            break;
        const int roll = permille(rng_);
        if (roll < 120) {
            fake_.advance(std::uniform_int_distribution<int>(200, 6000)(rng_));
            continue;
        }
        // Mostly take a score once there is one; sometimes hold out for more.
        if (b.CardTotal >= 97 && b.CardTotal <= 105 && roll < 700) {
            click(&form_.cmdGiveUp, "cmdGiveUp");
            break;
        }
        if (roll < 150 && b.canPass()) {
            const int index = b.NextCardIndex;
            if (click(&form_.cmdPass, "cmdPass"))
                ++passed;
            if (b.NextCardIndex != index + 1)
                note("a pass moved the deck by " + std::to_string(b.NextCardIndex - index));
            checkBoard(placed, passed, saved);
            continue;
        }
        // A column the card fits, as a player would; now and then any open one.
        const int value = FivestackBoard::cardValue(b.cardOnOffer());
        std::vector<int> fits, open;
        for (int c = 0; c < FivestackBoard::kColumns; ++c) {
            if (!b.columnOpen(c))
                continue;
            open.push_back(c);
            if (b.ColumnTotal[c] + value <= 21 || b.ColumnAces[c] > 0)
                fits.push_back(c);
        }
        const std::vector<int>& choices = fits.empty() || roll < 170 ? open : fits;
        if (choices.empty()) {
            click(&form_.cmdGiveUp, "cmdGiveUp");
            break;
        }
        const int column =
            choices[std::uniform_int_distribution<std::size_t>(0, choices.size() - 1)(rng_)];
        const int aces = b.ColumnAces[column];
        if (!click(form_.cmdHit[column], "cmdHit"))
            break;
        if (g.RoundNumber != round || !g.GameInProgress)
            break;  // busted, or five columns of 21 took the score
        ++placed;
        if (b.ColumnAces[column] < aces)
            ++saved;
        checkBoard(placed, passed, saved);
    }
    if (g.GameInProgress && g.RoundNumber == round)
        click(&form_.cmdGiveUp, "cmdGiveUp");
    // A round pays its Time Bonus times a value of the table, or nothing.
    const std::int64_t paid = (g.GameInProgress ? g.Score : lastScore_) - before;
    if (paid != 0) {
        bool fits = false;
        for (int value : {50, 100, 150, 200, 250, 300, 400, 500, 1000})
            fits = fits || paid % value == 0;
        if (!fits || paid < 0)
            note("round " + std::to_string(round) + " paid " + std::to_string(paid));
    }
}

}  // namespace corvanna
