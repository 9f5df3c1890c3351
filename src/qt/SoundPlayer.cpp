#include "qt/SoundPlayer.h"

#include <QFileInfo>
#include <QUrl>

#ifdef CORVANNA_HAVE_MULTIMEDIA
#include <QSoundEffect>
#endif

namespace corvanna {

SoundPlayer::SoundPlayer(QObject* parent) : QObject(parent) {}

// The effects are our children and go with us.
SoundPlayer::~SoundPlayer() = default;

#ifdef CORVANNA_HAVE_MULTIMEDIA

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

#endif

QObject* SoundPlayer::effectFor(const QString& path) const {
#ifdef CORVANNA_HAVE_MULTIMEDIA
    return effects_.value(path);
#else
    return nullptr;
#endif
}

}  // namespace corvanna
