#pragma once
// The pie clock on a game form's Surface: it fills clockwise as the round goes,
// green, then yellow, then a last quarter that blinks red and white.

namespace corvanna {

class GameFrame;

// Centre, radius and colours from Surface, then an empty clock.
void InitClock(GameFrame& form);
// angle: degrees of the round gone, 0 to 360. Starts and stops Timer2.
void DrawClock(int angle, GameFrame& form);
// The round's clock emptied for good: no slice, no blink, and a resize keeps it so until
// the next deal draws it again.
void EmptyClock(GameFrame& form);
// The clock taken away (End Game): the surface cleared, no blink, and a resize keeps it so.
void ClearClock(GameFrame& form);
// lblTime: "Time: " and the seconds left, as the clock runs on through a speed bonus.
void ShowSecondsLeft(GameFrame& form);
// After a resize: the new centre and radius, the same picture.
void PlaceClock(GameFrame& form);

}  // namespace corvanna
