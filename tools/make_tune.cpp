// Writes the program's tune, "Orlund.MID", composed here by rule and a fixed seed:
//
//   make_tune OUTPUT_FOLDER
//
// A light piece in F major at 132 beats a minute, about a minute long:
// intro (2 bars), A (8), A with a new second half (8), B (8), A (8), a held last chord.
// The melody puts chord tones on the strong beats and steps through the scale between
// them; the harmony comps off the beat, the bass walks to each next root, and a small
// kit keeps time on channel 10. Standard MIDI File format 1: a tempo track and four
// instrument tracks with General MIDI programs.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "Xorshift.h"

namespace corvanna {
namespace {

constexpr int kTicksPerQuarter = 480;
constexpr int kEighth = kTicksPerQuarter / 2;
constexpr int kBar = 4 * kTicksPerQuarter;

// Our own generator, so every build composes exactly the same tune.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : bits_(seed, 7) {}
    std::uint32_t next() { return static_cast<std::uint32_t>(bits_.next64() >> 32); }
    int below(int n) { return static_cast<int>(next() % static_cast<std::uint32_t>(n)); }
    bool chance(int percent) { return below(100) < percent; }

private:
    corvanna::tools::Xorshift bits_;
};

// ---- The music

// F major, as pitch classes.
constexpr int kScale[] = {5, 7, 9, 10, 0, 2, 4};

struct Chord {
    int root;                // pitch class
    std::vector<int> tones;  // pitch classes, root first
};

Chord chordOf(const std::string& name) {
    if (name == "F")
        return {5, {5, 9, 0}};
    if (name == "Dm")
        return {2, {2, 5, 9}};
    if (name == "Bb")
        return {10, {10, 2, 5}};
    if (name == "C")
        return {0, {0, 4, 7}};
    if (name == "C7")
        return {0, {0, 4, 7, 10}};
    if (name == "Am")
        return {9, {9, 0, 4}};
    if (name == "Gm")
        return {7, {7, 10, 2}};
    std::fprintf(stderr, "make_tune: unknown chord %s\n", name.c_str());
    std::exit(1);
}

// Each bar holds one or two chords (the second from beat 3).
struct Bar {
    Chord first, second;
};

std::vector<Bar> bars(const std::vector<std::string>& names) {
    std::vector<Bar> out;
    for (const std::string& n : names) {
        const auto split = n.find(' ');
        if (split == std::string::npos)
            out.push_back({chordOf(n), chordOf(n)});
        else
            out.push_back({chordOf(n.substr(0, split)), chordOf(n.substr(split + 1))});
    }
    return out;
}

bool inScale(int note) {
    return std::find(std::begin(kScale), std::end(kScale), ((note % 12) + 12) % 12) !=
           std::end(kScale);
}

bool isChordTone(int note, const Chord& c) {
    return std::find(c.tones.begin(), c.tones.end(), note % 12) != c.tones.end();
}

// The next scale note `steps` degrees up (or down when negative).
int scaleStep(int note, int steps) {
    const int dir = steps > 0 ? 1 : -1;
    for (int s = 0; s != steps; s += dir) {
        do {
            note += dir;
        } while (!inScale(note));
    }
    return note;
}

// A chord tone to move to from `from`: usually the next one in the direction the line
// leans, sometimes one further (a leap), now and then the same note again.
int nextChordTone(int from, const Chord& c, int lo, int hi, int lean, Dice& dice) {
    std::vector<int> ahead;
    for (int n = from + lean; n >= lo && n <= hi; n += lean)
        if (isChordTone(n, c))
            ahead.push_back(n);
    const int roll = dice.below(100);
    if (isChordTone(from, c) && roll < 12)
        return from;
    if (ahead.size() >= 2 && roll >= 82)
        return ahead[1];
    if (!ahead.empty())
        return ahead[0];
    // Nowhere to go this way: the nearest chord tone the other way.
    for (int n = from - lean; n >= lo && n <= hi; n -= lean)
        if (isChordTone(n, c))
            return n;
    return from;
}

struct Note {
    int tick, length, pitch, velocity;
};

// Rhythms of one bar, in eighths; the last two close a phrase.
const std::vector<std::vector<int>> kRhythms = {
    {2, 2, 2, 2},    {1, 1, 2, 1, 1, 2}, {3, 1, 2, 2},
    {2, 1, 1, 2, 2}, {1, 1, 1, 1, 2, 2}, {2, 2, 1, 1, 2},
};
const std::vector<std::vector<int>> kCadences = {{2, 6}, {3, 1, 4}};

// A melody over the given bars. The last bar of each four ends on a long note; the
// last of all comes home to the tonic.
std::vector<Note> compose(const std::vector<Bar>& harmony, std::uint64_t seed, int lo, int hi,
                          int startTick, int& pitch) {
    Dice dice(seed);
    std::vector<Note> out;
    int lean = 1;
    int untilTurn = 3;
    for (std::size_t b = 0; b < harmony.size(); ++b) {
        const bool cadence = b % 4 == 3;
        const bool home = b + 1 == harmony.size();
        const auto& rhythm = cadence ? kCadences[dice.below(2)]
                                     : kRhythms[dice.below(static_cast<int>(kRhythms.size()))];
        int at = 0;
        for (std::size_t i = 0; i < rhythm.size(); ++i) {
            const Chord& chord = at < 4 ? harmony[b].first : harmony[b].second;
            const bool lastOfBar = i + 1 == rhythm.size();
            if (home && lastOfBar) {
                // The nearest F to where the line is.
                int f = lo;
                while (f % 12 != 5)
                    ++f;
                while (f + 12 <= hi && std::abs(f + 12 - pitch) < std::abs(f - pitch))
                    f += 12;
                pitch = f;
            } else if (at % 2 == 0 || rhythm[i] >= 2) {
                // On the beat: a chord tone, turning now and then and at the edges.
                if (--untilTurn <= 0) {
                    lean = -lean;
                    untilTurn = 2 + dice.below(4);
                }
                if (pitch >= hi - 2)
                    lean = -1;
                if (pitch <= lo + 2)
                    lean = 1;
                pitch = nextChordTone(pitch, chord, lo, hi, lean, dice);
            } else {
                // Off the beat: a passing or neighbour step in the scale.
                pitch = std::clamp(scaleStep(pitch, dice.chance(80) ? lean : -lean), lo, hi);
            }
            const int velocity = (at % 4 == 0 ? 96 : at % 2 == 0 ? 86 : 78) + dice.below(6);
            const int len = rhythm[i] * kEighth;
            // A touch of air between notes, more for the short ones.
            out.push_back({startTick + static_cast<int>(b) * kBar + at * kEighth,
                           len - (rhythm[i] == 1 ? 40 : 24), pitch, velocity});
            at += rhythm[i];
        }
    }
    return out;
}

// Three-note chords kept close to the last one, so the hand barely moves.
std::vector<int> voice(const Chord& c, int centre) {
    std::vector<int> best;
    int bestCost = 1 << 30;
    for (int inversion = 0; inversion < static_cast<int>(c.tones.size()); ++inversion) {
        for (int base = 52; base <= 68; ++base) {
            if (base % 12 != c.tones[inversion])
                continue;
            std::vector<int> notes{base};
            for (int k = 1; k < static_cast<int>(std::min<std::size_t>(3, c.tones.size())); ++k) {
                int n = notes.back() + 1;
                while (n % 12 != c.tones[(inversion + k) % c.tones.size()])
                    ++n;
                notes.push_back(n);
            }
            // Of a four-note chord three sound: the root must be one of them.
            if (std::none_of(notes.begin(), notes.end(), [&](int n) { return n % 12 == c.root; }))
                continue;
            int mid = 0;
            for (int n : notes)
                mid += n;
            const int cost = std::abs(mid / static_cast<int>(notes.size()) - centre);
            if (cost < bestCost) {
                bestCost = cost;
                best = notes;
            }
        }
    }
    return best;
}

// ---- Writing the file

class Track {
public:
    void add(int tick, std::vector<std::uint8_t> bytes, int order = 1) {
        events_.push_back({tick, order, static_cast<int>(events_.size()), std::move(bytes)});
    }
    void note(int channel, int tick, int length, int pitch, int velocity) {
        add(tick,
            {static_cast<std::uint8_t>(0x90 | channel), static_cast<std::uint8_t>(pitch),
             static_cast<std::uint8_t>(velocity)},
            2);
        // Note-offs sort before note-ons at the same tick, so a repeated note sounds again.
        add(tick + length,
            {static_cast<std::uint8_t>(0x80 | channel), static_cast<std::uint8_t>(pitch), 64}, 0);
    }
    void meta(int tick, std::uint8_t type, const std::string& data, int order = 1) {
        std::vector<std::uint8_t> b{0xFF, type, static_cast<std::uint8_t>(data.size())};
        b.insert(b.end(), data.begin(), data.end());
        add(tick, b, order);
    }
    int lastTick() const {
        int t = 0;
        for (const auto& e : events_)
            t = std::max(t, e.tick);
        return t;
    }
    // The chunk, with an end-of-track event at `endTick` (or after the last event).
    std::string chunk(int endTick) const {
        auto sorted = events_;
        std::stable_sort(sorted.begin(), sorted.end(), [](const Event& a, const Event& b) {
            return a.tick != b.tick     ? a.tick < b.tick
                   : a.order != b.order ? a.order < b.order
                                        : a.seq < b.seq;
        });
        std::string body;
        int now = 0;
        for (const auto& e : sorted) {
            putVarLen(body, e.tick - now);
            now = e.tick;
            body.append(e.bytes.begin(), e.bytes.end());
        }
        putVarLen(body, std::max(0, endTick - now));
        body += std::string("\xFF\x2F\x00", 3);
        std::string out = "MTrk";
        putBe(out, static_cast<std::uint32_t>(body.size()), 4);
        return out + body;
    }

    static void putBe(std::string& out, std::uint32_t v, int bytes) {
        for (int i = bytes - 1; i >= 0; --i)
            out.push_back(static_cast<char>((v >> (8 * i)) & 0xFF));
    }
    // Seven bits a byte, most significant first, the high bit set on all but the last.
    static void putVarLen(std::string& out, std::uint32_t v) {
        std::uint8_t bytes[5];
        int n = 0;
        do {
            bytes[n++] = static_cast<std::uint8_t>(v & 0x7F);
            v >>= 7;
        } while (v);
        while (n > 1)
            out.push_back(static_cast<char>(bytes[--n] | 0x80));
        out.push_back(static_cast<char>(bytes[0]));
    }

private:
    struct Event {
        int tick, order, seq;
        std::vector<std::uint8_t> bytes;
    };
    std::vector<Event> events_;
};

std::string tempoBytes(int bpm) {
    const std::uint32_t us = 60000000u / static_cast<std::uint32_t>(bpm);
    std::string s;
    Track::putBe(s, us, 3);
    return s;
}

void setUp(Track& t, int channel, const std::string& name, int program, int volume, int pan,
           int reverb) {
    t.meta(0, 0x03, name, 0);
    const auto ch = static_cast<std::uint8_t>(channel);
    t.add(0, {static_cast<std::uint8_t>(0xC0 | ch), static_cast<std::uint8_t>(program)}, 0);
    t.add(0, {static_cast<std::uint8_t>(0xB0 | ch), 7, static_cast<std::uint8_t>(volume)}, 0);
    t.add(0, {static_cast<std::uint8_t>(0xB0 | ch), 10, static_cast<std::uint8_t>(pan)}, 0);
    t.add(0, {static_cast<std::uint8_t>(0xB0 | ch), 91, static_cast<std::uint8_t>(reverb)}, 0);
}

std::string makeTune() {
    const std::vector<Bar> intro = bars({"F", "C"});
    const std::vector<Bar> a = bars({"F", "Dm", "Bb", "C", "F", "Am", "Bb C", "F"});
    const std::vector<Bar> b = bars({"Bb", "C", "Am", "Dm", "Gm", "C", "Bb", "C7"});
    const std::vector<Bar> ending = bars({"F"});

    std::vector<Bar> all;
    for (const auto* part : {&intro, &a, &a, &b, &a, &ending})
        all.insert(all.end(), part->begin(), part->end());
    const int aStart = 2 * kBar, a2Start = 10 * kBar, bStart = 18 * kBar, a3Start = 26 * kBar;
    const int endStart = 34 * kBar;
    const int totalTicks = 35 * kBar;

    // Melody: A is composed once and comes back; its second time gets a new answer.
    std::vector<Note> melody;
    int pitch = 72;
    const auto first = compose(a, 5, 65, 84, aStart, pitch);
    melody.insert(melody.end(), first.begin(), first.end());
    for (const Note& n : first)
        if (n.tick < aStart + 4 * kBar)
            melody.push_back({n.tick - aStart + a2Start, n.length, n.pitch, n.velocity});
    pitch = 77;
    const std::vector<Bar> aAnswer(a.begin() + 4, a.end());
    for (const Note& n : compose(aAnswer, 17, 65, 84, a2Start + 4 * kBar, pitch))
        melody.push_back(n);
    pitch = 74;
    for (const Note& n : compose(b, 29, 67, 86, bStart, pitch))
        melody.push_back(n);
    for (const Note& n : first)
        melody.push_back({n.tick - aStart + a3Start, n.length, n.pitch, n.velocity});
    melody.push_back({endStart, kBar - 60, 77, 92});

    Track tempo;
    tempo.meta(0, 0x03, "Orlund");
    tempo.meta(0, 0x58, std::string("\x04\x02\x18\x08", 4));
    tempo.meta(0, 0x59, std::string("\xFF\x00", 2));  // one flat, major
    tempo.meta(0, 0x51, tempoBytes(132));
    // The last bars broaden into the final chord.
    tempo.meta(endStart - kBar + 2 * kTicksPerQuarter, 0x51, tempoBytes(124));
    tempo.meta(endStart, 0x51, tempoBytes(108));

    Track lead, keys, bass, drums;
    setUp(lead, 0, "Melody", 73, 100, 70, 40);  // flute
    setUp(keys, 1, "Chords", 4, 78, 48, 50);    // electric piano
    setUp(bass, 2, "Bass", 33, 100, 64, 20);    // fingered bass
    setUp(drums, 9, "Drums", 0, 80, 64, 30);

    for (const Note& n : melody)
        lead.note(0, n.tick, n.length, n.pitch, n.velocity);

    Dice feel(41);
    int centre = 62;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const int bar = static_cast<int>(i) * kBar;
        const bool last = i + 1 == all.size();
        if (last) {
            for (int p : voice(all[i].first, centre))
                keys.note(1, bar, kBar - 60, p, 72);
            bass.note(2, bar, kBar - 60, 41, 96);
            bass.note(2, bar, kBar - 60, 29, 80);
            drums.note(9, bar, kEighth, 36, 100);
            drums.note(9, bar, kBar, 49, 90);
            continue;
        }
        // Chords: on the one, then pushed onto the "and" of two and of three.
        const struct { int at, len; } comp[] = {{0, 3}, {3, 2}, {5, 3}};
        for (const auto& hit : comp) {
            const Chord& c = hit.at < 4 ? all[i].first : all[i].second;
            const auto notes = voice(c, centre);
            centre = (notes.front() + notes.back()) / 2;
            for (int p : notes)
                keys.note(1, bar + hit.at * kEighth, hit.len * kEighth - 30, p,
                          (hit.at == 0 ? 70 : 60) + feel.below(6));
        }
        // Bass: root, root, fifth, and a step into the next bar's root.
        const Chord& c1 = all[i].first;
        const Chord& c2 = all[i].second;
        const int root1 = 36 + c1.root;
        const int root2 = 36 + c2.root;
        const int nextRoot = 36 + all[i + 1].first.root;
        bass.note(2, bar, 3 * kEighth - 20, root1, 100);
        bass.note(2, bar + 3 * kEighth, kEighth - 20, root1, 80);
        if (c1.root == c2.root)
            bass.note(2, bar + 4 * kEighth, 2 * kEighth - 20, root1 + 7, 90);
        else
            bass.note(2, bar + 4 * kEighth, 2 * kEighth - 20, root2, 96);
        // Into the next root by a scale step from the side the line comes from.
        const int approach = scaleStep(nextRoot, nextRoot > root2 ? -1 : 1);
        bass.note(2, bar + 6 * kEighth, 2 * kEighth - 20, approach, 84);

        // Drums: kick on one and three, a side stick on two and four, closed hats on the
        // eighths; the B part adds a tambourine and an open hat to lift it.
        const bool inB = bar >= bStart && bar < a3Start;
        const bool sectionStart =
            bar == aStart || bar == a2Start || bar == bStart || bar == a3Start;
        drums.note(9, bar, kEighth, 36, 100);
        drums.note(9, bar + 4 * kEighth, kEighth, 36, 88);
        if (feel.chance(35))
            drums.note(9, bar + 5 * kEighth, kEighth, 36, 70);
        drums.note(9, bar + 2 * kEighth, kEighth, 37, 84);
        drums.note(9, bar + 6 * kEighth, kEighth, 37, 84);
        for (int e = 0; e < 8; ++e) {
            if (inB && e == 7) {
                drums.note(9, bar + e * kEighth, kEighth, 46, 70);
                continue;
            }
            drums.note(9, bar + e * kEighth, kEighth / 2, 42, e % 2 == 0 ? 72 : 52);
        }
        if (inB) {
            drums.note(9, bar + 2 * kEighth, kEighth, 54, 64);
            drums.note(9, bar + 6 * kEighth, kEighth, 54, 64);
        }
        if (sectionStart)
            drums.note(9, bar, kBar, 49, 84);
    }

    std::string file = "MThd";
    Track::putBe(file, 6, 4);
    Track::putBe(file, 1, 2);  // format 1
    Track::putBe(file, 5, 2);  // tracks
    Track::putBe(file, kTicksPerQuarter, 2);
    for (const Track* t : {&tempo, &lead, &keys, &bass, &drums})
        file += t->chunk(std::max(totalTicks, t->lastTick()));
    return file;
}

}  // namespace
}  // namespace corvanna

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s OUTPUT_FOLDER\n", argv[0]);
        return 2;
    }
    const std::filesystem::path dir = argv[1];
    std::error_code ec;
    std::filesystem::create_directories(dir, ec);
    const std::string tune = corvanna::makeTune();
    std::ofstream f(dir / "Orlund.MID", std::ios::binary | std::ios::trunc);
    f.write(tune.data(), static_cast<std::streamsize>(tune.size()));
    if (!f) {
        std::fprintf(stderr, "make_tune: cannot write %s\n", (dir / "Orlund.MID").string().c_str());
        return 1;
    }
    return 0;
}
