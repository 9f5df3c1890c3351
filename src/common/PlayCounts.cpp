#include "common/PlayCounts.h"

#include <map>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/Program.h"
#include "common/SettingsFile.h"

namespace corvanna {

std::int16_t CountGamePlayed(Program& prog, const std::string& title) {
    const std::string path = prog.filePath("Played.ini");
    std::string text;
    std::map<std::string, std::int16_t> counts;
    // A damaged count is no loss worth a message: that game starts again at one.
    if (readWholeFile(path, text, nullptr, 64 * 1024) == ReadStatus::Ok) {
        for (const auto& item : settingsItems(text)) {
            if (item.size() > 2 && item.front() == '[' && item.back() == ']')
                counts[item];
        }
        SettingsReader reader;
        for (auto& [key, value] : counts) {
            auto* slot = &value;
            reader.on(key.substr(1, key.size() - 2), [slot](const std::string& v) {
                std::int64_t n;
                if (parseInteger(v, n) && n >= 0 && n <= 32767)
                    *slot = static_cast<std::int16_t>(n);
            });
        }
        reader.applyText(text);
    }
    auto& mine = counts["[" + title + "]"];
    // A 16-bit count stops at its largest rather than turning negative.
    if (mine < 32767)
        ++mine;
    SettingsWriter writer;
    for (const auto& [key, value] : counts)
        writer.add(key.substr(1, key.size() - 2), static_cast<long long>(value));
    if (prog.dataDirUsable())
        writeFileAtomic(path, writer.text());
    return mine;
}

}  // namespace corvanna
