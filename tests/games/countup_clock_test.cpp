// The end-of-round count-up and the pie clock, on a game form with the virtual clock.

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "common/frame/Clock.h"
#include "common/frame/CountUp.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

// The pies of the clock as "colour@start+span", in painting order.
std::string pies(GameFrame& f) {
    return f.Surface.property("Drawing");
}

}  // namespace

TEST(CountUp, SpeedBonusPaysEachSecondLeftWithTheClockRunningOn) {
    TestProgram t;
    GameFrame& f = t.openGame("frmDuomatch");
    auto& g = t.prog.state;
    t.click("frmDuomatch", "mnu30");
    t.click("frmDuomatch", "cmdPlay");
    t.fake.advance(20000);
    f.Timer1.stop();
    g.Score = 500;
    t.fake.takeLog();
    std::vector<std::string> scoring;
    f.lblScoring->subscribe([&](Control& c, Prop p) {
        if (p == Prop::Caption)
            scoring.push_back(c.caption());
    });
    const auto start = t.fake.elapsedMs();
    SpeedBonus(f, 100);  // ten seconds left at 100 a second
    EXPECT_EQ(g.Score, 1500);
    EXPECT_EQ(f.lblCurrentScore.caption(), "1,500");
    EXPECT_EQ(f.lblMessage.caption(), "Speed Bonus!");
    EXPECT_EQ(scoring.front(), "1,000");
    EXPECT_EQ(scoring.back(), "0");
    EXPECT_EQ(scoring.size(), 11u);
    EXPECT_FALSE(f.lblScoring->visible());
    // 2 seconds to read the total, then 75 ms a step with a snap each.
    EXPECT_EQ(t.fake.elapsedMs() - start, 2000 + 10 * 75);
    EXPECT_EQ(count(t.fake.takeLog(), "sound Snap.wav"), 10);
    // The clock ran on to its end: the round's seconds are all gone.
    EXPECT_EQ(g.ElapsedSeconds, 30);
    EXPECT_EQ(g.ClockSeconds, 30);
    EXPECT_EQ(pies(f), "#00FF00@0+90 #00FF00@90+90 #FFFF00@180+90 #FF0000@270+90");
    EXPECT_FALSE(t.fake.isRunning(f.Timer2));

    // Without the count-down the same bonus lands at once, and the clock stays put.
    g.CountDownScore = false;
    g.ElapsedSeconds = 29;
    g.ClockSeconds = 29;
    SpeedBonus(f, 250);  // one second left
    EXPECT_EQ(g.Score, 1750);
    EXPECT_EQ(g.ElapsedSeconds, 29);
    EXPECT_EQ(count(t.fake.takeLog(), "sound Snap.wav"), 0);

    // One second left with the count-down: one step.
    g.CountDownScore = true;
    SpeedBonus(f, 40);
    EXPECT_EQ(g.Score, 1790);
    EXPECT_EQ(count(t.fake.takeLog(), "sound Snap.wav"), 1);
}

TEST(CountUp, CountBonusPaysWholeStepsOfATwentieth) {
    TestProgram t;
    GameFrame& f = t.openGame("frmDuomatch");
    auto& g = t.prog.state;
    g.Score = 0;
    t.fake.takeLog();
    const auto start = t.fake.elapsedMs();
    // 1030 / 20 = 51.5, to even 52; twenty whole steps pay 1040.
    CountBonus(f, 1, 1030, "Pairs Bonus");
    EXPECT_EQ(g.Score, 1040);
    EXPECT_EQ(f.lblMessage.caption(), "Pairs Bonus!");
    EXPECT_EQ(f.lblScoring->caption(), "-10");
    EXPECT_FALSE(f.lblScoring->visible());
    EXPECT_EQ(t.fake.elapsedMs() - start, 1000 + 20 * 75);
    EXPECT_EQ(count(t.fake.takeLog(), "sound Snap.wav"), 20);

    g.CountDownScore = false;
    CountBonus(f, 1, 1030, "Pairs Bonus");
    EXPECT_EQ(g.Score, 1040 + 1030);

    // A total under 20 still finishes: steps of one.
    g.CountDownScore = true;
    g.SoundsOn = false;
    CountBonus(f, 5, 1, "Runs Bonus");
    EXPECT_EQ(g.Score, 2070 + 5);
    EXPECT_EQ(count(t.fake.takeLog(), "sound Snap.wav"), 0);  // sounds off
    // Three pairs at 3000: step 450, twenty steps, exactly 9000.
    CountBonus(f, 3, 3000, "Pairs Bonus");
    EXPECT_EQ(g.Score, 2075 + 9000);
}

TEST(Clock, PaintsQuartersInTheirColoursAndBlinksTheLastQuarter) {
    TestProgram t;
    GameFrame& f = t.openGame("frmSpirefold");
    InitClock(f);
    EXPECT_EQ(pies(f), "");             // an empty clock
    const auto& ops = f.Surface.ops();  // with its two grey lines
    EXPECT_EQ(
        std::count_if(ops.begin(), ops.end(), [](auto& op) { return op.kind == DrawOp::Line; }), 2);
    EXPECT_EQ(f.Surface.ops().back().kind, DrawOp::Circle);
    EXPECT_EQ(f.Surface.ops().back().pen, colors::Black);

    // Green, green, yellow, then red: the last quarter starts Timer2 and swaps red and white
    // on every paint. Out of range is as 0.
    const std::string threeQuarters = "#00FF00@0+90 #00FF00@90+90 #FFFF00@180+90";
    const std::tuple<int, std::string, bool> paints[] = {
        {45, "#00FF00@0+45", false},
        {90, "#00FF00@0+90", false},
        {180, "#00FF00@0+90 #00FF00@90+90", false},
        {270, threeQuarters, false},
        {300, threeQuarters + " #FF0000@270+30", true},
        {300, threeQuarters + " #FFFFFF@270+30", true},
        {300, threeQuarters + " #FF0000@270+30", true},
        {360, threeQuarters + " #FF0000@270+90", false},
        {400, "", false},
    };
    for (const auto& [degrees, drawn, blinking] : paints) {
        DrawClock(degrees, f);
        EXPECT_EQ(pies(f), drawn) << degrees;
        EXPECT_EQ(t.fake.isRunning(f.Timer2), blinking) << degrees;
    }
}

TEST(Clock, ThirtySecondRoundBlinksFromTheTwentyThirdSecond) {
    TestProgram t;
    GameFrame& f = t.openGame("frmSpirefold");
    t.click("frmSpirefold", "mnu30");
    t.click("frmSpirefold", "cmdPlay");
    t.fake.advance(22000);
    EXPECT_FALSE(t.fake.isRunning(f.Timer2));  // 264 degrees
    t.fake.advance(1000);                      // 23 seconds: 276 degrees
    EXPECT_TRUE(t.fake.isRunning(f.Timer2));
    // Timer2 repaints five times a second, and each paint swaps the colour.
    std::vector<std::string> lastQuarter;
    f.Surface.subscribe([&](Control&, Prop p) {
        if (p == Prop::Drawing)
            lastQuarter.push_back(pies(f).substr(pies(f).rfind(' ') + 1, 7));
    });
    t.fake.advance(800);
    ASSERT_EQ(lastQuarter.size(), 4u);
    EXPECT_NE(lastQuarter[0], lastQuarter[1]);
    EXPECT_EQ(lastQuarter[0], lastQuarter[2]);
    EXPECT_EQ(lastQuarter[1], lastQuarter[3]);
}

}  // namespace corvanna
