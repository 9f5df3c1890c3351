// Lettermine's phrase supply on the test program: each topic read once, shuffled, handed
// out and written back with its position; a missing or useless file and a bad position.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "common/FileStore.h"
#include "games/lettermine/PhraseLayout.h"
#include "games/lettermine/PhraseSupply.h"
#include "testkit/TestProgram.h"

namespace corvanna {

namespace {
std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> out;
    std::size_t at = 0;
    for (std::size_t nl; (nl = text.find("\r\n", at)) != std::string::npos; at = nl + 2)
        out.push_back(text.substr(at, nl - at));
    return out;
}
// A phrase as it is handed out: without the blanks at its ends.
std::string trimmed(std::string s) {
    s.erase(0, s.find_first_not_of(' '));
    s.erase(s.find_last_not_of(' ') + 1);
    return s;
}
}  // namespace

TEST(PhraseSupply, AFileIsShuffledOnceWrittenBackInLowerCaseAndResumedAfterARestart) {
    TestProgram t;
    const std::string path = t.prog.filePath("LMS.Dat");
    ASSERT_TRUE(writeFileAtomic(path, "Alpha Team\r\n  Bravo Run  \r\nCharlie Kick\r\n"));
    PhraseSupply supply;
    std::int16_t topic = 4;
    std::string caption;
    const std::string first = supply.GetNextPhrase(t.prog, topic, caption);
    EXPECT_EQ(caption, "Topic: Sports");
    const PhraseTopic& r = supply.record(4);
    // Three lines, no header: slots 0 to 3, one of them empty, shuffled; the hand-out is
    // trimmed.
    EXPECT_EQ(r.PhraseCount, 3);
    ASSERT_EQ(r.PhraseTable.size(), 4u);
    EXPECT_EQ(r.PhrasePosition, 1);
    EXPECT_EQ(first, trimmed(r.PhraseTable[0]));
    supply.SavePhraseFiles(t.prog);
    const std::vector<std::string> lines = linesOf(t.file("LMS.Dat"));
    ASSERT_EQ(lines.size(), 5u);  // header, three phrases, the final empty line
    EXPECT_EQ(lines[0], "CURRENT_PHRASE_NUMBER=1");
    std::vector<std::string> phrases(lines.begin() + 1, lines.begin() + 4);
    std::vector<std::string> inTable;
    for (const std::string& e : r.PhraseTable)
        if (e.find_first_not_of(' ') != std::string::npos)
            inTable.push_back(e);
    std::transform(inTable.begin(), inTable.end(), inTable.begin(), [](std::string s) {
        std::transform(s.begin(), s.end(), s.begin(), ::tolower);
        return s;
    });
    EXPECT_EQ(phrases, inTable);  // the shuffled order, in lower case, untrimmed
    EXPECT_EQ(lines[4], "");

    // The next run reads the header and goes on without a shuffle: slot 1 is the first
    // phrase written.
    PhraseSupply next;
    EXPECT_EQ(next.GetNextPhrase(t.prog, topic, caption), trimmed(phrases[0]));
    EXPECT_EQ(next.record(4).PhraseCount, 4);  // the final empty line counts
    EXPECT_EQ(next.record(4).PhrasePosition, 2);
    // Only the topics used are written.
    next.SavePhraseFiles(t.prog);
    EXPECT_FALSE(fileExists(t.prog.filePath("LMM.Dat")));
    EXPECT_TRUE(t.fake.takeErrors().empty());
}

TEST(PhraseSupply, AMissingFileIsReplacedByOneSentenceAndRandomGoesBackToNought) {
    TestProgram t;
    t.prog.setAssetsDir("");  // nothing shipped beside the program
    PhraseSupply supply;
    std::int16_t topic = 0;  // Random: a topic drawn for this phrase
    std::string caption;
    t.fake.queueAnswer(MsgResult::OK);
    EXPECT_EQ(supply.GetNextPhrase(t.prog, topic, caption), PhraseSupply::kMissingPhrase);
    EXPECT_EQ(topic, 0);
    EXPECT_EQ(caption.rfind("Topic: ", 0), 0u);
    EXPECT_EQ(t.fake.messages(),
              std::vector<std::string>{
                  "The file containing the phrases used by the game was not found.\nA temporary "
                  "file with a single phrase hase been created. Please reinstall the Corvanna to "
                  "recover from this error."});
    // The topic drawn now has the sentence as its file, which its next use reads.
    int made = 0;
    for (int k = 1; k <= PhraseSupply::kTopics; ++k) {
        const std::string file = t.prog.filePath(PhraseSupply::topic(k).fileName);
        if (fileExists(file)) {
            ++made;
            EXPECT_EQ(t.file(PhraseSupply::topic(k).fileName),
                      std::string(PhraseSupply::kMissingPhrase) + "\r\n");
            // Its two slots shuffle the sentence into slot 1: the round's retry finds it.
            std::int16_t same = static_cast<std::int16_t>(k);
            PhraseLayout layout;
            EXPECT_EQ(supply.GetPlayablePhrase(t.prog, same, caption, layout),
                      PhraseSupply::kMissingPhrase);
            EXPECT_TRUE(supply.record(k).PhrasesLoaded);
        }
    }
    EXPECT_EQ(made, 1);
    EXPECT_EQ(t.fake.messages().size(), 1u);
}

TEST(PhraseSupply, AUselessFileOrAPositionPastItsEndNeverHangsTheRound) {
    TestProgram t;
    // Every line empty or refused by the board: the built-in sentence, and the file named.
    ASSERT_TRUE(
        writeFileAtomic(t.prog.filePath("LMX.Dat"), "\r\n   \r\nABCDEFGHIJKLMNOPQRSTUVWXYZ\r\n"));
    PhraseSupply supply;
    std::int16_t topic = 5;
    std::string caption;
    PhraseLayout layout;
    t.fake.queueAnswer(MsgResult::OK);
    EXPECT_EQ(supply.GetPlayablePhrase(t.prog, topic, caption, layout),
              PhraseSupply::kMissingPhrase);
    ASSERT_EQ(t.fake.messages().size(), 1u);
    EXPECT_NE(t.fake.messages()[0].find(t.prog.filePath("LMX.Dat")), std::string::npos);
    EXPECT_GT(layout.LetterCellCount, 0);

    // A hand-edited position past the last phrase starts a fresh pass.
    ASSERT_TRUE(writeFileAtomic(t.prog.filePath("LMPL.Dat"),
                                "CURRENT_PHRASE_NUMBER=999\r\nthe harbour\r\nthe hills\r\n\r\n"));
    topic = 7;
    const std::string phrase = supply.GetPlayablePhrase(t.prog, topic, caption, layout);
    EXPECT_TRUE(phrase == "the harbour" || phrase == "the hills") << phrase;
    EXPECT_EQ(caption, "Topic: Places");
    EXPECT_EQ(t.fake.messages().size(), 1u);

    // A file that can't be read (here a folder of its name) is named once, and the round is
    // played on the built-in sentence.
    std::filesystem::create_directory(t.prog.filePath("LMP.Dat"));
    t.fake.queueAnswer(MsgResult::OK);
    topic = 3;
    EXPECT_EQ(supply.GetPlayablePhrase(t.prog, topic, caption, layout),
              PhraseSupply::kMissingPhrase);
    ASSERT_EQ(t.fake.messages().size(), 2u);
    EXPECT_NE(t.fake.messages()[1].find(t.prog.filePath("LMP.Dat")), std::string::npos);
}

// Every phrase shipped lays out on the board, none repeats in any topic, and each topic
// has enough for a long run of rounds; the program's copy is the same list in CR LF.
TEST(PhraseSupply, EveryShippedPhraseLaysOutAndNoneRepeats) {
    const auto dir = std::filesystem::path(CORVANNA_TESTS_DIR) / ".." / "assets" / "phrases";
    std::set<std::string> seen;
    TestProgram t;
    t.prog.setAssetsDir(CORVANNA_ASSETS_DIR);
    for (int k = 1; k <= PhraseSupply::kTopics; ++k) {
        std::string name = PhraseSupply::topic(k).fileName;
        name = name.substr(0, name.find('.'));
        SCOPED_TRACE(name);
        std::ifstream in(dir / (name + ".txt"), std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        std::istringstream lines(text.str());
        int count = 0;
        for (std::string phrase; std::getline(lines, phrase);) {
            ++count;
            PhraseLayout layout;
            EXPECT_FALSE(phrase.empty() || LayoutPhrase(phrase, layout)) << phrase;
            std::string key;
            for (char c : phrase)
                if (std::isalnum(static_cast<unsigned char>(c)))
                    key += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
            EXPECT_TRUE(seen.insert(key).second) << "again: " << phrase;
        }
        EXPECT_GE(count, 150);
        std::string crlf;
        for (char c : text.str())
            crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
        std::string shipped;
        ASSERT_EQ(readWholeFile(t.prog.shippedFile(PhraseSupply::topic(k).fileName), shipped),
                  ReadStatus::Ok);
        EXPECT_EQ(shipped, crlf);
    }
}

}  // namespace corvanna
