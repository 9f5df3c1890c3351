#pragma once
// What one game's frame differs in: names, captions, texts, timings and
// defaults. The nine rows live in games/GameRegistry.cpp; nothing else in the
// program spells a game's file names or frame texts.

#include <cstdint>
#include <string>
#include <vector>

namespace corvanna {

// How View High Scores, Rules and About pause a game around their dialog.
enum class DialogPause {
    ByPauseButton,     // pause if cmdPause is enabled
    ByGameInProgress,  // pause if a game is on
    Never,
};

struct TimeLimitEntry {
    int seconds;
    std::string caption;  // the menu is "mnu" + seconds
};

struct GameInfo {
    std::string id;             // "tierfall": settings and table names come from the title
    std::string title;          // AppTitle, "Tierfall!"
    std::string button;         // "cmdTierfall" on the selector
    std::string buttonCaption;  // "&Tierfall"
    std::string formName;       // "frmTierfall"
    std::string settingsFile;   // "Tierfall.Ini"

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
    std::int32_t defaultBonusRoundScore = 0;
    std::int32_t defaultTimeBonus = 100;

    // Questions and pauses.
    std::string playQuitQuestion = "You have a game in progress, are you sure you want to quit?";
    bool unloadPausesFirst = false;
    DialogPause dialogPause = DialogPause::ByGameInProgress;
    // The Clear High Scores command pauses by this form; in two games it doesn't pause.
    DialogPause clearPause = DialogPause::ByGameInProgress;

    // Settings file: every key in the writer's order (a key may stand twice), and the
    // game's names for the common values.
    std::vector<std::string> settingsKeys;
    std::string timeKey = "Time";
    std::string countDownKey = "Count Down Score";
    std::string bonusKey = "Bonus Score";

    // Window sizes in twips.
    int minWidth = 9540, minHeight = 7200;
    int maximisedWidth = 9540, maximisedHeight = 7200;

    // Status bar.
    std::string welcomeSuffix = "  ";
    std::string bonusLine = " for Bonus Round!   ";  // "Make " + score + this
    std::string hintLine;                            // panel 2 at the deal

    // What a score sent to the high score page must reach, and the time limit it must
    // have been played under.
    std::int32_t submitMinimum = 0;
    std::int16_t submitSeconds = 0;

    // The text before the round with this number.
    std::string roundText(int round) const;
};

}  // namespace corvanna
