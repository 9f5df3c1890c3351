// Rounds: Play, the deal of a round, the clock tick, the end of a round and game over.

#include <exception>

#include "common/Cards.h"
#include "common/Format.h"
#include "common/Intervals.h"
#include "common/frame/Clock.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

void GameFrame::Play() {
    setMousePointer(MousePointer::Hourglass);
    try {
        if (cmdPlay.caption() == "&Play") {
            Timer4.stop();
            frmSplash.setVisible(false);
            g_.GameInProgress = true;
            g_.RoundNumber = 1;
            g_.Score = 0;
            lblCurrentScore.setCaption("0");
            InitRound();
        } else if (prog_.msg(info_.playQuitQuestion, MsgButtons::YesNo, MsgIcon::Question) ==
                   MsgResult::Yes) {
            EndGameWithoutScore();
        }
    } catch (const std::exception& e) {
        // Nothing sensible can go on after a failure here.
        prog_.msg(e.what(), MsgButtons::OK, MsgIcon::Critical);
        prog_.platform.quit();
    }
    setMousePointer(MousePointer::Default);
}

void GameFrame::EndGameWithoutScore() {
    mnuTime.setEnabled(true);
    mnuCustom.setEnabled(true);
    cmdPlay.setToolTipText("Starts a new game");
    cmdPlay.setCaption("&Play");
    mnuPlay.setCaption("&Play");
    g_.GameInProgress = false;
    ShowCards(false);
    ShowControls(true, true);
    EnableTakeScore(false);
    cmdPause.setEnabled(false);
    mnuPause.setEnabled(false);
    StopRoundTimers();
    Timer2.stop();  // the clock stands still on the idle form
    frmSplash.setVisible(true);
    Timer4.start();
    if (g_.MusicOn)
        StopMusic();
}

void GameFrame::InitRound() {
    prog_.platform.doEvents();
    if (!CreateDeck(prog_) || !ShuffleDeck(prog_))
        return;
    Deal();

    g_.ElapsedSeconds = 0;
    g_.ClockSeconds = 0;
    g_.TakingScore = false;
    lblMessage.setCaption("");
    lblMessage.setVisible(false);
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
    EnableTakeScore(true);
    mnuTime.setEnabled(false);
    mnuCustom.setEnabled(false);
    ShowControls(true, true);
    ShowCards(true);

    // The end of the deal: the clock and the goal lines.
    InitClock(*this);
    StartRoundTimers();
    SetStatus(1, "Make " + formatScore(g_.BonusRoundScore) + info_.bonusLine);
    SetStatus(2, info_.hintLine);
    if (g_.MusicOn)
        StartMusic();
}

void GameFrame::Timer1_Timer() {
    if (g_.RoundSeconds <= 0)
        return;
    g_.ElapsedSeconds = static_cast<std::int16_t>(g_.ElapsedSeconds + 1);
    DrawClock(static_cast<int>(roundHalfEven(360.0 / g_.RoundSeconds * g_.ElapsedSeconds)), *this);
    g_.ClockSeconds = g_.ElapsedSeconds;
    const int left = g_.RoundSeconds - g_.ElapsedSeconds;
    lblTime.setCaption("Time: " + std::to_string(left));
    const auto quarter = roundHalfEven(g_.RoundSeconds / 4.0);
    const auto half = roundHalfEven(g_.RoundSeconds / 2.0);
    if (left >= quarter && left <= half)
        SetStatus(2, "Times running out!");
    else if (left < quarter)
        SetStatus(2, "Better Hurry!");

    if (g_.ElapsedSeconds == g_.RoundSeconds) {
        endingRound_ = true;
        StopRoundTimers();
        HideBoardAtTimeOut();
        lblMessage.setCaption("Times Up!");
        lblMessage.setVisible(true);
        SetStatus(2, "Time has expired!");
        FlashMessage(ms::FlashesAtTimeOut);
        TakeScoreAtTimeOut();
        endingRound_ = false;
        if (lblMessage.caption() != "Game Over")
            lblMessage.setVisible(false);
    }
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

void GameFrame::HideBoardAtTimeOut() {
    ShowCards(false);
    HideSelection();
}

void GameFrame::cmdTakeScore_Click() {
    // A Take Score that was queued behind the scoring is ignored.
    if (g_.TakingScore)
        return;
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
    EnableCommands(false);
    if (g_.MusicOn)
        StopMusic();
    AwardRoundBonuses();
    g_.RoundNumber = static_cast<std::int16_t>(g_.RoundNumber + 1);
    NextRoundOrGameOver();
}

void GameFrame::NextRoundOrGameOver() {
    const int next = g_.RoundNumber;
    const bool earned = info_.bonusNeedsMoreThanScore ? g_.Score > g_.BonusRoundScore
                                                      : g_.Score >= g_.BonusRoundScore;
    if (next <= info_.normalRounds || (next == info_.normalRounds + 1 && earned)) {
        if (next > info_.normalRounds && !info_.bonusRoundSound.empty())
            PlayWaveFile(info_.bonusRoundSound);
        lblMessage.setForeColor(colors::Red);
        lblMessage.setCaption(next > info_.normalRounds ? info_.bonusRoundText
                                                        : info_.roundText(next));
        lblMessage.setVisible(true);
        FlashMessage(info_.flashesBeforeRound);
        EnableCommands(true);
        lblMessage.setVisible(false);
        InitRound();
        return;
    }
    GameOver();
    lblMessage.setForeColor(colors::Red);
    lblMessage.setCaption("Game Over");
    lblMessage.setVisible(true);
    lblMessage.refresh();
    prog_.platform.sleep(ms::GameOverWait);
    frmSplash.setVisible(true);
    Timer4.start();
    setMousePointer(MousePointer::Default);
    if (lblScoring)
        lblScoring->setVisible(false);
    cmdPlay.setEnabled(true);
    cmdExit.setEnabled(true);
    mnuPlay.setEnabled(true);
    mnuExit.setEnabled(true);
}

void GameFrame::GameOver() {
    StopRoundTimers();
    Timer2.stop();  // the clock stands still on the idle form
    g_.GameInProgress = false;
    cmdPlay.setCaption("&Play");
    mnuPlay.setCaption("&Play");
    cmdPlay.setToolTipText("Starts a new game");
    mnuCustom.setEnabled(true);
    mnuTime.setEnabled(true);
    cmdPause.setEnabled(false);
    mnuPause.setEnabled(false);
    EnableTakeScore(false);
    if (g_.SkipHighScoreUpdate) {
        g_.SkipHighScoreUpdate = false;
        ShowHighScore();
    } else {
        RankFinalScore();
    }
    ShowCards(false);
    ShowControls(false, true);
    SetStatus(2, "Game Over");
}

void GameFrame::RankFinalScore() {
    if (prog_.dialogs.rankFinalScore)
        prog_.dialogs.rankFinalScore(*this);
}

void GameFrame::ShowHighScore() {
    if (!loading_ && prog_.dialogs.showHighScoreLabel)
        prog_.dialogs.showHighScoreLabel(*this);
}

void GameFrame::FlashMessage(int times) {
    for (int i = 0; i < times; ++i) {
        lblMessage.setForeColor(lblMessage.foreColor() == colors::Red ? colors::Black
                                                                      : colors::Red);
        lblMessage.refresh();
        prog_.platform.sleep(ms::MessageFlash);
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
