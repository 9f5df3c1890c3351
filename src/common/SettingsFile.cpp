#include "common/SettingsFile.h"

namespace corvanna {

std::vector<std::string> settingsItems(const std::string& text) {
    std::vector<std::string> items;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t eol = text.find('\n', pos);
        std::string line =
            text.substr(pos, eol == std::string::npos ? std::string::npos : eol - pos);
        pos = eol == std::string::npos ? text.size() : eol + 1;
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        // A line may hold several items; a quoted item may hold a comma.
        std::size_t i = 0;
        do {
            while (i < line.size() && (line[i] == ' ' || line[i] == '\t'))
                ++i;
            std::string item;
            if (i < line.size() && line[i] == '"') {
                const std::size_t close = line.find('"', i + 1);
                const std::size_t stop = close == std::string::npos ? line.size() : close;
                item = line.substr(i + 1, stop - i - 1);
                i = stop;
                const std::size_t comma = line.find(',', i);
                i = comma == std::string::npos ? line.size() + 1 : comma + 1;
            } else {
                const std::size_t comma = line.find(',', i);
                item = line.substr(i, comma == std::string::npos ? std::string::npos : comma - i);
                i = comma == std::string::npos ? line.size() + 1 : comma + 1;
            }
            items.push_back(std::move(item));
        } while (i <= line.size());
    }
    return items;
}

void SettingsReader::applyText(const std::string& text) const {
    const auto items = settingsItems(text);
    for (std::size_t i = 0; i < items.size(); ++i) {
        auto it = handlers_.find(items[i]);
        if (it == handlers_.end())
            continue;
        // A key on the last line has no value: nothing to apply.
        if (i + 1 >= items.size())
            break;
        it->second(items[++i]);
    }
}

SettingsWriter& SettingsWriter::add(const std::string& key, const std::string& value) {
    entries_.emplace_back(key, value);
    return *this;
}

SettingsWriter& SettingsWriter::add(const std::string& key, bool value) {
    return add(key, std::string(value ? "True" : "False"));
}

SettingsWriter& SettingsWriter::add(const std::string& key, long long value) {
    return add(key, std::to_string(value));
}

std::string SettingsWriter::text() const {
    std::string out;
    for (const auto& [key, value] : entries_)
        out += "[" + key + "]\r\n" + value + "\r\n\r\n";
    return out;
}

bool settingsTruth(const std::string& value) {
    return value == "True";
}

}  // namespace corvanna
