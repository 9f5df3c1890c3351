#include <gtest/gtest.h>

#include "common/Format.h"
#include "common/SettingsFile.h"

namespace corvanna {

TEST(SettingsFile, ItemsFollowTheCommaAndQuoteRules) {
    const auto items = settingsItems("[Key]\r\n  \"Quoted, with comma\"\r\nAnn, Arbor\r\n\r\nlast");
    ASSERT_EQ(items.size(), 6u);
    EXPECT_EQ(items[0], "[Key]");
    EXPECT_EQ(items[1], "Quoted, with comma");
    EXPECT_EQ(items[2], "Ann");
    EXPECT_EQ(items[3], "Arbor");
    EXPECT_EQ(items[4], "");
    EXPECT_EQ(items[5], "last");
}

TEST(SettingsFile, ReaderIsCaseSensitiveLastKeyWinsUnknownPassedOver) {
    std::string sounds, name;
    int timesSeen = 0;
    SettingsReader r;
    r.on("Play Sounds", [&](const std::string& v) { sounds = v, ++timesSeen; });
    r.on("User Name", [&](const std::string& v) { name = v; });
    r.applyText(
        "[play sounds]\r\nFalse\r\n\r\n[Nonsense]\r\n[Play Sounds]\r\n\r\n"
        "[Play Sounds]\r\nTrue\r\n\r\n[User Name]\r\nJo, [Play Sounds]\r\nFalse\r\n");
    // "Jo, [Play Sounds]" is two items: the second is read as a key again.
    EXPECT_EQ(name, "Jo");
    EXPECT_EQ(sounds, "False");
    EXPECT_EQ(timesSeen, 3);
    EXPECT_FALSE(settingsTruth("true"));
    EXPECT_TRUE(settingsTruth("True"));
}

TEST(SettingsFile, WriterMakesKeyValueAndEmptyLines) {
    const std::string text =
        SettingsWriter().add("Time", 90LL).add("Play Sounds", true).add("State", "None").text();
    EXPECT_EQ(text, "[Time]\r\n90\r\n\r\n[Play Sounds]\r\nTrue\r\n\r\n[State]\r\nNone\r\n\r\n");
}

TEST(Format, ScoresRoundingAndTimes) {
    EXPECT_EQ(formatScore(0), "0");
    EXPECT_EQ(formatScore(999), "999");
    EXPECT_EQ(formatScore(1000), "1,000");
    EXPECT_EQ(formatScore(80000), "80,000");
    EXPECT_EQ(formatScore(2147483647), "2,147,483,647");
    EXPECT_EQ(formatScore(-1234), "-1,234");
    EXPECT_EQ(roundHalfEven(7.5), 8);
    EXPECT_EQ(roundHalfEven(22.5), 22);
    EXPECT_EQ(roundHalfEven(2.5), 2);
    EXPECT_EQ(roundHalfEven(-0.5), 0);
    EXPECT_EQ(formatTimeOfDay(0, 5), "12:05 AM");
    EXPECT_EQ(formatTimeOfDay(9, 0), "9:00 AM");
    EXPECT_EQ(formatTimeOfDay(12, 30), "12:30 PM");
    EXPECT_EQ(formatTimeOfDay(23, 59), "11:59 PM");
    EXPECT_EQ(MinutesBetween({2026, 1, 1, 10, 0, 59}, {2026, 1, 1, 10, 1, 0}), 1);
    EXPECT_EQ(MinutesBetween({2026, 1, 1, 10, 0, 0}, {2026, 1, 1, 10, 4, 59}), 4);
    EXPECT_EQ(MinutesBetween({2026, 12, 31, 23, 59, 0}, {2027, 1, 1, 0, 1, 0}), 2);
}

TEST(Format, TypedNumbersStopWhereTheNumberEndsAndStayWithinTheLimit) {
    EXPECT_EQ(plainNumber("123abc"), 123);
    EXPECT_EQ(plainNumber("  -42.5 points"), -42.5);
    EXPECT_EQ(plainNumber("1,000"), 1);
    EXPECT_EQ(plainNumber("x7"), 0);
    EXPECT_EQ(plainNumber(std::string(40, '9')), 1e15);
    EXPECT_EQ(plainNumber("999999999999999.5"), 999999999999999.5);
    // A fraction behind a whole part already at the limit does not carry it past.
    EXPECT_EQ(plainNumber("9999999999999999.9"), 1e15);
    EXPECT_EQ(plainNumber("-1000000000000000.5"), -1e15);
    // The nearest number to what was typed, whatever the digits after the point.
    EXPECT_EQ(plainNumber("0.3"), 0.3);
    EXPECT_EQ(plainNumber(" 9.99999999999999999"), 10.0);
    EXPECT_LT(plainNumber("4.99999999"), 5.0);
    EXPECT_EQ(plainNumber("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(plainNumber(std::string(400, '7') + ".5"), 1e15);
}

}  // namespace corvanna
