// Tierfall's two rules texts, standard and enhanced, with their shared opening.

#include "common/RulesText.h"
#include "forms/Form.h"
#include "games/tierfall/TierfallValues.h"
#include "games/tierfall/modTierfall.h"

namespace corvanna {

namespace {

bool enhanced(const Program& prog) {
    return tierfallValues(prog).EnhancedScoring;
}
bool standard(const Program& prog) {
    return !enhanced(prog);
}
RulesPiece byMode(const char* standardText, const char* enhancedText) {
    return shown([=](const Program& prog) { return enhanced(prog) ? enhancedText : standardText; });
}

}  // namespace

RulesText TierfallRules() {
    using V = TierfallValues;
    // The Take Score button as it reads now, ampersand and all.
    const RulesPiece takeScoreCaption = shown([](const Program& prog) -> std::string {
        const Form* form = prog.findForm("frmTierfall");
        const Control* button = form ? form->find("cmdTakeScore") : nullptr;
        return button ? button->caption() : "&Take Score";
    });
    RulesText rules;
    rules.headingBlanks = 30;
    rules.paragraphs = {
        para({"This version of ", title(),
              " introduces a new twist on the way in which scoring is accomplished. This new "
              "scoring method, called 'V 7.0 Enhanced Scoring', may be enabled by selecting the "
              "'Customize Scoring...' command from the Options menu, and then checking the 'V 7.0 "
              "Enhanced Scoring' checkbox. "}),
        para({"'V 7.0 Enhanced Scoring' is currently ", byMode("disabled", "enabled"),
              ". Consequently the following rules describe game play with the Enhanced Scoring "
              "option ",
              byMode("turned off.", "turned on. "), "If you have played previous versions of ",
              title(),
              " and you want to continue using the original rules for scoring, simply leave the "
              "'V 7.0 Enhanced Scoring' feature disabled. This may be accomplished by selecting "
              "the 'Customize Scoring...' command from the Options menu, and then unchecking the "
              "'V 7.0 Enhanced Scoring' checkbox."}),
        para({"The primary difference in the two scoring methods is as follows:"}),
        para({"* 'V 7.0 Enhanced Scoring' puts ", byMode("strong", "a strong"),
              " emphasis on clearing all of the exposed cards (upper deck). In fact it is "
              "extemely difficult, if not impossible, to reach the bonus round unless you clear "
              "the upper deck in at least one of the first two rounds."}),
        para({"* The original scoring approach puts a strong emphasis on collecting card "
              "combinations of ",
              plain(&V::CardGoal),
              ". It is much more profitable to skip clearing the upper deck during the first half "
              "or even two thirds of the round and to continue collecting card combinations."}),
        para(
            {byMode("Standard Scoring - Rule Details:", "V 7.0 Enhanced Scoring - Rule Details:")}),
        para({"As with most games, the object of ", title(),
              " is to attain the highest number of points possible. The game consists of two "
              "rounds, each lasting ",
              seconds(), " seconds. If you earn more than ", score(&AppState::BonusRoundScore),
              " points in these rounds you are awarded an additional bonus round. You earn points "
              "in several ways:"}),
        para({"1. Elevens: Selecting exposed cards that total eleven (the card goal). You are "
              "awarded ",
              shown([](const Program& prog) {
                  return formatScore(tierfallValues(prog).combinationBonus());
              }),
              " points for each combination of 11's you select. These points are awarded at the "
              "end of each round. When selecting cards (to reach the card goal), each card is "
              "worth it's face value, aces are worth 1. The deck consists of 52 cards; 16 Aces, 4 "
              "of each card 2 thru 10 and no face cards."}),
        para({"Note: You have the ability to change the card goal from 11 to any number between "
              "10 and 15. When your card goal is set to 12, 4 Jacks (each with a value of 11) are "
              "added to the deck. When your card goal is 13, 4 Jacks and 4 Queens are added "
              "(Queens have a value of 12). When your card goal is 14 or 15, 4 Jacks, 4 Queens and "
              "4 Kings are added to the deck. Kings have a value of 13 each. All face cards are in "
              "addition to the standard deck described above."}),
        // The standard text from here on.
        when(standard,
             para({"2. Completion Bonus: If you clear all of the exposed cards (upper deck) you "
                   "are awarded an additional ",
                   score(&V::CompletionBonus),
                   " points. Exposed cards are those in the upper playing area. You do not need to "
                   "use all cards in the deck to earn the completion bonus."})),
        // The enhanced text's completion bonus, with its card bonus.
        when(enhanced,
             para({"2. Completion Bonus: If you clear all of the exposed cards (upper deck) you "
                   "are awarded an additional ",
                   score(&V::CompletionBonus),
                   " points. Exposed cards are those in the upper playing area. When you complete "
                   "the upper deck you are also awarded an additional ",
                   score(&V::CardBonus),
                   " points for each card remaining in the deck. Consequently it is to your "
                   "advantage to clear the upper deck as quickly as possible. Note: This Card "
                   "Bonus is not available when using the standard scoring routine."})),
        para({"3. Time Bonus: You are awarded ", score(&AppState::TimeBonus),
              " points for each second remaining in the round after selecting the '",
              takeScoreCaption, "' command button."}),
        when(
            standard,
            para({"4. Creating Eleven Combinations: When you are selecting cards to create an '11' "
                  "combination, the location of the cards determines points awarded when 11 is "
                  "reached. The 'Field cards' (upper deck) are displayed in 6 tiers. Selected "
                  "cards in tier one (the bottom one) are worth 200 points, cards in tier two are "
                  "worth 300 and so on to tier six which are worth 700 points. Cards selected "
                  "from the deck are worth 100 points."})),
        when(standard, para({"Note: Each time you select a new card from the deck your score is "
                             "decreased by 100 points."})),
        when(standard,
             para({"Strategy: On the average, you earn a larger number of points by creating "
                   "eleven combinations as opposed to clearing the upper deck. If possible, clear "
                   "the lower tiers and then go for elevens. Try to clear the upper deck in the "
                   "last ",
                   shown([](const Program& prog) {
                       return std::to_string(roundHalfEven(prog.state.RoundSeconds / 4.0));
                   }),
                   " seconds of play. "})),
        when(
            enhanced,
            para({"4. Creating Eleven Combinations: When you are selecting cards to create an '11' "
                  "combination, the location of the cards determines points awarded when 11 is "
                  "reached. The 'Field cards' (upper deck) are displayed in 6 tiers. Selected "
                  "cards in tier one (the bottom one) are worth 100 points, cards in tier two are "
                  "worth 200 and so on to tier six which are worth 600 points. The points awarded "
                  "for cards selected from the deck vary with the number of cards remaining in "
                  "the upper playing area. A card selected from the deck is worth the same number "
                  "of points as the deepest card used in the upper playing field. For example, if "
                  "there are no cards remaining in tier one, and one card has been removed from "
                  "tier two, the value of the deck card is 200 points (since the first available "
                  "open card is in tier two). If all cards have been used from tier one and no "
                  "cards have been used from tier two, the deck card is worth 100 points."})),
        when(enhanced,
             para({"5. If you select a card from the deck and there are empty spaces in the upper "
                   "playing area, the current play card will be pushed to the upper playing area. "
                   "When this happens your score is reduced by the number of points scored by that "
                   "tier. For example, if you have cleared tiers one and two, and you have cleared "
                   "two cars from tier three, taking a new card from deck will move the current "
                   "upcard to tier three. This will cost you 300 points. "})),
        when(enhanced,
             para({"Strategy: When using the V 7.0 Enhaced Scoring feature, the round clock does "
                   "not start untill you have created your first 11 combination. Use this to your "
                   "advantage by studying the underlying card layout. Look for 11 combinations "
                   "which will become exposed in the early part of the game. Also, clear the upper "
                   "deck early! The number of points gained by clearing the upper deck is much "
                   "greater the sooner you accomplish it. This is because of the ",
                   score(&V::CardBonus),
                   " point Card Bonus awarded for each card remaining in the deck."})),
    };
    return rules;
}

}  // namespace corvanna
