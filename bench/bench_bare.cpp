// The yardstick: a bare Qt Widgets window with one button, built like the program.
//   bench_bare startup   prints when the window's first paint is done, then quits
//   bench_bare memory    prints resident KiB with the window on show

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <cstdio>
#include <cstring>

#include "BenchCommon.h"

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const bool memory = argc > 1 && std::strcmp(argv[1], "memory") == 0;
    FirstPaint firstPaint;
    if (!memory)
        app.installEventFilter(&firstPaint);
    QPushButton button("Close");
    button.resize(600, 450);
    button.show();
    if (memory)
        QTimer::singleShot(300, [] {
            std::printf("rss_kib %ld\n", residentKiB());
            QCoreApplication::exit(0);
        });
    return app.exec();
}
