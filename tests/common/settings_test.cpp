#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "common/Format.h"
#include "common/SettingsFile.h"
#include "common/frame/ScoringDialog.h"
#include "common/frame/SettingBindings.h"
#include "virtual/FakePlatform.h"

namespace corvanna {

TEST(SettingsFile, ItemsFollowTheCommaAndQuoteRules) {
    EXPECT_EQ(
        settingsItems("[Key]\r\n  \"Quoted, with comma\"\r\nAnn, Arbor\r\n\r\nlast"),
        (std::vector<std::string>{"[Key]", "Quoted, with comma", "Ann", "Arbor", "", "last"}));
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

namespace {

struct Limits {
    std::int16_t Max = 300, Min = 100;
    std::int32_t Bonus = 200000;
    double Size = 9540;
};

// A program of its own for the values above, in a scratch folder.
struct Scratch {
    QTemporaryDir dir;
    FakePlatform fake;
    Program prog{fake, dir.path().toStdString(), 1};
    Limits& values() { return prog.gameValues<Limits>(); }
};

}  // namespace

TEST(SettingBindings, AValueOutsideItsTypeWidthOrLimitsKeepsTheDefault) {
    Scratch s;
    const SettingBinding max = setting("Max", &Limits::Max, 300);
    const SettingBinding bonus = setting("Bonus", &Limits::Bonus, 200000).limits(1, 5000000);
    const SettingBinding colour =
        setting("Colour", &Limits::Min, 1).limits(0, 5).passOverOffLimits();
    const SettingBinding size = setting("Size", &Limits::Size, 9540).limits(1, 200000);
    const struct {
        const SettingBinding& binding;
        const char* text;
        SettingRead read;
        double holds;
    } cases[] = {
        {max, " -32768 ", SettingRead::Taken, -32768},
        {max, "twelve", SettingRead::Refused, 300},
        {max, "12.5", SettingRead::Refused, 300},
        {max, "32768", SettingRead::Refused, 300},
        {max, "", SettingRead::Refused, 300},
        {bonus, "5000000", SettingRead::Taken, 5000000},
        {bonus, "5000001", SettingRead::Refused, 200000},
        {bonus, "0", SettingRead::Refused, 200000},
        {bonus, "2147483648", SettingRead::Refused, 200000},
        {colour, "7", SettingRead::PassedOver, 1},
        {colour, "x", SettingRead::Refused, 1},
        {size, "8000.6", SettingRead::Taken, 8000.6},
        {size, "1e5", SettingRead::Refused, 9540},
        {size, "nan", SettingRead::Refused, 9540},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.binding.key + " '" + c.text + "'");
        setSettingDefaults({c.binding}, s.prog, nullptr);
        EXPECT_EQ(readSetting(c.binding, c.text, s.prog, nullptr), c.read);
        EXPECT_EQ(settingNumber(c.binding, s.prog), c.holds);
    }
}

TEST(ScoringDialog, EveryFieldIsCheckedAndStoredAsItGoesAndAMaximumMustExceedItsMinimum) {
    Scratch s;
    const SettingTable table{setting("Bonus", &Limits::Bonus, 200000).custom(),
                             setting("Max", &Limits::Max, 300).custom(),
                             setting("Min", &Limits::Min, 100).custom()};
    struct Dialog : ScoringDialog {
        Dialog(Program& p, const SettingTable& t)
            : ScoringDialog(p, t, "frmLimits", Checking::EveryField, MsgIcon::Information, {}),
              txtBonus(AddField("lblBonus", "Bonus:", "txtBonus", "Bonus")),
              txtMax(AddField("lblMax", "Maximum:", "txtMax", "Max")),
              txtMin(AddField("lblMin", "Minimum:", "txtMin", "Min")) {
            ScoringField bonus = Between(0, 2147483647, "bonus low", "bonus high", true);
            bonus.storesPutBack = true;
            SetChecks(txtBonus, bonus);
            // Fivestack's pair: each must lie above 0 and up to 10000, the maximum above the
            // minimum; only the bonus stores what it puts back.
            auto upTo10000 = [](std::vector<ScoringCheck> ahead, const char* high) {
                ScoringField rule;
                rule.ahead = std::move(ahead);
                rule.high = 10000;
                rule.highMessage = high;
                rule.highText = "10000";
                return rule;
            };
            const auto notAbove0 = [](double v) { return v <= 0; };
            SetChecks(txtMax, upTo10000({AboveField(txtMin, "max at min"),
                                         {notAbove0, "max at 0", [] { return "0"; }}},
                                        "max high"));
            SetChecks(txtMin,
                      upTo10000({BelowField(txtMax, "min at max"), {notAbove0, "min at 0", {}}},
                                "min high"));
            AfterStored(txtMin, [this] { ++minStored; });
            AddButtons();
        }
        TextBox &txtBonus, &txtMax, &txtMin;
        int minStored = 0;
    };
    using Texts = std::vector<std::string>;
    const struct {
        Texts typed, messages, after;
        Limits stored;
        const char* focus;  // empty: the dialog closed
    } cases[] = {
        // Letters read as 0; a fraction is rounded half to even; empty is 0, refused here.
        {{"lots", "2.5", ""}, {"min at 0"}, {"lots", "2.5", ""}, {2, 100, 0}, "txtMin"},
        // Huge is held at the top and stored; a maximum at its minimum gets the minimum + 1.
        {{"99999999999999999999", "100", "100"},
         {"bonus high", "max at min"},
         {"2147483647", "101", "100"},
         {300, 100, 2147483647},
         "txtMax"},
        {{"-5", "20000", "7.5"},
         {"bonus low", "max high"},
         {"0", "10000", "7.5"},
         {300, 8, 0},
         "txtMax"},
        {{"150000", "400", "50"}, {}, {"150000", "400", "50"}, {400, 50, 150000}, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.typed[0] + " | " + c.typed[1] + " | " + c.typed[2]);
        s.values() = Limits{};
        auto& d = s.prog.load<Dialog>(table);
        d.Form_Load();
        EXPECT_EQ((Texts{d.txtBonus.text(), d.txtMax.text(), d.txtMin.text()}),
                  (Texts{"200000", "300", "100"}));
        d.txtBonus.setText(c.typed[0]);
        d.txtMax.setText(c.typed[1]);
        d.txtMin.setText(c.typed[2]);
        s.fake.takeMessages();
        d.cmdOK_Click();
        EXPECT_EQ(s.fake.takeMessages(), c.messages);
        EXPECT_EQ((Texts{d.txtBonus.text(), d.txtMax.text(), d.txtMin.text()}), c.after);
        EXPECT_EQ(s.values().Max, c.stored.Max);
        EXPECT_EQ(s.values().Min, c.stored.Min);
        EXPECT_EQ(s.values().Bonus, c.stored.Bonus);
        EXPECT_EQ(d.minStored, std::string(c.focus) == "txtMin" ? 0 : 1);
        EXPECT_EQ(s.prog.findForm("frmLimits") == nullptr, !*c.focus);
        if (*c.focus) {
            EXPECT_EQ(d.activeControl()->name(), c.focus);
            // Default gives the bindings' defaults, and they are not custom.
            d.cmdDefault_Click();
            d.cmdOK_Click();
            EXPECT_FALSE(customScoring(table, s.prog));
        }
    }
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
