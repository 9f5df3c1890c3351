#pragma once
// The high score table file: ten rows of "name, score, date" with CR LF line ends,
// kept per game and time limit. This header is the one place that knows its format;
// the games' rows give the names and seeds, and nobody else touches the bytes.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Platform.h"

namespace corvanna {

struct HighScoreRow {
    std::string name;
    std::int64_t score = 0;
    std::string date;
};

// Rows a table holds; an entry in the last place leaves an eleventh row behind it
// until the next rewrite.
inline constexpr int HighScoreRowCount = 10;
// A seed row has this name and date; the dialog hides the seed date.
inline constexpr std::string_view HighScoreSeedName = "Velmora";
inline constexpr std::string_view HighScoreSeedDate = "Jan 01 2000 12:00 am";
// "mmm dd yyyy hh:mm am/pm" with English month names, whatever the locale.
std::string formatHighScoreDate(const DateTime& t);

// Parses table bytes: fields split at commas and line ends, blanks at the start of
// a field skipped, one row a line of name, score and date. Reads up to the first ten
// rows and ignores what follows; a table may have fewer, and a date is any text. False
// with a reason when a row's name or score cannot be read, or there is no row at all.
bool parseHighScoreRows(std::string_view bytes, std::vector<HighScoreRow>& rows,
                        std::string* error);
// Reads and parses the file at path (missing, unreadable, too large: false with a reason).
bool readHighScoreRows(const std::string& path, std::vector<HighScoreRow>& rows,
                       std::string* error);

// Reads, ranks, inserts and writes one table file.
class HighScoreTable {
public:
    explicit HighScoreTable(std::string path) : path_(std::move(path)) {}

    const std::string& path() const { return path_; }

    // Ten seed rows, CR LF each.
    static std::string seedText(std::int64_t seedScore);
    // One row as the file holds it, CR LF included.
    static std::string rowText(const HighScoreRow& row);
    // Index the score would take: before the first stored row that is strictly lower,
    // so ties rank below; -1 when it does not enter.
    static int rankOf(const std::vector<HighScoreRow>& rows, std::int64_t score);
    // The new file: the ten rows with newRow at index row (row -1: the ten rows alone).
    // An entry at index 9 keeps the old tenth row behind it, eleven rows in all.
    static std::string insertedText(const std::vector<HighScoreRow>& rows, int row,
                                    const HighScoreRow& newRow);

    bool exists() const;
    // Reads the first ten rows into rows().
    bool read(std::string* error);
    const std::vector<HighScoreRow>& rows() const { return rows_; }

private:
    std::string path_;
    std::vector<HighScoreRow> rows_;
};

}  // namespace corvanna
