#include "qt/SoundPlayer.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>
#include <QUrl>
#include <utility>

#ifdef CORVANNA_HAVE_MULTIMEDIA
#include <QSoundEffect>
#endif

namespace corvanna {

SoundPlayer::SoundPlayer(QObject* parent) : QObject(parent) {}

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
}

void SoundPlayer::stop() {
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
