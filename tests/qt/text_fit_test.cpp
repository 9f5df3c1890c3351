// Labels in the real window, offscreen: a message is drawn whole on one line at 100% and
// at a pixel ratio of 2, a name is cut with an ellipsis, a paragraph is broken into lines.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <memory>
#include <vector>

#include "forms/Form.h"
#include "qt/FormWindow.h"
#include "qt/QtPlatform.h"
#include "qt/QtTestApp.h"

namespace corvanna {
namespace {

// Where a label's text is drawn: the runs of rows with ink, and the columns it reaches.
struct Ink {
    std::vector<std::pair<int, int>> lines;  // first and last row of each run, in pixels
    int left = -1, right = -1, width = 0, height = 0;
};

Ink inkOf(QWidget* w, qreal ratio) {
    QImage img((QSizeF(w->size()) * ratio).toSize(), QImage::Format_RGB32);
    img.setDevicePixelRatio(ratio);
    img.fill(Qt::white);
    w->render(&img);
    Ink ink;
    ink.width = img.width();
    ink.height = img.height();
    bool inLine = false;
    for (int y = 0; y < img.height(); ++y) {
        bool any = false;
        for (int x = 0; x < img.width(); ++x) {
            if (qGray(img.pixel(x, y)) > 128)
                continue;
            any = true;
            ink.left = ink.left < 0 ? x : std::min(ink.left, x);
            ink.right = std::max(ink.right, x);
        }
        if (any && !inLine)
            ink.lines.push_back({y, y});
        if (any)
            ink.lines.back().second = y;
        inLine = any;
    }
    return ink;
}

class LabelFit : public QtFormTest {
protected:
    void SetUp() override {
        QtFormTest::SetUp();
        form->setBounds(0, 0, 9540, 7200);
        platform->showForm(*form, false);
    }
    // A black label on white, as big in twips as asked.
    QWidget* label(const std::string& caption, TextFit fit, double size, int width, int height) {
        Control& l = form->addControl(ControlKind::Label, "lbl", ++count);
        l.setFont(size, true);
        l.setForeColor(colors::Black);
        l.setBackColor(colors::White);
        l.setAlignment(Align::Center);
        l.setTextFit(fit);
        l.move(0, 0, width, height);
        l.setCaption(caption);
        return platform->windowOf(*form)->widgetOf(l);
    }

    int count = 0;
};

TEST_F(LabelFit, AMessageLineDrawsEachLineWholeInASmallerFontOnlyAsFarAsNeeded) {
    // The frame's message line at the smallest window: 24 point bold over the board.
    for (const char* caption : {"4 Elevens! Bonus = 4,000", "Prepare for Bonus Round!"}) {
        QWidget* w = label(caption, TextFit::Shrink, 24, 6420, 900);
        for (qreal ratio : {1.0, 2.0}) {
            SCOPED_TRACE(std::string(caption) + " at " + std::to_string(ratio));
            const Ink ink = inkOf(w, ratio);
            ASSERT_EQ(ink.lines.size(), 1u);
            // Whole: clear of both sides; no smaller than it must be: most of the width.
            EXPECT_GT(ink.left, 0);
            EXPECT_LT(ink.right, ink.width - 1);
            EXPECT_GT(ink.right - ink.left, ink.width * 8 / 10);
            EXPECT_LT(ink.lines[0].second, ink.height - 1);
        }
    }
    // A short text keeps its font, and a line break of the caption stays.
    const Ink word = inkOf(label("Round", TextFit::Shrink, 24, 6420, 1800), 1);
    const Ink two = inkOf(label("Round\nRound", TextFit::Shrink, 24, 6420, 1800), 1);
    ASSERT_EQ(word.lines.size(), 1u);
    ASSERT_EQ(two.lines.size(), 2u);
    EXPECT_EQ(word.right - word.left, two.right - two.left);
}

TEST_F(LabelFit, ANameIsCutWithAnEllipsisAndAParagraphIsBrokenAtBlanks) {
    const std::string name = "Maximilian Alexander Bartholomew of Westershire-upon-Tweed";
    const Ink cut = inkOf(label(name, TextFit::Elide, 10, 2400, 300), 1);
    const Ink whole = inkOf(label(name, TextFit::Shrink, 10, 2400, 300), 1);
    const Ink shortName = inkOf(label("Maximilian", TextFit::Elide, 10, 2400, 300), 1);
    ASSERT_EQ(cut.lines.size(), 1u);
    ASSERT_EQ(shortName.lines.size(), 1u);
    // The font stays (its capitals start where those of a name that fits do), the line ends
    // inside, and shrunk to fit whole instead the same name would be far smaller.
    EXPECT_EQ(cut.lines[0].first, shortName.lines[0].first);
    EXPECT_LT(cut.right, cut.width - 1);
    EXPECT_LT((whole.lines[0].second - whole.lines[0].first) * 3,
              (shortName.lines[0].second - shortName.lines[0].first) * 2);

    const Ink paragraph = inkOf(label("Your best scores are kept in a folder of their own, one "
                                      "table for each game and each time limit.",
                                      TextFit::Wrap, 10, 3000, 1500),
                                1);
    EXPECT_GE(paragraph.lines.size(), 3u);
    EXPECT_GT(paragraph.left, 0);
    EXPECT_LT(paragraph.right, paragraph.width - 1);
    EXPECT_LT(paragraph.lines.back().second, paragraph.height - 1);
}

}  // namespace
}  // namespace corvanna
