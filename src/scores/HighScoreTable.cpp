#include "scores/HighScoreTable.h"

#include <cstdio>
#include <limits>

#include "common/FileStore.h"

namespace corvanna {

namespace {

constexpr const char* kMonths[12] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                     "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

bool isLineEnd(char c) {
    return c == '\r' || c == '\n';
}

// Bytes that no text row holds: what makes binary junk show as junk.
bool isControl(unsigned char c) {
    return (c < 0x20 && c != '\t') || c == 0x7F;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string trimRight(std::string_view s) {
    while (!s.empty() && isBlank(s.back()))
        s.remove_suffix(1);
    return std::string(s);
}

bool parseScore(std::string_view text, std::int64_t& out) {
    bool negative = false;
    std::size_t i = 0;
    if (!text.empty() && text[0] == '-') {
        negative = true;
        i = 1;
    }
    if (i == text.size())
        return false;
    std::int64_t v = 0;
    for (; i < text.size(); ++i) {
        if (!isDigit(text[i]))
            return false;
        const int d = text[i] - '0';
        if (v > (std::numeric_limits<std::int64_t>::max() - d) / 10)
            return false;
        v = v * 10 + d;
    }
    out = negative ? -v : v;
    return true;
}

// Reads one field from pos: leading blanks skipped, ended by a comma, a line end or the
// end of the bytes. stop tells which ended it: ',', '\n' (any line end) or 0.
std::string_view readField(std::string_view bytes, std::size_t& pos, char& stop) {
    while (pos < bytes.size() && isBlank(bytes[pos]))
        ++pos;
    const std::size_t start = pos;
    while (pos < bytes.size() && bytes[pos] != ',' && !isLineEnd(bytes[pos]))
        ++pos;
    const std::string_view field = bytes.substr(start, pos - start);
    if (pos == bytes.size()) {
        stop = 0;
    } else if (bytes[pos] == ',') {
        stop = ',';
        ++pos;
    } else {
        stop = '\n';
        // CR LF is one line end, as are a lone LF or CR.
        if (bytes[pos] == '\r' && pos + 1 < bytes.size() && bytes[pos + 1] == '\n')
            ++pos;
        ++pos;
    }
    return field;
}

bool hasControl(std::string_view s) {
    for (char c : s)
        if (isControl(static_cast<unsigned char>(c)))
            return true;
    return false;
}

bool fail(std::string* error, const std::string& why) {
    if (error)
        *error = why;
    return false;
}

}  // namespace

std::string formatHighScoreDate(const DateTime& t) {
    const int month = (t.month >= 1 && t.month <= 12) ? t.month : 1;
    int hour12 = t.hour % 12;
    if (hour12 == 0)
        hour12 = 12;
    char buf[40];
    std::snprintf(buf, sizeof buf, "%s %02d %04d %02d:%02d %s", kMonths[month - 1], t.day, t.year,
                  hour12, t.minute, t.hour < 12 ? "am" : "pm");
    return buf;
}

bool parseHighScoreRows(std::string_view bytes, std::vector<HighScoreRow>& rows,
                        std::string* error) {
    std::vector<HighScoreRow> out;
    std::size_t pos = 0;
    // Nothing but blanks and line ends left: the table has ended, however many rows it has.
    auto ended = [&] {
        for (std::size_t i = pos; i < bytes.size(); ++i)
            if (!isBlank(bytes[i]) && !isLineEnd(bytes[i]))
                return false;
        return true;
    };
    for (int i = 0; i < HighScoreRowCount && !ended(); ++i) {
        const std::string row = "row " + std::to_string(i + 1);
        char stop = 0;
        const std::string_view name = readField(bytes, pos, stop);
        if (stop != ',')
            return fail(error, row + " has no score");
        const std::string_view score = readField(bytes, pos, stop);
        if (stop != ',')
            return fail(error, row + " has no date");
        const std::string_view date = readField(bytes, pos, stop);
        // A fourth field would be read as the next row's name, and its score with it.
        if (stop == ',')
            return fail(error, row + " has more than three fields");
        if (hasControl(name) || hasControl(score) || hasControl(date))
            return fail(error, row + " holds characters that are not text");
        HighScoreRow r;
        r.name = std::string(name);
        const std::string scoreText = trimRight(score);
        if (!parseScore(scoreText, r.score))
            return fail(error, row + " has a score that is not a number (\"" + scoreText + "\")");
        // The date is only ever shown, as it was written.
        r.date = trimRight(date);
        out.push_back(std::move(r));
    }
    if (out.empty())
        return fail(error, "it holds no rows");
    rows = std::move(out);
    return true;
}

bool readHighScoreRows(const std::string& path, std::vector<HighScoreRow>& rows,
                       std::string* error) {
    std::string bytes, why;
    switch (readWholeFile(path, bytes, &why)) {
        case ReadStatus::Missing: return fail(error, "it does not exist");
        case ReadStatus::Failed: return fail(error, why);
        case ReadStatus::Ok: break;
    }
    return parseHighScoreRows(bytes, rows, error);
}

std::string HighScoreTable::seedText(std::int64_t seedScore) {
    HighScoreRow seed{std::string(HighScoreSeedName), seedScore, std::string(HighScoreSeedDate)};
    std::string text;
    for (int i = 0; i < HighScoreRowCount; ++i)
        text += rowText(seed);
    return text;
}

std::string HighScoreTable::rowText(const HighScoreRow& row) {
    return row.name + ", " + std::to_string(row.score) + ", " + row.date + "\r\n";
}

int HighScoreTable::rankOf(const std::vector<HighScoreRow>& rows, std::int64_t score) {
    const int n = std::min<int>(static_cast<int>(rows.size()), HighScoreRowCount);
    for (int i = 0; i < n; ++i)
        if (rows[i].score < score)
            return i;
    return -1;
}

std::string HighScoreTable::insertedText(const std::vector<HighScoreRow>& rows, int row,
                                         const HighScoreRow& newRow) {
    // The new row goes in front of the one it beat, and the count of written rows moves
    // on by two; so an entry at index 9 keeps the old tenth row behind it.
    std::string text;
    int i = 0;
    for (const HighScoreRow& r : rows) {
        if (i >= HighScoreRowCount)
            break;
        if (i == row) {
            text += rowText(newRow);
            ++i;
        }
        text += rowText(r);
        ++i;
    }
    return text;
}

bool HighScoreTable::exists() const {
    return fileExists(path_);
}

bool HighScoreTable::read(std::string* error) {
    return readHighScoreRows(path_, rows_, error);
}

}  // namespace corvanna
