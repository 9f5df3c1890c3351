#pragma once
// The about box: a credit paragraph and how long this game has been played.

#include "common/Program.h"
#include "forms/Form.h"

namespace corvanna {

class frmAbout : public Form {
public:
    explicit frmAbout(Program& prog);
    void Form_Load();

    Control& lblInfo;
    Control& lblStats;
    Control& cmdCoolDude;

private:
    Program& prog_;
};

// Loads the about box and shows it modal; it is gone when this returns.
void ShowAbout(Program& prog);

}  // namespace corvanna
