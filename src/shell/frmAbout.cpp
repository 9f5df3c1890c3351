#include "shell/frmAbout.h"

#include "common/Format.h"

namespace corvanna {

frmAbout::frmAbout(Program& prog)
    : Form(prog.platform, "frmAbout"),
      lblInfo(add<Control>(ControlKind::Label, "lblInfo", -1, nullptr)),
      lblStats(add<Control>(ControlKind::Label, "lblStats", -1, nullptr)),
      cmdCoolDude(add<Control>(ControlKind::CommandButton, "cmdCoolDude", -1, nullptr)),
      prog_(prog) {
    setBounds(0, 0, 6300, 4200);
    setBackColor(0x0F3D1E);
    lblInfo.setForeColor(colors::White);
    lblInfo.setFont(10, false);
    lblStats.setForeColor(0xFFE680);
    lblStats.setFont(9, true);
    cmdCoolDude.setCaption("&Cool Dude");
    cmdCoolDude.Click = [this] { prog_.unload(*this); };
    // The only button: Enter and Escape both close the box.
    setDefaultButton(&cmdCoolDude);
    setCancelButton(&cmdCoolDude);
    lblInfo.setTextFit(TextFit::Wrap);
    lblStats.setTextFit(TextFit::Wrap);
}

void frmAbout::Form_Load() {
    const auto& g = prog_.state;
    CentreOnScreen(*this, prog_.platform);
    setCaption("About " + g.AppTitle);
    lblInfo.setCaption(g.AppTitle +
                       "\nPart of The Corvanna Collection, version 7.0.\n"
                       "Designed and programmed by the Velmora games team.\n"
                       "Questions and ideas are welcome at the Velmora website.");
    const long long minutes = MinutesBetween(g.FormLoadTime, prog_.platform.now());
    lblStats.setCaption("You have played " + g.AppTitle + " " + std::to_string(g.GamesPlayedCount) +
                        " times." + "This session has lasted " + std::to_string(minutes) +
                        " minutes." + "Thanks for playing!");
    const int W = scaleWidth();
    lblInfo.move(300, 240, W - 600, 1700);
    lblInfo.setAlignment(Align::Center);
    lblStats.move(300, 2040, W - 600, 600);
    lblStats.setAlignment(Align::Center);
    cmdCoolDude.move((W - 1800) / 2, 2800, 1800, 450);
    cmdCoolDude.setFocus();
}

void ShowAbout(Program& prog) {
    frmAbout& about = prog.load<frmAbout>();
    about.Form_Load();
    prog.showModal(about);
}

}  // namespace corvanna
