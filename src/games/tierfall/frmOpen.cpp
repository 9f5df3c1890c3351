#include "games/tierfall/frmOpen.h"

namespace corvanna {

frmOpen::frmOpen(Program& prog, std::function<bool(const std::string& path)> open)
    : GameFileDialog(prog, "frmOpen", "Open Game", "Game file:", 4500, 3615),
      lblOpenInfo(addLabel("lblOpenInfo",
                           std::string("Use this dialog to open a previously saved game. If you "
                                       "want to use ") +
                               "\n" +
                               "customized scoring you must set that option before opening a "
                               "saved game.")),
      open_(std::move(open)) {
    lblOpenInfo.move(120, 120, 6540, 600);
    lblOpenInfo.setTextFit(TextFit::Wrap);
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

bool ShowOpenGame(Program& prog, std::function<bool(const std::string& path)> open) {
    bool opened = false;
    frmOpen& dialog = prog.load<frmOpen>([&opened, open](const std::string& path) {
        opened = open && open(path);
        return opened;
    });
    prog.showModal(dialog);
    return opened;
}

}  // namespace corvanna
