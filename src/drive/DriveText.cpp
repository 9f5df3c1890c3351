#include "drive/DriveText.h"

#include <charconv>
#include <cstdio>

namespace corvanna::drive {

namespace {
bool isBlank(char c) {
    return c == ' ' || c == '\t';
}
}  // namespace

std::string firstWord(const std::string& line, std::string& rest) {
    std::size_t i = 0;
    while (i < line.size() && isBlank(line[i]))
        ++i;
    std::size_t end = i;
    while (end < line.size() && !isBlank(line[end]))
        ++end;
    std::size_t next = end;
    while (next < line.size() && isBlank(line[next]))
        ++next;
    rest = line.substr(next);
    return line.substr(i, end - i);
}

std::string trim(const std::string& s) {
    std::size_t b = 0, e = s.size();
    while (b < e && isBlank(s[b]))
        ++b;
    while (e > b && isBlank(s[e - 1]))
        --e;
    return s.substr(b, e - b);
}

bool parseWhole(const std::string& text, std::int64_t low, std::int64_t high, std::int64_t& out) {
    if (text.empty() || text.size() > 20)
        return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (!(c >= '0' && c <= '9') && !(c == '-' && i == 0 && low < 0))
            return false;
    }
    std::int64_t v = 0;
    const auto r = std::from_chars(text.data(), text.data() + text.size(), v);
    if (r.ec != std::errc() || r.ptr != text.data() + text.size())
        return false;
    if (v < low || v > high)
        return false;
    out = v;
    return true;
}

bool parseUnsigned64(const std::string& text, std::uint64_t& out) {
    if (text.empty())
        return false;
    for (char c : text)
        if (c < '0' || c > '9')
            return false;
    const auto r = std::from_chars(text.data(), text.data() + text.size(), out);
    return r.ec == std::errc() && r.ptr == text.data() + text.size();
}

std::string printable(const std::string& s) {
    std::string out;
    out.reserve(s.size());
    for (unsigned char c : s) {
        if (c == '\n') {
            out += "\\n";
        } else if (c == '\r') {
            out += "\\r";
        } else if (c == '\t') {
            out += "\\t";
        } else if (c < 0x20 || c == 0x7F) {
            char buf[8];
            std::snprintf(buf, sizeof buf, "\\x%02X", c);
            out += buf;
        } else {
            out += static_cast<char>(c);
        }
    }
    return out;
}

std::string shown(const std::string& s) {
    constexpr std::size_t kMax = 80;
    std::string out = printable(s.size() > kMax ? s.substr(0, kMax) : s);
    if (s.size() > kMax)
        out += "...";
    return out;
}

std::string dumpValue(const std::string& s) {
    const std::string p = printable(s);
    if (!p.empty() && p.find_first_of(" \"") == std::string::npos)
        return p;
    std::string out = "\"";
    for (char c : p) {
        if (c == '"')
            out += '\\';
        out += c;
    }
    return out + "\"";
}

}  // namespace corvanna::drive
