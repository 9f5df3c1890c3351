// The yardstick: a bare Qt Widgets window with one button, built like the program.
//   bench_bare startup   shows the window and quits once it has been painted
//   bench_bare memory    prints resident KiB with the window on show

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <cstring>

#include "BenchCommon.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QPushButton button("Close");
    button.resize(600, 450);
    button.show();
    const bool memory = argc > 1 && std::strcmp(argv[1], "memory") == 0;
    QTimer::singleShot(0, [&] {
        if (memory)
            std::printf("rss_kib %ld\n", residentKiB());
        app.quit();
    });
    return app.exec();
}
