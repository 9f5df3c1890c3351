#pragma once
// The high score table file: ten rows of "name, score, date" with CR LF line ends,
// kept per game and time limit. This header is the one place that knows its names,
// seeds and format; the games and dialogs go through it and never touch the bytes.

#include <array>
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
// Larger than any table we write by far; a bigger file is not a table.

// Table name constants, each ending in one blank.
inline constexpr std::string_view TierfallHiScoreTable = "Tierfall Hi Score Table ";
inline constexpr std::string_view FivestackHiScoreTable = "Fivestack Hi Score Table ";
inline constexpr std::string_view HitspreeHiScoreTable = "Hitspree Hi Score Table ";
inline constexpr std::string_view SpirefoldHiScoreTable = "Spirefold Hi Score Table ";
inline constexpr std::string_view DuomatchHiScoreTable = "Duomatch Hi Score Table ";
inline constexpr std::string_view GridflushHiScoreTable = "Gridflush Hi Score Table ";
inline constexpr std::string_view ColclearHiScoreTable = "Colclear Hi Score Table ";
inline constexpr std::string_view LettermineHiScoreTable = "Lettermine Hi Score Table ";
inline constexpr std::string_view WildslotHiScoreTable = "Wildslot Hi Score Table ";
// Tierfall in Enhanced Scoring puts this in front of its table name.
inline constexpr std::string_view EnhancedScoringTablePrefix = "ES ";
inline constexpr int TierfallDefaultCardGoal = 11;

// One game's table: the seed a fresh table gets (at load and from the game's own
// Clear menu), and the seed when the table is cleared from the High Scores dialog.
// Only Duomatch differs between the two.
struct HighScoreTableInfo {
    std::string_view appTitle;
    std::string_view tableName;
    std::int64_t seedScore;
    std::int64_t clearedSeedScore;
};

inline constexpr std::array<HighScoreTableInfo, 9> HighScoreTables{{
    {"Tierfall!", TierfallHiScoreTable, 50000, 50000},
    {"Fivestack!", FivestackHiScoreTable, 50000, 50000},
    {"Hitspree!", HitspreeHiScoreTable, 50000, 50000},
    {"Spirefold!", SpirefoldHiScoreTable, 30000, 30000},
    {"Duomatch!", DuomatchHiScoreTable, 30000, 50000},
    {"Gridflush!", GridflushHiScoreTable, 30000, 30000},
    {"Colclear!", ColclearHiScoreTable, 50000, 50000},
    {"Lettermine!", LettermineHiScoreTable, 30000, 30000},
    {"Wildslot!", WildslotHiScoreTable, 50000, 50000},
}};

// The row of the game with this AppTitle, or nullptr.
const HighScoreTableInfo* highScoreTableFor(std::string_view appTitle);

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
