// Lettermine's row: what its frame, files and tables differ in, its form, its settings,
// its driver variables and its rules text.

#include "common/Variables.h"
#include "common/frame/GameFrame.h"
#include "games/GameBot.h"
#include "games/GameRegistry.h"
#include "games/lettermine/LettermineValues.h"
#include "games/lettermine/frmLettermine.h"

namespace corvanna {

// The bot plays on the virtual platform, linked only into the tests and the soak
// (LettermineBot.cpp); the program itself goes without, so the row asks for it weakly.
__attribute__((weak)) std::unique_ptr<GameBot> makeLettermineBot(Program& prog, FakePlatform& fake,
                                                                 GameFrame& form,
                                                                 std::uint64_t seed);

namespace {

using P = const Program&;

const frmLettermine* formOf(P p) {
    return dynamic_cast<const frmLettermine*>(p.findForm("frmLettermine"));
}

// The driver's `get` of Lettermine's own values, of the phrase tables, and of the round
// while the form is loaded.
void addLettermineVariables() {
    static const LettermineRound noRound;  // no form: an empty round
    auto roundOf = [](P p) -> const LettermineRound& {
        const frmLettermine* f = formOf(p);
        return f ? f->round : noRound;
    };
    addVariable("GuessBonus", [](P p) { return numberText(lettermineValues(p).GuessBonus); });
    addVariable("CompletionBonus",
                [](P p) { return numberText(lettermineValues(p).CompletionBonus); });
    addVariable("GuessCount", [](P p) { return numberText(lettermineValues(p).GuessCount); });
    addVariable("ShowPhraseMs", [](P p) { return numberText(lettermineValues(p).ShowPhraseMs); });
    addVariable("CurrentTopic", [](P p) { return numberText(lettermineValues(p).CurrentTopic); });
    addVariable("PhrasesSolved", [](P p) {
        const frmLettermine* f = formOf(p);
        return numberText(f ? f->PhrasesSolved : 0);
    });
    addVariable("LetterValue", [](P p) {
        const frmLettermine* f = formOf(p);
        return numberText(f ? f->LetterValue : 0);
    });
    addVariable("CurrentPhrase", [roundOf](P p) { return roundOf(p).board.text; });
    addVariable("LetterCellCount",
                [roundOf](P p) { return numberText(roundOf(p).board.LetterCellCount); });
    addVariable("MaxLetterUnits",
                [roundOf](P p) { return numberText(roundOf(p).board.MaxLetterUnits); });
    addVariable("GuessIndex", [roundOf](P p) { return numberText(roundOf(p).GuessIndex); });
    addVariable("RoundSolved", [roundOf](P p) { return flagText(roundOf(p).RoundSolved); });
    addVariable("SolveMode", [roundOf](P p) { return flagText(roundOf(p).SolveMode); });
    addVariable("LetterHit", [roundOf](P p) { return flagText(roundOf(p).LetterHit); });
    addVariable("VowelsOpen", [roundOf](P p) { return flagText(roundOf(p).VowelsOpen); });
    addVariable("BonusPicking", [roundOf](P p) { return flagText(roundOf(p).BonusPicking); });
    addVariable("BonusVowel", [roundOf](P p) { return numberText(roundOf(p).BonusVowel); });
    addVariable("BonusConsonants",
                [roundOf](P p) { return numberText(roundOf(p).BonusConsonants); });
    addVariable("BonusPickCount", [roundOf](P p) { return numberText(roundOf(p).BonusPickCount); });
    addIndexedVariable("BonusPicks", [roundOf](P p, int i, std::string& out) {
        if (i < 0 || i >= 6)
            return false;
        out = numberText(roundOf(p).BonusPicks[static_cast<std::size_t>(i)]);
        return true;
    });
    // The phrase tables by topic, 1 to 7: they outlive the form.
    auto topicValue = [](auto field) {
        return [field](P p, int i, std::string& out) {
            if (i < 1 || i > PhraseSupply::kTopics)
                return false;
            out = numberText(field(p.gameValues<PhraseSupply>().record(i)));
            return true;
        };
    };
    addIndexedVariable("PhraseCount",
                       topicValue([](const PhraseTopic& t) { return t.PhraseCount; }));
    addIndexedVariable("PhrasePosition",
                       topicValue([](const PhraseTopic& t) { return t.PhrasePosition; }));
}

// [Topic]: only the texts "0" to "7" choose a topic; anything else changes nothing.
SettingBinding lettermineTopicSetting() {
    SettingBinding b = formSetting("Topic", SettingType::Text);
    b.thenText([](GameFrame& f, const std::string& text) {
        if (text.size() == 1 && text[0] >= '0' && text[0] <= '7')
            lettermineValues(f.program()).CurrentTopic = static_cast<std::int16_t>(text[0] - '0');
    });
    b.writes = [](GameFrame& f) {
        return std::to_string(lettermineValues(f.program()).CurrentTopic);
    };
    return b;
}

}  // namespace

GameInfo lettermineRow() {
    GameInfo row = gameRow("lettermine", "Lettermine");
    row.defaultSeconds = 45;
    row.timeLimits = {{30, "&30 seconds"},  {45, "&45 seconds (default)"}, {60, "&60 seconds"},
                      {75, "&75 seconds"},  {90, "&90 seconds"},           {105, "&105 seconds"},
                      {120, "1&20 seconds"}};
    row.deckDesigns.clear();
    row.countUp.scoringInMiddle = false;
    row.endGameTip = "Ends the current game";
    row.defaultBonusRoundScore = 250000;
    row.minWidth = row.maximisedWidth = 9570;
    row.hintLine = "Discover the phrase by selecting available letters  ";
    row.submitMinimum = 430000;
    row.submitSeconds = 45;
    row.seedScore = row.clearedSeedScore = 30000;
    // The bonus round shows its number; the board stays at game over; "Game Over" goes.
    row.bonusRoundCaption = "";
    row.keepsBoardAtGameOver = true;
    row.gameOverStays = false;
    row.makeForm = [](Program& prog, const GameInfo& game) -> GameFrame& {
        return prog.load<frmLettermine>(game);
    };
    if (makeLettermineBot)
        row.bot = makeLettermineBot;
    row.addVariables = addLettermineVariables;
    // Lettermine.Ini in the game's order, [Topic] twice. It has no Deck menu; DeckBack is
    // set all the same. Five values decide the custom mark; the wait, the count-down, the
    // topic and the time limit don't.
    using V = LettermineValues;
    row.settings = {
        musicSetting(),
        timeSetting("Time", row.defaultSeconds),
        soundsSetting(),
        countDownSetting("Count Down Score"),
        lettermineTopicSetting(),
        timeBonusSetting(row.defaultTimeBonus),
        bonusScoreSetting("Bonus Score", row.defaultBonusRoundScore),
        setting("Completion Bonus", &V::CompletionBonus, V::kDefaultCompletionBonus).custom(),
        setting("Guess Bonus", &V::GuessBonus, V::kDefaultGuessBonus).custom(),
        // A round needs one smiley at least, and there are eight.
        setting("Guess Count", &V::GuessCount, V::kDefaultGuessCount).limits(1, 8).custom(),
        setting("ShowPhrase", &V::ShowPhraseMs, V::kDefaultShowPhraseMs).limits(0, INT16_MAX),
        stateSetting(),
        widthSetting(),
        heightSetting(),
        lettermineTopicSetting(),
        deckSetting(row.defaultDeckBack).notInFile(),
        setting("", &V::CurrentTopic, 0).notInFile(),
    };
    row.rules.headingBlanks = 31;
    row.rules.paragraphs = {
        openingParagraph("two", score(&AppState::BonusRoundScore),
                         " points in these rounds, and you successfully solve the phrases in "
                         "both Rounds 1 and 2, you are awarded an additional bonus round."),
        para({"The game begins by displaying a combination of empty boxes, each of which "
              "represents a letter in a common phrase or name. Your job is to figure out what the "
              "phrase or name is by choosing letters from the alphabet. Initially you can select "
              "only consonants. Once you have selected a letter which appears in the phrase you "
              "are allowed to select vowels (this is why the buttons for the vowels are disabled "
              "at the start of each round)."}),
        para({"You are allowed ", plain(&V::GuessCount),
              " incorrect letter selections (or 'guesses') in each round. If you exceed this "
              "number, the phrase is displayed and the round is terminated. You are allowed to "
              "keep any points earned during the round."}),
        para({"When you solve the phrase you are awarded an additional ",
              score(&V::CompletionBonus), " points. In addition, you are awarded ",
              score(&V::GuessBonus),
              " points for each remaining guess. Remaining guesses are represented by smiley "
              "faces located near the bottom of the ",
              title(), " window."}),
        para({"When you select a letter which appears in the phrase, you are awarded a certain "
              "number of points for each occurrence of the letter. The number of points awarded "
              "for each letter (known as the letter value) will fall between 250 and 180,000. The "
              "letter value is randomly generated and is based on the number of characters in the "
              "phrase. The average letter value will be significantly higher for phrases "
              "containing fewer characters. This algorithm was adopted to create a level playing "
              "field for each round regardless of the number of characters in the phrase. The "
              "current letter value is displayed in the lower left corner of the ",
              title(), " window. "}),
        para({"When you think you know the solution to the phrase you can click on the 'Solve "
              "It' command button. Selecting this command will cause two things to happen: One, "
              "the main game clock is stopped, and two, the letter value is locked for the "
              "duration of the round. It should be obvious that using the 'Solve It' command "
              "button has it's advantages! Once you know the solution, wait for a high letter "
              "value and lock it in! Likewise, if you are running out of time, clicking the "
              "'Solve It' command button can help."}),
        para({"However, the 'Solve It' command button has its down side as well. Once you click "
              "it you must solve the phrase without making any errors. If you select a letter "
              "which does not appear in the phrase the round is terminated. You are allowed to "
              "keep any points earned during the round."}),
        para({"When you reach the Bonus Round things get a little trickier. As in rounds 1 and "
              "2, you are presented with a blank phrase. You begin the round by selecting 5 "
              "consonants and 1 vowel. If any of them appear in the phrase they will be "
              "uncovered. You must then solve the puzzle by selecting additional letters. However "
              "any incorrect letter selection will terminate the round."}),
        para({"Timers: There are two timers used in ", title(),
              ". The main game timer, which appears in the upper right corner of the window, "
              "describes the time remaining in the current round. The second timer, called the "
              "'letter timer', appears just above the alphabet command buttons. In rounds 1 and "
              "2, you must select letters before the letter timer expires. If you fail to do so, "
              "one of your 'guesses' is eliminated. Each time you select a letter, the letter "
              "timer is reset to 0. In the bonus round you must pick all 6 initial letters before "
              "the 'letter timer' expires. Then, you must continue to select additional letters "
              "without allowing the timer to expire. Failure to do this in the bonus round will "
              "terminate the round and thus end the game."}),
        para({"When you complete each round, you are awarded ", score(&AppState::TimeBonus),
              " points for each second remaining in the round."}),
    };
    return row;
}

}  // namespace corvanna
