#include "scores/frmHighScores.h"

#include <algorithm>

#include "common/Format.h"
#include "common/Intervals.h"
#include "common/WebLinks.h"
#include "common/frame/GameFrame.h"
#include "scores/HighScoreTable.h"
#include "scores/HighScores.h"
#include "scores/ScoreMenus.h"
#include "scores/frmComposeHighScore.h"

namespace corvanna {

namespace {

// Row colours: names blue, scores red, dates black; the new row white on a dark band.
constexpr Color kNameColor = colors::Blue;
constexpr Color kScoreColor = colors::Red;
constexpr Color kDateColor = colors::Black;
constexpr Color kNewRowColor = colors::White;

// The hall itself: parchment with a burgundy banner, and rows striped so the eye
// follows a name to its score.
constexpr Color kParchment = 0xFBF3DC;
constexpr Color kStripe = 0xF1E3BA;
constexpr Color kNewRowBand = 0x1F3A7A;
constexpr Color kBanner = 0x7A1F2B;
constexpr Color kGold = 0xF5D061;
constexpr Color kHeading = 0x5A4A2A;

// Layout in twips.
constexpr int kFormWidth = 8400;
constexpr int kFormHeight = 7440;
constexpr int kMargin = 360;
constexpr int kRowTop = 1170;
constexpr int kRowHeight = 375;
constexpr int kRankLeft = 360, kRankWidth = 540;
constexpr int kNameLeft = 1020, kNameWidth = 2880;
constexpr int kScoreLeft = 3960, kScoreWidth = 1560;
constexpr int kDateLeft = 5760, kDateWidth = 2160;

Control& label(Form& f, const std::string& name, int index = -1) {
    Control& l = f.add<Control>(ControlKind::Label, name, index, nullptr);
    l.setBackTransparent(true);
    return l;
}

Control& button(Form& f, const std::string& name, const std::string& caption,
                const std::string& tip) {
    Control& b = f.add<Control>(ControlKind::CommandButton, name, -1, nullptr);
    b.setCaption(caption);
    b.setToolTipText(tip);
    return b;
}

}  // namespace

frmHighScores::frmHighScores(Program& prog)
    : Form(prog.platform, "frmHighScores"),
      lblHiScoreInfo(label(*this, "lblHiScoreInfo")),
      Timer1(add<Timer>("Timer1", -1, ms::HighScoreFlash)),
      cmdDone(button(*this, "cmdDone", "&Done, let's go play some more!", "Closes this dialog")),
      cmdClear(button(*this, "cmdClear", "&Clear Current High Scores",
                      "Clears all high scores for the current game")),
      cmdHighScores(button(*this, "cmdHighScores", "&Visit the High Score Website",
                           "Launches your Internet Browset and connects to the Corvanna High "
                           "Score Website")),
      cmdSendScore(button(*this, "cmdSendScore", "&Submit a High Score to the Website",
                          "Sends a high score listing via email to Orlund for pulishing on the "
                          "website.")),
      shpBanner(add<Shape>("shpBanner", -1, nullptr)),
      lblBanner(label(*this, "lblBanner")),
      prog_(prog) {
    Timer1.stop();
    setBackColor(kParchment);
    // Bands first, so the row labels stand in front of them.
    for (int k = 0; k < 10; ++k) {
        RowBand[k] = &add<Shape>("RowBand", k, nullptr);
        RowBand[k]->setFilled(true);
        RowBand[k]->sendToBack();
    }
    const char* headings[4] = {"#", "Name", "Score", "Date"};
    for (int c = 0; c < 4; ++c) {
        lblHeading[c] = &label(*this, "lblHeading", c);
        lblHeading[c]->setCaption(headings[c]);
        lblHeading[c]->setForeColor(kHeading);
        lblHeading[c]->setFont(9, true);
    }
    for (int k = 0; k < 10; ++k) {
        lblRank[k] = &label(*this, "lblRank", k);
        lblRank[k]->setCaption(std::to_string(k + 1) + ".");
        lblRank[k]->setForeColor(kHeading);
        lblRank[k]->setFont(10, true);
        ScoreList[2 * k] = &label(*this, "ScoreList", 2 * k);
        ScoreList[2 * k + 1] = &label(*this, "ScoreList", 2 * k + 1);
        DateList[2 * k + 1] = &label(*this, "DateList", 2 * k + 1);
        ScoreList[2 * k]->setFont(10, true);
        // A long name is kept whole in the table and cut only here, where it must fit.
        ScoreList[2 * k]->setTextFit(TextFit::Elide);
        ScoreList[2 * k + 1]->setFont(10, true);
        DateList[2 * k + 1]->setFont(9, false);
        setRowColors(k, false);
    }
    shpBanner.setFilled(true);
    shpBanner.setBackColor(kBanner);
    shpBanner.setBorderWidth(0);
    lblBanner.setForeColor(kGold);
    lblBanner.setFont(18, true);
    lblBanner.setAlignment(Align::Center);
    lblHiScoreInfo.setForeColor(kHeading);
    lblHiScoreInfo.setFont(9, false);
    lblHiScoreInfo.setTextFit(TextFit::Wrap);  // the table's line and the asterisk's below it
    cmdDone.setFont(9, true);
    // Enter and Escape both press Done: back to the game, the flash over.
    setDefaultButton(&cmdDone);
    setCancelButton(&cmdDone);

    Timer1.OnTimer = [this] { Timer1_Timer(); };
    cmdDone.Click = [this] { cmdDone_Click(); };
    cmdClear.Click = [this] { cmdClear_Click(); };
    cmdHighScores.Click = [this] { cmdHighScores_Click(); };
    cmdSendScore.Click = [this] { cmdSendScore_Click(); };
    // The close box stops the flash but leaves NewHighScoreRow for the next game to reset.
    QueryUnload = [this](bool&) { Form_Unload(); };
    setBounds(0, 0, kFormWidth, kFormHeight);
    layout();
}

void frmHighScores::layout() {
    const int W = scaleWidth();
    shpBanner.move(0, 0, W, 720);
    lblBanner.move(0, 150, W, 500);
    const int columns[4][2] = {{kRankLeft, kRankWidth},
                               {kNameLeft, kNameWidth},
                               {kScoreLeft, kScoreWidth},
                               {kDateLeft, kDateWidth}};
    for (int c = 0; c < 4; ++c)
        lblHeading[c]->move(columns[c][0], 870, columns[c][1], 270);
    lblHeading[0]->setAlignment(Align::Right);
    lblHeading[2]->setAlignment(Align::Right);
    for (int k = 0; k < 10; ++k) {
        const int top = kRowTop + k * kRowHeight;
        RowBand[k]->move(kMargin - 120, top - 45, W - 2 * (kMargin - 120), kRowHeight);
        lblRank[k]->move(kRankLeft, top, kRankWidth, kRowHeight - 60);
        lblRank[k]->setAlignment(Align::Right);
        ScoreList[2 * k]->move(kNameLeft, top, kNameWidth, kRowHeight - 60);
        ScoreList[2 * k + 1]->move(kScoreLeft, top, kScoreWidth, kRowHeight - 60);
        ScoreList[2 * k + 1]->setAlignment(Align::Right);
        DateList[2 * k + 1]->move(kDateLeft, top + 15, kDateWidth, kRowHeight - 75);
    }
    const int infoTop = kRowTop + 10 * kRowHeight + 90;
    lblHiScoreInfo.move(kMargin, infoTop, W - 2 * kMargin, 540);
    const int half = (W - 2 * kMargin - 120) / 2;
    const int buttonsTop = infoTop + 600;
    cmdHighScores.move(kMargin, buttonsTop, half, 420);
    cmdSendScore.move(kMargin + half + 120, buttonsTop, half, 420);
    cmdClear.move(kMargin, buttonsTop + 510, half, 420);
    cmdDone.move(kMargin + half + 120, buttonsTop + 510, half, 420);
}

void frmHighScores::setRowColors(int row, bool isNew) {
    ScoreList[2 * row]->setForeColor(isNew ? kNewRowColor : kNameColor);
    ScoreList[2 * row + 1]->setForeColor(isNew ? kNewRowColor : kScoreColor);
    DateList[2 * row + 1]->setForeColor(isNew ? kNewRowColor : kDateColor);
    lblRank[row]->setForeColor(isNew ? kGold : kHeading);
    RowBand[row]->setBackColor(isNew ? kNewRowBand : (row % 2 ? kStripe : kParchment));
    RowBand[row]->setBorderColor(isNew ? kNewRowBand : (row % 2 ? kStripe : kParchment));
}

void frmHighScores::Form_Load() {
    auto& g = prog_.state;
    CentreOnScreen(*this, prog_.platform);
    lblHiScoreInfo.setCaption("");
    setCaption(g.AppTitle + " Hall of Fame (" + std::to_string(g.RoundSeconds) + " secs)");
    lblBanner.setCaption(g.AppTitle + " Hall of Fame");
    cmdDone.setFocus();

    const HighScoreChoice choice = CurrentHighScoreTable(prog_);
    if (choice.game) {
        lblHiScoreInfo.setCaption(choice.info);
        std::string error;
        // A table we can't read is named in a message; the dialog still opens, empty.
        if (!ReadHighScoreTable(choice.tableName, &error))
            prog_.msg("The high score table \"" + HighScoreFilePath(prog_, choice.tableName) +
                          "\" could not be shown: " + error + ".",
                      MsgButtons::OK, MsgIcon::Exclamation);
    }
    lblHiScoreInfo.setCaption(lblHiScoreInfo.caption() + "\n" +
                              "* denotes customized scoring was used");
    lblHiScoreInfo.setAlignment(Align::Center);

    const int r = g.NewHighScoreRow;
    if (r >= 0 && r < 10) {
        Timer1.start();
        if (g.SoundsOn)
            prog_.platform.playWave(prog_.shippedFile("Applause.wav"));
        setRowColors(r, true);
    }
}

bool frmHighScores::ReadHighScoreTable(const std::string& tableName, std::string* error) {
    std::vector<HighScoreRow> rows;
    if (!readHighScoreRows(HighScoreFilePath(prog_, tableName), rows, error))
        return false;
    const int n = std::min<int>(static_cast<int>(rows.size()), 10);
    for (int k = 0; k < n; ++k) {
        const HighScoreRow& row = rows[static_cast<std::size_t>(k)];
        ScoreList[2 * k]->setCaption(row.name);
        ScoreList[2 * k + 1]->setCaption(formatScore(row.score));
        Control& date = *DateList[2 * k + 1];
        if (row.date == HighScoreSeedDate)
            date.setVisible(false);
        else
            date.setCaption(row.date);
    }
    return true;
}

void frmHighScores::Timer1_Timer() {
    const int r = prog_.state.NewHighScoreRow;
    if (r < 0 || r >= 10)
        return;
    const bool show = !ScoreList[2 * r]->visible();
    ScoreList[2 * r]->setVisible(show);
    ScoreList[2 * r + 1]->setVisible(show);
    DateList[2 * r + 1]->setVisible(show);
}

void frmHighScores::cmdClear_Click() {
    auto& g = prog_.state;
    if (prog_.msg(kClearHighScoresQuestion, MsgButtons::YesNo, MsgIcon::Question) != MsgResult::Yes)
        return;
    const int r = g.NewHighScoreRow;
    if (r != -1) {
        Timer1.stop();
        if (r >= 0 && r < 10) {
            ScoreList[2 * r]->setVisible(true);
            ScoreList[2 * r + 1]->setVisible(true);
            DateList[2 * r + 1]->setVisible(true);
            setRowColors(r, false);
        }
        g.NewHighScoreRow = -1;
    }
    const HighScoreChoice choice = CurrentHighScoreTable(prog_);
    if (!choice.game)
        return;
    // Each step goes on whatever the one before it did: the table operations have
    // already said what failed.
    CreateHighScoreTable(prog_, choice.tableName, choice.game->clearedSeedScore, true);
    ReadHighScoreTable(choice.tableName);
    if (GameFrame* game = CurrentGameForm(prog_))
        ShowHighScoreLabel(prog_, choice.tableName, *game, choice.game->clearedSeedScore);
}

void frmHighScores::cmdDone_Click() {
    prog_.state.NewHighScoreRow = -1;
    Form_Unload();
    prog_.unload(*this);
}

void frmHighScores::cmdHighScores_Click() {
    OpenWebPage(prog_, kHighScorePageUrl);
}

void frmHighScores::cmdSendScore_Click() {
    ShowComposeHighScore(prog_, *this);
}

void frmHighScores::Form_Unload() {
    Timer1.stop();
}

void ShowHighScores(Program& prog) {
    frmHighScores& dialog = prog.load<frmHighScores>();
    dialog.Form_Load();
    prog.showModal(dialog);
}

}  // namespace corvanna
