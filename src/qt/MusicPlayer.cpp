#include "qt/MusicPlayer.h"

#include <QFileInfo>
#include <QTimer>
#include <algorithm>
#include <utility>

#ifdef CORVANNA_HAVE_MULTIMEDIA
#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QMediaDevices>
#endif

#ifdef CORVANNA_HAVE_FLUIDSYNTH
#include <fluidsynth.h>
#endif

namespace corvanna {

namespace {

constexpr int kPreferredRate = 44100;
// After the last event the notes and the reverb still ring this long.
constexpr int kTailMs = 1500;
constexpr int kTailFadeMs = 600;

}  // namespace

// ---- MidiRenderer

#ifdef CORVANNA_HAVE_FLUIDSYNTH

struct MidiRenderer::Synth {
    fluid_settings_t* settings = nullptr;
    fluid_synth_t* synth = nullptr;
    fluid_player_t* player = nullptr;
    int soundFontId = -1;

    ~Synth() {
        if (player)
            delete_fluid_player(player);
        if (synth)
            delete_fluid_synth(synth);
        if (settings)
            delete_fluid_settings(settings);
    }
};

bool MidiRenderer::available() {
    return true;
}

MidiRenderer::MidiRenderer(int sampleRate, QString soundFont)
    : rate_(sampleRate), soundFont_(std::move(soundFont)) {
    // FluidSynth talks on stderr about every file it dislikes; a bad file is silence here.
    static const bool quiet = [] {
        for (int level : {FLUID_ERR, FLUID_WARN, FLUID_INFO, FLUID_DBG})
            fluid_set_log_function(level, nullptr, nullptr);
        return true;
    }();
    (void)quiet;
}

MidiRenderer::~MidiRenderer() = default;

bool MidiRenderer::prepare() {
    if (synth_ && synth_->soundFontId >= 0)
        return true;
    if (soundFontTried_)
        return false;
    soundFontTried_ = true;
    if (soundFont_.isEmpty() || !QFileInfo(soundFont_).isReadable())
        return false;
    auto s = std::make_unique<Synth>();
    s->settings = new_fluid_settings();
    if (!s->settings)
        return false;
    fluid_settings_setnum(s->settings, "synth.sample-rate", rate_);
    // The player follows the frames we render, not the wall clock: it is our pull
    // that moves the tune on, so it can never run ahead of the sound or fall behind.
    fluid_settings_setstr(s->settings, "player.timing-source", "sample");
    fluid_settings_setint(s->settings, "synth.lock-memory", 0);
    fluid_settings_setint(s->settings, "synth.chorus.active", 0);
    fluid_settings_setnum(s->settings, "synth.gain", 0.5);
    s->synth = new_fluid_synth(s->settings);
    if (!s->synth)
        return false;
    s->soundFontId = fluid_synth_sfload(s->synth, soundFont_.toLocal8Bit().constData(), 1);
    if (s->soundFontId < 0)
        return false;
    synth_ = std::move(s);
    return true;
}

bool MidiRenderer::isPrepared() const {
    return synth_ && synth_->soundFontId >= 0;
}

bool MidiRenderer::open(const QString& midiPath) {
    close();
    const QByteArray file = QFileInfo(midiPath).absoluteFilePath().toLocal8Bit();
    if (!QFileInfo(midiPath).isReadable() || !fluid_is_midifile(file.constData()))
        return false;
    if (!prepare())
        return false;
    synth_->player = new_fluid_player(synth_->synth);
    if (!synth_->player)
        return false;
    if (fluid_player_add(synth_->player, file.constData()) != FLUID_OK ||
        fluid_player_play(synth_->player) != FLUID_OK) {
        close();
        return false;
    }
    position_ = 0;
    tailLeft_ = static_cast<std::int64_t>(rate_) * kTailMs / 1000;
    return true;
}

void MidiRenderer::close() {
    if (!synth_ || !synth_->player)
        return;
    fluid_player_stop(synth_->player);
    delete_fluid_player(synth_->player);
    synth_->player = nullptr;
    // Silences what still sounds and clears the programs and the reverb, so the next
    // start is the same as the first.
    fluid_synth_system_reset(synth_->synth);
}

bool MidiRenderer::isOpen() const {
    return synth_ && synth_->player;
}

bool MidiRenderer::ended() const {
    return !isOpen() || tailLeft_ <= 0;
}

std::int64_t MidiRenderer::render(std::int16_t* stereo, std::int64_t frames) {
    if (ended() || frames <= 0)
        return 0;
    const std::int64_t fade = static_cast<std::int64_t>(rate_) * kTailFadeMs / 1000;
    std::int64_t written = 0;
    // In small slices, so the end is seen within a few milliseconds of its tick.
    while (written < frames && !ended()) {
        // Past its last tick the player idles for seconds before it calls itself done;
        // for us the tune is over there, and only the ring of its last notes is left.
        const int total = fluid_player_get_total_ticks(synth_->player);
        const bool over = fluid_player_get_status(synth_->player) == FLUID_PLAYER_DONE ||
                          (total > 0 && fluid_player_get_current_tick(synth_->player) >= total);
        std::int64_t n = std::min<std::int64_t>(frames - written, 512);
        if (over)
            n = std::min(n, tailLeft_);
        std::int16_t* at = stereo + 2 * written;
        if (fluid_synth_write_s16(synth_->synth, static_cast<int>(n), at, 0, 2, at, 1, 2) !=
            FLUID_OK) {
            std::fill(at, at + 2 * n, std::int16_t{0});
            tailLeft_ = 0;
        } else if (over) {
            // The ring fades out rather than being cut: a cut clicks.
            for (std::int64_t i = 0; i < n; ++i) {
                const std::int64_t left = tailLeft_ - i;
                if (left < fade) {
                    at[2 * i] = static_cast<std::int16_t>(at[2 * i] * left / fade);
                    at[2 * i + 1] = static_cast<std::int16_t>(at[2 * i + 1] * left / fade);
                }
            }
            tailLeft_ -= n;
        }
        written += n;
    }
    position_ += written;
    return written;
}

#else

// Built without FluidSynth: there is no tune, only silence.
struct MidiRenderer::Synth {};

bool MidiRenderer::available() {
    return false;
}
MidiRenderer::MidiRenderer(int sampleRate, QString soundFont)
    : rate_(sampleRate), soundFont_(std::move(soundFont)) {}
MidiRenderer::~MidiRenderer() = default;
bool MidiRenderer::prepare() {
    return false;
}
bool MidiRenderer::isPrepared() const {
    return false;
}
bool MidiRenderer::open(const QString&) {
    return false;
}
void MidiRenderer::close() {}
bool MidiRenderer::isOpen() const {
    return false;
}
bool MidiRenderer::ended() const {
    return true;
}
std::int64_t MidiRenderer::render(std::int16_t*, std::int64_t) {
    return 0;
}

#endif

QString MidiRenderer::defaultSoundFont() {
    // The small bank first: it loads in a blink. The system's default GM bank may be a
    // much larger one, chosen by the user, so it comes second.
    for (const char* path :
         {"/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/default-GM.sf2"}) {
        if (QFileInfo(QString::fromLatin1(path)).isReadable())
            return QString::fromLatin1(path);
    }
    return {};
}

// ---- MidiStream

MidiStream::MidiStream(MidiRenderer& renderer, QObject* parent)
    : QIODevice(parent), renderer_(renderer) {}

qint64 MidiStream::bytesAvailable() const {
    // Rendered on demand, so always "some" until the tune has rung out.
    return QIODevice::bytesAvailable() + (renderer_.ended() ? 0 : 4096);
}

qint64 MidiStream::readData(char* data, qint64 maxSize) {
    const qint64 frames = maxSize / 4;
    // The sink hands us a byte buffer; 16-bit frames fit it on every platform Qt runs on.
    return 4 * renderer_.render(reinterpret_cast<std::int16_t*>(data), frames);
}

// ---- MusicPlayer

#ifdef CORVANNA_HAVE_MULTIMEDIA
namespace {

// 16-bit stereo, at our rate if the device takes it, else at the device's own.
QAudioFormat formatFor(const QAudioDevice& device) {
    QAudioFormat format;
    format.setSampleFormat(QAudioFormat::Int16);
    format.setChannelCount(2);
    format.setSampleRate(kPreferredRate);
    if (device.isFormatSupported(format))
        return format;
    format.setSampleRate(device.preferredFormat().sampleRate());
    return device.isFormatSupported(format) ? format : QAudioFormat();
}

}  // namespace
#endif

MusicPlayer::MusicPlayer(Output output, QObject* parent) : QObject(parent), output_(output) {}

MusicPlayer::~MusicPlayer() {
    tearDown();
    // A bank still loading must not outlive us.
    if (loading_.valid())
        loading_.wait();
}

bool MusicPlayer::isPlaying() const {
    if (!wanted_)
        return false;
    return loading_.valid() || (stream_ && renderer_ && !renderer_->ended());
}

std::int64_t MusicPlayer::positionMs() const {
    if (!renderer_ || !stream_)
        return 0;
    return renderer_->position() * 1000 / renderer_->sampleRate();
}

int MusicPlayer::outputRate() const {
    if (output_ == Output::Pulled)
        return kPreferredRate;
#ifdef CORVANNA_HAVE_MULTIMEDIA
    // No sound card: no rate, and nothing is loaded for a tune nobody would hear.
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    if (device.isNull())
        return 0;
    return formatFor(device).sampleRate();
#else
    return 0;
#endif
}

void MusicPlayer::start(const QString& midiPath) {
    if (isPlaying())
        return;
    tearDown();
    if (!MidiRenderer::available())
        return;
    const int rate = outputRate();
    if (rate <= 0)
        return;
    path_ = midiPath;
    wanted_ = true;
    if (renderer_ && renderer_->sampleRate() == rate) {
        begin();
        return;
    }
    if (loading_.valid())
        return;  // the bank on its way starts the tune when it is in
    // Loading the soundfont takes a tenth of a second or more (a cold disk, a big
    // bank): off the window's thread, so a game never stalls for its music.
    loading_ = std::async(std::launch::async, [this, rate] {
        auto renderer = std::make_unique<MidiRenderer>(rate);
        renderer->prepare();
        QMetaObject::invokeMethod(this, &MusicPlayer::synthLoaded, Qt::QueuedConnection);
        return renderer;
    });
}

void MusicPlayer::synthLoaded() {
    if (!loading_.valid())
        return;
    renderer_ = loading_.get();
    if (wanted_ && !stream_)
        begin();
}

void MusicPlayer::begin() {
    if (!renderer_->open(path_)) {
        wanted_ = false;
        return;
    }
    stream_ = new MidiStream(*renderer_, this);
    stream_->open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    if (output_ == Output::Pulled)
        return;
#ifdef CORVANNA_HAVE_MULTIMEDIA
    const QAudioDevice device = QMediaDevices::defaultAudioOutput();
    const QAudioFormat format = device.isNull() ? QAudioFormat() : formatFor(device);
    if (!format.isValid() || format.sampleRate() != renderer_->sampleRate()) {
        // The device went away or changed while the bank loaded: silence this time.
        stop();
        return;
    }
    sink_ = new QAudioSink(device, format, this);
    connect(sink_, &QAudioSink::stateChanged, this, &MusicPlayer::sinkStateChanged);
    sink_->start(stream_);
    if (sink_->error() != QAudio::NoError)
        stop();
#endif
}

void MusicPlayer::sinkStateChanged() {
#ifdef CORVANNA_HAVE_MULTIMEDIA
    if (!sink_)
        return;
    const bool rungOut = sink_->state() == QAudio::IdleState && (!renderer_ || renderer_->ended());
    const bool failed = sink_->state() == QAudio::StoppedState && sink_->error() != QAudio::NoError;
    if (!rungOut && !failed)
        return;
    // Not from inside the sink's own signal; and not if a new start came first.
    QPointer<QAudioSink> finished = sink_;
    QTimer::singleShot(0, this, [this, finished] {
        if (finished && sink_ == finished)
            tearDown();
    });
#endif
}

void MusicPlayer::stop() {
    wanted_ = false;
    tearDown();
}

void MusicPlayer::tearDown() {
#ifdef CORVANNA_HAVE_MULTIMEDIA
    if (sink_) {
        sink_->disconnect(this);
        sink_->stop();
        sink_->deleteLater();
    }
    sink_ = nullptr;
#endif
    if (stream_) {
        stream_->close();
        stream_->deleteLater();
    }
    stream_ = nullptr;
    if (renderer_)
        renderer_->close();
}

}  // namespace corvanna
