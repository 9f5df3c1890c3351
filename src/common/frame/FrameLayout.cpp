// Layout: the side panel of boxes and commands, the board in the rest, and the splash.

#include <algorithm>
#include <vector>

#include "common/frame/Clock.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

void GameFrame::LayoutForm() {
    if (windowState() == WindowState::Normal &&
        (width() < info_.minWidth || height() < info_.minHeight)) {
        setSize(info_.minWidth, info_.minHeight);  // runs Form_Resize again
        return;
    }
    layout();
}

void GameFrame::layout() {
    const int W = scaleWidth();
    const int H = scaleHeight() - 330;  // above the status bar
    StatusBar1.move(0, H, W, 330);
    const int panelW = 2700;
    const int x0 = W - panelW;
    const int boxW = 2400;
    const int bx = x0 + (panelW - boxW) / 2 - 60;

    // The clock box.
    TimerRectangle.move(bx, 100, boxW, 2050);
    TimerBevelSide.move(bx + boxW, 160, 60, 2050);
    TimerBevelBottom.move(bx + 60, 100 + 2050, boxW, 60);
    Surface.move(bx + 400, 160, 1600, 1600);
    lblTime.move(bx, 1780, boxW, 330);

    // Score, round and the best score.
    ScoreRectangle.move(bx, 2270, boxW, 720);
    lblScore.move(bx, 2300, boxW, 260);
    lblScore.setForeColor(colors::Black);
    lblCurrentScore.move(bx, 2540, boxW, 420);
    RoundRectangle.move(bx, 3110, boxW, 720);
    RoundBevelSide.move(bx + boxW, 3170, 60, 720);
    RoundBevelBottom.move(bx + 60, 3830, boxW, 60);
    if (lblCurrentRound) {
        lblRound.move(bx, 3140, boxW, 260);
        lblRound.setForeColor(colors::Black);
        lblCurrentRound->move(bx, 3390, boxW, 400);
    } else {
        lblRound.move(bx, 3300, boxW, 360);
    }
    lblHighScore.move(bx - 60, 3960, boxW + 120, 300);

    // Commands from the bottom up, never over the boxes.
    std::vector<Control*> buttons{&cmdPlay, &cmdPause};
    if (cmdTakeScore)
        buttons.push_back(cmdTakeScore);
    buttons.push_back(&cmdExit);
    const int bh = 380, gap = 70;
    int y = H - 120 - static_cast<int>(buttons.size()) * (bh + gap) + gap;
    y = std::max(y, 4330);
    for (Control* b : buttons) {
        b->move(bx, y, boxW + 60, bh);
        y += bh + gap;
    }

    // The board and what covers it.
    const int boardL = 150, boardT = 150, boardW = x0 - 300, boardH = H - 300;
    frmSplash.move(boardL, boardT, boardW, boardH);
    placeSplash();
    lblMessage.move(boardL, boardT + boardH / 2 - 450, boardW, 900);
    if (lblScoring)
        lblScoring->move(boardL, boardT + boardH / 2 + 500, boardW, 600);
    LayoutBoard(boardL, boardT, boardW, boardH);
    PlaceClock(*this);
}

void GameFrame::placeSplash() {
    const int W = frmSplash.width(), H = frmSplash.height();
    const int cardW = 1035, cardH = 1410, step = 380;
    const int fanW = cardW + 3 * step;
    const int x = (W - fanW) / 2;
    const int y = H / 2 - cardH / 2 + 250;
    for (int i = 0; i < 4; ++i)
        imgSplashImage[i]->move(x + i * step, y, cardW, cardH);
    lblCompanyProduct.move(0, y - 1700, W, 350);
    lblProductName.move(0, y - 1300, W, 900);
    lblVersion.move(0, y + cardH + 200, W, 300);
    lblPlatform.move(0, y + cardH + 500, W, 300);
}

}  // namespace corvanna
