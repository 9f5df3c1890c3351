#pragma once
// Whole-file reads and writes. A write goes to a temporary file in the same
// folder and is renamed over the old one, so a crash leaves one whole version.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace corvanna {

enum class ReadStatus { Ok, Missing, Failed };

// No file the program reads is anywhere near this; a larger one is damaged or not ours.
inline constexpr std::size_t kMaxDataFileBytes = 1024 * 1024;
// The reason a file over the cap is refused, with its size.
std::string tooLargeReason(std::uintmax_t size);
// Reads at most maxBytes; a larger file fails rather than filling memory.
ReadStatus readWholeFile(const std::string& path, std::string& out, std::string* error = nullptr,
                         std::size_t maxBytes = kMaxDataFileBytes);
// The temporary file is ".NAME.tmp-XXXXXX" beside NAME, flushed to disk before it is
// renamed over NAME; the folder is flushed after. A failure leaves NAME as it was and no
// temporary file behind; `error` says why in the system's words.
bool writeFileAtomic(const std::string& path, const std::string& bytes,
                     std::string* error = nullptr);
// Removes what writes cut off by a crash left in the folder; how many went.
int removeStaleTempFiles(const std::string& folder);
// For tests: a write of more than this many bytes fails with "No space left on device"
// after writing that many (only of files of that name, when one is given); nullopt
// writes normally again.
void failWritesAtByte(std::optional<std::size_t> offset, const std::string& onlyFileName = {});
inline constexpr const char* kTempMarker = ".tmp-";
bool fileExists(const std::string& path);

}  // namespace corvanna
