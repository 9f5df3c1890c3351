#pragma once
// Lettermine's scoring dialog: the bonuses for a guess left, a solved phrase and each
// second left, the guesses a round allows, the bonus round score, how long a completed
// phrase stands, the count-down, and the picture of a lost guess. The first bad field
// stops OK with nothing stored.

#include <array>

#include "common/frame/ScoringDialog.h"

namespace corvanna {

class frmLettermine;

class frmLettermineCustomScoring : public ScoringDialog {
public:
    frmLettermineCustomScoring(Program& prog, frmLettermine& game);
    void Form_Load();
    // Default puts the defaults in force at once; Cancel keeps them.
    void cmdDefault_Click() override;
    // The picture a lost guess gets, at once and whatever way the dialog is left.
    void cmdBadGuess_Click(int index);

    TextBox& txtGuessValue;
    TextBox& txtCompletionBonus;
    TextBox& txtTimeBonus;
    TextBox& txtGuessCount;
    TextBox& txtBonusRoundScore;
    TextBox& txtShowPhrase;
    Control& lblSeconds;
    Control& chkCountDown;
    Control& lblBadGuess;
    std::array<Control*, 2> cmdBadGuess{};
    Control& lblInfo;

private:
    void Accepted() override;

    frmLettermine& game_;
};

// mnuCustom: the dialog, modal; true when OK took the values.
bool ShowLettermineCustomScoring(Program& prog, frmLettermine& game);

}  // namespace corvanna
