#pragma once
// The Hall of Fame: one high score table, the row just entered flashing, and the
// commands to clear the table, visit the high score page and submit a score.

#include <array>
#include <string>

#include "common/Program.h"
#include "forms/Form.h"

namespace corvanna {

class frmHighScores : public Form {
public:
    explicit frmHighScores(Program& prog);

    void Form_Load();
    // Fills the labels from the table of the running game and the current RoundSeconds.
    // False (with the reason) when the table can't be read; labels without a row keep
    // what they showed.
    bool ReadHighScoreTable(const std::string& tableName, std::string* error = nullptr);
    void Timer1_Timer();
    void cmdClear_Click();
    void cmdDone_Click();
    void cmdHighScores_Click();
    void cmdSendScore_Click();
    void Form_Unload();

    // ScoreList(2k) is the name of row k, ScoreList(2k+1) its score; DateList(2k+1) its
    // date (the even places of DateList are empty).
    std::array<Control*, 20> ScoreList{};
    std::array<Control*, 20> DateList{};
    Control& lblHiScoreInfo;
    Timer& Timer1;
    Control& cmdDone;
    Control& cmdClear;
    Control& cmdHighScores;
    Control& cmdSendScore;

    // Dressing: the banner, the column headings, the rank of each row and the band
    // behind it, which turns dark under the new row so its white text stands out.
    Shape& shpBanner;  // the band behind the title: labels draw their text at the top
    Control& lblBanner;
    std::array<Control*, 4> lblHeading{};
    std::array<Control*, 10> lblRank{};
    std::array<Shape*, 10> RowBand{};

private:
    // The table name of the running game, as the table file is named.
    std::string currentTableName() const;
    void setRowColors(int row, bool isNew);
    void layout();

    Program& prog_;
};

// Loads the dialog, shows it modal and unloads it when it is done.
void ShowHighScores(Program& prog);

}  // namespace corvanna
