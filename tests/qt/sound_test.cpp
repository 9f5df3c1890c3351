// The program's own sounds and tune as the build makes them: valid files of fitting
// length, made the same byte for byte on every build.

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

TEST(ProgramSounds, EveryWaveIsCleanMonoPcmOfAFittingLength) {
    ensureSoundTestApp();
    std::map<std::string, double> lengths;
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
        lengths[use.name] = w.seconds();
        EXPECT_GE(w.seconds(), use.minSeconds);
        EXPECT_LE(w.seconds(), use.maxSeconds);

        int peak = 0, run = 0, longestFullRun = 0;
        double energy = 0;
        for (std::int16_t s : w.samples) {
            const int a = std::abs(static_cast<int>(s));
            peak = std::max(peak, a);
            run = a >= 32766 ? run + 1 : 0;
            longestFullRun = std::max(longestFullRun, run);
            energy += static_cast<double>(s) * s;
        }
        const double peakDb = 20 * std::log10(peak / 32767.0);
        const double rmsDb = 10 * std::log10(energy / w.samples.size() / (32767.0 * 32767.0));
        EXPECT_EQ(longestFullRun, 0) << "clipped";
        EXPECT_LE(peakDb, -1.0);
        EXPECT_GE(peakDb, -10.0);
        EXPECT_GE(rmsDb, -35.0) << "close to silence";

        // In and out without a click: the very first and last samples are near zero, the
        // start rises over a few samples and the end has faded before the last 2 ms.
        const int fullScale = 32767;
        EXPECT_LE(std::abs(w.samples.front()), fullScale / 100);
        EXPECT_LE(std::abs(w.samples.back()), fullScale / 100);
        const std::size_t lead = static_cast<std::size_t>(w.rate / 5000);  // 0.2 ms
        const std::size_t tail = static_cast<std::size_t>(w.rate / 500);   // 2 ms
        int startPeak = 0, endPeak = 0;
        for (std::size_t i = 0; i < lead; ++i)
            startPeak = std::max(startPeak, std::abs(static_cast<int>(w.samples[i])));
        for (std::size_t i = w.samples.size() - tail; i < w.samples.size(); ++i)
            endPeak = std::max(endPeak, std::abs(static_cast<int>(w.samples[i])));
        EXPECT_LE(startPeak, fullScale / 5);
        EXPECT_LE(endPeak, fullScale / 50);
    }
    for (const char* snap : {"Click.wav", "Markq.wav", "Tick.wav", "Snap.wav"})
        EXPECT_GT(lengths["Applause.wav"], 5 * lengths[snap]) << snap;
}

TEST(ProgramSounds, ParserRefusesDamagedWaves) {
    ensureSoundTestApp();
    // The checks above are only as good as the parser: it must see these faults.
    const QByteArray good = readAll(assetsDir() + "/Click.wav");
    ASSERT_FALSE(good.isEmpty());
    Wave w;
    EXPECT_NE(parseWave(good.left(good.size() - 10), w), "");
    QByteArray badFormat = good;
    badFormat[20] = 3;  // IEEE float
    Wave f;
    ASSERT_EQ(parseWave(badFormat, f), "");
    EXPECT_NE(f.format, 1);
    QByteArray noFmt = good;
    noFmt.replace(12, 4, "junk");
    Wave n;
    EXPECT_NE(parseWave(noFmt, n), "");
}

TEST(ProgramTune, OrlundIsAWholeMinuteLongFormatOneFile) {
    ensureSoundTestApp();
    const QByteArray bytes = readAll(assetsDir() + "/Orlund.MID");
    ASSERT_FALSE(bytes.isEmpty()) << "missing from " << assetsDir().toStdString();
    Tune t;
    ASSERT_EQ(parseMidi(bytes, t), "");
    EXPECT_EQ(t.format, 1);
    EXPECT_GE(t.tracks, 4) << "a tempo track and a few instruments";
    EXPECT_EQ(14 + t.trackBytes, static_cast<std::uint32_t>(bytes.size()));
    EXPECT_EQ(t.endsOfTrack, t.tracks);
    EXPECT_EQ(t.danglingNotes, 0);
    EXPECT_GE(t.seconds, 45.0);
    EXPECT_LE(t.seconds, 90.0);
    EXPECT_TRUE(t.noteChannels.count(9)) << "percussion on channel 10";
    std::set<int> melodic = t.noteChannels;
    melodic.erase(9);
    EXPECT_GE(melodic.size(), 2u);
    for (int ch : melodic)
        EXPECT_TRUE(t.programChannels.count(ch)) << "no program change on channel " << ch + 1;
}

TEST(ProgramTune, ParserRefusesDamagedFiles) {
    ensureSoundTestApp();
    const QByteArray good = readAll(assetsDir() + "/Orlund.MID");
    ASSERT_FALSE(good.isEmpty());
    Tune cut;
    EXPECT_NE(parseMidi(good.left(good.size() - 3), cut), "");
    // The last track loses its end-of-track event: FF 2F 00 becomes three data bytes.
    QByteArray noEnd = good;
    noEnd[noEnd.size() - 3] = 0x7F;
    Tune open;
    EXPECT_NE(parseMidi(noEnd, open), "");
}

// ---- Same bytes every build

QByteArray runTool(const QString& tool, const QString& outDir) {
    QProcess p;
    p.start(buildDir() + "/tools/" + tool, {outDir});
    if (!p.waitForFinished(30000) || p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0)
        return "failed: " + p.readAllStandardError();
    return {};
}

TEST(ProgramAssets, ToolsWriteTheSameBytesEveryRun) {
    ensureSoundTestApp();
    QTemporaryDir one, two;
    ASSERT_TRUE(one.isValid() && two.isValid());
    for (const QString& tool : {QStringLiteral("make_sounds"), QStringLiteral("make_tune")}) {
        ASSERT_EQ(runTool(tool, one.path()), QByteArray()) << tool.toStdString();
        ASSERT_EQ(runTool(tool, two.path()), QByteArray()) << tool.toStdString();
    }
    std::vector<QString> names;
    for (const WaveUse& use : kWaves)
        names.push_back(use.name);
    names.push_back("Orlund.MID");
    for (const QString& name : names) {
        SCOPED_TRACE(name.toStdString());
        const QByteArray a = readAll(one.path() + "/" + name);
        ASSERT_FALSE(a.isEmpty());
        EXPECT_EQ(a, readAll(two.path() + "/" + name));
        // And what the build put beside the program is the very same.
        EXPECT_EQ(a, readAll(assetsDir() + "/" + name));
    }
}

}  // namespace
}  // namespace corvanna
