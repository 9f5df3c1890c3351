// Tierfall's board at the window's size: the design-size positions scaled into the
// frame's board area, with the total and goal boxes beside the pile and the up card.

#include <algorithm>

#include "common/Format.h"
#include "games/tierfall/frmTierfall.h"

namespace corvanna {

namespace {

// The board's extent at the design size: the top card's top to the lower cards' bottom.
constexpr int kDesignLeft = 360;
constexpr int kDesignTop = 1400;
constexpr int kDesignRight = 8280 + 1065;
constexpr int kDesignBottom = 4695 + 1455;
constexpr int kDesignCardWidth = 1065;
constexpr int kLowerTop = 4695;
constexpr int kPileLeft = 3675;
constexpr int kUpCardLeft = 4950;
// Card faces are drawn 69 wide to 94 high.
constexpr int kAspectW = 69, kAspectH = 94;

}  // namespace

int frmTierfall::px(int designX) const {
    return originX_ + static_cast<int>(roundHalfEven((designX - kDesignLeft) * scale_));
}

int frmTierfall::py(int designY) const {
    return originY_ + static_cast<int>(roundHalfEven((designY - kDesignTop) * scale_));
}

void frmTierfall::placeBox(Shape& box, Shape& side, Shape& bottom, Control& title, Control& value,
                           int x, int y, int w, int h) {
    const int bevel = std::max(1, static_cast<int>(roundHalfEven(60 * scale_)));
    box.move(x, y, w, h);
    side.move(x + w, y + bevel, bevel, h);
    bottom.move(x + bevel, y + h, w, bevel);
    title.move(x, y + h / 12, w, h * 5 / 12);
    value.move(x, y + h / 2 - h / 12, w, h / 2);
}

void frmTierfall::LayoutBoard(int left, int top, int width, int height) {
    const double designW = kDesignRight - kDesignLeft;
    const double designH = kDesignBottom - kDesignTop;
    scale_ = std::max(0.05, std::min(width / designW, height / designH));
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

    // The total box left of the pile, the goal box right of the up card: level with them,
    // but never under the lowest tier, whose cards reach further down.
    const int boxW = px(kPileLeft) - px(kDesignLeft + 1065) - cardW / 2;
    const int boxH = cardH * 2 / 3;
    int lowestCard = 0;
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        lowestCard = std::max(lowestCard, py(TierfallBoard::slot(s).top) + cardH);
    const int boxY = std::max(py(kLowerTop) + (cardH - boxH) / 2, lowestCard + cardH / 8);
    placeBox(CardTotalRectangle, CardTotalBevelSide, CardTotalBevelBottom, lblTotal,
             lblCurrentTotal, px(kDesignLeft + 1065), boxY, boxW, boxH);
    placeBox(ElevensRectangle, ElevensBevelSide, ElevensBevelBottom, lblElevens, lblCurrentElevens,
             px(kUpCardLeft) + cardW + cardW / 2, boxY, boxW, boxH);
}

}  // namespace corvanna
