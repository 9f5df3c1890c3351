#include "games/ClickBot.h"

#include "common/Program.h"
#include "forms/Controls.h"
#include "forms/Input.h"

namespace corvanna {

ClickBot::ClickBot(Program& prog, FakePlatform& fake) : prog_(prog), fake_(fake) {
    // A score that enters a table: a name, then the table closed.
    fake_.modalRunner = [this](Form& dialog) {
        if (dialog.name() == "frmHiScoreName") {
            static_cast<TextBox&>(*dialog.find("txtPlayerName")).setText("Bot");
            click(dialog.find("cmdOK"), "frmHiScoreName.cmdOK");
        } else if (dialog.name() == "frmHighScores") {
            click(dialog.find("cmdDone"), "frmHighScores.cmdDone");
        } else {
            note("unexpected dialog " + dialog.name());
            prog_.requestUnload(dialog);
        }
    };
}

ClickBot::~ClickBot() {
    fake_.modalRunner = nullptr;
}

void ClickBot::note(const std::string& what) {
    if (fault_.empty())
        fault_ = what;
}

bool ClickBot::click(Control* control, const std::string& what) {
    if (!control) {
        note("no control " + what);
        return false;
    }
    ++clicks_;
    std::string why;
    if (!userClick(*control, &why)) {
        note("refused: " + what + ": " + why);
        return false;
    }
    return true;
}

}  // namespace corvanna
