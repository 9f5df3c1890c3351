#pragma once
// The program-wide variables through which a game, the shared routines and the
// shared dialogs talk. One per running program, handed to whoever needs it.

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Platform.h"

namespace corvanna {

// The pie clock's program-wide state.
struct ClockState {
    std::int16_t centerX = 0, centerY = 0;
    float radius = 0;
    std::uint32_t firstHalf = 0x00FF00;
    std::uint32_t thirdQuarter = 0xFFFF00;
    std::uint32_t lastQuarter = 0xFFFFFF;
    std::uint32_t alternate = 0xFF0000;
    std::uint32_t resting = 0;
    bool restingSet = false;
    std::uint32_t line = 0xC0C0C0;
};

struct AppState {
    std::string AppTitle;
    std::string AppPath;  // the data folder, with a trailing slash
    std::vector<std::string> Deck = std::vector<std::string>(1);  // position 0 unused
    std::int32_t Score = 0;
    std::int16_t RoundSeconds = 60;
    std::int16_t ElapsedSeconds = 0;
    std::int16_t ClockSeconds = 0;
    std::int16_t RoundNumber = 1;
    bool GameInProgress = false;
    bool TakingScore = false;
    bool SoundsOn = true;
    bool MusicOn = false;
    bool CountDownScore = true;
    std::int16_t DeckBack = 1;
    std::int32_t TimeBonus = 0;
    std::int32_t BonusRoundScore = 0;
    bool CustomScoring = false;
    bool SkipHighScoreUpdate = false;
    std::int16_t NewHighScoreRow = -1;
    DateTime FormLoadTime;
    std::int16_t GamesPlayedCount = 0;
    std::string UserName = "Unknown User";
    std::string UserHometown = "Unknown";
    std::string UserState = "None";
    std::string UserCountry = "United States";
    ClockState Clock;

    int deckUpperBound() const { return static_cast<int>(Deck.size()) - 1; }
};

}  // namespace corvanna
