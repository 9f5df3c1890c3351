#pragma once
// The two ways a mail reaches the user's own mail program on Linux: a mailto: link,
// and the arguments of the desktop's xdg-email.

#include <string>
#include <vector>

#include "platform/Platform.h"

namespace corvanna {

// "mailto:ADDRESS?subject=...&body=...", every byte but the unreserved ones
// percent-encoded (UTF-8, %XX in capitals) and every line break in the body as %0D%0A.
// A mailto: link has no place for the display name, so it is left out.
std::string MailtoUrl(const MailMessage& mail);

// Every line break, CR LF, lone CR or lone LF, made `eol`.
std::string withLineEnds(const std::string& text, const std::string& eol);

// The arguments (without the program) of xdg-email: our own mailto: link, alone.
// Given --subject and --body instead, xdg-email builds the link with the shell's echo,
// which under dash turns a backslash and the letter after it into a line break or cuts
// the text short; a link that starts with "mailto:" it passes on as it is. The address
// sits percent-encoded inside the link, so no address can read as an option.
std::vector<std::string> XdgEmailArguments(const MailMessage& mail);

}  // namespace corvanna
