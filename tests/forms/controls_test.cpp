// The progress bar, the line and the single border: what the games set, and what the
// driver may send them.

#include <gtest/gtest.h>

#include "forms/Form.h"
#include "virtual/FakePlatform.h"

namespace corvanna {

TEST(Controls, AProgressBarHoldsItsValueInItsRangeAndTellsEachChangeOnce) {
    FakePlatform fake;
    Form f(fake, "frmTest");
    auto& bar = f.add<ProgressBar>("ProgressBar1", -1, nullptr);
    int told = 0;
    bar.subscribe([&](Control&, Prop p) { told += p == Prop::Value; });
    struct Step {
        const char* prop;
        const char* value;
        bool taken;
        int min, max, now, told;  // the bar afterwards, and the changes told so far
    };
    const Step steps[] = {
        {"Max", "40", true, 0, 40, 0, 1},
        {"Min", "5", true, 5, 40, 5, 2},  // the value comes up with the range
        {"Value", "39", true, 5, 40, 39, 3},
        {"Value", "39", true, 5, 40, 39, 3},  // no change, nothing told
        {"Value", "41", true, 5, 40, 40, 4},  // held at Max
        {"Min", "50", true, 50, 50, 50, 5},   // a Min over Max takes Max along
        {"Max", "0", true, 0, 0, 0, 6},       // and the other way round
        {"Value", "ten", false, 0, 0, 0, 6},
        {"Max", "99999999999", false, 0, 0, 0, 6},
    };
    for (const Step& s : steps) {
        SCOPED_TRACE(std::string(s.prop) + "=" + s.value);
        EXPECT_EQ(bar.setProperty(s.prop, s.value), s.taken);
        EXPECT_EQ(bar.property("Min"), std::to_string(s.min));
        EXPECT_EQ(bar.property("Max"), std::to_string(s.max));
        EXPECT_EQ(bar.property("Value"), std::to_string(s.now));
        EXPECT_EQ(told, s.told);
    }
}

TEST(Controls, ALineKeepsItsEndsWhicheverWayItRunsAndMovesAsOne) {
    FakePlatform fake;
    Form f(fake, "frmTest");
    auto& line = f.add<LineControl>("X2", -1, nullptr);
    auto ends = [&] {
        return line.property("X1") + "," + line.property("Y1") + " " + line.property("X2") + "," +
               line.property("Y2");
    };
    line.setEnds(4000, 2000, 3000, 3500);  // a cross's second stroke: right to left
    EXPECT_EQ(ends(), "4000,2000 3000,3500");
    EXPECT_EQ(line.left(), 3000);
    EXPECT_EQ(line.width(), 1000);
    line.move(100, 200);
    EXPECT_EQ(ends(), "1100,200 100,1700");
    EXPECT_TRUE(line.setProperty("Y2", "0"));  // now it runs upwards
    EXPECT_EQ(ends(), "1100,200 100,0");
    EXPECT_FALSE(line.setProperty("X1", "left"));
    EXPECT_FALSE(line.setProperty("BorderWidth", "5000"));
    EXPECT_TRUE(line.setProperty("BorderWidth", "2"));
    EXPECT_EQ(line.borderWidth(), 2);

    // A card's and a cell's single border, by the name the driver uses.
    Control& card = f.addControl(ControlKind::Image, "imgPlayCard", 1);
    EXPECT_TRUE(card.setProperty("BorderStyle", "1"));
    EXPECT_TRUE(card.border());
    EXPECT_FALSE(card.setProperty("BorderStyle", "2"));
    EXPECT_EQ(card.property("BorderStyle"), "1");
}

}  // namespace corvanna
