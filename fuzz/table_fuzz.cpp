// Any bytes as a high score table: the label and the ranking either report the file and
// leave it byte for byte as it was, or keep it a good table with the new row in its place.
//
// Input: byte 0 flags, bytes 1-4 the final score, byte 5 the name's length, the name, and
// the rest is the table file.

#include <QTemporaryDir>
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/Program.h"
#include "scores/HighScores.h"
#include "scores/frmHiScoreName.h"
#include "virtual/FakePlatform.h"

#define FUZZ_TARGET_NAME "table_fuzz"
#include "FuzzCheck.h"

using namespace corvanna;

namespace {

std::string readBack(const std::string& path) {
    std::string s;
    check(readWholeFile(path, s, nullptr, 1 << 20) == ReadStatus::Ok, "the table went away");
    return s;
}

bool sameRow(const HighScoreRow& a, const HighScoreRow& b) {
    return a.name == b.name && a.score == b.score && a.date == b.date;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static QTemporaryDir dir;
    static FakePlatform fake;
    static Program prog(fake, dir.path().toStdString(), 1);
    static Form board(fake, "frmBoard");
    static Control& label = board.add<Control>(ControlKind::Label, "lblHighScore", -1, nullptr);
    static std::string typed;
    static int asked = 0;
    static bool once = [] {
        prog.state.AppTitle = "Fivestack!";
        prog.state.RoundSeconds = 60;
        // The name dialog: a name with a comma is refused first, then the typed one goes in.
        fake.modalRunner = [](Form& f) {
            ++asked;
            auto& box = dynamic_cast<TextBox&>(*f.find("txtPlayerName"));
            box.setText(typed + ",");
            dynamic_cast<frmHiScoreName&>(f).cmdOK_Click();
            check(prog.findForm("frmHiScoreName") != nullptr, "a comma was taken");
            box.setText(typed);
            dynamic_cast<frmHiScoreName&>(f).cmdOK_Click();
        };
        return true;
    }();
    (void)once;
    if (size < 6)
        return 0;

    const std::uint8_t flags = data[0];
    std::int32_t score;
    std::memcpy(&score, data + 1, sizeof score);
    std::size_t pos = 6;
    const std::size_t nameLen = std::min<std::size_t>(data[5] % 24, size - pos);
    typed.assign(reinterpret_cast<const char*>(data) + pos, nameLen);
    typed.erase(std::remove(typed.begin(), typed.end(), ','), typed.end());
    pos += nameLen;
    const std::string bytes(reinterpret_cast<const char*>(data) + pos, size - pos);

    auto& g = prog.state;
    g.CustomScoring = flags & 1;
    g.SoundsOn = flags & 2;
    g.UserName = (flags & 4) ? "Velmora" : "Someone";
    g.Score = score;
    const std::string table("Fivestack Hi Score Table ");
    const std::string path = HighScoreFilePath(prog, table);
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;

    std::vector<HighScoreRow> before;
    const bool good = parseHighScoreRows(bytes, before, nullptr);
    check(readHighScoreRows(path, before, nullptr) == good, "file and bytes read differently");

    label.setCaption("none");
    check(ShowHighScoreLabel(prog, table, label, "High Score: ", 50000) == good,
          "the label disagrees with the reader");
    check(readBack(path) == bytes, "showing the label changed the file");
    if (good)
        check(label.caption() == "High Score: " + formatScore(before[0].score), "wrong label");
    else
        check(label.caption() == "High Score: ", "a damaged table's label shows a score");

    asked = 0;
    int shown = 0;
    const bool ranked = UpdateHighScoreTable(prog, table, [&] { ++shown; });
    check(ranked == good, "the ranking disagrees with the reader");
    if (!good) {
        check(readBack(path) == bytes, "a damaged table was changed");
        check(asked == 0 && shown == 0 && g.NewHighScoreRow == -1, "a damaged table asked");
    } else {
        const int rank = HighScoreTable::rankOf(before, score);
        check(g.NewHighScoreRow == rank, "NewHighScoreRow is not the rank");
        check(asked == (rank >= 0 ? 1 : 0) && shown == asked, "dialogs and rank disagree");
        const std::string after = readBack(path);
        std::vector<HighScoreRow> rows;
        check(parseHighScoreRows(after, rows, nullptr), "a good table became damaged");
        // A row a line: a short table grows by the entry, a full one keeps ten, and an
        // eleventh stands only behind an entry in the last place.
        const std::size_t had = before.size();
        const std::size_t expected = rank < 0 ? had : had < 10 ? had + 1 : rank == 9 ? 11 : 10;
        std::size_t lines = 0;
        for (std::size_t i = 0; i + 1 < after.size(); ++i)
            lines += after[i] == '\r' && after[i + 1] == '\n';
        check(!after.empty() && after.size() >= 2 && after.substr(after.size() - 2) == "\r\n",
              "the table does not end in CR LF");
        check(lines == expected, "wrong number of rows");
        check(rows.size() == std::min<std::size_t>(expected, 10), "rows read back");
        for (int i = 0, j = 0; i < static_cast<int>(rows.size()); ++i) {
            if (i == rank) {
                std::string name = g.UserName + (g.CustomScoring ? "*" : "");
                name.erase(0, name.find_first_not_of(" \t"));
                check(rows[i].score == score, "the new row has another score");
                check(rows[i].name == name, "the new row has another name");
                continue;
            }
            // Names lose their leading blanks when read; the rest is as it stood.
            HighScoreRow old = before[j++];
            old.name.erase(0, old.name.find_first_not_of(" \t"));
            HighScoreRow now = rows[i];
            now.name.erase(0, now.name.find_first_not_of(" \t"));
            check(sameRow(old, now), "a stored row moved or changed");
        }
        // The next game's rewrite leaves exactly the rows read, when that game ranks nowhere:
        // the table holds 64-bit scores, so a stored one may lie below any a game can make.
        if (HighScoreTable::rankOf(rows, INT32_MIN) < 0) {
            g.Score = INT32_MIN;
            check(UpdateHighScoreTable(prog, table, [] {}), "the rewrite failed");
            std::string kept;
            for (const HighScoreRow& r : rows)
                kept += HighScoreTable::rowText(r);
            check(readBack(path) == kept, "the rewrite is not the rows read");
        }
    }
    fake.takeLog();
    fake.takeErrors();
    fake.takeMessages();
    return 0;
}
