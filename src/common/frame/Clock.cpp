#include "common/frame/Clock.h"

#include <algorithm>

#include "common/Format.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

namespace {
void computeGeometry(GameFrame& form) {
    auto& c = form.program().state.Clock;
    c.centerX = static_cast<std::int16_t>(form.Surface.width() / 2);
    c.centerY = static_cast<std::int16_t>(form.Surface.height() / 2);
    c.radius = static_cast<float>(std::min(c.centerX, c.centerY) - 30);
}
}  // namespace

void InitClock(GameFrame& form) {
    computeGeometry(form);
    auto& c = form.program().state.Clock;
    c.firstHalf = 0x00FF00;
    c.thirdQuarter = 0xFFFF00;
    c.lastQuarter = 0xFFFFFF;
    c.alternate = 0xFF0000;
    c.line = 0xC0C0C0;
    DrawClock(0, form);
}

void PlaceClock(GameFrame& form) {
    computeGeometry(form);
    auto& g = form.program().state;
    // A cleared surface stays clear; anything else shows what ClockSeconds says.
    if (g.RoundSeconds <= 0 || form.Surface.ops().empty())
        return;
    // Repaint what the clock showed, without moving the blink on.
    auto& c = g.Clock;
    const int angle = static_cast<int>(roundHalfEven(360.0 / g.RoundSeconds * g.ClockSeconds));
    // The last quarter swaps colour on each paint; swap it back first so it keeps its colour.
    if (angle >= 271 && angle <= 359)
        c.lastQuarter = c.lastQuarter == c.resting ? c.alternate : c.resting;
    DrawClock(angle, form);
}

void DrawClock(int angle, GameFrame& form) {
    auto& c = form.program().state.Clock;
    PictureBox& s = form.Surface;
    s.Cls();
    if (!c.restingSet) {
        c.resting = c.lastQuarter;
        c.restingSet = true;
    }
    const int x = c.centerX, y = c.centerY;
    const double r = c.radius;
    auto slice = [&](double from, double to, std::uint32_t colour) {
        if (to > from)
            s.Pie(x, y, r, from, to - from, colour, colour);
    };
    if (angle >= 1 && angle <= 90) {
        slice(0, angle, c.firstHalf);
    } else if (angle >= 91 && angle <= 180) {
        slice(0, 90, c.firstHalf);
        slice(90, angle, c.firstHalf);
    } else if (angle >= 181 && angle <= 270) {
        slice(0, 90, c.firstHalf);
        slice(90, 180, c.firstHalf);
        slice(180, angle, c.thirdQuarter);
    } else if (angle >= 271 && angle <= 359) {
        form.Timer2.start();
        c.lastQuarter = c.lastQuarter == c.resting ? c.alternate : c.resting;
        slice(0, 90, c.firstHalf);
        slice(90, 180, c.firstHalf);
        slice(180, 270, c.thirdQuarter);
        slice(270, angle, c.lastQuarter);
    } else if (angle == 360) {
        form.Timer2.stop();
        c.lastQuarter = 0xFF0000;
        slice(0, 90, c.firstHalf);
        slice(90, 180, c.firstHalf);
        slice(180, 270, c.thirdQuarter);
        slice(270, 360, c.lastQuarter);
    }
    const int top = static_cast<int>(y - r), bottom = static_cast<int>(y + r);
    s.Line(x, top, x, bottom, c.line);
    s.Line(x, y, static_cast<int>(x - r), y, c.line);
    s.CircleOutline(x, y, r, 0x000000);
    s.endPaint();
}

void EmptyClock(GameFrame& form) {
    form.Timer2.stop();
    // ClockSeconds is what the face shows; Timer2 and a resize repaint from it.
    form.program().state.ClockSeconds = 0;
    DrawClock(0, form);
}

void ClearClock(GameFrame& form) {
    form.Timer2.stop();
    form.program().state.ClockSeconds = 0;
    form.Surface.Cls();
    form.Surface.endPaint();
}

void ShowSecondsLeft(GameFrame& f) {
    const auto& g = f.program().state;
    f.lblTime.setCaption("Time: " + std::to_string(g.RoundSeconds - g.ElapsedSeconds));
}

}  // namespace corvanna
