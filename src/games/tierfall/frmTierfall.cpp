#include "games/tierfall/frmTierfall.h"

#include <algorithm>
#include <exception>
#include <stdexcept>

#include "common/Cards.h"
#include "common/Format.h"
#include "common/frame/Clock.h"
#include "games/tierfall/modTierfall.h"

namespace corvanna {

namespace {

constexpr Color kSelectionColor = colors::Red;
constexpr Color kBevel = 0x0A2614;

Control& image(Form& f, const std::string& name, int index = -1) {
    Control& c = f.add<Control>(ControlKind::Image, name, index, nullptr);
    c.setVisible(false);
    return c;
}

Shape& frameShape(Form& f, const std::string& name, int index = -1) {
    Shape& s = f.add<Shape>(name, index, nullptr);
    s.setBorderColor(kSelectionColor);
    s.setBorderWidth(3);
    s.setFilled(false);
    s.setVisible(false);
    return s;
}

Shape& boxShape(Form& f, const std::string& name, Color fill) {
    Shape& s = f.add<Shape>(name, -1, nullptr);
    s.setBorderColor(colors::Black);
    s.setFilled(true);
    s.setBackColor(fill);
    return s;
}

Menu& menuNamed(Form& f, const std::string& name) {
    return static_cast<Menu&>(*f.find(name));
}

Control& boxLabel(Form& f, const std::string& name, const std::string& caption, double size) {
    Control& l = f.add<Control>(ControlKind::Label, name, -1, nullptr);
    l.setCaption(caption);
    l.setFont(size, true);
    l.setAlignment(Align::Center);
    l.setBackTransparent(true);
    return l;
}

}  // namespace

frmTierfall::frmTierfall(Program& prog, const GameInfo& info)
    : GameFrame(prog, info),
      PlayCardPicture(image(*this, "PlayCardPicture")),
      UpCardPicture(image(*this, "UpCardPicture")),
      UpCardSelectionRectangle(frameShape(*this, "UpCardSelectionRectangle")),
      lblCardCount(boxLabel(*this, "lblCardCount", "", 10)),
      CardTotalRectangle(boxShape(*this, "CardTotalRectangle", colors::White)),
      CardTotalBevelSide(boxShape(*this, "CardTotalBevelSide", kBevel)),
      CardTotalBevelBottom(boxShape(*this, "CardTotalBevelBottom", kBevel)),
      lblTotal(boxLabel(*this, "lblTotal", "Total:", 10)),
      lblCurrentTotal(boxLabel(*this, "lblCurrentTotal", "0", 16)),
      ElevensRectangle(boxShape(*this, "ElevensRectangle", colors::White)),
      ElevensBevelSide(boxShape(*this, "ElevensBevelSide", kBevel)),
      ElevensBevelBottom(boxShape(*this, "ElevensBevelBottom", kBevel)),
      lblElevens(boxLabel(*this, "lblElevens", GoalCaption(board.CardGoal), 10)),
      lblCurrentElevens(boxLabel(*this, "lblCurrentElevens", "0", 16)),
      mnuSave(addMenuAfter("mnuSave", "Sa&ve Last Game...", menuNamed(*this, "mnuBreak0"))),
      mnuOpen(addMenuAfter("mnuOpen", "&Open Game...", mnuSave)),
      mnuGoal(addMenuAfter("mnuGoal", "Card &Goal", mnuTime)),
      mnuDrawTimer(addMenuAfter("mnuDrawTimer", "Count &Down when taking score",
                                addMenuAfter("mnuSep1", "-", mnuSounds))),
      mnuColor(addMenuAfter("mnuColor", "&Card Selection Color", mnuDrawTimer)) {
    BuildOptionMenus();
    addMenuAfter("mnuSep11", "-", mnuOpen);
    mnuSave.setEnabled(false);  // until a game has been played
    mnuSave.Click = [this] { mnuSave_Click(); };
    mnuOpen.Click = [this] { mnuOpen_Click(); };
    Activate = [this] { Form_Activate(); };
    lblCardCount.setForeColor(colors::White);
    lblCurrentTotal.setForeColor(colors::Blue);
    lblCurrentElevens.setForeColor(colors::Blue);
    for (int s = 0; s < TierfallBoard::kSlots; ++s) {
        FieldCardPicture[s] = &image(*this, "FieldCardPicture", s);
        FieldCardPicture[s]->Click = [this, s] { FieldCardPicture_Click(s); };
    }
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        FieldSelectionRectangle[s] = &frameShape(*this, "FieldSelectionRectangle", s);
    PlayCardPicture.Click = [this] { PlayCardPicture_Click(); };
    UpCardPicture.Click = [this] { UpCardPicture_Click(); };
    PlayCardPicture.setToolTipText("Click to draw a new up card");
    lblCurrentScore.Change = [this] { ScoreChanged(); };

    // A lower row overlaps the one above; frames lie over every card; the message and the
    // splash panel cover the board.
    for (Control* c : FieldCardPicture)
        c->bringToFront();
    for (Control* c : FieldSelectionRectangle)
        c->bringToFront();
    UpCardSelectionRectangle.bringToFront();
    lblMessage.bringToFront();
    frmSplash.bringToFront();

    CardTotalVisible(false);
    ShowGoalBox(false);
    Form_Resize();  // the frame laid out before these controls existed
}

std::string frmTierfall::GoalCaption(int cardGoal) {
    static const char* const names[] = {
        "Tens:", "Elevens:", "Twelves:", "Thirteens:", "Fourteens:", "Fifteens:"};
    return TierfallBoard::validGoal(cardGoal) ? names[cardGoal - 10] : "Elevens:";
}

// ---- The deck and the deal

bool frmTierfall::CreateElevensDeck() {
    try {
        std::vector<std::string> deck = TierfallBoard::elevensDeck(values().CardGoal);
        for (auto& round : values().RoundDecks)
            round.assign(deck.size(), std::string());
        board.PlayPile.assign(
            static_cast<std::size_t>(TierfallBoard::playPileUpperBound(values().CardGoal)) + 1, "");
        g_.Deck = std::move(deck);
        return true;
    } catch (const std::exception&) {
        prog_.msg("Unable to create the deck.");
        return false;
    }
}

bool frmTierfall::Deal() {
    try {
        // A replay deals the old decks under the goal now in force.
        board.CardGoal = values().CardGoal;
        if (!board.deal(g_.Deck))
            throw std::length_error("deck too short for the board");
        CardTotalVisible(true);
        lblElevens.setCaption(GoalCaption(board.CardGoal));
        face_ = BoardFace::Faces;
        lowerShown_ = true;
        PaintBoard();
        lblCurrentElevens.setCaption(std::to_string(board.GoalCount));
        if (g_.RoundNumber >= 1 && g_.RoundNumber <= 3)
            values().RoundDecks[static_cast<std::size_t>(g_.RoundNumber - 1)] = g_.Deck;
        UpdateUpCardTip();
        return true;
    } catch (const std::exception&) {
        prog_.msg("Unable to deal the cards.", MsgButtons::OK, MsgIcon::Critical);
        return false;
    }
}

// ---- Clicks

bool frmTierfall::clicksRefused() const {
    return isPaused() || lblMessage.caption() == "Game Over";
}

void frmTierfall::FieldCardPicture_Click(int slot) {
    // A click held behind the end of a round lands on a board that is being taken away.
    if (g_.TakingScore || endingRound() || slot < 0 || slot >= TierfallBoard::kSlots)
        return;
    if (clicksRefused()) {
        PlayWaveFile("Chord.wav");
        return;
    }
    if (!board.cardPresent[slot])
        return;  // the card has left; its picture is hidden, so only a stray call gets here
    if (!CheckLegalFieldCardMove(slot)) {
        PlayWaveFile("Chord.wav");
        return;
    }
    switch (board.clickField(slot)) {
        case TierfallBoard::Click::Refused: PlayWaveFile("Chord.wav"); break;
        case TierfallBoard::Click::Selected:
            lblCurrentTotal.setCaption(std::to_string(board.CardTotal));
            FieldSelectionRectangle[slot]->setVisible(true);
            PlayWaveFile("Markq.wav");
            CheckTotal();
            break;
        case TierfallBoard::Click::Deselected:
            lblCurrentTotal.setCaption(std::to_string(board.CardTotal));
            PlayWaveFile("Tick.wav");
            FieldSelectionRectangle[slot]->setVisible(false);
            break;
    }
}

void frmTierfall::UpCardPicture_Click() {
    if (g_.TakingScore || endingRound())
        return;
    if (clicksRefused() || board.upCardEmpty()) {
        PlayWaveFile("Chord.wav");
        return;
    }
    switch (board.clickUpCard()) {
        case TierfallBoard::Click::Refused: PlayWaveFile("Chord.wav"); break;
        case TierfallBoard::Click::Selected:
            lblCurrentTotal.setCaption(std::to_string(board.CardTotal));
            UpCardSelectionRectangle.setVisible(true);
            PlayWaveFile("Markq.wav");
            CheckTotal();
            break;
        case TierfallBoard::Click::Deselected:
            lblCurrentTotal.setCaption(std::to_string(board.CardTotal));
            PlayWaveFile("Tick.wav");
            UpCardSelectionRectangle.setVisible(false);
            break;
    }
}

void frmTierfall::PlayCardPicture_Click() {
    DrawUpCard(false);
}

void frmTierfall::DrawUpCard(bool quiet) {
    if (g_.TakingScore || endingRound())
        return;
    if (clicksRefused() || board.PlayPileTop < 0) {
        if (!quiet)
            PlayWaveFile("Chord.wav");
        return;
    }
    setMousePointer(MousePointer::Hourglass);
    const TierfallBoard::Draw drawn = board.draw();
    // The old up card went back onto the board: that move is charged.
    if (drawn.movedToSlot >= 0) {
        ChargeMove(drawn.movedToSlot);
        lblCurrentScore.setCaption(formatScore(g_.Score));
    }
    if (!quiet)
        PlayWaveFile("Markq.wav");
    PaintBoard();
    UpdateUpCardTip();
    setMousePointer(MousePointer::Default);
}

void frmTierfall::CheckTotal() {
    const TierfallBoard::Combination made = board.takeCombination();
    if (!made.made) {
        UpdateUpCardTip();
        return;
    }
    PlayWaveFile("TwentyOne.wav");
    PayCombination(made);
    PaintBoard();
    // The cards a leaving card lay over are painted again at once.
    for (int slot : made.boardSlots)
        for (int s = 0; s < TierfallBoard::kSlots; ++s)
            for (int cover : TierfallBoard::slot(s).coveredBy)
                if (cover == slot)
                    FieldCardPicture[s]->refresh();
    lblCurrentElevens.setCaption(std::to_string(board.GoalCount));
    lblCurrentTotal.setCaption("0");
    lblCurrentScore.setCaption(formatScore(g_.Score));

    // A cleared board ends the round; the next one comes with an up card of its own.
    if (CheckForCompletion())
        TakeScoreCommand(false);
    else if (made.upCard && board.upCardEmpty())
        DrawUpCard(true);  // the player's draw, made for them: no sound of its own
    board.combinationSettled();
    UpdateUpCardTip();
}

void frmTierfall::PayCombination(const TierfallBoard::Combination& combination) {
    const bool enhanced = values().EnhancedScoring;
    std::int64_t points = 0;
    if (combination.upCard)
        points += TierfallUpCardValue(combination.lowestEmptyBefore, enhanced);
    for (int slot : combination.boardSlots)
        points += TierfallCardValue(slot, enhanced);
    addToScore(g_.Score, points);
    if (enhanced)
        StartRoundTimers();  // the enhanced clock runs from the first combination
}

void frmTierfall::ChargeMove(int slot) {
    addToScore(g_.Score, -TierfallMoveCost(slot, values().EnhancedScoring));
}

void frmTierfall::UpdateUpCardTip() {
    if (!values().EnhancedScoring) {
        UpCardPicture.setToolTipText(PointsText(TierfallUpCardValue(-1, false)));
        return;
    }
    UpCardPicture.setToolTipText(PointsText(TierfallUpCardValue(board.lowestEmptySlot(), true)));
}

void frmTierfall::ScoreChanged() {
    lblCurrentScore.setForeColor(g_.Score >= 0 ? colors::Blue : colors::Red);
}

// ---- Showing and hiding

void frmTierfall::FieldCardDisplay(bool visible) {
    face_ = visible ? BoardFace::Faces : BoardFace::Hidden;
    PaintBoard();
}

void frmTierfall::RefreshFieldCards() {
    face_ = BoardFace::Backs;
    PaintBoard();
}

void frmTierfall::SelRectangle(bool visible) {
    // Hiding the frames is what deselects.
    if (!visible)
        board.clearSelection();
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        FieldSelectionRectangle[s]->setVisible(visible);
    UpCardSelectionRectangle.setVisible(visible);
}

void frmTierfall::CardTotalVisible(bool visible) {
    for (Control* c :
         std::initializer_list<Control*>{&CardTotalRectangle, &CardTotalBevelSide,
                                         &CardTotalBevelBottom, &lblTotal, &lblCurrentTotal})
        c->setVisible(visible);
}

void frmTierfall::ShowLowerCards(bool visible) {
    lowerShown_ = visible;
    PlayCardPicture.setVisible(visible);
    UpCardPicture.setVisible(visible);
    lblCardCount.setVisible(visible);
    UpCardSelectionRectangle.setVisible(visible && board.upCardSelected);
}

void frmTierfall::ShowGoalBox(bool visible) {
    for (Control* c :
         std::initializer_list<Control*>{&lblElevens, &ElevensRectangle, &ElevensBevelSide,
                                         &ElevensBevelBottom, &lblCurrentElevens})
        c->setVisible(visible);
}

void frmTierfall::ShowCards(bool visible) {
    if (!visible) {
        // A pause keeps the board in place but shows only backs.
        if (isPaused()) {
            RefreshFieldCards();
            CardTotalVisible(false);
        } else {
            FieldCardDisplay(false);
        }
        ShowLowerCards(false);
        SelRectangle(false);
        return;
    }
    board.clearSelection();
    face_ = BoardFace::Faces;
    if (g_.GameInProgress) {
        CardTotalVisible(true);
        lblCurrentTotal.setCaption("0");
        ShowLowerCards(true);
    }
    PaintBoard();
}

void frmTierfall::ShowControls(bool visible, bool second) {
    GameFrame::ShowControls(visible, second);
    ShowGoalBox(visible);
}

void frmTierfall::HideSelection() {
    SelRectangle(false);
    if (isPaused())
        CardTotalVisible(false);
}

void frmTierfall::PaintBoard() {
    const std::string back = prog_.pictures.picture("BACK");
    for (int s = 0; s < TierfallBoard::kSlots; ++s) {
        Control& card = *FieldCardPicture[s];
        card.setPicture(face_ == BoardFace::Backs ? back
                                                  : prog_.pictures.picture(board.FieldCards[s]));
        card.setVisible(board.cardPresent[s] && face_ != BoardFace::Hidden);
        FieldSelectionRectangle[s]->setVisible(board.selected[s] && face_ == BoardFace::Faces);
    }
    UpCardPicture.setPicture(board.upCardEmpty() ? prog_.pictures.picture("EMPTY")
                                                 : prog_.pictures.picture(board.upCard()));
    UpCardPicture.setVisible(lowerShown_);
    PlayCardPicture.setVisible(lowerShown_);
    lblCardCount.setVisible(lowerShown_);
    UpCardSelectionRectangle.setVisible(lowerShown_ && board.upCardSelected);
    lblCurrentTotal.setCaption(std::to_string(board.CardTotal));
    lblCurrentElevens.setCaption(std::to_string(board.GoalCount));
    RefreshPlayCard();
}

void frmTierfall::RefreshPlayCard() {
    const int left = board.cardsLeft();
    const char* key = left <= 0 ? "EMPTY" : left <= 10 ? "BACK" : left <= 20 ? "HALF" : "FULL";
    PlayCardPicture.setPicture(prog_.pictures.picture(key));
    lblCardCount.setCaption("Cards: " + std::to_string(std::max(left, 0)));
    refreshPointers();
}

void frmTierfall::RefreshBoardBacks() {
    if (isPaused())
        RefreshFieldCards();
}

void frmTierfall::refreshPointers() {
    const std::string pointer = prog_.pictures.picture("POINTER");
    const bool over = lblMessage.caption() == "Game Over";
    for (int s = 0; s < TierfallBoard::kSlots; ++s)
        FieldCardPicture[s]->setMouseIcon(!over && board.playable(s) ? pointer : "");
    PlayCardPicture.setMouseIcon(!over && board.cardsLeft() > 0 ? pointer : "");
    UpCardPicture.setMouseIcon(!over && !board.upCardEmpty() ? pointer : "");
}

}  // namespace corvanna
