// The sounds and the tune played in the real window on a machine with no sound card:
// the tune renders once from the top, and nothing is ever in the way.

#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QMessageBox>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "qt/MusicPlayer.h"
#include "qt/QtPlatform.h"
#include "qt/QtTestApp.h"
#include "qt/SoundFiles.h"
#include "qt/SoundPlayer.h"

namespace corvanna {
namespace {

using namespace soundtest;

void ensureSoundTestApp() {
    qtTestApp();
}

// ---- The tune through FluidSynth, rendered without any audio device

double rmsDb(const std::vector<std::int16_t>& s, std::size_t from, std::size_t to) {
    double e = 0;
    for (std::size_t i = from; i < to; ++i)
        e += static_cast<double>(s[i]) * s[i];
    return 10 * std::log10(std::max(1e-9, e / (to - from)) / (32767.0 * 32767.0));
}

// How far apart two stretches of sound are in loudness over time (windows of 50 ms),
// relative to the first one's loudness: 0 for the same music, more for other music.
double loudnessDifference(const std::vector<std::int16_t>& a, const std::vector<std::int16_t>& b) {
    const std::size_t window = 2 * 1100;
    double apart = 0, total = 0;
    for (std::size_t at = 0; at + window <= std::min(a.size(), b.size()); at += window) {
        double ea = 0, eb = 0;
        for (std::size_t i = at; i < at + window; ++i) {
            ea += static_cast<double>(a[i]) * a[i];
            eb += static_cast<double>(b[i]) * b[i];
        }
        apart += std::abs(std::sqrt(ea / window) - std::sqrt(eb / window));
        total += std::sqrt(ea / window);
    }
    return total > 0 ? apart / total : 1.0;
}

std::vector<std::int16_t> samplesOf(const QByteArray& bytes) {
    std::vector<std::int16_t> s(static_cast<std::size_t>(bytes.size() / 2));
    for (std::size_t i = 0; i < s.size(); ++i)
        s[i] = static_cast<std::int16_t>(le(bytes, static_cast<qsizetype>(2 * i), 2));
    return s;
}

TEST(TuneRendering, PlaysOnceFromTheTopAndEnds) {
    ensureSoundTestApp();
    if (!MidiRenderer::available() || MidiRenderer::defaultSoundFont().isEmpty())
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
    // As long as its tempo map says, and a moment for the last notes to ring out.
    Tune tune;
    ASSERT_EQ(parseMidi(readAll(assetsDir() + "/Orlund.MID"), tune), "");
    const double seconds = static_cast<double>(all.size()) / 2 / rate;
    EXPECT_GE(seconds, tune.seconds);
    EXPECT_LE(seconds, tune.seconds + 2.5);
    // The ring fades out: the very end is near silence, not a cut.
    int lastPeak = 0;
    for (std::size_t i = all.size() - 2 * rate / 100; i < all.size(); ++i)
        lastPeak = std::max(lastPeak, std::abs(static_cast<int>(all[i])));
    EXPECT_LT(lastPeak, 330);
    const std::size_t second = 2 * rate;
    ASSERT_GT(all.size(), 12 * second);
    // Sound from the first bars on, through the middle; no stretch of hard clipping.
    EXPECT_GT(rmsDb(all, 0, 2 * second), -40.0);
    EXPECT_GT(rmsDb(all, 20 * second, 30 * second), -40.0);
    int run = 0, longest = 0;
    for (std::int16_t s : all) {
        run = std::abs(static_cast<int>(s)) >= 32767 ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    EXPECT_LT(longest, 4);

    // Opened again it starts at the top: the same opening. Notes may land a block of
    // samples apart, so the loudness over time is compared, not each sample.
    ASSERT_TRUE(r.open(assetsDir() + "/Orlund.MID"));
    EXPECT_EQ(r.position(), 0);
    std::vector<std::int16_t> again(4 * rate);
    ASSERT_EQ(r.render(again.data(), 2 * rate), 2 * rate);
    const std::vector<std::int16_t> opening(all.begin(), all.begin() + 4 * rate);
    EXPECT_LT(loudnessDifference(opening, again), 0.1);
    // The measure tells a different stretch of the tune apart.
    const std::vector<std::int16_t> later(all.begin() + 4 * rate, all.begin() + 8 * rate);
    EXPECT_GT(loudnessDifference(opening, later), 0.2);
}

TEST(TuneRendering, UnusableFilesAreSilence) {
    ensureSoundTestApp();
    if (!MidiRenderer::available())
        GTEST_SKIP() << "built without FluidSynth";
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    const QString garbage = dir.filePath("garbage.MID");
    const QString truncated = dir.filePath("truncated.MID");
    {
        QFile g(garbage);
        ASSERT_TRUE(g.open(QIODevice::WriteOnly));
        g.write("this is not music at all");
        QFile t(truncated);
        ASSERT_TRUE(t.open(QIODevice::WriteOnly));
        t.write(readAll(assetsDir() + "/Orlund.MID").left(200));
    }
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

bool anyMessageBoxShown() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (qobject_cast<QMessageBox*>(w) && w->isVisible())
            return true;
    return QApplication::activeModalWidget() != nullptr;
}

// Runs the loop in small slices until the condition holds or the time is up.
template <class Condition>
bool waitUntil(Condition done, int timeoutMs = 5000) {
    QElapsedTimer clock;
    clock.start();
    while (!done()) {
        if (clock.elapsed() > timeoutMs)
            return false;
        runLoopFor(2);
    }
    return true;
}

TEST(MusicPlayerTest, StartStopAndStartAgainFollowTheTune) {
    ensureSoundTestApp();
    if (!MidiRenderer::available() || MidiRenderer::defaultSoundFont().isEmpty())
        GTEST_SKIP() << "built without FluidSynth or no General MIDI soundfont installed";
    MusicPlayer music(MusicPlayer::Output::Pulled);
    const QString tune = assetsDir() + "/Orlund.MID";

    // Stopped while the soundfont is still loading: nothing starts once it is in.
    music.start(tune);
    EXPECT_TRUE(music.isPlaying());
    music.stop();
    EXPECT_FALSE(music.isPlaying());
    ASSERT_TRUE(waitUntil([&] { return !music.isLoading(); }));
    runLoopFor(2);
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
    const QByteArray again = music.stream()->read(4 * 44100);
    EXPECT_LT(loudnessDifference(samplesOf(first), samplesOf(again)), 0.1);

    // A file it cannot read is silence.
    music.stop();
    music.start(assetsDir() + "/NoSuchTune.MID");
    EXPECT_FALSE(music.isPlaying());
}

TEST(SoundPlayerTest, OneEffectPerFileKeptAndMissingFilesIgnored) {
    ensureSoundTestApp();
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
    runLoopFor(5);
}

// How soon each call returns is bench_sound's to measure; here, that each one returns,
// whatever the audio layer lacks, and says nothing to the player.
TEST(QtPlatformSound, WithoutAudioDeviceEveryCallReturnsQuietly) {
    ensureSoundTestApp();
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
    runLoopFor(10);
    EXPECT_FALSE(anyMessageBoxShown());
    platform.stopMusic();
    platform.playWave(assets + "/Applause.wav");
    runLoopFor(10);
    EXPECT_FALSE(anyMessageBoxShown());
}

}  // namespace
}  // namespace corvanna
