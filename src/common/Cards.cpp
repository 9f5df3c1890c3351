#include "common/Cards.h"

#include <exception>
#include <utility>

#include "common/Program.h"

namespace corvanna {

int cardRank(const std::string& code) {
    if (code.size() < 2 || code.size() > 3)
        return 0;
    int rank = 0;
    for (std::size_t i = 0; i + 1 < code.size(); ++i) {
        if (code[i] < '0' || code[i] > '9')
            return 0;
        rank = rank * 10 + (code[i] - '0');
    }
    if (code[0] == '0' || rank < 1 || rank > 13)
        return 0;
    return cardSuit(code) ? rank : 0;
}

char cardSuit(const std::string& code) {
    if (code.empty())
        return 0;
    const char s = code.back();
    return (s == 'S' || s == 'H' || s == 'C' || s == 'D') ? s : 0;
}

bool isCardCode(const std::string& code) {
    return cardRank(code) != 0;
}

bool CreateDeck(Program& prog) {
    try {
        auto& deck = prog.state.Deck;
        deck.assign(53, std::string());
        static const char suits[] = {'S', 'H', 'C', 'D'};
        for (int i = 1; i <= 52; ++i)
            deck[i] = std::to_string((i - 1) % 13 + 1) + suits[(i - 1) / 13];
        return true;
    } catch (const std::exception&) {
        prog.platform.msgBox("Unable to create the deck.", MsgButtons::OK, MsgIcon::None,
                             prog.state.AppTitle);
        return false;
    }
}

bool ShuffleDeck(Program& prog) {
    try {
        auto& deck = prog.state.Deck;
        const int upper = prog.state.deckUpperBound();
        for (int i = 1; i <= upper; ++i) {
            const int j = prog.randomNumber(1, upper);
            if (j < 1 || j > upper)
                throw std::out_of_range("deck position");
            std::swap(deck[i], deck[j]);
        }
        return true;
    } catch (const std::exception&) {
        prog.platform.msgBox("Unable to shuffle the deck.", MsgButtons::OK, MsgIcon::Critical,
                             prog.state.AppTitle);
        return false;
    }
}

}  // namespace corvanna
