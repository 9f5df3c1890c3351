#pragma once
// Open Game: picks a saved ".tfl" file and hands its path to the game, which reads it
// and starts the replay. The dialog closes once the game has taken the file.

#include <functional>
#include <string>

#include "common/FolderBrowser.h"
#include "common/Program.h"
#include "forms/Form.h"

namespace corvanna {

class frmOpen : public Form {
public:
    // `open` gets the file's whole path; true when the game took it.
    frmOpen(Program& prog, std::function<bool(const std::string& path)> open);

    void cmdOK_Click();
    void cmdCancel_Click();
    void File1_Click();
    // Enter in the name box: what is typed there becomes the pattern of the file list.
    void txtGameName_KeyEnter();

    Control& lblOpenInfo;
    Control& lblGameName;
    TextBox& txtGameName;
    ListControl& File1;
    Control& lblFolders;
    ListControl& Dir1;
    Control& lblDrives;
    ListControl& Drive1;
    Control& cmdOK;
    Control& cmdCancel;
    FolderBrowser browser;

private:
    Program& prog_;
    std::function<bool(const std::string& path)> open_;
};

// Shows the dialog modal; true when the game took a file.
bool ShowOpenGame(Program& prog, std::function<bool(const std::string& path)> open);

}  // namespace corvanna
