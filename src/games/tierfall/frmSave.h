#pragma once
// Save Game: writes the last game played to a ".tfl" file in a folder the player
// picks, under the player's name, for a replay later.

#include <functional>
#include <string>

#include "common/FolderBrowser.h"
#include "common/Program.h"
#include "forms/Form.h"

namespace corvanna {

class frmSave : public Form {
public:
    explicit frmSave(Program& prog);

    void cmdOK_Click();
    void cmdCancel_Click();
    void File1_Click();
    // Enter in the name box: what is typed there becomes the pattern of the file list.
    void txtGameName_KeyEnter();

    Control& lblSaveInfo;
    Control& lblGameName;
    TextBox& txtGameName;
    ListControl& File1;
    Control& lblFolders;
    ListControl& Dir1;
    Control& lblDrives;
    ListControl& Drive1;
    Control& lblUserName;
    TextBox& txtUserName;
    Control& cmdOK;
    Control& cmdCancel;
    FolderBrowser browser;

    // Runs once the file is written, as the dialog closes.
    std::function<void()> Saved;

private:
    void SaveError();

    Program& prog_;
};

// Shows the dialog modal; true when a game was saved.
bool ShowSaveGame(Program& prog);

}  // namespace corvanna
