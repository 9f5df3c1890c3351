#include "ChildDrive.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace killwrites {

namespace {
// The seed the driver runs with; the harness's own --seed only moves the kills.
constexpr const char* kDriveSeed = "1";
}  // namespace

// ---- Small file and text helpers

bool readFile(const fs::path& p, std::string& out) {
    std::ifstream in(p, std::ios::binary);
    if (!in)
        return false;
    std::ostringstream s;
    s << in.rdbuf();
    out = s.str();
    return true;
}

void writeFile(const fs::path& p, const std::string& text) {
    std::ofstream out(p, std::ios::binary | std::ios::trunc);
    out << text;
}

std::vector<std::string> splitLines(const std::string& text) {
    std::vector<std::string> out;
    std::istringstream in(text);
    for (std::string l; std::getline(in, l);)
        out.push_back(l);
    return out;
}

bool isTempName(const std::string& name) {
    return name.find(kTempMarker) != std::string::npos;
}

bool startsWith(const std::string& s, const std::string& prefix) {
    return s.compare(0, prefix.size(), prefix) == 0;
}

std::string shown(const std::string& bytes, std::size_t most) {
    std::string out = "\"";
    for (std::size_t i = 0; i < bytes.size() && i < most; ++i) {
        const unsigned char c = static_cast<unsigned char>(bytes[i]);
        if (c == '\r')
            out += "\\r";
        else if (c == '\n')
            out += "\\n";
        else if (c == '"' || c == '\\')
            out += std::string("\\") + static_cast<char>(c);
        else if (c < 0x20 || c >= 0x7f) {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02X", c);
            out += hex;
        } else
            out += static_cast<char>(c);
    }
    out += "\"";
    if (bytes.size() > most)
        out += "...";
    return out;
}

std::string sessionText(const Session& s) {
    std::string text;
    for (const auto& line : s)
        text += line + "\n";
    return text;
}

double seconds(Clock::duration d) {
    return std::chrono::duration<double>(d).count();
}

// ---- The folder as the driver left it

std::map<std::string, std::string> folderFiles(const fs::path& dir, std::vector<std::string>* odd) {
    std::map<std::string, std::string> files;
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(dir, ec)) {
        const std::string name = e.path().filename().string();
        if (e.is_symlink(ec) || !e.is_regular_file(ec)) {
            if (odd)
                odd->push_back(name);
            continue;
        }
        std::string bytes;
        readFile(e.path(), bytes);
        files[name] = bytes;
    }
    return files;
}

bool emptyFolder(const fs::path& dir) {
    std::error_code ec;
    return fs::is_directory(dir, ec) && fs::is_empty(dir, ec);
}

// ---- The driver as a child process

void RunDirs::make() const {
    std::error_code ec;
    fs::remove_all(root, ec);
    for (const auto& d : {root, data, home, tmp, cwd})
        fs::create_directories(d);
}

Drive::Drive(const std::string& path, const RunDirs& dirs) {
    args_ = {path, "--data-dir", dirs.data.string(), "--seed", kDriveSeed};
    for (char** e = environ; *e; ++e) {
        const std::string v = *e;
        if (!startsWith(v, "HOME=") && !startsWith(v, "TMPDIR=") && !startsWith(v, "XDG_"))
            env_.push_back(v);
    }
    env_.push_back("HOME=" + dirs.home.string());
    env_.push_back("TMPDIR=" + dirs.tmp.string());
    for (const char* x : {"CONFIG", "DATA", "CACHE", "STATE"})
        env_.push_back(std::string("XDG_") + x + "_HOME=" + (dirs.home / x).string());
    cwd_ = dirs.cwd.string();
}

pid_t Drive::start(int in, int out) const {
    std::vector<char*> argv, envp;
    for (const auto& a : args_)
        argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    for (const auto& e : env_)
        envp.push_back(const_cast<char*>(e.c_str()));
    envp.push_back(nullptr);
    const pid_t pid = ::fork();
    if (pid == 0) {
        sigset_t none;
        sigemptyset(&none);
        ::sigprocmask(SIG_SETMASK, &none, nullptr);
        ::signal(SIGPIPE, SIG_DFL);
        if (::dup2(in, 0) < 0 || ::dup2(out, 1) < 0 || ::dup2(out, 2) < 0 ||
            ::chdir(cwd_.c_str()) != 0)
            ::_exit(126);
        ::execve(argv[0], argv.data(), envp.data());
        ::_exit(127);
    }
    return pid;
}

// SIGCHLD is blocked, so the wait sleeps in sigtimedwait and wakes as the child ends.
bool waitUntil(pid_t pid, Clock::time_point deadline, int& status) {
    sigset_t chld;
    sigemptyset(&chld);
    sigaddset(&chld, SIGCHLD);
    while (true) {
        const pid_t r = ::waitpid(pid, &status, WNOHANG);
        if (r == pid)
            return true;
        if (r < 0 && errno != EINTR)
            return true;
        const auto now = Clock::now();
        if (now >= deadline)
            return false;
        const auto left = std::chrono::duration_cast<std::chrono::nanoseconds>(deadline - now);
        const auto step = std::min<std::chrono::nanoseconds>(left, std::chrono::milliseconds(50));
        timespec ts{static_cast<time_t>(step.count() / 1000000000),
                    static_cast<long>(step.count() % 1000000000)};
        ::sigtimedwait(&chld, nullptr, &ts);
    }
}

void killAndReap(pid_t pid) {
    int status = 0;
    ::kill(pid, SIGKILL);
    while (::waitpid(pid, &status, 0) < 0 && errno == EINTR) {
    }
}

std::string statusText(int status) {
    if (WIFEXITED(status))
        return "exit code " + std::to_string(WEXITSTATUS(status));
    if (WIFSIGNALED(status))
        return std::string("signal ") + strsignal(WTERMSIG(status));
    return "status " + std::to_string(status);
}

std::vector<std::string> errorLines(const std::string& out) {
    std::vector<std::string> bad;
    for (const auto& l : splitLines(out))
        if (startsWith(l, "error:") || l.find("corvanna-drive:") != std::string::npos)
            bad.push_back(l);
    return bad;
}

}  // namespace killwrites
