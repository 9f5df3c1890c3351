#include "games/lettermine/PhraseLayout.h"

#include <cctype>

#include "common/Format.h"

namespace corvanna {

namespace {

// Positions are 1-based, as the rows are counted: row r ends at rowEnd + 1, rowEnd running
// 14, 29, 44, 59, 74, 89, and its first cell is position rowEnd - 13.
bool blankAt(const std::string& t, int position) {
    return position >= 1 && position <= static_cast<int>(t.size()) &&
           t[static_cast<std::size_t>(position - 1)] == ' ';
}

void dropLeadingBlanks(std::string& t, int rowFirst) {
    while (blankAt(t, rowFirst))
        t.erase(static_cast<std::size_t>(rowFirst - 1), 1);
}

}  // namespace

bool LayoutPhrase(const std::string& phrase, PhraseLayout& out) {
    constexpr int W = PhraseLayout::kColumns;
    // A word as long as a row is refused wherever it stands, also where it would fill a row
    // exactly and so never be wrapped.
    int run = 0;
    for (char c : phrase)
        if ((run = c == ' ' ? 0 : run + 1) >= W)
            return true;
    std::string t = phrase;
    int rowEnd = W - 1;
    int breakPos = 0;
    while (rowEnd <= 89 && static_cast<int>(t.size()) > rowEnd) {
        dropLeadingBlanks(t, rowEnd - 13);
        // A position past the end counts as no blank: a word runs over the row's end.
        if (!blankAt(t, rowEnd + 1) && !blankAt(t, rowEnd + 2)) {
            for (int p = rowEnd; p > breakPos; --p)
                if (blankAt(t, p)) {
                    breakPos = p;
                    break;
                }
            const int gap = rowEnd + 1 - breakPos;
            if (gap > W - 1)
                return true;  // a word as long as a row
            const int leftPad = gap % 2 ? (gap + 1) / 2 : gap / 2;
            const int rightPad = gap - leftPad;
            const auto rowStart = static_cast<std::size_t>(rowEnd - 14);
            t = t.substr(0, rowStart) + std::string(static_cast<std::size_t>(leftPad), ' ') +
                t.substr(rowStart, static_cast<std::size_t>(W - gap)) +
                std::string(static_cast<std::size_t>(rightPad), ' ') +
                t.substr(static_cast<std::size_t>(breakPos));
        }
        breakPos = rowEnd + 1;
        rowEnd += W;
    }
    if (rowEnd <= 89) {
        // The last row, centred: half its free cells in front, rounded up.
        dropLeadingBlanks(t, rowEnd - 13);
        const int free = W - (static_cast<int>(t.size()) - breakPos);
        if (free > 0 && free != W)
            t.insert(static_cast<std::size_t>(breakPos), static_cast<std::size_t>((free + 1) / 2),
                     ' ');
    }
    // Towards the middle, by the first digit of rowEnd: one or two rows, two blank rows
    // above; three or four, one.
    const char lead = std::to_string(rowEnd)[0];
    if (lead == '1' || lead == '2')
        t.insert(0, 2 * W, ' ');
    else if (lead == '4' || lead == '5')
        t.insert(0, W, ' ');
    // A text that reaches the last cell is refused: 89 characters at most.
    if (static_cast<int>(t.size()) >= PhraseLayout::kCells)
        return true;

    out = PhraseLayout{};
    out.text = t;
    int count = 0;
    for (std::size_t i = 0; i < t.size(); ++i) {
        const char c = static_cast<char>(std::toupper(static_cast<unsigned char>(t[i])));
        out.shown[i] = c != ' ';
        if (c == ' ')
            out.caption[i] = " ";
        else if (c < 'A' || c > 'Z')
            out.caption[i] = std::string(1, c);
        count += out.shown[i];
    }
    if (count == 0)
        return true;  // nothing to guess
    out.LetterCellCount = static_cast<std::int16_t>(count);
    out.MaxLetterUnits = static_cast<std::int32_t>(roundHalfEven((100000 / count) * 2 / 250.0));
    return false;
}

}  // namespace corvanna
