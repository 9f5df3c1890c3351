// Fivestack's row: what its frame, files and tables differ in, its form, its settings
// and its rules text.

#include <cmath>

#include "common/Format.h"
#include "common/Variables.h"
#include "common/frame/SettingBindings.h"
#include "games/GameBot.h"
#include "games/GameRegistry.h"
#include "games/fivestack/FivestackValues.h"
#include "games/fivestack/frmFivestack.h"

namespace corvanna {

// The bot plays on the virtual platform, linked only into the tests and the soak
// (FivestackBot.cpp); the program itself goes without, so the row asks for it weakly.
__attribute__((weak)) std::unique_ptr<GameBot> makeFivestackBot(Program& prog, FakePlatform& fake,
                                                                GameFrame& form,
                                                                std::uint64_t seed);

namespace {

using P = const Program&;

const FivestackBoard& boardOf(P p) {
    static const FivestackBoard none;  // no form: an empty board
    const auto* form = dynamic_cast<const frmFivestack*>(p.findForm("frmFivestack"));
    return form ? form->board : none;
}

// The driver's `get` of Fivestack's own values, and of its board while the form is loaded.
// CardTotal stays Tierfall's name.
void addFivestackVariables() {
    addVariable("TimeBonusMax", [](P p) { return numberText(fivestackValues(p).TimeBonusMax); });
    addVariable("TimeBonusMin", [](P p) { return numberText(fivestackValues(p).TimeBonusMin); });
    addVariable("TimeBonusStep",
                [](P p) { return plainDecimal(fivestackValues(p).TimeBonusStep); });
    addVariable("CardsToPass", [](P p) { return numberText(fivestackValues(p).CardsToPass); });
    addVariable("CardsToPassSetting",
                [](P p) { return numberText(fivestackValues(p).CardsToPassSetting); });
    addVariable("WaitPeriod", [](P p) { return numberText(fivestackValues(p).WaitPeriod); });
    addVariable("NextCardIndex", [](P p) { return numberText(boardOf(p).NextCardIndex); });
    addVariable("CardTotalValue", [](P p) { return numberText(boardOf(p).CardTotalValue); });
    addIndexedVariable("ColumnCardCount", [](P p, int i, std::string& out) {
        if (i < 0 || i >= FivestackBoard::kColumns)
            return false;
        out = numberText(boardOf(p).ColumnCardCount[static_cast<std::size_t>(i)]);
        return true;
    });
}

// [Deck] in this game's own numbering: 1 Hot Cards, 2 Magic Hands, 3 Night Castle, and 4 or
// anything else Palm Tree. A first file keeps the design on show at load.
SettingBinding fivestackDeckSetting() {
    SettingBinding b = formSetting("Deck", SettingType::Text);
    b.thenText([](GameFrame& f, const std::string& text) {
        std::int64_t n = 0;
        const bool number = parseInteger(text, n);
        f.SelectDeckBack(number && n >= 1 && n <= 3 ? static_cast<int>(n) : 4);
    });
    b.writes = [](GameFrame& f) { return std::to_string(f.program().state.DeckBack); };
    return b;
}

}  // namespace

GameInfo fivestackRow() {
    GameInfo row = gameRow("fivestack", "Fivestack");
    row.defaultSeconds = 60;
    row.timeLimits = {{15, "&15 Seconds"},
                      {30, "&30 Seconds"},
                      {45, "&45 Seconds"},
                      {60, "&60 Seconds (default)"},
                      {75, "&75 Seconds"}};
    row.deckDesigns = {4, 2, 3, 1};
    row.defaultDeckBack = 0;
    row.exitButton = "cmdQuit";
    row.scoreLabel = "lblTotalScore";
    row.messageLabel = "ScoringLabel";
    row.hasScoringLabel = false;
    row.roundLabelAlone = true;
    row.normalRounds = 3;
    row.nextRoundText = "Prepare for Round %n";
    row.bonusRoundSound = "HighScore.wav";
    row.defaultBonusRoundScore = 200000;
    row.defaultTimeBonus = 0;
    row.unloadPausesFirst = true;
    row.dialogPause = DialogPause::ByPauseButton;
    row.minWidth = row.maximisedWidth = 9540;
    row.minHeight = row.maximisedHeight = 7305;
    row.bonusLine = " for bonus round.  ";
    row.clearPause = DialogPause::ByPauseButton;
    row.hintLine = "Click on Hit buttons to create columns of 21!   ";
    row.submitMinimum = 600000;
    row.submitSeconds = 60;
    row.flashMs = 150;
    row.quitPausesFirst = true;
    row.gameOverStays = false;
    row.gameOverStatus = "Click on Play to start a new game.  ";
    row.countUp.countingScore = row.countUp.restingScore = colors::Blue;
    row.makeForm = [](Program& prog, const GameInfo& game) -> GameFrame& {
        return prog.load<frmFivestack>(game);
    };
    if (makeFivestackBot)
        row.bot = makeFivestackBot;
    row.addVariables = addFivestackVariables;
    using V = FivestackValues;
    row.settings = {
        timeSetting("Time", row.defaultSeconds),
        soundsSetting(),
        musicSetting(),
        fivestackDeckSetting(),
        setting("TimeBonusMax", &V::TimeBonusMax, V::kDefaultTimeBonusMax).custom(),
        setting("TimeBonusMin", &V::TimeBonusMin, V::kDefaultTimeBonusMin).custom(),
        bonusScoreSetting("BonusScore", row.defaultBonusRoundScore),
        // A wait below nothing is no wait the game can make.
        setting("WaitPeriod", &V::WaitPeriod, V::kDefaultWaitPeriod).limits(0, INT16_MAX),
        countDownSetting("CountDownScore"),
        // The file keeps what a round starts with; the round's own passes start from it.
        setting("Cards To Pass", &V::CardsToPassSetting, V::kDefaultCardsToPass)
            .limits(0, INT16_MAX)
            .then([](GameFrame& f, double) {
                auto& v = fivestackValues(f.program());
                v.CardsToPass = v.CardsToPassSetting;
            }),
        stateSetting(),
        widthSetting(),
        heightSetting(),
        // Not in the file: the round's passes, which decide the custom mark, and the
        // Time Bonus, which the clock works out.
        setting("", &V::CardsToPass, V::kDefaultCardsToPass).custom(),
        timeBonusSetting(row.defaultTimeBonus).notInFile(),
    };
    row.rules.headingBlanks = 33;
    using V = FivestackValues;
    row.rules.paragraphs = {
        openingParagraph("three", score(&AppState::BonusRoundScore)),
        para({"You earn points by creating 5 columns of cards to a maximum of 5 cards per column. "
              "Each card is worth it's face value (face cards are 10 points each, Aces are worth 1 "
              "or 11 points). If any column exceeds 21 points (ie: busted), the round is "
              "automatically ended and no points are awarded. Once you achieve a total of 97 "
              "points or greater (total of all 5 columns without busting) you begin to earn points "
              "towards the current round."}),
        para({"The number of points you earn in a round is equal to your Card Total Value "
              "multiplied by the Time Bonus. Your Card Total Value is determined by the total of "
              "all five columns. If the total of all five columns is less than 97, your Card Total "
              "Value is 0. A column total of 97 is worth 50 points, 98 is worth 100 and so on up "
              "to a maximum of 105 which is worth 1000 points. There is a table located on the "
              "right side of the ",
              title(),
              " window which describes the Card Total Value earned for a given card column "
              "total."}),
        para({"The Time Bonus begins at ", plain(&V::TimeBonusMax), ". It decreases by ",
              shown([](const Program& prog) {
                  // Its integer part; 16-bit limits keep it well within 64 bits.
                  const float step = fivestackValues(prog).TimeBonusStep;
                  return std::to_string(static_cast<long long>(std::trunc(step)));
              }),
              " for each second used in the round. If time expires the Time Bonus is worth ",
              plain(&V::TimeBonusMin), "."}),
        para({"You are allowed to pass ", plain(&V::CardsToPass), " card(s) per round."}),
    };
    return row;
}

}  // namespace corvanna
