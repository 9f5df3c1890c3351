#pragma once
// Lettermine's phrase supply: seven topic files, each counted and read the first time a
// phrase of it is wanted, shuffled in memory, handed out one at a time, and written back
// with the position reached when the game closes, so that play goes on through the same
// shuffled list across runs. Plain code: no form; the caption of fmPhrase is handed back.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvanna {

class Program;
struct PhraseLayout;

struct PhraseTopic {
    std::int32_t PhraseCount = 0;
    std::int32_t PhrasePosition = -1;      // -1: not started
    std::vector<std::string> PhraseTable;  // slots 0 to PhraseCount
    bool PhrasesLoaded = false;
};

struct TopicInfo {
    const char* menu;
    const char* menuCaption;
    const char* frameCaption;  // fmPhrase's caption
    const char* fileName;
};

class PhraseSupply {
public:
    static constexpr int kTopics = 7;
    // Topics 1 to 7; 0 is Random, which draws one of them for every phrase.
    static const TopicInfo& topic(int topic);
    // What a missing file is replaced by, and the round is played on.
    static constexpr const char* kMissingPhrase =
        "Lettermine's data file is missing. Please re-install!";

    // The file's header position and its lines behind the header (CountPhraseFile), and
    // the table it gives (LoadPhraseFile), from the file's text.
    static void CountPhrases(const std::string& text, std::int32_t& position, std::int32_t& count);
    static std::vector<std::string> LoadPhrases(const std::string& text, std::int32_t count);
    // One pass over a table that starts at slot 0, as the deck is shuffled.
    static void ShufflePhrases(Program& prog, std::vector<std::string>& table);

    // GetNextPhrase: the next phrase of the topic, trimmed (Random: of a topic drawn for
    // this phrase alone), and fmPhrase's caption. A missing file is
    // replaced by the one sentence above, with a message; any other failure gives "".
    std::string GetNextPhrase(Program& prog, std::int16_t currentTopic, std::string& caption);
    // The next phrase the board can take. A topic that gives none in a whole pass (every line
    // empty or refused) is named, and the round is played on the built-in sentence.
    std::string GetPlayablePhrase(Program& prog, std::int16_t currentTopic, std::string& caption,
                                  PhraseLayout& layout);
    // SavePhraseFiles: every topic read in this run, in its shuffled order, with its
    // position and the final empty line.
    void SavePhraseFiles(Program& prog);

    PhraseTopic& record(int topic) { return topics_[static_cast<std::size_t>(topic - 1)]; }
    const PhraseTopic& record(int topic) const {
        return topics_[static_cast<std::size_t>(topic - 1)];
    }
    static std::string FileText(const PhraseTopic& t);

private:
    std::array<PhraseTopic, kTopics> topics_{};
};

}  // namespace corvanna
