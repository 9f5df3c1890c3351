#include "games/tierfall/TierfallBoard.h"

#include "common/Cards.h"

namespace corvanna {

namespace {

// Six rows, the slot number rising from the top; the design-size form's positions.
const std::array<TierfallSlot, TierfallBoard::kSlots> kSlotTable{{
    {1, 4305, 1400, {3, 4}},   {2, 1710, 1900, {5, 6}},  {2, 6930, 1900, {8, 9}},
    {2, 3690, 1900, {7, 12}},  {2, 4905, 1890, {7, 13}}, {3, 1035, 2400, {10, 11}},
    {3, 2385, 2400, {11, 12}}, {3, 4305, 2385, {}},      {3, 6255, 2400, {13, 14}},
    {3, 7605, 2400, {14, 15}}, {4, 360, 2880, {16}},     {4, 1695, 2900, {16, 17}},
    {4, 3060, 2900, {17}},     {4, 5580, 2880, {18}},    {4, 6930, 2880, {18, 19}},
    {4, 8280, 2900, {19}},     {5, 1035, 3400, {20}},    {5, 2385, 3390, {20}},
    {5, 6255, 3390, {21}},     {5, 7605, 3390, {21}},    {6, 1710, 3900, {}},
    {6, 6930, 3900, {}},
}};

bool inBoard(int slot) {
    return slot >= 0 && slot < TierfallBoard::kSlots;
}

}  // namespace

const TierfallSlot& TierfallBoard::slot(int slot) {
    return kSlotTable.at(static_cast<std::size_t>(slot));
}

int TierfallBoard::deckSize(int goal) {
    // Each court rank comes in once the goal reaches it; a goal out of range still gets a deck.
    if (goal <= 11)
        return 52;
    return goal >= 14 ? 64 : 52 + 4 * (goal - 11);
}

std::vector<std::string> TierfallBoard::elevensDeck(int goal) {
    const int size = deckSize(goal);
    static const char suits[] = {'S', 'H', 'C', 'D'};
    std::vector<std::string> deck(1);
    deck.reserve(static_cast<std::size_t>(size) + 1);
    for (char s : suits)
        for (int i = 0; i < 4; ++i)
            deck.push_back(std::string("1") + s);
    for (char s : suits)
        for (int rank = 2; rank <= 10; ++rank)
            deck.push_back(std::to_string(rank) + s);
    // Court cards come in rank by rank, all four suits at a time.
    for (int rank = 11; static_cast<int>(deck.size()) <= size; ++rank)
        for (char s : suits)
            deck.push_back(std::to_string(rank) + s);
    return deck;
}

bool TierfallBoard::deal(const std::vector<std::string>& deck) {
    const int upper = static_cast<int>(deck.size()) - 1;
    if (upper < kFirstUpCard)
        return false;
    const int pileUpper = upper - (kFirstUpCard - 1);
    UpCards.assign(kUpCardSlots, std::string());
    PlayPile.assign(static_cast<std::size_t>(pileUpper) + 1, std::string());
    UpCount = 1;
    PlayPileTop = static_cast<std::int16_t>(pileUpper - 1);
    for (int s = 0; s < kSlots; ++s) {
        FieldCards[s] = deck[static_cast<std::size_t>(s) + 1];
        cardPresent[s] = true;
    }
    UpCards[1] = deck[kFirstUpCard];
    // The first up card is also the pile's bottom card: it comes round again as the last draw.
    for (int pos = kFirstUpCard; pos <= upper; ++pos)
        PlayPile[static_cast<std::size_t>(pos - kFirstUpCard)] =
            deck[static_cast<std::size_t>(pos)];
    selected.fill(false);
    upCardSelected = false;
    CardTotal = 0;
    GoalCount = 0;
    UpCardUsed = false;
    return true;
}

bool TierfallBoard::legal(int s) const {
    if (!inBoard(s))
        return false;
    for (int cover : slot(s).coveredBy)
        if (cardPresent[cover])
            return false;
    return true;
}

bool TierfallBoard::playable(int s) const {
    return inBoard(s) && cardPresent[s] && legal(s);
}

std::string TierfallBoard::upCard() const {
    if (upCardEmpty() || UpCount >= kUpCardSlots)
        return {};
    return UpCards[static_cast<std::size_t>(UpCount)];
}

int TierfallBoard::lowestEmptySlot() const {
    for (int s = 0; s < kSlots; ++s)
        if (!cardPresent[s])
            return s;
    return -1;
}

bool TierfallBoard::complete() const {
    for (bool present : cardPresent)
        if (present)
            return false;
    return true;
}

namespace {

TierfallBoard::Click toggle(bool& isSelected, int value, std::int16_t& total, int goal) {
    if (isSelected) {
        total = static_cast<std::int16_t>(total - value);
        isSelected = false;
        return TierfallBoard::Click::Deselected;
    }
    if (value == 0 || total + value > goal)
        return TierfallBoard::Click::Refused;
    total = static_cast<std::int16_t>(total + value);
    isSelected = true;
    return TierfallBoard::Click::Selected;
}

}  // namespace

TierfallBoard::Click TierfallBoard::clickField(int s) {
    // A card that has gone takes no click; the form hides it, so only a stray call lands here.
    if (!playable(s))
        return Click::Refused;
    return toggle(selected[s], cardRank(FieldCards[s]), CardTotal, CardGoal);
}

TierfallBoard::Click TierfallBoard::clickUpCard() {
    if (upCardEmpty())
        return Click::Refused;
    return toggle(upCardSelected, cardRank(upCard()), CardTotal, CardGoal);
}

TierfallBoard::Combination TierfallBoard::takeCombination() {
    Combination c;
    UpCardUsed = false;
    if (CardTotal != CardGoal)
        return c;
    c.made = true;
    c.lowestEmptyBefore = lowestEmptySlot();
    if (upCardSelected && !upCardEmpty()) {
        c.upCard = true;
        c.upCardCode = upCard();
        UpCardUsed = true;
        upCardSelected = false;
        UpCount = static_cast<std::int16_t>(UpCount - 1);
    }
    for (int s = 0; s < kSlots; ++s) {
        if (selected[s]) {
            c.boardSlots.push_back(s);
            selected[s] = false;
            cardPresent[s] = false;
        }
    }
    GoalCount += 1;
    CardTotal = 0;
    return c;
}

int TierfallBoard::moveUpCardToField() {
    const int gap = lowestEmptySlot();
    if (gap < 0 || upCardEmpty())
        return -1;
    FieldCards[gap] = upCard();
    cardPresent[gap] = true;
    UpCount = static_cast<std::int16_t>(UpCount - 1);
    return gap;
}

TierfallBoard::Draw TierfallBoard::draw() {
    Draw d;
    if (PlayPileTop < 0)
        return d;
    if (UpCount > 0)
        d.movedToSlot = moveUpCardToField();
    d.drawn = true;
    d.card = PlayPile[static_cast<std::size_t>(PlayPileTop)];
    // The stack holds the largest deck's pile; a longer one could only come from a bad deck.
    if (UpCount + 1 < kUpCardSlots) {
        UpCount = static_cast<std::int16_t>(UpCount + 1);
        UpCards[static_cast<std::size_t>(UpCount)] = d.card;
    }
    PlayPileTop = static_cast<std::int16_t>(PlayPileTop - 1);
    clearSelection();
    return d;
}

void TierfallBoard::payOneCombination() {
    if (GoalCount > 0)
        GoalCount -= 1;
}

void TierfallBoard::payOnePileCard() {
    if (PlayPileTop >= 0)
        PlayPileTop = static_cast<std::int16_t>(PlayPileTop - 1);
}

void TierfallBoard::clearSelection() {
    selected.fill(false);
    upCardSelected = false;
    CardTotal = 0;
}

std::string TierfallBoard::dump() const {
    std::string out = "CardGoal " + std::to_string(CardGoal) + "\n";
    for (int s = 0; s < kSlots; ++s)
        out += "slot " + std::to_string(s) + " row " + std::to_string(slot(s).row) + " " +
               (cardPresent[s] ? FieldCards[s] : std::string("-")) + "\n";
    out += "up " + std::to_string(UpCount) + " " + upCard() + "\n";
    out += "pile top " + std::to_string(PlayPileTop) + ":";
    for (int i = PlayPileTop; i >= 0; --i)
        out += " " + PlayPile[static_cast<std::size_t>(i)];
    return out + "\n";
}

}  // namespace corvanna
