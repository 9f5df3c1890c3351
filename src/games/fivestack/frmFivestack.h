#pragma once
// Fivestack's form: five columns with their Hit buttons, the card on offer, Pass, Give
// Up (which doubles as Take Score) and the Card Total Value table, on the shared frame.
// The rules live in FivestackBoard; this class paints them, plays the sounds and fills
// the frame's hooks where the game's round differs.

#include <array>
#include <string>

#include "common/frame/GameFrame.h"
#include "games/fivestack/FivestackBoard.h"
#include "games/fivestack/FivestackValues.h"

namespace corvanna {

class frmFivestack : public GameFrame {
public:
    frmFivestack(Program& prog, const GameInfo& info);

    FivestackBoard board;
    FivestackValues& values();

    // ---- Controls
    // Column1 to Column5: five card images each, 0 at the top.
    std::array<std::array<Control*, FivestackBoard::kCardsPerColumn>, FivestackBoard::kColumns>
        Column{};
    std::array<Control*, FivestackBoard::kColumns> cmdHit{};
    std::array<Control*, FivestackBoard::kColumns> ColumnTotal{};
    std::array<Control*, FivestackBoard::kColumns> ColumnSoft{};
    Control& NextCardPicture;
    Control& PlayCardPicture;
    Control& lblCurrentRoundScore;
    Control& lblCurrentTotal;
    Control& lblTimeBonus;
    Control& cmdGiveUp;
    Control& cmdPass;
    Control& frmScore;
    // The table's rows, "< 97" first and then 97 to 105, and their values.
    std::array<Control*, 10> TotalLabel{};
    std::array<Control*, 10> ValueLabel{};
    Control& ScoringLabelInfo;
    Control& ScoringLabelRoundTotal;
    Shape& ScoringLabelOutline;

    // ---- The game's commands
    void cmdHit_Click(int column);
    void cmdPass_Click();
    void cmdGiveUp_Click();

    // ---- Frame hooks
    bool Deal() override;
    bool RoundPlaysTune() const override;
    void RoundStarted() override;
    void ShowCards(bool visible) override;
    void ShowPauseMessage(bool paused) override;
    void Timer1_Timer() override;
    void HideBoardAtTimeOut() override;
    void AnnounceTimeOut() override;
    void AwardRoundBonuses() override;
    void AnnounceRound(const std::string& text, bool bonusRound) override;
    void EnterIdle(bool afterGameOver) override;
    void TimeLimitChanged() override;
    void SettingsApplied() override;
    void LayoutBoard(int left, int top, int width, int height) override;
    void RefreshPlayCard() override;

    // TimeBonusStep anew from the limits and the time limit in force.
    void UpdateTimeBonusStep();
    // The table's marked row and cmdGiveUp's caption from the Card Total.
    void UpdateCardTotalValue();
    void ShowHitButtons(bool visible);
    void ShowScoringLabel(bool visible);
    // The scoring dialog (frmFivestackCustomScoring).
    void mnuCustom_Click();

private:
    // The board's card into its image, the totals and the card on offer.
    void PaintColumn(int column);
    void ShowCardTotal();
    void ShowNextCard();
    // ScoringLabel centred over the board with its outline, in this colour.
    void ShowMessage(const std::string& text, Color color, double size = 18);
    void TakeScore();
    void LoseRound();
    void CloseColumn(int column, bool closed);
    // Reset: the round's board emptied, every column open, the totals and the passes back.
    void Reset();

    // The board area (LayoutBoard): where a message is centred.
    int boardLeft_ = 0, boardTop_ = 0, boardWidth_ = 0, boardHeight_ = 0;
};

}  // namespace corvanna
