// The mail goes to the desktop's xdg-email first: it takes subject and body as
// arguments of their own (no shell, no URL of ours to get wrong) and says by its exit
// status whether a mail program took them. Without it, a mailto: link goes to whatever
// the desktop opens such links with.

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "platform/Mail.h"
#include "qt/QtPlatform.h"

namespace corvanna {

namespace {

// Mail programs started by xdg-email often stay in the foreground: past this the mail
// counts as handed over, and the program is left running.
constexpr int kMailWaitMs = 3000;

std::string exitText(int code) {
    switch (code) {
        case 1: return "The mail could not be handed over (xdg-email found an error in its call).";
        case 2:
            return "The mail could not be handed over (xdg-email was told of a file that does "
                   "not exist).";
        case 3:
            return "No mail program is set up on this computer. Choose a default e-mail "
                   "program in your desktop's settings and try again.";
        case 4: return "The mail program could not open the new message.";
        default: return "xdg-email ended with error " + std::to_string(code) + ".";
    }
}

}  // namespace

MailResult QtPlatform::sendMail(const MailMessage& mail) {
    const QString xdgEmail = QStandardPaths::findExecutable(QStringLiteral("xdg-email"));
    if (xdgEmail.isEmpty()) {
        if (QDesktopServices::openUrl(
                QUrl::fromEncoded(QByteArray::fromStdString(MailtoUrl(mail)))))
            return {true, ""};
        return {false,
                "No program on this computer is set up to open e-mail links. Installing "
                "xdg-utils or choosing a default e-mail program in your desktop's settings "
                "will help."};
    }
    const std::vector<std::string> args = XdgEmailArguments(mail);
    if (args.empty())
        return {false,
                "The address \"" + mail.recipientAddress + "\" is not one a mail can go to."};
    QStringList arguments;
    for (const std::string& a : args)
        arguments << QString::fromStdString(a);

    // No parent: a mail program still running when the game ends must not go with it, as
    // a child process would. Its output goes nowhere, so no pipe of ours can stall it.
    auto* process = new QProcess;
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->start(xdgEmail, arguments);
    if (!process->waitForStarted(kMailWaitMs)) {
        const std::string why = process->errorString().toStdString();
        process->deleteLater();
        return {false, "xdg-email could not be started: " + why};
    }
    QElapsedTimer waited;
    waited.start();
    while (process->state() != QProcess::NotRunning && waited.elapsed() < kMailWaitMs)
        sleep(20);
    if (process->state() != QProcess::NotRunning) {
        // Deleted only once it ends: a deletion queued inside the wait could come before.
        connect(process, &QProcess::finished, process, &QObject::deleteLater);
        return {true, ""};
    }
    process->deleteLater();
    if (process->exitStatus() == QProcess::NormalExit && process->exitCode() == 0)
        return {true, ""};
    if (process->exitStatus() != QProcess::NormalExit)
        return {false, "xdg-email stopped before it was done."};
    return {false, exitText(process->exitCode())};
}

}  // namespace corvanna
