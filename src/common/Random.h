#pragma once
// The program's one random generator. Every draw first mixes the platform's
// clock into the running state, so draws depend on when they are made, yet two
// draws in the same clock tick still differ; a fixed seed and a virtual clock
// make a whole game repeat exactly.

#include <cstdint>

namespace corvanna {

class Platform;

class Random {
public:
    explicit Random(std::uint64_t seed = 0x5eed5eed2026ULL) : state_(seed) {}
    void seed(std::uint64_t s) { state_ = s; }
    // 0 <= r < 1, after mixing in the clock reading.
    double draw(double clockReading);

private:
    std::uint64_t state_;
};

// An integer from low to high, both ends included: the integer part of
// (high - low + 1) * r + low, reseeded from the platform's timer on every call.
std::int32_t RandomNumber(Random& rng, Platform& platform, double low, double high);

}  // namespace corvanna
