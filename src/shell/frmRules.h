#pragma once
// The rules of the game on show, put together at each opening from its row's wording and
// the values in force.

#include "common/Program.h"
#include "forms/Controls.h"
#include "forms/Form.h"

namespace corvanna {

class frmRules : public Form {
public:
    explicit frmRules(Program& prog);
    void Form_Load();

    TextBox& lblRules;
    Control& cmdOK;

private:
    Program& prog_;
};

// Loads the rules dialog and shows it modal; it is gone when this returns.
void ShowRules(Program& prog);

}  // namespace corvanna
