#pragma once
// Tierfall's rules without the form: the deck for the card goal, the 22 slots in
// six tiers with what covers what, the up card stack and the draw pile, the
// running total and what a click may do. A test or a bot drives it directly; the
// form paints it and adds the sounds.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvanna {

// A board slot at the form's design size (twips), and the slots whose cards cover it.
struct TierfallSlot {
    int row;  // 1 at the top, 6 at the bottom
    int left;
    int top;
    std::vector<int> coveredBy;
};

class TierfallBoard {
public:
    static constexpr int kSlots = 22;
    // The first up card and the whole pile of the largest deck: UpCount reaches 43.
    static constexpr int kUpCardSlots = 44;
    // Deck position of the first up card, which is also the bottom card of the pile.
    static constexpr int kFirstUpCard = 23;
    static constexpr int kDefaultGoal = 11;

    static const TierfallSlot& slot(int slot);
    static bool validGoal(int goal) { return goal >= 10 && goal <= 15; }
    // Cards in the deck for the goal: 52 up to 11, 64 from 14.
    static int deckSize(int goal);
    static int playPileUpperBound(int goal) { return deckSize(goal) - (kFirstUpCard - 1); }
    // The deck by position from 1 (position 0 unused): four aces of each suit, 2 to 10,
    // and court cards only as the goal needs them.
    static std::vector<std::string> elevensDeck(int goal);

    // ---- State, by the names the game uses
    std::int16_t CardGoal = kDefaultGoal;
    // A code stays in its slot after the card has left; cardPresent says whether it is there.
    std::array<std::string, kSlots> FieldCards;
    std::array<bool, kSlots> cardPresent{};
    std::array<bool, kSlots> selected{};  // the slot's selection frame is shown
    std::vector<std::string> UpCards = std::vector<std::string>(kUpCardSlots);
    std::int16_t UpCount = 0;  // 0: no up card
    bool upCardSelected = false;
    std::vector<std::string> PlayPile;
    std::int16_t PlayPileTop = -1;  // -1: the pile is empty
    std::int16_t CardTotal = 0;
    std::int32_t GoalCount = 0;
    bool UpCardUsed = false;

    // Lays out a round from Deck (positions from 1): 22 slots, the up card, the pile.
    // False when the deck is too short for a board and an up card.
    bool deal(const std::vector<std::string>& deck);

    // CheckLegalFieldCardMove: no card that covers the slot is still there.
    bool legal(int slot) const;
    // A card that is there and uncovered: what the player may click.
    bool playable(int slot) const;
    int cardsLeft() const { return PlayPileTop + 1; }
    bool upCardEmpty() const { return UpCount <= 0; }
    std::string upCard() const;
    // The lowest slot whose card has gone, -1 when the board is full.
    int lowestEmptySlot() const;
    // CheckForCompletion: every card has left the board.
    bool complete() const;

    enum class Click { Refused, Selected, Deselected };
    // A click on a board card or the up card, after the form's pause and game over test:
    // selects it if the total stays within the goal, deselects a selected one.
    Click clickField(int slot);
    Click clickUpCard();

    // The cards that reached the goal, as they leave.
    struct Combination {
        bool made = false;
        bool upCard = false;          // the up card was one of them
        std::string upCardCode;       // the up card that was used
        std::vector<int> boardSlots;  // rising; "slots" is a word Qt keeps for itself
        int lowestEmptyBefore = -1;   // lowest gap before these cards left
    };
    // CheckTotal's removal: when CardTotal equals the goal, the selected cards leave,
    // the up card stack drops by one if it was used, and GoalCount rises.
    Combination takeCombination();

    // A draw from the pile.
    struct Draw {
        bool drawn = false;
        int movedToSlot = -1;  // where the old up card went back onto the board, -1 if nowhere
        std::string card;      // the new up card
    };
    // PlayCardPicture: an old up card goes back to the board if there is a gap (the form
    // charges the move from movedToSlot), the top of the pile becomes the up card, and
    // every selection is cleared. The one and only step that moves up cards on a draw.
    Draw draw();
    void clearSelection();
    // CheckTotal is over: the up card it used no longer silences a draw.
    void combinationSettled() { UpCardUsed = false; }

    // The end of a round pays out what the round left: one combination, or one card of the
    // pile, a step; or every combination at once.
    void payOneCombination();
    void payAllCombinations() { GoalCount = 0; }
    void payOnePileCard();

    // One line per slot, the up card and the pile: the golden deal's text.
    std::string dump() const;

private:
    // MoveUpCardToFieldArea: the up card goes to the lowest gap; -1 when there is none.
    int moveUpCardToField();
};

}  // namespace corvanna
