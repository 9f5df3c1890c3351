// The real mail path on Linux against a stand-in xdg-email on PATH that records what
// it was given: the arguments byte for byte, a failure told by its exit status and its
// first line of complaint, and a mail program that stays open. Then the link through the
// real xdg-email, where it is installed, and the fallback without one.

#include "platform/Mail.h"

#include <gtest/gtest.h>

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <csignal>
#include <memory>
#include <sys/types.h>
#include <tuple>
#include <vector>

#include "qt/QtPlatform.h"
#include "qt/QtTestApp.h"

namespace corvanna {

namespace {

// Each argument ends in a NUL, so line breaks inside one are kept as they came.
const char kStandIn[] =
    "#!/bin/sh\n"
    "echo $$ > \"$MAIL_PID\"\n"
    "for a in \"$@\"; do printf '%s\\0' \"$a\"; done > \"$MAIL_RECORD\"\n"
    "[ -n \"$MAIL_STDERR\" ] && printf '%s\\n' \"$MAIL_STDERR\" >&2\n"
    "[ -n \"$MAIL_SLEEP\" ] && exec sleep \"$MAIL_SLEEP\"\n"
    "exit \"${MAIL_EXIT:-0}\"\n";

const char* const kVariables[] = {"MAIL_RECORD", "MAIL_PID",        "MAIL_STDERR",
                                  "MAIL_SLEEP",  "MAIL_EXIT",       "MAILER",
                                  "BROWSER",     "DEFAULT_BROWSER", "PATH"};

MailMessage listing() {
    MailMessage m;
    m.recipientName = "Orlund";
    m.recipientAddress = "highscores@example.org";
    m.subject = "Corvanna High Score Listing for Tierfall!";
    m.body =
        "181,250 by Zo\xC3\xAB of $HOME `id` \"q\" & 'r'; a?b#c%d+e=f\r\n\r\n"
        "C:\\new\\cards \\\\ \\c\nCustom scoring is currently False";
    return m;
}

class Mail : public ::testing::Test {
protected:
    void SetUp() override {
        qtTestApp();
        ASSERT_TRUE(dir.isValid());
        for (const char* v : kVariables)
            saved.emplace_back(v, qgetenv(v), qEnvironmentVariableIsSet(v));
        ASSERT_TRUE(script("xdg-email", kStandIn));
        qputenv("PATH", dir.path().toUtf8() + ":" + qgetenv("PATH"));
        qputenv("MAIL_RECORD", dir.filePath("args").toUtf8());
        qputenv("MAIL_PID", dir.filePath("pid").toUtf8());
        platform = std::make_unique<QtPlatform>();
    }
    void TearDown() override {
        platform.reset();
        if (leftRunning > 0)
            ::kill(leftRunning, SIGTERM);
        for (const auto& [name, value, wasSet] : saved) {
            if (wasSet)
                qputenv(name, value);
            else
                qunsetenv(name);
        }
    }
    bool script(const QString& name, const char* text) {
        QFile f(dir.filePath(name));
        if (!f.open(QIODevice::WriteOnly) || f.write(text) < 0)
            return false;
        f.close();
        return f.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
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
    std::vector<std::tuple<const char*, QByteArray, bool>> saved;
    std::unique_ptr<QtPlatform> platform;
    pid_t leftRunning = 0;
};

}  // namespace

TEST_F(Mail, XdgEmailGetsTheLinkAsItsOwnArgumentAndItsFailureIsTold) {
    const MailResult sent = platform->sendMail(listing());
    EXPECT_TRUE(sent.sent) << sent.error;
    const std::vector<std::string> args = recorded();
    ASSERT_EQ(args.size(), 1u);
    // Byte for byte: no shell between, and the link is MailLink's, tested on its own.
    EXPECT_EQ(args[0], MailtoUrl(listing()));

    // Exit status 3 and what xdg-email said about it: the first line, cut short.
    qputenv("MAIL_EXIT", "3");
    qputenv("MAIL_STDERR", "xdg-email: no method available for opening '" + QByteArray(1000, 'm') +
                               "'\nsecond line");
    const MailResult none = platform->sendMail(listing());
    EXPECT_FALSE(none.sent);
    EXPECT_EQ(none.error.rfind("No mail program is set up on this computer.", 0), 0u) << none.error;
    EXPECT_NE(none.error.find("(xdg-email: no method available for opening 'mmm"),
              std::string::npos)
        << none.error;
    EXPECT_EQ(none.error.find("second line"), std::string::npos);
    EXPECT_LT(none.error.size(), 400u);

    qunsetenv("MAIL_STDERR");
    qputenv("MAIL_EXIT", "4");
    EXPECT_EQ(platform->sendMail(listing()).error,
              "The mail program was found but could not open the new message. Try starting "
              "it yourself once, then try again.");
    qputenv("MAIL_EXIT", "9");
    EXPECT_EQ(platform->sendMail(listing()).error, "xdg-email ended with error 9.");

    // One that can't be run at all.
    ASSERT_TRUE(script("xdg-email", "#!/nonexistent/interpreter\n"));
    const MailResult broken = platform->sendMail(listing());
    EXPECT_FALSE(broken.sent);
    EXPECT_EQ(broken.error.rfind("xdg-email could not be started", 0), 0u) << broken.error;
}

TEST_F(Mail, AMailProgramThatStaysOpenCountsAsHandedOverAndIsLeftRunning) {
    qputenv("MAIL_SLEEP", "10");
    QElapsedTimer took;
    took.start();
    const MailResult r = platform->sendMail(listing());
    EXPECT_TRUE(r.sent) << r.error;
    EXPECT_GE(took.elapsed(), 2000);
    EXPECT_LT(took.elapsed(), 9000);
    leftRunning = standInPid();
    ASSERT_GT(leftRunning, 0);
    EXPECT_EQ(::kill(leftRunning, 0), 0);  // still there after the wait
    platform.reset();
    EXPECT_EQ(::kill(leftRunning, 0), 0);  // and not taken down with the program's platform
}

TEST_F(Mail, TheRealXdgEmailPassesTheLinkOnUnchanged) {
    // Its hook, or a MAILER, gets the link it would give the mail program: nothing real opens.
    const QString real = QStandardPaths::findExecutable(
        QStringLiteral("xdg-email"),
        {QStringLiteral("/usr/local/bin"), QStringLiteral("/usr/bin")});
    if (real.isEmpty())
        GTEST_SKIP() << "xdg-email is not installed";
    ASSERT_TRUE(QFile::remove(dir.filePath("xdg-email")));
    const char recorder[] = "#!/bin/sh\nprintf '%s\\0' \"$1\" > \"$MAIL_RECORD\"\n";
    ASSERT_TRUE(script("xdg-email-hook.sh", recorder));
    ASSERT_TRUE(script("record-mailto", recorder));
    qputenv("MAILER", dir.filePath("record-mailto").toUtf8());
    qputenv("BROWSER", dir.filePath("record-mailto").toUtf8());
    qputenv("PATH", dir.path().toUtf8() + ":/usr/local/bin:/usr/bin:/bin");

    const MailResult r = platform->sendMail(listing());
    EXPECT_TRUE(r.sent) << r.error;
    EXPECT_EQ(recorded(), std::vector<std::string>{MailtoUrl(listing())});
}

TEST_F(Mail, WithoutXdgEmailTheLinkGoesToWhatOpensEMailLinks) {
    qputenv("PATH", dir.filePath("empty").toUtf8());
    qunsetenv("BROWSER");
    qunsetenv("DEFAULT_BROWSER");

    // QTextBrowser's setSource slot takes the link the way a registered handler would.
    QTextBrowser handler;
    QDesktopServices::setUrlHandler(QStringLiteral("mailto"), &handler, "setSource");
    const MailResult handed = platform->sendMail(listing());
    QDesktopServices::unsetUrlHandler(QStringLiteral("mailto"));
    EXPECT_TRUE(handed.sent) << handed.error;
    EXPECT_EQ(handler.source().toEncoded().toStdString(), MailtoUrl(listing()));

    // With nothing to take it: offscreen there never is, elsewhere there may be.
    const MailResult r = platform->sendMail(listing());
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        EXPECT_FALSE(r.sent);
    }
    if (!r.sent) {
        EXPECT_EQ(r.error,
                  "No program on this computer is set up to open e-mail links. Installing "
                  "xdg-utils or choosing a default e-mail program in your desktop's settings "
                  "will help.");
    }
}

}  // namespace corvanna
