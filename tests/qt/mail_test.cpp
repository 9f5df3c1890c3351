// The real mail path on Linux against a stand-in xdg-email on PATH that records what
// it was given: the arguments byte for byte, a failure told by its exit status, and a
// mail program that stays open.

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <memory>
#include <sys/types.h>

#include "qt/QtPlatform.h"
#include "qt/QtTestApp.h"

namespace corvanna {

namespace {

const char kStandIn[] =
    "#!/bin/sh\n"
    "echo $$ > \"$MAIL_PID\"\n"
    "for a in \"$@\"; do printf '%s\\0' \"$a\"; done > \"$MAIL_RECORD\"\n"
    "[ -n \"$MAIL_SLEEP\" ] && exec sleep \"$MAIL_SLEEP\"\n"
    "exit \"${MAIL_EXIT:-0}\"\n";

class Mail : public ::testing::Test {
protected:
    void SetUp() override {
        qtTestApp();
        ASSERT_TRUE(dir.isValid());
        QFile script(dir.filePath("xdg-email"));
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write(kStandIn);
        script.close();
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        oldPath = qgetenv("PATH");
        qputenv("PATH", dir.path().toUtf8() + ":" + oldPath);
        qputenv("MAIL_RECORD", dir.filePath("args").toUtf8());
        qputenv("MAIL_PID", dir.filePath("pid").toUtf8());
        platform = std::make_unique<QtPlatform>();
    }
    void TearDown() override {
        qputenv("PATH", oldPath);
        for (const char* v : {"MAIL_RECORD", "MAIL_PID", "MAIL_SLEEP", "MAIL_EXIT"})
            qunsetenv(v);
        platform.reset();
    }
    std::vector<std::string> recorded() {
        QFile f(dir.filePath("args"));
        EXPECT_TRUE(f.open(QIODevice::ReadOnly));
        std::vector<std::string> out;
        for (const QByteArray& a : f.readAll().split('\0'))
            out.push_back(a.toStdString());
        if (!out.empty() && out.back().empty())
            out.pop_back();
        return out;
    }
    pid_t standInPid() {
        QFile f(dir.filePath("pid"));
        return f.open(QIODevice::ReadOnly) ? f.readAll().trimmed().toInt() : 0;
    }

    QTemporaryDir dir;
    QByteArray oldPath;
    std::unique_ptr<QtPlatform> platform;
};

MailMessage listing() {
    MailMessage m;
    m.recipientName = "Orlund";
    m.recipientAddress = "highscores@example.org";
    m.subject = "Corvanna High Score Listing for Tierfall!";
    m.body =
        "181,250 by Zo\xC3\xAB of $HOME `id` \"q\" & 'r'; a?b#c%d+e=f\r\n\r\n"
        "Custom scoring is currently False";
    return m;
}

}  // namespace

TEST_F(Mail, XdgEmailGetsTheMailAsItsOwnArgumentsAndItsFailureIsTold) {
    const MailResult sent = platform->sendMail(listing());
    EXPECT_TRUE(sent.sent) << sent.error;
    EXPECT_EQ(recorded(),
              (std::vector<std::string>{
                  "--utf8", "--subject", "Corvanna High Score Listing for Tierfall!", "--body",
                  "181,250 by Zo\xC3\xAB of $HOME `id` \"q\" & 'r'; a?b#c%d+e=f\n\n"
                  "Custom scoring is currently False",
                  "highscores@example.org"}));

    qputenv("MAIL_EXIT", "3");
    const MailResult none = platform->sendMail(listing());
    EXPECT_FALSE(none.sent);
    EXPECT_NE(none.error.find("No mail program is set up"), std::string::npos) << none.error;
    qputenv("MAIL_EXIT", "9");
    EXPECT_EQ(platform->sendMail(listing()).error, "xdg-email ended with error 9.");
}

TEST_F(Mail, AMailProgramThatStaysOpenCountsAsHandedOverAndIsLeftRunning) {
    qputenv("MAIL_SLEEP", "30");
    const MailResult r = platform->sendMail(listing());
    EXPECT_TRUE(r.sent) << r.error;
    const pid_t pid = standInPid();
    ASSERT_GT(pid, 0);
    EXPECT_EQ(::kill(pid, 0), 0);  // still there after the wait
    platform.reset();
    EXPECT_EQ(::kill(pid, 0), 0);  // and not taken down with the program's platform
    ::kill(pid, SIGTERM);
}

}  // namespace corvanna
