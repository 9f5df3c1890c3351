#include "games/lettermine/LettermineBot.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <numeric>

#include "common/Format.h"
#include "forms/Input.h"
#include "games/lettermine/frmLettermine.h"

namespace corvanna {

namespace {

// Enough for any round: 26 letters, Solve It and the waits between them.
constexpr int kActionsPerRound = 300;
// The bar fills in 100 ticks of 90 ms; the tick after that finds it full.
constexpr std::int64_t kLetterTimeMs = 101 * 90;
constexpr Color kSolvedGreen = 0x00C000;

std::string letterName(int letter) {
    return std::string(1, static_cast<char>('A' + letter));
}

int letterAt(char c) {
    const int u = std::toupper(static_cast<unsigned char>(c));
    return u >= 'A' && u <= 'Z' ? u - 'A' : -1;
}

std::int64_t sum(const std::vector<std::int64_t>& v, std::size_t from) {
    return from >= v.size()
               ? 0
               : std::accumulate(v.begin() + static_cast<long>(from), v.end(), std::int64_t{0});
}

}  // namespace

std::unique_ptr<GameBot> makeLettermineBot(Program& prog, FakePlatform& fake, GameFrame& form,
                                           std::uint64_t seed) {
    auto* lettermine = dynamic_cast<frmLettermine*>(&form);
    if (!lettermine)
        return nullptr;
    return std::make_unique<LettermineBot>(prog, fake, *lettermine, seed);
}

LettermineBot::LettermineBot(Program& prog, FakePlatform& fake, frmLettermine& form,
                             std::uint64_t seed)
    : ClickBot(prog, fake), form_(form), rng_(seed) {}

// ---- Options

void LettermineBot::changeOptions(std::mt19937_64& rng) {
    const int old = form_.values().CurrentTopic;
    int topic = old;
    while (topic == old)
        topic = std::uniform_int_distribution<int>(0, PhraseSupply::kTopics)(rng);
    Menu* entry = form_.mnuTopicEntry[static_cast<std::size_t>(topic)];
    if (!click(entry, entry->name()))
        return;
    if (form_.values().CurrentTopic != topic)
        note(entry->name() + " left the topic at " + std::to_string(form_.values().CurrentTopic));
    for (int t = 0; t <= PhraseSupply::kTopics; ++t)
        if (form_.mnuTopicEntry[static_cast<std::size_t>(t)]->checked() != (t == topic))
            note("after " + entry->name() + " the topic menu checks another entry");
}

std::string LettermineBot::options() const {
    return "topic " + std::to_string(form_.values().CurrentTopic);
}

// ---- A game

std::int64_t LettermineBot::playGame() {
    auto& g = prog_.state;
    solvedInGame_ = 0;
    roundsInGame_ = 0;
    bonusPlayed_ = false;
    r_ = Round{};
    const Move m = watch([this] { click(&form_.cmdPlay, "cmdPlay"); });
    if (!g.GameInProgress) {
        note("Play started no game");
        return g.Score;
    }
    followRound(m, 0);
    checkRound();
    while (g.GameInProgress && fault().empty() && roundsInGame_ <= 3)
        playRound();
    if (g.GameInProgress && fault().empty())
        note("the game goes on after " + std::to_string(roundsInGame_) + " rounds");
    if (!g.GameInProgress)
        checkGameOver();
    for (const std::string& e : fake_.takeErrors())
        note(e);
    fake_.takeLog();
    return g.Score;
}

void LettermineBot::playRound() {
    const int number = prog_.state.RoundNumber;
    for (int action = 0; action < kActionsPerRound && roundGoesOn(number) && fault().empty();
         ++action) {
        if (r_.picking)
            playBonusPicks();
        else
            act();
    }
    if (roundGoesOn(number) && fault().empty())
        note("round " + std::to_string(number) + " did not end after " +
             std::to_string(kActionsPerRound) + " actions");
}

bool LettermineBot::roundGoesOn(int number) const {
    return prog_.state.GameInProgress && prog_.state.RoundNumber == number;
}

// A wait that may cost a smiley or the round, Solve It, or a letter after some thought.
void LettermineBot::act() {
    std::uniform_int_distribution<int> permille(0, 999);
    const int number = r_.number;
    if (permille(rng_) < (r_.solve ? 15 : 40)) {
        wait(std::uniform_int_distribution<int>(4000, 16000)(rng_));
        return;
    }
    if (permille(rng_) < 500) {
        wait(std::uniform_int_distribution<int>(100, 2500)(rng_));
        if (!roundGoesOn(number))
            return;
    }
    if (!r_.solve && r_.number < 3) {
        // Sooner once half the letter cells are filled, as a player who sees the phrase.
        int cells = 0, found = 0;
        for (char c : form_.round.board.text) {
            const int l = letterAt(c);
            cells += l >= 0;
            found += l >= 0 && r_.picked[static_cast<std::size_t>(l)];
        }
        if (permille(rng_) < (2 * found >= cells ? 120 : 15)) {
            clickSolve();
            return;
        }
    }
    const int letter = letterToPick();
    if (letter < 0) {
        note("round " + std::to_string(number) + " goes on with no letter to click");
        return;
    }
    clickLetter(letter);
}

// Five consonants and one vowel, Y as good as any; now and then too slowly.
void LettermineBot::playBonusPicks() {
    std::uniform_int_distribution<int> permille(0, 999);
    if (permille(rng_) < 30) {
        wait(std::uniform_int_distribution<int>(9000, 12000)(rng_));
        return;
    }
    if (permille(rng_) < 300) {
        wait(std::uniform_int_distribution<int>(100, 1200)(rng_));
        if (!r_.picking || !roundGoesOn(3))
            return;
    }
    const bool vowel = r_.vowels == 0 && (r_.consonants == 5 || std::uniform_int_distribution<int>(
                                                                    0, 5 - r_.picks)(rng_) == 0);
    std::vector<int> choices, right;
    for (int l = 0; l < LettermineRound::kLetters; ++l) {
        const Control& b = *form_.cmdLetter[static_cast<std::size_t>(l)];
        if (LettermineRound::isVowel(l) != vowel || !b.effectivelyEnabled() ||
            !b.effectivelyVisible())
            continue;
        choices.push_back(l);
        if (occurrences(l) > 0)
            right.push_back(l);
    }
    const auto& from = !right.empty() && permille(rng_) < 500 ? right : choices;
    if (from.empty()) {
        note(std::string("the bonus round offers no ") + (vowel ? "vowel" : "consonant") +
             " after " + std::to_string(r_.picks) + " picks");
        return;
    }
    clickLetter(from[std::uniform_int_distribution<std::size_t>(0, from.size() - 1)(rng_)]);
}

// Mostly a letter of the phrase, consonants first; otherwise any letter still open.
int LettermineBot::letterToPick() {
    std::uniform_int_distribution<int> permille(0, 999);
    std::vector<int> open, right, rightConsonants;
    for (int l = 0; l < LettermineRound::kLetters; ++l) {
        const Control& b = *form_.cmdLetter[static_cast<std::size_t>(l)];
        if (!b.effectivelyEnabled() || !b.effectivelyVisible())
            continue;
        open.push_back(l);
        if (occurrences(l) > 0) {
            right.push_back(l);
            if (!LettermineRound::isVowel(l))
                rightConsonants.push_back(l);
        }
    }
    auto any = [this](const std::vector<int>& v) {
        return v[std::uniform_int_distribution<std::size_t>(0, v.size() - 1)(rng_)];
    };
    if (!right.empty() && permille(rng_) < (r_.solve ? 900 : 600))
        return !rightConsonants.empty() && permille(rng_) < 700 ? any(rightConsonants) : any(right);
    return open.empty() ? -1 : any(open);
}

int LettermineBot::occurrences(int letter) const {
    return occurrences(letter, form_.round.board.text);
}

int LettermineBot::occurrences(int letter, const std::string& text) {
    int n = 0;
    for (char c : text)
        n += letterAt(c) == letter;
    return n;
}

bool LettermineBot::phraseWhole(const std::array<bool, 26>& picked, const std::string& text) {
    for (char c : text) {
        const int l = letterAt(c);
        if (l >= 0 && !picked[static_cast<std::size_t>(l)])
            return false;
    }
    return true;
}

// ---- Moves

LettermineBot::Move LettermineBot::watch(const std::function<void()>& action) {
    Move m;
    std::int64_t last = prog_.state.Score;
    const int score = form_.lblCurrentScore.subscribe([this, &m, &last](Control&, Prop p) {
        if (p != Prop::Caption || prog_.state.Score == last)
            return;
        m.paid.push_back(prog_.state.Score - last);
        last = prog_.state.Score;
    });
    Control* roundLabel = form_.lblCurrentRound;
    const int round = roundLabel ? roundLabel->subscribe([this, &m](Control& c, Prop p) {
        if (p == Prop::Caption && !c.caption().empty())
            m.roundDealtMs = fake_.elapsedMs();
    })
                                 : -1;
    action();
    form_.lblCurrentScore.unsubscribe(score);
    if (roundLabel)
        roundLabel->unsubscribe(round);
    return m;
}

void LettermineBot::wait(std::int64_t ms) {
    auto& g = prog_.state;
    const int number = g.RoundNumber;
    const std::int64_t score = g.Score;
    const std::int32_t value = form_.LetterValue;
    const Move m = watch([this, ms] { fake_.advance(ms); });
    if (g.Score != score)
        note("waiting " + std::to_string(ms) + " ms in round " + std::to_string(number) +
             " moved the score by " + std::to_string(g.Score - score));
    if (roundGoesOn(number)) {
        if (form_.LetterValue != value)
            note("waiting " + std::to_string(ms) + " ms in round " + std::to_string(number) +
                 " drew a new letter value");
        // Only a full letter timer takes a smiley while nothing is clicked.
        if (form_.round.GuessIndex > r_.guessIndex)
            note("GuessIndex rose from " + std::to_string(r_.guessIndex) + " to " +
                 std::to_string(form_.round.GuessIndex) + " in a wait");
        r_.guessIndex = form_.round.GuessIndex;
    } else {
        r_.lost = true;  // the clock or the letter timer ended it
    }
    followRound(m, number);
    checkRound();
}

void LettermineBot::clickSolve() {
    auto& g = prog_.state;
    const int number = g.RoundNumber;
    const std::int64_t score = g.Score;
    const Move m = watch([this] { click(&form_.cmdSolve, "cmdSolve"); });
    if (!m.paid.empty() || g.Score != score)
        note("Solve It paid " + std::to_string(g.Score - score));
    r_.solve = true;
    r_.clockStartMs = -1;
    r_.barResetMs = fake_.elapsedMs();
    if (!roundGoesOn(number)) {
        note("Solve It ended round " + std::to_string(number));
        return;
    }
    // The clock stands from here on; only the letter timer runs.
    if (fake_.isRunning(form_.Timer1))
        note("the round clock runs after Solve It");
    for (Control* c : {&form_.cmdPlay, &form_.cmdPause, &form_.cmdSolve, &form_.cmdExit})
        if (c->enabled())
            note(c->name() + " is enabled in solve mode");
    followRound(m, number);
    checkRound();
}

void LettermineBot::clickLetter(int letter) {
    auto& g = prog_.state;
    const auto& v = form_.values();
    const int number = g.RoundNumber;
    const std::int64_t score = g.Score;
    const std::int32_t value = form_.LetterValue;
    const std::int16_t elapsed = g.ElapsedSeconds;
    const int bar = form_.ProgressBar1.value();
    const bool picking = r_.picking;
    // The click that ends the round deals the next phrase: this one is kept.
    const std::string phrase = form_.round.board.text;
    const std::int32_t most = std::max<std::int32_t>(1, form_.round.board.MaxLetterUnits) * 250;
    const std::string name = "cmdLetter(" + std::to_string(letter) + ") " + letterName(letter);
    if (form_.txtLetterValue.text() != std::to_string(value))
        note("the letter value shows " + form_.txtLetterValue.text() + ", not " +
             std::to_string(value));
    const Move m = watch(
        [this, letter, &name] { click(form_.cmdLetter[static_cast<std::size_t>(letter)], name); });
    const std::int64_t now = fake_.elapsedMs();
    const bool goesOn = roundGoesOn(number);
    const std::string what = name + " in round " + std::to_string(number);

    // What the letters paid: each occurrence the value on show when it was found. Anything
    // after that is the round's bonuses, paid only for a completed phrase.
    bool complete = false, lost = false;
    std::size_t next = 0;
    int gi = r_.guessIndex;
    auto pay = [&](int l, std::int32_t shown, bool first) {
        const int times = occurrences(l, phrase);
        std::int64_t previous = 0;
        for (int k = 0; k < times; ++k, ++next) {
            const std::int64_t each = next < m.paid.size() ? m.paid[next] : 0;
            if (first ? each != shown : each % 250 != 0 || each < 250 || each > most)
                note(what + ": occurrence " + std::to_string(k + 1) + " of " + letterName(l) +
                     " paid " + std::to_string(each) +
                     (first ? ", not the " + std::to_string(shown) + " on show" : ""));
            if (k > 0 && each != previous)
                note(what + ": the occurrences of " + letterName(l) + " paid different values");
            previous = each;
        }
        r_.picked[static_cast<std::size_t>(l)] = true;
        if (times > 0) {
            r_.hit = true;
            complete = phraseWhole(r_.picked, phrase);
        } else if (r_.solve) {
            lost = true;
        } else {
            lost = --gi < 0;
        }
    };

    if (picking) {
        const bool vowel = LettermineRound::isVowel(letter);
        const int n = r_.picks;
        const std::string message =
            !vowel && r_.vowels == 0
                ? "Select " + std::to_string(4 - n) + " consonants and 1 vowel"
                : "Select " + std::to_string(5 - n) + " consonants and no vowels";
        r_.pending[static_cast<std::size_t>(letter)] = true;
        r_.order[static_cast<std::size_t>(n)] = letter;
        ++r_.picks;
        (vowel ? r_.vowels : r_.consonants) += 1;
        if (r_.picks < 6) {
            if (!m.paid.empty())
                note(what + ": a pick paid before the sixth");
            if (form_.LetterValue != value)
                note(what + ": a pick drew a new letter value");
            if (form_.ProgressBar1.value() != bar)
                note(what + ": a pick moved the letter timer");
            if (form_.lblMessage.caption() != message || !form_.lblMessage.visible())
                note(what + ": the message reads \"" + form_.lblMessage.caption() + "\", not \"" +
                     message + "\"");
            followRound(m, number);
            checkRound();
            return;
        }
        // The sixth: the picks tried in order, each as a click, up to one that ends the round.
        r_.picking = false;
        for (int k = 0; k < 6 && !complete && !lost; ++k) {
            const int l = r_.order[static_cast<std::size_t>(k)];
            pay(l, value, k == 0);
        }
        r_.pending.fill(false);
        for (int l : r_.order)
            r_.picked[static_cast<std::size_t>(l)] = true;
    } else {
        pay(letter, value, true);
    }

    const std::int64_t bonuses = sum(m.paid, next);
    if (g.Score - score != sum(m.paid, 0))
        note(what + ": the score moved by " + std::to_string(g.Score - score) + " but showed " +
             std::to_string(sum(m.paid, 0)));
    if (complete) {
        // The smileys left, the completion and the seconds left.
        std::int64_t expected = static_cast<std::int64_t>(gi + 1) * v.GuessBonus;
        const int left = g.RoundSeconds - elapsed;
        if (left > 0)
            expected += static_cast<std::int64_t>(left) * g.TimeBonus;
        // A count-up in twenty steps pays a completion bonus that twenty don't divide to
        // the next step.
        const std::int64_t slack =
            g.CountDownScore && v.CompletionBonus % 20 != 0 ? v.CompletionBonus / 20 + 1 : 0;
        if (std::abs(bonuses - expected - v.CompletionBonus) > slack)
            note(what + " completed the phrase with " + std::to_string(gi + 1) + " smileys and " +
                 std::to_string(left) + " s left, and paid " + std::to_string(bonuses) +
                 " beyond its letters");
        ++solvedInGame_;
        r_.solved = true;
    } else if (bonuses != 0) {
        note(what + " paid " + std::to_string(bonuses) + " beyond its letters");
    }
    r_.lost = lost;
    if (goesOn == (complete || lost))
        note(what + (goesOn ? " should have ended the round" : " ended the round unasked"));
    if (goesOn) {
        r_.guessIndex = gi;
        r_.barResetMs = now;
        if (form_.ProgressBar1.value() != 0)
            note(what + " left the letter timer at " + std::to_string(form_.ProgressBar1.value()));
        if (r_.solve && form_.LetterValue != value)
            note(what + " changed the letter value in solve mode from " + std::to_string(value) +
                 " to " + std::to_string(form_.LetterValue));
        if (picking) {
            // One long solve against one mistake, on the clock.
            r_.solve = true;
            r_.guessIndex = 0;
            r_.clockStartMs = now;
            if (form_.lblLetterValue.caption() != "All Letters worth:" ||
                !form_.txtLetterValue.visible())
                note("after the picks the letter value reads \"" + form_.lblLetterValue.caption() +
                     "\"");
            if (form_.lblMessage.visible())
                note("after the picks the message still shows \"" + form_.lblMessage.caption() +
                     "\"");
        }
    }
    followRound(m, number);
    checkRound();
}

// A move that ended the round: round two decides the bonus round; a new round starts the
// bot's picture of it afresh.
void LettermineBot::followRound(const Move& m, int roundBefore) {
    auto& g = prog_.state;
    if (g.GameInProgress && g.RoundNumber == roundBefore)
        return;
    if (roundBefore == 2) {
        const bool earned = solvedInGame_ >= 2 && g.Score >= g.BonusRoundScore;
        const bool played = g.GameInProgress && g.RoundNumber == 3;
        if (earned != played)
            note(std::string(played ? "a bonus round" : "no bonus round") + " after " +
                 std::to_string(solvedInGame_) + " phrases solved and a score of " +
                 std::to_string(g.Score) + " (" + std::to_string(g.BonusRoundScore) + " needed)");
    }
    if (!g.GameInProgress)
        return;
    if (g.RoundNumber != roundBefore + 1)
        note("round " + std::to_string(g.RoundNumber) + " followed round " +
             std::to_string(roundBefore));
    ++roundsInGame_;
    const std::int64_t dealt = m.roundDealtMs >= 0 ? m.roundDealtMs : fake_.elapsedMs();
    r_ = Round{};
    r_.number = g.RoundNumber;
    r_.picking = g.RoundNumber >= 3;
    r_.guessIndex = std::clamp<int>(form_.values().GuessCount, 1, LettermineRound::kSmileys) - 1;
    r_.clockStartMs = g.RoundNumber < 3 ? dealt : -1;
    r_.barResetMs = dealt;
    if (r_.picking)
        bonusPlayed_ = true;
}

// ---- Checks

void LettermineBot::checkRound() {
    auto& g = prog_.state;
    checkSmileys();
    if (!g.GameInProgress)
        return;
    const std::string in = " in round " + std::to_string(g.RoundNumber);
    if (g.TakingScore)
        note("TakingScore stays set" + in);
    if (g.RoundNumber < 1 || g.RoundNumber > 3)
        note("round number " + std::to_string(g.RoundNumber) + " while a game is on");
    if (form_.lblCurrentRound && form_.lblCurrentRound->caption() != std::to_string(g.RoundNumber))
        note("the round box shows " + form_.lblCurrentRound->caption() + in);
    const std::int32_t value = form_.LetterValue;
    const std::int32_t most = std::max<std::int32_t>(1, form_.round.board.MaxLetterUnits) * 250;
    if (value % 250 != 0 || value < 250 || value > most)
        note("a letter value of " + std::to_string(value) + in + " (up to " + std::to_string(most) +
             ")");
    if (form_.txtLetterValue.text() != std::to_string(value))
        note("the letter value shows " + form_.txtLetterValue.text() + ", not " +
             std::to_string(value) + in);
    if (form_.round.GuessIndex != r_.guessIndex)
        note("GuessIndex is " + std::to_string(form_.round.GuessIndex) + ", not " +
             std::to_string(r_.guessIndex) + in);
    if (form_.PhrasesSolved != solvedInGame_)
        note(std::to_string(form_.PhrasesSolved) + " phrases solved, not " +
             std::to_string(solvedInGame_) + in);
    if (form_.round.SolveMode != r_.solve || form_.round.BonusPicking != r_.picking)
        note("solve mode or picking differs from the clicks made" + in);
    const bool solveOffered = g.RoundNumber < 3 && !r_.solve;
    if (form_.cmdSolve.enabled() != solveOffered || form_.mnuSolve.enabled() != solveOffered)
        note(std::string("Solve It is ") + (solveOffered ? "not " : "") + "offered" + in);
    checkBoard();
    checkLetters();
    checkTiming();
}

// Every shown cell holds its letter once that letter was clicked, and nothing before.
void LettermineBot::checkBoard() {
    const PhraseLayout& b = form_.round.board;
    for (int i = 0; i < PhraseLayout::kCells; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const Control& cell = *form_.lblLetter[k];
        const std::string at = "cell " + std::to_string(i) + " of \"" + b.text + "\"";
        if (cell.visible() != b.shown[k] || cell.caption() != b.caption[k]) {
            note(at + " shows \"" + cell.caption() + "\" against the round's \"" + b.caption[k] +
                 "\"");
            return;
        }
        const char c = k < b.text.size() ? b.text[k] : ' ';
        if (b.shown[k] != (c != ' ')) {
            note(at + (b.shown[k] ? " is shown" : " is hidden"));
            return;
        }
        if (!b.shown[k])
            continue;
        if (cell.foreColor() != colors::Blue)
            note(at + " is not blue while the round goes on");
        const int l = letterAt(c);
        const std::string upper(1, static_cast<char>(std::toupper(static_cast<unsigned char>(c))));
        const std::string expected = l < 0                                    ? upper
                                     : r_.picked[static_cast<std::size_t>(l)] ? upper
                                                                              : "";
        if (cell.caption() != expected) {
            note(at + " shows \"" + cell.caption() + "\", not \"" + expected + "\"");
            return;
        }
    }
}

// Each smiley's picture is its state's; in the first two rounds the row reads happy up to
// GuessIndex and sad after it.
void LettermineBot::checkSmileys() {
    const auto& g = prog_.state;
    const int count = std::clamp<int>(form_.values().GuessCount, 1, LettermineRound::kSmileys);
    for (int i = 0; i < LettermineRound::kSmileys; ++i) {
        const std::string& state = form_.round.Guess[static_cast<std::size_t>(i)];
        const std::string& picture = form_.Guess[static_cast<std::size_t>(i)]->picture();
        const bool agrees =
            state.empty() ||
            (state == "UNHAPPY" ? picture == "SmileySad" || picture == "SmileyBanned"
                                : picture == form_.GuessPicture(state));
        if (!agrees)
            note("Guess(" + std::to_string(i) + ") shows " + picture + " for " + state);
        if (g.GameInProgress && !g.TakingScore && g.RoundNumber < 3 && i < count) {
            const char* expected = i <= r_.guessIndex ? "HAPPY" : "UNHAPPY";
            if (state != expected)
                note("Guess(" + std::to_string(i) + ") is " + state + " with GuessIndex " +
                     std::to_string(r_.guessIndex));
        }
    }
}

// The letters open: consonants from the start, vowels after the first hit or Solve It; in
// the bonus round five consonants and one vowel, then all but the picks.
void LettermineBot::checkLetters() {
    for (int l = 0; l < LettermineRound::kLetters; ++l) {
        const auto k = static_cast<std::size_t>(l);
        const bool vowel = LettermineRound::isVowel(l);
        bool expected = !r_.picked[k] && !r_.pending[k];
        if (r_.picking)
            expected = expected && (vowel ? r_.vowels == 0 : r_.consonants < 5);
        else if (r_.number < 3 && !r_.solve)
            expected = expected && (!vowel || r_.hit);
        const Control& b = *form_.cmdLetter[k];
        if (b.enabled() != expected || !b.visible()) {
            note("cmdLetter(" + std::to_string(l) + ") " + letterName(l) + " is " +
                 (b.enabled() ? "enabled" : "disabled") + (b.visible() ? "" : " and hidden") +
                 " in round " + std::to_string(r_.number) + (r_.picking ? " (picking)" : "") +
                 (r_.solve ? " (solve mode)" : ""));
            return;
        }
    }
}

// The clock ends a round at its time limit, the letter timer a solve 101 ticks after the
// last click; a round still on past either has outlived its time.
void LettermineBot::checkTiming() {
    const auto& g = prog_.state;
    const std::int64_t now = fake_.elapsedMs();
    const std::string in = "round " + std::to_string(g.RoundNumber);
    if (g.ElapsedSeconds > g.RoundSeconds)
        note(in + " counts " + std::to_string(g.ElapsedSeconds) + " of " +
             std::to_string(g.RoundSeconds) + " seconds");
    if (fake_.isRunning(form_.Timer1) != (r_.clockStartMs >= 0))
        note(in + (r_.clockStartMs >= 0 ? ": the clock stands" : ": the clock runs"));
    if (!fake_.isRunning(form_.Timer5))
        note(in + ": the letter timer stands");
    if (r_.clockStartMs >= 0 && now - r_.clockStartMs >= g.RoundSeconds * 1000LL)
        note(in + " still goes on " + std::to_string(now - r_.clockStartMs) +
             " ms after its clock started, with a limit of " + std::to_string(g.RoundSeconds) +
             " s");
    if ((r_.solve || r_.picking) && now - r_.barResetMs >= kLetterTimeMs)
        note(in + " still goes on " + std::to_string(now - r_.barResetMs) +
             " ms after the letter timer was last reset" +
             (r_.picking ? " (picking)" : " (solve mode)"));
}

// Game over: the clocks stand, the round count is that of the rounds played, and the
// last phrase stands whole, green if solved and red if not.
void LettermineBot::checkGameOver() {
    const auto& g = prog_.state;
    if (fake_.isRunning(form_.Timer1) || fake_.isRunning(form_.Timer5))
        note("a round timer still runs after game over");
    if (g.RoundNumber != (bonusPlayed_ ? 4 : 3))
        note("the game ended at round number " + std::to_string(g.RoundNumber) +
             (bonusPlayed_ ? " after a bonus round" : " without a bonus round"));
    if (roundsInGame_ > 3)
        note(std::to_string(roundsInGame_) + " rounds in one game");
    if (form_.PhrasesSolved != solvedInGame_)
        note(std::to_string(form_.PhrasesSolved) + " phrases solved at game over, not " +
             std::to_string(solvedInGame_));
    const PhraseLayout& b = form_.round.board;
    const Color colour = r_.solved ? kSolvedGreen : colors::Red;
    for (std::size_t i = 0; i < b.text.size() && i < PhraseLayout::kCells; ++i) {
        const int l = letterAt(b.text[i]);
        if (l < 0)
            continue;
        const Control& cell = *form_.lblLetter[i];
        if (cell.caption() != letterName(l) || cell.foreColor() != colour) {
            note("at game over cell " + std::to_string(i) + " of \"" + b.text + "\" shows \"" +
                 cell.caption() + "\" in " + colorText(cell.foreColor()) + " after a " +
                 (r_.solved ? "solved" : "lost") + " round");
            return;
        }
    }
}

}  // namespace corvanna
