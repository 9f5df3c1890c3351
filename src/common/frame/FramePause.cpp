// Pause and resume, dialogs that pause a round, and leaving the form.

#include "common/Format.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

void GameFrame::Pause() {
    if (cmdPause.caption() != "&Resume") {
        cmdPause.setToolTipText("Resumes the current game");
        ShowPauseMessage(true);
        StopRoundTimers();
        cmdPause.setCaption("&Resume");
        mnuPause.setCaption("&Resume");
        EnableLeavingCommands(false);
        ShowCards(false);
        HideSelection();
        if (g_.MusicOn)
            StopMusic();
    } else {
        cmdPause.setToolTipText(info_.pauseTip);
        ShowPauseMessage(false);
        cmdPause.setCaption(info_.pauseCaption);
        mnuPause.setCaption(info_.pauseCaption);
        EnableLeavingCommands(true);
        ShowCards(true);
        StartRoundTimers();
        if (g_.MusicOn && g_.GameInProgress)
            StartMusic();
    }
}

void GameFrame::ShowPauseMessage(bool paused) {
    if (paused) {
        lblMessage.setForeColor(colors::Red);
        lblMessage.setCaption("Game Paused");
        if (g_.GameInProgress)
            lblMessage.setVisible(true);
    } else {
        lblMessage.setVisible(false);
        lblMessage.setCaption("");
    }
}

void GameFrame::RunPausingDialog(const std::function<void()>& dialog) {
    const bool wasPaused = isPaused();
    // Whether this game counts as running, by the game's own test; asked again afterwards,
    // since the dialog may have ended the game.
    auto gameOn = [this] {
        switch (info_.dialogPause) {
            case DialogPause::ByPauseButton: return cmdPause.enabled();
            case DialogPause::ByGameInProgress: return g_.GameInProgress;
            case DialogPause::Never: return false;
        }
        return false;
    };
    const bool over = lblMessage.caption() == "Game Over";
    if (gameOn() && !wasPaused && !over)
        Pause();
    dialog();
    // The form may have been left while the dialog was up.
    if (!prog_.findForm(name()))
        return;
    if (gameOn() && lblMessage.caption() != "Game Over" && !wasPaused && isPaused())
        Pause();
}

void GameFrame::Form_Unload(bool& cancel) {
    // The close box held during the end of a round: the round goes on being dealt.
    if (endingRound()) {
        cancel = true;
        return;
    }
    const bool wasPaused = isPaused();
    bool pausedHere = false;
    std::string question;
    if (g_.GameInProgress) {
        question = "You have a game in progress. Are you sure you want to quit now?";
        if (info_.unloadPausesFirst && cmdPause.enabled() && !wasPaused &&
            lblMessage.caption() != "Game Over") {
            Pause();
            pausedHere = true;
        }
    } else {
        const long long minutes = MinutesBetween(g_.FormLoadTime, prog_.platform.now());
        question = minutes < 5 ? "Giving up so soon?"
                               : "Are you sure you want to quit now? Were just getting started!";
    }
    if (prog_.msg(question, MsgButtons::YesNo, MsgIcon::Question) == MsgResult::No) {
        cancel = true;
        if (pausedHere && isPaused())
            Pause();
        return;
    }
    LeaveForm();
}

void GameFrame::LeaveForm() {
    // The round's clocks stop first: what the game writes may ask the player something.
    StopRoundTimers();
    WriteSettings();
    Leaving();
    Timer2.stop();
    Timer4.stop();
    g_.GameInProgress = false;
    if (g_.MusicOn)
        StopMusic();
    if (onLeave)
        onLeave();
}

void GameFrame::UnloadWithoutQuestion() {
    LeaveForm();
    prog_.platform.hideForm(*this);
    prog_.unload(*this);
}

// Minimise and restore: time stands still while the form is minimised.
void GameFrame::Form_Resize() {
    if (windowState() == WindowState::Minimized) {
        if (!minimised_ && g_.GameInProgress) {
            StopRoundTimers();
            if (g_.MusicOn)
                StopMusic();
        }
        minimised_ = true;
        return;
    }
    if (minimised_) {
        minimised_ = false;
        if (roundRunning()) {
            StartRoundTimers();
            if (g_.MusicOn)
                StartMusic();
        }
    }
    LayoutForm();
}

void GameFrame::StartRoundTimers() {
    if (minimised_)
        return;
    Timer1.start();
    for (Timer* t : GameRoundTimers())
        t->start();
}

void GameFrame::StartRoundTimer(Timer& timer) {
    if (!minimised_)
        timer.start();
}

void GameFrame::StopRoundTimers() {
    Timer1.stop();
    for (Timer* t : GameRoundTimers())
        t->stop();
}

}  // namespace corvanna
