#include "games/lettermine/frmLettermineCustomScoring.h"

#include "games/lettermine/frmLettermine.h"

namespace corvanna {

namespace {

constexpr ScoringDialog::Layout kLayout{7800, 6360, 4380, 5340};
// Inside the frame: the rows under the six fields, and the column the boxes stand in.
constexpr int kCountDownTop = 3240, kBadGuessTop = 3660;
constexpr int kBoxColumn = 7800 - 480 - 1440 - 120;
constexpr int kSecondsWidth = 600;
// A picture button holds the 24 by 22 pixel face inside its edge.
constexpr int kPictureWidth = 540, kPictureHeight = 510, kPictureGap = 1440 - 2 * kPictureWidth;
constexpr const char* kBadGuessPictures[] = {"SmileySad", "SmileyBanned"};

}  // namespace

frmLettermineCustomScoring::frmLettermineCustomScoring(Program& prog, frmLettermine& game)
    : ScoringDialog(prog, game.info().settings, "frmLettermineCustomScoring", Checking::StopAtFirst,
                    MsgIcon::Exclamation, kLayout),
      txtGuessValue(AddField("lblGuessValue", "Bonus awarded for each remaining guess:",
                             "txtGuessValue", "Guess Bonus")),
      txtCompletionBonus(AddField("lblCompletionBonus", "Bonus awarded for completing phrase: ",
                                  "txtCompletionBonus", "Completion Bonus")),
      txtTimeBonus(AddField("lblTimeBonus", "Time Bonus (each remaining second)", "txtTimeBonus",
                            "Time Bonus")),
      txtGuessCount(AddField("lblGuessCount", "Number of guesses per round:", "txtGuessCount",
                             "Guess Count")),
      txtBonusRoundScore(AddField("lblBonusRoundScore", "Score required for Bonus Round:",
                                  "txtBonusRoundScore", "Bonus Score")),
      txtShowPhrase(AddField("lblShowPhrase", "Show completed phrase for", "txtShowPhrase",
                             "ShowPhrase", 1000)),
      lblSeconds(add<Control>(ControlKind::Label, "lblSeconds", -1, &frmScoringOptions)),
      chkCountDown(add<Control>(ControlKind::CheckBox, "chkCountDown", -1, &frmScoringOptions)),
      lblBadGuess(add<Control>(ControlKind::Label, "lblBadGuess", -1, &frmScoringOptions)),
      lblInfo(add<Control>(ControlKind::Label, "lblInfo", -1, nullptr)),
      game_(game) {
    SetChecks(txtGuessValue,
              Between(1, 50000,
                      "Sorry, the Bonus Value for remaining guesses must fall between 1 and "
                      "50,000."));
    // Tested against 100,000 although the text names more.
    SetChecks(txtCompletionBonus,
              Between(1, 100000,
                      "Sorry, the score awarded for completing the phrase must fall between 1 "
                      "and 100,000,000."));
    SetChecks(txtTimeBonus,
              Between(1, 5000,
                      "Sorry, the score awarded for each second remaining in the game after "
                      "selecting 'Take Score' must fall between 1 and 5,000."));
    SetChecks(txtGuessCount,
              Between(1, 8, "Sorry, the number of guesses allowed must fall between 1 and 8."));
    SetChecks(txtBonusRoundScore,
              Between(1, 1000000,
                      "Sorry, the score required for the Bonus Round must fall between 1 and "
                      "1,000,000."));
    SetChecks(txtShowPhrase,
              Between(1, 30,
                      "Sorry, the number of seconds to display the phrase must fall between 1 "
                      "and 30."));

    // The seconds box is narrower, with its unit behind it in the boxes' column.
    txtShowPhrase.move(txtShowPhrase.left(), txtShowPhrase.top(), kSecondsWidth,
                       txtShowPhrase.height());
    lblSeconds.setCaption("seconds");
    lblSeconds.move(txtShowPhrase.left() + kSecondsWidth + 90, LabelOf(txtShowPhrase).top(),
                    1440 - kSecondsWidth - 90, LabelOf(txtShowPhrase).height());
    chkCountDown.setCaption("&Count Down when taking score");
    chkCountDown.move(240, kCountDownTop, kLayout.width - 840, 330);
    lblBadGuess.setCaption("Image for faulty letter guess:");
    lblBadGuess.move(240, kBadGuessTop + (kPictureHeight - 300) / 2, kBoxColumn - 360, 300);
    for (int i = 0; i < 2; ++i) {
        Control& b = add<Control>(ControlKind::CommandButton, "cmdBadGuess", i, &frmScoringOptions);
        b.move(kBoxColumn + i * (kPictureWidth + kPictureGap), kBadGuessTop, kPictureWidth,
               kPictureHeight);
        b.Click = [this, i] { cmdBadGuess_Click(i); };
        cmdBadGuess[static_cast<std::size_t>(i)] = &b;
    }

    lblInfo.setCaption(
        "Note: Changing any of the Scoring Options will cause your high scores to be marked with "
        "an * indicating custom scoring was in use.");
    lblInfo.setFont(8, false);
    lblInfo.setTextFit(TextFit::Wrap);
    lblInfo.move(240, kLayout.frameHeight + 240, kLayout.width - 600, 600);
    AddButtons();
}

void frmLettermineCustomScoring::Form_Load() {
    for (std::size_t i = 0; i < cmdBadGuess.size(); ++i)
        cmdBadGuess[i]->setPicture(kBadGuessPictures[i]);
    chkCountDown.setChecked(prog_.state.CountDownScore);
    ScoringDialog::Form_Load();
}

void frmLettermineCustomScoring::cmdDefault_Click() {
    ScoringDialog::cmdDefault_Click();
    StoreFields();
    const SettingBinding* countDown = findSetting(game_.info().settings, "Count Down Score");
    prog_.state.CountDownScore = countDown && countDown->byDefault != 0;
    chkCountDown.setChecked(prog_.state.CountDownScore);
}

void frmLettermineCustomScoring::cmdBadGuess_Click(int index) {
    game_.SelectUnhappyPicture(index);
}

void frmLettermineCustomScoring::Accepted() {
    prog_.state.CountDownScore = chkCountDown.checked();
    // The wait and the count-down don't count: the row's table says which values do.
    game_.CheckForCustom();
}

bool ShowLettermineCustomScoring(Program& prog, frmLettermine& game) {
    auto& dialog = prog.load<frmLettermineCustomScoring>(game);
    dialog.Form_Load();
    prog.showModal(dialog);
    return dialog.accepted();
}

void frmLettermine::mnuCustom_Click() {
    RunPausingDialog([this] { ShowLettermineCustomScoring(prog_, *this); });
}

}  // namespace corvanna
