#pragma once
// What a file dialog's drive, folder and file lists show: the places to start from,
// the open folder with the folders above and in it, and its files that match a
// pattern. Only the chosen folder is listed: no link is followed out of it, an
// unreadable folder lists nothing and a huge one is cut short.

#include <cstddef>
#include <string>
#include <vector>

#include "forms/Controls.h"

namespace corvanna {

inline constexpr std::size_t kMaxListedEntries = 4000;

// "/", the home folder and the volumes mounted under /media, /mnt and /run/media.
std::vector<std::string> listDrives();
// The same from the text of a mount table (as /proc/self/mounts has it).
std::vector<std::string> drivesFromMounts(const std::string& mounts, const std::string& home);

struct FolderEntry {
    std::string path;
    std::string label;  // the folder's name, indented by its depth
};
// The folders from "/" down to the folder, then its subfolders, sorted and without
// hidden ones. `current` is the folder's own place in the list.
std::vector<FolderEntry> listFolders(const std::string& folder, int* current = nullptr);
// The folder's regular files whose names match the pattern, sorted.
std::vector<std::string> listFiles(const std::string& folder, const std::string& pattern);
// A whole-name, case-sensitive match where * is any run of characters and ? any one.
bool matchesPattern(const std::string& name, const std::string& pattern);
// The path without ".", ".." and doubled slashes, absolute, and without a trailing slash
// (except the root).
std::string cleanFolder(const std::string& folder);

// A dialog's three lists kept in step: choosing a drive or a folder opens it and lists
// its files again.
class FolderBrowser {
public:
    FolderBrowser(ListControl& drives, ListControl& folders, ListControl& files);
    void setFolder(const std::string& folder);
    void setPattern(const std::string& pattern);
    const std::string& folder() const { return folder_; }
    const std::string& pattern() const { return pattern_; }
    // The folder with a trailing slash, ready for a file name.
    std::string folderSlash() const;
    void refreshFiles();

private:
    void fillDrives();
    void fillFolders();

    ListControl& drives_;
    ListControl& folders_;
    ListControl& files_;
    std::vector<std::string> drivePaths_;
    std::vector<FolderEntry> folderEntries_;
    std::string folder_ = "/";
    std::string pattern_ = "*";
    // Our own choice of an item fires Click as a user's would: it is no user's.
    bool filling_ = false;
};

}  // namespace corvanna
