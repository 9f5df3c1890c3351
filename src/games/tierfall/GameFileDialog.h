#pragma once
// What Save Game and Open Game share: the name box with the file list under it,
// the folder and drive lists beside it, OK and Cancel. Each dialog adds its own
// lines and what OK does.

#include <string>

#include "common/FolderBrowser.h"
#include "common/Program.h"
#include "forms/Form.h"

namespace corvanna {

class GameFileDialog : public Form {
public:
    // buttonsTop: where OK and Cancel stand, under the lists or beside a dialog's own box.
    GameFileDialog(Program& prog, const std::string& name, const std::string& caption,
                   const std::string& nameCaption, int height, int buttonsTop);

    virtual void cmdOK_Click() = 0;
    void cmdCancel_Click();
    void File1_Click();
    // Enter in the name box: what is typed there becomes the pattern of the file list.
    void txtGameName_KeyEnter();

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

protected:
    // A label of the dialog's own, at the top or below the lists.
    Control& addLabel(const std::string& name, const std::string& caption);

    Program& prog_;
};

}  // namespace corvanna
