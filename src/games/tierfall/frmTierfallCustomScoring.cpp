#include "games/tierfall/frmTierfallCustomScoring.h"

#include "common/Format.h"
#include "common/ScoringFields.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/modTierfall.h"

namespace corvanna {

namespace {

constexpr int kWidth = 7800, kHeight = 6300;
constexpr double kLowest = 1, kHighest = 5000000;

Control& label(Form& f, const std::string& name, Control* frame, int top) {
    Control& l = f.add<Control>(ControlKind::Label, name, -1, frame);
    l.move(240, top + 60, 5400, 300);
    return l;
}

TextBox& field(Form& f, const std::string& name, Control* frame, int top) {
    TextBox& t = f.add<TextBox>(name, -1, frame);
    t.move(5760, top, 1440, 330);
    t.setMaxLength(12);
    return t;
}

Control& button(Form& f, const std::string& name, const std::string& caption, int left) {
    Control& b = f.add<Control>(ControlKind::CommandButton, name, -1, nullptr);
    b.setCaption(caption);
    b.move(left, 5280, 1440, 420);
    return b;
}

std::string combinationLabel(int goal) {
    static const char* const words[] = {"ten",      "eleven",   "twelve",
                                        "thirteen", "fourteen", "fifteen"};
    const char* word = goal >= 10 && goal <= 15 ? words[goal - 10] : "eleven";
    return std::string("Score awarded for ") + word + " combination:";
}

}  // namespace

frmTierfallCustomScoring::frmTierfallCustomScoring(Program& prog, frmTierfall& game)
    : Form(prog.platform, "frmTierfallCustomScoring"),
      frmScoringOptions(add<Control>(ControlKind::Frame, "frmScoringOptions", -1, nullptr)),
      lblBouns(label(*this, "lblBouns", &frmScoringOptions, 360)),
      txtBonus(field(*this, "txtBonus", &frmScoringOptions, 360)),
      lblCompletion(label(*this, "lblCompletion", &frmScoringOptions, 840)),
      txtCompletion(field(*this, "txtCompletion", &frmScoringOptions, 840)),
      lblElevenBonus(label(*this, "lblElevenBonus", &frmScoringOptions, 1320)),
      txtElevensBonus(field(*this, "txtElevensBonus", &frmScoringOptions, 1320)),
      lblTimeBonus(label(*this, "lblTimeBonus", &frmScoringOptions, 1800)),
      txtTimeBonus(field(*this, "txtTimeBonus", &frmScoringOptions, 1800)),
      lblCardBonus(label(*this, "lblCardBonus", &frmScoringOptions, 2280)),
      txtCardBonus(field(*this, "txtCardBonus", &frmScoringOptions, 2280)),
      chkScoring(add<Control>(ControlKind::CheckBox, "chkScoring", -1, &frmScoringOptions)),
      lblCustom(add<Control>(ControlKind::Label, "lblCustom", -1, nullptr)),
      cmdOK(button(*this, "cmdOK", "&OK", 1260)),
      cmdCancel(button(*this, "cmdCancel", "&Cancel", 3120)),
      cmdDefault(button(*this, "cmdDefault", "&Default", 4980)),
      prog_(prog),
      game_(game) {
    setBounds(0, 0, kWidth, kHeight);
    frmScoringOptions.move(180, 120, kWidth - 480, 3840);
    lblBouns.setCaption("Score required for Bonus Round:");
    lblCompletion.setCaption("Score awarded for upper completion:");
    lblTimeBonus.setCaption("Score awarded for Time Bonus (per second):");
    lblCardBonus.setCaption("Score for each remaining deck card upon upper completion:");
    chkScoring.setCaption(
        "Enable V 7.0 enhanced scoring. For more information about this feature select the "
        "Rules command from under the Help menu.");
    chkScoring.move(240, 2820, kWidth - 960, 840);
    lblCustom.setCaption(
        "Note: Any high score attained using customized scoring will be denoted by an asterisk "
        "in the High Score table. When reporting high scores for the website, be sure to "
        "indicate if V 7.0 Enahanced Scoring was used.");
    lblCustom.setFont(8, false);
    lblCustom.setTextFit(TextFit::Wrap);
    lblCustom.move(240, 4080, kWidth - 600, 1080);
    chkScoring.Click = [this] { chkScoring_Click(); };
    cmdDefault.Click = [this] { cmdDefault_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    setDefaultButton(&cmdOK);
    setCancelButton(&cmdCancel);
}

void frmTierfallCustomScoring::Form_Load() {
    const AppState& g = prog_.state;
    const TierfallValues& t = g.Tierfall;
    CentreOnScreen(*this, prog_.platform);
    setCaption(g.AppTitle + " User Options");
    frmScoringOptions.setCaption(g.AppTitle + " Scoring Options");
    lblElevenBonus.setCaption(combinationLabel(t.CardGoal));
    // The box first: checking it runs its Click, which would overwrite a custom bonus.
    chkScoring.setChecked(t.EnhancedScoring);
    txtCardBonus.setEnabled(t.EnhancedScoring);
    lblCardBonus.setEnabled(t.EnhancedScoring);
    txtBonus.setText(std::to_string(g.BonusRoundScore));
    txtCompletion.setText(std::to_string(t.CompletionBonus));
    txtElevensBonus.setText(std::to_string(t.combinationBonus()));
    txtTimeBonus.setText(std::to_string(g.TimeBonus));
    txtCardBonus.setText(std::to_string(t.CardBonus));
    txtBonus.setFocus();
}

void frmTierfallCustomScoring::chkScoring_Click() {
    const bool enhanced = chkScoring.checked();
    txtElevensBonus.setText(std::to_string(enhanced ? TierfallValues::kDefaultElevensBonusES
                                                    : TierfallValues::kDefaultElevensBonus));
    txtCardBonus.setEnabled(enhanced);
    lblCardBonus.setEnabled(enhanced);
}

void frmTierfallCustomScoring::cmdDefault_Click() {
    txtBonus.setText(std::to_string(TierfallValues::kDefaultBonusRoundScore));
    txtCompletion.setText(std::to_string(TierfallValues::kDefaultCompletionBonus));
    txtElevensBonus.setText(std::to_string(chkScoring.checked()
                                               ? TierfallValues::kDefaultElevensBonusES
                                               : TierfallValues::kDefaultElevensBonus));
    txtTimeBonus.setText(std::to_string(TierfallValues::kDefaultTimeBonus));
    txtCardBonus.setText(std::to_string(TierfallValues::kDefaultCardBonus));
    // Checking the box runs its Click: the enhanced mode's own bonus and the card bonus field.
    chkScoring.setChecked(true);
}

void frmTierfallCustomScoring::cmdOK_Click() {
    auto rule = [](TextBox& box, const std::string& message) {
        ScoringField f;
        f.box = &box;
        f.low = kLowest;
        f.high = kHighest;
        f.lowMessage = message;
        return f;
    };
    const std::vector<ScoringField> fields{
        rule(txtBonus,
             "Sorry, the score required for a Bonus Round must fall between 1 and 5,000,000."),
        rule(txtCompletion,
             "Sorry, the score awarded for completing the upper playing area must fall between 1 "
             "and 5,000,000."),
        rule(txtElevensBonus,
             "Sorry, the score awarded for each eleven combination must fall between 1 and "
             "5,000,000."),
        rule(txtTimeBonus,
             "Sorry, the score awarded for each second remaining in the game after selecting "
             "'Take Score' must fall between 1 and 5,000,000."),
        rule(txtCardBonus,
             "Sorry, the score awarded for each remaining card in the deck after completing the "
             "upper playing area must fall between 1 and 5,000,000."),
    };
    std::vector<double> v;
    if (!CheckScoringFields(prog_, fields, ScoringChecks{}, v))
        return;
    auto whole = [](double d) { return static_cast<std::int32_t>(roundHalfEven(d)); };
    AppState& g = prog_.state;
    TierfallValues& t = g.Tierfall;
    t.EnhancedScoring = chkScoring.checked();
    game_.SetCardValues(t.EnhancedScoring);
    (t.EnhancedScoring ? t.ElevensBonusES : t.ElevensBonus) = whole(v[2]);
    game_.setCaption(t.EnhancedScoring ? g.AppTitle + " - Enhanced Scoring" : g.AppTitle);
    g.BonusRoundScore = whole(v[0]);
    t.CompletionBonus = whole(v[1]);
    g.TimeBonus = whole(v[3]);
    t.CardBonus = whole(v[4]);
    game_.SetStatus(1, "Make " + formatScore(g.BonusRoundScore) + " for Bonus Round!   ");
    game_.CheckForCustom();
    // The label makes the table of the mode now in force when it is missing.
    game_.ShowHighScore();
    accepted_ = true;
    prog_.unload(*this);
}

void frmTierfallCustomScoring::cmdCancel_Click() {
    prog_.unload(*this);
}

bool ShowTierfallCustomScoring(Program& prog, frmTierfall& game) {
    auto& dialog = prog.load<frmTierfallCustomScoring>(game);
    dialog.Form_Load();
    prog.showModal(dialog);
    // Unloaded forms live until the next unload, so the dialog can still be asked.
    return dialog.accepted();
}

}  // namespace corvanna
