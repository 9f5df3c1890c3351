#pragma once
// What one game's frame differs in: names, captions, texts, timings and
// defaults, and everything else the program needs of a game. Each game's row lives
// in its own folder (games/<name>/<Name>Row.cpp), listed in games/GameRegistry.cpp;
// nothing else in the program spells a game's file names or frame texts.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "common/RulesText.h"
#include "common/frame/SettingBindings.h"

namespace corvanna {

class FakePlatform;
class GameBot;
class GameFrame;
class Program;
struct GameInfo;

// A player for the soak and the tests (games/GameBot.h), on the virtual platform.
using GameBotFactory = std::function<std::unique_ptr<GameBot>(Program& prog, FakePlatform& fake,
                                                              GameFrame& form, std::uint64_t seed)>;

// How View High Scores, Rules and About pause a game around their dialog.
enum class DialogPause {
    ByPauseButton,     // pause if cmdPause is enabled
    ByGameInProgress,  // pause if a game is on
    Never,
};

// Where a count-up shows the amount being paid and its message, and its colours.
struct CountUpLook {
    // lblScoring in the middle of the form; false: where the board's layout put it.
    bool scoringInMiddle = true;
    // Speed bonus: lblMessage's top this far above the form's middle (negative: unmoved).
    int speedMessageAboveMiddle = -1;
    // Speed bonus: lblMessage ends this far left of lblScoring (negative: unmoved).
    int speedMessageLeftOfScoring = -1;
    // Count bonus: lblMessage raised by this much.
    int countMessageRaise = 0;
    // The speed bonus is the seconds left times the round's points, without a caption.
    bool speedTimesRoundPoints = false;
    std::uint32_t countingScore = 0x00FFFF;  // the score label while it runs up
    std::uint32_t restingScore = 0x0000FF;
};

struct TimeLimitEntry {
    int seconds;
    std::string caption;  // the menu is "mnu" + seconds
};

struct GameInfo {
    // For a game called Name: "name" (its folder), AppTitle "Name!", "cmdName" on the
    // selector captioned "&Name", the form "frmName" and the settings file "Name.Ini".
    std::string id;
    std::string title;
    std::string button;
    std::string buttonCaption;
    std::string formName;
    std::string settingsFile;

    // Loads the game's form, not yet shown (a game without rules of its own: the plain frame).
    std::function<GameFrame&(Program& prog, const GameInfo& game)> makeForm;
    // Registers the game's own variables for the driver's `get`, once, with the table.
    std::function<void()> addVariables;
    // The rules dialog's text: fixed wording and the game's values in force.
    RulesText rules;
    // Its player for the soak; empty when the game has none or the bots aren't linked in.
    GameBotFactory bot;
    // A saved game of this extension (".tfl") given on the command line opens in this game.
    std::string savedGameExtension;

    // Time limits.
    std::int16_t defaultSeconds = 60;
    std::string timeMenu = "mnuTime";
    std::vector<TimeLimitEntry> timeLimits;

    // Back designs: for DeckBack 1..4, the picture store's design (1 Palm Tree,
    // 2 Magic Hands, 3 Night Castle, 4 Hot Cards). Empty: the game has no Deck menu.
    std::vector<int> deckDesigns{1, 2, 3, 4};
    std::int16_t defaultDeckBack = 1;

    // Commands.
    bool hasTakeScore = false;
    bool hasTakeScoreMenu = false;
    std::string takeScoreTip;
    std::string exitButton = "cmdExit";
    std::string exitCaption = "E&xit";
    std::string exitTip = "Exits the game";
    std::string endGameCaption = "&End Game";
    std::string endGameTip = "Ends the game in progress";
    std::string pauseCaption = "Pau&se";
    std::string pauseTip = "Pauses the current game";

    // Menus.
    std::string fileMenu = "mnuFile";
    std::string fileMenuCaption = "&File";
    std::string viewMenu = "mnuViewHighScores";
    std::string clearMenu = "mnuClearHighScores";
    std::string customMenu = "mnuCustom";
    std::string customCaption = "&User Options...";
    std::string rulesCaption = "&Rules...";
    std::string aboutCaption = "&About...";

    // Labels.
    std::string scoreLabel = "lblCurrentScore";
    std::string messageLabel = "lblMessage";
    bool hasScoringLabel = true;
    bool roundLabelAlone = false;  // "Round: " + n in lblRound, no lblCurrentRound
    std::string highScorePrefix = "High Score: ";

    // What lblCurrentRound shows in the bonus round: "Bonus", or the number when empty.
    std::string bonusRoundCaption = "Bonus";
    // The picture the splash deals face up; empty for a random card face.
    std::string splashPicture;

    // Timers.
    int splashMs = 200;
    bool clockRepaintAtLoad = false;
    std::string timeOfDayTimer = "Timer3";

    // Round flow.
    int normalRounds = 2;
    std::string nextRoundText = "Prepare for Round Two!";  // "%n" stands for the round
    std::string bonusRoundText = "Prepare for Bonus Round!";
    std::string bonusRoundSound = "Applause.wav";  // empty: none
    bool bonusNeedsMoreThanScore = false;          // above, not at least
    int flashesBeforeRound = 11;
    int flashesAtTimeOut = 10;
    int flashMs = 250;  // a colour swap of lblMessage
    // Panel 2 at game over, and where "Game Over" stands: the vertical middle of the form,
    // and whether it stays up once the splash is back.
    std::string gameOverStatus = "Game Over";
    bool gameOverInMiddle = false;
    bool gameOverStays = true;
    // Game over leaves the board on view (the word game shows its phrase).
    bool keepsBoardAtGameOver = false;
    // A game or round started from a menu starts no tune (the bonus round always does).
    bool menuStartsNoTune = false;
    // The count-up's look (CountUp.cpp).
    CountUpLook countUp;
    std::int32_t defaultBonusRoundScore = 0;
    std::int32_t defaultTimeBonus = 100;

    // Questions and pauses.
    std::string playQuitQuestion = "You have a game in progress, are you sure you want to quit?";
    std::string menuQuitQuestion;  // mnuPlay's, when it differs
    bool quitPausesFirst = false;  // the game is paused under that question
    bool unloadPausesFirst = false;
    DialogPause dialogPause = DialogPause::ByGameInProgress;
    // The Clear High Scores command pauses by this form; in two games it doesn't pause.
    DialogPause clearPause = DialogPause::ByGameInProgress;

    // Settings file: a binding per key in the writer's order (a key may stand twice), the
    // frame's keys among them; it gives the reader, the writer, the defaults at load,
    // CheckForCustom and the scoring dialog's Default.
    SettingTable settings;

    // Window sizes in twips.
    int minWidth = 9540, minHeight = 7200;
    int maximisedWidth = 9540, maximisedHeight = 7200;

    // Status bar.
    std::string welcomeSuffix = "  ";
    std::string bonusLine = " for Bonus Round!   ";  // "Make " + score + this
    std::string hintLine;                            // panel 2 at the deal

    // High scores: the table name constant ("Name Hi Score Table ", one blank at the end),
    // the seed of a fresh table (at load and from the game's own Clear) and the seed when
    // the High Scores dialog clears it.
    std::string tableConstant;
    std::int64_t seedScore = 50000;
    std::int64_t clearedSeedScore = 50000;
    // The whole table name from the program's values; empty: the constant alone.
    std::function<std::string(const Program& prog)> tableNameFrom;
    // The High Scores dialog's line above the asterisk note; empty: none.
    std::function<std::string(const Program& prog)> tableInfo;
    // A table missing at game over is seeded before the final score is ranked.
    bool seedsTableAtGameOver = false;
    // Lines of every game's high score mail, each ended by two line breaks.
    std::function<std::string(const Program& prog)> mailLines;

    // What a score sent to the high score page must reach, and the time limit it must
    // have been played under.
    std::int32_t submitMinimum = 0;
    std::int16_t submitSeconds = 0;

    // The whole table name, without the seconds.
    std::string tableName(const Program& prog) const {
        return tableNameFrom ? tableNameFrom(prog) : tableConstant;
    }

    // The text before the round with this number.
    std::string roundText(int round) const;
};

}  // namespace corvanna
