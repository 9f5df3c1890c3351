// Tierfall's saved games from the form's side: the two menu entries, the opening of
// a saved game with its replay, and the game the program was started with.

#include <algorithm>

#include "games/tierfall/SavedGame.h"
#include "games/tierfall/frmOpen.h"
#include "games/tierfall/frmSave.h"
#include "games/tierfall/frmTierfall.h"

namespace corvanna {

namespace {
constexpr const char* kSavedGameTitle = "Saved Game Information";
}  // namespace

void frmTierfall::mnuSave_Click() {
    ShowSaveGame(prog_);
}

void frmTierfall::mnuOpen_Click() {
    ShowOpenGame(prog_, [this](const std::string& path) { return OpenSavedGame(path); });
}

bool frmTierfall::OpenSavedGame(const std::string& fileName) {
    // The whole file is checked first, so a damaged one changes nothing at all.
    SavedGame game;
    if (!ReadSavedGame(fileName, game)) {
        prog_.msg(
            "Unable to open the requested file. It may be damaged or you may have entered an "
            "invalid file name.",
            MsgButtons::OK, MsgIcon::Critical);
        return false;
    }
    SetCardGoal(game.cardGoal);
    if (!CreateElevensDeck())
        return false;
    // Rounds the saved game never reached stay blank and are shuffled anew.
    for (std::size_t r = 0; r < game.decks.size(); ++r)
        if (!game.decks[r].empty())
            values().RoundDecks[r] = game.decks[r];

    const std::string message = SavedGameMessage(game, g_.RoundSeconds);
    if (game.seconds != g_.RoundSeconds) {
        if (prog_.platform.msgBox(message, MsgButtons::YesNo, MsgIcon::Question, kSavedGameTitle) ==
            MsgResult::Yes)
            ApplySavedTimeLimit(game.seconds);
    } else {
        prog_.platform.msgBox(message, MsgButtons::OK, MsgIcon::Information, kSavedGameTitle);
    }

    values().ReplayRequested = true;
    Timer4.stop();
    frmSplash.setVisible(false);
    cmdTakeScore->setCaption("&Replay");
    PlayCommand(false);
    return true;
}

void frmTierfall::ApplySavedTimeLimit(int seconds) {
    g_.RoundSeconds = static_cast<std::int16_t>(seconds);
    ClearTimeCheck();
    SetTimeLimit(seconds);
    const auto entries = mnuTime.children();
    if (std::none_of(entries.begin(), entries.end(), [](Menu* m) { return m->checked(); }))
        ShowHighScore();  // the menu offers no such limit: its table is shown all the same
}

void frmTierfall::Form_Activate() {
    if (activated_)
        return;
    activated_ = true;
    // Taken, not read: a later Tierfall of this run starts as usual.
    const std::string file = prog_.takeCommandLine();
    if (!file.empty())
        OpenSavedGame(file);
}

}  // namespace corvanna
