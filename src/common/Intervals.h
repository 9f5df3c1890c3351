#pragma once
// Every interval and wait of the program, in milliseconds, in one place.

namespace corvanna::ms {

inline constexpr int RoundClockTick = 1000;  // Timer1 of a game
inline constexpr int ClockRepaint = 200;     // Timer2, the blink of the last quarter
inline constexpr int TimeOfDay = 60000;      // Timer3 (in one game Timer6)
inline constexpr int SplashStep = 200;       // Timer4; a game's row may give its own
inline constexpr int SelectorCards = 250;    // Timer1 of the selector
inline constexpr int MessageFlash = 250;     // one colour swap; a game's row may give its own
inline constexpr int GameOverWait = 2000;    // "Game Over" stands this long
inline constexpr int HighScoreFlash = 500;   // Timer1 of the High Scores dialog, one blink

inline constexpr int SpeedBonusShown = 2000;  // "Speed Bonus!" and the total before counting
inline constexpr int CountBonusShown = 1000;  // a bonus's label and total before counting
inline constexpr int CountUpStep = 75;        // one step of a count-up, with "Snap.wav"
// A payment in steps (PayInSteps): shown, paid, settles, and stands a moment.
inline constexpr int PaymentShown = 1000;
inline constexpr int PaymentSettle = 500;
inline constexpr int PaymentAfter = 1000;

inline constexpr int CountBonusSteps = 20;

}  // namespace corvanna::ms
