#pragma once
// What the benchmark programs report: resident memory, CPU time, and the moment
// the first window has been painted.

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <QWidget>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>
#include <sys/resource.h>

#include "Resident.h"

inline double cpuSeconds() {
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return u.ru_utime.tv_sec + u.ru_stime.tv_sec + (u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

// Prints the wall clock once the first paint of a top-level window has finished,
// then ends the program; the script subtracts the moment it started the program.
class FirstPaint : public QObject {
public:
    bool eventFilter(QObject* o, QEvent* e) override {
        auto* w = qobject_cast<QWidget*>(o);
        if (!done_ && e->type() == QEvent::Paint && w && w->isWindow()) {
            done_ = true;
            QTimer::singleShot(0, [] {
                timespec ts{};
                clock_gettime(CLOCK_REALTIME, &ts);
                std::printf("shown_ns %lld\n", ts.tv_sec * 1000000000LL + ts.tv_nsec);
                std::fflush(stdout);
                QCoreApplication::exit(0);
            });
        }
        return false;
    }

private:
    bool done_ = false;
};
