// Tierfall's steps in the frame's flows: the decks of a game and its replay, the end of a
// round with its four payments, what game over and End Game leave, and Replay.

#include "common/Cards.h"
#include "common/FileStore.h"
#include "common/Format.h"
#include "common/Intervals.h"
#include "common/frame/Clock.h"
#include "common/frame/CountUp.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/modTierfall.h"
#include "scores/HighScores.h"

namespace corvanna {

namespace {

constexpr Color kPaying = 0x00FFFF;  // the combination count while paid out

// A round deck holds its cards, or blanks when the last game didn't reach the round.
bool filled(const std::vector<std::string>& deck) {
    return deck.size() > 1 && !deck[1].empty();
}

}  // namespace

// ---- Defaults and the scoring mode

void frmTierfall::SetGameDefaults() {
    // The settings' defaults are the row's table; a replay is asked for anew in each form.
    values().ReplayRequested = false;
}

void frmTierfall::SettingsApplied() {
    setCaption(values().EnhancedScoring ? g_.AppTitle + " - Enhanced Scoring" : g_.AppTitle);
    ClearGoalCheck();
    mnuDrawTimer.setChecked(g_.CountDownScore);
    SelectionColor(values().SelectionColorIndex);
    SetCardValues(values().EnhancedScoring);
}

void frmTierfall::SetCardValues(bool enhanced) {
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        FieldCardPicture[s]->setToolTipText(PointsText(TierfallCardValue(s, enhanced)));
    // The enhanced up card is worth the row of the lowest gap: nothing on a full board.
    UpCardPicture.setToolTipText(PointsText(enhanced ? 0 : TierfallUpCardValue(-1, false)));
}

void frmTierfall::DisableCommandButtons(bool disable) {
    EnableCommands(!disable);
}

void frmTierfall::EnableGameOptions(bool enabled) {
    GameFrame::EnableGameOptions(enabled);
    mnuOpen.setEnabled(enabled);
    mnuGoal.setEnabled(enabled);
}

// ---- A new game and its rounds

void frmTierfall::NewGame() {
    // Nothing of a game in progress can be saved, whichever way it started.
    mnuSave.setEnabled(false);
    SetCardValues(values().EnhancedScoring);
    values().LastScore = g_.Score;
}

bool frmTierfall::DealRound() {
    TierfallValues& t = values();
    if (g_.RoundNumber == 1) {
        if (t.ReplayRequested) {
            g_.Deck = t.RoundDecks[0];
        } else if (!CreateElevensDeck() || !ShuffleDeck(prog_)) {
            return false;
        }
    } else {
        NextRoundDeck(g_.RoundNumber);
    }
    if (!Deal())
        return false;
    // The replay ends with the last deck it had.
    if (g_.RoundNumber > info_.normalRounds)
        t.ReplayRequested = false;
    return true;
}

void frmTierfall::NextRoundDeck(int round) {
    const auto& saved = values().RoundDecks[static_cast<std::size_t>(round - 1)];
    if (values().ReplayRequested && filled(saved))
        g_.Deck = saved;
    else
        ShuffleDeck(prog_);  // the same cards, shuffled again
}

bool frmTierfall::ClockRunsFromDeal() const {
    // In the enhanced mode the clock waits for the first combination.
    return !values().EnhancedScoring;
}

std::string frmTierfall::RoundHint() const {
    return "Click on exposed cards to total " + std::to_string(board.CardGoal) + "!   ";
}

// ---- Take Score and Replay

void frmTierfall::IdleTakeScoreCommand() {
    if (cmdTakeScore->caption() != "&Replay")
        return;
    values().ReplayRequested = true;
    PlayCommand(false);
}

void frmTierfall::HideBoardAtTimeOut() {
    // The board stays in view under "Times Up!"; the round's end takes it away.
    ShowLowerCards(false);
    SelRectangle(false);
    DisableCommandButtons(true);
}

void frmTierfall::AwardRoundBonuses() {
    TierfallValues& t = values();
    SelRectangle(false);
    const bool complete = CheckForCompletion();
    FieldCardDisplay(false);
    CardTotalVisible(false);
    ShowLowerCards(false);

    if (complete) {
        PlayWaveFile("Wingame.wav");
        if (t.CompletionBonus != 0)
            PayCompletionBonus();
    }
    if (board.GoalCount != 0)
        PayCombinationBonus();
    if (complete && t.EnhancedScoring && board.cardsLeft() > 0)
        PayCardBonus();
    if (g_.RoundSeconds - g_.ElapsedSeconds > 0)
        PaySecondsLeft(*this, g_.TimeBonus, "Speed Bonus! ");
}

void frmTierfall::AfterRoundEnd() {
    g_.ElapsedSeconds = 0;
    ScoreChanged();
    lblMessage.setForeColor(colors::Red);
    SelRectangle(false);
    CardTotalVisible(true);
}

// ---- The payments

void frmTierfall::PayCompletionBonus() {
    const std::int32_t bonus = values().CompletionBonus;
    Payment p;
    p.text = [](std::int64_t left) { return "Completion Bonus! " + formatScore(left); };
    // In steps, ten times a whole tenth: a remainder below ten isn't paid.
    p.step = bonus / 10;
    p.steps = 10;
    p.atOnce = bonus;
    PayInSteps(*this, p);
}

void frmTierfall::PayCombinationBonus() {
    const std::int32_t bonus = values().combinationBonus();
    // "Elevens:" without its colon.
    std::string name = lblElevens.caption();
    if (!name.empty())
        name.pop_back();
    lblCurrentElevens.setForeColor(kPaying);
    Payment p;
    p.text = [this, name](std::int64_t left) {
        return std::to_string(board.GoalCount) + " " + name + "! Bonus = " + formatScore(left);
    };
    p.step = bonus;
    p.steps = board.GoalCount;
    p.atOnce = static_cast<std::int64_t>(board.GoalCount) * bonus;
    auto shown = [this] {
        lblCurrentElevens.setCaption(std::to_string(board.GoalCount));
        lblCurrentElevens.refresh();
    };
    p.eachStep = [this, shown] {
        board.payOneCombination();
        shown();
    };
    p.whole = [this, shown] {
        board.payAllCombinations();
        shown();
    };
    PayInSteps(*this, p);
    lblCurrentElevens.setForeColor(colors::Blue);
}

void frmTierfall::PayCardBonus() {
    Payment p;
    p.text = [](std::int64_t left) { return "Card Bonus! " + formatScore(left); };
    p.step = values().CardBonus;
    p.steps = board.cardsLeft();
    p.atOnce = static_cast<std::int64_t>(board.cardsLeft()) * values().CardBonus;
    p.eachStep = [this] {
        board.payOnePileCard();
        RefreshPlayCard();
    };
    PayInSteps(*this, p);
}

// ---- The end of a game

void frmTierfall::ClearBoardAtGameOver() {
    // Only a game that ended after round two takes its boxes away.
    const bool afterRoundTwo = g_.RoundNumber == info_.normalRounds + 1;
    FieldCardDisplay(false);
    SelRectangle(false);
    g_.RoundNumber = 1;
    values().LastScore = g_.Score;
    ShowLowerCards(false);
    if (afterRoundTwo) {
        ShowClockBox(false);
        ShowRoundBox(false);
        ShowGoalBox(false);
        lblHighScore.setVisible(false);
    }
    lblCurrentTotal.setCaption("0");
}

void frmTierfall::ClearBoardAtQuit() {
    TierfallValues& t = values();
    t.ReplayRequested = false;
    FieldCardDisplay(false);
    ShowLowerCards(false);
    ShowClockBox(false);
    ShowRoundBox(false);
    ShowGoalBox(false);
    lblHighScore.setVisible(false);
    StopRoundTimers();
    g_.ElapsedSeconds = 0;
    lblTime.setCaption("Time:");
    ClearClock(*this);
    CardTotalVisible(false);
    SelRectangle(false);

    t.LastScore = g_.Score;
    g_.Score = 0;
    lblCurrentScore.setCaption(formatScore(g_.Score));
    g_.RoundNumber = 1;
    board.payAllCombinations();
    if (lblCurrentRound)
        lblCurrentRound->setCaption("1");
    lblCurrentElevens.setCaption("0");
}

void frmTierfall::EnterIdle(bool afterGameOver) {
    values().ReplayRequested = false;
    for (Control* c : std::initializer_list<Control*>{cmdTakeScore, mnuTakeScore}) {
        c->setCaption("&Replay");
        c->setEnabled(true);
    }
    cmdTakeScore->setToolTipText("Replays the last game");
    mnuSave.setEnabled(true);
    if (afterGameOver) {
        g_.ElapsedSeconds = g_.RoundSeconds;
        EmptyClock(*this);
    }
}

}  // namespace corvanna
