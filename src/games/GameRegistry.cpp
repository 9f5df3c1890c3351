#include "games/GameRegistry.h"

#include "common/Program.h"
#include "common/frame/GameFrame.h"
#include "games/tierfall/frmTierfall.h"
#include "games/tierfall/modTierfall.h"

namespace corvanna {

namespace {

std::vector<GameInfo> makeGames() {
    std::vector<GameInfo> games;
    auto base = [](const char* id, const char* name) {
        GameInfo g;
        g.id = id;
        g.title = std::string(name) + "!";
        g.button = std::string("cmd") + name;
        g.buttonCaption = std::string("&") + name;
        g.formName = std::string("frm") + name;
        g.settingsFile = std::string(name) + ".Ini";
        return g;
    };

    GameInfo t = base("tierfall", "Tierfall");
    t.defaultSeconds = 90;
    t.timeLimits = {{30, " &30 Seconds"},  {60, " &60 Seconds"},  {90, " &90 Seconds (Default)"},
                    {120, "1&20 Seconds"}, {150, "1&50 Seconds"}, {180, "1&80 Seconds"}};
    t.defaultDeckBack = 0;  // a new settings file keeps the design on show
    t.hasTakeScore = t.hasTakeScoreMenu = true;
    t.takeScoreTip = "Ends current round and awards time bonus";
    t.exitCaption = "&Exit";
    t.fileMenuCaption = "&Game";
    t.viewMenu = "mnuViewHiScore";
    t.clearMenu = "mnuClear";
    t.customMenu = "mnuScoring";
    t.customCaption = "C&ustomize Scoring...";
    t.hasScoringLabel = false;
    t.splashMs = 250;
    t.splashPicture = "TFAL";
    t.bonusRoundText = "Bonus Round!";
    t.bonusRoundSound = "HighScore.wav";
    t.defaultBonusRoundScore = 80000;
    t.playQuitQuestion = "You have a game in progress, are you sure you want to quit now?";
    t.menuQuitQuestion = "You have a game in progress, are you sure you want to restart now?";
    t.quitPausesFirst = true;
    t.menuStartsNoTune = true;
    t.gameOverStatus = "Game over";
    t.gameOverInMiddle = true;
    t.gameOverStays = false;
    t.unloadPausesFirst = true;
    t.dialogPause = DialogPause::ByPauseButton;
    t.settingsKeys = {"Color", "Play Music", "Time", "DrawTimer", "Play Sounds", "CardGoal",
                      "Bonus Round Score", "Completion Bonus", "Elevens Bonus", "Elevens Bonus ES",
                      "Time Bonus", "State", "New Score Mode", "Width", "Height", "Deck",
                      // Ours: the card bonus a player sets is kept like the others.
                      "Card Bonus"};
    t.countDownKey = "DrawTimer";
    t.bonusKey = "Bonus Round Score";
    t.clearPause = DialogPause::Never;
    t.hintLine = "Click on exposed cards to total 11!   ";
    t.submitMinimum = 175000;
    t.submitSeconds = 90;
    games.push_back(t);

    GameInfo f = base("fivestack", "Fivestack");
    f.defaultSeconds = 60;
    f.timeLimits = {{15, "&15 Seconds"},
                    {30, "&30 Seconds"},
                    {45, "&45 Seconds"},
                    {60, "&60 Seconds (default)"},
                    {75, "&75 Seconds"}};
    f.deckDesigns = {4, 2, 3, 1};
    f.defaultDeckBack = 0;
    f.exitButton = "cmdQuit";
    f.scoreLabel = "lblTotalScore";
    f.messageLabel = "ScoringLabel";
    f.hasScoringLabel = false;
    f.roundLabelAlone = true;
    f.normalRounds = 3;
    f.nextRoundText = "Prepare for Round %n";
    f.bonusRoundSound = "HighScore.wav";
    f.defaultBonusRoundScore = 200000;
    f.defaultTimeBonus = 0;
    f.unloadPausesFirst = true;
    f.dialogPause = DialogPause::ByPauseButton;
    f.minWidth = f.maximisedWidth = 9540;
    f.minHeight = f.maximisedHeight = 7305;
    f.bonusLine = " for bonus round.  ";
    f.settingsKeys = {"Time",           "Play Sounds",   "Play Music", "Deck",
                      "TimeBonusMax",   "TimeBonusMin",  "BonusScore", "WaitPeriod",
                      "CountDownScore", "Cards To Pass", "State",      "Width",
                      "Height"};
    f.countDownKey = "CountDownScore";
    f.bonusKey = "BonusScore";
    f.clearPause = DialogPause::ByPauseButton;
    f.hintLine = "Click on Hit buttons to create columns of 21!   ";
    f.submitMinimum = 600000;
    f.submitSeconds = 60;
    games.push_back(f);

    GameInfo h = base("hitspree", "Hitspree");
    h.defaultSeconds = 90;
    h.timeMenu = "mnuTimeLimit";
    h.timeLimits = {{15, "&15 Seconds (for the daring)"},
                    {30, "&30 Seconds"},
                    {60, "&60 Seconds"},
                    {90, "&90 Seconds (default)"},
                    {120, "&120 Seconds"}};
    h.deckDesigns = {4, 2, 3, 1};
    h.defaultDeckBack = 3;
    h.hasTakeScore = true;
    h.takeScoreTip = "Totals score for current round";
    h.endGameCaption = "&End game";
    h.pauseCaption = "P&ause";
    h.pauseTip = "Pauses the game in progress";
    h.customMenu = "mnuUserOptions";
    h.scoreLabel = "lblTotalScore";
    h.messageLabel = "ScoringLabelInfo";
    h.hasScoringLabel = false;
    h.roundLabelAlone = true;
    h.timeOfDayTimer = "Timer6";
    h.normalRounds = 3;
    h.nextRoundText = "Prepare for Round %n";
    h.bonusRoundText = "Prepare for Bonus Round";
    h.bonusRoundSound = "HighScore.wav";
    h.bonusNeedsMoreThanScore = true;
    h.defaultBonusRoundScore = 250000;
    h.defaultTimeBonus = 0;
    h.playQuitQuestion = "You have a game in progress. Are you sure you want to quit?";
    h.unloadPausesFirst = true;
    h.minWidth = h.maximisedWidth = 9060;
    h.minHeight = h.maximisedHeight = 7155;
    h.welcomeSuffix = "!      ";
    h.bonusLine = " for bonus round.";
    h.settingsKeys = {"Play Sounds",
                      "Timer Speed",
                      "Play Music",
                      "Deck",
                      "Cards To Pass",
                      "TwentyOne Bonus Value",
                      "Cards Used Bonus Value",
                      "5 Cards Bonus Value",
                      "Deck Completion Bonus",
                      "Wait Period",
                      "Time Limit",
                      "Bonus Round Score",
                      "Count Down Score",
                      "State",
                      "Width",
                      "Height"};
    h.timeKey = "Time Limit";
    h.bonusKey = "Bonus Round Score";
    h.clearPause = DialogPause::Never;
    h.hintLine = "Create columns of 21 to increase bonus score!";
    h.submitMinimum = 700000;
    h.submitSeconds = 90;
    games.push_back(h);

    GameInfo s = base("spirefold", "Spirefold");
    s.defaultSeconds = 45;
    s.timeLimits = {{30, "&30 seconds"},
                    {45, "&45 seconds (default)"},
                    {60, "&60 seconds"},
                    {90, "&90 seconds "}};
    s.hasTakeScore = s.hasTakeScoreMenu = true;
    s.takeScoreTip = "End current round and take score";
    s.endGameTip = "Ends the current game";
    s.fileMenu = "mnuGame";
    s.fileMenuCaption = "&Game";
    s.viewMenu = "mnuViewHiScore";
    s.rulesCaption = "&Rules";
    s.aboutCaption = "&About";
    s.highScorePrefix = "Current High Score: ";
    s.defaultBonusRoundScore = 40000;
    s.minWidth = s.maximisedWidth = 9570;
    s.settingsKeys = {"Play Music",       "Time",        "Play Sounds", "Hi Run",
                      "Card Bonus",       "Bonus Score", "Tower Bonus", "High Run Bonus",
                      "Count Down Score", "Time Bonus",  "State",       "Width",
                      "Height",           "Deck"};
    s.hintLine = "Create runs by clicking on exposed cards!   ";
    s.submitMinimum = 90000;
    s.submitSeconds = 45;
    games.push_back(s);

    GameInfo d = base("duomatch", "Duomatch");
    d.defaultSeconds = 45;
    d.timeLimits = {{30, "&30 seconds"},  {45, "&45 seconds (default)"}, {60, "&60 seconds"},
                    {75, "&75 seconds"},  {90, "&90 seconds"},           {105, "&105 seconds"},
                    {120, "1&20 seconds"}};
    d.hasTakeScore = d.hasTakeScoreMenu = true;
    d.takeScoreTip = "End current round and take score";
    d.endGameTip = "Ends the current game";
    d.viewMenu = "mnuView";
    d.clearMenu = "mnuClear";
    d.rulesCaption = "&Rules";
    d.aboutCaption = "&About";
    d.bonusRoundCaption = "";
    d.defaultBonusRoundScore = 80000;
    d.minWidth = d.maximisedWidth = 9570;
    d.settingsKeys = {"Play Music",  "Time",       "Play Sounds", "Play Music",  "Count Down Score",
                      "Pairs Bonus", "Runs Bonus", "Time Bonus",  "Bonus Score", "Completion Bonus",
                      "State",       "Width",      "Height",      "Deck"};
    d.hintLine = "Create runs by clicking on exposed cards!   ";
    d.submitMinimum = 140000;
    d.submitSeconds = 45;
    games.push_back(d);

    GameInfo g = base("gridflush", "Gridflush");
    g.defaultSeconds = 75;
    g.timeLimits = {{30, "&30 seconds"},           {45, "&45 seconds"}, {60, "&60 seconds  "},
                    {75, "&75 seconds (default)"}, {90, "&90 seconds"}, {105, "&105 seconds"},
                    {120, "&120 seconds"}};
    g.exitButton = "cmdQuit";
    g.viewMenu = "mnuView";
    g.clearMenu = "mnuClear";
    g.messageLabel = "ScoringLabel";
    g.roundLabelAlone = true;
    g.clockRepaintAtLoad = true;
    g.normalRounds = 3;
    g.nextRoundText = "Prepare for round %n!";
    g.bonusRoundText = "Bonus round!";
    g.bonusRoundSound = "HighScore.wav";
    g.flashesBeforeRound = 10;
    g.countUp.speedTimesRoundPoints = true;
    g.defaultBonusRoundScore = 100000;
    g.defaultTimeBonus = 1;
    g.minWidth = 9540;
    g.minHeight = 7305;
    g.maximisedWidth = 9570;
    g.maximisedHeight = 7200;
    g.welcomeSuffix = "   ";
    g.bonusLine = " for bonus round.  ";
    g.settingsKeys = {"Time",
                      "Play Sounds",
                      "Play Music",
                      "Count Down Score",
                      "Deck",
                      "Time Bonus",
                      "Bonus Score",
                      "Pair Score",
                      "Two Pair Score",
                      "Trips Score",
                      "Flush Score",
                      "Full House Score",
                      "Straight Score",
                      "Four Score",
                      "Straight Flush Score",
                      "Royal Flush Score",
                      "Over Writes",
                      "State",
                      "Width",
                      "Height"};
    g.hintLine = "Click on cards to get the best Poker hand!   ";
    g.submitMinimum = 130000;
    g.submitSeconds = 75;
    games.push_back(g);

    GameInfo c = base("colclear", "Colclear");
    c.defaultSeconds = 120;
    c.timeLimits = {{60, "&60 seconds"},
                    {75, "&75 seconds"},
                    {90, "&90 seconds"},
                    {105, "&105 seconds"},
                    {120, "1&20 seconds (default)"},
                    {135, "1&35 seconds"},
                    {150, "1&50 seconds"},
                    {180, "1&80 seconds"}};
    c.hasTakeScore = true;
    c.takeScoreTip = "Ends the round and awards points";
    c.exitButton = "cmdQuit";
    c.exitTip = "Closes Colclear";
    c.viewMenu = "mnuView";
    c.clearMenu = "mnuClear";
    c.rulesCaption = "&Rules";
    c.roundLabelAlone = true;
    c.clockRepaintAtLoad = true;
    c.nextRoundText = "Prepare For Round %n";
    c.bonusRoundText = "Prepare For Bonus Round";
    c.bonusRoundSound = "";
    c.countUp.speedMessageLeftOfScoring = 100;
    c.defaultBonusRoundScore = 100000;
    c.defaultTimeBonus = 200;
    c.minWidth = c.maximisedWidth = 9540;
    c.minHeight = c.maximisedHeight = 7305;
    c.settingsKeys = {"Time",       "Play Sounds", "Play Music",      "Count Down Score",
                      "Deck",       "Time Bonus",  "Bonus Score",     "Trips Score",
                      "Runs Score", "Flush Score", "Deck Completion", "LeftOverCards",
                      "State",      "Width",       "Height"};
    c.hintLine = "Create runs and triples by moving available cards!   ";
    c.submitMinimum = 225000;
    c.submitSeconds = 120;
    games.push_back(c);

    GameInfo l = base("lettermine", "Lettermine");
    l.defaultSeconds = 45;
    l.timeLimits = {{30, "&30 seconds"},  {45, "&45 seconds (default)"}, {60, "&60 seconds"},
                    {75, "&75 seconds"},  {90, "&90 seconds"},           {105, "&105 seconds"},
                    {120, "1&20 seconds"}};
    l.deckDesigns.clear();
    l.countUp.scoringInMiddle = false;
    l.endGameTip = "Ends the current game";
    l.defaultBonusRoundScore = 250000;
    l.minWidth = l.maximisedWidth = 9570;
    l.settingsKeys = {"Play Music",  "Time",        "Play Sounds", "Count Down Score",
                      "Topic",       "Time Bonus",  "Bonus Score", "Completion Bonus",
                      "Guess Bonus", "Guess Count", "ShowPhrase",  "State",
                      "Width",       "Height",      "Topic"};
    l.hintLine = "Discover the phrase by selecting available letters  ";
    l.submitMinimum = 430000;
    l.submitSeconds = 45;
    games.push_back(l);

    GameInfo w = base("wildslot", "Wildslot");
    w.defaultSeconds = 90;
    w.timeLimits = {{60, "&60 Seconds"},
                    {75, "&75 Seconds"},
                    {90, "&90 Seconds  (default)"},
                    {105, "&105 Seconds"},
                    {120, "1&20 Seconds"}};
    w.deckDesigns = {1, 3, 2, 4};
    w.scoreLabel = "lblTotalScore";
    w.countUp.speedMessageAboveMiddle = 800;
    w.countUp.countMessageRaise = 800;
    w.defaultBonusRoundScore = 5000000;
    w.playQuitQuestion = "You have a game in progress, are you sure you want to quit now?";
    w.unloadPausesFirst = true;
    w.dialogPause = DialogPause::ByPauseButton;
    w.minWidth = w.maximisedWidth = 9540;
    w.minHeight = w.maximisedHeight = 7305;
    w.settingsKeys = {"Play Sounds", "Play Music", "Deck", "Bonus Score", "Wildslot CompleteBonus",
                      "Time Bonus",  "Count Down", "Time", "Width",       "Height"};
    w.countDownKey = "Count Down";
    w.clearPause = DialogPause::ByPauseButton;
    w.bonusLine = " for bonus round.  ";
    w.submitMinimum = 13000000;
    w.submitSeconds = 90;
    games.push_back(w);
    return games;
}

}  // namespace

const std::vector<GameInfo>& allGames() {
    static const std::vector<GameInfo> games = [] {
        // Each game's own variables join the program-wide ones for `get`.
        addTierfallVariables();
        return makeGames();
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
    // Games with rules of their own have their own form; the rest run on the frame alone.
    GameFrame& form = game.formName == "frmTierfall"
                          ? static_cast<GameFrame&>(prog.load<frmTierfall>(game))
                          : prog.load<GameFrame>(game);
    form.Form_Load();
    return form;
}

}  // namespace corvanna
