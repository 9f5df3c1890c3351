#pragma once
// The two ways a mail reaches the user's own mail program on Linux: a mailto: link,
// and the arguments of the desktop's xdg-email.

#include <string>
#include <vector>

#include "platform/Platform.h"

namespace corvanna {

// "mailto:ADDRESS?subject=...&body=...", every byte but the unreserved ones
// percent-encoded and every line break as %0D%0A. A mailto: link has no place for
// the display name, so it is left out.
std::string MailtoUrl(const MailMessage& mail);

// The arguments (without the program) of xdg-email: subject and body as arguments of
// their own, the body with "\n" line ends. Empty when the address could be taken for an
// option.
std::vector<std::string> XdgEmailArguments(const MailMessage& mail);

}  // namespace corvanna
