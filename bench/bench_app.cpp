// The program as main() brings it up, with a measurement at the end:
//   bench_app startup             prints when the selector's first paint is done, then quits
//   bench_app memory FORM         the selector and a game form open: resident KiB
//   bench_app idle FORM SECONDS   a game form sitting idle: CPU use in percent of one core
//   bench_app rules FORM N        Help, Rules on the game form N times: ms from the click to
//                                 the text painted in the dialog, median and slowest

#include <QApplication>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "BenchCommon.h"
#include "common/Program.h"
#include "common/frame/GameFrame.h"
#include "forms/Input.h"
#include "games/GameRegistry.h"
#include "qt/QtPlatform.h"
#include "shell/Startup.h"

using namespace corvanna;

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const std::string mode = argc > 1 ? argv[1] : "startup";
    FirstPaint firstPaint;
    if (mode == "startup")
        app.installEventFilter(&firstPaint);
    QTemporaryDir dir;
    QtPlatform platform;
    Program prog(platform, dir.path().toStdString(), 1);
    Form& select = startSelector(prog);

    auto openGame = [&](const char* formName) -> bool {
        const GameInfo* game = findGame(formName);
        Control* button = game ? select.find(game->button) : nullptr;
        return button && userClick(*button);
    };

    if (mode == "startup") {
        // FirstPaint ends the program.
    } else if (mode == "memory" && argc > 2) {
        if (!openGame(argv[2]))
            return 2;
        QTimer::singleShot(300, [] {
            std::printf("rss_kib %ld\n", residentKiB());
            QCoreApplication::exit(0);
        });
    } else if (mode == "idle" && argc > 3) {
        if (!openGame(argv[2]))
            return 2;
        const int seconds = std::atoi(argv[3]);
        // Let the window settle first, then measure only the idle stretch.
        QTimer::singleShot(1000, [seconds] {
            const double cpu0 = cpuSeconds();
            QElapsedTimer wall;
            wall.start();
            QTimer::singleShot(seconds * 1000, [cpu0, wall] {
                const double cpu = cpuSeconds() - cpu0;
                const double secs = wall.elapsed() / 1000.0;
                std::printf("idle_cpu_percent %.3f over %.1f s\n", 100.0 * cpu / secs, secs);
                QCoreApplication::exit(0);
            });
        });
    } else if (mode == "rules" && argc > 3) {
        if (!openGame(argv[2]))
            return 2;
        auto* game = dynamic_cast<GameFrame*>(prog.findForm(argv[2]));
        const int times = std::max(1, std::atoi(argv[3]));
        // The dialog's text painted: the time is taken once that paint is over, and the
        // dialog closed.
        struct TextPainted : QObject {
            QElapsedTimer clock;
            std::vector<double> ms;
            Program* prog = nullptr;
            bool waiting = false;
            bool eventFilter(QObject* o, QEvent* e) override {
                auto* w = qobject_cast<QWidget*>(o);
                if (waiting && e->type() == QEvent::Paint && w &&
                    qobject_cast<QPlainTextEdit*>(w->parentWidget())) {
                    waiting = false;
                    QTimer::singleShot(0, [this] {
                        ms.push_back(clock.nsecsElapsed() / 1e6);
                        if (Form* rules = prog->findForm("frmRules"))
                            prog->unload(*rules);
                    });
                }
                return false;
            }
        };
        // Lives as long as the program: the openings run from the event loop below.
        static TextPainted painted;
        painted.prog = &prog;
        app.installEventFilter(&painted);
        QTimer::singleShot(500, [game, times] {
            for (int i = 0; i < times; ++i) {
                painted.waiting = true;
                painted.clock.start();
                userClick(game->mnuRules);  // returns once the dialog has gone
            }
            std::sort(painted.ms.begin(), painted.ms.end());
            if (painted.ms.empty())
                std::printf("rules: never painted\n");
            else
                std::printf("rules_ms median %.1f slowest %.1f over %zu openings\n",
                            painted.ms[painted.ms.size() / 2], painted.ms.back(),
                            painted.ms.size());
            QCoreApplication::exit(0);
        });
    } else {
        std::fputs("usage: bench_app startup | memory FORM | idle FORM SECONDS | rules FORM N\n",
                   stderr);
        return 2;
    }
    return app.exec();
}
