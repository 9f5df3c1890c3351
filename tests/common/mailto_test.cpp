// The mail as a mailto: link and as xdg-email's arguments: every character that means
// something in a URL encoded exactly, and nothing changed on the way to xdg-email.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/Mail.h"

namespace corvanna {

namespace {

MailMessage hostile() {
    MailMessage m;
    m.recipientName = "Orlund";
    m.recipientAddress = "highscores@example.org";
    m.subject = "Corvanna High Score Listing for Tierfall!";
    m.body =
        "190,000 by Zo\xC3\xAB \xC3\x85kesson of \"Lyon\" & 'Nice'\r\n\r\n"
        "a?b#c%d+e=f g\nlone\rend";
    return m;
}

// Percent-decoding, to read a long link back.
std::string decoded(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size()) {
            out += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            out += text[i];
        }
    }
    return out;
}

}  // namespace

TEST(MailLink, EveryCharacterThatMeansSomethingIsEncodedAndLineBreaksAreCrLf) {
    EXPECT_EQ(MailtoUrl(hostile()),
              "mailto:highscores@example.org"
              "?subject=Corvanna%20High%20Score%20Listing%20for%20Tierfall%21"
              "&body=190%2C000%20by%20Zo%C3%AB%20%C3%85kesson%20of%20%22Lyon%22%20%26%20%27Nice%27"
              "%0D%0A%0D%0Aa%3Fb%23c%25d%2Be%3Df%20g%0D%0Alone%0D%0Aend");

    // A long comment goes whole: three bytes a character, and read back the same.
    MailMessage m = hostile();
    m.body = std::string(10000, '&');
    const std::string url = MailtoUrl(m);
    const auto body = url.find("&body=");
    ASSERT_NE(body, std::string::npos);
    EXPECT_EQ(url.size() - body - 6, 30000u);
    EXPECT_EQ(decoded(url.substr(body + 6)), m.body);

    // A line break in a subject would end the header: it becomes a blank.
    m.subject = "two\r\nlines";
    EXPECT_NE(MailtoUrl(m).find("?subject=two%20lines&"), std::string::npos);
}

TEST(MailLink, XdgEmailGetsSubjectAndBodyAsTheyAreWithLfLineEnds) {
    EXPECT_THAT(XdgEmailArguments(hostile()),
                ::testing::ElementsAre("--utf8", "--subject",
                                       "Corvanna High Score Listing for Tierfall!", "--body",
                                       "190,000 by Zo\xC3\xAB \xC3\x85kesson of \"Lyon\" & "
                                       "'Nice'\n\na?b#c%d+e=f g\nlone\nend",
                                       "highscores@example.org"));
    // An address that would read as an option gives no call at all.
    MailMessage m = hostile();
    m.recipientAddress = "--attach=/etc/passwd";
    EXPECT_TRUE(XdgEmailArguments(m).empty());
    m.recipientAddress = "";
    EXPECT_TRUE(XdgEmailArguments(m).empty());
}

}  // namespace corvanna
