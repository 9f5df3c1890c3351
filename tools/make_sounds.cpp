// Makes the program's twelve wave sounds from nothing but arithmetic, so the build
// needs no recorded audio and every build writes the same bytes.
//
//   make_sounds OUTPUT_FOLDER
//
// Every sound is 16-bit PCM mono at 44100 Hz, starts and ends on silence through
// short ramps (no click at either end) and is scaled to a set peak below full scale.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

#include "Xorshift.h"

namespace corvanna {
namespace {

constexpr int kRate = 44100;
constexpr double kPi = std::numbers::pi;
constexpr double kTwoPi = 2.0 * std::numbers::pi;

using Signal = std::vector<double>;

// Our own generator: the standard distributions differ between libraries, and
// the noise must be the same on every build.
class Noise {
public:
    explicit Noise(std::uint64_t seed) : bits_(seed, 1) {}
    std::uint64_t next() { return bits_.next64(); }
    // In [0, 1).
    double uniform() { return static_cast<double>(next() >> 11) * (1.0 / 9007199254740992.0); }
    // In [-1, 1).
    double bipolar() { return uniform() * 2.0 - 1.0; }
    double between(double lo, double hi) { return lo + (hi - lo) * uniform(); }

private:
    corvanna::tools::Xorshift bits_;
};

int samplesFor(double seconds) {
    return static_cast<int>(std::lround(seconds * kRate));
}

double noteHz(int midiNote) {
    return 440.0 * std::pow(2.0, (midiNote - 69) / 12.0);
}

// Adds src into dst starting at the given second, growing dst as needed.
void mixAt(Signal& dst, const Signal& src, double atSeconds, double gain = 1.0) {
    const std::size_t start = static_cast<std::size_t>(samplesFor(atSeconds));
    if (dst.size() < start + src.size())
        dst.resize(start + src.size(), 0.0);
    for (std::size_t i = 0; i < src.size(); ++i)
        dst[start + i] += src[i] * gain;
}

// A two-pole resonant filter (Chamberlin state variable) whose cutoff may move per sample.
struct StateVariable {
    double low = 0, band = 0;
    enum Mode { Low, Band, High };
    double step(double in, double cutoffHz, double q, Mode mode) {
        const double f = 2.0 * std::sin(kPi * std::min(cutoffHz, kRate / 6.0) / kRate);
        const double damp = 1.0 / q;
        low += f * band;
        const double high = in - low - damp * band;
        band += f * high;
        switch (mode) {
            case Low: return low;
            case Band: return band;
            case High: return high;
        }
        return low;
    }
};

// Attack-then-exponential-decay: the shape of anything struck.
double struck(double t, double attack, double decay) {
    if (t < attack)
        return std::sin(0.5 * kPi * t / attack);
    return std::exp(-(t - attack) / decay);
}

// Fades the last few milliseconds of a note to nothing: a note cut off while it still
// sounds clicks, even in the middle of other notes.
void release(Signal& s, double ms = 8) {
    const std::size_t n = std::min(s.size(), static_cast<std::size_t>(ms * kRate / 1000));
    for (std::size_t i = 0; i < n; ++i)
        s[s.size() - 1 - i] *= 0.5 - 0.5 * std::cos(kPi * static_cast<double>(i) / n);
}

// A sine tone with a decaying envelope, optionally falling in pitch as it sounds.
Signal blip(double hz, double seconds, double attack, double decay, double dropPerSecond = 0) {
    Signal s(static_cast<std::size_t>(samplesFor(seconds)));
    double phase = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        phase += kTwoPi * hz * std::exp(-dropPerSecond * t) / kRate;
        s[i] = std::sin(phase) * struck(t, attack, decay);
    }
    release(s);
    return s;
}

// A band-limited sawtooth sample (additive), bright or mellow by the number of partials.
double saw(double phase, double hz, int maxPartials) {
    double v = 0;
    for (int k = 1; k <= maxPartials && k * hz < kRate * 0.45; ++k)
        v += std::sin(phase * k) / k;
    return v * (2.0 / kPi);
}

// A mallet-like note: fundamental plus a soft octave and an inharmonic shimmer.
Signal bell(double hz, double seconds, double decay) {
    Signal s(static_cast<std::size_t>(samplesFor(seconds)));
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        const double env = struck(t, 0.003, decay);
        s[i] = env * (std::sin(kTwoPi * hz * t) + 0.35 * std::sin(kTwoPi * 2 * hz * t) +
                      0.12 * std::exp(-t / (decay * 0.3)) * std::sin(kTwoPi * 2.76 * hz * t));
    }
    release(s, 15);
    return s;
}

// Ramps both ends to silence, removes any offset, scales the peak to peakDb and
// rounds to 16 bits. The ramps are raised cosines: no corner, so no click.
std::vector<std::int16_t> finish(Signal s, double peakDb, double fadeInMs, double fadeOutMs) {
    double mean = 0;
    for (double v : s)
        mean += v;
    mean /= static_cast<double>(std::max<std::size_t>(1, s.size()));
    for (double& v : s)
        v -= mean;
    const std::size_t in = std::min(s.size(), static_cast<std::size_t>(fadeInMs * kRate / 1000));
    const std::size_t out = std::min(s.size(), static_cast<std::size_t>(fadeOutMs * kRate / 1000));
    for (std::size_t i = 0; i < in; ++i)
        s[i] *= 0.5 - 0.5 * std::cos(kPi * static_cast<double>(i) / static_cast<double>(in));
    for (std::size_t i = 0; i < out; ++i)
        s[s.size() - 1 - i] *=
            0.5 - 0.5 * std::cos(kPi * static_cast<double>(i) / static_cast<double>(out));
    double peak = 0;
    for (double v : s)
        peak = std::max(peak, std::abs(v));
    const double gain = peak > 0 ? std::pow(10.0, peakDb / 20.0) * 32767.0 / peak : 0.0;
    std::vector<std::int16_t> pcm(s.size());
    for (std::size_t i = 0; i < s.size(); ++i)
        pcm[i] = static_cast<std::int16_t>(std::clamp(std::lround(s[i] * gain), -32767L, 32767L));
    return pcm;
}

void putLe(std::string& out, std::uint32_t v, int bytes) {
    for (int i = 0; i < bytes; ++i)
        out.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
}

bool writeWave(const std::filesystem::path& file, const std::vector<std::int16_t>& pcm) {
    const std::uint32_t dataBytes = static_cast<std::uint32_t>(pcm.size() * 2);
    std::string out = "RIFF";
    putLe(out, 36 + dataBytes, 4);
    out += "WAVEfmt ";
    putLe(out, 16, 4);
    putLe(out, 1, 2);  // PCM
    putLe(out, 1, 2);  // mono
    putLe(out, kRate, 4);
    putLe(out, kRate * 2, 4);
    putLe(out, 2, 2);
    putLe(out, 16, 2);
    out += "data";
    putLe(out, dataBytes, 4);
    for (std::int16_t v : pcm)
        putLe(out, static_cast<std::uint16_t>(v), 2);
    std::ofstream f(file, std::ios::binary | std::ios::trunc);
    f.write(out.data(), static_cast<std::streamsize>(out.size()));
    return static_cast<bool>(f);
}

// ---- The sounds

// A card taken or placed: a crack of bright noise over a small papery body.
std::vector<std::int16_t> click() {
    Noise rng(11);
    Signal s(static_cast<std::size_t>(samplesFor(0.07)));
    StateVariable crack, body;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        const double n = rng.bipolar();
        const double hi = crack.step(n, 3200, 1.4, StateVariable::High) * struck(t, 0.0008, 0.006);
        const double mid = body.step(n, 1400, 3.0, StateVariable::Band) * struck(t, 0.001, 0.012);
        const double thump = std::sin(kTwoPi * 190 * t) * struck(t, 0.001, 0.010);
        s[i] = hi + 0.8 * mid + 0.35 * thump;
    }
    return finish(s, -3, 0.6, 15);
}

// A card selected: a soft, high, round blip.
std::vector<std::int16_t> markq() {
    Signal s = blip(1760, 0.06, 0.002, 0.014, 1.5);
    mixAt(s, blip(3520, 0.03, 0.002, 0.006), 0, 0.15);
    return finish(s, -4, 1.5, 15);
}

// Deselected: the same idea lower and softer.
std::vector<std::int16_t> tick() {
    Signal s = blip(990, 0.05, 0.003, 0.011, 2.0);
    return finish(s, -7, 2.0, 15);
}

// A move not allowed: a buzzy cluster (a minor second over a tritone) that sags a little.
std::vector<std::int16_t> chord() {
    const double seconds = 0.34;
    Signal s(static_cast<std::size_t>(samplesFor(seconds)));
    const int notes[] = {47, 53, 54};  // B2, F3, F#3
    for (int note : notes) {
        const double hz = noteHz(note);
        double phase = 0;
        for (std::size_t i = 0; i < s.size(); ++i) {
            const double t = static_cast<double>(i) / kRate;
            phase += kTwoPi * hz * (1.0 - 0.02 * t / seconds) / kRate;
            const double env = t < 0.01 ? t / 0.01 : std::exp(-(t - 0.01) / 0.16);
            s[i] += saw(phase, hz, 12) * env;
        }
    }
    StateVariable tone;
    for (double& v : s)
        v = tone.step(v, 1800, 0.8, StateVariable::Low);
    return finish(s, -3, 3, 40);
}

// A card slides in, or a warning: noise through a band that sweeps upward and back.
std::vector<std::int16_t> slide() {
    Noise rng(23);
    const double seconds = 0.28;
    Signal s(static_cast<std::size_t>(samplesFor(seconds)));
    StateVariable sweep;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        const double x = t / seconds;
        const double cutoff = 700 + 3300 * std::sin(kPi * std::pow(x, 0.7));
        const double env = std::pow(std::sin(kPi * std::pow(x, 0.6)), 1.5);
        s[i] = sweep.step(rng.bipolar(), cutoff, 2.2, StateVariable::Band) * env;
    }
    return finish(s, -3, 5, 30);
}

// One step of a count-up: a tiny bright square-ish chirp.
std::vector<std::int16_t> snap() {
    Signal s(static_cast<std::size_t>(samplesFor(0.035)));
    double phase = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        const double hz = 2400 + 900 * std::exp(-t / 0.004);
        phase += kTwoPi * hz / kRate;
        const double tone =
            std::sin(phase) + 0.3 * std::sin(3 * phase) + 0.12 * std::sin(5 * phase);
        s[i] = tone * struck(t, 0.0007, 0.007);
    }
    return finish(s, -3, 0.5, 8);
}

// One step of the other count-up: a short metallic ping with a bell's inharmonic partials.
std::vector<std::int16_t> countScore() {
    const double seconds = 0.16;
    Signal s(static_cast<std::size_t>(samplesFor(seconds)));
    const double hz = noteHz(95);  // B6
    const double partials[][3] = {{1.0, 1.0, 0.05}, {2.41, 0.45, 0.025}, {3.87, 0.25, 0.012}};
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        for (const auto& p : partials)
            s[i] += p[1] * std::sin(kTwoPi * hz * p[0] * t) * struck(t, 0.001, p[2]);
    }
    return finish(s, -3, 0.8, 25);
}

// A goal reached: three rising notes of a major triad, the last one left to ring.
std::vector<std::int16_t> twentyOne() {
    Signal s;
    const int notes[] = {72, 76, 79, 84};  // C5 E5 G5 C6
    for (int i = 0; i < 4; ++i) {
        const bool last = i == 3;
        mixAt(s, bell(noteHz(notes[i]), last ? 0.42 : 0.2, last ? 0.16 : 0.07), i * 0.075);
    }
    return finish(s, -3, 1, 60);
}

// A bust: a sawtooth falling a fifth through a filter that opens and closes twice ("wah").
std::vector<std::int16_t> busted() {
    const double seconds = 0.75;
    Signal s(static_cast<std::size_t>(samplesFor(seconds)));
    StateVariable wah;
    double phase = 0;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double t = static_cast<double>(i) / kRate;
        const double x = t / seconds;
        const double hz = noteHz(55) * std::pow(2.0, -7.0 / 12.0 * std::pow(x, 1.3));  // G3 to C3
        phase += kTwoPi * hz * (1.0 + 0.006 * std::sin(kTwoPi * 5.5 * t)) / kRate;
        const double cutoff = 350 + 1500 * std::pow(std::sin(kPi * std::fmod(x * 2.0, 1.0)), 2.0);
        const double env = std::min(1.0, t / 0.02) * (1.0 - 0.6 * x);
        s[i] = wah.step(saw(phase, hz, 30), cutoff, 4.0, StateVariable::Low) * env;
    }
    return finish(s, -3, 4, 90);
}

// The board cleared: a quick happy figure on mallets with a held final chord.
std::vector<std::int16_t> wingame() {
    Signal s;
    // (note, start in eighths, length in seconds)
    const struct {
        int note;
        double at;
        double length;
    } figure[] = {{67, 0, 0.2}, {72, 1, 0.2}, {76, 2, 0.2}, {74, 3, 0.2}, {77, 4, 0.2},
                  {81, 5, 0.2}, {79, 6, 0.7}, {84, 6, 0.7}, {76, 6, 0.7}, {72, 6, 0.7}};
    const double eighth = 0.095;
    for (const auto& n : figure) {
        const bool last = n.at >= 6;
        mixAt(s, bell(noteHz(n.note), n.length, last ? 0.25 : 0.08), n.at * eighth,
              last ? 0.55 : 1.0);
    }
    return finish(s, -3, 1, 120);
}

// A bonus or a new table entry: a crowd clapping, built clap by clap. Each clap is
// a few milliseconds of noise through its own band; their rate swells and fades.
std::vector<std::int16_t> applause() {
    Noise rng(1977);
    const double seconds = 2.2;
    Signal s(static_cast<std::size_t>(samplesFor(seconds)), 0.0);
    auto density = [&](double t) {
        const double rise = std::min(1.0, t / 0.45);
        const double fall = t > 1.3 ? std::max(0.0, 1.0 - (t - 1.3) / (seconds - 1.35)) : 1.0;
        return rise * fall;
    };
    // Claps arrive as a thinned Poisson stream: up to 220 a second at the peak.
    const double maxRate = 220;
    double t = 0;
    while (true) {
        t += -std::log(1.0 - rng.uniform()) / maxRate;
        if (t >= seconds - 0.06)
            break;
        const double d = density(t);
        if (rng.uniform() >= d)
            continue;
        const double centre = rng.between(900, 2600);
        const double q = rng.between(1.2, 3.0);
        const double decay = rng.between(0.004, 0.011);
        const double level = rng.between(0.4, 1.0) * (0.5 + 0.5 * d);
        Signal clap(static_cast<std::size_t>(samplesFor(0.05)));
        StateVariable band;
        for (std::size_t i = 0; i < clap.size(); ++i) {
            const double u = static_cast<double>(i) / kRate;
            clap[i] = band.step(rng.bipolar(), centre, q, StateVariable::Band) *
                      struck(u, 0.0007, decay) * level;
        }
        release(clap, 5);
        mixAt(s, clap, t);
    }
    // A faint wash under the claps: the room.
    StateVariable room;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const double u = static_cast<double>(i) / kRate;
        s[i] += 0.05 * density(u) * room.step(rng.bipolar(), 1500, 0.7, StateVariable::Band);
    }
    s.resize(static_cast<std::size_t>(samplesFor(seconds)));
    return finish(s, -3, 20, 150);
}

// A new high score: a brass-like fanfare. Each note brightens as it swells, as a
// horn does, by opening a lowpass with its own envelope.
std::vector<std::int16_t> highScore() {
    Signal s;
    const struct {
        int note;
        double at, length;
    } voice[] = {
        {67, 0.00, 0.14},
        {67, 0.15, 0.14},
        {67, 0.30, 0.14},
        {72, 0.45, 0.45},
        {67, 0.92, 0.16},
        {72, 1.10, 0.16},
        {76, 1.28, 0.75},
        // the lower part joins for the last chord
        {64, 0.45, 0.45},
        {64, 1.28, 0.75},
        {60, 1.28, 0.75},
    };
    for (const auto& n : voice) {
        const double hz = noteHz(n.note);
        Signal note(static_cast<std::size_t>(samplesFor(n.length + 0.12)));
        StateVariable horn;
        double phase = 0;
        for (std::size_t i = 0; i < note.size(); ++i) {
            const double t = static_cast<double>(i) / kRate;
            double env;
            if (t < 0.03)
                env = std::sin(0.5 * kPi * t / 0.03);
            else if (t < n.length)
                env = 0.8 + 0.2 * std::exp(-(t - 0.03) / 0.05);
            else
                env = 0.8 * std::exp(-(t - n.length) / 0.03);
            const double vibrato = t > 0.25 ? 0.004 * std::sin(kTwoPi * 5.2 * t) : 0.0;
            phase += kTwoPi * hz * (1.0 + vibrato) / kRate;
            const double cutoff = hz * (1.5 + 5.0 * env);
            note[i] = horn.step(saw(phase, hz, 24), cutoff, 0.9, StateVariable::Low) * env;
        }
        mixAt(s, note, n.at, n.note < 67 ? 0.6 : 1.0);
    }
    return finish(s, -3, 2, 80);
}

}  // namespace
}  // namespace corvanna

int main(int argc, char** argv) {
    using namespace corvanna;
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT_FOLDER\n", argv[0]);
        return 2;
    }
    const std::filesystem::path dir = argv[1];
    std::error_code ec;
    std::filesystem::create_directories(dir, ec);
    const struct {
        const char* name;
        std::function<std::vector<std::int16_t>()> make;
    } sounds[] = {
        {"Click.wav", click},           {"Markq.wav", markq},         {"Tick.wav", tick},
        {"Chord.wav", chord},           {"Slide.wav", slide},         {"Snap.wav", snap},
        {"CountScore.wav", countScore}, {"TwentyOne.wav", twentyOne}, {"Busted.wav", busted},
        {"Wingame.wav", wingame},       {"Applause.wav", applause},   {"HighScore.wav", highScore},
    };
    for (const auto& sound : sounds) {
        if (!writeWave(dir / sound.name, sound.make())) {
            std::fprintf(stderr, "make_sounds: cannot write %s\n",
                         (dir / sound.name).string().c_str());
            return 1;
        }
    }
    return 0;
}
