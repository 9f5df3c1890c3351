#pragma once
// A game's rules as data: fixed wording and references to the values in force. The
// text is put together anew at every opening, so a custom value, another time limit or
// another mode shows as it stands.

#include <functional>
#include <string>
#include <vector>

#include "common/Format.h"
#include "common/Program.h"

namespace corvanna {

// Fixed wording, or a value in force as the rules show it.
struct RulesPiece {
    RulesPiece(const char* fixed) : text(fixed) {}
    RulesPiece(std::string fixed) : text(std::move(fixed)) {}
    explicit RulesPiece(std::function<std::string(const Program&)> shown)
        : value(std::move(shown)) {}

    std::string text;
    std::function<std::string(const Program&)> value;
};

using RulesLine = std::vector<RulesPiece>;

// A paragraph: its lines (list items, table rows) one line break apart, and two after
// the last.
struct RulesParagraph {
    std::vector<RulesLine> lines;
    // Shown only while this holds (one of a game's two texts); empty: always.
    std::function<bool(const Program&)> when;
};

struct RulesText {
    // Blanks before the heading's title: each game centres it by its own count.
    int headingBlanks = 33;
    std::vector<RulesParagraph> paragraphs;

    bool empty() const { return paragraphs.empty(); }
    // The whole text with CR LF line ends, from the program's values now.
    std::string build(const Program& prog) const;
};

// A whole number in force in plain digits, and in the score format.
template <class Store, class T>
RulesPiece plain(T Store::*member) {
    return RulesPiece([member](const Program& prog) {
        return std::to_string(static_cast<long long>(prog.storeOf<Store>().*member));
    });
}
template <class Store, class T>
RulesPiece score(T Store::*member) {
    return RulesPiece([member](const Program& prog) {
        return formatScore(static_cast<std::int64_t>(prog.storeOf<Store>().*member));
    });
}
RulesPiece title();    // AppTitle
RulesPiece seconds();  // RoundSeconds
RulesPiece shown(std::function<std::string(const Program&)> value);

RulesParagraph para(RulesLine pieces);
RulesParagraph lines(std::vector<RulesLine> lines);
RulesParagraph when(std::function<bool(const Program&)> holds, RulesParagraph paragraph);

// The opening paragraph most games share: the rounds in words, the seconds and the bonus
// score, with the game's own ending after that score.
inline const char* const kOpeningEnding =
    " points in these rounds you are awarded an additional bonus round.";
RulesParagraph openingParagraph(const char* rounds, RulesPiece bonusScore,
                                const char* ending = kOpeningEnding);

}  // namespace corvanna
