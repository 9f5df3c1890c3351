// Any bytes as a Lettermine phrase file: its lines are counted and read into the table where
// they belong, every phrase the board takes is laid out whole, the file written back reads
// as the same table, and the supply always ends with a phrase that lays out.

#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <cctype>
#include <cstdint>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/Program.h"
#include "games/lettermine/PhraseLayout.h"
#include "games/lettermine/PhraseSupply.h"
#include "virtual/FakePlatform.h"

#define FUZZ_TARGET_NAME "phrases_fuzz"
#include "FuzzCheck.h"

using namespace corvanna;

namespace {

constexpr int kW = PhraseLayout::kColumns;

// CR LF, a lone CR or a lone LF ends a line; what follows the last break is one if not empty.
std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::size_t end = std::min(bytes.find('\r', at), bytes.find('\n', at));
        lines.push_back(bytes.substr(at, end - at));
        if (end == std::string::npos)
            break;
        at = end + (bytes.compare(end, 2, "\r\n") == 0 ? 2 : 1);
    }
    return lines;
}

std::string trim(const std::string& s) {
    const auto b = s.find_first_not_of(' ');
    return b == std::string::npos ? "" : s.substr(b, s.find_last_not_of(' ') - b + 1);
}

std::vector<std::string> wordsOf(const std::string& s) {
    std::vector<std::string> words;
    for (std::size_t at = s.find_first_not_of(' '); at != std::string::npos;) {
        const std::size_t end = s.find(' ', at);
        words.push_back(s.substr(at, end - at));
        at = s.find_first_not_of(' ', end);
    }
    return words;
}

std::size_t leadingBlanks(const std::string& s) {
    return std::min(s.size(), s.find_first_not_of(' '));
}

// A trimmed phrase on the board: each word whole on one row and in order, the cells and
// their captions as the text says, the rows centred and placed towards the middle.
void checkLayout(const std::string& phrase) {
    PhraseLayout l;
    std::size_t longest = 0;
    for (const auto& w : wordsOf(phrase))
        longest = std::max(longest, w.size());
    if (LayoutPhrase(phrase, l)) {
        check(phrase.size() >= kW, "a phrase that fits one row is refused");
        return;
    }
    check(longest < kW, "a word as long as a row is laid out");
    check(l.text.size() < PhraseLayout::kCells, "a laid-out text reaches the last cell");
    // Blanks in a row before a wrap stay at the row's end, beyond the centring.
    const bool spaced = phrase.find("  ") != std::string::npos;
    std::vector<std::string> rowWords;
    int first = -1, last = -1;
    for (int r = 0; r * kW < static_cast<int>(l.text.size()); ++r) {
        const std::string row = l.text.substr(static_cast<std::size_t>(r * kW), kW);
        for (const auto& w : wordsOf(row))
            rowWords.push_back(w);
        if (row.find_first_not_of(' ') == std::string::npos)
            continue;
        first = first < 0 ? r : first;
        last = r;
        const bool lastRow = (r + 1) * kW >= static_cast<int>(l.text.size());
        const std::size_t lead = leadingBlanks(row);
        const std::size_t trailing = row.size() - 1 - row.find_last_not_of(' ');
        if (lastRow)
            check(lead == (kW + 1 - (row.size() - lead)) / 2, "the last row is not centred");
        else
            check(lead <= trailing && (spaced || trailing <= lead + 1),
                  "a wrapped row is not centred");
    }
    check(rowWords == wordsOf(phrase), "a word is split, lost or moved between rows");
    const int rows = last - first + 1;
    check(first == (rows <= 2 ? 2 : rows <= 4 ? 1 : 0), "the rows are not placed by their count");

    // Behind the text, cells are hidden and empty; in it, a blank is a hidden cell captioned
    // " ", a letter is one to find, and anything else is on view from the start.
    int shown = 0;
    for (std::size_t i = 0; i < PhraseLayout::kCells; ++i) {
        const bool inText = i < l.text.size();
        const char c =
            inText ? static_cast<char>(std::toupper(static_cast<unsigned char>(l.text[i]))) : ' ';
        std::string caption(1, c);
        if (!inText || (c >= 'A' && c <= 'Z'))
            caption.clear();
        check(l.shown[i] == (inText && c != ' '), "a cell shown against its character");
        check(l.caption[i] == caption, "a cell's caption is not its character's");
        shown += l.shown[i];
    }
    check(shown > 0 && l.LetterCellCount == shown &&
              shown == static_cast<int>(std::count_if(phrase.begin(), phrase.end(),
                                                      [](char c) { return c != ' '; })),
          "LetterCellCount is not the characters shown");
    check(l.MaxLetterUnits == roundHalfEven((100000 / shown) * 2 / 250.0),
          "MaxLetterUnits is off the cells shown");
}

// The file written for a table reads back as its kept phrases in lower case, from slot 1 on,
// with the same position.
void checkWrittenBack(const PhraseTopic& t) {
    std::vector<std::string> expected{""};
    for (const auto& e : t.PhraseTable)
        if (!trim(e).empty()) {
            std::string low = e;
            for (char& c : low)
                c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            expected.push_back(low);
        }
    expected.push_back("");
    const std::string text = PhraseSupply::FileText(t);
    std::int32_t position = 0, count = 0;
    PhraseSupply::CountPhrases(text, position, count);
    check(position == t.PhrasePosition, "the position written reads back as another");
    check(count == static_cast<std::int32_t>(expected.size()) - 1,
          "the file written counts another number of lines");
    check(PhraseSupply::LoadPhrases(text, count) == expected,
          "the file written reads back as another table");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // In memory where the system offers it: each input's file is synced to disk on leaving.
    static QTemporaryDir dir(QDir("/dev/shm").exists() ? "/dev/shm/phrases_fuzz-XXXXXX"
                                                       : QDir::tempPath() + "/phrases_fuzz-XXXXXX");
    static FakePlatform fake;
    static Program prog(fake, dir.path().toStdString(), 1);
    const std::string bytes(reinterpret_cast<const char*>(data), size);

    // The file as counted and read: the lines behind the header, each in its own slot.
    const std::vector<std::string> lines = linesOf(bytes);
    const bool header = !lines.empty() && lines[0].compare(0, 21, "CURRENT_PHRASE_NUMBER") == 0;
    std::int32_t position = 7, count = 0;
    PhraseSupply::CountPhrases(bytes, position, count);
    check(count == static_cast<std::int32_t>(lines.size()) - header,
          "the count is not the lines behind the header");
    if (!header) {
        check(position == -1, "a file without a header has a position");
    } else {
        const auto eq = lines[0].find('=');
        const std::string number = eq == std::string::npos ? "" : lines[0].substr(eq + 1);
        if (!number.empty() && number.size() <= 9 &&
            std::all_of(number.begin(), number.end(), [](char c) { return c >= '0' && c <= '9'; }))
            check(position == std::stoi(number), "the header's number is not the position");
        check(position >= -1, "a position below -1");
    }
    const std::vector<std::string> table = PhraseSupply::LoadPhrases(bytes, count);
    check(table.size() == static_cast<std::size_t>(count) + 1, "the table is not count + 1 slots");
    std::set<std::string> phrases;
    for (std::size_t i = 0; i < table.size(); ++i) {
        const bool filled = i < static_cast<std::size_t>(count) && !(header && i == 0);
        check(table[i] == (filled ? lines[i] : ""), "a slot does not hold its line");
        const std::string p = trim(table[i]);
        if (!p.empty() && p.size() <= PhraseLayout::kCells)
            checkLayout(p);
        phrases.insert(p);
    }
    checkWrittenBack({count, position, table, true});

    // The same file in a data folder, played from: every round gets a phrase that lays out,
    // one of the file's or the built-in sentence, and leaving writes the table as it stands.
    prog.rng.seed(1);
    const std::string path = prog.filePath("LMP.Dat");
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
    PhraseSupply supply;
    const PhraseTopic& r = supply.record(3);
    for (int round = 0; round < 3; ++round) {
        std::string caption;
        PhraseLayout layout, again;
        const std::string phrase = supply.GetPlayablePhrase(prog, 3, caption, layout);
        const auto said = fake.takeMessages();
        check(said.size() <= 1, "one round's phrase showed more than one message");
        check(caption == "Topic: Famous and Not So Famous Phrases", "the topic's caption is wrong");
        check(!LayoutPhrase(phrase, again) && again.text == layout.text,
              "the phrase handed out is not the one laid out");
        if (said.empty())
            check(phrases.count(phrase) == 1, "a phrase handed out is no line of the file");
        else
            check(phrase == PhraseSupply::kMissingPhrase && said[0].find(path) != std::string::npos,
                  "a message that neither names the file nor goes with the built-in sentence");
        check(r.PhrasesLoaded && r.PhrasePosition >= 1 &&
                  r.PhrasePosition <= std::max<std::int32_t>(r.PhraseCount, 1),
              "the position left the table");
    }
    supply.SavePhraseFiles(prog);
    std::string written;
    check(readWholeFile(path, written) == ReadStatus::Ok && written == PhraseSupply::FileText(r),
          "leaving did not write the table as it stands");
    checkWrittenBack(r);
    fake.takeLog();
    fake.takeErrors();
    return 0;
}
