#pragma once
// Open Game: picks a saved ".tfl" file and hands its path to the game, which reads it
// and starts the replay. The dialog closes once the game has taken the file.

#include <functional>
#include <string>

#include "games/tierfall/GameFileDialog.h"

namespace corvanna {

class frmOpen : public GameFileDialog {
public:
    // `open` gets the file's whole path; true when the game took it.
    frmOpen(Program& prog, std::function<bool(const std::string& path)> open);

    void cmdOK_Click() override;

    Control& lblOpenInfo;

private:
    std::function<bool(const std::string& path)> open_;
};

// Shows the dialog modal; true when the game took a file.
bool ShowOpenGame(Program& prog, std::function<bool(const std::string& path)> open);

}  // namespace corvanna
