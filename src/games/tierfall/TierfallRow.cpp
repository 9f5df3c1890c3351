// Tierfall's row: what its frame, files and tables differ in, its form, its tables per
// card goal and scoring mode, its saved games and its bot.

#include "games/GameBot.h"
#include "games/GameRegistry.h"
#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/modTierfall.h"

namespace corvanna {

// The bot plays on the virtual platform, linked only into the tests and the soak
// (TierfallBot.cpp); the program itself goes without, so the row asks for it weakly.
__attribute__((weak)) std::unique_ptr<GameBot> makeTierfallBot(Program& prog, FakePlatform& fake,
                                                               GameFrame& form, std::uint64_t seed);

GameInfo tierfallRow() {
    GameInfo row = gameRow("tierfall", "Tierfall");
    row.defaultSeconds = 90;
    row.timeLimits = {{30, " &30 Seconds"},  {60, " &60 Seconds"},  {90, " &90 Seconds (Default)"},
                      {120, "1&20 Seconds"}, {150, "1&50 Seconds"}, {180, "1&80 Seconds"}};
    row.defaultDeckBack = 0;  // a new settings file keeps the design on show
    row.hasTakeScore = row.hasTakeScoreMenu = true;
    row.takeScoreTip = "Ends current round and awards time bonus";
    row.exitCaption = "&Exit";
    row.fileMenuCaption = "&Game";
    row.viewMenu = "mnuViewHiScore";
    row.clearMenu = "mnuClear";
    row.customMenu = "mnuScoring";
    row.customCaption = "C&ustomize Scoring...";
    row.hasScoringLabel = false;
    row.splashMs = 250;
    row.splashPicture = "TFAL";
    row.bonusRoundText = "Bonus Round!";
    row.bonusRoundSound = "HighScore.wav";
    row.defaultBonusRoundScore = 80000;
    row.playQuitQuestion = "You have a game in progress, are you sure you want to quit now?";
    row.menuQuitQuestion = "You have a game in progress, are you sure you want to restart now?";
    row.quitPausesFirst = true;
    row.menuStartsNoTune = true;
    row.gameOverStatus = "Game over";
    row.gameOverInMiddle = true;
    row.gameOverStays = false;
    row.unloadPausesFirst = true;
    row.dialogPause = DialogPause::ByPauseButton;
    row.clearPause = DialogPause::Never;
    row.hintLine = "Click on exposed cards to total 11!   ";
    row.submitMinimum = 175000;
    row.submitSeconds = 90;
    row.makeForm = [](Program& prog, const GameInfo& game) -> GameFrame& {
        return prog.load<frmTierfall>(game);
    };
    row.addVariables = addTierfallVariables;
    row.savedGameExtension = ".tfl";
    row.tableNameFrom = [](const Program& prog) { return TierfallTableName(tierfallValues(prog)); };
    row.tableInfo = [](const Program& prog) {
        const TierfallValues& t = tierfallValues(prog);
        return (t.EnhancedScoring ? "V 7.0 Enhanced Scoring - High Scores for a card goal of "
                                  : "High Scores for a card goal of ") +
               std::to_string(t.CardGoal);
    };
    row.seedsTableAtGameOver = true;
    row.mailLines = [](const Program& prog) {
        return std::string("Tierfall enahnced scoring mode is ") +
               (tierfallValues(prog).EnhancedScoring ? "True" : "False") + "\r\n\r\n";
    };
    if (makeTierfallBot)
        row.bot = makeTierfallBot;
    row.settings = TierfallSettings(row);
    row.rules = TierfallRules();
    return row;
}

}  // namespace corvanna
