// The game's settings file: the common keys, read at load and written on leaving.

#include <cmath>
#include <filesystem>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/SettingsFile.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

namespace {
// A window larger than this is a damaged value, not a screen.
constexpr double kLargestWindowTwips = 200000;

}  // namespace

std::string GameFrame::settingsPath() const {
    return prog_.filePath(info_.settingsFile);
}

void GameFrame::ReadSettingsINI(const std::string& fileName) {
    std::string text, error;
    const ReadStatus status = readWholeFile(fileName, text, &error);
    if (status == ReadStatus::Missing)
        return;
    if (status == ReadStatus::Ok && text.find('\0') != std::string::npos) {
        error = "it is not a text file";
        text.clear();
    }
    if (!error.empty()) {
        settingsDamaged_ = true;
        prog_.msg("The settings file '" + fileName + "' could not be read: " + error +
                      ". The game starts with its usual settings, and the file is replaced "
                      "when you leave (the old one is kept as '" +
                      fileName + ".bad').",
                  MsgButtons::OK, MsgIcon::Exclamation);
        return;
    }

    SettingsReader reader;
    // A value that is not what its key holds keeps the default, and marks the file for
    // keeping aside before it is written again.
    auto bad = [this] { settingsDamaged_ = true; };
    auto truth = [](bool& flag, Menu& menu) {
        return [&flag, &menu](const std::string& v) {
            flag = settingsTruth(v);
            menu.setChecked(flag);
        };
    };
    reader.on(info_.timeKey, [this, bad](const std::string& v) {
        std::int64_t n;
        if (parseInteger(v, n) && n > 0 && n <= 32767)
            SetTimeLimit(static_cast<int>(n));
        else
            bad();
    });
    reader.on("Play Sounds", truth(g_.SoundsOn, mnuSounds));
    reader.on("Play Music", truth(g_.MusicOn, mnuMusic));
    reader.on(info_.countDownKey,
              [this](const std::string& v) { g_.CountDownScore = settingsTruth(v); });
    reader.on(info_.bonusKey, [this, bad](const std::string& v) {
        if (!parseInt32(v, g_.BonusRoundScore))
            bad();
    });
    if (hasSetting("Time Bonus"))
        reader.on("Time Bonus", [this, bad](const std::string& v) {
            if (!parseInt32(v, g_.TimeBonus))
                bad();
        });
    if (mnuDeck)
        reader.on("Deck", [this](const std::string& v) {
            if (v.size() == 1 && v[0] >= '1' && v[0] <= '4')
                SelectDeckBack(v[0] - '0');
        });
    reader.on("State", [this, bad](const std::string& v) {
        std::int64_t n;
        if (parseInteger(v, n) && n >= 0 && n <= 2)
            setWindowState(static_cast<WindowState>(n));
        else
            bad();
    });
    auto size = [this, bad](bool isWidth) {
        return [this, bad, isWidth](const std::string& v) {
            double twips;
            if (!parseReal(v, twips) || !(twips > 0) || twips > kLargestWindowTwips)
                return bad();
            if (windowState() == WindowState::Maximized)
                return;
            const int t = static_cast<int>(roundHalfEven(twips));
            isWidth ? setSize(t, height()) : setSize(width(), t);
        };
    };
    reader.on("Width", size(true));
    reader.on("Height", size(false));
    AddGameSettings(reader);
    reader.applyText(text);
}

bool GameFrame::hasSetting(const std::string& key) const {
    for (const auto& k : info_.settingsKeys)
        if (k == key)
            return true;
    return false;
}

bool GameFrame::SettingValue(const std::string& key, std::string& value) {
    const bool maximised = windowState() == WindowState::Maximized;
    auto truth = [](bool b) { return std::string(b ? "True" : "False"); };
    if (key == info_.timeKey)
        value = std::to_string(g_.RoundSeconds);
    else if (key == "Play Sounds")
        value = truth(g_.SoundsOn);
    else if (key == "Play Music")
        value = truth(g_.MusicOn);
    else if (key == info_.countDownKey)
        value = truth(g_.CountDownScore);
    else if (key == info_.bonusKey)
        value = std::to_string(g_.BonusRoundScore);
    else if (key == "Time Bonus")
        value = std::to_string(g_.TimeBonus);
    else if (key == "Deck")
        value = std::to_string(g_.DeckBack);
    else if (key == "State")
        value = std::to_string(static_cast<int>(windowState()));
    else if (key == "Width")
        value = std::to_string(maximised ? info_.maximisedWidth : width());
    else if (key == "Height")
        value = std::to_string(maximised ? info_.maximisedHeight : height());
    else
        return GameSettingValue(key, value);
    return true;
}

std::string GameFrame::SettingsText() {
    SettingsWriter writer;
    for (const auto& key : info_.settingsKeys) {
        std::string value;
        if (SettingValue(key, value))
            writer.add(key, value);
    }
    return writer.text();
}

void GameFrame::WriteSettings() {
    const std::string path = settingsPath();
    auto message = [&](const std::string& why) {
        return "Unable to save the settings file '" + path + "': " + why +
               ". The game goes on with the settings you chose.";
    };
    auto cannotSave = [&](const std::string& why) { prog_.tellFileFault(path, message(why)); };
    std::error_code ec;
    const bool present = std::filesystem::exists(path, ec);
    if (present && !std::filesystem::is_regular_file(path, ec))
        return cannotSave("something other than a file stands in its place");
    if (present && settingsDamaged_) {
        std::filesystem::copy_file(path, path + ".bad",
                                   std::filesystem::copy_options::overwrite_existing, ec);
        // The damaged file stays rather than be lost.
        if (ec)
            return cannotSave("the damaged file could not be kept aside (" + ec.message() + ")");
    }
    if (!prog_.saveFile(path, SettingsText(), message))
        return;
    settingsDamaged_ = false;
}

}  // namespace corvanna
