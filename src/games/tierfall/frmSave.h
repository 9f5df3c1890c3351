#pragma once
// Save Game: writes the last game played to a ".tfl" file in a folder the player
// picks, under the player's name, for a replay later.

#include <functional>
#include <string>

#include "games/tierfall/GameFileDialog.h"

namespace corvanna {

class frmSave : public GameFileDialog {
public:
    explicit frmSave(Program& prog);

    void cmdOK_Click() override;

    Control& lblSaveInfo;
    Control& lblUserName;
    TextBox& txtUserName;

    // Runs once the file is written, as the dialog closes.
    std::function<void()> Saved;

private:
    void SaveError();
};

// Shows the dialog modal; true when a game was saved.
bool ShowSaveGame(Program& prog);

}  // namespace corvanna
