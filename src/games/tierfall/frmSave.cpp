#include "games/tierfall/frmSave.h"

#include <algorithm>

#include "common/FileStore.h"
#include "games/tierfall/SavedGame.h"

namespace corvanna {

namespace {

Control& label(Form& f, const std::string& name, const std::string& caption) {
    Control& l = f.add<Control>(ControlKind::Label, name, -1, nullptr);
    l.setCaption(caption);
    return l;
}

Control& button(Form& f, const std::string& name, const std::string& caption) {
    Control& b = f.add<Control>(ControlKind::CommandButton, name, -1, nullptr);
    b.setCaption(caption);
    return b;
}

// A plain name in the chosen folder: a slash or a wildcard would write somewhere else.
bool plainFileName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string("/*?\0", 4)) == std::string::npos;
}

}  // namespace

frmSave::frmSave(Program& prog)
    : Form(prog.platform, "frmSave"),
      lblSaveInfo(label(*this, "lblSaveInfo",
                        std::string("Use this dialog to save the last game played. ") + "\n" +
                            "You may load a saved game later to replay it. This cannot be used "
                            "to save a game in progress.")),
      lblGameName(label(*this, "lblGameName", "Save as:")),
      txtGameName(add<TextBox>("txtGameName", -1, nullptr)),
      File1(add<ListControl>(ControlKind::ListBox, "File1", -1, nullptr)),
      lblFolders(label(*this, "lblFolders", "Folders:")),
      Dir1(add<ListControl>(ControlKind::ListBox, "Dir1", -1, nullptr)),
      lblDrives(label(*this, "lblDrives", "Drives:")),
      Drive1(add<ListControl>(ControlKind::ComboBox, "Drive1", -1, nullptr)),
      lblUserName(label(*this, "lblUserName", "Player name:")),
      txtUserName(add<TextBox>("txtUserName", -1, nullptr)),
      cmdOK(button(*this, "cmdOK", "OK")),
      cmdCancel(button(*this, "cmdCancel", "Cancel")),
      browser(Drive1, Dir1, File1),
      prog_(prog) {
    setCaption("Save Game");
    setBounds(0, 0, 6900, 5040);
    setPosition(std::max(0, (prog.platform.screenWidthTwips() - width()) / 2),
                std::max(0, (prog.platform.screenHeightTwips() - height()) / 2));
    lblSaveInfo.move(120, 120, 6540, 600);
    lblGameName.move(120, 840, 3000, 240);
    txtGameName.move(120, 1080, 3000, 315);
    File1.move(120, 1440, 3000, 2160);
    lblFolders.move(3360, 840, 3300, 240);
    Dir1.move(3360, 1080, 3300, 1800);
    lblDrives.move(3360, 2970, 3300, 240);
    Drive1.move(3360, 3240, 3300, 315);
    lblUserName.move(120, 3720, 3000, 240);
    txtUserName.move(120, 3960, 3000, 315);
    cmdOK.move(3360, 3855, 1560, 420);
    cmdCancel.move(5100, 3855, 1560, 420);

    txtGameName.setText("*.tfl");
    txtUserName.setText(prog.state.UserName);
    browser.setPattern("*.tfl");
    browser.setFolder(prog.state.AppPath);

    File1.Click = [this] { File1_Click(); };
    File1.DblClick = [this] { cmdOK_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmSave::File1_Click() {
    if (File1.listIndex() >= 0)
        txtGameName.setText(File1.text());
}

void frmSave::txtGameName_KeyEnter() {
    browser.setPattern(txtGameName.text());
}

void frmSave::SaveError() {
    prog_.msg(
        "Unable to save the file. Please verify that you have entered a valid path and file name.",
        MsgButtons::OK, MsgIcon::Critical);
}

void frmSave::cmdOK_Click() {
    const std::string folder = browser.folderSlash();
    std::string name = txtGameName.text();
    if (!plainFileName(name))
        return SaveError();
    // The name as typed is asked about; the old file stays whole until the new one is in.
    if (fileExists(folder + name) &&
        prog_.msg("A file of that name already exists. Overwrite?", MsgButtons::YesNo,
                  MsgIcon::Question) != MsgResult::Yes)
        return;
    if (txtUserName.text().empty())
        txtUserName.setText(kAnonymousUser);
    const std::string text = SavedGameText(prog_.state, txtUserName.text());
    if (name.find('.') == std::string::npos)
        name += ".tfl";
    if (!writeFileAtomic(folder + name, text))
        return SaveError();
    if (Saved)
        Saved();
    prog_.unload(*this);
}

void frmSave::cmdCancel_Click() {
    prog_.unload(*this);
}

bool ShowSaveGame(Program& prog) {
    bool saved = false;
    frmSave& dialog = prog.load<frmSave>();
    dialog.Saved = [&saved] { saved = true; };
    prog.platform.showForm(dialog, true);
    // Closed some other way than its buttons: it goes now.
    if (Form* left = prog.findForm("frmSave"))
        prog.unload(*left);
    return saved;
}

}  // namespace corvanna
