#include "scores/HighScores.h"

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/frame/GameFrame.h"
#include "scores/frmHiScoreName.h"

namespace corvanna {

namespace {

// What is wrong with a table, and that it is kept, for the two messages below.
std::string TableFault(const std::string& path, const std::string& why) {
    return fileExists(path) ? why + ". The file has been left as it is." : why + ".";
}

bool SaveTable(Program& prog, const std::string& path, const std::string& text,
               bool userAsked = false) {
    return prog.saveFile(
        path, text,
        [&](const std::string& why) {
            return "The high score table \"" + path +
                   "\" could not be used: it could not be "
                   "written (" +
                   why + ").";
        },
        MsgIcon::None, userAsked);
}

// A table that can't be read is named once a session, however often it is shown.
void ReportDamaged(Program& prog, const std::string& path, const std::string& why) {
    prog.tellFileFault(
        path, "The high score table \"" + path + "\" could not be used: " + TableFault(path, why),
        MsgIcon::None);
}

// At game over the player hears once that this score went nowhere, and why.
void ReportNotRanked(Program& prog, const std::string& path, const std::string& why) {
    prog.tellFileFault(path,
                       "Your score of " + formatScore(prog.state.Score) +
                           " could not be ranked in the high score table \"" + path +
                           "\": " + TableFault(path, why),
                       MsgIcon::None, true);
}

}  // namespace

std::string HighScoreFilePath(const Program& prog, const std::string& tableName) {
    return prog.filePath(tableName + std::to_string(prog.state.RoundSeconds) + ".Txt");
}

bool CreateHighScoreTable(Program& prog, const std::string& tableName, std::int64_t defaultScore,
                          bool userAsked) {
    return SaveTable(prog, HighScoreFilePath(prog, tableName),
                     HighScoreTable::seedText(defaultScore), userAsked);
}

bool ShowHighScoreLabel(Program& prog, const std::string& tableName, Control& lblHighScore,
                        const std::string& prefix, std::int64_t defaultScore) {
    HighScoreTable table(HighScoreFilePath(prog, tableName));
    if (!table.exists() && !CreateHighScoreTable(prog, tableName, defaultScore)) {
        // Play goes on with the top score a fresh table would have had.
        lblHighScore.setCaption(prefix + formatScore(defaultScore));
        return false;
    }
    std::string error;
    if (!table.read(&error)) {
        ReportDamaged(prog, table.path(), error);
        // No score at all, rather than one left there by another table.
        lblHighScore.setCaption(prefix);
        return false;
    }
    lblHighScore.setCaption(prefix + formatScore(table.rows().front().score));
    return true;
}

bool ShowHighScoreLabel(Program& prog, const std::string& tableName, GameFrame& form,
                        std::int64_t defaultScore) {
    return ShowHighScoreLabel(prog, tableName, form.lblHighScore, form.info().highScorePrefix,
                              defaultScore);
}

bool UpdateHighScoreTable(Program& prog, const std::string& tableName,
                          const std::function<void()>& showTable) {
    AppState& g = prog.state;
    g.NewHighScoreRow = -1;
    HighScoreTable table(HighScoreFilePath(prog, tableName));
    // The whole table is checked before anyone is asked for a name: an entry that could
    // not be written would be lost after the player typed it.
    std::string error;
    if (!table.read(&error)) {
        // One that could not even be made has been told about already.
        if (!(prog.fileFaultTold(table.path()) && !table.exists()))
            ReportNotRanked(prog, table.path(), error);
        return false;
    }
    const int row = HighScoreTable::rankOf(table.rows(), g.Score);
    HighScoreRow entry;
    if (row >= 0) {
        g.NewHighScoreRow = static_cast<std::int16_t>(row);
        if (g.SoundsOn)
            prog.platform.playWave(prog.shippedFile("HighScore.wav"));
        AskHighScoreName(prog);
        entry.name = g.UserName + (g.CustomScoring ? "*" : "");
        entry.score = g.Score;
        entry.date = formatHighScoreDate(prog.platform.now());
    }
    // Rewritten in every case, so an eleventh row left by the last entry goes now.
    if (!SaveTable(prog, table.path(), HighScoreTable::insertedText(table.rows(), row, entry)))
        return false;
    if (row >= 0) {
        if (showTable)
            showTable();
        else if (prog.dialogs.viewHighScores)
            prog.dialogs.viewHighScores();
    }
    return true;
}

}  // namespace corvanna
