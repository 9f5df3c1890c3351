// Colclear's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"
#include "games/colclear/ColclearValues.h"

namespace corvanna {

GameInfo colclearRow() {
    GameInfo row = gameRow("colclear", "Colclear");
    row.defaultSeconds = 120;
    row.timeLimits = {{60, "&60 seconds"},
                      {75, "&75 seconds"},
                      {90, "&90 seconds"},
                      {105, "&105 seconds"},
                      {120, "1&20 seconds (default)"},
                      {135, "1&35 seconds"},
                      {150, "1&50 seconds"},
                      {180, "1&80 seconds"}};
    row.hasTakeScore = true;
    row.takeScoreTip = "Ends the round and awards points";
    row.exitButton = "cmdQuit";
    row.exitTip = "Closes Colclear";
    row.viewMenu = "mnuView";
    row.clearMenu = "mnuClear";
    row.rulesCaption = "&Rules";
    row.roundLabelAlone = true;
    row.clockRepaintAtLoad = true;
    row.nextRoundText = "Prepare For Round %n";
    row.bonusRoundText = "Prepare For Bonus Round";
    row.bonusRoundSound = "";
    row.countUp.speedMessageLeftOfScoring = 100;
    row.defaultBonusRoundScore = 100000;
    row.defaultTimeBonus = 200;
    row.minWidth = row.maximisedWidth = 9540;
    row.minHeight = row.maximisedHeight = 7305;
    row.hintLine = "Create runs and triples by moving available cards!   ";
    row.submitMinimum = 225000;
    row.submitSeconds = 120;
    // The game's own keys join the table with its rules.
    row.settings = {timeSetting("Time", row.defaultSeconds),
                    soundsSetting(),
                    musicSetting(),
                    countDownSetting("Count Down Score"),
                    deckSetting(row.defaultDeckBack),
                    timeBonusSetting(row.defaultTimeBonus),
                    bonusScoreSetting("Bonus Score", row.defaultBonusRoundScore),
                    stateSetting(),
                    widthSetting(),
                    heightSetting()};
    // Its own values take their defaults at load; they join the file with its rules.
    row.settings.push_back(
        setting("", &ColclearValues::TripScore, ColclearValues::kDefaultTripScore).notInFile());
    row.settings.push_back(
        setting("", &ColclearValues::RunScore, ColclearValues::kDefaultRunScore).notInFile());
    row.settings.push_back(
        setting("", &ColclearValues::FlushScore, ColclearValues::kDefaultFlushScore).notInFile());
    row.settings.push_back(
        setting("", &ColclearValues::DeckBonus, ColclearValues::kDefaultDeckBonus).notInFile());
    row.settings.push_back(
        setting("", &ColclearValues::LeftOverPenalty, ColclearValues::kDefaultLeftOverPenalty)
            .notInFile());
    row.rules.headingBlanks = 31;
    using V = ColclearValues;
    row.rules.paragraphs = {
        openingParagraph("two", score(&AppState::BonusRoundScore)),
        para({"The ", title(),
              " game board is separated into three sections: the storage area, the playing "
              "field, and the deck. The playing field consists of four columns, each of which may "
              "hold up to three cards. You earn points by creating '3 card runs' (a Run) and '3 of "
              "a kinds' (a Trip) in each column. To accomplish this you may move cards from the "
              "deck to the playing field or place them into the temporary storage area at the top "
              "of the board. The temporary storage area may hold up to three cards at one time "
              "and is used to store cards that are not needed at the time. You may also move the "
              "top card of a column in the playing field from one column to another."}),
        para({"Each time a column is populated with a Trip or Run the column will be cleared "
              "automatically. For each Trip you create, you will be awarded ",
              plain(&V::TripScore), " points while each  Run awards ", plain(&V::RunScore),
              " points. If the Run you create also happens to be a flush, you are awarded an "
              "additional ",
              plain(&V::FlushScore),
              " points. All these points are awarded during game play, not at the end of the "
              "round."}),
        para({"If you manage to clear the deck you are awarded a bonus of ", plain(&V::DeckBonus),
              " points at the end of the round. If you clear the deck, but still have cards "
              "remaining in the storage area or the playing field, -",
              plain(&V::LeftOverPenalty),
              " will be deducted from your score for each remaining card."}),
        para({"If during game play you feel that you have no more moves remaining, click on the "
              "'Take Score' button to end the round. You will be awarded ",
              plain(&AppState::TimeBonus),
              " points for each unused second remaining in the round."}),
        para({"This game moves very quickly. While it is important to clear the deck, don't "
              "overlook the value of the straight flush. It can really pay off! "}),
    };
    return row;
}

}  // namespace corvanna
