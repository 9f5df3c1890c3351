#include "scores/frmHiScoreName.h"

#include <algorithm>

namespace corvanna {

namespace {
constexpr const char* kUnknownUser = "Unknown User";
}

frmHiScoreName::frmHiScoreName(Program& prog)
    : Form(prog.platform, "frmHiScoreName"),
      lblInfo(add<Control>(ControlKind::Label, "lblInfo", -1, nullptr)),
      txtPlayerName(add<TextBox>("txtPlayerName", -1, nullptr)),
      cmdOK(add<Control>(ControlKind::CommandButton, "cmdOK", -1, nullptr)),
      prog_(prog) {
    setBounds(0, 0, 5400, 2700);
    lblInfo.setFont(10, false);
    lblInfo.move(240, 180, 4800, 900);
    lblInfo.setAlignment(Align::Center);
    lblInfo.setTextFit(TextFit::Wrap);
    // No MaxLength: a long name is kept whole, and cut only where a list shows it.
    txtPlayerName.move(240, 1200, 4800, 360);
    cmdOK.setCaption("OK");
    cmdOK.move((5400 - 120 - 1200) / 2, 1740, 1200, 420);
    cmdOK.Click = [this] { cmdOK_Click(); };
    // The close box and Escape take the name as OK does, so a new row always has one.
    QueryUnload = [this](bool& cancel) { cancel = !TakeName(); };
    setDefaultButton(&cmdOK);
    setCancelButton(&cmdOK);
}

void frmHiScoreName::Form_Load() {
    const AppState& g = prog_.state;
    CentreOnScreen(*this, prog_.platform);
    setCaption(g.AppTitle);
    lblInfo.setCaption("Great score! Please enter your name so we can induct you into the " +
                       g.AppTitle + " Hall of Fame:");
    const bool placeholder = g.UserName == "Velmora" || g.UserName == kUnknownUser;
    txtPlayerName.setText(placeholder ? "" : g.UserName);
    // Selected, so a returning player's new name replaces the old one as it is typed.
    txtPlayerName.selectAll();
    txtPlayerName.setFocus();
}

bool frmHiScoreName::TakeName() {
    std::string name = txtPlayerName.text();
    if (name.find(',') != std::string::npos) {
        prog_.msg("Sorry, you may not use commas in your name.", MsgButtons::OK, MsgIcon::Critical);
        return false;
    }
    // A pasted line break or other control character would break the row in the file.
    std::replace_if(
        name.begin(), name.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    prog_.state.UserName = name.empty() ? kUnknownUser : name;
    return true;
}

void frmHiScoreName::cmdOK_Click() {
    if (!TakeName())
        return;
    QueryUnload = nullptr;
    prog_.unload(*this);
}

void AskHighScoreName(Program& prog) {
    frmHiScoreName& dialog = prog.load<frmHiScoreName>();
    dialog.Form_Load();
    prog.showModal(dialog);
}

}  // namespace corvanna
