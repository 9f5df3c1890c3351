#pragma once
// Fivestack's rules without the form: five columns of up to five cards, the card on
// offer, soft aces, the bust, the passes and the Card Total with its value. A test or a
// bot drives it directly; the form paints what it reports and plays the sounds.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvanna {

class FivestackBoard {
public:
    static constexpr int kColumns = 5;
    static constexpr int kCardsPerColumn = 5;
    // CardTotal once the round is busted.
    static constexpr std::int16_t kBusted = 9999;

    // GetCardValue: the number the code begins with, court cards 10, an ace 1.
    static int cardValue(const std::string& code);
    // The Card Total Value table: 97 to 105; 0 past 105. Below 97 the value stays as it
    // was (no score can be taken), which valueOf reports as -1.
    static int valueOf(int cardTotal);

    // ---- State, by the names the game uses
    std::vector<std::string> Deck;  // positions from 1 (position 0 unused)
    std::int16_t NextCardIndex = 1;
    std::array<std::int16_t, kColumns> ColumnCardCount{};
    std::array<std::int16_t, kColumns> ColumnAces{};
    std::array<std::int16_t, kColumns> ColumnTotal{};
    std::array<bool, kColumns> ColumnSoft{};
    std::array<std::array<std::string, kCardsPerColumn>, kColumns> Cards{};
    std::int16_t CardTotal = 0;
    std::int16_t CardTotalValue = 0;
    std::int16_t CardsToPass = 0;
    bool busted = false;

    // A new round from a shuffled deck: the board emptied, the first entry never played,
    // the second on offer.
    void deal(std::vector<std::string> deck, std::int16_t cardsToPass);
    // The code on offer; empty once the deck is used up.
    std::string cardOnOffer() const;
    bool columnOpen(int column) const;
    bool canPass() const { return CardsToPass >= 1 && !cardOnOffer().empty(); }

    struct Hit {
        bool placed = false;
        int row = -1;         // where the card went in its column
        bool saved = false;   // over 21, and a soft ace took 10 off (a card went by unseen)
        bool busted = false;  // over 21 with no soft ace: the round is lost
        bool closed = false;  // the column holds five cards now
    };
    // cmdHit: the card on offer to the column, a soft ace used or the round busted.
    Hit hit(int column);
    // cmdPass: the card on offer goes by; false when no pass is left.
    bool pass();
    // The five column totals added up; also updates CardTotalValue from the table.
    std::int16_t sumColumns();
};

}  // namespace corvanna
