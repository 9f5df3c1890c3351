#pragma once
// What the sound tests share: where the build put its files, small byte readers, and
// parsers for the wave files and the tune that check every field they read.

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QTimer>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace corvanna::soundtest {

// The test program lives in build/tests; what the build made, in build/assets and build/tools.
inline QString buildDir() {
    return QDir(QCoreApplication::applicationDirPath() + "/..").absolutePath();
}
inline QString assetsDir() {
    return buildDir() + "/assets";
}

inline QByteArray readAll(const QString& path) {
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline std::uint32_t le(const QByteArray& b, qsizetype at, int bytes) {
    std::uint32_t v = 0;
    for (int i = bytes - 1; i >= 0; --i)
        v = (v << 8) | static_cast<std::uint8_t>(b[at + i]);
    return v;
}

inline std::uint32_t be(const QByteArray& b, qsizetype at, int bytes) {
    std::uint32_t v = 0;
    for (int i = 0; i < bytes; ++i)
        v = (v << 8) | static_cast<std::uint8_t>(b[at + i]);
    return v;
}

inline void runLoopFor(int ms) {
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

// ---- Waves

struct Wave {
    int format = 0, channels = 0, rate = 0, bits = 0;
    std::vector<std::int16_t> samples;
    double seconds() const { return rate ? static_cast<double>(samples.size()) / rate : 0; }
};

// Walks the RIFF chunks as any reader would; an error names what is wrong.
inline std::string parseWave(const QByteArray& b, Wave& w) {
    if (b.size() < 12 || b.left(4) != "RIFF" || b.mid(8, 4) != "WAVE")
        return "not RIFF/WAVE";
    if (le(b, 4, 4) + 8 != static_cast<std::uint32_t>(b.size()))
        return "RIFF length does not match the file";
    bool haveFmt = false, haveData = false;
    qsizetype at = 12;
    while (at + 8 <= b.size()) {
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
            const std::uint32_t byteRate = le(b, at + 16, 4);
            const std::uint32_t blockAlign = le(b, at + 20, 2);
            w.bits = static_cast<int>(le(b, at + 22, 2));
            if (blockAlign != static_cast<std::uint32_t>(w.channels * w.bits / 8) ||
                byteRate != static_cast<std::uint32_t>(w.rate) * blockAlign)
                return "fmt block align or byte rate inconsistent";
            haveFmt = true;
        } else if (id == "data") {
            if (!haveFmt)
                return "data before fmt";
            if (size % 2)
                return "odd data length";
            for (std::uint32_t i = 0; i < size; i += 2)
                w.samples.push_back(static_cast<std::int16_t>(le(b, at + 8 + i, 2)));
            haveData = true;
        }
        at += 8 + size + (size & 1);
    }
    if (!haveFmt || !haveData)
        return "fmt or data chunk missing";
    return {};
}

// ---- The tune

struct Tune {
    int format = -1, tracks = 0, division = 0;
    std::uint32_t trackBytes = 0;  // headers and bodies of all MTrk chunks
    int endsOfTrack = 0;
    std::set<int> noteChannels;
    std::set<int> programChannels;
    int danglingNotes = 0;
    double seconds = 0;
};

// Reads the whole file event by event (running status too); an error says where it broke.
inline std::string parseMidi(const QByteArray& b, Tune& t) {
    if (b.size() < 14 || b.left(4) != "MThd" || be(b, 4, 4) != 6)
        return "no MThd header";
    t.format = static_cast<int>(be(b, 8, 2));
    t.tracks = static_cast<int>(be(b, 10, 2));
    t.division = static_cast<int>(be(b, 12, 2));
    if (t.division <= 0 || t.division & 0x8000)
        return "not ticks per quarter";
    std::map<std::int64_t, std::uint32_t> tempos;  // tick -> microseconds per quarter
    std::int64_t lastTick = 0;
    qsizetype at = 14;
    for (int track = 0; track < t.tracks; ++track) {
        if (at + 8 > b.size() || b.mid(at, 4) != "MTrk")
            return "track " + std::to_string(track) + " missing";
        const std::uint32_t len = be(b, at + 4, 4);
        const qsizetype end = at + 8 + len;
        if (end > b.size())
            return "track " + std::to_string(track) + " runs past the end";
        t.trackBytes += 8 + len;
        qsizetype p = at + 8;
        std::int64_t tick = 0;
        int status = 0;
        bool ended = false;
        std::map<std::pair<int, int>, int> sounding;
        while (p < end && !ended) {
            std::uint32_t delta = 0;
            int count = 0;
            std::uint8_t c;
            do {
                if (p >= end || ++count > 4)
                    return "bad delta time";
                c = static_cast<std::uint8_t>(b[p++]);
                delta = (delta << 7) | (c & 0x7F);
            } while (c & 0x80);
            tick += delta;
            if (p >= end)
                return "event cut off";
            std::uint8_t first = static_cast<std::uint8_t>(b[p]);
            if (first == 0xFF) {
                if (p + 3 > end)
                    return "meta cut off";
                const int type = static_cast<std::uint8_t>(b[p + 1]);
                const int mlen = static_cast<std::uint8_t>(b[p + 2]);  // all ours are short
                if (p + 3 + mlen > end)
                    return "meta runs past its track";
                if (type == 0x51 && mlen == 3)
                    tempos[tick] = be(b, p + 3, 3);
                if (type == 0x2F) {
                    ended = true;
                    ++t.endsOfTrack;
                }
                p += 3 + mlen;
                status = 0;
                continue;
            }
            if (first == 0xF0 || first == 0xF7)
                return "sysex not expected";
            if (first & 0x80) {
                status = first;
                ++p;
            } else if (!status) {
                return "data byte without a status";
            }
            const int kind = status & 0xF0, channel = status & 0x0F;
            const int size = kind == 0xC0 || kind == 0xD0 ? 1 : 2;
            if (p + size > end)
                return "channel event cut off";
            const int d1 = static_cast<std::uint8_t>(b[p]);
            const int d2 = size == 2 ? static_cast<std::uint8_t>(b[p + 1]) : 0;
            if (d1 > 127 || d2 > 127)
                return "data byte out of range";
            p += size;
            if (kind == 0x90 && d2 > 0) {
                t.noteChannels.insert(channel);
                ++sounding[{channel, d1}];
            } else if (kind == 0x80 || (kind == 0x90 && d2 == 0)) {
                if (--sounding[{channel, d1}] < 0)
                    return "note-off without a note-on";
            } else if (kind == 0xC0) {
                t.programChannels.insert(channel);
            }
        }
        if (!ended)
            return "track " + std::to_string(track) + " has no end-of-track event";
        if (p != end)
            return "bytes after end-of-track in track " + std::to_string(track);
        for (const auto& [key, n] : sounding)
            t.danglingNotes += n;
        lastTick = std::max(lastTick, tick);
        at = end;
    }
    if (at != b.size())
        return "bytes after the last track";
    // Seconds from the tempo map: each stretch at its own tempo (120 a minute before any).
    std::uint32_t us = 500000;
    std::int64_t from = 0;
    double seconds = 0;
    for (const auto& [tick, tempo] : tempos) {
        if (tick >= lastTick)
            break;
        seconds += static_cast<double>(tick - from) * us / t.division / 1e6;
        from = tick;
        us = tempo;
    }
    t.seconds = seconds + static_cast<double>(lastTick - from) * us / t.division / 1e6;
    return {};
}

}  // namespace corvanna::soundtest
