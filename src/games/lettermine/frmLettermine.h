#pragma once
// Lettermine's form: the phrase board of 90 cells in fmPhrase, the 26 letter buttons, the
// smileys in frmGuess, the letter timer (ProgressBar1 driven by Timer5), Solve It and the
// letter value, on the shared frame. The round's rules live in LettermineRound and the
// phrases in PhraseSupply; this class paints them, pays the letters, plays the sounds and
// fills the frame's hooks where the word game's round differs.

#include <array>
#include <cstdint>
#include <string>

#include "common/frame/GameFrame.h"
#include "forms/Controls.h"
#include "games/lettermine/LettermineRound.h"
#include "games/lettermine/LettermineValues.h"
#include "games/lettermine/PhraseSupply.h"

namespace corvanna {

class frmLettermine : public GameFrame {
public:
    frmLettermine(Program& prog, const GameInfo& info);

    LettermineRound round;
    // Phrases solved in this game; the letter value the next hit pays for each occurrence.
    std::int16_t PhrasesSolved = 0;
    std::int32_t LetterValue = 0;

    LettermineValues& values();
    // The phrase tables: the program's, so they outlive the form.
    PhraseSupply& phrases();

    // ---- Controls
    Control& fmPhrase;
    std::array<Control*, PhraseLayout::kCells> lblLetter{};
    std::array<Control*, LettermineRound::kLetters> cmdLetter{};
    Control& frmGuess;
    std::array<Control*, LettermineRound::kSmileys> Guess{};
    ProgressBar& ProgressBar1;
    Timer& Timer5;
    Control& cmdSolve;
    Menu& mnuSolve;
    Control& lblLetterValue;
    TextBox& txtLetterValue;
    Control& DummyCommand;
    Menu& mnuTopic;
    // mnuRandom and the seven topics, by topic number.
    std::array<Menu*, PhraseSupply::kTopics + 1> mnuTopicEntry{};

    // ---- The game's commands
    void cmdLetter_Click(int index);
    void cmdSolve_Click();
    void Timer5_Timer();
    // A topic menu's handler: the topic in force from the next phrase on.
    void SelectTopic(int topic);
    // The scoring dialog (frmLettermineCustomScoring).
    void mnuCustom_Click();

    // The picture a lost guess gets from now on: 0 the sad face, 1 the face behind a
    // prohibition sign. For as long as the form is loaded; each load starts with 0.
    void SelectUnhappyPicture(int index);
    // The picture of a guess state: "HAPPY", "BLANK" or "UNHAPPY".
    std::string GuessPicture(const std::string& key) const;

    // ShowControls with the game's own arguments: the round's boxes, the bar, the board and
    // the letters; the score; the letter value, the best score and the smileys; and whether
    // the letters keep their enabled state.
    void ShowControls(bool show, bool scoreShown, bool valueShown, bool keepLetterState = false);
    void EnableVowels(bool enabled);

    // ---- Frame hooks
    void NewGame() override;
    bool DealRound() override;
    bool ClockRunsFromDeal() const override;
    std::string RoundGoalLine() const override;
    bool RoundPlaysTune() const override;
    void RoundStarted() override;
    void ShowControls(bool visible, bool second) override;
    void ShowPauseMessage(bool paused) override;
    void EnableGameOptions(bool enabled) override;
    void HideBoardAtTimeOut() override;
    bool BonusRoundEarned() const override;
    void AwardRoundBonuses() override;
    void AfterRoundEnd() override;
    void ClearBoardAtQuit() override;
    void EnterIdle(bool afterGameOver) override;
    void Leaving() override;
    std::vector<Timer*> GameRoundTimers() override { return {&Timer5}; }
    void SettingsApplied() override;
    void LayoutBoard(int left, int top, int width, int height) override;

protected:
    void EnableLeavingCommands(bool enabled) override;

private:
    bool bonusRound() const { return g_.RoundNumber >= 3; }
    // An ordinary pick; true when it ended the round.
    bool PickLetter(int index);
    // The bonus round's picking phase.
    void PickForBonus(int index);
    // EndRound: Take Score, unless it is already running.
    void EndRound();
    // A lost round: the phrase shown in red for ShowPhraseMs.
    void Reveal();
    // The letter timer ran full with nothing left to lose: the round is lost.
    void LoseToLetterTimer();
    void DrawLetterValue();
    // A cell's caption and whether it shows, from the round; the cells the phrase covers.
    void PaintCell(std::size_t cell);
    std::size_t phraseCells() const;
    void PaintBoard();
    void PaintLetters();
    void PaintGuess(int index);
    void ColourPhrase(Color color);
    // lblMessage over the smileys, where the picks are asked for; any other text stands
    // over the board again.
    void ShowPickMessage(const std::string& text);
    void PlaceMessage();
    void CheckTopicMenu();

    std::string unhappyPicture_;
    bool messageOverGuesses_ = false;
    // Where the frame centred lblMessage over the board, and where frmGuess stands.
    int messageLeft_ = 0, messageTop_ = 0, messageWidth_ = 0, messageHeight_ = 0;
};

}  // namespace corvanna
