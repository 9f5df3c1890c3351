#include "common/frame/CountUp.h"

#include <algorithm>

#include "common/Format.h"
#include "common/Intervals.h"
#include "common/frame/Clock.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

namespace {

constexpr Color kCountingScore = 0x00FFFF;  // the score label while it runs up
constexpr Color kRestingScore = 0x0000FF;

void showScore(GameFrame& f) {
    f.lblCurrentScore.setCaption(formatScore(f.program().state.Score));
    f.lblCurrentScore.refresh();
}

void addToScore(GameFrame& f, std::int64_t amount) {
    corvanna::addToScore(f.program().state.Score, amount);
    showScore(f);
}

void showTotal(GameFrame& f, std::int64_t total, Color colour) {
    if (!f.lblScoring)
        return;
    f.lblScoring->setForeColor(colour);
    f.lblScoring->setCaption(formatScore(total));
    f.lblScoring->refresh();
}

void centreOnForm(GameFrame& f, Control& c) {
    c.move((f.scaleWidth() - c.width()) / 2, (f.scaleHeight() - c.height()) / 2);
}

// One step of a count-up: the score up, the amount left down, a snap and a short wait.
void payStep(GameFrame& f, std::int64_t& total, std::int64_t stepValue) {
    addToScore(f, stepValue);
    total -= stepValue;
    showTotal(f, total, colors::Black);
    if (f.program().state.SoundsOn)
        f.PlayWaveFile("Snap.wav");
    f.program().platform.sleep(ms::CountUpStep);
}

void endCountUp(GameFrame& f) {
    if (f.lblScoring)
        f.lblScoring->setVisible(false);
    f.lblCurrentScore.setForeColor(kRestingScore);
}

}  // namespace

void SpeedBonus(GameFrame& f, std::int32_t secondValue) {
    auto& g = f.program().state;
    const int left = g.RoundSeconds - g.ElapsedSeconds;
    const bool gridflush = f.info().id == "gridflush";
    std::int64_t total = static_cast<std::int64_t>(left) * secondValue;
    std::int64_t stepValue = secondValue;
    if (gridflush) {
        total *= f.RoundPoints();
        stepValue = left > 0 ? roundHalfEven(static_cast<double>(total) / left) : total;
    } else {
        f.lblMessage.setCaption("Speed Bonus!");
    }
    f.lblMessage.setVisible(true);
    f.lblMessage.refresh();
    f.lblCurrentScore.setForeColor(kCountingScore);

    if (f.lblScoring) {
        Control& scoring = *f.lblScoring;
        scoring.setCaption(formatScore(total));
        scoring.setForeColor(colors::Red);
        if (f.info().id == "wildslot") {
            centreOnForm(f, scoring);
            f.lblMessage.setTop(f.scaleHeight() / 2 - 800);
        } else if (f.info().id == "colclear") {
            centreOnForm(f, scoring);
            f.lblMessage.setLeft(scoring.left() - 100 - f.lblMessage.width());
        } else if (f.info().id != "lettermine") {
            // Gridflush's outline box comes with its board; until then the form's middle.
            centreOnForm(f, scoring);
        }
        scoring.setVisible(true);
        scoring.refresh();
    }
    f.program().platform.sleep(ms::SpeedBonusShown);

    if (g.CountDownScore) {
        for (int i = g.ElapsedSeconds + 1; i <= g.RoundSeconds; ++i) {
            DrawClock(static_cast<int>(roundHalfEven(360.0 / g.RoundSeconds * i)), f);
            g.ClockSeconds = static_cast<std::int16_t>(i);
            g.ElapsedSeconds = static_cast<std::int16_t>(g.ElapsedSeconds + 1);
            ShowSecondsLeft(f);
            payStep(f, total, stepValue);
        }
    } else {
        addToScore(f, total);
    }
    endCountUp(f);
}

void CountBonus(GameFrame& f, std::int32_t count, std::int32_t value, const std::string& label) {
    auto& g = f.program().state;
    std::int64_t total = static_cast<std::int64_t>(count) * value;
    f.lblMessage.setCaption(label + "!");
    if (f.info().id == "wildslot")
        f.lblMessage.setTop(f.lblMessage.top() - 800);
    f.lblMessage.setVisible(true);
    f.lblMessage.refresh();
    f.lblCurrentScore.setForeColor(kCountingScore);
    if (f.lblScoring) {
        f.lblScoring->setCaption(formatScore(total));
        if (f.info().id != "lettermine")
            centreOnForm(f, *f.lblScoring);
        f.lblScoring->setForeColor(colors::Red);
        f.lblScoring->setVisible(true);
        f.lblScoring->refresh();
    }
    f.program().platform.sleep(ms::CountBonusShown);

    if (g.CountDownScore) {
        // Whole steps, the last not cut to what is left; never a step of 0, so small
        // totals still finish.
        const std::int64_t first = total;
        const std::int64_t stepValue = std::max<std::int64_t>(
            1, roundHalfEven(static_cast<double>(first) / ms::CountBonusSteps));
        for (std::int64_t i = 1; i <= first; i += stepValue) {
            payStep(f, total, stepValue);
        }
    } else {
        addToScore(f, total);
    }
    endCountUp(f);
}

}  // namespace corvanna
