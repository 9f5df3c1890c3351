#pragma once
// The tools' own random numbers: the standard distributions differ between
// libraries, and every build must make the same sounds and the same tune.

#include <cstdint>

namespace corvanna::tools {

class Xorshift {
public:
    // offset keeps the streams of different uses apart for the same seed.
    Xorshift(std::uint64_t seed, std::uint64_t offset)
        : state_(seed * 0x9E3779B97F4A7C15ull + offset) {}
    std::uint64_t next64() {
        state_ ^= state_ >> 12;
        state_ ^= state_ << 25;
        state_ ^= state_ >> 27;
        return state_ * 0x2545F4914F6CDD1Dull;
    }

private:
    std::uint64_t state_;
};

}  // namespace corvanna::tools
