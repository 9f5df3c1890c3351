#pragma once
// One running program: the platform it runs on, the program-wide variables,
// the picture store and the forms that are loaded. Passed to every form.

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "common/AppState.h"
#include "common/PictureStore.h"
#include "common/Random.h"
#include "forms/Form.h"
#include "platform/Platform.h"

namespace corvanna {

// The dialogs any game opens from its menus; the shell fills them in.
struct SharedDialogs {
    std::function<void()> about;
    std::function<void()> rules;
    std::function<void()> viewHighScores;
    std::function<void()> clearHighScores;
    // The game form's high score label from its current table (made when missing), and
    // the final score ranked in that table at game over, the label refreshed after it.
    std::function<void(Form&)> showHighScoreLabel;
    std::function<void(Form&)> rankFinalScore;
    // The games' own lines of a high score mail, from the program's values.
    std::function<std::string()> highScoreMailLines;
};

class Program {
public:
    Program(Platform& platform, std::string dataDir, std::uint64_t seed);
    ~Program();

    Platform& platform;
    AppState state;
    PictureStore pictures;
    Random rng;
    SharedDialogs dialogs;

    const std::string& dataDir() const { return dataDir_; }
    // AppPath followed by the plain name.
    std::string filePath(const std::string& plainName) const { return state.AppPath + plainName; }
    // The data folder could be neither made nor written: said once, at start.
    bool dataDirUsable() const { return dataDirUsable_; }
    // Where the program's own files (sounds, tune) come from: the build or install tree.
    void setAssetsDir(const std::string& dir) { assetsDir_ = dir; }
    const std::string& assetsDir() const { return assetsDir_; }
    // AppPath + name, copied there from the program's own files on first need. When it
    // cannot be copied, the program's own file is used where it stands.
    std::string shippedFile(const std::string& plainName);

    std::int32_t randomNumber(double low, double high) {
        return RandomNumber(rng, platform, low, high);
    }
    // A message box with AppTitle as its title.
    MsgResult msg(const std::string& text, MsgButtons buttons = MsgButtons::OK,
                  MsgIcon icon = MsgIcon::None);

    // Writes a file of the data folder when its bytes changed. One that cannot be written
    // is told once, not at every write of it, while play goes on from what is in memory;
    // a good write lets a later failure be told again. `message` makes the text from the
    // system's reason. What the user asked for in so many words is told `always`.
    bool saveFile(const std::string& path, const std::string& bytes,
                  const std::function<std::string(const std::string& why)>& message,
                  MsgIcon icon = MsgIcon::Exclamation, bool always = false);
    void tellFileFault(const std::string& path, const std::string& text,
                       MsgIcon icon = MsgIcon::Exclamation, bool always = false);
    bool fileFaultTold(const std::string& path) const { return faultsTold_.count(path) > 0; }

    // Forms are owned here from load to unload.
    template <class T, class... Args>
    T& load(Args&&... args) {
        auto f = std::make_unique<T>(*this, std::forward<Args>(args)...);
        T& ref = *f;
        forms_.push_back(std::move(f));
        return ref;
    }
    Form* findForm(const std::string& name) const;
    std::vector<Form*> forms() const;
    // Takes the form away; it is destroyed at the next unload or with the program,
    // so the handler that unloaded it can still finish.
    void unload(Form& form);
    // The form's unload question runs; true when the form went away.
    bool requestUnload(Form& form);
    // Shows a dialog modal. One its buttons didn't close (the close box) goes when it returns.
    void showModal(Form& form);

    // A game's own program-wide values, one object of each type: made on first use and
    // kept as long as the program, so they outlive the game's form.
    template <class T>
    T& gameValues() {
        return valuesOf<T>();
    }
    template <class T>
    const T& gameValues() const {
        return valuesOf<T>();
    }
    // Where a value of the settings or the rules text lives: the program-wide variables
    // (AppState) or a game's own values.
    template <class Store>
    Store& storeOf() {
        if constexpr (std::is_same_v<Store, AppState>)
            return state;
        else
            return gameValues<Store>();
    }
    template <class Store>
    const Store& storeOf() const {
        if constexpr (std::is_same_v<Store, AppState>)
            return state;
        else
            return gameValues<Store>();
    }

    // The saved game the program was started with, handed out once.
    void setCommandLine(std::string fileName) { commandLine_ = std::move(fileName); }
    const std::string& commandLine() const { return commandLine_; }
    std::string takeCommandLine() { return std::exchange(commandLine_, std::string()); }

private:
    // A number per type of values, the same in every program; looked up on every use,
    // so a slot, not a search.
    static std::size_t nextValuesSlot() {
        static std::size_t next = 0;
        return next++;
    }
    template <class T>
    static std::size_t valuesSlot() {
        static const std::size_t slot = nextValuesSlot();
        return slot;
    }
    template <class T>
    T& valuesOf() const {
        const std::size_t slot = valuesSlot<T>();
        if (slot >= gameValues_.size())
            gameValues_.resize(slot + 1);
        if (!gameValues_[slot])
            gameValues_[slot] = std::make_shared<T>();
        return *static_cast<T*>(gameValues_[slot].get());
    }

    std::string dataDir_;
    std::string assetsDir_;
    std::string commandLine_;
    bool dataDirUsable_ = true;
    std::set<std::string> shippedFound_;  // program files already in the data folder
    std::set<std::string> faultsTold_;    // files whose write failure was told
    std::vector<std::unique_ptr<Form>> forms_;
    std::vector<std::unique_ptr<Form>> unloaded_;
    // Made on first use, also by a reader: they are the program's from its start.
    mutable std::vector<std::shared_ptr<void>> gameValues_;
};

}  // namespace corvanna
