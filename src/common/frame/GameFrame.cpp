#include "common/frame/GameFrame.h"

#include <filesystem>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/Intervals.h"
#include "common/PlayCounts.h"
#include "common/frame/Clock.h"

namespace corvanna {

namespace {

Control& make(Form& f, ControlKind kind, const std::string& name, Control* parent = nullptr,
              int index = -1) {
    return f.add<Control>(kind, name, index, parent);
}

Shape& makeShape(Form& f, const std::string& name, Color border, bool filled, Color fill) {
    Shape& s = f.add<Shape>(name, -1, nullptr);
    s.setBorderColor(border);
    s.setFilled(filled);
    s.setBackColor(fill);
    return s;
}

Menu& separatorAfter(Form& f, Menu& item, const std::string& name) {
    f.addMenu(name, "-", item.parentMenu());
    return item;
}

Control& label(Form& f, const std::string& name, const std::string& caption, double size, bool bold,
               Color color, Control* parent = nullptr) {
    Control& l = make(f, ControlKind::Label, name, parent);
    l.setCaption(caption);
    l.setFont(size, bold);
    l.setForeColor(color);
    return l;
}

}  // namespace

GameFrame::GameFrame(Program& prog, const GameInfo& info)
    : Form(prog.platform, info.formName),
      cmdPlay(make(*this, ControlKind::CommandButton, "cmdPlay")),
      cmdPause(make(*this, ControlKind::CommandButton, "cmdPause")),
      cmdTakeScore(info.hasTakeScore ? &make(*this, ControlKind::CommandButton, "cmdTakeScore")
                                     : nullptr),
      cmdExit(make(*this, ControlKind::CommandButton, info.exitButton)),
      Timer1(add<Timer>("Timer1", -1, ms::RoundClockTick)),
      Timer2(add<Timer>("Timer2", -1, ms::ClockRepaint)),
      Timer3(add<Timer>(info.timeOfDayTimer, -1, ms::TimeOfDay)),
      Timer4(add<Timer>("Timer4", -1, info.splashMs)),
      TimerRectangle(makeShape(*this, "TimerRectangle", colors::Black, true, 0x1E4D2B)),
      TimerBevelSide(makeShape(*this, "TimerBevelSide", colors::Black, true, 0x0A2614)),
      TimerBevelBottom(makeShape(*this, "TimerBevelBottom", colors::Black, true, 0x0A2614)),
      Surface(add<PictureBox>("Surface", -1, nullptr)),
      lblTime(label(*this, "lblTime", "Time:", 11, true, colors::White)),
      ScoreRectangle(makeShape(*this, "ScoreRectangle", colors::Black, true, colors::White)),
      lblScore(label(*this, "lblScore", "Score:", 10, true, colors::White)),
      lblCurrentScore(label(*this, info.scoreLabel, "0", 16, true, colors::Blue)),
      RoundRectangle(makeShape(*this, "RoundRectangle", colors::Black, true, colors::White)),
      RoundBevelSide(makeShape(*this, "RoundBevelSide", colors::Black, true, 0x0A2614)),
      RoundBevelBottom(makeShape(*this, "RoundBevelBottom", colors::Black, true, 0x0A2614)),
      lblRound(label(*this, "lblRound", info.roundLabelAlone ? "Round: 1" : "Round:", 10, true,
                     info.roundLabelAlone ? colors::Black : colors::White)),
      lblCurrentRound(info.roundLabelAlone
                          ? nullptr
                          : &label(*this, "lblCurrentRound", "1", 16, true, colors::Black)),
      lblHighScore(label(*this, "lblHighScore", info.highScorePrefix, 9, true, colors::Yellow)),
      lblMessage(label(*this, info.messageLabel, "", 24, true, colors::Red)),
      lblScoring(info.hasScoringLabel ? &label(*this, "lblScoring", "", 20, true, colors::Red)
                                      : nullptr),
      frmSplash(add<PictureBox>("frmSplash", -1, nullptr)),
      imgSplashImage{},
      lblProductName(label(*this, "lblProductName", "", 30, true, colors::White, &frmSplash)),
      lblCompanyProduct(label(*this, "lblCompanyProduct", "Velmora Presents", 12, false,
                              colors::White, &frmSplash)),
      lblVersion(label(*this, "lblVersion", "Version 7.0", 10, false, colors::White, &frmSplash)),
      lblPlatform(label(*this, "lblPlatform", "Linux", 10, false, colors::White, &frmSplash)),
      StatusBar1(add<StatusBar>("StatusBar1", 3)),
      mnuFile(addMenu(info.fileMenu, info.fileMenuCaption)),
      mnuPlay(addMenu("mnuPlay", "&Play", &mnuFile)),
      mnuTakeScore(info.hasTakeScoreMenu ? &addMenu("mnuTakeScore", "&Take Score", &mnuFile)
                                         : nullptr),
      mnuPause(
          separatorAfter(*this, addMenu("mnuPause", info.pauseCaption, &mnuFile), "mnuBreak0")),
      mnuExit(addMenu("mnuExit", "E&xit", &mnuFile)),
      mnuOptions(addMenu("mnuOptions", "&Options")),
      mnuViewHighScores(addMenu(info.viewMenu, "&View High Scores...", &mnuOptions)),
      mnuClearHighScores(separatorAfter(
          *this, addMenu(info.clearMenu, "&Clear High Scores...", &mnuOptions), "mnuBreak1")),
      mnuTime(addMenu(info.timeMenu, "&Time Limit", &mnuOptions)),
      mnuCustom(separatorAfter(*this, addMenu(info.customMenu, info.customCaption, &mnuOptions),
                               "mnuBreak2")),
      mnuMusic(addMenu("mnuMusic", "Play &Music (plays during game)", &mnuOptions)),
      mnuSounds(addMenu("mnuSounds", "&Play Sounds", &mnuOptions)),
      mnuDeck(nullptr),
      mnuPalm(nullptr),
      mnuMagic(nullptr),
      mnuNight(nullptr),
      mnuHot(nullptr),
      mnuHelp(addMenu("mnuHelp", "&Help")),
      mnuRules(separatorAfter(*this, addMenu("mnuRules", info.rulesCaption, &mnuHelp), "mnuSep2")),
      mnuAbout(addMenu("mnuAbout", info.aboutCaption, &mnuHelp)),
      prog_(prog),
      g_(prog.state),
      info_(info) {
    // Splash cards sit inside the splash panel, behind its texts.
    for (int i = 0; i < 4; ++i) {
        imgSplashImage[i] = &make(*this, ControlKind::Image, "imgSplashImage", &frmSplash, i);
        imgSplashImage[i]->sendToBack();
    }
    frmSplash.setBackColor(0x0F3D1E);
    lblMessage.setVisible(false);
    lblMessage.setAlignment(Align::Center);
    if (lblScoring) {
        lblScoring->setVisible(false);
        lblScoring->setAlignment(Align::Center);
    }
    for (Control* c : {&lblTime, &lblCurrentScore, &lblRound, &lblHighScore, &lblProductName,
                       &lblCompanyProduct, &lblVersion, &lblPlatform, &lblScore})
        c->setAlignment(Align::Center);
    if (lblCurrentRound)
        lblCurrentRound->setAlignment(Align::Center);
    Surface.setBackColor(0x1E4D2B);
    Surface.setToolTipText("Displays time remaining in current round");
    setBackColor(colors::FeltGreen);
    // Every game is played by arrow keys and Space as well as by the mouse.
    setKeyboardPlay(true);
    buildMenus();
    wireHandlers();
    setBounds(0, 0, info.minWidth, info.minHeight);
    layout();
}

GameFrame::~GameFrame() = default;

void GameFrame::buildMenus() {
    for (const auto& entry : info_.timeLimits) {
        Menu& m = addMenu("mnu" + std::to_string(entry.seconds), entry.caption, &mnuTime);
        const int seconds = entry.seconds;
        m.Click = [this, seconds] { SetTimeLimit(seconds); };
    }
    if (!info_.deckDesigns.empty()) {
        mnuDeck = &addMenu("mnuDeck", "Dec&k", &mnuOptions);
        mnuPalm = &addMenu("mnuPalm", "&Palm Tree", mnuDeck);
        mnuMagic = &addMenu("mnuMagic", "&Magic Hands", mnuDeck);
        mnuNight = &addMenu("mnuNight", "&Night Castle", mnuDeck);
        mnuHot = &addMenu("mnuHot", "&Hot Cards", mnuDeck);
        // Each game numbers the designs its own way; the menu sets that number.
        for (int deckBack = 1; deckBack <= 4; ++deckBack)
            DesignMenu(info_.deckDesigns[static_cast<std::size_t>(deckBack - 1)])->Click =
                [this, deckBack] { SelectDeckBack(deckBack); };
    }
}

void GameFrame::wireHandlers() {
    auto unlessEndingRound = [this](void (GameFrame::*handler)()) {
        return [this, handler] {
            if (!endingRound())
                (this->*handler)();
        };
    };
    auto command = [this](void (GameFrame::*handler)(bool), bool fromMenu) {
        return [this, handler, fromMenu] {
            if (!endingRound())
                (this->*handler)(fromMenu);
        };
    };
    cmdPlay.Click = command(&GameFrame::PlayCommand, false);
    mnuPlay.Click = command(&GameFrame::PlayCommand, true);
    cmdPause.Click = unlessEndingRound(&GameFrame::Pause);
    mnuPause.Click = unlessEndingRound(&GameFrame::Pause);
    if (cmdTakeScore)
        cmdTakeScore->Click = command(&GameFrame::TakeScoreCommand, false);
    if (mnuTakeScore)
        mnuTakeScore->Click = command(&GameFrame::TakeScoreCommand, true);
    auto leave = [this] {
        if (!endingRound())
            prog_.requestUnload(*this);
    };
    cmdExit.Click = leave;
    mnuExit.Click = leave;
    Timer1.OnTimer = [this] { Timer1_Timer(); };
    Timer2.OnTimer = [this] { Timer2_Timer(); };
    Timer3.OnTimer = [this] { Timer3_Timer(); };
    Timer4.OnTimer = [this] { Timer4_Timer(); };
    mnuMusic.Click = [this] {
        g_.MusicOn = !g_.MusicOn;
        mnuMusic.setChecked(g_.MusicOn);
        // Switched on, it plays only while a round runs: between rounds the next deal
        // starts it, and after the last round nothing does.
        if (!g_.MusicOn && g_.GameInProgress)
            StopMusic();
        else if (g_.MusicOn && roundRunning() && !endingRound())
            StartMusic();
    };
    mnuSounds.Click = [this] {
        g_.SoundsOn = !g_.SoundsOn;
        mnuSounds.setChecked(g_.SoundsOn);
    };
    auto dialog = [this](std::function<void()> SharedDialogs::*which) {
        // Never over a round half paid: a click held through its waits finds nothing to do.
        return [this, which] {
            if (const auto& open = prog_.dialogs.*which; open && !endingRound())
                RunPausingDialog(open);
        };
    };
    mnuAbout.Click = dialog(&SharedDialogs::about);
    mnuRules.Click = dialog(&SharedDialogs::rules);
    mnuViewHighScores.Click = dialog(&SharedDialogs::viewHighScores);
    mnuClearHighScores.Click = [this] {
        // Not over a round half paid either: the table it would clear is about to be ranked.
        if (prog_.dialogs.clearHighScores && !endingRound())
            prog_.dialogs.clearHighScores();
    };
    QueryUnload = [this](bool& cancel) { Form_Unload(cancel); };
    Resize = [this] { Form_Resize(); };
}

void GameFrame::Form_Load() {
    setMousePointer(MousePointer::Hourglass);
    Timer4.start();
    StopRoundTimers();
    Timer2.stop();
    g_.GameInProgress = false;

    g_.CustomScoring = false;
    // The table the settings select is shown once they are read, and no other is touched.
    loading_ = true;
    SetDefaults();
    SetGameDefaults();
    // The design on show stays until [Deck] names another: the last game's, if need be.
    CheckDesignOnShow();
    mnuSounds.setChecked(g_.SoundsOn);
    mnuMusic.setChecked(g_.MusicOn);

    setCaption(g_.AppTitle);
    SetStatus(1, "Welcome to " + g_.AppTitle + info_.welcomeSuffix);
    Timer3_Timer();
    Timer3.start();

    // A first start gets a file with the defaults; then the file is read, whatever it holds.
    std::error_code noFile;
    if (!std::filesystem::exists(settingsPath(), noFile))
        WriteSettings();
    ReadSettingsINI(settingsPath());
    CheckForCustom();
    SettingsApplied();
    g_.GamesPlayedCount = CountGamePlayed(prog_, g_.AppTitle);
    g_.FormLoadTime = prog_.platform.now();
    loading_ = false;
    ShowHighScore();

    lblProductName.setCaption(g_.AppTitle);
    frmSplash.setVisible(true);
    for (int i = 0; i < 4; ++i)
        imgSplashImage[i]->setPicture(prog_.pictures.picture("BACK"));

    ShowClockBox(true);
    InitClock(*this);
    if (info_.clockRepaintAtLoad)
        Timer2.start();
    cmdPlay.setCaption("&Play");
    cmdPlay.setToolTipText("Starts a new game");
    cmdPause.setCaption(info_.pauseCaption);
    cmdPause.setToolTipText(info_.pauseTip);
    cmdPause.setEnabled(false);
    mnuPause.setEnabled(false);
    if (cmdTakeScore) {
        cmdTakeScore->setCaption("&Take Score");
        cmdTakeScore->setToolTipText(info_.takeScoreTip);
    }
    EnableTakeScore(false);
    cmdExit.setCaption(info_.exitCaption);
    cmdExit.setToolTipText(info_.exitTip);

    // A screen smaller than the window (1024 by 768 at 200%) gets a window it can show whole.
    ShrinkToScreen(*this, prog_.platform);
    CentreOnScreen(*this, prog_.platform);
    setMousePointer(MousePointer::Default);
}

void GameFrame::ShowControls(bool visible, bool second) {
    (void)second;
    ShowClockBox(visible);
    ShowRoundBox(visible);
    lblHighScore.setVisible(visible);
}

Control& GameFrame::AddLabel(const std::string& name, const std::string& caption, double size,
                             bool bold, Color color, int index, Control* parent) {
    Control& l = add<Control>(ControlKind::Label, name, index, parent);
    l.setCaption(caption);
    l.setFont(size, bold);
    l.setForeColor(color);
    l.setAlignment(Align::Center);
    return l;
}

void GameFrame::ShowClockBox(bool visible) {
    for (Control* c : std::initializer_list<Control*>{&Surface, &TimerRectangle, &TimerBevelBottom,
                                                      &TimerBevelSide, &lblTime})
        c->setVisible(visible);
}

void GameFrame::ShowRoundBox(bool visible) {
    for (Control* c : std::initializer_list<Control*>{&lblRound, &RoundRectangle, &RoundBevelSide,
                                                      &RoundBevelBottom})
        c->setVisible(visible);
    if (lblCurrentRound)
        lblCurrentRound->setVisible(visible);
}

std::string GameFrame::currentRoundCaption() const {
    const bool bonus = g_.RoundNumber > info_.normalRounds;
    return bonus && !info_.bonusRoundCaption.empty() ? info_.bonusRoundCaption
                                                     : std::to_string(g_.RoundNumber);
}

}  // namespace corvanna
