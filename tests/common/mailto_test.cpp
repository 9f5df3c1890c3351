// The mail as a mailto: link and as xdg-email's arguments: every character that means
// something in a URL encoded exactly, and the link handed to xdg-email as it is.

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
        "a?b#c%d+e=f g\nlone\rend C:\\new\\c ~_.-";
    return m;
}

}  // namespace

TEST(MailLink, EveryCharacterThatMeansSomethingIsEncodedAndLineBreaksAreCrLf) {
    EXPECT_EQ(MailtoUrl(hostile()),
              "mailto:highscores@example.org"
              "?subject=Corvanna%20High%20Score%20Listing%20for%20Tierfall%21"
              "&body=190%2C000%20by%20Zo%C3%AB%20%C3%85kesson%20of%20%22Lyon%22%20%26%20%27Nice%27"
              "%0D%0A%0D%0Aa%3Fb%23c%25d%2Be%3Df%20g%0D%0Alone%0D%0Aend%20C%3A%5Cnew%5Cc%20~_.-");

    // A long comment goes whole: three bytes a character.
    MailMessage m = hostile();
    m.body = std::string(10000, '&');
    const std::string url = MailtoUrl(m);
    const auto body = url.find("&body=");
    ASSERT_NE(body, std::string::npos);
    EXPECT_EQ(url.size() - body - 6, 30000u);
    EXPECT_EQ(url.substr(body + 6, 6), "%26%26");

    // A line break in a subject would end the header: it becomes a blank.
    m.subject = "two\r\nlines";
    EXPECT_NE(MailtoUrl(m).find("?subject=two%20lines&"), std::string::npos);

    // An address can't add fields of its own or read as anything but an address.
    m.recipientAddress = "a+b@example.org?attach=/etc/passwd&x=y z";
    EXPECT_EQ(
        MailtoUrl(m).rfind("mailto:a%2Bb@example.org%3Fattach%3D%2Fetc%2Fpasswd%26x%3Dy%20z?", 0),
        0u);
    // The display name has no place in the link.
    EXPECT_EQ(MailtoUrl(m).find("Orlund"), std::string::npos);

    // xdg-email gets the link alone, and an address can't read as one of its options.
    m.recipientAddress = "--attach=/etc/passwd";
    EXPECT_THAT(XdgEmailArguments(m), ::testing::ElementsAre(MailtoUrl(m)));
    EXPECT_EQ(MailtoUrl(m).rfind("mailto:--attach%3D%2Fetc%2Fpasswd?", 0), 0u);
}

}  // namespace corvanna
