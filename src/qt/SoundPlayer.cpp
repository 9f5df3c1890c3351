#include "qt/SoundPlayer.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QTimer>
#include <QUrl>
#include <QtEndian>
#include <algorithm>
#include <utility>

#ifdef CORVANNA_HAVE_MULTIMEDIA
#include <QSoundEffect>
#endif

namespace corvanna {

namespace {
// After its length, the time a sound may still take to come out of the audio device;
// what a file whose header gives no length is allowed; and the most any file is.
constexpr int kOverAfterMs = 500;
constexpr int kUnknownLengthMs = 10000;
constexpr qint64 kLongestMs = 60000;
}  // namespace

int waveLengthMs(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray riff = file.read(12);
    if (riff.size() < 12 || !riff.startsWith("RIFF") || riff.mid(8, 4) != "WAVE")
        return -1;
    qint64 bytesPerSecond = 0;
    // The chunks in turn, up to the sound itself: the format first, then the data.
    for (;;) {
        const QByteArray head = file.read(8);
        if (head.size() < 8)
            return -1;
        const qint64 size = qFromLittleEndian<quint32>(head.constData() + 4);
        const qint64 next = file.pos() + size + (size & 1);  // padded to an even size
        if (head.startsWith("data"))
            return bytesPerSecond > 0
                       ? static_cast<int>(std::min(size * 1000 / bytesPerSecond, kLongestMs))
                       : -1;
        if (head.startsWith("fmt ")) {
            const QByteArray fmt = file.read(12);
            if (fmt.size() < 12)
                return -1;
            bytesPerSecond = qFromLittleEndian<quint32>(fmt.constData() + 8);
        }
        if (!file.seek(next))
            return -1;
    }
}

SoundPlayer::SoundPlayer(QObject* parent) : QObject(parent) {
    over_.setSingleShot(true);
    connect(&over_, &QTimer::timeout, this, [this] {
#ifdef CORVANNA_HAVE_MULTIMEDIA
        if (!current_)
            return;
        // Still reading its file (a cold disk): it has not started yet.
        if (current_->status() == QSoundEffect::Loading) {
            over_.start(lengthMs_.value(current_, kUnknownLengthMs) + kOverAfterMs);
            return;
        }
        current_->stop();
#endif
    });
}

// The effects are our children and go with us. Qt 6.4's sample cache deadlocks as the
// process exits if its thread is still reading a file then, so the reads end first.
SoundPlayer::~SoundPlayer() {
    settle(2000);
}

#ifdef CORVANNA_HAVE_MULTIMEDIA

bool SoundPlayer::loading() const {
    for (const QSoundEffect* effect : effects_)
        if (effect->status() == QSoundEffect::Loading)
            return true;
    return false;
}

void SoundPlayer::settle(int ms) {
    if (!loading())
        return;
    QEventLoop loop;
    for (QSoundEffect* effect : std::as_const(effects_))
        connect(effect, &QSoundEffect::statusChanged, &loop, [this, &loop] {
            if (!loading())
                loop.quit();
        });
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

QSoundEffect* SoundPlayer::effectOf(const QString& path) {
    if (QSoundEffect* kept = effects_.value(path))
        return kept;
    // Checked once, before anything is made: a missing file costs no effect and no warning.
    const QFileInfo file(path);
    if (!file.isFile() || !file.isReadable())
        return nullptr;
    auto* effect = new QSoundEffect(this);
    // Loads in the background; a play() before it is ready plays as soon as it is.
    effect->setSource(QUrl::fromLocalFile(file.absoluteFilePath()));
    effects_.insert(path, effect);
    if (const int ms = waveLengthMs(file.absoluteFilePath()); ms >= 0)
        lengthMs_.insert(effect, ms);
    return effect;
}

void SoundPlayer::play(const QString& path) {
    QSoundEffect* effect = effectOf(path);
    if (!effect)
        return;
    if (current_)
        current_->stop();
    current_ = effect;
    effect->play();
    // Qt 6.4 now and then starts an effect and never feeds it (a stop and a start close
    // together): its audio stream then runs on, waking the program fifty times a second,
    // until the effect is stopped. So it is, once its sound must be over.
    over_.start(lengthMs_.value(effect, kUnknownLengthMs) + kOverAfterMs);
}

void SoundPlayer::stop() {
    over_.stop();
    if (current_)
        current_->stop();
}

#else

// Built without Qt Multimedia: every sound is silence.
QSoundEffect* SoundPlayer::effectOf(const QString&) {
    return nullptr;
}
void SoundPlayer::play(const QString&) {}
void SoundPlayer::stop() {}
bool SoundPlayer::loading() const {
    return false;
}
void SoundPlayer::settle(int) {}

#endif

QObject* SoundPlayer::effectFor(const QString& path) const {
#ifdef CORVANNA_HAVE_MULTIMEDIA
    return effects_.value(path);
#else
    return nullptr;
#endif
}

}  // namespace corvanna
