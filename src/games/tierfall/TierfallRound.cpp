// Tierfall's game as a whole: Play and End Game, the end of a round with its four
// payments, round two, the bonus round, game over and the replay of the last game.

#include <exception>

#include "common/Cards.h"
#include "common/FileStore.h"
#include "common/Format.h"
#include "common/Intervals.h"
#include "common/frame/Clock.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/modTierfall.h"
#include "scores/HighScores.h"

namespace corvanna {

namespace {

constexpr Color kPaying = 0x00FFFF;  // the score, and the combination count, while paid out

void enable(Menu* menu, bool enabled) {
    if (menu)
        menu->setEnabled(enabled);
}

// A round deck holds its cards, or blanks when the last game didn't reach the round.
bool filled(const std::vector<std::string>& deck) {
    return deck.size() > 1 && !deck[1].empty();
}

}  // namespace

// ---- Defaults and the scoring mode

void frmTierfall::SetGameDefaults() {
    TierfallValues& t = values();
    t.CardGoal = TierfallValues::kDefaultCardGoal;
    t.EnhancedScoring = true;
    t.CompletionBonus = TierfallValues::kDefaultCompletionBonus;
    t.ElevensBonus = TierfallValues::kDefaultElevensBonus;
    t.ElevensBonusES = TierfallValues::kDefaultElevensBonusES;
    t.CardBonus = TierfallValues::kDefaultCardBonus;
    t.SelectionColorIndex = 1;
    t.ReplayRequested = false;
    g_.BonusRoundScore = TierfallValues::kDefaultBonusRoundScore;
    g_.TimeBonus = TierfallValues::kDefaultTimeBonus;
}

void frmTierfall::CheckForCustom() {
    g_.CustomScoring = TierfallCustomScoring(g_);
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
    mnuOpen.setEnabled(enabled);
    mnuTime.setEnabled(enabled);
    mnuGoal.setEnabled(enabled);
    mnuCustom.setEnabled(enabled);
}

// ---- Play and End Game

void frmTierfall::cmdPlay_Click() {
    PlayCommand(false);
}

void frmTierfall::mnuPlay_Click() {
    PlayCommand(true);
}

void frmTierfall::PlayCommand(bool fromMenu) {
    // The menu's way differs a little: the splash stops only being shown, and no tune.
    // Nothing of a game in progress can be saved, whichever way it started.
    mnuSave.setEnabled(false);
    if (!fromMenu)
        Timer4.stop();
    frmSplash.setVisible(false);
    if (cmdPlay.caption() == "&Play") {
        cmdPlay.setToolTipText("Ends the game in progress");
        cmdPlay.setCaption("&End Game");
        mnuPlay.setCaption("&End Game");
        if (!Play())
            return;
        if (!fromMenu && g_.MusicOn)
            StartMusic();
        return;
    }
    if (!g_.GameInProgress)
        return;
    const bool pausedHere = !isPaused();
    if (pausedHere)
        Pause();
    const bool yes = prog_.msg(fromMenu ? "You have a game in progress, are you sure you want "
                                          "to restart now?"
                                        : "You have a game in progress, are you sure you want "
                                          "to quit now?",
                               MsgButtons::YesNo, MsgIcon::Question) == MsgResult::Yes;
    if (yes && !fromMenu)
        g_.GameInProgress = false;
    if (pausedHere && isPaused())
        Pause();
    if (!yes)
        return;
    cmdPlay.setToolTipText("Starts a new game");
    cmdPlay.setCaption("&Play");
    mnuPlay.setCaption("&Play");
    EndGame();
}

bool frmTierfall::Play() {
    setMousePointer(MousePointer::Hourglass);
    bool ok = false;
    try {
        SetCardValues(values().EnhancedScoring);
        if (values().ReplayRequested) {
            g_.Deck = values().RoundDecks[0];
            ok = true;
        } else {
            ok = CreateElevensDeck() && ShuffleDeck(prog_);
        }
        if (ok)
            ok = Deal(true);
    } catch (const std::exception&) {
        ok = false;
    }
    ShowClockBox(true);
    g_.GameInProgress = true;
    g_.TakingScore = false;
    lblHighScore.setVisible(true);
    cmdTakeScore->setEnabled(true);
    cmdTakeScore->setCaption("&Take Score");
    cmdTakeScore->setToolTipText(info_.takeScoreTip);
    cmdPause.setEnabled(true);
    mnuTakeScore->setEnabled(true);
    mnuTakeScore->setCaption("&Take Score");
    mnuPause.setEnabled(true);
    mnuViewHighScores.setEnabled(true);
    enable(mnuDeck, true);
    EnableGameOptions(false);
    if (!ok) {
        prog_.msg("Unknown Error! Unable to play " + g_.AppTitle, MsgButtons::OKCancel,
                  MsgIcon::Critical);
        setMousePointer(MousePointer::Default);
        UnloadWithoutQuestion();
        return false;
    }
    setMousePointer(MousePointer::Default);
    return true;
}

void frmTierfall::EndGame() {
    TierfallValues& t = values();
    g_.GameInProgress = false;
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

    cmdPause.setEnabled(false);
    for (Control* c : std::initializer_list<Control*>{cmdTakeScore, mnuTakeScore}) {
        c->setCaption("&Replay");
        c->setEnabled(true);
    }
    cmdTakeScore->setToolTipText("Replays the last game");
    EnableGameOptions(true);
    mnuSave.setEnabled(true);
    mnuPlay.setEnabled(true);
    mnuPause.setEnabled(false);

    frmSplash.setVisible(true);
    Timer4.start();
    if (g_.MusicOn)
        StopMusic();
}

// ---- Take Score and Replay

void frmTierfall::cmdTakeScore_Click() {
    TakeScoreCommand(true);
}

void frmTierfall::mnuTakeScore_Click() {
    TakeScoreCommand(false);
}

void frmTierfall::TakeScoreCommand(bool withMusic) {
    if (cmdTakeScore->caption() == "&Take Score") {
        // A Take Score that was queued behind the payments finds nothing to do.
        if (g_.TakingScore)
            return;
        RunEndOfRound();
        if (withMusic && g_.MusicOn && g_.GameInProgress)
            StartMusic();
    } else if (cmdTakeScore->caption() == "&Replay") {
        values().ReplayRequested = true;
        cmdPlay_Click();
    }
}

void frmTierfall::HideBoardAtTimeOut() {
    // The board stays in view under "Times Up!"; the round's end takes it away.
    ShowLowerCards(false);
    SelRectangle(false);
    DisableCommandButtons(true);
}

void frmTierfall::TakeScoreAtTimeOut() {
    cmdTakeScore_Click();
    SelRectangle(false);
}

void frmTierfall::TakeScore() {
    TierfallValues& t = values();
    g_.TakingScore = true;
    StopRoundTimers();
    setMousePointer(MousePointer::Hourglass);
    if (g_.MusicOn)
        StopMusic();

    DisableCommandButtons(true);
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
        PaySpeedBonus();

    // Clicks made during the payments arrive while TakingScore still keeps them out.
    prog_.platform.doEvents();
    g_.TakingScore = false;

    if (g_.RoundNumber == 1)
        RoundTwo();
    else if (g_.RoundNumber == 2 && g_.Score >= g_.BonusRoundScore)
        BonusRound();
    else
        ShowGameOver();

    g_.ElapsedSeconds = 0;
    ScoreChanged();
    lblMessage.setForeColor(colors::Red);
    SelRectangle(false);
    CardTotalVisible(true);
    setMousePointer(MousePointer::Default);
}

// ---- The payments

void frmTierfall::Pay(const Payment& p) {
    const std::int64_t total = g_.CountDownScore ? p.step * p.steps : p.atOnce;
    lblMessage.setCaption(p.text(total));
    lblMessage.setVisible(true);
    lblMessage.refresh();
    lblCurrentScore.setForeColor(kPaying);
    lblCurrentScore.refresh();
    prog_.platform.sleep(ms::PaymentShown);
    if (g_.CountDownScore) {
        std::int64_t left = total;
        for (int i = 0; i < p.steps; ++i) {
            if (p.eachStep)
                p.eachStep();
            addToScore(g_.Score, p.step);
            lblCurrentScore.setCaption(formatScore(g_.Score));
            lblCurrentScore.refresh();
            left -= p.step;
            lblMessage.setCaption(p.text(left));
            lblMessage.refresh();
            PlayWaveFile("Snap.wav");
            prog_.platform.sleep(ms::CountUpStep);
        }
        lblMessage.setCaption("");
        lblMessage.refresh();
        prog_.platform.sleep(ms::PaymentSettle);
    } else {
        if (p.whole)
            p.whole();
        addToScore(g_.Score, p.atOnce);
        lblCurrentScore.setCaption(formatScore(g_.Score));
        lblCurrentScore.refresh();
    }
    prog_.platform.sleep(ms::PaymentAfter);
}

void frmTierfall::PayCompletionBonus() {
    const std::int32_t bonus = values().CompletionBonus;
    Payment p;
    p.text = [](std::int64_t left) { return "Completion Bonus! " + formatScore(left); };
    // In steps, ten times a whole tenth: a remainder below ten isn't paid.
    p.step = bonus / 10;
    p.steps = 10;
    p.atOnce = bonus;
    Pay(p);
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
    Pay(p);
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
    Pay(p);
}

void frmTierfall::PaySpeedBonus() {
    const int left = g_.RoundSeconds - g_.ElapsedSeconds;
    Payment p;
    p.text = [](std::int64_t amount) { return "Speed Bonus! " + formatScore(amount); };
    p.step = g_.TimeBonus;
    p.steps = left;
    p.atOnce = static_cast<std::int64_t>(left) * g_.TimeBonus;
    // Each second paid moves the clock on by one.
    p.eachStep = [this] {
        g_.ElapsedSeconds = static_cast<std::int16_t>(g_.ElapsedSeconds + 1);
        g_.ClockSeconds = static_cast<std::int16_t>(g_.ClockSeconds + 1);
        DrawClock(static_cast<int>(roundHalfEven(360.0 / g_.RoundSeconds * g_.ElapsedSeconds)),
                  *this);
        ShowSecondsLeft(*this);
    };
    p.whole = [this] {
        g_.ElapsedSeconds = g_.RoundSeconds;
        EmptyClock(*this);
    };
    Pay(p);
}

// ---- After the payments: the next round or the end of the game

void frmTierfall::AnnounceRound(const std::string& text) {
    lblMessage.setForeColor(colors::Red);
    lblMessage.setCaption(text);
    lblMessage.setVisible(true);
    FlashMessage(ms::FlashesBeforeRound);
    lblMessage.setVisible(false);
}

void frmTierfall::NextRoundDeck(int round) {
    const auto& saved = values().RoundDecks[static_cast<std::size_t>(round - 1)];
    if (values().ReplayRequested && filled(saved))
        g_.Deck = saved;
    else
        ShuffleDeck(prog_);  // the same cards, shuffled again
}

void frmTierfall::RoundTwo() {
    AnnounceRound("Prepare for Round Two!");
    g_.RoundNumber = 2;
    if (lblCurrentRound)
        lblCurrentRound->setCaption("2");
    NextRoundDeck(2);
    Deal();
    DisableCommandButtons(false);
    FieldCardDisplay(true);
}

void frmTierfall::BonusRound() {
    PlayWaveFile("HighScore.wav");
    AnnounceRound("Bonus Round!");
    g_.RoundNumber = 3;
    NextRoundDeck(3);
    Deal();
    DisableCommandButtons(false);
    if (lblCurrentRound)
        lblCurrentRound->setCaption("Bonus");
    if (g_.MusicOn)
        StartMusic();
    FieldCardDisplay(true);
    values().ReplayRequested = false;
}

void frmTierfall::RankFinalScore() {
    const std::string tableName = TierfallTableName(values());
    if (!fileExists(HighScoreFilePath(prog_, tableName)))
        CreateHighScoreTable(prog_, tableName, kTierfallTableSeedScore);
    GameFrame::RankFinalScore();
}

void frmTierfall::ShowGameOver() {
    const bool afterRoundTwo = g_.RoundNumber == 2;
    FieldCardDisplay(false);
    SelRectangle(false);
    g_.RoundNumber = 1;
    g_.GameInProgress = false;
    values().LastScore = g_.Score;
    ShowLowerCards(false);
    if (afterRoundTwo) {
        ShowClockBox(false);
        ShowRoundBox(false);
        ShowGoalBox(false);
        lblHighScore.setVisible(false);
    }
    SetStatus(2, "Game over");
    lblCurrentTotal.setCaption("0");

    RankFinalScore();

    lblMessage.setForeColor(colors::Red);
    lblMessage.setCaption("Game Over");
    lblMessage.setTop((scaleHeight() - lblMessage.height()) / 2);
    lblMessage.setVisible(true);
    lblMessage.refresh();
    prog_.platform.sleep(ms::GameOverWait);
    lblMessage.setVisible(false);

    setMousePointer(MousePointer::Default);
    values().ReplayRequested = false;
    frmSplash.setVisible(true);
    Timer4.start();

    cmdPlay.setCaption("&Play");
    mnuPlay.setCaption("&Play");
    cmdPlay.setToolTipText("Starts a new game");
    for (Control* c : std::initializer_list<Control*>{&cmdPlay, &cmdExit, &mnuPlay, &mnuExit})
        c->setEnabled(true);
    for (Control* c : std::initializer_list<Control*>{cmdTakeScore, mnuTakeScore}) {
        c->setCaption("&Replay");
        c->setEnabled(true);
    }
    cmdTakeScore->setToolTipText("Replays the last game");
    mnuSave.setEnabled(true);
    EnableGameOptions(true);
    cmdPause.setEnabled(false);
    mnuPause.setEnabled(false);

    g_.ElapsedSeconds = g_.RoundSeconds;
    EmptyClock(*this);
}

}  // namespace corvanna
