#include "games/tierfall/frmTierfallCustomScoring.h"

#include "common/Format.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/modTierfall.h"

namespace corvanna {

namespace {

constexpr ScoringDialog::Layout kLayout{7800, 6300, 3840, 5280};

std::string combinationLabel(int goal) {
    static const char* const words[] = {"ten",      "eleven",   "twelve",
                                        "thirteen", "fourteen", "fifteen"};
    const char* word = goal >= 10 && goal <= 15 ? words[goal - 10] : "eleven";
    return std::string("Score awarded for ") + word + " combination:";
}

}  // namespace

frmTierfallCustomScoring::frmTierfallCustomScoring(Program& prog, frmTierfall& game)
    : ScoringDialog(prog, game.info().settings, "frmTierfallCustomScoring", Checking::StopAtFirst,
                    MsgIcon::Exclamation, kLayout),
      txtBonus(
          AddField("lblBouns", "Score required for Bonus Round:", "txtBonus", "Bonus Round Score")),
      lblBouns(LabelOf(txtBonus)),
      txtCompletion(AddField("lblCompletion", "Score awarded for upper completion:",
                             "txtCompletion", "Completion Bonus")),
      lblCompletion(LabelOf(txtCompletion)),
      txtElevensBonus(AddField("lblElevenBonus", "", "txtElevensBonus", "Elevens Bonus ES")),
      lblElevenBonus(LabelOf(txtElevensBonus)),
      txtTimeBonus(AddField("lblTimeBonus", "Score awarded for Time Bonus (per second):",
                            "txtTimeBonus", "Time Bonus")),
      lblTimeBonus(LabelOf(txtTimeBonus)),
      txtCardBonus(AddField("lblCardBonus",
                            "Score for each remaining deck card upon upper completion:",
                            "txtCardBonus", "Card Bonus")),
      lblCardBonus(LabelOf(txtCardBonus)),
      chkScoring(add<Control>(ControlKind::CheckBox, "chkScoring", -1, &frmScoringOptions)),
      lblCustom(add<Control>(ControlKind::Label, "lblCustom", -1, nullptr)),
      game_(game) {
    auto within = [](const std::string& message) { return Between(1, 5000000, message); };
    SetChecks(txtBonus,
              within("Sorry, the score required for a Bonus Round must fall between 1 and "
                     "5,000,000."));
    SetChecks(txtCompletion,
              within("Sorry, the score awarded for completing the upper playing area must fall "
                     "between 1 and 5,000,000."));
    SetChecks(txtElevensBonus,
              within("Sorry, the score awarded for each eleven combination must fall between 1 "
                     "and 5,000,000."));
    SetChecks(txtTimeBonus,
              within("Sorry, the score awarded for each second remaining in the game after "
                     "selecting 'Take Score' must fall between 1 and 5,000,000."));
    SetChecks(txtCardBonus,
              within("Sorry, the score awarded for each remaining card in the deck after "
                     "completing the upper playing area must fall between 1 and 5,000,000."));
    chkScoring.setCaption(
        "Enable V 7.0 enhanced scoring. For more information about this feature select the "
        "Rules command from under the Help menu.");
    chkScoring.move(240, 2820, kLayout.width - 960, 840);
    lblCustom.setCaption(
        "Note: Any high score attained using customized scoring will be denoted by an asterisk "
        "in the High Score table. When reporting high scores for the website, be sure to "
        "indicate if V 7.0 Enahanced Scoring was used.");
    lblCustom.setFont(8, false);
    lblCustom.setTextFit(TextFit::Wrap);
    lblCustom.move(240, 4080, kLayout.width - 600, 1080);
    chkScoring.Click = [this] { chkScoring_Click(); };
    AddButtons();
}

void frmTierfallCustomScoring::Form_Load() {
    const TierfallValues& t = tierfallValues(prog_);
    lblElevenBonus.setCaption(combinationLabel(t.CardGoal));
    // The box first: checking it runs its Click, which would overwrite a custom bonus.
    chkScoring.setChecked(t.EnhancedScoring);
    BindCombination(t.EnhancedScoring);
    ScoringDialog::Form_Load();
}

void frmTierfallCustomScoring::BindCombination(bool enhanced) {
    BindField(txtElevensBonus, enhanced ? "Elevens Bonus ES" : "Elevens Bonus");
    txtCardBonus.setEnabled(enhanced);
    lblCardBonus.setEnabled(enhanced);
}

void frmTierfallCustomScoring::chkScoring_Click() {
    BindCombination(chkScoring.checked());
    // The mode's own default combination bonus.
    DefaultField(txtElevensBonus);
}

void frmTierfallCustomScoring::cmdDefault_Click() {
    ScoringDialog::cmdDefault_Click();
    // Checking the box runs its Click: the enhanced mode's own bonus and the card bonus field.
    chkScoring.setChecked(true);
}

void frmTierfallCustomScoring::Accepted() {
    AppState& g = prog_.state;
    TierfallValues& t = tierfallValues(prog_);
    t.EnhancedScoring = chkScoring.checked();
    game_.SetCardValues(t.EnhancedScoring);
    game_.setCaption(t.EnhancedScoring ? g.AppTitle + " - Enhanced Scoring" : g.AppTitle);
    game_.SetStatus(1, "Make " + formatScore(g.BonusRoundScore) + " for Bonus Round!   ");
    game_.CheckForCustom();
    // The label makes the table of the mode now in force when it is missing.
    game_.ShowHighScore();
}

bool ShowTierfallCustomScoring(Program& prog, frmTierfall& game) {
    auto& dialog = prog.load<frmTierfallCustomScoring>(game);
    dialog.Form_Load();
    prog.showModal(dialog);
    // Unloaded forms live until the next unload, so the dialog can still be asked.
    return dialog.accepted();
}

}  // namespace corvanna
