#include "games/fivestack/frmFivestackCustomScoring.h"

#include <cmath>

#include "common/Format.h"
#include "games/fivestack/frmFivestack.h"

namespace corvanna {

namespace {

constexpr ScoringDialog::Layout kLayout{7800, 6000, 3480, 4980};

ScoringField between(double low, double high, const std::string& lowMessage,
                     const std::string& highMessage, const std::string& lowText,
                     const std::string& highText, bool storesPutBack) {
    ScoringField rule = ScoringDialog::Between(low, high, lowMessage, highMessage);
    rule.lowText = lowText;
    rule.highText = highText;
    rule.storesPutBack = storesPutBack;
    return rule;
}

}  // namespace

frmFivestackCustomScoring::frmFivestackCustomScoring(Program& prog, frmFivestack& game)
    : ScoringDialog(prog, game.info().settings, "frmFivestackCustomScoring", Checking::EveryField,
                    MsgIcon::Information, kLayout),
      txtBonus(AddField("lblBonus", "Score required for Bonus:", "txtBonus", "BonusScore")),
      txtTimeBonusMax(AddField("lblTimeBonusMax", "Maximum Time Bonus value:", "txtTimeBonusMax",
                               "TimeBonusMax")),
      txtTimeBonusMin(AddField("lblTimeBonusMin", "Minimum Time Bonus value:", "txtTimeBonusMin",
                               "TimeBonusMin")),
      txtWaitPeriod(AddField("lblWaitPeriod", "Seconds to wait between Rounds (0 - 10):",
                             "txtWaitPeriod", "WaitPeriod", 1000)),
      chkCountScore(add<Control>(ControlKind::CheckBox, "chkCountScore", -1, &frmScoringOptions)),
      txtNumberOfCardsToPass(AddField(
          "lblNumberOfCardsToPass",
          "Number of cards user may pass (0 - 10):", "txtNumberOfCardsToPass", "Cards To Pass")),
      lblInfo(add<Control>(ControlKind::Label, "lblInfo", -1, nullptr)),
      game_(game) {
    // The check box stands in the row after the wait; the passes go one row lower.
    chkCountScore.setCaption("Count down &when taking score");
    chkCountScore.move(240, txtWaitPeriod.top() + 480, kLayout.width - 840, 330);
    txtNumberOfCardsToPass.setTop(txtNumberOfCardsToPass.top() + 480);
    LabelOf(txtNumberOfCardsToPass).setTop(LabelOf(txtNumberOfCardsToPass).top() + 480);

    SetChecks(txtNumberOfCardsToPass,
              between(0, 10, "Sorry, you cannot pass fewer than 0 cards.",
                      "Sorry, you cannot pass more than 10 cards.", "0", "10", true));
    // A refused count holds this round's passes at the limit; what a round starts with
    // changes only when the count is good.
    PutBackInto(txtNumberOfCardsToPass, [this](double passes) {
        auto& v = fivestackValues(prog_);
        v.CardsToPass = static_cast<std::int16_t>(passes);
    });
    AfterStored(txtNumberOfCardsToPass, [this] {
        auto& v = fivestackValues(prog_);
        v.CardsToPass = v.CardsToPassSetting;
    });
    SetChecks(txtWaitPeriod,
              between(0, 30,
                      "Sorry, a minimum of 0 seconds is required for the waiting period between "
                      "rounds.",
                      "Sorry, a maximum of 30 seconds is allowed for the waiting period between "
                      "rounds.",
                      "0", "30", true));
    SetChecks(txtBonus,
              between(0, 2147483647, "Sorry, a minimum of 0 is required for the bonus round score.",
                      "Sorry, the maximum value for achieving a bonus round is "
                      "2147483647.",
                      "0", "2147483647", true));
    // Greater than 0: anything above it will do.
    const double aboveNothing = std::nextafter(0.0, 1.0);
    ScoringField max =
        between(aboveNothing, 10000, "Sorry, the maximum time bonus value must be greater than 0.",
                "Sorry, the maximum time bonus value must not exceed 10000.", "0", "10000", false);
    max.ahead.push_back(AboveField(txtTimeBonusMin,
                                   "Sorry, the maximum time bonus value must be greater than the "
                                   "minimum time bonus value."));
    SetChecks(txtTimeBonusMax, max);
    ScoringField min =
        between(aboveNothing, 10000, "Sorry, the minimum time bonus value must be greater than 0.",
                "Sorry, the minimum time bonus value must not exceed 10000.", "0", "10000", false);
    min.ahead.push_back(BelowField(txtTimeBonusMax,
                                   "Sorry, the minimum time bonus value must be less than the "
                                   "maximum time bonus value."));
    SetChecks(txtTimeBonusMin, min);
    AfterStored(txtTimeBonusMin, [this] { MinimumStored(); });
    SetCheckOrder(
        {&txtNumberOfCardsToPass, &txtWaitPeriod, &txtBonus, &txtTimeBonusMax, &txtTimeBonusMin});

    lblInfo.setCaption(
        "Note: Changing any of the Scoring Options or the number of cards a user may pass will "
        "cause your high scores to be marked with an * indicating custom scoring was in use.");
    lblInfo.setFont(8, false);
    lblInfo.setTextFit(TextFit::Wrap);
    lblInfo.move(240, kLayout.frameHeight + 300, kLayout.width - 600, 900);
    AddButtons();
}

void frmFivestackCustomScoring::Form_Load() {
    chkCountScore.setChecked(prog_.state.CountDownScore);
    ScoringDialog::Form_Load();
}

void frmFivestackCustomScoring::cmdDefault_Click() {
    ScoringDialog::cmdDefault_Click();
    chkCountScore.setChecked(true);
}

void frmFivestackCustomScoring::MinimumStored() {
    AppState& g = prog_.state;
    game_.UpdateTimeBonusStep();
    g.CountDownScore = chkCountScore.checked();
    game_.CheckForCustom();
    game_.SetStatus(1, "Make " + formatScore(g.BonusRoundScore) + " for bonus round.  ");
}

bool ShowFivestackCustomScoring(Program& prog, frmFivestack& game) {
    auto& dialog = prog.load<frmFivestackCustomScoring>(game);
    dialog.Form_Load();
    prog.showModal(dialog);
    return dialog.accepted();
}

void frmFivestack::mnuCustom_Click() {
    RunPausingDialog([this] { ShowFivestackCustomScoring(prog_, *this); });
}

}  // namespace corvanna
