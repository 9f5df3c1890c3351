// Any bytes as a saved Tierfall game: the reader refuses them or hands back a game that
// is whole, and that game written out reads back as the same game, the same text again.

#include <cstdint>
#include <string>

#include "games/tierfall/SavedGame.h"
#include "games/tierfall/TierfallBoard.h"

#define FUZZ_TARGET_NAME "saved_game_fuzz"
#include "FuzzCheck.h"

using namespace corvanna;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    SavedGame game;
    std::string reason;
    if (!ParseSavedGame(bytes, game, &reason)) {
        check(!reason.empty(), "a refusal without a reason");
        return 0;
    }
    check(TierfallBoard::validGoal(game.cardGoal), "a card goal out of range");
    check(game.seconds >= 1 && game.seconds <= 32767, "a time limit out of range");
    const std::size_t deckSize = static_cast<std::size_t>(TierfallBoard::deckSize(game.cardGoal));
    check(game.decks[0].size() == deckSize + 1, "round 1 deck is not a whole deck");
    check(game.decks[2].empty() || !game.decks[1].empty(), "round 3 without round 2");

    const std::string text = SavedGameText(game);
    SavedGame again;
    check(ParseSavedGame(text, again, &reason), "a written game is refused");
    check(again.cardGoal == game.cardGoal && again.seconds == game.seconds &&
              again.custom == game.custom && again.decks == game.decks &&
              SavedGameScore(again.scoreText) == SavedGameScore(game.scoreText),
          "a written game reads back as another game");
    // The name is an item of its own line: once written, it stays as it is.
    const std::string twice = SavedGameText(again);
    SavedGame third;
    check(ParseSavedGame(twice, third, &reason) && SavedGameText(third) == twice,
          "a rewritten game changes again");
    // Its message is made whatever the name and score.
    check(!SavedGameMessage(game, 60).empty(), "no message");
    return 0;
}
