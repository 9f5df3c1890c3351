#include "games/lettermine/frmLettermine.h"

#include <algorithm>

#include "common/Format.h"
#include "common/frame/CountUp.h"
#include "forms/DesignScale.h"

namespace corvanna {

namespace {

constexpr Color kSolvedGreen = 0x00C000;
constexpr Color kPhraseFrame = 0x0A4A22;
constexpr int kLetterTimerMs = 90;
constexpr int kSolvedWaitMs = 2000;
constexpr int kGuessBonusWaitMs = 400;

Control& frame(Form& f, const std::string& name, const std::string& caption, Color fore,
               Color back) {
    Control& c = f.add<Control>(ControlKind::Frame, name, -1, nullptr);
    c.setCaption(caption);
    c.setForeColor(fore);
    c.setBackColor(back);
    c.setFont(9, true);
    return c;
}

}  // namespace

frmLettermine::frmLettermine(Program& prog, const GameInfo& info)
    : GameFrame(prog, info),
      fmPhrase(frame(*this, "fmPhrase", "Current Phrase", colors::White, kPhraseFrame)),
      frmGuess(frame(*this, "frmGuess", "Guesses Remaining", colors::Black, colors::LightGrey)),
      ProgressBar1(add<ProgressBar>("ProgressBar1", -1, nullptr)),
      Timer5(add<Timer>("Timer5", -1, kLetterTimerMs)),
      cmdSolve(add<Control>(ControlKind::CommandButton, "cmdSolve", -1, nullptr)),
      mnuSolve(addMenuAfter("mnuSolve", "Solve &It", mnuPlay)),
      lblLetterValue(AddLabel("lblLetterValue", "Next Letter is worth:", 9, true, colors::White)),
      txtLetterValue(add<TextBox>("txtLetterValue", -1, nullptr)),
      DummyCommand(add<Control>(ControlKind::CommandButton, "DummyCommand", -1, nullptr)),
      mnuTopic(addMenuAfter("mnuTopic", "T&opic Selection", mnuTime)),
      unhappyPicture_("SmileySad") {
    for (int i = 0; i < PhraseLayout::kCells; ++i) {
        // A white tile whose letter fills it, so the phrase reads from across the room.
        Control& cell = AddLabel("lblLetter", "", 16, true, colors::Blue, i, &fmPhrase);
        cell.setBackTransparent(false);
        cell.setBackColor(colors::White);
        cell.setBorder(true);
        cell.setVisible(false);
        lblLetter[static_cast<std::size_t>(i)] = &cell;
    }
    for (int i = 0; i < LettermineRound::kLetters; ++i) {
        Control& b = add<Control>(ControlKind::CommandButton, "cmdLetter", i, nullptr);
        b.setCaption(std::string(1, static_cast<char>('A' + i)));
        b.setFont(10, true);
        b.Click = [this, i] { cmdLetter_Click(i); };
        cmdLetter[static_cast<std::size_t>(i)] = &b;
    }
    for (int i = 0; i < LettermineRound::kSmileys; ++i) {
        Control& img = add<Control>(ControlKind::Image, "Guess", i, &frmGuess);
        img.setPicture(GuessPicture("HAPPY"));
        Guess[static_cast<std::size_t>(i)] = &img;
    }
    for (int t = 0; t <= PhraseSupply::kTopics; ++t) {
        const TopicInfo& topic = PhraseSupply::topic(t);
        Menu& m = addMenu(topic.menu, topic.menuCaption, &mnuTopic);
        m.Click = [this, t] { SelectTopic(t); };
        mnuTopicEntry[static_cast<std::size_t>(t)] = &m;
    }
    ProgressBar1.setMin(0);
    ProgressBar1.setMax(100);
    Timer5.stop();
    Timer5.OnTimer = [this] { Timer5_Timer(); };
    cmdSolve.setCaption("Solve &It!");
    cmdSolve.setToolTipText("Solve  the current puzzle");
    cmdSolve.Click = [this] { cmdSolve_Click(); };
    mnuSolve.Click = [this] { cmdSolve_Click(); };
    cmdSolve.setEnabled(false);
    mnuSolve.setEnabled(false);
    txtLetterValue.setLocked(true);
    txtLetterValue.setAlignment(Align::Center);
    txtLetterValue.setFont(12, true);
    txtLetterValue.setForeColor(colors::Blue);
    txtLetterValue.setBackColor(colors::White);
    DummyCommand.setVisible(false);
    mnuCustom.Click = [this] { mnuCustom_Click(); };
    // A moved message goes back over the board with its next text.
    lblMessage.Change = [this] {
        messageOverGuesses_ = false;
        PlaceMessage();
    };

    // The board and its letters wait behind the splash until a round deals a phrase.
    ShowControls(false, true, false);
    ShowClockBox(true);
    ShowRoundBox(true);
    lblHighScore.setVisible(true);
    lblMessage.bringToFront();
    if (lblScoring)
        lblScoring->bringToFront();
    frmSplash.bringToFront();
    Form_Resize();  // the frame laid out before these controls existed
}

LettermineValues& frmLettermine::values() {
    return lettermineValues(prog_);
}

PhraseSupply& frmLettermine::phrases() {
    return prog_.gameValues<PhraseSupply>();
}

// ---- Painting the round

void frmLettermine::PaintCell(std::size_t cell) {
    lblLetter[cell]->setCaption(round.board.caption[cell]);
    lblLetter[cell]->setVisible(round.board.shown[cell]);
}

void frmLettermine::PaintBoard() {
    for (std::size_t i = 0; i < PhraseLayout::kCells; ++i) {
        lblLetter[i]->setForeColor(colors::Blue);
        PaintCell(i);
    }
}

void frmLettermine::PaintLetters() {
    for (int i = 0; i < LettermineRound::kLetters; ++i)
        cmdLetter[static_cast<std::size_t>(i)]->setEnabled(
            round.letterEnabled[static_cast<std::size_t>(i)]);
}

void frmLettermine::PaintGuess(int index) {
    if (index < 0 || index >= LettermineRound::kSmileys)
        return;
    Control& img = *Guess[static_cast<std::size_t>(index)];
    img.setPicture(GuessPicture(round.Guess[static_cast<std::size_t>(index)]));
    img.refresh();
}

std::size_t frmLettermine::phraseCells() const {
    return std::min<std::size_t>(round.board.text.size(), PhraseLayout::kCells);
}

void frmLettermine::ColourPhrase(Color color) {
    for (std::size_t i = 0; i < phraseCells(); ++i)
        lblLetter[i]->setForeColor(color);
}

std::string frmLettermine::GuessPicture(const std::string& key) const {
    if (key == "HAPPY")
        return "SmileyHappy";
    if (key == "BLANK")
        return "SmileyBlank";
    if (key == "UNHAPPY")
        return unhappyPicture_;
    return "";
}

void frmLettermine::SelectUnhappyPicture(int index) {
    // Pictures already given stay as they are; the next lost guess gets the new one.
    unhappyPicture_ = index == 1 ? "SmileyBanned" : "SmileySad";
}

void frmLettermine::DrawLetterValue() {
    LetterValue = static_cast<std::int32_t>(
        prog_.randomNumber(1, std::max<std::int32_t>(1, round.board.MaxLetterUnits)) * 250);
    txtLetterValue.setText(std::to_string(LetterValue));
}

void frmLettermine::ShowControls(bool show, bool scoreShown, bool valueShown,
                                 bool keepLetterState) {
    ShowClockBox(show);
    ShowRoundBox(show);
    ProgressBar1.setVisible(show);
    fmPhrase.setVisible(show);
    for (Control* b : cmdLetter)
        b->setVisible(show);
    for (Control* c : std::initializer_list<Control*>{&lblScore, &lblCurrentScore, &ScoreRectangle})
        c->setVisible(scoreShown);
    for (Control* c : std::initializer_list<Control*>{&lblLetterValue, &txtLetterValue,
                                                      &lblHighScore, &frmGuess})
        c->setVisible(valueShown);
    if (!keepLetterState) {
        round.enableLetters(show);
        PaintLetters();
    }
}

void frmLettermine::ShowControls(bool visible, bool second) {
    ShowControls(visible, second, visible);
}

void frmLettermine::EnableVowels(bool enabled) {
    round.enableVowels(enabled);
    PaintLetters();
}

void frmLettermine::ShowPickMessage(const std::string& text) {
    lblMessage.setCaption(text);
    messageOverGuesses_ = true;
    PlaceMessage();
    lblMessage.setVisible(true);
    lblMessage.refresh();
}

void frmLettermine::PlaceMessage() {
    if (messageOverGuesses_) {
        // Over the smileys and the letter value, which the picking phase hides.
        const int right = frmGuess.left() + frmGuess.width();
        lblMessage.move(lblLetterValue.left(), frmGuess.top(), right - lblLetterValue.left(),
                        frmGuess.height());
    } else if (messageWidth_ > 0) {
        lblMessage.move(messageLeft_, messageTop_, messageWidth_, messageHeight_);
    }
}

// ---- The round

void frmLettermine::NewGame() {
    PhrasesSolved = 0;
}

bool frmLettermine::DealRound() {
    auto& v = values();
    PhraseLayout layout;
    std::string caption;
    phrases().GetPlayablePhrase(prog_, v.CurrentTopic, caption, layout);
    fmPhrase.setCaption(caption);
    round.start(layout, v.GuessCount, bonusRound());
    lblLetterValue.setCaption("Next Letter is worth:");
    PaintBoard();
    // The bonus round's smileys stay hidden as the last round left them.
    if (!bonusRound())
        for (int i = 0; i <= round.GuessIndex; ++i)
            PaintGuess(i);
    DrawLetterValue();
    return true;
}

bool frmLettermine::ClockRunsFromDeal() const {
    // The bonus round's clock starts once its six letters are picked.
    return !bonusRound();
}

bool frmLettermine::RoundPlaysTune() const {
    return !bonusRound();
}

std::string frmLettermine::RoundGoalLine() const {
    return bonusRound() ? "Bonus Round!   " : GameFrame::RoundGoalLine();
}

void frmLettermine::RoundStarted() {
    if (bonusRound()) {
        cmdSolve.setEnabled(false);
        mnuSolve.setEnabled(false);
        ShowControls(true, true, false);
        ShowPickMessage("Select 5 consonants and 1 vowel");
        // Only the letter timer runs while the six are picked.
        StartRoundTimer(Timer5);
        return;
    }
    cmdSolve.setEnabled(true);
    mnuSolve.setEnabled(true);
    lblMessage.setVisible(false);
    ShowControls(true, true, true);
    EnableVowels(false);
    ProgressBar1.setValue(ProgressBar1.min());
}

void frmLettermine::cmdLetter_Click(int index) {
    if (refusingClicks() || index < 0 || index >= LettermineRound::kLetters ||
        !round.letterEnabled[static_cast<std::size_t>(index)])
        return;
    if (round.BonusPicking)
        PickForBonus(index);
    else
        PickLetter(index);
}

bool frmLettermine::PickLetter(int index) {
    setMousePointer(MousePointer::Hourglass);
    const LettermineRound::Pick p = round.pick(index);
    if (p.found) {
        PlayWaveFile("Click.wav");
    } else if (round.SolveMode) {
        lblMessage.setCaption("");
    } else {
        PlayWaveFile("Chord.wav");
        PaintGuess(p.smileyLost);
    }
    PaintLetters();
    // Each occurrence pays the value on show when the letter was clicked.
    for (int cell : p.cells) {
        PaintCell(static_cast<std::size_t>(cell));
        AddToScore(LetterValue);
    }
    ProgressBar1.setValue(ProgressBar1.min());
    bool ended = false;
    if (p.lost) {
        Reveal();
        EndRound();
        ended = true;
    } else if (p.complete) {
        ++PhrasesSolved;
        ColourPhrase(kSolvedGreen);
        fmPhrase.refresh();
        PlayWaveFile("Applause.wav");
        prog_.platform.sleep(kSolvedWaitMs);
        EndRound();
        ended = true;
    }
    // A new value after every pick, also the one that ended the round: the next round's
    // first letter pays it. Solve mode keeps the value locked.
    if (!round.SolveMode)
        DrawLetterValue();
    DummyCommand.setFocus();
    setMousePointer(MousePointer::Default);
    return ended;
}

void frmLettermine::PickForBonus(int index) {
    PlayWaveFile("Click.wav");
    DummyCommand.setFocus();
    const LettermineRound::BonusPick b = round.pickForBonus(index);
    if (!b.taken)
        return;
    PaintLetters();
    if (!b.done) {
        ShowPickMessage(b.message);
        return;
    }
    lblMessage.setCaption("");
    lblMessage.setVisible(false);
    // The six are tried in the order picked, as clicks; one that ends the round ends it.
    const auto picks = round.BonusPicks;
    for (std::int16_t code : picks)
        if (PickLetter(code - 'A'))
            return;
    round.startBonusSolve();
    PaintLetters();
    lblLetterValue.setCaption("All Letters worth:");
    lblLetterValue.setVisible(true);
    txtLetterValue.setVisible(true);
    StartRoundTimer(Timer1);
}

void frmLettermine::cmdSolve_Click() {
    if (refusingClicks() || !cmdSolve.enabled() || bonusRound())
        return;
    Timer1.stop();
    round.solve();
    for (Control* c : std::initializer_list<Control*>{&cmdPlay, &cmdPause, &cmdSolve, &cmdExit,
                                                      &mnuPlay, &mnuPause, &mnuSolve, &mnuExit})
        c->setEnabled(false);
    ProgressBar1.setValue(ProgressBar1.min());
    PaintLetters();
}

void frmLettermine::Timer5_Timer() {
    if (g_.TakingScore || !g_.GameInProgress)
        return;
    if (ProgressBar1.value() < ProgressBar1.max()) {
        ProgressBar1.setValue(ProgressBar1.value() + 1);
        return;
    }
    // Full: in normal play a smiley goes and the bar starts again; in solve mode and the
    // bonus round the round is lost.
    const bool lastChance = round.SolveMode || bonusRound();
    const int smiley = round.GuessIndex;
    const bool goesOn = round.timerFull(g_.RoundNumber);
    if (!lastChance) {
        PaintGuess(smiley);
        ProgressBar1.setValue(ProgressBar1.min());
        PlayWaveFile("Chord.wav");
    }
    if (!goesOn)
        LoseToLetterTimer();
}

void frmLettermine::LoseToLetterTimer() {
    setMousePointer(MousePointer::Hourglass);
    lblMessage.setCaption("");
    lblMessage.setVisible(false);
    Timer5.stop();
    Reveal();
    EndRound();
    setMousePointer(MousePointer::Default);
}

void frmLettermine::Reveal() {
    round.reveal();
    ColourPhrase(colors::Red);
    for (std::size_t i = 0; i < phraseCells(); ++i)
        PaintCell(i);
    fmPhrase.refresh();
    PlayWaveFile("Slide.wav");
    prog_.platform.sleep(std::max<int>(0, values().ShowPhraseMs));
}

void frmLettermine::EndRound() {
    if (!g_.TakingScore)
        RunEndOfRound();
}

void frmLettermine::HideBoardAtTimeOut() {
    setMousePointer(MousePointer::Hourglass);
    Reveal();
    ShowControls(false, true);
}

bool frmLettermine::BonusRoundEarned() const {
    return g_.Score >= g_.BonusRoundScore && PhrasesSolved >= 2;
}

void frmLettermine::AwardRoundBonuses() {
    lblMessage.setForeColor(colors::Red);
    // A lost round or one that ran out of time earns nothing beyond its letters.
    if (round.GuessIndex == -1 || g_.ElapsedSeconds >= g_.RoundSeconds) {
        ShowControls(false, true);
        return;
    }
    const auto& v = values();
    lblCurrentScore.setForeColor(colors::Cyan);
    for (int i = round.GuessIndex; i >= 0; --i) {
        round.blankGuess(i);
        PaintGuess(i);
        AddToScore(v.GuessBonus);
        PlayWaveFile("Snap.wav");
        prog_.platform.sleep(kGuessBonusWaitMs);
    }
    lblCurrentScore.setForeColor(colors::Blue);
    // The bonuses count up over an empty board.
    ShowControls(false, true);
    if (round.RoundSolved)
        CountBonus(*this, 1, v.CompletionBonus, "Phrase Completion Bonus");
    if (g_.RoundSeconds - g_.ElapsedSeconds > 0)
        SpeedBonus(*this, g_.TimeBonus);
}

void frmLettermine::AfterRoundEnd() {
    if (lblScoring)
        lblScoring->setVisible(false);
}

void frmLettermine::ShowPauseMessage(bool paused) {
    GameFrame::ShowPauseMessage(paused);
    if (paused) {
        // The board and the alphabet vanish; the letters keep their state.
        ShowControls(false, true, false, true);
        return;
    }
    ShowControls(true, true, true, true);
    if (!round.LetterHit && g_.RoundNumber < 3)
        EnableVowels(false);
}

void frmLettermine::EnableLeavingCommands(bool enabled) {
    GameFrame::EnableLeavingCommands(enabled);
    // Solve It is offered in the first two rounds only.
    const bool solve = enabled && g_.RoundNumber < 3;
    cmdSolve.setEnabled(solve);
    mnuSolve.setEnabled(solve);
}

void frmLettermine::EnableGameOptions(bool enabled) {
    GameFrame::EnableGameOptions(enabled);
    mnuTopic.setEnabled(enabled);
}

void frmLettermine::ClearBoardAtQuit() {
    round.BonusPicking = false;
    round.SolveMode = false;
    lblMessage.setVisible(false);
    ShowControls(false, true);
}

void frmLettermine::EnterIdle(bool afterGameOver) {
    (void)afterGameOver;
    SetStatus(1, "Welcome to " + g_.AppTitle);
    cmdSolve.setEnabled(false);
    mnuSolve.setEnabled(false);
    round.BonusPicking = false;
}

void frmLettermine::Leaving() {
    round.BonusPicking = false;
    phrases().SavePhraseFiles(prog_);
}

// ---- Topics

void frmLettermine::SelectTopic(int topic) {
    values().CurrentTopic = static_cast<std::int16_t>(std::clamp(topic, 0, PhraseSupply::kTopics));
    CheckTopicMenu();
    ShowHighScore();
}

void frmLettermine::CheckTopicMenu() {
    for (int t = 0; t <= PhraseSupply::kTopics; ++t)
        mnuTopicEntry[static_cast<std::size_t>(t)]->setChecked(t == values().CurrentTopic);
}

void frmLettermine::SettingsApplied() {
    CheckTopicMenu();
}

// ---- Layout

void frmLettermine::LayoutBoard(int left, int top, int width, int height) {
    // The board at its design size, scaled as one piece into the frame's board area.
    constexpr int kW = 6400, kH = 5750;
    DesignScale d = DesignScale::fit(width, height, kW, kH);
    d.ox += left;
    d.oy += top;
    // Where a row of count pieces, each w wide and step apart, starts centred in a width.
    auto centred = [](int within, int count, int w, int step) {
        return (within - ((count - 1) * step + w)) / 2;
    };

    // Six rows of fifteen cells in the phrase frame.
    constexpr int cellW = 400, cellH = 440, cellStep = 415, rowStep = 455;
    d.place(fmPhrase, 0, 0, kW, 3150);
    const DesignScale in = d.inside();
    const int cellsLeft = centred(kW, PhraseLayout::kColumns, cellW, cellStep);
    for (int i = 0; i < PhraseLayout::kCells; ++i) {
        const int r = i / PhraseLayout::kColumns, c = i % PhraseLayout::kColumns;
        in.place(*lblLetter[static_cast<std::size_t>(i)], cellsLeft + c * cellStep,
                 300 + r * rowStep, cellW, cellH);
    }

    // The letter timer just above the alphabet, thirteen letters a row.
    d.place(ProgressBar1, 110, 3280, kW - 220, 200);
    constexpr int keyW = 460, keyStep = 476, keyH = 390;
    const int keysLeft = centred(kW, 13, keyW, keyStep);
    for (int i = 0; i < LettermineRound::kLetters; ++i)
        d.place(*cmdLetter[static_cast<std::size_t>(i)], keysLeft + (i % 13) * keyStep,
                3570 + (i / 13) * (keyH + 40), keyW, keyH);

    // The letter value in the lower left corner, the smileys, Solve It.
    d.place(lblLetterValue, 0, 4560, 2000, 300);
    d.place(txtLetterValue, 150, 4880, 1700, 420);
    d.place(frmGuess, 2150, 4480, 2900, 820);
    constexpr int smileyW = 330, smileyH = 300, smileyStep = 345;
    const int smileysLeft = centred(2900, LettermineRound::kSmileys, smileyW, smileyStep);
    for (int i = 0; i < LettermineRound::kSmileys; ++i)
        in.place(*Guess[static_cast<std::size_t>(i)], smileysLeft + i * smileyStep, 380, smileyW,
                 smileyH);
    d.place(cmdSolve, 5200, 4580, 1200, 640);
    d.place(DummyCommand, 5200, 4580, 1200, 640);  // never shown: it only takes the focus

    // The frame centred the message over the board; the picks move it over the smileys.
    messageLeft_ = lblMessage.left();
    messageTop_ = lblMessage.top();
    messageWidth_ = lblMessage.width();
    messageHeight_ = lblMessage.height();
    PlaceMessage();
}

}  // namespace corvanna
