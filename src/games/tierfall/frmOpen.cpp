#include "games/tierfall/frmOpen.h"

#include <algorithm>

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

}  // namespace

frmOpen::frmOpen(Program& prog, std::function<bool(const std::string& path)> open)
    : Form(prog.platform, "frmOpen"),
      lblOpenInfo(label(*this, "lblOpenInfo",
                        std::string("Use this dialog to open a previously saved game. If you "
                                    "want to use ") +
                            "\n" +
                            "customized scoring you must set that option before opening a saved "
                            "game.")),
      lblGameName(label(*this, "lblGameName", "Game file:")),
      txtGameName(add<TextBox>("txtGameName", -1, nullptr)),
      File1(add<ListControl>(ControlKind::ListBox, "File1", -1, nullptr)),
      lblFolders(label(*this, "lblFolders", "Folders:")),
      Dir1(add<ListControl>(ControlKind::ListBox, "Dir1", -1, nullptr)),
      lblDrives(label(*this, "lblDrives", "Drives:")),
      Drive1(add<ListControl>(ControlKind::ComboBox, "Drive1", -1, nullptr)),
      cmdOK(button(*this, "cmdOK", "OK")),
      cmdCancel(button(*this, "cmdCancel", "Cancel")),
      browser(Drive1, Dir1, File1),
      prog_(prog),
      open_(std::move(open)) {
    setCaption("Open Game");
    setBounds(0, 0, 6900, 4500);
    setPosition(std::max(0, (prog.platform.screenWidthTwips() - width()) / 2),
                std::max(0, (prog.platform.screenHeightTwips() - height()) / 2));
    lblOpenInfo.move(120, 120, 6540, 600);
    lblGameName.move(120, 840, 3000, 240);
    txtGameName.move(120, 1080, 3000, 315);
    File1.move(120, 1440, 3000, 2160);
    lblFolders.move(3360, 840, 3300, 240);
    Dir1.move(3360, 1080, 3300, 1800);
    lblDrives.move(3360, 2970, 3300, 240);
    Drive1.move(3360, 3240, 3300, 315);
    cmdOK.move(3360, 3615, 1560, 420);
    cmdCancel.move(5100, 3615, 1560, 420);

    txtGameName.setText("*.tfl");
    browser.setPattern("*.tfl");
    browser.setFolder(prog.state.AppPath);

    File1.Click = [this] { File1_Click(); };
    File1.DblClick = [this] { cmdOK_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
}

void frmOpen::File1_Click() {
    if (File1.listIndex() >= 0)
        txtGameName.setText(File1.text());
}

void frmOpen::txtGameName_KeyEnter() {
    browser.setPattern(txtGameName.text());
}

void frmOpen::cmdOK_Click() {
    const std::string folder = browser.folderSlash();
    std::string name = txtGameName.text();
    if (name.empty())
        return;
    // A wildcard names no file: it narrows the list, as Enter does.
    if (name.find_first_of("*?") != std::string::npos)
        return txtGameName_KeyEnter();
    if (name.find('.') == std::string::npos)
        name += ".tfl";
    if (open_ && open_(folder + name))
        prog_.unload(*this);
}

void frmOpen::cmdCancel_Click() {
    prog_.unload(*this);
}

bool ShowOpenGame(Program& prog, std::function<bool(const std::string& path)> open) {
    bool opened = false;
    frmOpen& dialog = prog.load<frmOpen>([&opened, open](const std::string& path) {
        opened = open && open(path);
        return opened;
    });
    prog.platform.showForm(dialog, true);
    // Closed some other way than its buttons: it goes now.
    if (Form* left = prog.findForm("frmOpen"))
        prog.unload(*left);
    return opened;
}

}  // namespace corvanna
