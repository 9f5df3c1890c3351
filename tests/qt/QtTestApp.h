#pragma once
// The Qt tests share one executable and one application object: whichever test
// runs first makes it, offscreen unless told otherwise.

#include <QApplication>

namespace corvanna {

inline QApplication& qtTestApp() {
    if (auto* existing = qobject_cast<QApplication*>(QCoreApplication::instance()))
        return *existing;
    static int argc = 1;
    static char name[] = "corvanna_qt_tests";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* app = new QApplication(argc, argv);
    return *app;
}

}  // namespace corvanna
