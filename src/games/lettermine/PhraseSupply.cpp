#include "games/lettermine/PhraseSupply.h"

#include <algorithm>
#include <cctype>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/Program.h"
#include "games/lettermine/PhraseLayout.h"

namespace corvanna {

namespace {

constexpr const char* kHeader = "CURRENT_PHRASE_NUMBER";

const TopicInfo kTopicTable[] = {
    {"mnuRandom", "&Random", "", ""},
    {"mnuMovies", "TV / &Movies", "Topic: Television and Movies", "LMM.Dat"},
    {"mnuPeople", "&People / Names", "Topic: People and Names", "LMN.Dat"},
    {"mnuPhrases", "F&amous Phrases", "Topic: Famous and Not So Famous Phrases", "LMP.Dat"},
    {"mnuSports", "&Sports", "Topic: Sports", "LMS.Dat"},
    {"mnuMisc", "Mis&cellaneous", "Topic: Miscellaneous", "LMX.Dat"},
    {"mnuMusicTopic", "M&usic", "Topic: Music", "LMMU.Dat"},
    {"mnuPlaces", "P&laces", "Topic: Places", "LMPL.Dat"},
};

// The lines of a file: CR LF, CR or LF end a line, and a last line break starts no line.
std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '\r' || c == '\n') {
            lines.push_back(line);
            line.clear();
            if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
        } else {
            line += c;
        }
    }
    if (!line.empty())
        lines.push_back(line);
    return lines;
}

bool isHeader(const std::string& line) {
    return line.compare(0, 21, kHeader) == 0;
}

std::string trimmed(const std::string& s) {
    const auto b = s.find_first_not_of(' ');
    if (b == std::string::npos)
        return "";
    return s.substr(b, s.find_last_not_of(' ') - b + 1);
}

std::string lower(std::string s) {
    for (char& c : s)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

}  // namespace

const TopicInfo& PhraseSupply::topic(int topic) {
    return kTopicTable[std::clamp(topic, 0, kTopics)];
}

void PhraseSupply::CountPhrases(const std::string& text, std::int32_t& position,
                                std::int32_t& count) {
    const std::vector<std::string> lines = linesOf(text);
    std::size_t first = 0;
    position = -1;
    if (!lines.empty() && isHeader(lines[0])) {
        // The number is what follows the first "=", read as a number from its start.
        const auto eq = lines[0].find('=');
        const double n = eq == std::string::npos ? 0 : plainNumber(lines[0].substr(eq + 1));
        position = static_cast<std::int32_t>(std::clamp(n, -1.0, 2147483647.0));
        first = 1;
    }
    count += static_cast<std::int32_t>(lines.size() - first);
}

std::vector<std::string> PhraseSupply::LoadPhrases(const std::string& text, std::int32_t count) {
    std::vector<std::string> table(static_cast<std::size_t>(std::max(0, count)) + 1);
    const std::vector<std::string> lines = linesOf(text);
    std::size_t next = 0;
    if (!lines.empty() && !isHeader(lines[0]))
        table[0] = lines[next++];
    else if (!lines.empty())
        next = 1;
    for (std::int32_t slot = 1; slot < count && next < lines.size(); ++slot)
        table[static_cast<std::size_t>(slot)] = lines[next++];
    return table;
}

void PhraseSupply::ShufflePhrases(Program& prog, std::vector<std::string>& table) {
    if (table.size() < 2)
        return;
    const auto upper = static_cast<double>(table.size() - 1);
    for (std::size_t i = 0; i < table.size(); ++i) {
        const auto j = static_cast<std::size_t>(prog.randomNumber(1, upper));
        std::swap(table[i], table[std::min(j, table.size() - 1)]);
    }
}

std::string PhraseSupply::GetNextPhrase(Program& prog, std::int16_t currentTopic,
                                        std::string& caption) {
    // Random draws the topic of this phrase only; the choice in force stays Random.
    const int t = currentTopic == 0 ? prog.randomNumber(1, kTopics)
                                    : std::clamp<int>(currentTopic, 1, kTopics);
    caption = topic(t).frameCaption;
    const std::string path = prog.shippedFile(topic(t).fileName);
    PhraseTopic& r = record(t);
    std::string phrase;
    if (!r.PhrasesLoaded) {
        std::string text, error;
        const ReadStatus status = readWholeFile(path, text, &error);
        if (status == ReadStatus::Missing) {
            // A file of the one sentence takes its place; the next use of the topic reads it.
            phrase = kMissingPhrase;
            prog.saveFile(
                path, std::string(kMissingPhrase) + "\r\n", [&path](const std::string& why) {
                    return "The phrase file '" + path + "' could not be made: " + why + ".";
                });
            prog.msg(
                "The file containing the phrases used by the game was not found.\nA temporary "
                "file with a single phrase hase been created. Please reinstall the Corvanna to "
                "recover from this error.",
                MsgButtons::OK, MsgIcon::Critical);
            return phrase;
        }
        if (status != ReadStatus::Ok) {
            prog.msg("The phrase file '" + path + "' could not be read: " + error + ".");
            return "";
        }
        r.PhraseCount = 0;
        CountPhrases(text, r.PhrasePosition, r.PhraseCount);
        r.PhraseTable = LoadPhrases(text, r.PhraseCount);
        r.PhrasesLoaded = true;
    }
    // A position past the table (a hand-edited header) starts a fresh pass, as the end does.
    if (r.PhrasePosition >= r.PhraseCount || r.PhrasePosition < 0 ||
        static_cast<std::size_t>(r.PhrasePosition) >= r.PhraseTable.size()) {
        ShufflePhrases(prog, r.PhraseTable);
        r.PhrasePosition = 0;
    }
    phrase = trimmed(r.PhraseTable[static_cast<std::size_t>(r.PhrasePosition)]);
    ++r.PhrasePosition;
    return phrase;
}

std::string PhraseSupply::GetPlayablePhrase(Program& prog, std::int16_t currentTopic,
                                            std::string& caption, PhraseLayout& layout) {
    const int asked = currentTopic;
    for (long tries = 0;; ++tries) {
        const std::string phrase = GetNextPhrase(prog, currentTopic, caption);
        if (!phrase.empty() && phrase.size() <= 90 && !LayoutPhrase(phrase, layout))
            return phrase;
        // A file that could not be read has been named once; asking again would only name
        // it again, so this round is played on the built-in sentence.
        for (int k = 1; phrase.empty() && k <= kTopics; ++k)
            if (caption == topic(k).frameCaption && !record(k).PhrasesLoaded) {
                LayoutPhrase(kMissingPhrase, layout);
                return kMissingPhrase;
            }
        // Two whole passes through every table that can be drawn from, and none would do.
        bool allRead = true;
        long slots = 0;
        for (int k = asked == 0 ? 1 : asked; k <= (asked == 0 ? kTopics : asked); ++k) {
            allRead = allRead && record(k).PhrasesLoaded;
            slots += static_cast<long>(record(k).PhraseTable.size());
        }
        if ((allRead && tries > 2 * slots + 16) || tries > 1000000) {
            const std::string what = asked == 0 ? std::string("any of the phrase files")
                                                : prog.filePath(topic(asked).fileName);
            prog.msg("No phrase in " + what +
                         " fits the board: every line is empty or too long. This round is "
                         "played on the built-in sentence.",
                     MsgButtons::OK, MsgIcon::Exclamation);
            LayoutPhrase(kMissingPhrase, layout);
            return kMissingPhrase;
        }
    }
}

std::string PhraseSupply::FileText(const PhraseTopic& t) {
    std::string text = std::string(kHeader) + "=" + std::to_string(t.PhrasePosition) + "\r\n";
    for (const std::string& entry : t.PhraseTable)
        if (!trimmed(entry).empty())
            text += lower(entry) + "\r\n";
    return text + "\r\n";
}

void PhraseSupply::SavePhraseFiles(Program& prog) {
    static const int kOrder[] = {3, 2, 4, 1, 5, 7, 6};  // LMP, LMN, LMS, LMM, LMX, LMPL, LMMU
    for (int t : kOrder) {
        const PhraseTopic& r = record(t);
        if (!r.PhrasesLoaded)
            continue;
        const std::string path = prog.filePath(topic(t).fileName);
        const bool ok = prog.saveFile(
            path, FileText(r),
            [](const std::string&) {
                return std::string(
                    "An error occured when attmpting to access the Lettermine Data files. Check "
                    "to see if these files have been marked Read Only.");
            },
            MsgIcon::Critical);
        // Once the folder refuses one, the others would be refused the same way.
        if (!ok)
            return;
    }
}

}  // namespace corvanna
