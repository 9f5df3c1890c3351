#pragma once
// Whole-file reads and writes. A write goes to a temporary file in the same
// folder and is renamed over the old one, so a crash leaves one whole version.

#include <string>

namespace corvanna {

enum class ReadStatus { Ok, Missing, Failed };

// Reads at most maxBytes; a larger file fails rather than filling memory.
ReadStatus readWholeFile(const std::string& path, std::string& out, std::string* error = nullptr,
                         std::size_t maxBytes = 4 * 1024 * 1024);
bool writeFileAtomic(const std::string& path, const std::string& bytes,
                     std::string* error = nullptr);
bool fileExists(const std::string& path);

}  // namespace corvanna
