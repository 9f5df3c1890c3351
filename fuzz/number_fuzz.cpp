// Any bytes as a number typed into a dialog or read from a settings file: the readers
// hold their ranges, agree with one another where their rules meet, read back what the
// score format writes, and a scoring dialog tells, marks and focuses exactly its bad fields.
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
#include <limits>
#include <optional>
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

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

// What std::isspace takes in the "C" locale: the blanks parseInteger and parseReal drop.
bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r';
}

std::string spaceTrimmed(const std::string& s) {
    std::size_t b = 0, e = s.size();
    while (b < e && isSpace(s[b]))
        ++b;
    while (e > b && isSpace(s[e - 1]))
        --e;
    return s.substr(b, e - b);
}

std::string withoutCommas(std::string s) {
    s.erase(std::remove(s.begin(), s.end(), ','), s.end());
    return s;
}

std::int32_t clamp32(double v) {
    return static_cast<std::int32_t>(std::clamp<double>(v, INT32_MIN, INT32_MAX));
}

// The plain number at the start of a text, found by its own scan: blanks, a sign, digits,
// a point and digits.
struct PlainScan {
    std::size_t end = 0;  // where the number stops
    bool negative = false;
    std::string whole;     // the digits before the point
    std::string fraction;  // the digits after it
};

PlainScan scanPlain(const std::string& text) {
    PlainScan s;
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
        ++i;
    if (i < text.size() && (text[i] == '-' || text[i] == '+'))
        s.negative = text[i++] == '-';
    while (i < text.size() && isDigit(text[i]))
        s.whole += text[i++];
    if (i < text.size() && text[i] == '.') {
        ++i;
        while (i < text.size() && isDigit(text[i]))
            s.fraction += text[i++];
    }
    s.end = i;
    return s;
}

// The whole part as plainNumber holds it: exact up to its limit, the limit above it.
double heldWhole(const std::string& digits) {
    const std::size_t first = std::min(digits.find_first_not_of('0'), digits.size());
    const std::string significant = digits.substr(first);
    if (significant.size() > 15)
        return kPlainLimit;
    std::int64_t n = 0;
    for (char c : significant)
        n = n * 10 + (c - '0');
    return std::min(kPlainLimit, static_cast<double>(n));
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

    const PlainScan s = scanPlain(text);
    const std::string number = text.substr(0, s.end);
    // "123abc" reads as "123": what follows the number is not looked at.
    check(plainNumber(number) == v, "plainNumber reads past the number");
    check(plainNumber(number + "x9") == v, "plainNumber reads past the number");
    check(plainNumber(number + ",000") == v, "plainNumber reads past a comma");
    if (s.whole.empty() && s.fraction.empty()) {
        check(v == 0, "no digits but a number");
        return;
    }
    check(s.negative ? v <= 0 : v >= 0, "plainNumber has the wrong sign");
    const double whole = heldWhole(s.whole);
    const bool fractionZero = s.fraction.find_first_not_of('0') == std::string::npos;
    if (fractionZero)
        check(std::fabs(v) == whole, "a whole number is not read exactly");
    else
        check(std::fabs(v) >= whole && std::fabs(v) <= whole + 1,
              "the fraction moves the number past its whole part");
    if (!s.negative) {
        // The sign is the only difference.
        std::string negated = text;
        const std::size_t at = text.find_first_not_of(" \t");
        negated.insert(at == std::string::npos ? text.size() : at, "-");
        if (at == std::string::npos || text[at] != '+')
            check(plainNumber(negated) == -v, "a minus sign changes more than the sign");
    }
    const std::int64_t r = roundHalfEven(v);
    checkRounding(v, r, "roundHalfEven of a typed number");
}

void checkScoreText(const std::string& text) {
    const std::int32_t r = ParseScoreText(text);
    const std::string plain = withoutCommas(text);
    check(ParseScoreText(plain) == r, "commas change the score read");
    // The number typed, held within 32 bits, then rounded.
    const double held = std::clamp<double>(plainNumber(plain), INT32_MIN, INT32_MAX);
    checkRounding(held, r, "ParseScoreText does not round half to even");
    check(ParseScoreText(plain.substr(0, scanPlain(plain).end)) == r,
          "ParseScoreText reads past the number");
    // What the score box and the tables write reads back as itself.
    check(ParseScoreText(formatScore(r)) == r, "a formatted score reads back as another");
    check(ParseScoreText(std::to_string(r)) == r, "a score's digits read back as another");
}

// parseInteger by its own rules: blanks round it, a sign, digits, at most 20 characters
// in all, within 64 bits.
std::optional<std::int64_t> expectedInteger(const std::string& text) {
    const std::string t = spaceTrimmed(text);
    if (t.empty() || t.size() > 20)
        return std::nullopt;
    const std::size_t start = (t[0] == '-' || t[0] == '+') ? 1 : 0;
    if (start == t.size())
        return std::nullopt;
    __int128 n = 0;
    for (std::size_t i = start; i < t.size(); ++i) {
        if (!isDigit(t[i]))
            return std::nullopt;
        n = n * 10 + (t[i] - '0');
    }
    if (t[0] == '-')
        n = -n;
    if (n < INT64_MIN || n > INT64_MAX)
        return std::nullopt;
    return static_cast<std::int64_t>(n);
}

// parseReal by its own rules: blanks round it, a sign, digits with at most one point and
// at least one digit, at most 64 characters; no exponent, no hex, no words.
bool expectedReal(const std::string& text) {
    const std::string t = spaceTrimmed(text);
    if (t.empty() || t.size() > 64)
        return false;
    std::size_t i = (t[0] == '-' || t[0] == '+') ? 1 : 0;
    std::size_t digits = 0;
    while (i < t.size() && isDigit(t[i]))
        ++i, ++digits;
    if (i < t.size() && t[i] == '.')
        for (++i; i < t.size() && isDigit(t[i]); ++i)
            ++digits;
    return i == t.size() && digits > 0;
}

void checkSettingsNumbers(const std::string& text) {
    std::int64_t n = 12345;
    const bool isInteger = parseInteger(text, n);
    const auto expected = expectedInteger(text);
    check(isInteger == expected.has_value(), "parseInteger takes or refuses the wrong text");
    if (isInteger) {
        check(n == *expected, "parseInteger reads another number");
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
    const bool isReal = parseReal(text, d);
    check(isReal == expectedReal(text), "parseReal takes or refuses the wrong text");
    if (!isReal)
        return;
    check(std::isfinite(d), "parseReal is not finite");
    if (isInteger)
        check(d == static_cast<double>(n), "parseReal and parseInteger read the same text apart");
    // The shortest text that is the same number reads back as it.
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

    // The digits grouped by threes from the right.
    const std::string digits = std::to_string(whole);
    std::string grouped = digits;
    for (int at = static_cast<int>(digits.size()) - 3; at > (whole < 0 ? 1 : 0); at -= 3)
        grouped.insert(static_cast<std::size_t>(at), ",");
    const std::string formatted = formatScore(whole);
    check(formatted == grouped, "formatScore does not group the digits by threes");
    check(ParseScoreText(formatted) == clamp32(static_cast<double>(whole)),
          "a formatted score reads back as another");
    const double plain = plainNumber(digits);
    const double expected = std::fabs(static_cast<double>(whole)) <= kPlainLimit
                                ? static_cast<double>(whole)
                                : (whole < 0 ? -kPlainLimit : kPlainLimit);
    check(plain == expected, "plainNumber of a whole number's digits is another number");
}

// The scoring dialogs' field check over fields the input types.
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

    struct Limits {
        double low, high;
    };
    static const Limits kLimits[4] = {
        {1, 5000000}, {0, 0}, {-kPlainLimit, kPlainLimit}, {-2.5, 2.5}};
    const std::uint8_t flags = data[0];
    const Limits limits = kLimits[(flags >> 4) & 3];
    ScoringChecks checks;
    checks.stopAtFirst = flags & 1;
    checks.icon = (flags & 64) ? MsgIcon::Critical : MsgIcon::Exclamation;
    prog.state.AppTitle = "Tierfall!";

    // One field a line, at most five.
    std::vector<std::string> texts;
    const std::string rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    for (std::size_t from = 0; texts.size() < boxes.size();) {
        const std::size_t nl = rest.find('\n', from);
        texts.push_back(rest.substr(from, nl == std::string::npos ? std::string::npos : nl - from));
        if (nl == std::string::npos)
            break;
        from = nl + 1;
    }
    std::vector<ScoringField> fields;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        boxes[i]->setText(texts[i]);
        ScoringField f;
        f.box = boxes[i];
        f.low = limits.low;
        f.high = limits.high;
        f.lowMessage = "field " + std::to_string(i) + " too low";
        if (!(flags & 8))
            f.highMessage = "field " + std::to_string(i) + " too high";
        if (flags & 2)
            f.lowText = "low " + std::to_string(i);
        if (flags & 4)
            f.highText = "high " + std::to_string(i);
        fields.push_back(f);
    }
    elsewhere.setFocus();
    fake.takeLog();
    fake.takeErrors();

    std::vector<double> values{-1, -2};
    const bool good = CheckScoringFields(prog, fields, checks, values);

    check(values.size() == fields.size(), "a value missing or over");
    std::vector<std::string> expectedLog;
    Control* focus = &elsewhere;
    bool anyBad = false, stopped = false;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const double v = plainNumber(texts[i]);
        check(values[i] == v, "a field's value is not the number typed");
        const bool low = v<limits.low, high = v> limits.high;
        const ScoringField& f = fields[i];
        if (stopped || (!low && !high)) {
            check(boxes[i]->text() == texts[i], "a field not found bad was changed");
            continue;
        }
        anyBad = true;
        const std::string& message = low || f.highMessage.empty() ? f.lowMessage : f.highMessage;
        expectedLog.push_back("msgbox Tierfall! | " + std::string(msgIconName(checks.icon)) +
                              " | " + message + " -> OK");
        const std::optional<std::string>& put = low ? f.lowText : f.highText;
        check(boxes[i]->text() == (put ? *put : texts[i]), "a bad field got the wrong text");
        focus = boxes[i];
        stopped = checks.stopAtFirst;
    }
    check(good == !anyBad, "the answer disagrees with the fields");
    check(fake.takeLog() == expectedLog, "the messages are not one per bad field, in order");
    check(dialog.activeControl() == focus, "the focus is not on the last bad field told");
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
