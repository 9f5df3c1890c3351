#pragma once
// The game's wave sounds through Qt Multimedia. One effect per file, made on the
// file's first play and kept, so later plays start without loading anything.
// A new sound cuts off the one before; a missing file plays nothing. A sound is
// stopped once it must be over, so no audio stream runs on while nothing plays.

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

class QSoundEffect;

namespace corvanna {

class SoundPlayer : public QObject {
    Q_OBJECT
public:
    explicit SoundPlayer(QObject* parent = nullptr);
    ~SoundPlayer() override;

    void play(const QString& path);
    void stop();

    // The effect kept for a file (a QSoundEffect), or nullptr when none was made.
    QObject* effectFor(const QString& path) const;
    // How many files have an effect kept.
    int effectCount() const { return static_cast<int>(effects_.size()); }

private:
    QSoundEffect* effectOf(const QString& path);
    // Whether any file is still being read in the background.
    bool loading() const;
    // Runs the event loop, at most `ms`, until no file is being read any more.
    void settle(int ms);

    QHash<QString, QSoundEffect*> effects_;
    // How long each effect's sound lasts, from its file; absent when the file does not say.
    QHash<const QSoundEffect*, int> lengthMs_;
    QPointer<QSoundEffect> current_;
    QTimer over_;
};

// The length of a wave file's sound in milliseconds, or -1 when its header does not tell.
int waveLengthMs(const QString& path);

}  // namespace corvanna
