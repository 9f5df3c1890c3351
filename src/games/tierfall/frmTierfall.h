#pragma once
// Tierfall's form: 22 cards in six tiers, the draw pile and the up card on the
// shared frame. The rules live in TierfallBoard; this class paints them, plays
// the sounds and answers the clicks.

#include <array>
#include <string>
#include <vector>

#include "common/frame/GameFrame.h"
#include "games/tierfall/TierfallBoard.h"

namespace corvanna {

class frmTierfall : public GameFrame {
public:
    frmTierfall(Program& prog, const GameInfo& info);

    TierfallBoard board;
    // The deck as dealt in each round, for replay and saved games.
    std::array<std::vector<std::string>, 3> RoundDecks;

    // ---- Controls
    std::array<Control*, TierfallBoard::kSlots> FieldCardPicture{};
    std::array<Shape*, TierfallBoard::kSlots> FieldSelectionRectangle{};
    Control& PlayCardPicture;
    Control& UpCardPicture;
    Shape& UpCardSelectionRectangle;
    Control& lblCardCount;
    Shape& CardTotalRectangle;
    Shape& CardTotalBevelSide;
    Shape& CardTotalBevelBottom;
    Control& lblTotal;
    Control& lblCurrentTotal;
    Shape& ElevensRectangle;
    Shape& ElevensBevelSide;
    Shape& ElevensBevelBottom;
    Control& lblElevens;
    Control& lblCurrentElevens;

    // ---- Frame hooks
    // Builds the deck for the card goal, shuffles it and deals the round.
    void Deal() override;
    // Paused: the board shows its backs. Otherwise false hides the board and the lower cards.
    void ShowCards(bool visible) override;
    void ShowControls(bool visible, bool second) override;
    void HideSelection() override;
    void RefreshPlayCard() override;
    void RefreshBoardBacks() override;
    void LayoutBoard(int left, int top, int width, int height) override;

    // ---- The game's routines
    bool CreateElevensDeck();
    // Deals from Deck as it stands; false after "Unable to deal the cards.".
    bool DealRound();
    bool CheckLegalFieldCardMove(int slot) const { return board.legal(slot); }
    bool CheckForCompletion() const { return board.complete(); }
    void FieldCardPicture_Click(int slot);
    void UpCardPicture_Click();
    void PlayCardPicture_Click();
    void CheckTotal();
    bool MoveUpCardToFieldArea();
    void FieldCardDisplay(bool visible = true);
    void SelRectangle(bool visible = true);
    void CardTotalVisible(bool visible);
    void ShowLowerCards(bool visible);
    void ShowGoalBox(bool visible);
    void RefreshFieldCards();
    // Every card, frame, count and pointer from the board as it stands.
    void PaintBoard();

    // "Elevens:" and the like, by the card goal.
    static std::string GoalCaption(int cardGoal);

private:
    enum class BoardFace { Hidden, Backs, Faces };

    // Call points for the scoring modes: what a combination pays and a move costs.
    void PayCombination(const TierfallBoard::Combination& combination);
    void ChargeMove(int slot);

    bool clicksRefused() const;
    void refreshPointers();
    void placeBox(Shape& box, Shape& side, Shape& bottom, Control& title, Control& value, int x,
                  int y, int w, int h);

    BoardFace face_ = BoardFace::Hidden;
    bool lowerShown_ = false;
    // Design twips to form twips, set by LayoutBoard.
    double scale_ = 1.0;
    int originX_ = 0, originY_ = 0;
    int px(int designX) const;
    int py(int designY) const;
};

}  // namespace corvanna
