#include "games/tierfall/frmSave.h"

#include "common/FileStore.h"
#include "games/tierfall/SavedGame.h"

namespace corvanna {

namespace {

// A plain name in the chosen folder: a slash or a wildcard would write somewhere else.
bool plainFileName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string("/*?\0", 4)) == std::string::npos;
}

}  // namespace

frmSave::frmSave(Program& prog)
    : GameFileDialog(prog, "frmSave", "Save Game", "Save as:", 5040, 3855),
      lblSaveInfo(addLabel("lblSaveInfo",
                           std::string("Use this dialog to save the last game played. ") + "\n" +
                               "You may load a saved game later to replay it. This cannot be "
                               "used to save a game in progress.")),
      lblUserName(addLabel("lblUserName", "Player name:")),
      txtUserName(add<TextBox>("txtUserName", -1, nullptr)) {
    lblSaveInfo.move(120, 120, 6540, 600);
    lblSaveInfo.setTextFit(TextFit::Wrap);
    lblUserName.move(120, 3720, 3000, 240);
    txtUserName.move(120, 3960, 3000, 315);
    txtUserName.setText(prog.state.UserName);
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
    const std::string typed = name;
    if (name.find('.') == std::string::npos)
        name += ".tfl";
    // Asked about the name as typed and the name written alike: "evening" must not
    // silently replace "evening.tfl". The old file stays whole until the new one is in.
    if ((fileExists(folder + typed) || fileExists(folder + name)) &&
        prog_.msg("A file of that name already exists. Overwrite?", MsgButtons::YesNo,
                  MsgIcon::Question) != MsgResult::Yes)
        return;
    if (txtUserName.text().empty())
        txtUserName.setText(kAnonymousUser);
    const std::string text = SavedGameText(prog_.state, tierfallValues(prog_), txtUserName.text());
    if (!writeFileAtomic(folder + name, text))
        return SaveError();
    if (Saved)
        Saved();
    prog_.unload(*this);
}

bool ShowSaveGame(Program& prog) {
    bool saved = false;
    frmSave& dialog = prog.load<frmSave>();
    dialog.Saved = [&saved] { saved = true; };
    prog.showModal(dialog);
    return saved;
}

}  // namespace corvanna
