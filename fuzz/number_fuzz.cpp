// Any bytes as a number typed into a dialog or read from a settings file: the readers
// hold their ranges, agree with one another where their rules meet, read back what the
// score format writes, and a scoring dialog tells and focuses its bad fields.
//
// The whole input is the text. Its first eight bytes are also a real number and a whole
// number for the rounding and the score format; its first byte picks a scoring dialog's
// rules, and the lines after it are that dialog's fields.

#include <QTemporaryDir>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "common/Format.h"
#include "common/Program.h"
#include "common/ScoringFields.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "scores/frmComposeHighScore.h"
#include "virtual/FakePlatform.h"

#define FUZZ_TARGET_NAME "number_fuzz"
#include "FuzzCheck.h"

using namespace corvanna;

namespace {

constexpr double kPlainLimit = 1e15;  // plainNumber's promise

std::string withoutCommas(std::string s) {
    s.erase(std::remove(s.begin(), s.end(), ','), s.end());
    return s;
}

// Nearest whole number, half to even, for any real within 64 bits.
void checkRounding(double v, std::int64_t r, const char* what) {
    const double off = std::fabs(static_cast<double>(r) - v);
    check(off <= 0.5, what);
    if (off == 0.5)
        check(r % 2 == 0, what);
}

void checkPlainNumber(const std::string& text) {
    const double v = plainNumber(text);
    check(std::isfinite(v), "plainNumber is not finite");
    check(std::fabs(v) <= kPlainLimit, "plainNumber is past its limit of 1e15");
    // "123abc" reads as "123": what follows the number is not looked at.
    check(plainNumber(text + "x9") == v, "plainNumber reads past the number");
    check(plainNumber(text + ",000") == v, "plainNumber reads past a comma");
    checkRounding(v, roundHalfEven(v), "roundHalfEven of a typed number");
}

void checkScoreText(const std::string& text) {
    const std::int32_t r = ParseScoreText(text);
    const std::string plain = withoutCommas(text);
    check(ParseScoreText(plain) == r, "commas change the score read");
    // The number typed, held within 32 bits, then rounded.
    const double held = std::clamp<double>(plainNumber(plain), INT32_MIN, INT32_MAX);
    checkRounding(held, r, "ParseScoreText does not round half to even");
    // What the score box and the tables write reads back as itself.
    check(ParseScoreText(formatScore(r)) == r, "a formatted score reads back as another");
    check(ParseScoreText(std::to_string(r)) == r, "a score's digits read back as another");
}

// The settings readers agree where their rules meet, and read back what is written.
void checkSettingsNumbers(const std::string& text) {
    std::int64_t n = 12345;
    const bool isInteger = parseInteger(text, n);
    if (isInteger) {
        std::int64_t again = 0;
        check(parseInteger(std::to_string(n), again) && again == n,
              "a whole number written reads back as another");
        check(parseInteger(withoutCommas(formatScore(n)), again) && again == n,
              "a formatted number without commas reads back as another");
    }
    std::int32_t n32 = 54321;
    const bool is32 = parseInt32(text, n32);
    check(is32 == (isInteger && n >= INT32_MIN && n <= INT32_MAX),
          "parseInt32 takes or refuses the wrong text");
    if (is32)
        check(n32 == n, "parseInt32 reads another number than parseInteger");

    double d = 0.25;
    if (!parseReal(text, d))
        return;
    check(std::isfinite(d), "parseReal is not finite");
    if (isInteger)
        check(d == static_cast<double>(n), "parseReal and parseInteger read the same text apart");
    char buf[400];
    const auto written = std::to_chars(buf, buf + sizeof buf, d, std::chars_format::fixed);
    check(written.ec == std::errc(), "a real does not write");
    const std::string shortest(buf, written.ptr);
    double back = 0;
    if (shortest.size() <= 64)
        check(parseReal(shortest, back) && back == d, "a real written reads back as another");
}

void checkRawNumbers(const std::uint8_t* data, std::size_t size) {
    if (size < 8)
        return;
    double real;
    std::int64_t whole;
    std::memcpy(&real, data, sizeof real);
    std::memcpy(&whole, data, sizeof whole);
    // Every caller rounds a real well within 64 bits; past that a cast has no answer.
    if (std::isfinite(real) && std::fabs(real) < 0x1p62)
        checkRounding(real, roundHalfEven(real), "roundHalfEven is not half to even");
    const double clamped = std::clamp<double>(static_cast<double>(whole), INT32_MIN, INT32_MAX);
    check(ParseScoreText(formatScore(whole)) == static_cast<std::int32_t>(clamped),
          "a formatted score reads back as another");
}

// The scoring dialogs' field check over fields the input types: a message for each bad
// field and none for a good answer, the focus left on a field when one was bad.
void checkScoringFields(const std::uint8_t* data, std::size_t size) {
    static QTemporaryDir dir;
    if (size == 0)
        return;
    // Fresh each time: the platform keeps every message it was ever shown.
    FakePlatform fake;
    Program prog(fake, dir.path().toStdString(), 1);
    Form dialog(fake, "frmScoring");
    std::vector<TextBox*> boxes;
    for (int i = 0; i < 5; ++i)
        boxes.push_back(&dialog.add<TextBox>("txtField", i, nullptr));
    Control& elsewhere = dialog.add<Control>(ControlKind::CommandButton, "cmdOK", -1, nullptr);

    static const double kLimits[4][2] = {
        {1, 5000000}, {0, 0}, {-kPlainLimit, kPlainLimit}, {-2.5, 2.5}};
    const std::uint8_t flags = data[0];
    const auto& limits = kLimits[(flags >> 4) & 3];
    ScoringChecks checks;
    checks.stopAtFirst = flags & 1;
    checks.icon = (flags & 64) ? MsgIcon::Critical : MsgIcon::Exclamation;
    prog.state.AppTitle = "Tierfall!";

    // One field a line, at most five.
    std::vector<ScoringField> fields;
    const std::string rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    for (std::size_t from = 0; fields.size() < boxes.size();) {
        const std::size_t nl = rest.find('\n', from);
        ScoringField f;
        f.box = boxes[fields.size()];
        f.box->setText(rest.substr(from, nl == std::string::npos ? std::string::npos : nl - from));
        f.low = limits[0];
        f.high = limits[1];
        f.lowMessage = "too low";
        if (!(flags & 8))
            f.highMessage = "too high";
        if (flags & 2)
            f.lowText = "low";
        if (flags & 4)
            f.highText = "high";
        fields.push_back(f);
        if (nl == std::string::npos)
            break;
        from = nl + 1;
    }
    elsewhere.setFocus();
    fake.takeLog();
    std::vector<double> values{-1, -2};
    const bool good = CheckScoringFields(prog, fields, checks, values);
    check(values.size() == fields.size(), "a value missing or over");
    const auto told = fake.takeLog().size();
    check(good == (told == 0), "the answer disagrees with the messages");
    check(!checks.stopAtFirst || told <= 1, "more than one message after the first bad field");
    check(good == (dialog.activeControl() == &elsewhere), "the focus is not on a bad field");
    fake.takeErrors();
    fake.takeMessages();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    checkPlainNumber(text);
    checkScoreText(text);
    checkSettingsNumbers(text);
    checkRawNumbers(data, size);
    checkScoringFields(data, size);
    return 0;
}
