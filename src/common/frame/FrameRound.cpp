// Rounds: Play, the deal of a round, the clock tick, the end of a round and game over.

#include <exception>

#include "common/Cards.h"
#include "common/Format.h"
#include "common/Intervals.h"
#include "common/frame/Clock.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

void GameFrame::PlayCommand(bool fromMenu) {
    if (cmdPlay.caption() == "&Play") {
        menuCommand_ = fromMenu;
        StartGame();
        return;
    }
    if (g_.GameInProgress && ConfirmQuit(fromMenu))
        EndGameWithoutScore();
}

bool GameFrame::StartGame() {
    setMousePointer(MousePointer::Hourglass);
    bool ok = false;
    try {
        Timer4.stop();
        frmSplash.setVisible(false);
        g_.GameInProgress = true;
        NewGame();
        g_.RoundNumber = 1;
        g_.Score = 0;
        lblCurrentScore.setCaption("0");
        ok = InitRound();
    } catch (const std::exception&) {
        FailToPlay();
    }
    setMousePointer(MousePointer::Default);
    return ok;
}

void GameFrame::FailToPlay() {
    StopRoundTimers();
    g_.TakingScore = false;
    if (g_.MusicOn)
        StopMusic();
    prog_.msg("Unknown Error! Unable to play " + g_.AppTitle, MsgButtons::OKCancel,
              MsgIcon::Critical);
    setMousePointer(MousePointer::Default);
    UnloadWithoutQuestion();
}

bool GameFrame::ConfirmQuit(bool fromMenu) {
    bool pausedHere = false;
    if (info_.quitPausesFirst && !isPaused()) {
        Pause();
        pausedHere = true;
    }
    const std::string& question = fromMenu && !info_.menuQuitQuestion.empty()
                                      ? info_.menuQuitQuestion
                                      : info_.playQuitQuestion;
    const bool yes = prog_.msg(question, MsgButtons::YesNo, MsgIcon::Question) == MsgResult::Yes;
    // A game that is ending is resumed without its tune.
    if (yes)
        g_.GameInProgress = false;
    if (pausedHere && isPaused())
        Pause();
    return yes;
}

void GameFrame::EndGameWithoutScore() {
    g_.GameInProgress = false;
    cmdPlay.setToolTipText("Starts a new game");
    cmdPlay.setCaption("&Play");
    mnuPlay.setCaption("&Play");
    EnableGameOptions(true);
    ClearBoardAtQuit();
    EnableTakeScore(false);
    cmdPause.setEnabled(false);
    mnuPause.setEnabled(false);
    StopRoundTimers();
    Timer2.stop();  // the clock stands still on the idle form
    EnterIdle(false);
    frmSplash.setVisible(true);
    Timer4.start();
    if (g_.MusicOn)
        StopMusic();
}

void GameFrame::ClearBoardAtQuit() {
    ShowCards(false);
    ShowControls(true, true);
}

bool GameFrame::DealRound() {
    return CreateDeck(prog_) && ShuffleDeck(prog_) && Deal();
}

bool GameFrame::InitRound() {
    prog_.platform.doEvents();
    bool dealt = false;
    try {
        dealt = DealRound();
    } catch (const std::exception&) {
        dealt = false;
    }
    if (!dealt) {
        FailToPlay();
        return false;
    }
    // The deal ends with the goal lines over an empty message.
    lblMessage.setVisible(false);
    lblMessage.setCaption("");
    SetStatus(1, RoundGoalLine());
    SetStatus(2, RoundHint());

    g_.ElapsedSeconds = 0;
    g_.ClockSeconds = 0;
    g_.TakingScore = false;
    lblTime.setCaption("Time: " + std::to_string(g_.RoundSeconds));
    if (lblCurrentRound)
        lblCurrentRound->setCaption(currentRoundCaption());
    else
        lblRound.setCaption("Round: " + std::to_string(g_.RoundNumber));

    cmdPlay.setCaption(info_.endGameCaption);
    mnuPlay.setCaption(info_.endGameCaption);
    cmdPlay.setToolTipText(info_.endGameTip);
    cmdPause.setEnabled(true);
    mnuPause.setEnabled(true);
    if (cmdTakeScore) {
        cmdTakeScore->setCaption("&Take Score");
        cmdTakeScore->setToolTipText(info_.takeScoreTip);
    }
    if (mnuTakeScore)
        mnuTakeScore->setCaption("&Take Score");
    EnableTakeScore(true);
    EnableGameOptions(false);
    ShowControls(true, true);
    ShowCards(true);

    // A clock left blinking by the last round stops with the new one.
    Timer2.stop();
    InitClock(*this);
    if (ClockRunsFromDeal())
        StartRoundTimers();
    const bool bonusRound = g_.RoundNumber > info_.normalRounds;
    if (g_.MusicOn && RoundPlaysTune() && (bonusRound || !(info_.menuStartsNoTune && menuCommand_)))
        StartMusic();
    RoundStarted();
    return true;
}

bool GameFrame::AdvanceRoundClock() {
    if (g_.RoundSeconds <= 0)
        return false;
    g_.ElapsedSeconds = static_cast<std::int16_t>(g_.ElapsedSeconds + 1);
    DrawClock(static_cast<int>(roundHalfEven(360.0 / g_.RoundSeconds * g_.ElapsedSeconds)), *this);
    g_.ClockSeconds = g_.ElapsedSeconds;
    return true;
}

void GameFrame::Timer1_Timer() {
    if (!AdvanceRoundClock())
        return;
    const int left = g_.RoundSeconds - g_.ElapsedSeconds;
    lblTime.setCaption("Time: " + std::to_string(left));
    const auto quarter = roundHalfEven(g_.RoundSeconds / 4.0);
    const auto half = roundHalfEven(g_.RoundSeconds / 2.0);
    if (left >= quarter && left <= half)
        SetStatus(2, "Times running out!");
    else if (left < quarter)
        SetStatus(2, "Better Hurry!");
    RoundTick();
    if (g_.ElapsedSeconds == g_.RoundSeconds)
        TimeOut();
}

void GameFrame::TimeOut() {
    endingRound_ = true;
    StopRoundTimers();
    HideBoardAtTimeOut();
    AnnounceTimeOut();
    menuCommand_ = false;
    if (!g_.TakingScore)
        RunEndOfRound();
    endingRound_ = false;
    if (lblMessage.caption() != "Game Over")
        lblMessage.setVisible(false);
}

void GameFrame::AnnounceTimeOut() {
    lblMessage.setCaption("Times Up!");
    lblMessage.setVisible(true);
    SetStatus(2, "Time has expired!");
    FlashMessage(info_.flashesAtTimeOut);
}

std::string GameFrame::RoundGoalLine() const {
    return "Make " + formatScore(g_.BonusRoundScore) + info_.bonusLine;
}

void GameFrame::Timer2_Timer() {
    if (g_.RoundSeconds <= 0)
        return;
    DrawClock(static_cast<int>(roundHalfEven(360.0 / g_.RoundSeconds * g_.ClockSeconds)), *this);
}

void GameFrame::EnableTakeScore(bool enabled) {
    if (cmdTakeScore)
        cmdTakeScore->setEnabled(enabled);
    if (mnuTakeScore)
        mnuTakeScore->setEnabled(enabled);
}

void GameFrame::EnableLeavingCommands(bool enabled) {
    for (Control* c : std::initializer_list<Control*>{&cmdExit, &cmdPlay, &mnuExit, &mnuPlay})
        c->setEnabled(enabled);
    EnableTakeScore(enabled);
}

void GameFrame::EnableCommands(bool enabled) {
    EnableLeavingCommands(enabled);
    cmdPause.setEnabled(enabled);
    mnuPause.setEnabled(enabled);
}

void GameFrame::EnableGameOptions(bool enabled) {
    mnuTime.setEnabled(enabled);
    mnuCustom.setEnabled(enabled);
}

void GameFrame::HideBoardAtTimeOut() {
    ShowCards(false);
    HideSelection();
}

void GameFrame::TakeScoreCommand(bool fromMenu) {
    if (cmdTakeScore && cmdTakeScore->caption() != "&Take Score") {
        IdleTakeScoreCommand();
        return;
    }
    // A Take Score that was queued behind the scoring is ignored.
    if (g_.TakingScore || !g_.GameInProgress)
        return;
    menuCommand_ = fromMenu;
    RunEndOfRound();
}

void GameFrame::RunEndOfRound() {
    endingRound_ = true;
    TakeScore();
    // What the player clicked during the waits arrives now and finds the round still ending.
    prog_.platform.doEvents();
    endingRound_ = false;
}

void GameFrame::TakeScore() {
    g_.TakingScore = true;
    StopRoundTimers();
    setMousePointer(MousePointer::Hourglass);
    if (g_.MusicOn)
        StopMusic();
    EnableCommands(false);
    AwardRoundBonuses();
    // Clicks made during the payments arrive while TakingScore still keeps them out.
    prog_.platform.doEvents();
    g_.TakingScore = false;
    g_.RoundNumber = static_cast<std::int16_t>(g_.RoundNumber + 1);
    NextRoundOrGameOver();
    AfterRoundEnd();
    setMousePointer(MousePointer::Default);
}

void GameFrame::NextRoundOrGameOver() {
    const int next = g_.RoundNumber;
    if (next <= info_.normalRounds || (next == info_.normalRounds + 1 && BonusRoundEarned())) {
        const bool bonus = next > info_.normalRounds;
        AnnounceRound(bonus ? info_.bonusRoundText : info_.roundText(next), bonus);
        EnableCommands(true);
        InitRound();
        return;
    }
    GameOver();
    lblMessage.setForeColor(colors::Red);
    lblMessage.setCaption("Game Over");
    if (info_.gameOverInMiddle)
        lblMessage.setTop((scaleHeight() - lblMessage.height()) / 2);
    lblMessage.setVisible(true);
    lblMessage.refresh();
    prog_.platform.sleep(ms::GameOverWait);
    if (!info_.gameOverStays)
        lblMessage.setVisible(false);
    frmSplash.setVisible(true);
    Timer4.start();
    setMousePointer(MousePointer::Default);
    if (lblScoring)
        lblScoring->setVisible(false);
    cmdPlay.setEnabled(true);
    cmdExit.setEnabled(true);
    mnuPlay.setEnabled(true);
    mnuExit.setEnabled(true);
    EnterIdle(true);
}

bool GameFrame::BonusRoundEarned() const {
    return info_.bonusNeedsMoreThanScore ? g_.Score > g_.BonusRoundScore
                                         : g_.Score >= g_.BonusRoundScore;
}

void GameFrame::AnnounceRound(const std::string& text, bool bonusRound) {
    if (bonusRound && !info_.bonusRoundSound.empty())
        PlayWaveFile(info_.bonusRoundSound);
    lblMessage.setForeColor(colors::Red);
    lblMessage.setCaption(text);
    lblMessage.setVisible(true);
    FlashMessage(info_.flashesBeforeRound);
    lblMessage.setVisible(false);
}

void GameFrame::GameOver() {
    StopRoundTimers();
    Timer2.stop();  // the clock stands still on the idle form
    g_.GameInProgress = false;
    cmdPlay.setCaption("&Play");
    mnuPlay.setCaption("&Play");
    cmdPlay.setToolTipText("Starts a new game");
    EnableGameOptions(true);
    cmdPause.setEnabled(false);
    mnuPause.setEnabled(false);
    EnableTakeScore(false);
    SetStatus(2, info_.gameOverStatus);
    ClearBoardAtGameOver();
    if (g_.SkipHighScoreUpdate) {
        g_.SkipHighScoreUpdate = false;
        ShowHighScore();
    } else {
        RankFinalScore();
    }
}

void GameFrame::ClearBoardAtGameOver() {
    if (!info_.keepsBoardAtGameOver)
        ShowCards(false);
    ShowControls(false, true);
}

void GameFrame::RankFinalScore() {
    if (prog_.dialogs.rankFinalScore)
        prog_.dialogs.rankFinalScore(*this);
}

void GameFrame::ShowHighScore() {
    if (!loading_ && prog_.dialogs.showHighScoreLabel)
        prog_.dialogs.showHighScoreLabel(*this);
}

void GameFrame::AddToScore(std::int64_t amount) {
    addToScore(g_.Score, amount);
    lblCurrentScore.setCaption(formatScore(g_.Score));
    lblCurrentScore.refresh();
}

void GameFrame::FlashMessage(int times) {
    for (int i = 0; i < times; ++i) {
        lblMessage.setForeColor(lblMessage.foreColor() == colors::Red ? colors::Black
                                                                      : colors::Red);
        lblMessage.refresh();
        prog_.platform.sleep(info_.flashMs);
    }
}

void GameFrame::PlayWaveFile(const std::string& file) {
    if (g_.SoundsOn)
        prog_.platform.playWave(prog_.shippedFile(file));
}

void GameFrame::StartMusic() {
    // The tune is the round's: it waits for the restore as the clock does.
    if (minimised_)
        return;
    prog_.platform.startMusic(prog_.shippedFile("Orlund.MID"));
}

void GameFrame::StopMusic() {
    prog_.platform.stopMusic();
}

}  // namespace corvanna
