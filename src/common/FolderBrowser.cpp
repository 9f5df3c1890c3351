#include "common/FolderBrowser.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <pwd.h>
#include <set>
#include <sstream>
#include <system_error>
#include <unistd.h>

namespace corvanna {

namespace fs = std::filesystem;

namespace {

// Entries looked at in one folder: a folder of a million files is not read to its end.
constexpr std::size_t kMaxScanned = 10 * kMaxListedEntries;
constexpr std::size_t kMaxMountsBytes = 1024 * 1024;

bool hidden(const std::string& name) {
    return name.empty() || name[0] == '.';
}

// Names as a person sorts them: case aside first, then exactly, so the order is total.
bool nameLess(const std::string& a, const std::string& b) {
    auto folded = [](std::string s) {
        for (char& c : s)
            if (c >= 'A' && c <= 'Z')
                c = static_cast<char>(c - 'A' + 'a');
        return s;
    };
    const std::string fa = folded(a), fb = folded(b);
    return fa != fb ? fa < fb : a < b;
}

// The folder's own entries, no deeper, until `keep` says it has enough.
template <class Keep>
void scanFolder(const std::string& folder, Keep keep) {
    std::error_code ec;
    fs::directory_iterator it(folder, fs::directory_options::skip_permission_denied, ec);
    std::size_t scanned = 0;
    for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
        if (++scanned > kMaxScanned)
            break;
        std::error_code statusError;
        // The link itself, not what it points to: nothing leads out of the folder.
        const fs::file_status status = it->symlink_status(statusError);
        if (statusError)
            continue;
        if (!keep(it->path().filename().string(), status))
            break;
    }
}

// A mount table field with its blanks written as octal escapes ("\040").
std::string unescapeMountField(const std::string& field) {
    std::string out;
    for (std::size_t i = 0; i < field.size(); ++i) {
        const auto octal = [&](std::size_t k) { return field[k] >= '0' && field[k] <= '7'; };
        if (field[i] == '\\' && i + 3 < field.size() && octal(i + 1) && octal(i + 2) &&
            octal(i + 3)) {
            out += static_cast<char>((field[i + 1] - '0') * 64 + (field[i + 2] - '0') * 8 +
                                     (field[i + 3] - '0'));
            i += 3;
        } else {
            out += field[i];
        }
    }
    return out;
}

bool pseudoFileSystem(const std::string& type) {
    static const std::set<std::string> kPseudo = {
        "autofs",          "binfmt_misc", "bpf",      "cgroup",   "cgroup2", "configfs",
        "debugfs",         "devpts",      "devtmpfs", "efivarfs", "fusectl", "hugetlbfs",
        "mqueue",          "nsfs",        "overlay",  "proc",     "pstore",  "ramfs",
        "rpc_pipefs",      "securityfs",  "sysfs",    "tmpfs",    "tracefs", "fuse.portal",
        "fuse.gvfsd-fuse", "squashfs"};
    return kPseudo.count(type) != 0;
}

bool underVolumeFolder(const std::string& path) {
    for (const char* root : {"/media/", "/mnt/", "/run/media/"}) {
        const std::string prefix(root);
        if (path.size() > prefix.size() && path.compare(0, prefix.size(), prefix) == 0)
            return true;
    }
    return false;
}

std::string homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home == '/')
        return home;
    if (const passwd* pw = getpwuid(getuid()); pw && pw->pw_dir)
        return pw->pw_dir;
    return "";
}

}  // namespace

std::string cleanFolder(const std::string& folder) {
    std::error_code ec;
    fs::path p = folder.empty() ? fs::path("/") : fs::path(folder);
    if (!p.is_absolute()) {
        p = fs::absolute(p, ec);
        if (ec)
            return "/";
    }
    std::string out = p.lexically_normal().string();
    while (out.size() > 1 && out.back() == '/')
        out.pop_back();
    return out.empty() ? "/" : out;
}

std::vector<std::string> drivesFromMounts(const std::string& mounts, const std::string& home) {
    std::vector<std::string> drives{"/"};
    if (!home.empty() && cleanFolder(home) != "/")
        drives.push_back(cleanFolder(home));
    std::vector<std::string> volumes;
    std::istringstream in(mounts);
    std::string line;
    while (volumes.size() < kMaxListedEntries && std::getline(in, line)) {
        std::istringstream fields(line);
        std::string device, mountPoint, type;
        if (!(fields >> device >> mountPoint >> type))
            continue;
        mountPoint = unescapeMountField(mountPoint);
        if (mountPoint.find('\0') != std::string::npos || pseudoFileSystem(type) ||
            !underVolumeFolder(mountPoint))
            continue;
        const std::string clean = cleanFolder(mountPoint);
        // ".." in a mount point must not lift it out of the volume folders.
        if (underVolumeFolder(clean + "/"))
            volumes.push_back(clean);
    }
    std::sort(volumes.begin(), volumes.end(), nameLess);
    volumes.erase(std::unique(volumes.begin(), volumes.end()), volumes.end());
    for (const auto& v : volumes)
        if (std::find(drives.begin(), drives.end(), v) == drives.end())
            drives.push_back(v);
    return drives;
}

std::vector<std::string> listDrives() {
    std::ifstream in("/proc/self/mounts", std::ios::binary);
    std::string mounts;
    if (in) {
        // The kernel reports the file as empty: read it to its end, within a bound.
        mounts.resize(kMaxMountsBytes);
        in.read(mounts.data(), static_cast<std::streamsize>(mounts.size()));
        mounts.resize(static_cast<std::size_t>(std::max<std::streamsize>(0, in.gcount())));
    }
    return drivesFromMounts(mounts, homeFolder());
}

std::vector<FolderEntry> listFolders(const std::string& folder, int* current) {
    const fs::path open(cleanFolder(folder));
    std::vector<FolderEntry> entries;
    fs::path walked;
    for (const fs::path& part : open) {
        if (part.empty())
            continue;
        walked /= part;
        const std::size_t depth = entries.size();
        entries.push_back({walked.string(), std::string(2 * depth, ' ') + part.string()});
    }
    if (current)
        *current = static_cast<int>(entries.size()) - 1;

    const std::string indent(2 * entries.size(), ' ');
    std::vector<std::string> names;
    scanFolder(open.string(), [&](const std::string& name, const fs::file_status& status) {
        if (!hidden(name) && fs::is_directory(status))
            names.push_back(name);
        return names.size() < kMaxListedEntries;
    });
    std::sort(names.begin(), names.end(), nameLess);
    for (const auto& name : names)
        entries.push_back({(open / name).string(), indent + name});
    return entries;
}

std::vector<std::string> listFiles(const std::string& folder, const std::string& pattern) {
    std::vector<std::string> names;
    scanFolder(cleanFolder(folder), [&](const std::string& name, const fs::file_status& status) {
        if (!hidden(name) && fs::is_regular_file(status) && matchesPattern(name, pattern))
            names.push_back(name);
        return names.size() < kMaxListedEntries;
    });
    std::sort(names.begin(), names.end(), nameLess);
    return names;
}

bool matchesPattern(const std::string& name, const std::string& pattern) {
    // One pass with a single step back to the last star: no blow-up on "*a*a*a*b".
    std::size_t n = 0, p = 0;
    std::size_t star = std::string::npos, resume = 0;
    while (n < name.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || pattern[p] == name[n])) {
            ++n;
            ++p;
        } else if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = n;
        } else if (star != std::string::npos) {
            p = star + 1;
            n = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

// ---- FolderBrowser

FolderBrowser::FolderBrowser(ListControl& drives, ListControl& folders, ListControl& files)
    : drives_(drives), folders_(folders), files_(files) {
    drives_.Click = [this] {
        const int i = drives_.listIndex();
        if (!filling_ && i >= 0 && i < static_cast<int>(drivePaths_.size()))
            setFolder(drivePaths_[static_cast<std::size_t>(i)]);
    };
    folders_.Click = [this] {
        const int i = folders_.listIndex();
        if (!filling_ && i >= 0 && i < static_cast<int>(folderEntries_.size()))
            setFolder(folderEntries_[static_cast<std::size_t>(i)].path);
    };
    fillDrives();
}

void FolderBrowser::fillDrives() {
    drivePaths_ = listDrives();
    drives_.clear();
    for (const auto& d : drivePaths_)
        drives_.addItem(d);
}

void FolderBrowser::fillFolders() {
    int current = -1;
    folderEntries_ = listFolders(folder_, &current);
    folders_.clear();
    for (const auto& e : folderEntries_)
        folders_.addItem(e.label);
    filling_ = true;
    folders_.setListIndex(current);
    // The drive the folder is on: the longest drive path that holds it.
    int drive = -1;
    std::size_t longest = 0;
    for (std::size_t i = 0; i < drivePaths_.size(); ++i) {
        const std::string& d = drivePaths_[i];
        const bool holds = d == "/" || folder_ == d || folder_.rfind(d + "/", 0) == 0;
        if (holds && d.size() >= longest) {
            longest = d.size();
            drive = static_cast<int>(i);
        }
    }
    drives_.setListIndex(drive);
    filling_ = false;
}

void FolderBrowser::setFolder(const std::string& folder) {
    folder_ = cleanFolder(folder);
    fillFolders();
    refreshFiles();
}

void FolderBrowser::setPattern(const std::string& pattern) {
    pattern_ = pattern.empty() ? "*" : pattern;
    refreshFiles();
}

std::string FolderBrowser::folderSlash() const {
    return folder_.back() == '/' ? folder_ : folder_ + "/";
}

void FolderBrowser::refreshFiles() {
    files_.clear();
    for (const auto& name : listFiles(folder_, pattern_))
        files_.addItem(name);
}

}  // namespace corvanna
