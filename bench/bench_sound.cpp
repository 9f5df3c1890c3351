// How long a click waits for its sound: from the mouse press on a button whose handler
// plays "Click.wav" to the handler's return, the first time and then the median of 100;
// and how long starting the tune takes, and how soon its first sound goes out. Prints the numbers
// and whether there was a sound card at all (without one every call is a quick no-op).
//
//   bench_sound [ASSETS_FOLDER]     (default: the build's assets folder)

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <vector>

#if __has_include(<QMediaDevices>)
#include <QAudioDevice>
#include <QMediaDevices>
#endif

#include "qt/MusicPlayer.h"
#include "qt/QtPlatform.h"

namespace {

void runLoopFor(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

double median(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

// A press and a release, as the window system would send them.
double clickMs(QPushButton& button) {
    const QPointF at(button.width() / 2.0, button.height() / 2.0);
    const QPointF global = button.mapToGlobal(at);
    QMouseEvent press(QEvent::MouseButtonPress, at, global, Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QMouseEvent release(QEvent::MouseButtonRelease, at, global, Qt::LeftButton, Qt::NoButton,
                        Qt::NoModifier);
    QElapsedTimer t;
    t.start();
    QApplication::sendEvent(&button, &press);
    QApplication::sendEvent(&button, &release);
    return t.nsecsElapsed() / 1e6;
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QString assets = argc > 1 ? QString::fromLocal8Bit(argv[1])
                                    : QDir(app.applicationDirPath() + "/../assets").absolutePath();
    const std::string click = (assets + "/Click.wav").toStdString();
    const std::string tune = (assets + "/Orlund.MID").toStdString();

    // A missing file would time the do-nothing path and look splendid.
    for (const std::string& file : {click, tune}) {
        if (!QFileInfo::exists(QString::fromStdString(file))) {
            std::fprintf(stderr, "%s is missing: build the assets target first\n", file.c_str());
            return 1;
        }
    }

    int devices = -1;
#if __has_include(<QMediaDevices>)
    devices = static_cast<int>(QMediaDevices::audioOutputs().size());
#endif
    std::printf("audio outputs: %d%s\n", devices, devices == 0 ? " (every sound is silence)" : "");

    corvanna::QtPlatform platform;
    platform.setQuitWhenLastFormUnloaded(false);
    QPushButton button("Deal");
    button.resize(120, 40);
    button.show();
    QObject::connect(&button, &QPushButton::clicked, [&] { platform.playWave(click); });
    runLoopFor(50);

    const double first = clickMs(button);
    // Between clicks the loop runs a little, so the sound before is playing when cut off.
    runLoopFor(100);
    std::vector<double> later;
    for (int i = 0; i < 100; ++i) {
        later.push_back(clickMs(button));
        runLoopFor(20);
    }
    std::printf(
        "click to Click.wav played: first %.3f ms, median of next 100 %.3f ms, "
        "worst %.3f ms (target < 5 ms after the first)\n",
        first, median(later), *std::max_element(later.begin(), later.end()));

    QElapsedTimer t;
    t.start();
    platform.startMusic(tune);
    const double musicFirst = t.nsecsElapsed() / 1e6;
    runLoopFor(300);
    std::vector<double> starts, stops;
    for (int i = 0; i < 20; ++i) {
        t.restart();
        platform.stopMusic();
        stops.push_back(t.nsecsElapsed() / 1e6);
        runLoopFor(20);
        t.restart();
        platform.startMusic(tune);
        starts.push_back(t.nsecsElapsed() / 1e6);
        runLoopFor(100);
    }
    platform.stopMusic();
    // The soundfont loads in the background: when does the first sound go out?
    if (devices != 0) {
        corvanna::MusicPlayer fresh;
        t.restart();
        fresh.start(QString::fromStdString(tune));
        while (fresh.positionMs() == 0 && t.elapsed() < 5000)
            runLoopFor(1);
        std::printf("a fresh player's first sound handed to the output after %.1f ms\n",
                    t.nsecsElapsed() / 1e6);
    }
    std::printf("startMusic: first %.3f ms, median of next 20 %.3f ms; stopMusic median %.3f ms\n",
                musicFirst, median(starts), median(stops));
    return 0;
}
