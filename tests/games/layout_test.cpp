// The game forms at any window size: the layout of the smallest window, scaled as one piece.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "games/GameRegistry.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {

struct Rect {
    double l, t, r, b;
};

// Every placed control in form twips (a container's offset added), the status bar apart.
std::map<std::string, Rect> placedControls(const GameFrame& f) {
    std::map<std::string, Rect> out;
    for (const auto& c : f.controls()) {
        if (c->kind() == ControlKind::Timer || c->kind() == ControlKind::Menu ||
            c.get() == &f.StatusBar1)
            continue;
        double x = c->left(), y = c->top();
        for (const Control* in = c->container(); in; in = in->container())
            x += in->left(), y += in->top();
        out[c->fullName()] = {x, y, x + c->width(), y + c->height()};
    }
    return out;
}

Rect extent(const std::map<std::string, Rect>& rects) {
    Rect e{1e9, 1e9, -1e9, -1e9};
    for (const auto& [name, r] : rects)
        e = {std::min(e.l, r.l), std::min(e.t, r.t), std::max(e.r, r.r), std::max(e.b, r.b)};
    return e;
}

}  // namespace

TEST(Layout, EveryGameFormScalesAsOnePieceInsideTheClientAreaAboveTheStatusBar) {
    TestProgram t;
    struct Size {
        WindowState state;
        int width, height;  // outer, in twips
    };
    for (const GameInfo& game : allGames()) {
        SCOPED_TRACE(game.formName);
        GameFrame& f = t.openGame(game.formName);
        // As the form opens, at its smallest size: the commands stack in order under the high
        // score, and the splash stays clear of the clock.
        int below = f.lblHighScore.top() + f.lblHighScore.height();
        for (Control* c :
             std::initializer_list<Control*>{&f.cmdPlay, &f.cmdPause, f.cmdTakeScore, &f.cmdExit}) {
            if (!c)
                continue;
            EXPECT_GE(c->top(), below) << c->name();
            below = c->top() + c->height();
        }
        EXPECT_LE(f.frmSplash.left() + f.frmSplash.width(), f.TimerRectangle.left());
        const auto design = placedControls(f);
        const Rect d = extent(design);
        // The smallest window, a 1024x768 screen's worth, maximised on a 1920x1080 screen, and
        // maximised on a 1024x768 one at 200%, which is smaller than the smallest window.
        for (const Size& size : {Size{WindowState::Normal, game.minWidth, game.minHeight},
                                 Size{WindowState::Normal, 1024 * 15, 768 * 15},
                                 Size{WindowState::Maximized, 1920 * 15, 1080 * 15},
                                 Size{WindowState::Maximized, 512 * 15, 384 * 15}}) {
            SCOPED_TRACE(size.width);
            f.setWindowState(size.state);
            f.setSize(size.width, size.height);
            const int above = f.StatusBar1.top();
            EXPECT_EQ(above + f.StatusBar1.height(), f.scaleHeight());
            EXPECT_EQ(f.StatusBar1.width(), f.scaleWidth());

            const auto now = placedControls(f);
            const Rect n = extent(now);
            const double s = (n.r - n.l) / (d.r - d.l);
            EXPECT_NEAR((n.b - n.t) / (d.b - d.t), s, 0.005);
            EXPECT_NEAR(f.fontScale(), s, 0.01);
            // Each control within a pixel of its design rectangle scaled by the one factor.
            std::string misplaced, outside;
            auto near = [](double a, double b) { return std::abs(a - b) <= 15; };
            for (const auto& [name, r] : now) {
                const Rect& was = design.at(name);
                if (!near(r.l, n.l + (was.l - d.l) * s) || !near(r.t, n.t + (was.t - d.t) * s) ||
                    !near(r.r, n.l + (was.r - d.l) * s) || !near(r.b, n.t + (was.b - d.t) * s))
                    misplaced += name + " ";
                if (r.l < 0 || r.t < 0 || r.r > f.scaleWidth() || r.b > above)
                    outside += name + " ";
            }
            EXPECT_EQ(misplaced, "");
            EXPECT_EQ(outside, "");
        }
        f.setWindowState(WindowState::Normal);
        t.leaveGame(game.formName);
    }
}

}  // namespace corvanna
