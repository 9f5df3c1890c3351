// A Lettermine topic read for the first time: the shipped file found and copied into the
// data folder, counted, loaded, shuffled and its first phrase handed out; then every phrase
// of the topic laid out on the board, as rounds would.

#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "common/Program.h"
#include "games/lettermine/PhraseLayout.h"
#include "games/lettermine/PhraseSupply.h"
#include "virtual/FakePlatform.h"

using namespace corvanna;

namespace {
double msSince(std::chrono::steady_clock::time_point t0) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t0).count();
}
double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}
}  // namespace

int main() {
    constexpr int kTopic = 3;  // Famous Phrases, LMP.Dat
    std::vector<double> load, layout;
    std::size_t phrases = 0;
    for (int run = 0; run < 200; ++run) {
        QTemporaryDir dir;
        FakePlatform fake;
        Program prog(fake, dir.path().toStdString(), static_cast<std::uint64_t>(run + 1));
        prog.setAssetsDir(CORVANNA_SHIPPED_DIR);
        PhraseSupply supply;
        std::string caption;
        PhraseLayout board;
        auto t0 = std::chrono::steady_clock::now();
        const std::string first = supply.GetPlayablePhrase(prog, kTopic, caption, board);
        load.push_back(msSince(t0));
        if (first.empty() || !fake.messages().empty()) {
            std::fprintf(stderr, "no phrase from %s\n", CORVANNA_SHIPPED_DIR);
            return 1;
        }
        const auto& table = supply.record(kTopic).PhraseTable;
        phrases = table.size();
        t0 = std::chrono::steady_clock::now();
        int refused = 0;
        for (const std::string& phrase : table)
            refused += !phrase.empty() && LayoutPhrase(phrase, board);
        layout.push_back(msSince(t0));
        if (refused)
            return 1;
    }
    std::printf(
        "a topic of %zu slots read for the first time (found, copied, counted, loaded, "
        "shuffled, first phrase laid out): median %.3f ms; every phrase laid out: median %.3f ms\n",
        phrases, median(load), median(layout));
    return 0;
}
