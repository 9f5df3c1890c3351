// The mail goes to the desktop's xdg-email first: it finds the mail program the way the
// desktop does and says by its exit status whether that program took the message. It is
// run without a shell and gets our own mailto: link as one argument (see Mail.h for why
// not --subject and --body). Without xdg-email, the link goes to whatever Qt opens such
// links with, which can only tell us whether something took it.

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QUrl>

#include "platform/Mail.h"
#include "qt/QtPlatform.h"

namespace corvanna {

namespace {

// Mail programs started by xdg-email often stay in the foreground: past this the mail
// counts as handed over, and the program is left running.
constexpr int kMailWaitMs = 3000;
// The wait goes in slices, so a quick xdg-email is noticed soon after it ends.
constexpr int kMailSliceMs = 20;
// xdg-email's first line of complaint can quote the whole link.
constexpr int kStderrChars = 200;

std::string exitText(int code) {
    switch (code) {
        case 1:
            return "The mail was not handed over: xdg-email did not understand how it was "
                   "called.";
        case 2:
            return "The mail was not handed over: xdg-email was told of a file that does not "
                   "exist.";
        case 3:
            return "No mail program is set up on this computer. Install one, or choose your "
                   "default e-mail program in your desktop's settings, and try again.";
        case 4:
            return "The mail program was found but could not open the new message. Try "
                   "starting it yourself once, then try again.";
        default: return "xdg-email ended with error " + std::to_string(code) + ".";
    }
}

// The first line xdg-email wrote to its error output, cut short, or "".
std::string firstLine(QTemporaryFile& errors) {
    if (!errors.isOpen() || !errors.seek(0))
        return "";
    QString line = QString::fromLocal8Bit(errors.readLine(4 * kStderrChars)).trimmed();
    if (line.size() > kStderrChars)
        line = line.left(kStderrChars) + QStringLiteral("...");
    return line.toStdString();
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
    QStringList arguments;
    for (const std::string& a : XdgEmailArguments(mail))
        arguments << QString::fromStdString(a);

    // Its error output goes to a file rather than a pipe: a mail program that outlives
    // the game would be killed by its first write into a pipe nobody reads. The name is
    // removed on return; a program still running keeps writing to the nameless file.
    QTemporaryFile errors;
    const bool haveErrors = errors.open();

    // No parent, and never deleted while it runs: deleting a QProcess kills what it
    // started, and a parent would delete it when the game ends, taking a half-written
    // mail with it.
    auto* process = new QProcess;
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(haveErrors ? errors.fileName() : QProcess::nullDevice());
    process->start(xdgEmail, arguments);
    if (!process->waitForStarted(kMailWaitMs)) {
        const std::string why = process->errorString().toStdString();
        process->deleteLater();
        return {false, "xdg-email could not be started (" + why + ")."};
    }
    // The platform's own wait: the window keeps painting, clicks and game timers are held.
    QElapsedTimer waited;
    waited.start();
    while (process->state() != QProcess::NotRunning && waited.elapsed() < kMailWaitMs)
        sleep(kMailSliceMs);
    if (process->state() != QProcess::NotRunning) {
        // Deleted only once it ends: a deletion queued inside the wait could come before.
        connect(process, &QProcess::finished, process, &QObject::deleteLater);
        return {true, ""};
    }
    process->deleteLater();
    if (process->exitStatus() != QProcess::NormalExit)
        return {false, "xdg-email stopped before it was done."};
    if (process->exitCode() == 0)
        return {true, ""};
    std::string error = exitText(process->exitCode());
    const std::string said = firstLine(errors);
    if (!said.empty())
        error += " (" + said + ")";
    return {false, error};
}

}  // namespace corvanna
