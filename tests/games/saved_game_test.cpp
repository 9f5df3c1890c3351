// Tierfall's saved games: the file written for the last game, read back byte for byte,
// the score comments and the message a loaded game shows, and files that are damaged,
// cut short or not saved games at all.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <algorithm>
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

std::string goal11Text(const LastGame& g) {
    return "[Card Goal]\r\n11\r\n[Time Limit]\r\n90\r\n[Score]\r\n123456\r\n[Custom]\r\nTrue\r\n"
           "[UserName]\r\nMarta Quill\r\n[Round 1 Deck]\r\n" +
           lines(g.Tierfall.RoundDecks[0]) + "[Round 2 Deck]\r\n" +
           lines(g.Tierfall.RoundDecks[1]) + "\r\n";
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

TEST(SavedGameFile, AGoal11GameIsWrittenAndReadBackByteForByte) {
    const LastGame g = goal11Game();
    const std::string text = SavedGameText(g, "Marta Quill");
    EXPECT_EQ(text, goal11Text(g));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 10 + 1 + 52 + 1 + 52 + 1);

    SavedGame game;
    std::string reason;
    ASSERT_TRUE(ParseSavedGame(text, game, &reason)) << reason;
    EXPECT_EQ(game.cardGoal, 11);
    EXPECT_EQ(game.seconds, 90);
    EXPECT_EQ(game.scoreText, "123456");
    EXPECT_TRUE(game.custom);
    EXPECT_EQ(game.userName, "Marta Quill");
    EXPECT_EQ(game.decks[0], g.Tierfall.RoundDecks[0]);
    EXPECT_EQ(game.decks[1], g.Tierfall.RoundDecks[1]);
    EXPECT_TRUE(game.decks[2].empty());
    EXPECT_EQ(SavedGameText(game), text);

    // Through a file, as the dialogs do it.
    QTemporaryDir dir;
    const std::string path = dir.path().toStdString() + "/game.tfl";
    ASSERT_TRUE(writeFileAtomic(path, text));
    SavedGame fromFile;
    ASSERT_TRUE(ReadSavedGame(path, fromFile, &reason)) << reason;
    EXPECT_EQ(SavedGameText(fromFile), text);
}

TEST(SavedGameFile, AGoal14GameOfThreeRoundsByAnAnonymousUser) {
    LastGame g;
    g.Tierfall.CardGoal = 14;
    g.RoundSeconds = 30;
    g.Tierfall.LastScore = 0;
    g.CustomScoring = false;
    for (int r = 0; r < 3; ++r)
        g.Tierfall.RoundDecks[r] = shuffledDeck(14, 10 + r);
    const std::string text = SavedGameText(g, "");
    EXPECT_EQ(text,
              "[Card Goal]\r\n14\r\n[Time Limit]\r\n30\r\n[Score]\r\n0\r\n[Custom]\r\nFalse\r\n"
              "[UserName]\r\nan anonymous user\r\n[Round 1 Deck]\r\n" +
                  lines(g.Tierfall.RoundDecks[0]) + "[Round 2 Deck]\r\n" +
                  lines(g.Tierfall.RoundDecks[1]) + "[Round 3 Deck]\r\n" +
                  lines(g.Tierfall.RoundDecks[2]) + "\r\n");
    EXPECT_EQ(g.Tierfall.RoundDecks[0].size(), 65u);

    SavedGame game;
    std::string reason;
    ASSERT_TRUE(ParseSavedGame(text, game, &reason)) << reason;
    EXPECT_EQ(game.cardGoal, 14);
    EXPECT_FALSE(game.custom);
    EXPECT_EQ(game.userName, "an anonymous user");
    for (int r = 0; r < 3; ++r)
        EXPECT_EQ(game.decks[r], g.Tierfall.RoundDecks[r]);
    EXPECT_EQ(SavedGameText(game), text);
}

TEST(SavedGameFile, OnlyTheRoundsThatWereDealtAreWritten) {
    LastGame g = goal11Game();
    g.Tierfall.RoundDecks[1] = std::vector<std::string>(53);  // blanks: never reached
    g.Tierfall.RoundDecks[2].clear();                         // never even sized
    const std::string text = SavedGameText(g, "Ola");
    EXPECT_THAT(text, HasSubstr("[Round 1 Deck]\r\n"));
    EXPECT_THAT(text, ::testing::Not(HasSubstr("[Round 2 Deck]")));
    EXPECT_THAT(text, ::testing::Not(HasSubstr("[Round 3 Deck]")));
    EXPECT_TRUE(text.ends_with(g.Tierfall.RoundDecks[0][52] + "\r\n\r\n"));

    // A name's line breaks would start lines of their own: they go in as blanks.
    EXPECT_THAT(SavedGameText(g, "Ola\r\n[Card Goal]\r\n9"),
                HasSubstr("[UserName]\r\nOla  [Card Goal]  9\r\n[Round 1 Deck]"));
    // Blanks alone are no name.
    EXPECT_THAT(SavedGameText(g, "   "), HasSubstr("[UserName]\r\nan anonymous user\r\n"));
}

TEST(SavedGameFile, TheScoreCommentAtEachBandEdge) {
    const std::vector<std::pair<long long, std::string>> cases{
        {-5, "amassed a pitiful"},
        {0, "amassed a pitiful"},
        {20000, "amassed a pitiful"},
        {20001, "accumulated a sorry"},
        {40000, "accumulated a sorry"},
        {40001, "earned a pretty weak"},
        {60000, "earned a pretty weak"},
        {60001, "earned a mediocre"},
        {80000, "earned a mediocre"},
        {80001, "earned a respectable"},
        {100000, "earned a respectable"},
        {100001, "earned a decent"},
        {120000, "earned a decent"},
        {120001, "earned a darned good"},
        {140000, "earned a darned good"},
        {140001, "earned an incredible"},
        {160000, "earned an incredible"},
        {160001, "earned an unbelievable"},
        {9223372036854775807LL, "earned an unbelievable"},
    };
    for (const auto& [score, comment] : cases)
        EXPECT_EQ(SavedGameComment(score), comment) << score;
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

    game.custom = false;
    game.scoreText = "20000";
    EXPECT_EQ(SavedGameMessage(game, 120),
              "This game was saved by Marta Quill. He or she amassed a pitiful score of 20,000 "
              "in this game. \nCustomized scoring was not in effect when this game was played. "
              "This game was saved with the time limit set to 90. Your time limit is currently "
              "set to 120. Do you want to change your time limit to 90?");

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

    EXPECT_EQ(refusal(""), "it does not start with [Card Goal]");
    EXPECT_EQ(refusal("\r\n" + good), "it does not start with [Card Goal]");
    EXPECT_EQ(refusal(replaceAll(good, "[Card Goal]", "[card goal]")),
              "it does not start with [Card Goal]");
    EXPECT_EQ(refusal(replaceAll(good, "[Card Goal]\r\n11", "[Card Goal]\r\n9")),
              "the card goal is not a number from 10 to 15");
    EXPECT_EQ(refusal(replaceAll(good, "[Card Goal]\r\n11", "[Card Goal]\r\n16")),
              "the card goal is not a number from 10 to 15");
    EXPECT_EQ(refusal(replaceAll(good, "[Card Goal]\r\n11", "[Card Goal]\r\neleven")),
              "the card goal is not a number from 10 to 15");
    EXPECT_EQ(refusal("[Card Goal]"), "the card goal is not a number from 10 to 15");

    for (const std::string seconds : {"0", "-30", "32768", "1.5", "sixty", ""}) {
        EXPECT_EQ(refusal(replaceAll(good, "[Time Limit]\r\n90", "[Time Limit]\r\n" + seconds)),
                  "the time limit is not a whole number of seconds")
            << seconds;
    }
    EXPECT_EQ(refusal(replaceAll(good, "[Time Limit]\r\n90\r\n", "")), "it has no time limit");

    // A deck cut short, whether the file ends or the next key comes too soon.
    const std::size_t round2 = good.find("[Round 2 Deck]");
    EXPECT_EQ(refusal(good.substr(0, good.find("[Round 1 Deck]") + 16 + 30 * 4)),
              "round 1 deck is cut short");
    EXPECT_EQ(refusal(good.substr(0, round2 + 16 + 4 * 10)), "round 2 deck is cut short");
    const std::string firstCode = g.Tierfall.RoundDecks[0][1] + "\r\n";
    EXPECT_EQ(refusal(replaceAll(good, "[Round 1 Deck]\r\n" + firstCode, "[Round 1 Deck]\r\n")),
              "round 1 deck holds \"[Round 2 Deck]\", which is not a card");

    // Codes that are no card, and cards that are not the goal's deck.
    const std::string lastCode = "\r\n" + g.Tierfall.RoundDecks[1][52] + "\r\n\r\n";
    for (const std::string code : {"14S", "1X", "01S", "S1", " "}) {
        EXPECT_THAT(refusal(replaceAll(good, lastCode, "\r\n" + code + "\r\n\r\n")),
                    HasSubstr("round 2 deck holds \""))
            << code;
    }
    std::string oneAceTooMany = good;
    const std::size_t some2 = oneAceTooMany.find("\r\n2S\r\n", round2);
    ASSERT_NE(some2, std::string::npos);
    oneAceTooMany.replace(some2, 6, "\r\n1S\r\n");
    EXPECT_EQ(refusal(oneAceTooMany), "round 2 deck does not hold the cards of card goal 11");
    // A goal 12 deck read as goal 11: its first 52 cards are not a goal 11 deck.
    LastGame g12 = goal11Game();
    g12.Tierfall.CardGoal = 12;
    g12.Tierfall.RoundDecks[0] = shuffledDeck(12, 7);
    g12.Tierfall.RoundDecks[1].clear();
    EXPECT_EQ(
        refusal(replaceAll(SavedGameText(g12, "Ola"), "[Card Goal]\r\n12", "[Card Goal]\r\n11")),
        "round 1 deck does not hold the cards of card goal 11");
    // A second goal line changes the goal the decks are checked against.
    EXPECT_EQ(refusal(good + "[Card Goal]\r\n12\r\n"),
              "round 1 deck does not hold the cards of card goal 12");

    // Rounds missing.
    const std::string noDecks = good.substr(0, good.find("[Round 1 Deck]"));
    EXPECT_EQ(refusal(noDecks), "it has no round 1 deck");
    EXPECT_EQ(refusal(replaceAll(good, "[Round 1 Deck]", "[Round 3 Deck]")),
              "it has no round 1 deck");
    EXPECT_EQ(refusal(replaceAll(good, "[Round 2 Deck]", "[Round 3 Deck]")),
              "it has a round 3 deck but no round 2 deck");

    // Binary junk, and too much of anything.
    std::string junk = good;
    junk[40] = '\0';
    EXPECT_EQ(refusal(junk), "it holds binary data");
    EXPECT_EQ(refusal(std::string("\x7f"
                                  "ELF\x02\x01\x01",
                                  7) +
                      good),
              "it holds binary data");
    const std::string over = good + std::string(kMaxSavedGameBytes, ' ');
    EXPECT_EQ(refusal(over), "it is larger than 1 MiB (" + std::to_string(over.size()) + " bytes)");
}

TEST(SavedGameFile, WhatAReaderMustTolerate) {
    const LastGame g = goal11Game();
    const std::string good = SavedGameText(g, "Ola");
    SavedGame game;
    std::string reason;

    // Line ends without CR read the same.
    ASSERT_TRUE(ParseSavedGame(replaceAll(good, "\r\n", "\n"), game, &reason)) << reason;
    EXPECT_EQ(SavedGameText(game), good);

    // A name is an item: it ends at its comma, and leading blanks and quotes go.
    ASSERT_TRUE(ParseSavedGame(SavedGameText(g, "Smith, Ola"), game, &reason)) << reason;
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
    ASSERT_TRUE(ParseSavedGame(replaceAll(good, "True", "False"), game, &reason)) << reason;
    EXPECT_FALSE(game.custom);

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
