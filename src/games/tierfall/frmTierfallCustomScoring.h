#pragma once
// Tierfall's scoring dialog: the bonus round score, the completion, combination,
// time and card bonuses, and the scoring mode. The first bad field stops OK.

#include "common/frame/ScoringDialog.h"

namespace corvanna {

class frmTierfall;

class frmTierfallCustomScoring : public ScoringDialog {
public:
    frmTierfallCustomScoring(Program& prog, frmTierfall& game);
    void Form_Load();
    void chkScoring_Click();
    void cmdDefault_Click() override;

    TextBox& txtBonus;
    Control& lblBouns;
    TextBox& txtCompletion;
    Control& lblCompletion;
    TextBox& txtElevensBonus;
    Control& lblElevenBonus;
    TextBox& txtTimeBonus;
    Control& lblTimeBonus;
    TextBox& txtCardBonus;
    Control& lblCardBonus;
    Control& chkScoring;
    Control& lblCustom;

private:
    void Accepted() override;
    // The combination field holds the bonus of the mode the box shows.
    void BindCombination(bool enhanced);

    frmTierfall& game_;
};

// mnuScoring: the dialog, modal; true when OK took the values.
bool ShowTierfallCustomScoring(Program& prog, frmTierfall& game);

}  // namespace corvanna
