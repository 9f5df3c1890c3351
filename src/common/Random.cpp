#include "common/Random.h"

#include <cmath>
#include <cstring>

#include "platform/Platform.h"

namespace corvanna {

namespace {
std::uint64_t splitmix(std::uint64_t& x) {
    std::uint64_t z = (x += 0x9E3779B97F4A7C15ULL);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
}
}  // namespace

double Random::draw(double clockReading) {
    std::uint64_t bits = 0;
    static_assert(sizeof bits == sizeof clockReading);
    std::memcpy(&bits, &clockReading, sizeof bits);
    state_ ^= bits * 0xD6E8FEB86659FD93ULL;
    const std::uint64_t r = splitmix(state_);
    return static_cast<double>(r >> 11) * (1.0 / 9007199254740992.0);  // 53 bits
}

std::int32_t RandomNumber(Random& rng, Platform& platform, double low, double high) {
    const double r = rng.draw(platform.secondsSinceMidnight());
    const double v = std::floor((high - low + 1) * r + low);
    // The integer part of a value the arguments put out of range still lands inside it.
    if (!(v >= -2147483648.0))
        return static_cast<std::int32_t>(std::ceil(low));
    if (v > 2147483647.0)
        return 2147483647;
    return static_cast<std::int32_t>(v);
}

}  // namespace corvanna
