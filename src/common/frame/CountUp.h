#pragma once
// The end-of-round count-up: an amount in lblScoring runs down while the score
// runs up, a click a step, with the clock running on to its end for the seconds left.

#include <cstdint>
#include <string>

namespace corvanna {

class GameFrame;

// Pays the seconds left of the round, secondValue each. Call only with seconds left.
void SpeedBonus(GameFrame& form, std::int32_t secondValue);
// Pays count * value under label + "!". Call only with a count that is not zero.
void CountBonus(GameFrame& form, std::int32_t count, std::int32_t value, const std::string& label);

}  // namespace corvanna
