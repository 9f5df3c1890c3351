#include "common/frame/CountUp.h"

#include <algorithm>

#include "common/Format.h"
#include "common/Intervals.h"
#include "common/frame/Clock.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

namespace {

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
    f.AddToScore(stepValue);
    total -= stepValue;
    showTotal(f, total, colors::Black);
    if (f.program().state.SoundsOn)
        f.PlayWaveFile("Snap.wav");
    f.program().platform.sleep(ms::CountUpStep);
}

void endCountUp(GameFrame& f) {
    if (f.lblScoring)
        f.lblScoring->setVisible(false);
    f.lblCurrentScore.setForeColor(f.info().countUp.restingScore);
}

}  // namespace

void SpeedBonus(GameFrame& f, std::int32_t secondValue) {
    auto& g = f.program().state;
    const CountUpLook& look = f.info().countUp;
    const int left = g.RoundSeconds - g.ElapsedSeconds;
    std::int64_t total = static_cast<std::int64_t>(left) * secondValue;
    std::int64_t stepValue = secondValue;
    if (look.speedTimesRoundPoints) {
        total *= f.RoundPoints();
        stepValue = left > 0 ? roundHalfEven(static_cast<double>(total) / left) : total;
    } else {
        f.lblMessage.setCaption("Speed Bonus!");
    }
    f.lblMessage.setVisible(true);
    f.lblMessage.refresh();
    f.lblCurrentScore.setForeColor(look.countingScore);

    if (f.lblScoring) {
        Control& scoring = *f.lblScoring;
        scoring.setCaption(formatScore(total));
        scoring.setForeColor(colors::Red);
        if (look.scoringInMiddle)
            centreOnForm(f, scoring);
        if (look.speedMessageAboveMiddle >= 0)
            f.lblMessage.setTop(f.scaleHeight() / 2 - look.speedMessageAboveMiddle);
        if (look.speedMessageLeftOfScoring >= 0)
            f.lblMessage.setLeft(scoring.left() - look.speedMessageLeftOfScoring -
                                 f.lblMessage.width());
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
        f.AddToScore(total);
    }
    endCountUp(f);
}

void CountBonus(GameFrame& f, std::int32_t count, std::int32_t value, const std::string& label) {
    auto& g = f.program().state;
    std::int64_t total = static_cast<std::int64_t>(count) * value;
    const CountUpLook& look = f.info().countUp;
    f.lblMessage.setCaption(label + "!");
    if (look.countMessageRaise != 0)
        f.lblMessage.setTop(f.lblMessage.top() - look.countMessageRaise);
    f.lblMessage.setVisible(true);
    f.lblMessage.refresh();
    f.lblCurrentScore.setForeColor(look.countingScore);
    if (f.lblScoring) {
        f.lblScoring->setCaption(formatScore(total));
        if (look.scoringInMiddle)
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
        f.AddToScore(total);
    }
    endCountUp(f);
}

Payment::Payment()
    : shownMs(ms::PaymentShown),
      stepMs(ms::CountUpStep),
      settleMs(ms::PaymentSettle),
      afterMs(ms::PaymentAfter) {}

void PayInSteps(GameFrame& f, const Payment& p) {
    auto& g = f.program().state;
    Control& message = f.lblMessage;
    const std::int64_t total = g.CountDownScore ? p.step * p.steps : p.atOnce;
    message.setCaption(p.text(total));
    message.setVisible(true);
    message.refresh();
    f.lblCurrentScore.setForeColor(f.info().countUp.countingScore);
    f.lblCurrentScore.refresh();
    f.program().platform.sleep(p.shownMs);
    if (g.CountDownScore) {
        std::int64_t left = total;
        for (int i = 0; i < p.steps; ++i) {
            if (p.eachStep)
                p.eachStep();
            f.AddToScore(p.step);
            left -= p.step;
            message.setCaption(p.text(left));
            message.refresh();
            if (p.soundEvery > 0 && (i + 1) % p.soundEvery == 0)
                f.PlayWaveFile(p.stepSound);
            f.program().platform.sleep(p.stepMs);
        }
        message.setCaption(p.endText);
        message.refresh();
        f.program().platform.sleep(p.settleMs);
    } else {
        if (p.whole)
            p.whole();
        f.AddToScore(p.atOnce);
    }
    f.program().platform.sleep(p.afterMs);
}

void PaySecondsLeft(GameFrame& f, std::int32_t secondValue, const std::string& label) {
    auto& g = f.program().state;
    const int left = g.RoundSeconds - g.ElapsedSeconds;
    Payment p;
    p.text = [label](std::int64_t amount) { return label + formatScore(amount); };
    p.step = secondValue;
    p.steps = left;
    p.atOnce = static_cast<std::int64_t>(left) * secondValue;
    p.eachStep = [&f, &g] {
        g.ElapsedSeconds = static_cast<std::int16_t>(g.ElapsedSeconds + 1);
        g.ClockSeconds = static_cast<std::int16_t>(g.ClockSeconds + 1);
        DrawClock(static_cast<int>(roundHalfEven(360.0 / g.RoundSeconds * g.ElapsedSeconds)), f);
        ShowSecondsLeft(f);
    };
    p.whole = [&f, &g] {
        g.ElapsedSeconds = g.RoundSeconds;
        EmptyClock(f);
    };
    PayInSteps(f, p);
}

}  // namespace corvanna
