#pragma once
// Tierfall's form: 22 cards in six tiers, the draw pile and the up card on the
// shared frame. The rules of the board live in TierfallBoard and the card values
// in modTierfall; this class paints them, plays the sounds, answers the clicks
// (frmTierfall.cpp) and runs the game's own rounds and payments (TierfallRound.cpp).

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
    // The game's program-wide values: scoring, card goal, replay and the round decks.
    struct TierfallValues& values();  // TierfallValues.h
    const struct TierfallValues& values() const;

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
    Menu& mnuSave;
    Menu& mnuOpen;
    Menu& mnuGoal;
    std::array<Menu*, 6> mnuGoals{};  // mnu10 to mnu15
    Menu& mnuDrawTimer;
    Menu& mnuColor;
    std::array<Menu*, 6> mnuColors{};  // mnuYellow to mnuBlack, by SelectionColorIndex

    // ---- Frame hooks
    void NewGame() override;
    bool DealRound() override;
    bool ClockRunsFromDeal() const override;
    std::string RoundHint() const override;
    void ShowCards(bool visible) override;
    void ShowControls(bool visible, bool second) override;
    void HideSelection() override;
    void EnableGameOptions(bool enabled) override;
    void HideBoardAtTimeOut() override;
    void AwardRoundBonuses() override;
    void AfterRoundEnd() override;
    void ClearBoardAtGameOver() override;
    void ClearBoardAtQuit() override;
    void EnterIdle(bool afterGameOver) override;
    void IdleTakeScoreCommand() override;
    void RefreshPlayCard() override;
    void RefreshBoardBacks() override;
    void LayoutBoard(int left, int top, int width, int height) override;
    void SetGameDefaults() override;
    void SettingsApplied() override;

    // ---- Options (TierfallOptions.cpp)
    // mnu10 to mnu15: the card goal, its caption, its table and its hint.
    void SetCardGoal(int goal);
    // The goal entries' checks from CardGoal: none for a goal outside 10 to 15.
    void ClearGoalCheck();
    // mnuYellow to mnuBlack: the colour of every selection frame.
    void SelectionColor(int index);
    void ClearColorCheck();
    void mnuDrawTimer_Click();
    void mnuScoring_Click();

    // ---- Saved games (TierfallSavedGames.cpp)
    void mnuSave_Click();
    void mnuOpen_Click();
    // Reads a saved game and starts its replay; false, after a message, when it can't.
    bool OpenSavedGame(const std::string& fileName);
    // The first activation opens the saved game the program was started with.
    void Form_Activate();

    // ---- Rounds and scoring (TierfallRound.cpp)
    // Each card's tooltip shows its value in the mode.
    void SetCardValues(bool enhanced);
    void DisableCommandButtons(bool disable);

    // ---- The board (frmTierfall.cpp)
    bool CreateElevensDeck();
    // Deals Deck as it stands; false after "Unable to deal the cards.".
    bool Deal() override;
    bool CheckLegalFieldCardMove(int slot) const { return board.legal(slot); }
    bool CheckForCompletion() const { return board.complete(); }
    void FieldCardPicture_Click(int slot);
    void UpCardPicture_Click();
    void PlayCardPicture_Click();
    // A draw from the pile; quiet when it is made for the player after a combination.
    void DrawUpCard(bool quiet);
    void CheckTotal();
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

    void BuildOptionMenus();
    // A saved game's time limit: the menu's entry when it has one, else no entry checked.
    void ApplySavedTimeLimit(int seconds);

    // What a combination pays and what a card costs when it goes back onto the board.
    void PayCombination(const TierfallBoard::Combination& combination);
    void ChargeMove(int slot);
    // The up card's tooltip: what it would score now.
    void UpdateUpCardTip();
    // lblCurrentScore_Change: blue at zero or more, red below.
    void ScoreChanged();

    // The four payments at the end of a round (TierfallRound.cpp).
    void PayCompletionBonus();
    void PayCombinationBonus();
    void PayCardBonus();
    // The deck of a later round: the last game's when replaying and it reached that round.
    void NextRoundDeck(int round);

    bool clicksRefused() const;
    void refreshPointers();
    void placeBox(Shape& box, Shape& side, Shape& bottom, Control& title, Control& value, int x,
                  int y, int w, int h);

    BoardFace face_ = BoardFace::Hidden;
    bool activated_ = false;
    bool lowerShown_ = false;
    // Design twips to form twips, set by LayoutBoard.
    double scale_ = 1.0;
    int originX_ = 0, originY_ = 0;
    int px(int designX) const;
    int py(int designY) const;
};

}  // namespace corvanna
