#pragma once
// Percent-decoding, for tests that read a mailto: link back.

#include <string>

namespace corvanna {

inline std::string percentDecoded(const std::string& text) {
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

}  // namespace corvanna
