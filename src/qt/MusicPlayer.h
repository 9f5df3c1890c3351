#pragma once
// The tune: a MIDI file played by FluidSynth with the General MIDI soundfont, its
// sound handed to Qt's audio output so there is one audio path for everything.
// Without a soundfont, a readable file or an audio device the tune is silence.

#include <QIODevice>
#include <QObject>
#include <QPointer>
#include <QString>
#include <cstdint>
#include <future>
#include <memory>

class QAudioSink;

namespace corvanna {

// Turns a MIDI file into 16-bit stereo frames at a fixed rate, as fast as asked;
// knows nothing of audio devices. The soundfont is loaded once and kept.
class MidiRenderer {
public:
    explicit MidiRenderer(int sampleRate, QString soundFont = defaultSoundFont());
    ~MidiRenderer();
    MidiRenderer(const MidiRenderer&) = delete;
    MidiRenderer& operator=(const MidiRenderer&) = delete;

    // False when the program was built without FluidSynth.
    static bool available();
    // The soundfont of the Debian package, or an empty string when it is not installed.
    static QString defaultSoundFont();

    int sampleRate() const { return rate_; }
    // Loads the soundfont (once; the slow part). May run on any one thread at a time,
    // before the renderer is used elsewhere. open() does it when it has not been done.
    bool prepare();
    bool isPrepared() const;
    // Ready to play the file from its beginning; false (and silent) when the file or
    // the soundfont cannot be used.
    bool open(const QString& midiPath);
    void close();
    bool isOpen() const;
    // Writes up to `frames` interleaved stereo frames; returns how many, 0 once the
    // tune and the ring of its last notes are over.
    std::int64_t render(std::int16_t* stereo, std::int64_t frames);
    bool ended() const;
    // Frames rendered since open().
    std::int64_t position() const { return position_; }

private:
    struct Synth;
    std::unique_ptr<Synth> synth_;
    int rate_;
    QString soundFont_;
    bool soundFontTried_ = false;
    std::int64_t position_ = 0;
    std::int64_t tailLeft_ = 0;
};

// Reads as an endless stream of the renderer's frames, so an audio sink can pull them.
class MidiStream : public QIODevice {
    Q_OBJECT
public:
    explicit MidiStream(MidiRenderer& renderer, QObject* parent = nullptr);
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char* data, qint64 maxSize) override;
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    MidiRenderer& renderer_;
};

class MusicPlayer : public QObject {
    Q_OBJECT
public:
    // Where the sound goes: the default audio output, or nowhere until someone reads
    // stream() (the tests, which have no sound card).
    enum class Output { Device, Pulled };

    explicit MusicPlayer(Output output = Output::Device, QObject* parent = nullptr);
    ~MusicPlayer() override;

    // From the top; while the tune already plays it goes on where it is. Returns at
    // once: the first time, the soundfont loads in the background and the tune starts
    // when it is in.
    void start(const QString& midiPath);
    void stop();
    // Started and not yet over (or about to start, the soundfont still loading).
    bool isPlaying() const;
    // The soundfont is on its way.
    bool isLoading() const { return loading_.valid(); }
    // How far into the tune, in milliseconds of rendered sound.
    std::int64_t positionMs() const;
    // The rendered sound, once the tune has started; for Output::Pulled.
    QIODevice* stream() const { return stream_; }

private:
    int outputRate() const;
    void synthLoaded();
    void begin();
    void sinkStateChanged();
    void tearDown();

    Output output_;
    QString path_;
    // Between start() and stop() or the tune's end.
    bool wanted_ = false;
    std::unique_ptr<MidiRenderer> renderer_;
    std::future<std::unique_ptr<MidiRenderer>> loading_;
    QPointer<MidiStream> stream_;
    QPointer<QAudioSink> sink_;
};

}  // namespace corvanna
