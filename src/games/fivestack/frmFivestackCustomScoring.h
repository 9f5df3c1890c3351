#pragma once
// Fivestack's scoring dialog: the Time Bonus limits, the bonus round score, the wait
// between rounds, the count-down and the passes. OK checks every field, storing as it
// goes; a bad one gets the game's text back and the dialog stays open.

#include "common/frame/ScoringDialog.h"

namespace corvanna {

class frmFivestack;

class frmFivestackCustomScoring : public ScoringDialog {
public:
    frmFivestackCustomScoring(Program& prog, frmFivestack& game);
    void Form_Load();
    void cmdDefault_Click() override;

    TextBox& txtBonus;
    TextBox& txtTimeBonusMax;
    TextBox& txtTimeBonusMin;
    TextBox& txtWaitPeriod;
    Control& chkCountScore;
    TextBox& txtNumberOfCardsToPass;
    Control& lblInfo;

private:
    // After a good minimum: the step, the count-down, the custom mark and panel 1.
    void MinimumStored();

    frmFivestack& game_;
};

// mnuCustom: the dialog, modal; true when OK took every value.
bool ShowFivestackCustomScoring(Program& prog, frmFivestack& game);

}  // namespace corvanna
