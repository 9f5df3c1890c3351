#include "games/fivestack/FivestackBoard.h"

#include <cstdlib>

namespace corvanna {

int FivestackBoard::cardValue(const std::string& code) {
    const int rank = std::atoi(code.c_str());
    return rank > 10 ? 10 : rank;
}

int FivestackBoard::valueOf(int cardTotal) {
    static constexpr int kValues[] = {50, 100, 150, 200, 250, 300, 400, 500, 1000};
    if (cardTotal < 97)
        return -1;
    if (cardTotal > 105)
        return 0;
    return kValues[cardTotal - 97];
}

void FivestackBoard::deal(std::vector<std::string> deck, std::int16_t cardsToPass) {
    Deck = std::move(deck);
    ColumnCardCount = {};
    ColumnAces = {};
    ColumnTotal = {};
    ColumnSoft = {};
    Cards = {};
    CardTotal = 0;
    busted = false;
    CardsToPass = cardsToPass;
    NextCardIndex = 2;
}

std::string FivestackBoard::cardOnOffer() const {
    if (NextCardIndex < 1 || static_cast<std::size_t>(NextCardIndex) >= Deck.size())
        return "";
    return Deck[static_cast<std::size_t>(NextCardIndex)];
}

bool FivestackBoard::columnOpen(int column) const {
    return column >= 0 && column < kColumns && !busted &&
           ColumnCardCount[static_cast<std::size_t>(column)] < kCardsPerColumn;
}

FivestackBoard::Hit FivestackBoard::hit(int column) {
    Hit h;
    const std::string card = cardOnOffer();
    if (!columnOpen(column) || card.empty())
        return h;
    const auto c = static_cast<std::size_t>(column);
    // CalculateColumnValue: the card into the column's next image.
    h.placed = true;
    h.row = ColumnCardCount[c];
    Cards[c][static_cast<std::size_t>(h.row)] = card;
    int value = cardValue(card);
    ++ColumnCardCount[c];
    // CalculateAces: 11 while it fits.
    if (value == 1 && ColumnTotal[c] + 11 <= 21) {
        ++ColumnAces[c];
        value = 11;
        ColumnSoft[c] = true;
    }
    ColumnTotal[c] = static_cast<std::int16_t>(ColumnTotal[c] + value);
    ++NextCardIndex;
    h.closed = ColumnCardCount[c] == kCardsPerColumn;
    if (ColumnTotal[c] <= 21) {
        sumColumns();
        return h;
    }
    // CheckForBust: a soft ace saves the column, and the next card goes by unseen.
    if (ColumnAces[c] == 0) {
        busted = h.busted = true;
        CardTotal = kBusted;
        return h;
    }
    ++NextCardIndex;
    --ColumnAces[c];
    ColumnSoft[c] = false;
    ColumnTotal[c] = static_cast<std::int16_t>(ColumnTotal[c] - 10);
    h.saved = true;
    sumColumns();
    return h;
}

bool FivestackBoard::pass() {
    if (!canPass() || busted)
        return false;
    --CardsToPass;
    ++NextCardIndex;
    return true;
}

std::int16_t FivestackBoard::sumColumns() {
    int sum = 0;
    for (std::int16_t t : ColumnTotal)
        sum += t;
    CardTotal = static_cast<std::int16_t>(sum);
    const int value = valueOf(sum);
    if (value >= 0)
        CardTotalValue = static_cast<std::int16_t>(value);
    return CardTotal;
}

}  // namespace corvanna
