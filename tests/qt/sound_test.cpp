// The program's own sounds and tune: valid files of fitting length, made the same byte for
// byte on every build, and played on a machine with no sound card: the tune renders once
// from the top for about a minute, and nothing is ever in the way.

#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QtEndian>
#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "qt/MusicPlayer.h"
#include "qt/QtPlatform.h"
#include "qt/QtTestApp.h"
#include "qt/SoundPlayer.h"

namespace corvanna {
namespace {

// The test program lives in build/tests; what the build made, in build/assets and build/tools.
QString buildDir() {
    return QCoreApplication::applicationDirPath() + "/..";
}
QString assetsDir() {
    return buildDir() + "/assets";
}

QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// The little-endian unsigned number of `bytes` bytes at `at`.
std::uint32_t le(const QByteArray& b, qsizetype at, int bytes) {
    std::uint32_t v = 0;
    for (int i = bytes - 1; i >= 0; --i)
        v = (v << 8) | static_cast<std::uint8_t>(b[at + i]);
    return v;
}

struct Wave {
    int format = 0, channels = 0, rate = 0, bits = 0;
    std::vector<std::int16_t> samples;
    double seconds() const { return rate ? static_cast<double>(samples.size()) / rate : 0; }
};

// Walks the RIFF chunks as any reader would; an error names what is wrong.
std::string parseWave(const QByteArray& b, Wave& w) {
    if (b.size() < 12 || b.left(4) != "RIFF" || b.mid(8, 4) != "WAVE")
        return "not RIFF/WAVE";
    if (le(b, 4, 4) + 8 != static_cast<std::uint32_t>(b.size()))
        return "RIFF length does not match the file";
    bool haveFmt = false, haveData = false;
    for (qsizetype at = 12; at + 8 <= b.size();) {
        const QByteArray id = b.mid(at, 4);
        const std::uint32_t size = le(b, at + 4, 4);
        if (static_cast<std::uint64_t>(at) + 8 + size > static_cast<std::uint64_t>(b.size()))
            return "chunk " + id.toStdString() + " runs past the end";
        if (id == "fmt ") {
            if (size < 16)
                return "fmt chunk too short";
            w.format = static_cast<int>(le(b, at + 8, 2));
            w.channels = static_cast<int>(le(b, at + 10, 2));
            w.rate = static_cast<int>(le(b, at + 12, 4));
            w.bits = static_cast<int>(le(b, at + 22, 2));
            const std::uint32_t blockAlign = le(b, at + 20, 2);
            if (blockAlign != static_cast<std::uint32_t>(w.channels * w.bits / 8) ||
                le(b, at + 16, 4) != static_cast<std::uint32_t>(w.rate) * blockAlign)
                return "fmt block align or byte rate inconsistent";
            haveFmt = true;
        } else if (id == "data") {
            if (!haveFmt || size % 2)
                return "data before fmt, or of odd length";
            for (std::uint32_t i = 0; i < size; i += 2)
                w.samples.push_back(static_cast<std::int16_t>(le(b, at + 8 + i, 2)));
            haveData = true;
        }
        at += 8 + size + (size & 1);
    }
    return haveFmt && haveData ? "" : "fmt or data chunk missing";
}

struct WaveUse {
    const char* name;
    double minSeconds, maxSeconds;
};

// Each sound's length fits what it goes with: a snap for a click, a swell for applause.
const WaveUse kWaves[] = {
    {"Click.wav", 0.02, 0.2},  {"Markq.wav", 0.02, 0.2},      {"Tick.wav", 0.02, 0.2},
    {"Snap.wav", 0.01, 0.1},   {"CountScore.wav", 0.05, 0.3}, {"Chord.wav", 0.15, 0.8},
    {"Slide.wav", 0.1, 0.6},   {"TwentyOne.wav", 0.2, 1.2},   {"Busted.wav", 0.3, 1.5},
    {"Wingame.wav", 0.5, 2.5}, {"Applause.wav", 1.5, 2.5},    {"HighScore.wav", 1.5, 2.5},
};

TEST(ProgramSounds, EveryWaveIsMonoPcmOfAFittingLength) {
    qtTestApp();
    for (const WaveUse& use : kWaves) {
        SCOPED_TRACE(use.name);
        const QByteArray bytes = readAll(assetsDir() + "/" + use.name);
        ASSERT_FALSE(bytes.isEmpty()) << "missing from " << assetsDir().toStdString();
        Wave w;
        ASSERT_EQ(parseWave(bytes, w), "");
        EXPECT_EQ(w.format, 1) << "PCM";
        EXPECT_EQ(w.channels, 1);
        EXPECT_EQ(w.bits, 16);
        EXPECT_TRUE(w.rate == 22050 || w.rate == 44100) << w.rate;
        ASSERT_FALSE(w.samples.empty());
        EXPECT_GE(w.seconds(), use.minSeconds);
        EXPECT_LE(w.seconds(), use.maxSeconds);
    }
}

// ---- The tune through FluidSynth, rendered without any audio device

bool haveSynth() {
    qtTestApp();
    return MidiRenderer::available() && !MidiRenderer::defaultSoundFont().isEmpty();
}

TEST(TuneRendering, PlaysOnceFromTheTopAndEnds) {
    if (!haveSynth())
        GTEST_SKIP() << "built without FluidSynth or no General MIDI soundfont installed";
    const int rate = 22050;
    MidiRenderer r(rate);
    ASSERT_TRUE(r.open(assetsDir() + "/Orlund.MID"));
    std::vector<std::int16_t> all;
    std::vector<std::int16_t> chunk(2 * 4096);
    // Far more than the tune: it must stop by itself, not loop.
    for (int guard = 0; guard < 200 * rate / 4096; ++guard) {
        const std::int64_t n = r.render(chunk.data(), 4096);
        if (n == 0)
            break;
        all.insert(all.end(), chunk.begin(), chunk.begin() + 2 * n);
    }
    EXPECT_TRUE(r.ended());
    // About a minute, and a moment for the last notes to ring out.
    const double seconds = static_cast<double>(all.size()) / 2 / rate;
    EXPECT_GE(seconds, 45.0);
    EXPECT_LE(seconds, 92.5);
    // Opened again it starts at the top and plays on.
    ASSERT_TRUE(r.open(assetsDir() + "/Orlund.MID"));
    EXPECT_EQ(r.position(), 0);
    std::vector<std::int16_t> again(4 * rate);
    EXPECT_EQ(r.render(again.data(), 2 * rate), 2 * rate);
    EXPECT_FALSE(r.ended());
}

TEST(TuneRendering, UnusableFilesAreSilence) {
    qtTestApp();
    if (!MidiRenderer::available())
        GTEST_SKIP() << "built without FluidSynth";
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const auto write = [&](const QString& name, const QByteArray& bytes) {
        QFile f(dir.filePath(name));
        EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size());
        return dir.filePath(name);
    };
    const QString garbage = write("garbage.MID", "this is not music at all");
    const QString truncated =
        write("truncated.MID", readAll(assetsDir() + "/Orlund.MID").left(200));
    MidiRenderer r(22050);
    EXPECT_FALSE(r.open(dir.filePath("missing.MID")));
    EXPECT_FALSE(r.open(garbage));
    EXPECT_TRUE(r.ended());
    std::vector<std::int16_t> buf(2 * 4096);
    EXPECT_EQ(r.render(buf.data(), 4096), 0);
    // A file cut short may open, but it ends by itself within moments.
    if (r.open(truncated)) {
        std::int64_t frames = 0;
        for (int guard = 0; guard < 100 && !r.ended(); ++guard)
            frames += r.render(buf.data(), 4096);
        EXPECT_TRUE(r.ended());
        EXPECT_LT(frames, 22050 * 10);
    }
    MidiRenderer noBank(22050, dir.filePath("no-such.sf2"));
    EXPECT_FALSE(noBank.open(assetsDir() + "/Orlund.MID"));
}

// ---- The players

// Runs the loop in small slices until the condition holds or the time is up.
template <class Condition>
bool waitUntil(Condition done, int timeoutMs = 5000) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > timeoutMs)
            return false;
        runLoop(2);
    }
    return true;
}

TEST(MusicPlayerTest, StartStopAndStartAgainFollowTheTune) {
    if (!haveSynth())
        GTEST_SKIP() << "built without FluidSynth or no General MIDI soundfont installed";
    MusicPlayer music(MusicPlayer::Output::Pulled);
    const QString tune = assetsDir() + "/Orlund.MID";

    // Stopped while the soundfont is still loading: nothing starts once it is in.
    music.start(tune);
    EXPECT_TRUE(music.isPlaying());
    music.stop();
    EXPECT_FALSE(music.isPlaying());
    ASSERT_TRUE(waitUntil([&] { return !music.isLoading(); }));
    runLoop(2);
    EXPECT_FALSE(music.isPlaying());
    EXPECT_EQ(music.stream(), nullptr);

    music.start(tune);
    ASSERT_TRUE(music.isPlaying());
    ASSERT_NE(music.stream(), nullptr) << "the soundfont is kept: the second start is at once";
    QByteArray first = music.stream()->read(4 * 44100);
    EXPECT_EQ(first.size(), 4 * 44100);
    EXPECT_EQ(music.positionMs(), 1000);

    // Started again while it plays: it goes on where it is.
    music.start(tune);
    EXPECT_TRUE(music.isPlaying());
    EXPECT_EQ(music.positionMs(), 1000);
    music.stream()->read(4 * 44100);
    EXPECT_EQ(music.positionMs(), 2000);

    // Stopped, it is silent; started, it is back at the top.
    music.stop();
    EXPECT_FALSE(music.isPlaying());
    EXPECT_EQ(music.stream(), nullptr);
    music.start(tune);
    ASSERT_TRUE(music.isPlaying());
    EXPECT_EQ(music.positionMs(), 0);
    EXPECT_EQ(music.stream()->read(4 * 44100).size(), first.size());

    // A file it cannot read is silence.
    music.stop();
    music.start(assetsDir() + "/NoSuchTune.MID");
    EXPECT_FALSE(music.isPlaying());
}

bool anyMessageBoxShown() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (qobject_cast<QMessageBox*>(w) && w->isVisible())
            return true;
    return QApplication::activeModalWidget() != nullptr;
}

// A sound is let go once its file says it is over: Qt 6.4 now and then starts an effect it
// never feeds, whose audio stream would run on, waking the program, until the next sound.
// A header that does not give the length, or lies about it, gives none or at most a minute.
TEST(SoundPlayerTest, EffectLetGoOnceItsSoundIsOver) {
    qtTestApp();
    QTemporaryDir dir;
    auto le32 = [](quint32 v) {
        QByteArray b(4, 0);
        qToLittleEndian(v, b.data());
        return b;
    };
    const QByteArray wave = "RIFF" + le32(0) + "WAVE";
    const QByteArray fmt = "fmt " + le32(16) + QByteArray(8, 0) + le32(88200) + QByteArray(4, 0);
    const std::pair<QByteArray, int> cases[] = {
        {wave + fmt + "data" + le32(44100), 500},
        {wave + "junk" + le32(3) + QByteArray(4, 0) + fmt + "data" + le32(88200), 1000},
        {wave + fmt + "data" + le32(0xFFFFFFFF), 60000},
        {wave + "data" + le32(88200), -1},
        {wave + "LIST" + le32(0xFFFFFFFF) + fmt + "data" + le32(88200), -1},
        {wave + "fmt " + le32(4) + QByteArray(4, 0), -1},
        {QByteArray(100, 'x'), -1},
        {QByteArray(), -1},
    };
    for (const auto& [bytes, ms] : cases) {
        QFile f(dir.filePath("t.wav"));
        ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(bytes);
        f.close();
        EXPECT_EQ(waveLengthMs(f.fileName()), ms) << bytes.toHex().toStdString();
    }
    EXPECT_EQ(waveLengthMs(dir.filePath("none.wav")), -1);

    SoundPlayer sound;
    const QString click = assetsDir() + "/Click.wav";
    sound.play(click);
    QObject* effect = sound.effectFor(click);
    ASSERT_NE(effect, nullptr);
    runLoop(waveLengthMs(click) + 800);
    EXPECT_FALSE(effect->property("playing").toBool());
}

// How soon each call returns is bench_sound's to measure; here, that one effect is kept a
// file, and that each call returns, whatever the audio layer lacks, without a word.
TEST(SoundPlayerTest, OneEffectPerFileKeptAndEveryCallReturnsQuietlyWithoutAnAudioDevice) {
    qtTestApp();
    SoundPlayer sound;
    const QString click = assetsDir() + "/Click.wav";
    const QString tick = assetsDir() + "/Tick.wav";
    sound.play(click);
    QObject* clickEffect = sound.effectFor(click);
    ASSERT_NE(clickEffect, nullptr);
    for (int i = 0; i < 5; ++i)
        sound.play(click);
    EXPECT_EQ(sound.effectFor(click), clickEffect);
    EXPECT_EQ(sound.effectCount(), 1);

    sound.play(tick);
    EXPECT_EQ(sound.effectCount(), 2);
    // The new sound cuts off the one before.
    EXPECT_FALSE(clickEffect->property("playing").toBool());

    sound.play(assetsDir() + "/NoSuchSound.wav");
    EXPECT_EQ(sound.effectFor(assetsDir() + "/NoSuchSound.wav"), nullptr);
    EXPECT_EQ(sound.effectCount(), 2);
    runLoop(5);

    QtPlatform platform;
    platform.setQuitWhenLastFormUnloaded(false);
    const std::string assets = assetsDir().toStdString();
    // The first of each makes the players, the effect and the synthesiser.
    platform.playWave(assets + "/Click.wav");
    platform.playWave(assets + "/Click.wav");
    platform.playWave(assets + "/NoSuchSound.wav");
    platform.startMusic(assets + "/Orlund.MID");
    platform.stopMusic();
    platform.startMusic(assets + "/Orlund.MID");
    platform.startMusic(assets + "/NoSuchTune.MID");
    // Whatever the audio layer does in the background has its turn.
    runLoop(10);
    EXPECT_FALSE(anyMessageBoxShown());
    platform.stopMusic();
    platform.playWave(assets + "/Applause.wav");
    runLoop(10);
    EXPECT_FALSE(anyMessageBoxShown());
}

}  // namespace
}  // namespace corvanna
