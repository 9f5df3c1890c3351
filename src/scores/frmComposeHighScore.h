#pragma once
// The listing of a high score sent to the keeper of the high score page: the top row
// of the table on show with the player's home town, state and country, a live sample
// of how it will read, and the mail handed to the player's own mail program.

#include <cstdint>
#include <string>
#include <vector>

#include "common/Program.h"
#include "forms/Form.h"

namespace corvanna {

class frmHighScores;
struct GameInfo;

class frmComposeHighScore : public Form {
public:
    // `scores` is the High Scores dialog open behind this one: its top row is sent.
    frmComposeHighScore(Program& prog, frmHighScores& scores);

    void Form_Load();
    void RefreshSample();
    void txtScore_Change();
    void cmdSubmit_Click();
    void cmdCancel_Click();

    Control& lblInfo;
    Control& lblName;
    TextBox& txtName;
    Control& lblScore;
    TextBox& txtScore;
    Control& lblHomeTown;
    TextBox& txtHomeTown;
    Control& lblState;
    ListControl& cmboState;
    Control& lblCountry;
    TextBox& txtCountry;
    Control& lblSample;
    TextBox& txtSample;
    Control& lblOther;
    TextBox& txtOther;
    Control& cmdSubmit;
    Control& cmdCancel;

private:
    // UserName, UserHometown, UserState and UserCountry from the four fields.
    void StoreUserDetails();
    std::string topScoreText() const;
    const GameInfo* game() const;

    Program& prog_;
    frmHighScores& scores_;
};

// The score typed: commas dropped, the number at the start, rounded and held within
// 32 bits; 0 for none.
std::int32_t ParseScoreText(const std::string& text);
// The states to choose from, "None" first.
const std::vector<std::string>& StateNames();
// The listing's mail text: the sample, the custom scoring line, the games' own lines
// (each ended by two line breaks) and the player's comments.
std::string HighScoreMailBody(const std::string& sample, bool customScoring,
                              const std::string& gameLines, const std::string& comments);

// Loads the dialog, shows it modal and unloads it when it is done.
void ShowComposeHighScore(Program& prog, frmHighScores& scores);

}  // namespace corvanna
