#include "games/tierfall/SavedGame.h"

#include <algorithm>
#include <cstdint>
#include <limits>

#include "common/Cards.h"
#include "common/FileStore.h"
#include "common/Format.h"
#include "common/SettingsFile.h"
#include "games/tierfall/TierfallBoard.h"

namespace corvanna {

namespace {

const char* const kDeckKeys[3] = {"[Round 1 Deck]", "[Round 2 Deck]", "[Round 3 Deck]"};

bool filled(const std::vector<std::string>& deck) {
    return deck.size() > 1 && !deck[1].empty();
}

// The name on one line of its own: a line break in it would start a key of its own.
std::string nameLine(const std::string& name) {
    std::string out = name;
    std::replace_if(
        out.begin(), out.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    out.erase(0, out.find_first_not_of(' '));
    if (out.empty())
        return kAnonymousUser;
    // A comma splits a line into items, so such a name goes in quotes to come back whole;
    // a quote inside would end it early and becomes an apostrophe.
    if (out.find(',') == std::string::npos)
        return out;
    std::replace(out.begin(), out.end(), '"', '\'');
    return '"' + out + '"';
}

// Text files hold no control characters but tabs and line ends.
bool looksBinary(const std::string& bytes) {
    return std::any_of(bytes.begin(), bytes.end(), [](char c) {
        const auto u = static_cast<unsigned char>(c);
        return (u < 0x20 && c != '\t' && c != '\r' && c != '\n') || u == 0x7F;
    });
}

// The deck's cards, whatever their order: the same as the goal's deck or not.
bool sameCards(std::vector<std::string> deck, std::vector<std::string> want) {
    std::sort(deck.begin(), deck.end());
    std::sort(want.begin(), want.end());
    return deck == want;
}

bool checkDeck(const std::vector<std::string>& deck, int round, int goal, std::string& why) {
    const std::string name = "round " + std::to_string(round + 1) + " deck";
    for (std::size_t p = 1; p < deck.size(); ++p)
        if (!isCardCode(deck[p])) {
            // The code is quoted only as far as a message line should go.
            why = name + " holds \"" + deck[p].substr(0, 20) + "\", which is not a card";
            return false;
        }
    if (!sameCards(deck, TierfallBoard::elevensDeck(goal))) {
        why = name + " does not hold the cards of card goal " + std::to_string(goal);
        return false;
    }
    return true;
}

}  // namespace

std::string SavedGameText(const SavedGame& game) {
    std::string out;
    auto line = [&out](const std::string& text) { out += text + "\r\n"; };
    line("[Card Goal]");
    line(std::to_string(game.cardGoal));
    line("[Time Limit]");
    line(std::to_string(game.seconds));
    line("[Score]");
    line(std::to_string(SavedGameScore(game.scoreText)));
    line("[Custom]");
    line(game.custom ? "True" : "False");
    line("[UserName]");
    line(nameLine(game.userName));
    for (int r = 0; r < 3; ++r) {
        const auto& deck = game.decks[r];
        // Round 1 goes in as it stands; a later round only once it was dealt.
        if (r > 0 && !filled(deck))
            continue;
        line(kDeckKeys[r]);
        for (std::size_t p = 1; p < deck.size(); ++p)
            line(deck[p]);
    }
    out += "\r\n";
    return out;
}

std::string SavedGameText(const AppState& g, const TierfallValues& t, const std::string& userName) {
    SavedGame game;
    game.cardGoal = t.CardGoal;
    game.seconds = g.RoundSeconds;
    game.scoreText = std::to_string(t.LastScore);
    game.custom = g.CustomScoring;
    game.userName = userName;
    game.decks = t.RoundDecks;
    return SavedGameText(game);
}

bool ParseSavedGame(const std::string& bytes, SavedGame& out, std::string* reason) {
    auto fail = [reason](const std::string& why) {
        if (reason)
            *reason = why;
        return false;
    };
    if (bytes.size() > kMaxSavedGameBytes)
        return fail(tooLargeReason(bytes.size()));
    if (looksBinary(bytes))
        return fail("it holds binary data");
    const std::vector<std::string> items = settingsItems(bytes);
    if (items.empty() || items[0] != "[Card Goal]")
        return fail("it does not start with [Card Goal]");

    SavedGame game;
    bool haveSeconds = false;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::string& key = items[i];
        const bool hasValue = i + 1 < items.size();
        std::int64_t number = 0;
        if (key == "[Card Goal]") {
            if (!hasValue || !parseInteger(items[++i], number) || number < 10 || number > 15)
                return fail("the card goal is not a number from 10 to 15");
            game.cardGoal = static_cast<int>(number);
        } else if (key == "[Time Limit]") {
            if (!hasValue || !parseInteger(items[++i], number) || number < 1 ||
                number > std::numeric_limits<std::int16_t>::max())
                return fail("the time limit is not a whole number of seconds");
            game.seconds = static_cast<int>(number);
            haveSeconds = true;
        } else if (key == "[Score]" && hasValue) {
            game.scoreText = items[++i];
        } else if (key == "[UserName]" && hasValue) {
            game.userName = items[++i];
        } else if (key == "[Custom]" && hasValue) {
            game.custom = items[++i] != "False";
        } else {
            const auto* deckKey = std::find(std::begin(kDeckKeys), std::end(kDeckKeys), key);
            if (deckKey == std::end(kDeckKeys))
                continue;
            const int round = static_cast<int>(deckKey - std::begin(kDeckKeys));
            const std::size_t size = TierfallBoard::deckSize(game.cardGoal);
            if (items.size() - (i + 1) < size)
                return fail("round " + std::to_string(round + 1) + " deck is cut short");
            auto& deck = game.decks[round];
            deck.assign(1, std::string());
            deck.insert(deck.end(), items.begin() + static_cast<std::ptrdiff_t>(i + 1),
                        items.begin() + static_cast<std::ptrdiff_t>(i + 1 + size));
            i += size;
        }
    }

    if (!haveSeconds)
        return fail("it has no time limit");
    if (game.decks[0].empty())
        return fail("it has no round 1 deck");
    if (!game.decks[2].empty() && game.decks[1].empty())
        return fail("it has a round 3 deck but no round 2 deck");
    // Decks are checked against the goal the file ends with: a later goal line counts.
    std::string why;
    for (int r = 0; r < 3; ++r)
        if (!game.decks[r].empty() && !checkDeck(game.decks[r], r, game.cardGoal, why))
            return fail(why);
    out = std::move(game);
    return true;
}

bool ReadSavedGame(const std::string& path, SavedGame& out, std::string* reason) {
    std::string bytes, error;
    switch (readWholeFile(path, bytes, &error)) {
        case ReadStatus::Ok: return ParseSavedGame(bytes, out, reason);
        case ReadStatus::Missing:
            if (reason)
                *reason = "it does not exist";
            return false;
        case ReadStatus::Failed: break;
    }
    if (reason)
        *reason = error.empty() ? "it could not be read" : error;
    return false;
}

long long SavedGameScore(const std::string& scoreText) {
    constexpr long long kMax = std::numeric_limits<long long>::max();
    std::size_t i = scoreText.find_first_not_of(" \t");
    if (i == std::string::npos)
        return 0;
    const bool negative = scoreText[i] == '-';
    if (negative || scoreText[i] == '+')
        ++i;
    long long value = 0;
    for (; i < scoreText.size() && scoreText[i] >= '0' && scoreText[i] <= '9'; ++i) {
        const int digit = scoreText[i] - '0';
        value = value > (kMax - digit) / 10 ? kMax : value * 10 + digit;
    }
    return negative ? -value : value;
}

std::string SavedGameComment(long long score) {
    struct Band {
        long long upTo;
        const char* comment;
    };
    static const Band kBands[] = {
        {20000, "amassed a pitiful"},     {40000, "accumulated a sorry"},
        {60000, "earned a pretty weak"},  {80000, "earned a mediocre"},
        {100000, "earned a respectable"}, {120000, "earned a decent"},
        {140000, "earned a darned good"}, {160000, "earned an incredible"},
    };
    for (const Band& band : kBands)
        if (score <= band.upTo)
            return band.comment;
    return "earned an unbelievable";
}

std::string SavedGameMessage(const SavedGame& game, int currentSeconds) {
    const long long score = SavedGameScore(game.scoreText);
    std::string name = game.userName.empty() ? kAnonymousUser : game.userName;
    // A name no dialog would have typed is cut, so the box stays a box; never mid-character.
    if (name.size() > kMaxShownNameBytes) {
        std::size_t cut = kMaxShownNameBytes;
        while (cut > 0 && (static_cast<unsigned char>(name[cut]) & 0xC0) == 0x80)
            --cut;
        name = name.substr(0, cut) + "\u2026";
    }
    std::string text = "This game was saved by " + name + ". He or she " + SavedGameComment(score) +
                       " score of " + formatScore(score) + " in this game. " + "\n";
    text += game.custom ? "Customized scoring was in effect when this game was played. "
                        : "Customized scoring was not in effect when this game was played. ";
    if (game.seconds != currentSeconds) {
        const std::string saved = std::to_string(game.seconds);
        text += "This game was saved with the time limit set to " + saved +
                ". Your time limit is currently set to " + std::to_string(currentSeconds) +
                ". Do you want to change your time limit to " + saved + "?";
    }
    return text;
}

}  // namespace corvanna
