#include "games/GameRegistry.h"

#include "common/Program.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

// Each game's row, in the game's folder.
GameInfo tierfallRow();
GameInfo fivestackRow();
GameInfo hitspreeRow();
GameInfo spirefoldRow();
GameInfo duomatchRow();
GameInfo gridflushRow();
GameInfo colclearRow();
GameInfo lettermineRow();
GameInfo wildslotRow();

const std::vector<GameInfo>& allGames() {
    static const std::vector<GameInfo> games = [] {
        std::vector<GameInfo> rows{
            tierfallRow(),  fivestackRow(), hitspreeRow(),   spirefoldRow(), duomatchRow(),
            gridflushRow(), colclearRow(),  lettermineRow(), wildslotRow(),
        };
        // Each game's own variables join the program-wide ones for `get`.
        for (const GameInfo& row : rows)
            if (row.addVariables)
                row.addVariables();
        return rows;
    }();
    return games;
}

const GameInfo* findGame(const std::string& formName) {
    for (const auto& g : allGames())
        if (g.formName == formName)
            return &g;
    return nullptr;
}

GameFrame& loadGameForm(Program& prog, const GameInfo& game) {
    GameFrame& form = game.makeForm(prog, game);
    form.Form_Load();
    return form;
}

GameInfo gameRow(const char* id, const char* name) {
    GameInfo g;
    g.id = id;
    g.title = std::string(name) + "!";
    g.button = std::string("cmd") + name;
    g.buttonCaption = std::string("&") + name;
    g.formName = std::string("frm") + name;
    g.settingsFile = std::string(name) + ".Ini";
    g.tableConstant = std::string(name) + " Hi Score Table ";
    g.makeForm = [](Program& prog, const GameInfo& game) -> GameFrame& {
        return prog.load<GameFrame>(game);
    };
    return g;
}

}  // namespace corvanna
