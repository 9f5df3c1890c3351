#pragma once
// Tierfall's scoring dialog: the bonus round score, the completion, combination,
// time and card bonuses, and the scoring mode.

#include "common/Program.h"
#include "forms/Form.h"

namespace corvanna {

class frmTierfall;

class frmTierfallCustomScoring : public Form {
public:
    frmTierfallCustomScoring(Program& prog, frmTierfall& game);
    void Form_Load();
    void chkScoring_Click();
    void cmdDefault_Click();
    void cmdOK_Click();
    void cmdCancel_Click();
    // OK took the values.
    bool accepted() const { return accepted_; }

    Control& frmScoringOptions;
    Control& lblBouns;
    TextBox& txtBonus;
    Control& lblCompletion;
    TextBox& txtCompletion;
    Control& lblElevenBonus;
    TextBox& txtElevensBonus;
    Control& lblTimeBonus;
    TextBox& txtTimeBonus;
    Control& lblCardBonus;
    TextBox& txtCardBonus;
    Control& chkScoring;
    Control& lblCustom;
    Control& cmdOK;
    Control& cmdCancel;
    Control& cmdDefault;

private:
    Program& prog_;
    frmTierfall& game_;
    bool accepted_ = false;
};

// mnuScoring: the dialog, modal; true when OK took the values.
bool ShowTierfallCustomScoring(Program& prog, frmTierfall& game);

}  // namespace corvanna
