#include "common/Format.h"

#include <QDateTime>
#include <algorithm>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace corvanna {

std::int64_t roundHalfEven(double v) {
    return static_cast<std::int64_t>(std::nearbyint(v));  // default rounding mode is to even
}

std::string formatScore(std::int64_t v) {
    const bool negative = v < 0;
    const std::uint64_t magnitude =
        negative ? 0 - static_cast<std::uint64_t>(v) : static_cast<std::uint64_t>(v);
    std::string digits = std::to_string(magnitude);
    std::string out;
    const int n = static_cast<int>(digits.size());
    for (int i = 0; i < n; ++i) {
        out += digits[i];
        const int rest = n - 1 - i;
        if (rest > 0 && rest % 3 == 0)
            out += ',';
    }
    return negative ? "-" + out : out;
}

std::string formatTimeOfDay(int hour, int minute) {
    const int h12 = hour % 12 == 0 ? 12 : hour % 12;
    const std::string mm = (minute < 10 ? "0" : "") + std::to_string(minute);
    return std::to_string(h12) + ":" + mm + (hour < 12 ? " AM" : " PM");
}

long long MinutesBetween(const DateTime& a, const DateTime& b) {
    auto minutes = [](const DateTime& d) {
        const QDateTime t(QDate(d.year, d.month, d.day), QTime(d.hour, d.minute), Qt::UTC);
        return t.toSecsSinceEpoch() / 60;
    };
    return minutes(b) - minutes(a);
}

static std::string trimmed(const std::string& text) {
    std::size_t b = 0, e = text.size();
    while (b < e && std::isspace(static_cast<unsigned char>(text[b])))
        ++b;
    while (e > b && std::isspace(static_cast<unsigned char>(text[e - 1])))
        --e;
    return text.substr(b, e - b);
}

bool parseInteger(const std::string& text, std::int64_t& out) {
    const std::string t = trimmed(text);
    if (t.empty() || t.size() > 20)
        return false;
    std::size_t i = (t[0] == '-' || t[0] == '+') ? 1 : 0;
    if (i == t.size())
        return false;
    for (std::size_t k = i; k < t.size(); ++k)
        if (!std::isdigit(static_cast<unsigned char>(t[k])))
            return false;
    errno = 0;
    const long long v = std::strtoll(t.c_str(), nullptr, 10);
    if (errno == ERANGE)
        return false;
    out = v;
    return true;
}

bool parseReal(const std::string& text, double& out) {
    const std::string t = trimmed(text);
    if (t.empty() || t.size() > 64)
        return false;
    char* end = nullptr;
    const double v = std::strtod(t.c_str(), &end);
    if (end != t.c_str() + t.size() || !std::isfinite(v))
        return false;
    // Hex and exponent forms are not what a settings file holds.
    for (char c : t)
        if (!(std::isdigit(static_cast<unsigned char>(c)) || c == '.' || c == '-' || c == '+'))
            return false;
    out = v;
    return true;
}

void addToScore(std::int32_t& score, std::int64_t amount) {
    score =
        static_cast<std::int32_t>(std::clamp<std::int64_t>(score + amount, INT32_MIN, INT32_MAX));
}

double plainNumber(const std::string& text) {
    auto digit = [&text](std::size_t i) {
        return i < text.size() && std::isdigit(static_cast<unsigned char>(text[i]));
    };
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
        ++i;
    bool negative = false;
    if (i < text.size() && (text[i] == '-' || text[i] == '+'))
        negative = text[i++] == '-';
    const std::size_t start = i;
    bool nonZero = false;
    for (; digit(i); ++i)
        nonZero |= text[i] != '0';
    const bool wholeNonZero = nonZero;
    if (i < text.size() && text[i] == '.')
        for (++i; digit(i); ++i)
            nonZero |= text[i] != '0';
    // Read whole, not digit by digit: adding up tenths drifts ("0.3" came out above 0.3).
    constexpr double kLimit = 1e15;
    double value = 0;
    if (nonZero) {
        const auto r =
            std::from_chars(text.data() + start, text.data() + i, value, std::chars_format::fixed);
        if (r.ec == std::errc::result_out_of_range)
            value = wholeNonZero ? kLimit : 0;
        value = std::min(kLimit, value);
    }
    return negative ? -value : value;
}

bool parseInt32(const std::string& text, std::int32_t& out) {
    std::int64_t n;
    if (!parseInteger(text, n) || n < INT32_MIN || n > INT32_MAX)
        return false;
    out = static_cast<std::int32_t>(n);
    return true;
}

}  // namespace corvanna
