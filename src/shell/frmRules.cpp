#include "shell/frmRules.h"

#include "games/GameRegistry.h"

namespace corvanna {

namespace {
// A page of text: wide enough for about eighty characters a line, tall enough to read on.
constexpr int kWidth = 9600, kHeight = 8400;
constexpr int kMargin = 180, kButtonWidth = 1500, kButtonHeight = 450;
}  // namespace

frmRules::frmRules(Program& prog)
    : Form(prog.platform, "frmRules"),
      lblRules(add<TextBox>("lblRules", -1, nullptr)),
      cmdOK(add<Control>(ControlKind::CommandButton, "cmdOK", -1, nullptr)),
      prog_(prog) {
    setBounds(0, 0, kWidth, kHeight);
    lblRules.setMultiLine(true);
    lblRules.setLocked(true);
    lblRules.setFont(10, false);
    lblRules.setBackColor(colors::White);
    lblRules.setForeColor(colors::Black);
    cmdOK.setCaption("&OK");
    cmdOK.Click = [this] { prog_.unload(*this); };
    // Enter and Escape both close it; the arrows and the page keys scroll the text.
    setDefaultButton(&cmdOK);
    setCancelButton(&cmdOK);
}

void frmRules::Form_Load() {
    const auto& g = prog_.state;
    // A page as tall as the screen allows, so OK is always in sight.
    setSize(kWidth, kHeight);
    ShrinkToScreen(*this, prog_.platform);
    CentreOnScreen(*this, prog_.platform);
    setCaption(g.AppTitle + " Rules, Notes and Strategy");
    const int W = scaleWidth(), H = scaleHeight();
    lblRules.move(kMargin, kMargin, W - 2 * kMargin, H - 3 * kMargin - kButtonHeight);
    cmdOK.move((W - kButtonWidth) / 2, H - kMargin - kButtonHeight, kButtonWidth, kButtonHeight);
    // The game is known by its title; any other title leaves the box as it was.
    for (const GameInfo& game : allGames())
        if (game.title == g.AppTitle && !game.rules.empty())
            lblRules.setText(game.rules.build(prog_));
    lblRules.select(0, 0);
    lblRules.setFocus();
}

void ShowRules(Program& prog) {
    frmRules& rules = prog.load<frmRules>();
    rules.Form_Load();
    prog.showModal(rules);
}

}  // namespace corvanna
