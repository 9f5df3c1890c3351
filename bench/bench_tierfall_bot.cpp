// Whole games of Tierfall by random legal clicks on the virtual platform, in one
// process and one data folder: games a second, and resident memory every 1,000
// games, which must stay flat.

#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "Resident.h"
#include "games/GameRegistry.h"
#include "games/tierfall/frmTierfall.h"
#include "shell/Startup.h"
#include "testkit/FakePlatform.h"
#include "testkit/TierfallBot.h"

using namespace corvanna;

int main(int argc, char** argv) {
    const int games = argc > 1 ? std::atoi(argv[1]) : 10000;
    QTemporaryDir dir;
    FakePlatform fake;
    Program prog(fake, dir.path().toStdString(), 1);
    startSelector(prog);
    prog.state.AppTitle = "Tierfall!";
    auto& form = static_cast<frmTierfall&>(loadGameForm(prog, *findGame("frmTierfall")));
    fake.showForm(form, false);
    TierfallBot bot(prog, fake, form, 1);

    long long total = 0;
    const auto t0 = std::chrono::steady_clock::now();
    auto last = t0;
    for (int game = 1; game <= games; ++game) {
        total += bot.playGame();
        if (!bot.fault().empty()) {
            std::printf("game %d: %s\n", game, bot.fault().c_str());
            return 1;
        }
        if (game % 1000 == 0) {
            const auto now = std::chrono::steady_clock::now();
            std::printf("after %5d games: %ld KiB resident, %.0f games/s\n", game, residentKiB(),
                        1000 / std::chrono::duration<double>(now - last).count());
            last = now;
        }
    }
    const double secs =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - t0).count();
    std::printf(
        "%d games in %.2f s: %.0f games/s on one core (target >= 1000); %lld clicks, "
        "mean score %lld\n",
        games, secs, games / secs, bot.clicks(), total / games);
    return 0;
}
