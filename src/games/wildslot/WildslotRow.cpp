// Wildslot's row: what its frame, files and tables differ in. It has no rules of its
// own yet and runs on the plain frame.

#include "games/GameRegistry.h"
#include "games/wildslot/WildslotValues.h"

namespace corvanna {

GameInfo wildslotRow() {
    GameInfo row = gameRow("wildslot", "Wildslot");
    row.defaultSeconds = 90;
    row.timeLimits = {{60, "&60 Seconds"},
                      {75, "&75 Seconds"},
                      {90, "&90 Seconds  (default)"},
                      {105, "&105 Seconds"},
                      {120, "1&20 Seconds"}};
    row.deckDesigns = {1, 3, 2, 4};
    row.scoreLabel = "lblTotalScore";
    row.countUp.speedMessageAboveMiddle = 800;
    row.countUp.countMessageRaise = 800;
    row.defaultBonusRoundScore = 5000000;
    row.playQuitQuestion = "You have a game in progress, are you sure you want to quit now?";
    row.unloadPausesFirst = true;
    row.dialogPause = DialogPause::ByPauseButton;
    row.minWidth = row.maximisedWidth = 9540;
    row.minHeight = row.maximisedHeight = 7305;
    row.clearPause = DialogPause::ByPauseButton;
    row.bonusLine = " for bonus round.  ";
    row.submitMinimum = 13000000;
    row.submitSeconds = 90;
    // The game's own keys join the table with its rules. [State] is read but not written.
    row.settings = {soundsSetting(),
                    musicSetting(),
                    deckSetting(row.defaultDeckBack),
                    bonusScoreSetting("Bonus Score", row.defaultBonusRoundScore),
                    timeBonusSetting(row.defaultTimeBonus),
                    countDownSetting("Count Down"),
                    timeSetting("Time", row.defaultSeconds),
                    widthSetting(),
                    heightSetting(),
                    stateSetting().readOnly()};
    // Its own values take their defaults at load; they join the file with its rules.
    row.settings.push_back(setting("", &WildslotValues::DeckCompletionBonus,
                                   WildslotValues::kDefaultDeckCompletionBonus)
                               .notInFile());
    row.rules.headingBlanks = 33;
    using V = WildslotValues;
    row.rules.paragraphs = {
        openingParagraph("two", score(&AppState::BonusRoundScore)),
        para({"The ", title(), "'s game board is divided into two parts:"}),
        lines({{"1. The lower section which contains the deck and five source spots for cards."},
               {"2. The upper area containing three target spots for cards."}}),
        para({"The upper and lower sections are separated by the Move Timer. You earn points by "
              "moving the cards from the five lower spots to the three upper spots. You may move a "
              "card from a lower spot to an upper spot under any of five conditions:"}),
        lines({{"1. The upper spot is vacant."},
               {"2. The card in the upper spot is the same suit as the card in the lower spot."},
               {"3. The card in the upper spot is the same face value as the card in the lower  "
                "        spot."},
               {"4. The card in the lower spot is an 8 (8's are wild)."},
               {"5. The card in the upper spot is an 8 (8's are wild)."}}),
        lines({{"The number of points awarded for moving a card from a lower spot to an upper "
                "spot is determined by 2 factors:"},
               {"1. The current value of the spot (this is displayed over the spot)."},
               {"2. The amount of time left on the Move Timer."}}),
        para({"When a card is moved from a lower spot to an upper spot, the number of points "
              "awarded is equal to the value of the spot multiplied by the current value of the "
              "Move Timer. The Move Timer's value will fall between 40 and 5 and is reset each "
              "time a card is moved to an upper spot. The values of the upper spots, from left to "
              "right, are initially set to 500, 200 and 100. You may increase the value of an "
              "upper spot by matching the face value of the card currently on the spot. Starting "
              "at the left most spot, the amount of the increase will be 500, 200 or 100. For "
              "example, if the left most upper spot contains the Jack of Diamonds, placing any "
              "other Jack on that spot will increase that spot's value by 500 points."}),
        para({"Note: Moving an 8 to an upper spot counts as matching the face value, not the suit "
              "of the card. Also, moving a card to an upper spot which contains an 8 counts as "
              "matching the suit, not the face value of the card. "}),
        lines({{"You may also earn points by completing the round before the timer expires. This "
                "may be accomplished in two ways:"},
               {"1. You use all the cards in the deck before the timer expires."},
               {"2. There are no legal moves remaining and there is still time left on the "
                "clock."}}),
        para({"When either of the 2 above conditions are met, you will be awarded ",
              score(&AppState::TimeBonus), " points for each second remaining in the round."}),
        para({"Note: When there are no more legal moves left the timers are disabled and a dialog "
              "will appear notifying you of the condition."}),
        para({"Last but not least, if you manage to use all cards in the deck you are awarded and "
              "additional ",
              score(&V::DeckCompletionBonus), " points."}),
        para({"Strategy: Try to build up the value of the upper spots early. When given the option "
              "of moving to multiple upper spots, play on the left most spot."}),
    };
    return row;
}

}  // namespace corvanna
