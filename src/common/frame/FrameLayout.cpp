// Layout: the side panel of boxes and commands, the board in the rest, and the splash.
// Everything is placed at the game's smallest size and scaled as one piece into the window,
// centred above the status bar, so a maximised board keeps the proportions of the design.

#include <algorithm>
#include <vector>

#include "common/frame/Clock.h"
#include "common/frame/GameFrame.h"
#include "forms/DesignScale.h"

namespace corvanna {

namespace {

constexpr int kStatusBarHeight = 330;

// The client area of the game's smallest window, above the status bar.
int designWidth(const GameFrame& f) {
    return f.info().minWidth - kFrameWidthTwips;
}
int designHeight(const GameFrame& f) {
    return f.info().minHeight - kFrameHeightTwips - (f.hasMenuBar() ? kMenuBarTwips : 0) -
           kStatusBarHeight;
}

DesignScale frameScale(const GameFrame& f) {
    const int H = std::max(0, f.scaleHeight() - kStatusBarHeight);
    return DesignScale::fit(f.scaleWidth(), H, designWidth(f), designHeight(f));
}

// The board area at the design size: left of the side panel.
constexpr int kPanelWidth = 2700;
constexpr int kBoardMargin = 150;

}  // namespace

void GameFrame::LayoutForm() {
    // A screen smaller than the smallest window is the limit instead: a window held larger
    // than the screen would cut the side panel off, where a smaller one only scales down.
    const int minW = std::min(info_.minWidth, prog_.platform.screenWidthTwips());
    const int minH = std::min(info_.minHeight, prog_.platform.screenHeightTwips());
    if (windowState() == WindowState::Normal && (width() < minW || height() < minH)) {
        setSize(minW, minH);  // runs Form_Resize again
        return;
    }
    layout();
}

void GameFrame::layout() {
    const int H = std::max(0, scaleHeight() - kStatusBarHeight);
    StatusBar1.move(0, H, scaleWidth(), kStatusBarHeight);
    const DesignScale t = frameScale(*this);
    setFontScale(t.s);

    // The design: a width of W0 and a height of H0 above the status bar.
    const int W0 = designWidth(*this), H0 = designHeight(*this);
    const int x0 = W0 - kPanelWidth;
    const int boxW = 2400;
    const int bx = x0 + (kPanelWidth - boxW) / 2 - 60;

    // The clock box.
    t.place(TimerRectangle, bx, 100, boxW, 2050);
    t.place(TimerBevelSide, bx + boxW, 160, 60, 2050);
    t.place(TimerBevelBottom, bx + 60, 100 + 2050, boxW, 60);
    t.place(Surface, bx + 400, 160, 1600, 1600);
    t.place(lblTime, bx, 1780, boxW, 330);

    // Score, round and the best score.
    t.place(ScoreRectangle, bx, 2270, boxW, 720);
    t.place(lblScore, bx, 2300, boxW, 260);
    lblScore.setForeColor(colors::Black);
    t.place(lblCurrentScore, bx, 2540, boxW, 420);
    t.place(RoundRectangle, bx, 3110, boxW, 720);
    t.place(RoundBevelSide, bx + boxW, 3170, 60, 720);
    t.place(RoundBevelBottom, bx + 60, 3830, boxW, 60);
    if (lblCurrentRound) {
        t.place(lblRound, bx, 3140, boxW, 260);
        lblRound.setForeColor(colors::Black);
        t.place(*lblCurrentRound, bx, 3390, boxW, 400);
    } else {
        t.place(lblRound, bx, 3300, boxW, 360);
    }
    // The whole width of the panel: the longest caption ("Current High Score: ") needs it.
    t.place(lblHighScore, x0 + 30, 3960, kPanelWidth - 60, 300);

    // Commands from the bottom up, never over the boxes.
    std::vector<Control*> buttons{&cmdPlay, &cmdPause};
    if (cmdTakeScore)
        buttons.push_back(cmdTakeScore);
    buttons.push_back(&cmdExit);
    const int bh = 380, gap = 70;
    int y = H0 - 120 - static_cast<int>(buttons.size()) * (bh + gap) + gap;
    y = std::max(y, 4330);
    for (Control* b : buttons) {
        t.place(*b, bx, y, boxW + 60, bh);
        y += bh + gap;
    }

    // The board and what covers it.
    const int boardL = kBoardMargin, boardT = kBoardMargin;
    const int boardW = x0 - 2 * kBoardMargin, boardH = H0 - 2 * kBoardMargin;
    t.place(frmSplash, boardL, boardT, boardW, boardH);
    placeSplash();
    t.place(lblMessage, boardL, boardT + boardH / 2 - 450, boardW, 900);
    if (lblScoring)
        t.place(*lblScoring, boardL, boardT + boardH / 2 + 500, boardW, 600);
    const int l = t.x(boardL), tp = t.y(boardT);
    LayoutBoard(l, tp, t.x(boardL + boardW) - l, t.y(boardT + boardH) - tp);
    PlaceClock(*this);
}

void GameFrame::placeSplash() {
    // Inside the panel, whose design size is the board's.
    const DesignScale t = frameScale(*this).inside();
    const int W = designWidth(*this) - kPanelWidth - 2 * kBoardMargin;
    const int H = designHeight(*this) - 2 * kBoardMargin;
    const int cardW = 1035, cardH = 1410, step = 380;
    const int fanW = cardW + 3 * step;
    const int x = (W - fanW) / 2;
    const int y = H / 2 - cardH / 2 + 250;
    for (int i = 0; i < 4; ++i)
        t.place(*imgSplashImage[i], x + i * step, y, cardW, cardH);
    t.place(lblCompanyProduct, 0, y - 1700, W, 350);
    t.place(lblProductName, 0, y - 1300, W, 900);
    t.place(lblVersion, 0, y + cardH + 200, W, 300);
    t.place(lblPlatform, 0, y + cardH + 500, W, 300);
}

}  // namespace corvanna
