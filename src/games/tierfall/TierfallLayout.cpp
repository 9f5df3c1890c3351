// Tierfall's board at the window's size: the design-size positions, with the total and
// goal boxes beside the pile and the up card, scaled as one piece into the frame's board
// area and centred there.

#include <algorithm>

#include "common/Format.h"
#include "games/tierfall/frmTierfall.h"

namespace corvanna {

namespace {

// Card faces are drawn 69 wide to 94 high.
constexpr int kAspectW = 69, kAspectH = 94;
constexpr int kDesignCardWidth = 1065;
constexpr int kDesignCardHeight = kDesignCardWidth * kAspectH / kAspectW;
constexpr int kLowerTop = 4695;
constexpr int kPileLeft = 3675;
constexpr int kUpCardLeft = 4950;
constexpr int kBevel = 60;

// The total box left of the pile, the goal box right of the up card: level with them, but
// never under the lowest tier, whose cards reach further down.
constexpr int kBoxLeft = 360 + kDesignCardWidth;
constexpr int kBoxWidth = kPileLeft - kBoxLeft - kDesignCardWidth / 2;
constexpr int kBoxHeight = kDesignCardHeight * 2 / 3;
constexpr int kGoalBoxLeft = kUpCardLeft + kDesignCardWidth + kDesignCardWidth / 2;
constexpr int kLowestTierBottom = 3900 + kDesignCardHeight;
constexpr int kBoxTop = std::max(kLowerTop + (kDesignCardHeight - kBoxHeight) / 2,
                                 kLowestTierBottom + kDesignCardHeight / 8);

// The board's extent at the design size: the top card's top to the boxes' bevels.
constexpr int kDesignLeft = 360;
constexpr int kDesignTop = 1400;
constexpr int kDesignRight = 8280 + kDesignCardWidth;
constexpr int kDesignBottom =
    std::max(kLowerTop + kDesignCardHeight, kBoxTop + kBoxHeight + kBevel);

}  // namespace

int frmTierfall::px(int designX) const {
    return originX_ + static_cast<int>(roundHalfEven((designX - kDesignLeft) * scale_));
}

int frmTierfall::py(int designY) const {
    return originY_ + static_cast<int>(roundHalfEven((designY - kDesignTop) * scale_));
}

void frmTierfall::placeBox(Shape& box, Shape& side, Shape& bottom, Control& title, Control& value,
                           int x, int y, int w, int h) {
    // Design twips in, the box's edges and bevels scaled with the board.
    const int l = px(x), t = py(y), r = px(x + w), b = py(y + h);
    const int bevel = std::max(1, px(x + kBevel) - l);
    box.move(l, t, r - l, b - t);
    side.move(r, t + bevel, bevel, b - t);
    bottom.move(l + bevel, b, r - l, bevel);
    const int titleTop = py(y + h / 12), valueTop = py(y + h / 2 - h / 12);
    title.move(l, titleTop, r - l, py(y + h / 2) - titleTop);
    value.move(l, valueTop, r - l, py(y + h - h / 12) - valueTop);
}

void frmTierfall::LayoutBoard(int left, int top, int width, int height) {
    const double designW = kDesignRight - kDesignLeft;
    const double designH = kDesignBottom - kDesignTop;
    scale_ = std::max(0.01, std::min(width / designW, height / designH));
    originX_ = left + static_cast<int>((width - designW * scale_) / 2);
    originY_ = top + static_cast<int>((height - designH * scale_) / 2);
    const int cardW = std::max(1, static_cast<int>(roundHalfEven(kDesignCardWidth * scale_)));
    const int cardH = static_cast<int>(roundHalfEven(cardW * double(kAspectH) / kAspectW));
    const int pad = std::max(1, cardW / 30);
    auto placeCard = [&](Control& card, Shape& frame, int x, int y) {
        card.move(px(x), py(y), cardW, cardH);
        frame.move(px(x) - pad, py(y) - pad, cardW + 2 * pad, cardH + 2 * pad);
    };
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        placeCard(*FieldCardPicture[s], *FieldSelectionRectangle[s], TierfallBoard::slot(s).left,
                  TierfallBoard::slot(s).top);
    PlayCardPicture.move(px(kPileLeft), py(kLowerTop), cardW, cardH);
    placeCard(UpCardPicture, UpCardSelectionRectangle, kUpCardLeft, kLowerTop);
    lblCardCount.move(px(kPileLeft) - cardW / 4, py(kLowerTop) - cardH / 4, cardW * 3 / 2,
                      cardH / 4);

    placeBox(CardTotalRectangle, CardTotalBevelSide, CardTotalBevelBottom, lblTotal,
             lblCurrentTotal, kBoxLeft, kBoxTop, kBoxWidth, kBoxHeight);
    placeBox(ElevensRectangle, ElevensBevelSide, ElevensBevelBottom, lblElevens, lblCurrentElevens,
             kGoalBoxLeft, kBoxTop, kBoxWidth, kBoxHeight);
}

}  // namespace corvanna
