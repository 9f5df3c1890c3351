#pragma once
// Card codes and the deck: "1S" to "13D", rank in decimal then one suit letter.

#include <string>

namespace corvanna {

class Program;

// Rank of a code, 1 to 13; 0 for the empty text or anything that is not a card.
int cardRank(const std::string& code);
// 'S', 'H', 'C' or 'D'; 0 when not a card.
char cardSuit(const std::string& code);
bool isCardCode(const std::string& code);

// Builds the standard deck into Deck (upper bound 52). False after a message on failure.
bool CreateDeck(Program& prog);
// One pass: every position swaps with a position drawn from the whole deck.
bool ShuffleDeck(Program& prog);

}  // namespace corvanna
