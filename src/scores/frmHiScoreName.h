#pragma once
// The name dialog of a new high score: one text box and OK. It leaves the name in UserName.

#include "common/Program.h"
#include "forms/Form.h"

namespace corvanna {

class frmHiScoreName : public Form {
public:
    explicit frmHiScoreName(Program& prog);
    void Form_Load();
    void cmdOK_Click();

    Control& lblInfo;
    TextBox& txtPlayerName;
    Control& cmdOK;

private:
    // Takes the name into UserName; false (with the refusal shown) when it holds a comma.
    bool TakeName();

    Program& prog_;
};

// Loads the dialog and shows it modal; UserName holds the name when this returns.
void AskHighScoreName(Program& prog);

}  // namespace corvanna
