#pragma once
// Whole-file reads and writes. A write goes to a temporary file in the same
// folder and is renamed over the old one, so a crash leaves one whole version.

#include <cstddef>
#include <optional>
#include <string>

namespace corvanna {

enum class ReadStatus { Ok, Missing, Failed };

// Reads at most maxBytes; a larger file fails rather than filling memory.
ReadStatus readWholeFile(const std::string& path, std::string& out, std::string* error = nullptr,
                         std::size_t maxBytes = 4 * 1024 * 1024);
// The temporary file is ".NAME.tmp-XXXXXX" beside NAME, flushed to disk before it is
// renamed over NAME; the folder is flushed after. A failure leaves NAME as it was and no
// temporary file behind; `error` says why in the system's words.
bool writeFileAtomic(const std::string& path, const std::string& bytes,
                     std::string* error = nullptr);
// Removes what writes cut off by a crash left in the folder; how many went.
int removeStaleTempFiles(const std::string& folder);
// For tests: a write of more than this many bytes fails with "No space left on device"
// after writing that many; nullopt writes normally again.
void failWritesAtByte(std::optional<std::size_t> offset);
inline constexpr const char* kTempMarker = ".tmp-";
bool fileExists(const std::string& path);

}  // namespace corvanna
