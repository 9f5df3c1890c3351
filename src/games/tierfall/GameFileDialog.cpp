#include "games/tierfall/GameFileDialog.h"

namespace corvanna {

namespace {

Control& make(Form& f, ControlKind kind, const std::string& name, const std::string& caption) {
    Control& c = f.add<Control>(kind, name, -1, nullptr);
    c.setCaption(caption);
    return c;
}

}  // namespace

GameFileDialog::GameFileDialog(Program& prog, const std::string& name, const std::string& caption,
                               const std::string& nameCaption, int height, int buttonsTop)
    : Form(prog.platform, name),
      lblGameName(make(*this, ControlKind::Label, "lblGameName", nameCaption)),
      txtGameName(add<TextBox>("txtGameName", -1, nullptr)),
      File1(add<ListControl>(ControlKind::ListBox, "File1", -1, nullptr)),
      lblFolders(make(*this, ControlKind::Label, "lblFolders", "Folders:")),
      Dir1(add<ListControl>(ControlKind::ListBox, "Dir1", -1, nullptr)),
      lblDrives(make(*this, ControlKind::Label, "lblDrives", "Drives:")),
      Drive1(add<ListControl>(ControlKind::ComboBox, "Drive1", -1, nullptr)),
      cmdOK(make(*this, ControlKind::CommandButton, "cmdOK", "OK")),
      cmdCancel(make(*this, ControlKind::CommandButton, "cmdCancel", "Cancel")),
      browser(Drive1, Dir1, File1),
      prog_(prog) {
    setCaption(caption);
    setBounds(0, 0, 6900, height);
    CentreOnScreen(*this, prog.platform);
    lblGameName.move(120, 840, 3000, 240);
    txtGameName.move(120, 1080, 3000, 315);
    File1.move(120, 1440, 3000, 2160);
    lblFolders.move(3360, 840, 3300, 240);
    Dir1.move(3360, 1080, 3300, 1800);
    lblDrives.move(3360, 2970, 3300, 240);
    Drive1.move(3360, 3240, 3300, 315);
    cmdOK.move(3360, buttonsTop, 1560, 420);
    cmdCancel.move(5100, buttonsTop, 1560, 420);

    txtGameName.setText("*.tfl");
    browser.setPattern("*.tfl");
    browser.setFolder(prog.state.AppPath);

    File1.Click = [this] { File1_Click(); };
    File1.DblClick = [this] { cmdOK_Click(); };
    txtGameName.KeyEnter = [this] { txtGameName_KeyEnter(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    // Enter in the name box keeps its own meaning (the pattern); elsewhere it is OK.
    setDefaultButton(&cmdOK);
    setCancelButton(&cmdCancel);
    txtGameName.setFocus();
}

Control& GameFileDialog::addLabel(const std::string& name, const std::string& caption) {
    return make(*this, ControlKind::Label, name, caption);
}

void GameFileDialog::File1_Click() {
    if (File1.listIndex() >= 0)
        txtGameName.setText(File1.text());
}

void GameFileDialog::txtGameName_KeyEnter() {
    browser.setPattern(txtGameName.text());
}

void GameFileDialog::cmdCancel_Click() {
    prog_.unload(*this);
}

}  // namespace corvanna
