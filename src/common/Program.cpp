#include "common/Program.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unistd.h>

#include "common/FileStore.h"

namespace corvanna {

Program::Program(Platform& p, std::string dataDir, std::uint64_t seed)
    : platform(p), rng(seed), dataDir_(std::move(dataDir)) {
    std::error_code ec;
    std::filesystem::create_directories(dataDir_, ec);
    dataDirUsable_ =
        std::filesystem::is_directory(dataDir_, ec) && ::access(dataDir_.c_str(), W_OK | X_OK) == 0;
    // What a crash cut off is never data: gone before anything is read.
    if (dataDirUsable_)
        removeStaleTempFiles(dataDir_);
    platform.onCloseRequest = [this](Form& f) { requestUnload(f); };
    state.AppPath = dataDir_;
    if (state.AppPath.empty() || state.AppPath.back() != '/')
        state.AppPath += '/';
}

Program::~Program() {
    platform.onCloseRequest = nullptr;
    // Forms go first, while the platform they tell about their timers still stands.
    for (auto& f : forms_)
        platform.formUnloaded(*f);
    forms_.clear();
    unloaded_.clear();
}

MsgResult Program::msg(const std::string& text, MsgButtons buttons, MsgIcon icon) {
    return platform.msgBox(text, buttons, icon, state.AppTitle);
}

bool Program::saveFile(const std::string& path, const std::string& bytes,
                       const std::function<std::string(const std::string& why)>& message,
                       MsgIcon icon, bool always) {
    // A file that already holds these bytes is left alone: a read-only folder then has
    // nothing to say about it.
    std::string why, old;
    if ((readWholeFile(path, old) == ReadStatus::Ok && old == bytes) ||
        writeFileAtomic(path, bytes, &why)) {
        faultsTold_.erase(path);
        return true;
    }
    tellFileFault(path, message(why), icon, always);
    return false;
}

void Program::tellFileFault(const std::string& path, const std::string& text, MsgIcon icon,
                            bool always) {
    if (faultsTold_.insert(path).second || always)
        msg(text, MsgButtons::OK, icon);
}

Form* Program::findForm(const std::string& name) const {
    for (auto& f : forms_)
        if (f->name() == name)
            return f.get();
    return nullptr;
}

std::vector<Form*> Program::forms() const {
    std::vector<Form*> out;
    for (auto& f : forms_)
        out.push_back(f.get());
    return out;
}

void Program::unload(Form& form) {
    auto it = std::find_if(forms_.begin(), forms_.end(), [&](auto& f) { return f.get() == &form; });
    if (it == forms_.end())
        return;
    platform.formUnloaded(form);
    unloaded_.clear();
    unloaded_.push_back(std::move(*it));
    forms_.erase(it);
}

}  // namespace corvanna

namespace corvanna {

void Program::showModal(Form& form) {
    platform.showForm(form, true);
    if (findForm(form.name()) == &form)
        unload(form);
}

bool Program::requestUnload(Form& form) {
    bool cancel = false;
    if (form.QueryUnload)
        form.QueryUnload(cancel);
    if (cancel || !findForm(form.name()))
        return false;
    platform.hideForm(form);
    unload(form);
    return true;
}

}  // namespace corvanna

namespace corvanna {

std::string Program::shippedFile(const std::string& plainName) {
    const std::string inData = filePath(plainName);
    if (assetsDir_.empty())
        return inData;
    // A sound plays hundreds of times a game: the file is looked for once.
    if (shippedFound_.count(plainName))
        return inData;
    std::error_code ec;
    if (std::filesystem::exists(inData, ec)) {
        shippedFound_.insert(plainName);
        return inData;
    }
    const std::string shipped = assetsDir_ + "/" + plainName;
    if (!std::filesystem::exists(shipped, ec))
        return inData;
    if (dataDirUsable_) {
        // Copied whole under a temporary name first, so a half copy is never taken for the file.
        const std::string partial = inData + ".copying";
        std::filesystem::copy_file(shipped, partial,
                                   std::filesystem::copy_options::overwrite_existing, ec);
        if (!ec)
            std::filesystem::rename(partial, inData, ec);
        if (!ec) {
            shippedFound_.insert(plainName);
            return inData;
        }
        std::filesystem::remove(partial, ec);
    }
    return shipped;
}

}  // namespace corvanna
