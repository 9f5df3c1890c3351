#pragma once
// The settings form every game file and User.ini share: a "[Key]" line, a
// value line and an empty line, CR LF. Keys are case-sensitive; a key read
// twice takes effect twice; anything else is passed over.

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace corvanna {

// An item is a line up to a comma, without leading blanks and enclosing quotes.
std::vector<std::string> settingsItems(const std::string& text);

class SettingsReader {
public:
    using Apply = std::function<void(const std::string& value)>;
    // key without brackets, e.g. "Play Sounds"
    void on(const std::string& key, Apply apply) { handlers_["[" + key + "]"] = std::move(apply); }
    void applyText(const std::string& text) const;

private:
    std::map<std::string, Apply> handlers_;
};

class SettingsWriter {
public:
    SettingsWriter& add(const std::string& key, const std::string& value);
    // A literal would otherwise turn into a truth value.
    SettingsWriter& add(const std::string& key, const char* value) {
        return add(key, std::string(value));
    }
    SettingsWriter& add(const std::string& key, bool value);
    SettingsWriter& add(const std::string& key, long long value);
    // Every entry as key, CR LF, value, CR LF, CR LF; the file ends in two line ends.
    std::string text() const;

private:
    std::vector<std::pair<std::string, std::string>> entries_;
};

// "True" reads as true; anything else as false.
bool settingsTruth(const std::string& value);

}  // namespace corvanna
