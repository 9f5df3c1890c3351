// What the kill harness needs around the driver: it as a child process in folders of its
// own, the folder it leaves, and the small file and text helpers the checks use.

#pragma once

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <sys/types.h>
#include <vector>

namespace killwrites {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// One start of the driver: what it reads on stdin, a command a line.
using Session = std::vector<std::string>;

// The atomic writer's temporary files hold this in their names.
constexpr const char* kTempMarker = ".tmp-";

bool readFile(const fs::path& p, std::string& out);
void writeFile(const fs::path& p, const std::string& text);
std::vector<std::string> splitLines(const std::string& text);
bool isTempName(const std::string& name);
bool startsWith(const std::string& s, const std::string& prefix);
// A file's bytes as a failure line can show them: short, escaped.
std::string shown(const std::string& bytes, std::size_t most = 160);
std::string sessionText(const Session& s);
double seconds(Clock::duration d);

// The regular files of a folder by name; what is no regular file is said in `odd`.
std::map<std::string, std::string> folderFiles(const fs::path& dir,
                                               std::vector<std::string>* odd = nullptr);
bool emptyFolder(const fs::path& dir);

// The places a run may touch: the data folder, and a home, temporary folder and working
// folder of its own that must stay empty.
struct RunDirs {
    fs::path root, data, home, tmp, cwd;
    explicit RunDirs(const fs::path& r)
        : root(r), data(r / "data"), home(r / "home"), tmp(r / "tmp"), cwd(r / "cwd") {}
    void make() const;
};

class Drive {
public:
    Drive(const std::string& path, const RunDirs& dirs);
    // Starts the driver reading `in` and writing stdout and stderr to `out`.
    pid_t start(int in, int out) const;

private:
    std::vector<std::string> args_, env_;
    std::string cwd_;
};

// Waits for the child until `deadline`; true with its status when it ended by then.
bool waitUntil(pid_t pid, Clock::time_point deadline, int& status);
void killAndReap(pid_t pid);
std::string statusText(int status);
// What a finished start of the driver printed that no clean run prints.
std::vector<std::string> errorLines(const std::string& out);

}  // namespace killwrites
