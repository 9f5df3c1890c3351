#pragma once
// The Qt tests share one executable and one application object: whichever test
// runs first makes it, offscreen unless told otherwise.

#include <gtest/gtest.h>

#include <QApplication>
#include <QEventLoop>
#include <QTimer>
#include <memory>
#include <vector>

#include "forms/Form.h"
#include "qt/QtPlatform.h"

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

// Lets the event loop run for a while, as the user's program would between clicks.
inline void runLoop(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

// One form on the real platform, let go as the program does: the platform before the form.
class QtFormTest : public ::testing::Test {
protected:
    void SetUp() override {
        qtTestApp();
        platform = std::make_unique<QtPlatform>();
        platform->setQuitWhenLastFormUnloaded(false);
        form = std::make_unique<Form>(*platform, "frmTest");
    }
    void TearDown() override {
        for (auto& f : extra)
            platform->formUnloaded(*f);
        platform->formUnloaded(*form);
        extra.clear();
        form.reset();
        platform.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    std::unique_ptr<QtPlatform> platform;
    std::unique_ptr<Form> form;
    std::vector<std::unique_ptr<Form>> extra;
};

}  // namespace corvanna
