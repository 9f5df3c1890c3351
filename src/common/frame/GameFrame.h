#pragma once
// The frame all nine games run in: Play / End Game, Pause / Resume, Take Score,
// the pie clock, the round clock tick, the splash panel, the status bar, the
// menus, the unload questions and the way back to the selector.
//
// A game derives from GameFrame, gives its GameInfo row, and overrides only the
// hooks below where its rules differ. The frame is split by concern:
//   GameFrame.cpp   controls, menus, Form_Load
//   FrameLayout.cpp where every control goes at the window's size
//   FrameRound.cpp  Play, InitRound, the Timer1 tick, the end of a round, game over
//   FramePause.cpp  Pause / Resume, dialogs that pause, minimise (Form_Resize), unload
//   FrameSplash.cpp the splash animation, the time of day, back design menus

#include <functional>
#include <string>
#include <vector>

#include "common/Program.h"
#include "common/frame/GameInfo.h"
#include "forms/Form.h"

namespace corvanna {

class GameFrame : public Form {
public:
    GameFrame(Program& prog, const GameInfo& info);
    ~GameFrame() override;

    const GameInfo& info() const { return info_; }
    Program& program() const { return prog_; }

    // Runs the load steps: defaults, caption, settings, splash, centring.
    void Form_Load();

    // Set by whoever opened the form: runs when the user has confirmed leaving.
    std::function<void()> onLeave;

    // ---- Hooks a game fills in ---------------------------------------------------
    // The flows below (Play, the round start, the tick and time out, Take Score, the next
    // round, the bonus round, game over, End Game, Pause, dialogs, minimise, leaving) are
    // the frame's and are written once. A game changes a step of them only through these.
    //
    // Play, before the first round: what a new game resets beyond Score and RoundNumber.
    virtual void NewGame() {}
    // The round's deck and deal, for RoundNumber: the usual makes and shuffles a new deck
    // and calls Deal. A game without cards deals what it has. False: the game can't start
    // (or go on), and the frame says so and closes the form.
    virtual bool DealRound();
    // Lays out the board from Deck (the usual round's last step of DealRound).
    virtual bool Deal() { return true; }
    // Whether the round clock runs from the deal; a game may start it on a move of its own.
    virtual bool ClockRunsFromDeal() const { return true; }
    // Panels 1 and 2 at the deal.
    virtual std::string RoundGoalLine() const;
    virtual std::string RoundHint() const { return info_.hintLine; }
    // Whether the tune plays in this round (when the player has it on).
    virtual bool RoundPlaysTune() const { return true; }
    // The last step of the round start, once the round is on: what else the game shows.
    virtual void RoundStarted() {}
    // Shows or hides the board's cards (game over, pause, time out).
    virtual void ShowCards(bool visible) { (void)visible; }
    // Shows or hides the round's boxes and lblHighScore; the score stays.
    virtual void ShowControls(bool visible, bool second);
    // Hides selection marks and running totals while paused or timed out.
    virtual void HideSelection() {}
    // What Pause shows: "Game Paused" in lblMessage, or the game's own.
    virtual void ShowPauseMessage(bool paused);
    // The menus that may change only between games: the time limit and the scoring dialog.
    virtual void EnableGameOptions(bool enabled);
    // What the tick adds after the clock moved, and before a time out is tested.
    virtual void RoundTick() {}
    // At a time out, before "Times Up!" flashes: the usual hides the board and its marks.
    virtual void HideBoardAtTimeOut();
    // "Times Up!" shown: the usual flashes it in lblMessage with "Time has expired!".
    virtual void AnnounceTimeOut();
    // Whether the round that ends now earns the bonus round: the usual tests the score.
    virtual bool BonusRoundEarned() const;
    // The text before the next round (or the bonus round): the usual flashes it in red.
    virtual void AnnounceRound(const std::string& text, bool bonusRound);
    // Pays the round's bonuses inside Take Score, before the round number moves on.
    virtual void AwardRoundBonuses() {}
    // The last step of Take Score, after the next round was dealt or the game ended.
    virtual void AfterRoundEnd() {}
    // Game over, after the final score was ranked: the usual hides the cards (unless the
    // row keeps the board) and the round's boxes.
    virtual void ClearBoardAtGameOver();
    // End Game confirmed: the usual hides the cards and restores the boxes.
    virtual void ClearBoardAtQuit();
    // The form is idle again, after game over (true) or End Game (false).
    virtual void EnterIdle(bool afterGameOver) { (void)afterGameOver; }
    // Take Score clicked while it offers something else between games (a replay).
    virtual void IdleTakeScoreCommand() {}
    // RoundSeconds has changed (the time menu or the settings).
    virtual void TimeLimitChanged() {}
    // The player has said Yes to leaving: what the game writes besides its settings.
    virtual void Leaving() {}
    // The game's own timers that run and stand still with Timer1 (none in most games).
    virtual std::vector<Timer*> GameRoundTimers() { return {}; }
    // Ranks the final score at game over in the current table, then refreshes lblHighScore.
    virtual void RankFinalScore();
    // lblHighScore from the current table: at load, on a new time limit, after a game.
    void ShowHighScore();
    // Repaints the card stack and, when paused, the board (after a back design change).
    virtual void RefreshPlayCard() {}
    virtual void RefreshBoardBacks() {}
    // The picture the splash deals face up: a random card face unless a game has its own.
    virtual std::string SplashFacePicture();
    // Lays out the board inside the given client rectangle (twips).
    virtual void LayoutBoard(int left, int top, int width, int height) {
        (void)left, (void)top, (void)width, (void)height;
    }
    // The points earned in this round, by which a speed bonus may be multiplied.
    virtual std::int32_t RoundPoints() const { return 0; }
    // At load, after the settings' defaults: what else the game resets before its file is read.
    virtual void SetGameDefaults() {}
    // CustomScoring: a value that counts is off its default (the row's settings table).
    virtual void CheckForCustom();
    // Runs at load once the settings file has been read and CustomScoring set.
    virtual void SettingsApplied() {}
    // The round clock's tick; a game with a tick of its own replaces it whole and ends
    // its round through TimeOut or Take Score.
    virtual void Timer1_Timer();

    // ---- Settings (FrameSettings.cpp) --------------------------------------------
    // The keys are the row's settings table (SettingBindings.h).
    // Every setting to its default, the time limit through its menu.
    void SetDefaults();
    // Reads the file and applies every key it knows; a missing file changes nothing.
    void ReadSettingsINI(const std::string& fileName);
    // Writes every key in the game's order, atomically; a damaged old file is kept aside.
    void WriteSettings();
    std::string SettingsText();
    std::string settingsPath() const;

    // ---- The flows ----------------------------------------------------------------
    // cmdPlay and mnuPlay: a new game, or the question that ends the one in progress.
    void PlayCommand(bool fromMenu);
    // cmdTakeScore and mnuTakeScore: the end of the round, or what the game offers idle.
    void TakeScoreCommand(bool fromMenu);
    // The next round's start: the deal, the counters, the commands, the clock and the tune.
    // False when the game could not go on (the form is closed by then).
    bool InitRound();
    void Pause();
    // Time has run out: the board hidden, "Times Up!" flashed, and the round taken.
    void TimeOut();
    void Timer2_Timer();
    void Timer3_Timer();
    void Timer4_Timer();
    void ClearTimeCheck();
    void SetTimeLimit(int seconds);  // the handler of an entry of the time menu
    // DeckBack by the game's own numbering, as the menus and [Deck] set it.
    void SelectDeckBack(int deckBack);
    void ClearDeckCheck();
    // The Deck menu's check on the design the picture store shows now.
    void CheckDesignOnShow();
    // The Deck menu's entry of a design in the picture store's numbering, nullptr for none.
    Menu* DesignMenu(int design) const;
    // Runs a modal dialog, pausing the round round it as the game does.
    void RunPausingDialog(const std::function<void()>& dialog);
    // The way back: the unload question, and on Yes the selector.
    void Form_Unload(bool& cancel);
    void Form_Resize();
    // Holds a normal window at its smallest size and places every control (FrameLayout.cpp).
    void LayoutForm();

    // The round's clocks: Timer1 and the game's own. None of them runs while the form is
    // minimised, whatever path starts a round or resumes one: a start asked for then is
    // made by the restore, unless the game is paused by then.
    void StartRoundTimers();
    void StopRoundTimers();
    // One of them alone, under the same rule: not while minimised.
    void StartRoundTimer(Timer& timer);
    // A round is on and its clock may run: neither paused nor being scored.
    bool roundRunning() const { return g_.GameInProgress && !isPaused() && !g_.TakingScore; }
    // A move on the board that arrives while no round takes one: paused, scored, being
    // ended (a click held through its waits) or over.
    bool refusingClicks() const { return !roundRunning() || endingRound(); }

    // A second of the round gone, and the pie clock drawn for it: the first step of every
    // game's tick. False when there is no time limit to count against.
    bool AdvanceRoundClock();
    // Adds to Score, held at the ends of its range, and shows it at once.
    void AddToScore(std::int64_t amount);
    // Flashes the message label red and black, the row's period a swap.
    void FlashMessage(int times);
    void PlayWaveFile(const std::string& file);
    void StartMusic();
    void StopMusic();
    void ShowClockBox(bool visible);
    void ShowRoundBox(bool visible);
    void SetStatus(int panel, const std::string& text) { StatusBar1.setPanelText(panel, text); }
    std::string currentRoundCaption() const;
    bool isPaused() const { return cmdPause.caption() == "&Resume"; }

    // ---- Controls every game form has -------------------------------------------
    Control& cmdPlay;
    Control& cmdPause;
    Control* cmdTakeScore;  // only in games with Take Score
    Control& cmdExit;       // cmdQuit in some games
    Timer& Timer1;
    Timer& Timer2;
    Timer& Timer3;  // the row may give it another name
    Timer& Timer4;
    Shape& TimerRectangle;
    Shape& TimerBevelSide;
    Shape& TimerBevelBottom;
    PictureBox& Surface;
    Control& lblTime;
    Shape& ScoreRectangle;
    Control& lblScore;
    Control& lblCurrentScore;  // lblTotalScore in some games
    Shape& RoundRectangle;
    Shape& RoundBevelSide;
    Shape& RoundBevelBottom;
    Control& lblRound;
    Control* lblCurrentRound;  // absent where lblRound holds the number
    Control& lblHighScore;
    Control& lblMessage;  // ScoringLabel / ScoringLabelInfo in some games
    Control* lblScoring;
    Control& frmSplash;
    Control* imgSplashImage[4];
    Control& lblProductName;
    Control& lblCompanyProduct;
    Control& lblVersion;
    Control& lblPlatform;
    StatusBar& StatusBar1;

    Menu& mnuFile;
    Menu& mnuPlay;
    Menu* mnuTakeScore;
    Menu& mnuPause;
    Menu& mnuExit;
    Menu& mnuOptions;
    Menu& mnuViewHighScores;
    Menu& mnuClearHighScores;
    Menu& mnuTime;
    Menu& mnuCustom;
    Menu& mnuMusic;
    Menu& mnuSounds;
    Menu* mnuDeck;
    Menu* mnuPalm;
    Menu* mnuMagic;
    Menu* mnuNight;
    Menu* mnuHot;
    Menu& mnuHelp;
    Menu& mnuRules;
    Menu& mnuAbout;

protected:
    // A centred label of the game's own, in a control array when index >= 0.
    Control& AddLabel(const std::string& name, const std::string& caption, double size, bool bold,
                      Color color, int index = -1, Control* parent = nullptr);
    // Enables or disables Play, Pause, Take Score and Exit with their menus.
    void EnableCommands(bool enabled);
    // All of those but Pause: what a pause locks (a game may lock more).
    virtual void EnableLeavingCommands(bool enabled);
    void EnableTakeScore(bool enabled);
    // What the end of the last round leads to: the next round, the bonus round or game over.
    void NextRoundOrGameOver();
    void GameOver();
    // Quits a game on the player's Yes: nothing is recorded.
    void EndGameWithoutScore();
    // Take Score: the clock stops, the bonuses are paid, and the game goes on or ends.
    void TakeScore();
    // Runs TakeScore with held clicks kept out until the next round is dealt.
    void RunEndOfRound();
    // True while a round is being ended and the next dealt: held clicks find nothing to do.
    // Once the game is over there is no round to protect, and they are taken as they come.
    bool endingRound() const { return endingRound_ && g_.GameInProgress; }
    // Goes back to the selector without the question, as after a failure to play.
    void UnloadWithoutQuestion();

    Program& prog_;
    AppState& g_;
    const GameInfo& info_;

private:
    bool StartGame();
    bool ConfirmQuit(bool fromMenu);
    // A game that can't start or go on: said, and the form closed with nothing running.
    void FailToPlay();
    void buildMenus();
    void wireHandlers();
    void layout();
    void placeSplash();

    // What leaving the form does once the player has said Yes.
    void LeaveForm();

    // The end of a round is running: a click held during its waits arrives at the next
    // round's DoEvents and must not pause or end a round that is being dealt.
    bool endingRound_ = false;
    // The settings file held something unreadable: it is kept aside before it is replaced.
    bool settingsDamaged_ = false;
    int splashIndex_ = 0;
    bool splashUp_ = true;
    bool splashFaces_ = false;
    bool minimised_ = false;
    // The command that started the round came from a menu: some games start no tune then.
    bool menuCommand_ = false;
    // Form_Load is applying defaults and settings: lblHighScore waits for the last of them.
    bool loading_ = false;
};

}  // namespace corvanna
