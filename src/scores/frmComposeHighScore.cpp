#include "scores/frmComposeHighScore.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "common/Format.h"
#include "common/WebLinks.h"
#include "common/frame/GameFrame.h"
#include "platform/Mail.h"
#include "scores/ScoreMenus.h"
#include "scores/frmHighScores.h"

namespace corvanna {

namespace {

constexpr int kFormWidth = 7800;
constexpr int kFormHeight = 7560;
constexpr int kMargin = 240;
constexpr int kFieldLeft = 1680;
constexpr int kRowHeight = 420;

Control& label(Form& f, const std::string& name, const std::string& caption) {
    Control& l = f.add<Control>(ControlKind::Label, name, -1, nullptr);
    l.setCaption(caption);
    l.setBackTransparent(true);
    return l;
}

TextBox& textBox(Form& f, const std::string& name, const std::string& tip) {
    TextBox& t = f.add<TextBox>(name, -1, nullptr);
    t.setToolTipText(tip);
    return t;
}

Control& button(Form& f, const std::string& name, const std::string& caption) {
    Control& b = f.add<Control>(ControlKind::CommandButton, name, -1, nullptr);
    b.setCaption(caption);
    return b;
}

}  // namespace

std::int32_t ParseScoreText(const std::string& text) {
    std::string plain;
    plain.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(plain),
                 [](char c) { return c != ','; });
    const double v = plainNumber(plain);
    constexpr double kMax = std::numeric_limits<std::int32_t>::max();
    constexpr double kMin = std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(roundHalfEven(std::clamp(v, kMin, kMax)));
}

const std::vector<std::string>& StateNames() {
    static const std::vector<std::string> names{
        "None",          "Alabama",        "Alaska",       "Arizona",    "Arkansas",
        "California",    "Colorado",       "Connecticut",  "Deleware",   "District of Columbia",
        "Florida",       "Georgia",        "Hawaii",       "Idaho",      "Illinois",
        "Indiana",       "Iowa",           "Kansas",       "Kentucky",   "Louisiana",
        "Maine",         "Maryland",       "Massachsetts", "Michigan",   "Minnesota",
        "Mississippi",   "Missouri",       "Montana",      "Nebraska",   "Nevada",
        "New Hampshire", "New Jersey",     "New Mexico",   "New York",   "North Carolina",
        "North Dakota",  "Ohio",           "Oklahoma",     "Oregon",     "Pennsylvania",
        "Rhode Island",  "South Carolina", "South Dakota", "Tennessee",  "Texas",
        "Utah",          "Vermont",        "Virginia",     "Washington", "West Virginia",
        "Wisconsin",     "Wyoming"};
    return names;
}

std::string HighScoreMailBody(const std::string& sample, bool customScoring,
                              const std::string& gameLines, const std::string& comments) {
    return sample + "\r\n\r\n" + "Custom scoring is currently " +
           (customScoring ? "True" : "False") + "\r\n\r\n" + gameLines +
           withLineEnds(comments, "\r\n");
}

frmComposeHighScore::frmComposeHighScore(Program& prog, frmHighScores& scores)
    : Form(prog.platform, "frmComposeHighScore"),
      lblInfo(label(*this, "lblInfo", "")),
      lblName(label(*this, "lblName", "Name:")),
      txtName(textBox(*this, "txtName", "Enter your name")),
      lblScore(label(*this, "lblScore", "Score:")),
      txtScore(textBox(*this, "txtScore", "Enter your high score")),
      lblHomeTown(label(*this, "lblHomeTown", "Home town:")),
      txtHomeTown(textBox(*this, "txtHomeTown", "Enter your home town")),
      lblState(label(*this, "lblState", "State:")),
      cmboState(add<ListControl>(ControlKind::ComboBox, "cmboState", -1, nullptr)),
      lblCountry(label(*this, "lblCountry", "Country:")),
      txtCountry(textBox(*this, "txtCountry", "Enter your Country")),
      lblSample(label(*this, "lblSample", "")),
      txtSample(textBox(*this, "txtSample", "Sample listing")),
      lblOther(label(*this, "lblOther", "")),
      txtOther(textBox(*this, "txtOther",
                       "Place additional information you want to send to Orlund here")),
      cmdSubmit(button(*this, "cmdSubmit", "&Submit")),
      cmdCancel(button(*this, "cmdCancel", "&Cancel")),
      prog_(prog),
      scores_(scores) {
    cmboState.setToolTipText("Select your state");
    txtSample.setLocked(true);
    txtSample.setBackColor(colors::ButtonFace);
    txtOther.setMultiLine(true);
    lblSample.setFont(8.25, true);
    lblOther.setFont(8.25, true);
    lblInfo.setTextFit(TextFit::Wrap);
    setDefaultButton(&cmdSubmit);
    setCancelButton(&cmdCancel);

    setBounds(0, 0, kFormWidth, kFormHeight);
    const int inner = scaleWidth() - 2 * kMargin;
    lblInfo.move(kMargin, 120, inner, 1560);
    const std::pair<Control*, Control*> rows[] = {{&lblName, &txtName},
                                                  {&lblScore, &txtScore},
                                                  {&lblHomeTown, &txtHomeTown},
                                                  {&lblState, &cmboState},
                                                  {&lblCountry, &txtCountry}};
    int top = 1800;
    for (const auto& [caption, field] : rows) {
        caption->move(kMargin, top + 45, kFieldLeft - kMargin - 60, 285);
        const bool narrow = field == &txtScore || field == &cmboState;
        field->move(kFieldLeft, top, narrow ? 2880 : inner - (kFieldLeft - kMargin), 315);
        top += kRowHeight;
    }
    lblSample.move(kMargin, top + 120, inner, 285);
    txtSample.move(kMargin, top + 405, inner, 315);
    lblOther.move(kMargin, top + 840, inner, 285);
    txtOther.move(kMargin, top + 1125, inner, 1200);
    const int buttonsTop = top + 2460;
    cmdCancel.move(scaleWidth() - kMargin - 1560, buttonsTop, 1560, 420);
    cmdSubmit.move(scaleWidth() - kMargin - 2 * 1560 - 120, buttonsTop, 1560, 420);

    txtName.Change = [this] { RefreshSample(); };
    txtScore.Change = [this] { txtScore_Change(); };
    txtHomeTown.Change = [this] { RefreshSample(); };
    txtCountry.Change = [this] { RefreshSample(); };
    cmboState.Click = [this] { RefreshSample(); };
    cmdSubmit.Click = [this] { cmdSubmit_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    // The close box is Cancel: what was typed is kept.
    QueryUnload = [this](bool&) { StoreUserDetails(); };
}

const GameInfo* frmComposeHighScore::game() const {
    const GameFrame* form = CurrentGameForm(prog_);
    return form ? &form->info() : nullptr;
}

std::string frmComposeHighScore::topScoreText() const {
    return scores_.ScoreList[1]->caption();
}

void frmComposeHighScore::Form_Load() {
    const auto& g = prog_.state;
    CentreOnScreen(*this, prog_.platform);
    setCaption("High score submission for " + g.AppTitle);
    lblInfo.setCaption(
        "Please verify the information below. After making any changes click on the "
        "'Submit' command button. This will e-mail the high score data to Orlund for posting "
        "on the Corvanna High Score Web Page. At a minimum, please include your name and "
        "score. Note that you must meet the minimum required score before it will be posted "
        "to the web. The minimum scores for each game are posted on the website. Click on "
        "'Cancel' to cancel this operation.");
    lblSample.setCaption("Your listing will look like:");
    for (const std::string& state : StateNames())
        cmboState.addItem(state);
    cmboState.setListIndex(0);
    txtName.setText(scores_.ScoreList[0]->caption());
    txtScore.setText(topScoreText());
    txtHomeTown.setText(g.UserHometown);
    txtCountry.setText(g.UserCountry);
    // A state the list doesn't hold (a damaged User.ini) leaves "None" chosen.
    const auto& states = StateNames();
    const auto at = std::find(states.begin(), states.end(), g.UserState);
    if (at != states.end())
        cmboState.setListIndex(static_cast<int>(at - states.begin()));
    RefreshSample();
    lblOther.setCaption("Additional comments for Orlund:");
    txtOther.setText("");
    txtName.setFocus();
}

void frmComposeHighScore::RefreshSample() {
    const std::int32_t entered = ParseScoreText(txtScore.text());
    const std::int32_t top = ParseScoreText(topScoreText());
    if (entered > top) {
        prog_.msg(std::string("Sorry, but the score you have entered is greater than the "
                              "highest") +
                      "\n" + "score attained so far in this game. Please enter a valid score.",
                  MsgButtons::OK, MsgIcon::Exclamation);
        txtScore.setText(topScoreText());
        txtScore.selectAll();
        txtScore.setFocus();
        return;
    }
    std::string sample =
        formatScore(entered) + " by " + txtName.text() + " of " + txtHomeTown.text();
    if (cmboState.text() != "None")
        sample += ", " + cmboState.text();
    if (txtCountry.text() != "United States")
        sample += ", " + txtCountry.text();
    txtSample.setText(sample);
}

void frmComposeHighScore::txtScore_Change() {
    // A typed comma or letter goes at once: the box holds the number as it is read.
    txtScore.setText(std::to_string(ParseScoreText(txtScore.text())));
    RefreshSample();
}

void frmComposeHighScore::cmdSubmit_Click() {
    const auto& g = prog_.state;
    if (const GameInfo* info = game()) {
        if (ParseScoreText(txtScore.text()) < info->submitMinimum) {
            prog_.msg("Sorry, in order to list your " + g.AppTitle +
                          " high score on the web you must achieve a minimum score of " +
                          formatScore(info->submitMinimum) + "." + "\n" +
                          "Keep playing, you can do it!",
                      MsgButtons::OK, MsgIcon::Information);
            return;
        }
        if (g.RoundSeconds != info->submitSeconds) {
            prog_.msg("Sorry, in order to list your " + g.AppTitle +
                          " high score on the web you must be using the default time limit of " +
                          std::to_string(info->submitSeconds) + " seconds.",
                      MsgButtons::OK, MsgIcon::Information);
            return;
        }
    }
    MailMessage mail;
    mail.recipientName = kHighScoreKeeperName;
    mail.recipientAddress = kHighScoreKeeperAddress;
    mail.subject = "Corvanna High Score Listing for " + g.AppTitle;
    const auto& gameLines = prog_.dialogs.highScoreMailLines;
    mail.body = HighScoreMailBody(txtSample.text(), g.CustomScoring,
                                  gameLines ? gameLines() : std::string(), txtOther.text());
    const MailResult result = prog_.platform.sendMail(mail);
    if (!result.sent) {
        prog_.msg(std::string("There was an error attempting to access your e-mail messaging "
                              "system. Please report this to ") +
                      kHighScoreKeeperAddress + ". Error description: " + result.error,
                  MsgButtons::OK, MsgIcon::Critical);
        return;
    }
    StoreUserDetails();
    prog_.msg("The message has been successfully placed in your out box.", MsgButtons::OK,
              MsgIcon::Information);
    prog_.unload(*this);
}

void frmComposeHighScore::cmdCancel_Click() {
    StoreUserDetails();
    prog_.unload(*this);
}

void frmComposeHighScore::StoreUserDetails() {
    auto& g = prog_.state;
    g.UserName = txtName.text();
    g.UserHometown = txtHomeTown.text();
    g.UserState = cmboState.text();
    g.UserCountry = txtCountry.text();
}

void ShowComposeHighScore(Program& prog, frmHighScores& scores) {
    frmComposeHighScore& dialog = prog.load<frmComposeHighScore>(scores);
    dialog.Form_Load();
    prog.showModal(dialog);
}

}  // namespace corvanna
