#pragma once
// The end-of-round count-up, the frame's for every game. Two shapes:
//  - SpeedBonus / CountBonus: an amount in lblScoring runs down while the score runs up,
//    a snap a step, the clock running on to its end for the seconds left;
//  - PayInSteps: a payment named in lblMessage is shown, paid in steps with the snap,
//    settles and stands a moment; with the count-down off it is paid in one go.
// Where the amount and its message stand, and the score's colours, are the row's.

#include <cstdint>
#include <functional>
#include <string>

namespace corvanna {

class GameFrame;

// Pays the seconds left of the round, secondValue each. Call only with seconds left.
void SpeedBonus(GameFrame& form, std::int32_t secondValue);
// Pays count * value under label + "!". Call only with a count that is not zero.
void CountBonus(GameFrame& form, std::int32_t count, std::int32_t value, const std::string& label);

struct Payment {
    std::function<std::string(std::int64_t left)> text;  // lblMessage for what is to come
    std::int64_t step = 0;
    int steps = 0;
    std::int64_t atOnce = 0;         // paid in one go when the count-up is off
    std::function<void()> eachStep;  // what else moves with a step
    std::function<void()> whole;     // what else changes when paid in one go
    // The pace: a step's wait and sound (every soundEvery-th step), the waits around it.
    int shownMs;
    int stepMs;
    std::string stepSound = "Snap.wav";
    int soundEvery = 1;
    int settleMs;
    int afterMs;
    std::string endText;  // what lblMessage reads once the steps are done
    Payment();
};
void PayInSteps(GameFrame& form, const Payment& payment);

// Pays the seconds left at secondValue each in the shape of PayInSteps, each step moving
// the clock on by one; paid in one go, the clock is emptied.
void PaySecondsLeft(GameFrame& form, std::int32_t secondValue, const std::string& label);

}  // namespace corvanna
