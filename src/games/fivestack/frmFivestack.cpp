#include "games/fivestack/frmFivestack.h"

#include <algorithm>
#include <cmath>

#include "common/Format.h"
#include "common/frame/Clock.h"
#include "common/frame/CountUp.h"
#include "forms/DesignScale.h"

namespace corvanna {

namespace {

constexpr Color kGreen = 0x00C000;

Control& image(Form& f, const std::string& name, int index = -1) {
    Control& c = f.add<Control>(ControlKind::Image, name, index, nullptr);
    c.setVisible(false);
    return c;
}

Control& button(Form& f, const std::string& name, const std::string& caption, int index = -1) {
    Control& b = f.add<Control>(ControlKind::CommandButton, name, index, nullptr);
    b.setCaption(caption);
    return b;
}

// The table's rows: "< 97" and 97 to 105, their names and values.
struct TableRow {
    const char* total;
    const char* totalName;
    const char* valueName;
    const char* value;
};
constexpr TableRow kTable[10] = {
    {"< 97", "lblNothing", "lblScore0", "0"}, {"97", "lbl97", "lblscore97", "50"},
    {"98", "lbl98", "lblscore98", "100"},     {"99", "lbl99", "lblscore99", "150"},
    {"100", "lbl100", "lblscore100", "200"},  {"101", "lbl101", "lblscore101", "250"},
    {"102", "lbl102", "lblscore102", "300"},  {"103", "lbl103", "lblscore103", "400"},
    {"104", "lbl104", "lblScore104", "500"},  {"105", "lbl105", "lblScore105", "1000"},
};

}  // namespace

frmFivestack::frmFivestack(Program& prog, const GameInfo& info)
    : GameFrame(prog, info),
      NextCardPicture(image(*this, "NextCardPicture")),
      PlayCardPicture(image(*this, "PlayCardPicture")),
      lblCurrentRoundScore(
          AddLabel("lblCurrentRoundScore", "Card Total:", 10, true, colors::White)),
      lblCurrentTotal(AddLabel("lblCurrentTotal", "0", 20, true, colors::Red)),
      lblTimeBonus(AddLabel("lblTimeBonus", "", 11, true, colors::White)),
      cmdGiveUp(button(*this, "cmdGiveUp", "&Give Up")),
      cmdPass(button(*this, "cmdPass", "&Pass")),
      frmScore(add<Control>(ControlKind::Frame, "frmScore", -1, nullptr)),
      ScoringLabelInfo(AddLabel("ScoringLabelInfo", "", 11, true, colors::Black)),
      ScoringLabelRoundTotal(AddLabel("ScoringLabelRoundTotal", "", 12, true, colors::Black)),
      ScoringLabelOutline(add<Shape>("ScoringLabelOutline", -1, nullptr)) {
    for (int c = 0; c < FivestackBoard::kColumns; ++c) {
        const std::string name = "Column" + std::to_string(c + 1);
        for (int r = 0; r < FivestackBoard::kCardsPerColumn; ++r)
            Column[c][r] = &image(*this, name, r);
        cmdHit[c] = &button(*this, "cmdHit", "Hit", c);
        cmdHit[c]->Click = [this, c] { cmdHit_Click(c); };
        cmdHit[c]->setToolTipText("Places the card on offer in this column");
        ColumnTotal[c] = &AddLabel("ColumnTotal", "0", 12, true, colors::White, c);
        ColumnSoft[c] = &AddLabel("ColumnSoft", "", 9, true, colors::Yellow, c);
    }
    frmScore.setCaption("Card Total Value");
    // A light card for the table, so its black rows and the red marked one read at a glance.
    frmScore.setForeColor(colors::Black);
    frmScore.setBackColor(0xE8F4EC);
    for (int i = 0; i < 10; ++i) {
        TotalLabel[i] =
            &AddLabel(kTable[i].totalName, kTable[i].total, 9, false, colors::Black, -1, &frmScore);
        ValueLabel[i] =
            &AddLabel(kTable[i].valueName, kTable[i].value, 9, false, colors::Black, -1, &frmScore);
    }
    frmScore.setVisible(false);
    PlayCardPicture.setPicture(prog.pictures.picture("FULL"));
    cmdGiveUp.Click = [this] { cmdGiveUp_Click(); };
    cmdPass.Click = [this] { cmdPass_Click(); };
    cmdGiveUp.setToolTipText("Ends the round: takes the score, or gives the round up");
    cmdPass.setToolTipText("Passes the card on offer");
    mnuCustom.Click = [this] { mnuCustom_Click(); };
    ScoringLabelOutline.setBorderColor(colors::Black);
    ScoringLabelOutline.setFilled(true);
    ScoringLabelOutline.setBackColor(colors::White);
    ScoringLabelOutline.setVisible(false);
    ScoringLabelInfo.setVisible(false);
    ScoringLabelRoundTotal.setVisible(false);
    lblTime.setCaption("Time Bonus:");

    // A lower card lies over the one above it; the messages and the splash cover the board.
    for (auto& column : Column)
        for (Control* c : column)
            c->bringToFront();
    ScoringLabelOutline.bringToFront();
    lblMessage.bringToFront();
    ScoringLabelInfo.bringToFront();
    ScoringLabelRoundTotal.bringToFront();
    frmSplash.bringToFront();
    ShowHitButtons(false);
    ShowCards(false);
    Form_Resize();  // the frame laid out before these controls existed
}

FivestackValues& frmFivestack::values() {
    return fivestackValues(prog_);
}

// ---- The board

bool frmFivestack::Deal() {
    Reset();
    // The first image of each column shows where its cards go.
    for (int c = 0; c < FivestackBoard::kColumns; ++c) {
        Column[c][0]->setPicture(prog_.pictures.picture("EMPTY"));
        Column[c][0]->setEnabled(true);
    }
    ShowNextCard();
    return true;
}

void frmFivestack::Reset() {
    g_.ElapsedSeconds = 0;
    lblMessage.setFont(18, true);
    lblTimeBonus.setCaption(std::to_string(values().TimeBonusMax));
    board.deal(g_.Deck, values().CardsToPassSetting);
    values().CardsToPass = board.CardsToPass;
    for (int c = 0; c < FivestackBoard::kColumns; ++c) {
        for (Control* img : Column[c]) {
            img->setEnabled(false);
            img->setBorder(false);
            img->setPicture("");
            img->setVisible(false);
        }
        ColumnSoft[c]->setCaption("");
        ColumnTotal[c]->setCaption("0");
        CloseColumn(c, false);
    }
    lblCurrentTotal.setCaption("0");
    cmdGiveUp.setCaption("&Give Up");
}

void frmFivestack::CloseColumn(int column, bool closed) {
    cmdHit[column]->setEnabled(!closed);
    cmdHit[column]->setCaption(closed ? "Closed" : "Hit");
}

void frmFivestack::ShowNextCard() {
    const std::string card = board.cardOnOffer();
    NextCardPicture.setPicture(card.empty() ? "" : prog_.pictures.picture(card));
}

void frmFivestack::PaintColumn(int column) {
    for (int r = 0; r < FivestackBoard::kCardsPerColumn; ++r) {
        const std::string& card = board.Cards[column][r];
        if (card.empty())
            continue;
        Control& img = *Column[column][r];
        img.setBorder(true);
        img.setPicture(prog_.pictures.picture(card));
        img.setVisible(true);
    }
    ColumnTotal[column]->setCaption(std::to_string(board.ColumnTotal[column]));
    ColumnSoft[column]->setCaption(board.ColumnSoft[column] ? "Soft" : "");
    ColumnSoft[column]->setVisible(board.ColumnSoft[column]);
}

void frmFivestack::ShowCardTotal() {
    lblCurrentTotal.setCaption(std::to_string(board.sumColumns()));
    UpdateCardTotalValue();
}

void frmFivestack::UpdateCardTotalValue() {
    for (int i = 0; i < 10; ++i)
        for (Control* c : {TotalLabel[i], ValueLabel[i]}) {
            c->setForeColor(colors::Black);
            c->setFont(c->fontSize(), false);
        }
    const int total = board.CardTotal;
    int row = -1;
    if (total < 97)
        row = 0;
    else if (total <= 105)
        row = total - 96;
    if (row >= 0)
        for (Control* c : {TotalLabel[row], ValueLabel[row]}) {
            c->setForeColor(colors::Red);
            c->setFont(c->fontSize(), true);
        }
    if (row > 0)
        cmdGiveUp.setCaption("&Take score");
    if (total > 105)
        board.CardTotalValue = 0;
}

void frmFivestack::cmdHit_Click(int column) {
    if (refusingClicks())
        return;
    const FivestackBoard::Hit h = board.hit(column);
    if (!h.placed)
        return;
    PlayWaveFile("Click.wav");
    PaintColumn(column);
    if (h.closed)
        CloseColumn(column, true);
    if (h.busted) {
        // CloseCurrentRound: no column takes another card.
        for (Control* b : cmdHit)
            b->setEnabled(false);
        cmdGiveUp.setCaption("&Give up");
        cmdGiveUp_Click();
        return;
    }
    ShowCardTotal();
    ShowNextCard();
    if (!h.saved) {
        if (board.CardTotal > 96)
            lblCurrentTotal.setForeColor(kGreen);
    } else if (board.CardTotal < 97) {
        lblCurrentTotal.setForeColor(colors::Red);
        cmdGiveUp.setCaption("&Give up");
    }
    // Five columns of 21 take the score without a click.
    if (board.CardTotal == 105)
        cmdGiveUp_Click();
}

void frmFivestack::cmdPass_Click() {
    if (refusingClicks() || !board.pass())
        return;
    values().CardsToPass = board.CardsToPass;
    ShowNextCard();
    PlayWaveFile("Click.wav");
    if (board.CardsToPass <= 0)
        cmdPass.setEnabled(false);
}

void frmFivestack::cmdGiveUp_Click() {
    if (refusingClicks())
        return;
    RunEndOfRound();
}

// ---- Showing and hiding

void frmFivestack::ShowCards(bool visible) {
    for (int c = 0; c < FivestackBoard::kColumns; ++c) {
        for (int r = 0; r < FivestackBoard::kCardsPerColumn; ++r)
            Column[c][r]->setVisible(visible && !Column[c][r]->picture().empty());
        ColumnSoft[c]->setVisible(visible && !ColumnSoft[c]->caption().empty());
        ColumnTotal[c]->setVisible(visible);
    }
    NextCardPicture.setVisible(visible && !NextCardPicture.picture().empty());
    PlayCardPicture.setVisible(visible);
    lblCurrentTotal.setVisible(visible);
    lblCurrentRoundScore.setVisible(visible);
    cmdPass.setVisible(visible);
    lblRound.setVisible(visible);
}

void frmFivestack::ShowHitButtons(bool visible) {
    for (Control* b : cmdHit)
        b->setVisible(visible);
    cmdGiveUp.setVisible(visible);
}

void frmFivestack::ShowScoringLabel(bool visible) {
    lblMessage.setVisible(visible);
    ScoringLabelInfo.setVisible(visible);
    ScoringLabelRoundTotal.setVisible(visible);
    ScoringLabelOutline.setVisible(visible);
}

void frmFivestack::ShowMessage(const std::string& text, Color color, double size) {
    lblMessage.setFont(size, true);
    lblMessage.setForeColor(color);
    lblMessage.setCaption(text);
    lblMessage.setAlignment(Align::Center);
    lblMessage.setVisible(true);
    ScoringLabelOutline.setVisible(true);
    lblMessage.refresh();
}

void frmFivestack::RefreshPlayCard() {
    PlayCardPicture.setPicture(prog_.pictures.picture("FULL"));
}

// ---- The round

bool frmFivestack::RoundPlaysTune() const {
    // Later rounds start the tune as they are announced.
    return g_.RoundNumber == 1;
}

void frmFivestack::RoundStarted() {
    setCaption(g_.AppTitle + ": Round " + std::to_string(g_.RoundNumber));
    lblTime.setCaption("Time Bonus:");
    // The bonus on show is the one paid: the round starts at the top of its line.
    g_.TimeBonus = values().TimeBonusMax;
    lblTimeBonus.setCaption(std::to_string(values().TimeBonusMax));
    lblTimeBonus.setVisible(true);
    cmdPass.setEnabled(board.CardsToPass > 0);
    ShowHitButtons(true);
    frmScore.setVisible(true);
    lblHighScore.setVisible(true);
    lblRound.setVisible(true);
    UpdateCardTotalValue();
}

void frmFivestack::Timer1_Timer() {
    if (!AdvanceRoundClock())
        return;
    // A straight line from the maximum at second 0 to the minimum at the time limit, in the
    // 32-bit reals the step is kept in.
    const FivestackValues& v = values();
    const float used = static_cast<float>(g_.ElapsedSeconds) * v.TimeBonusStep +
                       static_cast<float>(v.TimeBonusMin);
    const float bonus = static_cast<float>(v.TimeBonusMax + v.TimeBonusMin) - used;
    g_.TimeBonus = static_cast<std::int32_t>(
        std::clamp<double>(static_cast<double>(roundHalfEven(bonus)), INT32_MIN, INT32_MAX));
    lblTimeBonus.setCaption(std::to_string(g_.TimeBonus));
    lblTime.setCaption("Time Bonus:");
    if (g_.ElapsedSeconds >= g_.RoundSeconds)
        TimeOut();
}

void frmFivestack::HideBoardAtTimeOut() {
    ShowCards(false);
}

void frmFivestack::AnnounceTimeOut() {
    ShowMessage("Times Up!", colors::Red, lblMessage.fontSize());
    prog_.platform.sleep(std::max<int>(0, values().WaitPeriod));
}

void frmFivestack::AwardRoundBonuses() {
    // cmdGiveUp's caption says what the end of the round is: the score, or the round lost.
    if (cmdGiveUp.caption() == "&Take score")
        TakeScore();
    else
        LoseRound();
    // The board waits empty for the next round or the end of the game.
    Reset();
    ShowHitButtons(false);
}

void frmFivestack::TakeScore() {
    ShowCards(false);
    const std::int64_t value = board.CardTotalValue;
    const std::int64_t bonus = g_.TimeBonus;
    const std::int64_t roundScore = bonus * value;
    ScoringLabelRoundTotal.setCaption("Round " + std::to_string(g_.RoundNumber) + " Total: ");
    ScoringLabelInfo.setForeColor(colors::Black);
    ScoringLabelInfo.setCaption("Card Total Value (" + std::to_string(value) + ") X Time Bonus (" +
                                std::to_string(bonus) + ")");
    ShowMessage(formatScore(roundScore), colors::Black);
    ShowScoringLabel(true);
    const int wait = std::max<int>(0, values().WaitPeriod);
    prog_.platform.sleep(wait);
    if (value == 1000) {
        ScoringLabelInfo.setCaption("Totally Awesome Score!");
        PlayWaveFile("Applause.wav");
        prog_.platform.sleep(2 * wait);
    }
    lblMessage.setForeColor(colors::Red);
    // Counted over in steps of twice the Time Bonus: every table value is even, so the
    // steps add up to the round score exactly. A bonus of nothing or less goes at once.
    Payment p;
    p.text = [](std::int64_t left) { return formatScore(left); };
    if (bonus > 0) {
        p.step = 2 * bonus;
        p.steps = static_cast<int>(value / 2);
    } else {
        p.step = roundScore;
        p.steps = 1;
    }
    p.atOnce = roundScore;
    p.shownMs = 0;
    p.stepMs = 10;
    p.stepSound = "Tick.wav";
    p.soundEvery = 3;
    p.settleMs = 50;
    p.afterMs = 0;
    p.endText = "0";
    PayInSteps(*this, p);
    lblMessage.setForeColor(colors::Blue);
    InitClock(*this);
    ShowScoringLabel(false);
}

void frmFivestack::LoseRound() {
    PlayWaveFile("Busted.wav");
    ShowCards(false);
    if (board.CardTotal >= 97) {
        ShowMessage("Busted!", colors::Red, lblMessage.fontSize());
        PlayWaveFile("Busted.wav");
    } else {
        ShowMessage("Sorry, 97 or more needed to win!", colors::Red, 18);
    }
    FlashMessage(12);
    lblMessage.setVisible(false);
    ScoringLabelOutline.setVisible(false);
}

void frmFivestack::AnnounceRound(const std::string& text, bool bonusRound) {
    prog_.platform.doEvents();
    if (g_.MusicOn)
        StartMusic();
    setCaption(g_.AppTitle + ": Round " + std::to_string(g_.RoundNumber));
    lblRound.setCaption("Round: " + std::to_string(g_.RoundNumber));
    ShowCards(false);
    if (bonusRound)
        PlayWaveFile(info_.bonusRoundSound);
    ShowMessage(text, colors::Blue, lblMessage.fontSize());
    prog_.platform.sleep(std::max<int>(0, values().WaitPeriod));
    lblMessage.setVisible(false);
    ScoringLabelOutline.setVisible(false);
}

void frmFivestack::ShowPauseMessage(bool paused) {
    if (paused) {
        ShowMessage("Game Paused", colors::Blue, lblMessage.fontSize());
        ShowHitButtons(false);
        lblRound.setVisible(false);
        return;
    }
    lblMessage.setCaption("");
    lblRound.setVisible(true);
    if (g_.GameInProgress) {
        ShowHitButtons(true);
        lblMessage.setVisible(false);
        ScoringLabelOutline.setVisible(false);
    }
}

void frmFivestack::EnterIdle(bool afterGameOver) {
    (void)afterGameOver;
    setCaption(g_.AppTitle + ": Game Over");
    lblRound.setVisible(false);
    lblRound.setCaption("Round: 1");
    lblMessage.setForeColor(colors::Blue);
    lblMessage.setCaption("Game Over");
    lblMessage.setVisible(false);
    ScoringLabelOutline.setVisible(false);
    lblTimeBonus.setVisible(false);
    g_.Score = 0;
    g_.RoundNumber = 0;
    if (mnuDeck)
        mnuDeck->setEnabled(true);
    ShowClockBox(false);
    lblHighScore.setVisible(false);
    frmScore.setVisible(false);
    ShowHitButtons(false);
    SetStatus(1, "Game over!  ");
    SetStatus(2, "Click on Play to start a new game.  ");
    lblCurrentTotal.setForeColor(colors::Red);
}

void frmFivestack::UpdateTimeBonusStep() {
    values().UpdateTimeBonusStep(g_.RoundSeconds);
}

void frmFivestack::TimeLimitChanged() {
    UpdateTimeBonusStep();
}

void frmFivestack::SettingsApplied() {
    values().CardsToPass = values().CardsToPassSetting;
    UpdateTimeBonusStep();
}

// ---- Layout

void frmFivestack::LayoutBoard(int left, int top, int width, int height) {
    // The board at its design size, scaled as one piece into the frame's board area.
    constexpr int kW = 6400, kH = 5750;
    constexpr int cardW = 690, cardH = 940, colStep = 780, cascade = 330;
    DesignScale d = DesignScale::fit(width, height, kW, kH);
    d.ox += left;
    d.oy += top;
    boardLeft_ = left, boardTop_ = top, boardWidth_ = width, boardHeight_ = height;
    for (int c = 0; c < FivestackBoard::kColumns; ++c) {
        const int x = 60 + c * colStep;
        d.place(*cmdHit[c], x, 0, cardW, 330);
        for (int r = 0; r < FivestackBoard::kCardsPerColumn; ++r)
            d.place(*Column[c][r], x, 420 + r * cascade, cardW, cardH);
        const int below = 420 + 4 * cascade + cardH + 60;
        d.place(*ColumnTotal[c], x, below, cardW, 330);
        d.place(*ColumnSoft[c], x, below + 300, cardW, 260);
    }
    // The card on offer and the deck under the columns, with Pass and Give Up beside them.
    const int lowerTop = 3500;
    d.place(PlayCardPicture, 60, lowerTop, cardW, cardH);
    d.place(NextCardPicture, 60 + colStep, lowerTop, cardW, cardH);
    d.place(cmdPass, 60 + 2 * colStep + 60, lowerTop + 60, 1400, 380);
    d.place(cmdGiveUp, 60 + 2 * colStep + 60, lowerTop + 520, 1400, 380);
    d.place(lblCurrentRoundScore, 60, lowerTop + cardH + 150, 2 * colStep, 300);
    d.place(lblCurrentTotal, 60 + 2 * colStep, lowerTop + cardH + 60, 1400, 450);
    // The Card Total Value table on the right.
    const int tableLeft = 4050, tableW = kW - tableLeft - 60;
    d.place(frmScore, tableLeft, 0, tableW, 3600);
    const DesignScale in = d.inside();
    for (int i = 0; i < 10; ++i) {
        const int y = 330 + i * 315;
        in.place(*TotalLabel[i], 60, y, tableW / 2 - 60, 300);
        in.place(*ValueLabel[i], tableW / 2, y, tableW / 2 - 60, 300);
    }
    // The bonus beside its caption in the clock box, where the frame put "Time Bonus:".
    const int captionW = lblTime.width() * 64 / 100;
    lblTimeBonus.move(lblTime.left() + captionW, lblTime.top(), lblTime.width() - captionW,
                      lblTime.height());
    lblTime.move(lblTime.left(), lblTime.top(), captionW, lblTime.height());
    // The messages, centred over the columns.
    const int msgTop = 1500;
    d.place(ScoringLabelOutline, 300, msgTop, 3600, 1700);
    d.place(ScoringLabelRoundTotal, 360, msgTop + 80, 3480, 360);
    d.place(lblMessage, 360, msgTop + 450, 3480, 600);
    d.place(ScoringLabelInfo, 360, msgTop + 1100, 3480, 500);
}

}  // namespace corvanna
