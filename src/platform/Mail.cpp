#include "platform/Mail.h"

#include <cstring>

namespace corvanna {

namespace {

bool unreserved(unsigned char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.' || c == '_' || c == '~';
}

std::string percentEncoded(const std::string& text, const char* alsoKept = "") {
    static const char* const hex = "0123456789ABCDEF";
    std::string out;
    out.reserve(text.size() * 3);
    for (const char ch : text) {
        const auto c = static_cast<unsigned char>(ch);
        if (unreserved(c) || (c != 0 && std::strchr(alsoKept, ch) != nullptr)) {
            out += ch;
        } else {
            out += '%';
            out += hex[c >> 4];
            out += hex[c & 0x0F];
        }
    }
    return out;
}

}  // namespace

std::string withLineEnds(const std::string& text, const std::string& eol) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r') {
            out += eol;
            if (i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
        } else if (text[i] == '\n') {
            out += eol;
        } else {
            out += text[i];
        }
    }
    return out;
}

std::string MailtoUrl(const MailMessage& mail) {
    // The "@" of the address may stand as it is; everything else that means something
    // in a URL is encoded. A line break in the subject would end the header: a blank.
    return "mailto:" + percentEncoded(mail.recipientAddress, "@") +
           "?subject=" + percentEncoded(withLineEnds(mail.subject, " ")) +
           "&body=" + percentEncoded(withLineEnds(mail.body, "\r\n"));
}

std::vector<std::string> XdgEmailArguments(const MailMessage& mail) {
    return {MailtoUrl(mail)};
}

}  // namespace corvanna
