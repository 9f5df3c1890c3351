// The game's settings file, read at load and written on leaving, by the row's table of
// bindings; and the bindings of the keys every game has.

#include <cmath>
#include <filesystem>

#include "common/FileStore.h"
#include "common/Format.h"
#include "common/frame/GameFrame.h"

namespace corvanna {

namespace {
// A window larger than this is a damaged value, not a screen.
constexpr double kLargestWindowTwips = 200000;

SettingBinding windowSize(std::string key, bool isWidth) {
    SettingBinding b = formSetting(std::move(key), SettingType::Real);
    // Below a twip there is no window; the form's smallest size holds it anyway.
    b.limits(1, kLargestWindowTwips);
    b.then([isWidth](GameFrame& f, double twips) {
        // Ahead of [State] a maximised window doesn't exist yet; after it, the size waits.
        if (f.windowState() == WindowState::Maximized)
            return;
        const int t = static_cast<int>(roundHalfEven(twips));
        isWidth ? f.setSize(t, f.height()) : f.setSize(f.width(), t);
    });
    b.writes = [isWidth](GameFrame& f) {
        const bool maximised = f.windowState() == WindowState::Maximized;
        const GameInfo& row = f.info();
        if (isWidth)
            return std::to_string(maximised ? row.maximisedWidth : f.width());
        return std::to_string(maximised ? row.maximisedHeight : f.height());
    };
    return b;
}

}  // namespace

SettingBinding timeSetting(std::string key, std::int16_t seconds) {
    SettingBinding b = formSetting(std::move(key), SettingType::Int16);
    b.limits(1, INT16_MAX).then([](GameFrame& f, double v) {
        f.SetTimeLimit(static_cast<int>(v));
    });
    b.hasDefault = true;
    b.byDefault = seconds;
    b.writes = [](GameFrame& f) { return std::to_string(f.program().state.RoundSeconds); };
    return b;
}

SettingBinding soundsSetting() {
    return setting("Play Sounds", &AppState::SoundsOn, true).then([](GameFrame& f, double) {
        f.mnuSounds.setChecked(f.program().state.SoundsOn);
    });
}

SettingBinding musicSetting() {
    return setting("Play Music", &AppState::MusicOn, false).then([](GameFrame& f, double) {
        f.mnuMusic.setChecked(f.program().state.MusicOn);
    });
}

SettingBinding countDownSetting(std::string key) {
    return setting(std::move(key), &AppState::CountDownScore, true);
}

SettingBinding bonusScoreSetting(std::string key, std::int32_t score) {
    return setting(std::move(key), &AppState::BonusRoundScore, score).custom();
}

SettingBinding timeBonusSetting(std::int32_t points) {
    return setting("Time Bonus", &AppState::TimeBonus, points).custom();
}

SettingBinding deckSetting(std::int16_t deckBack) {
    return setting("Deck", &AppState::DeckBack, deckBack)
        .limits(1, 4)
        .passOverAnything()
        .then([](GameFrame& f, double v) { f.SelectDeckBack(static_cast<int>(v)); });
}

SettingBinding stateSetting() {
    SettingBinding b = formSetting("State", SettingType::Int16);
    b.limits(0, 2).then(
        [](GameFrame& f, double v) { f.setWindowState(static_cast<WindowState>(v)); });
    b.writes = [](GameFrame& f) { return std::to_string(static_cast<int>(f.windowState())); };
    return b;
}

SettingBinding widthSetting() {
    return windowSize("Width", true);
}

SettingBinding heightSetting() {
    return windowSize("Height", false);
}

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

    // A value that is not what its key holds keeps the default, and marks the file for
    // keeping aside before it is written again.
    if (readSettings(info_.settings, text, prog_, this))
        settingsDamaged_ = true;
}

void GameFrame::SetDefaults() {
    setSettingDefaults(info_.settings, prog_, this);
}

void GameFrame::CheckForCustom() {
    g_.CustomScoring = customScoring(info_.settings, prog_);
}

std::string GameFrame::SettingsText() {
    return settingsText(info_.settings, prog_, this);
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
