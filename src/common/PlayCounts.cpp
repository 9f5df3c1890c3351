#include "common/PlayCounts.h"

#include <filesystem>
#include <map>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/Program.h"
#include "common/SettingsFile.h"

namespace corvanna {

std::int16_t CountGamePlayed(Program& prog, const std::string& title) {
    const std::string path = prog.filePath("Played.ini");
    std::string text, damage;
    std::map<std::string, std::int16_t> counts;
    const ReadStatus status = readWholeFile(path, text, &damage);
    if (status == ReadStatus::Ok) {
        if (text.find('\0') != std::string::npos)
            damage = "it is not a text file";
        for (const auto& item : settingsItems(text)) {
            if (item.size() > 2 && item.front() == '[' && item.back() == ']')
                counts[item];
        }
        SettingsReader reader;
        for (auto& [key, value] : counts) {
            auto* slot = &value;
            reader.on(key.substr(1, key.size() - 2), [slot, key, &damage](const std::string& v) {
                std::int64_t n;
                if (parseInteger(v, n) && n >= 0 && n <= 32767)
                    *slot = static_cast<std::int16_t>(n);
                else if (damage.empty())
                    damage = "the count of " + key + " is not a number of games";
            });
        }
        reader.applyText(text);
    }
    // The counts that could be read go on; the damaged file is kept aside, said once.
    if (!damage.empty() && !prog.fileFaultTold(path)) {
        std::error_code ec;
        std::string aside = " The old file could not be kept.";
        if (std::filesystem::is_regular_file(path, ec) &&
            std::filesystem::copy_file(path, path + ".bad",
                                       std::filesystem::copy_options::overwrite_existing, ec))
            aside = " The old file is kept as '" + path + ".bad'.";
        prog.tellFileFault(path, "The count of games played in '" + path + "' is damaged: " +
                                     damage + ". The counts that could be read go on." + aside);
    }
    auto& mine = counts["[" + title + "]"];
    // A 16-bit count stops at its largest rather than turning negative.
    if (mine < 32767)
        ++mine;
    SettingsWriter writer;
    for (const auto& [key, value] : counts)
        writer.add(key.substr(1, key.size() - 2), static_cast<long long>(value));
    prog.saveFile(path, writer.text(), [&](const std::string& why) {
        return "Unable to save the count of games played to the file '" + path + "': " + why + ".";
    });
    return mine;
}

}  // namespace corvanna
