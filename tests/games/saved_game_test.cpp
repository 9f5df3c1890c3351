// Tierfall's saved games: the file written for the last game, read back byte for byte,
// the score comments and the message a loaded game shows, and files that are damaged,
// cut short or not saved games at all.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <algorithm>
#include <limits>
#include <random>

#include "common/FileStore.h"
#include "games/tierfall/SavedGame.h"
#include "games/tierfall/TierfallBoard.h"

namespace corvanna {

using ::testing::HasSubstr;

namespace {

// The goal's deck in an order of its own, positions from 1.
std::vector<std::string> shuffledDeck(int goal, unsigned seed) {
    auto deck = TierfallBoard::elevensDeck(goal);
    std::mt19937 rng(seed);
    std::shuffle(deck.begin() + 1, deck.end(), rng);
    return deck;
}

std::string lines(const std::vector<std::string>& deck) {
    std::string out;
    for (std::size_t p = 1; p < deck.size(); ++p)
        out += deck[p] + "\r\n";
    return out;
}

// The program's values with Tierfall's beside them, as a saved game is written from them.
struct LastGame : AppState {
    TierfallValues Tierfall;
};
std::string SavedGameText(const LastGame& g, const std::string& userName) {
    return corvanna::SavedGameText(g, g.Tierfall, userName);
}

// The last game: goal 11, two rounds reached, the third still blank.
LastGame goal11Game() {
    LastGame g;
    g.Tierfall.CardGoal = 11;
    g.RoundSeconds = 90;
    g.Tierfall.LastScore = 123456;
    g.CustomScoring = true;
    g.Tierfall.RoundDecks[0] = shuffledDeck(11, 1);
    g.Tierfall.RoundDecks[1] = shuffledDeck(11, 2);
    g.Tierfall.RoundDecks[2] = std::vector<std::string>(53);
    return g;
}

std::string replaceAll(std::string text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

// The reason a text is refused, or "accepted".
std::string refusal(const std::string& text) {
    SavedGame game;
    std::string reason;
    return ParseSavedGame(text, game, &reason) ? "accepted" : reason;
}

}  // namespace

TEST(SavedGameFile, GamesAreWrittenByteForByteAndReadBackWhole) {
    // Goal 11 with two rounds dealt; goal 14 of three rounds by an anonymous user.
    const LastGame g11 = goal11Game();
    LastGame g14;
    g14.Tierfall.CardGoal = 14;
    g14.RoundSeconds = 30;
    g14.Tierfall.LastScore = 0;
    g14.CustomScoring = false;
    for (int r = 0; r < 3; ++r)
        g14.Tierfall.RoundDecks[r] = shuffledDeck(14, 10 + r);
    const std::pair<std::string, std::string> cases[] = {
        {SavedGameText(g11, "Marta Quill"),
         "[Card Goal]\r\n11\r\n[Time Limit]\r\n90\r\n[Score]\r\n123456\r\n[Custom]\r\nTrue\r\n"
         "[UserName]\r\nMarta Quill\r\n[Round 1 Deck]\r\n" +
             lines(g11.Tierfall.RoundDecks[0]) + "[Round 2 Deck]\r\n" +
             lines(g11.Tierfall.RoundDecks[1]) + "\r\n"},
        {SavedGameText(g14, ""),
         "[Card Goal]\r\n14\r\n[Time Limit]\r\n30\r\n[Score]\r\n0\r\n[Custom]\r\nFalse\r\n"
         "[UserName]\r\nan anonymous user\r\n[Round 1 Deck]\r\n" +
             lines(g14.Tierfall.RoundDecks[0]) + "[Round 2 Deck]\r\n" +
             lines(g14.Tierfall.RoundDecks[1]) + "[Round 3 Deck]\r\n" +
             lines(g14.Tierfall.RoundDecks[2]) + "\r\n"}};
    EXPECT_EQ(g14.Tierfall.RoundDecks[0].size(), 65u);
    QTemporaryDir dir;
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(text, expected);
        // Read back through a file, as the dialogs do it: every value comes back.
        const std::string path = dir.path().toStdString() + "/game.tfl";
        ASSERT_TRUE(writeFileAtomic(path, text));
        SavedGame game;
        std::string reason;
        ASSERT_TRUE(ReadSavedGame(path, game, &reason)) << reason;
        EXPECT_EQ(SavedGameText(game), text);
        EXPECT_EQ(game.decks[2].empty(), game.cardGoal == 11);  // only goal 14 reached round 3
    }
}

TEST(SavedGameFile, OnlyTheRoundsThatWereDealtAreWritten) {
    LastGame g = goal11Game();
    g.Tierfall.RoundDecks[1] = std::vector<std::string>(53);  // blanks: never reached
    g.Tierfall.RoundDecks[2].clear();                         // never even sized
    const std::string text = SavedGameText(g, "Ola");
    // Round 1's last card ends the file: no heading of a later round follows it.
    EXPECT_TRUE(text.ends_with(g.Tierfall.RoundDecks[0][52] + "\r\n\r\n"));

    // A name's line breaks would start lines of their own: they go in as blanks.
    EXPECT_THAT(SavedGameText(g, "Ola\r\n[Card Goal]\r\n9"),
                HasSubstr("[UserName]\r\nOla  [Card Goal]  9\r\n[Round 1 Deck]"));
    // Blanks alone are no name.
    EXPECT_THAT(SavedGameText(g, "   "), HasSubstr("[UserName]\r\nan anonymous user\r\n"));

    // A comma would split the name into items, and what follows it could read as a key:
    // such a name goes in quotes and comes back whole, a quote in it as an apostrophe.
    const struct {
        std::string name, line, readBack;
    } quoted[] = {
        {"Quill, Marta", "\"Quill, Marta\"", "Quill, Marta"},
        {"x,[Card Goal]", "\"x,[Card Goal]\"", "x,[Card Goal]"},
        {"Jo \"JJ\", Smith", "\"Jo 'JJ', Smith\"", "Jo 'JJ', Smith"},
        {"Jo \"JJ\" Smith", "Jo \"JJ\" Smith", "Jo \"JJ\" Smith"},
    };
    for (const auto& c : quoted) {
        const std::string text = SavedGameText(g, c.name);
        EXPECT_THAT(text, HasSubstr("[UserName]\r\n" + c.line + "\r\n[Round 1 Deck]")) << c.name;
        SavedGame game;
        std::string reason;
        ASSERT_TRUE(ParseSavedGame(text, game, &reason)) << c.name << ": " << reason;
        EXPECT_EQ(game.userName, c.readBack);
        EXPECT_EQ(game.cardGoal, 11) << c.name;
        EXPECT_EQ(SavedGameText(game), text) << c.name;
    }
}

TEST(SavedGameFile, TheScoreCommentAtEachBandEdge) {
    // Each band from its lowest score to its highest.
    const std::pair<long long, std::string> bands[] = {
        {20000, "amassed a pitiful"},
        {40000, "accumulated a sorry"},
        {60000, "earned a pretty weak"},
        {80000, "earned a mediocre"},
        {100000, "earned a respectable"},
        {120000, "earned a decent"},
        {140000, "earned a darned good"},
        {160000, "earned an incredible"},
        {std::numeric_limits<long long>::max(), "earned an unbelievable"}};
    long long lowest = -5;
    EXPECT_EQ(SavedGameComment(0), "amassed a pitiful");
    for (const auto& [highest, comment] : bands) {
        EXPECT_EQ(SavedGameComment(lowest), comment) << lowest;
        EXPECT_EQ(SavedGameComment(highest), comment) << highest;
        if (highest < std::numeric_limits<long long>::max())
            lowest = highest + 1;
    }
}

TEST(SavedGameFile, TheMessageWithAndWithoutADifferentTimeLimit) {
    SavedGame game;
    game.userName = "Marta Quill";
    game.scoreText = "123456";
    game.custom = true;
    game.seconds = 90;
    EXPECT_EQ(SavedGameMessage(game, 90),
              "This game was saved by Marta Quill. He or she earned a darned good score of "
              "123,456 in this game. \nCustomized scoring was in effect when this game was "
              "played. ");

    // The question about a different time limit is the form's test.
    game.custom = false;
    // The score is the number its text starts with; a huge one holds at the top.
    game.seconds = 60;
    game.scoreText = "99999999999999999999999 points";
    EXPECT_EQ(SavedGameMessage(game, 60),
              "This game was saved by Marta Quill. He or she earned an unbelievable score of "
              "9,223,372,036,854,775,807 in this game. \nCustomized scoring was not in effect "
              "when this game was played. ");
    // A name longer than any dialog takes is cut whole characters short of 100 bytes.
    game.userName = std::string(99, 'a') + "\xC3\xA9" + std::string(5000, 'b');
    EXPECT_TRUE(SavedGameMessage(game, 60).starts_with(
        "This game was saved by " + std::string(99, 'a') + "\u2026. He or she earned"));
    EXPECT_EQ(SavedGameScore("  812abc"), 812);
    EXPECT_EQ(SavedGameScore("-340"), -340);
    EXPECT_EQ(SavedGameScore("many"), 0);
    EXPECT_EQ(SavedGameScore(""), 0);
}

TEST(SavedGameFile, DamagedFilesAreRefusedWithTheirReason) {
    const LastGame g = goal11Game();
    const std::string good = SavedGameText(g, "Ola");
    ASSERT_EQ(refusal(good), "accepted");
    const std::string start = "it does not start with [Card Goal]",
                      goal = "the card goal is not a number from 10 to 15",
                      seconds = "the time limit is not a whole number of seconds",
                      noRound1 = "it has no round 1 deck",
                      notGoal11 = "round 1 deck does not hold the cards of card goal 11",
                      binary = "it holds binary data";
    const std::size_t round1 = good.find("[Round 1 Deck]"), round2 = good.find("[Round 2 Deck]");
    // A goal 12 deck read as goal 11: its first 52 cards are not a goal 11 deck.
    LastGame g12 = goal11Game();
    g12.Tierfall.CardGoal = 12;
    g12.Tierfall.RoundDecks[0] = shuffledDeck(12, 7);
    g12.Tierfall.RoundDecks[1].clear();
    std::string oneAceTooMany = good;
    const std::size_t some2 = oneAceTooMany.find("\r\n2S\r\n", round2);
    ASSERT_NE(some2, std::string::npos);
    oneAceTooMany.replace(some2, 6, "\r\n1S\r\n");
    std::string junk = good;
    junk[40] = '\0';
    const std::string over = good + std::string(kMaxSavedGameBytes, ' ');
    const std::string firstCode = g.Tierfall.RoundDecks[0][1] + "\r\n";
    const std::pair<std::string, std::string> cases[] = {
        {"", start},
        {"\r\n" + good, start},
        {replaceAll(good, "[Card Goal]", "[card goal]"), start},
        {replaceAll(good, "[Card Goal]\r\n11", "[Card Goal]\r\n9"), goal},
        {replaceAll(good, "[Card Goal]\r\n11", "[Card Goal]\r\n16"), goal},
        {replaceAll(good, "[Card Goal]\r\n11", "[Card Goal]\r\neleven"), goal},
        {"[Card Goal]", goal},
        {replaceAll(good, "[Time Limit]\r\n90\r\n", ""), "it has no time limit"},
        // A deck cut short, whether the file ends or the next key comes too soon.
        {good.substr(0, round1 + 16 + 30 * 4), "round 1 deck is cut short"},
        {good.substr(0, round2 + 16 + 4 * 10), "round 2 deck is cut short"},
        {replaceAll(good, "[Round 1 Deck]\r\n" + firstCode, "[Round 1 Deck]\r\n"),
         "round 1 deck holds \"[Round 2 Deck]\", which is not a card"},
        // Cards that are not the goal's deck; a second goal line changes the goal.
        {oneAceTooMany, "round 2 deck does not hold the cards of card goal 11"},
        {replaceAll(SavedGameText(g12, "Ola"), "[Card Goal]\r\n12", "[Card Goal]\r\n11"),
         notGoal11},
        {good + "[Card Goal]\r\n12\r\n", "round 1 deck does not hold the cards of card goal 12"},
        // Rounds missing.
        {good.substr(0, round1), noRound1},
        {replaceAll(good, "[Round 1 Deck]", "[Round 3 Deck]"), noRound1},
        {replaceAll(good, "[Round 2 Deck]", "[Round 3 Deck]"),
         "it has a round 3 deck but no round 2 deck"},
        // Binary junk, and too much of anything.
        {junk, binary},
        {"\177ELF\2\1\1" + good, binary},
        {over, "it is larger than 1 MiB (" + std::to_string(over.size()) + " bytes)"},
    };
    for (const auto& [text, reason] : cases)
        EXPECT_EQ(refusal(text), reason) << text.substr(0, 200);
    for (const std::string limit : {"0", "-30", "32768", "1.5", "sixty", ""}) {
        EXPECT_EQ(refusal(replaceAll(good, "[Time Limit]\r\n90", "[Time Limit]\r\n" + limit)),
                  seconds)
            << limit;
    }
    // Codes that are no card.
    const std::string lastCode = "\r\n" + g.Tierfall.RoundDecks[1][52] + "\r\n\r\n";
    for (const std::string code : {"14S", "1X", "01S", "S1", " "}) {
        EXPECT_THAT(refusal(replaceAll(good, lastCode, "\r\n" + code + "\r\n\r\n")),
                    HasSubstr("round 2 deck holds \""))
            << code;
    }
}

TEST(SavedGameFile, WhatAReaderMustTolerate) {
    const LastGame g = goal11Game();
    const std::string good = SavedGameText(g, "Ola");
    SavedGame game;
    std::string reason;

    // Line ends without CR read the same.
    ASSERT_TRUE(ParseSavedGame(replaceAll(good, "\r\n", "\n"), game, &reason)) << reason;
    EXPECT_EQ(SavedGameText(game), good);

    // A name is an item: a bare one ends at its comma, and leading blanks and quotes go.
    ASSERT_TRUE(ParseSavedGame(replaceAll(good, "\r\nOla\r\n", "\r\nSmith, Ola\r\n"), game));
    EXPECT_EQ(game.userName, "Smith");
    ASSERT_TRUE(ParseSavedGame(replaceAll(good, "\r\nOla\r\n", "\r\n  \"Ola, Kim\"\r\n"), game));
    EXPECT_EQ(game.userName, "Ola, Kim");
    // A name that looks like a key is still the name.
    ASSERT_TRUE(ParseSavedGame(SavedGameText(g, "[Round 3 Deck]"), game, &reason)) << reason;
    EXPECT_EQ(game.userName, "[Round 3 Deck]");
    EXPECT_TRUE(game.decks[2].empty());

    // Anything but "False" is custom; unknown lines are passed over; a time limit off
    // the menu is kept as it stands.
    const std::string odd = replaceAll(replaceAll(replaceAll(good, "True", "false"), "[UserName]",
                                                  "[Comment]\r\nsaved at home\r\n[UserName]"),
                                       "[Time Limit]\r\n90", "[Time Limit]\r\n45");
    ASSERT_TRUE(ParseSavedGame(odd, game, &reason)) << reason;
    EXPECT_TRUE(game.custom);
    EXPECT_EQ(game.seconds, 45);
    EXPECT_EQ(game.userName, "Ola");

    // A refused text leaves what was there alone.
    SavedGame before;
    before.userName = "kept";
    EXPECT_FALSE(ParseSavedGame("[Card Goal]\r\n9\r\n", before));
    EXPECT_EQ(before.userName, "kept");
}

TEST(SavedGameFile, FilesThatCannotBeReadAreRefused) {
    QTemporaryDir dir;
    const std::string folder = dir.path().toStdString() + "/";
    SavedGame game;
    std::string reason;
    EXPECT_FALSE(ReadSavedGame(folder + "none.tfl", game, &reason));
    EXPECT_EQ(reason, "it does not exist");
    EXPECT_FALSE(ReadSavedGame(dir.path().toStdString(), game, &reason));
    EXPECT_EQ(reason, "it is not a file");

    // 2 MiB that start as a saved game are not read into memory.
    const std::string big = SavedGameText(goal11Game(), "Ola") + std::string(2 << 20, '\n');
    ASSERT_TRUE(writeFileAtomic(folder + "big.tfl", big));
    EXPECT_FALSE(ReadSavedGame(folder + "big.tfl", game, &reason));
    EXPECT_EQ(reason, "it is larger than 1 MiB (" + std::to_string(big.size()) + " bytes)");
}

}  // namespace corvanna
