// kill_writes: corvanna-drive killed with SIGKILL at random moments while it writes each
// kind of data file, then the folder checked: every file is one whole version the program
// wrote (or the one before), the next start reads it without a message, and nothing the
// cut write left behind survives that start.
//
//   kill_writes --drive PATH [--kills N]
//   [--kind settings|fivestack|user|played|table|saved|phrases]... [--seed S]
//
// CTest runs it as CrashSafeWrites.KilledDuringEachKindOfWrite, 50 kills a kind. For the
// long run, 1,000 kills of each kind (five to fifteen minutes, as busy as the disk is):
//   cmake --build build --target corvanna-drive kill_writes
//   build/tests/crash/kill_writes --drive build/corvanna-drive --kills 1000
// Another --seed gives other kill moments; --kind (repeatable) runs one kind. A failure
// keeps the work folder and names it.

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <poll.h>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "WriteKinds.h"

extern char** environ;

using namespace killwrites;

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

// The atomic writer's temporary files hold this in their names.
constexpr const char* kTempMarker = ".tmp-";

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

double seconds(Clock::duration d) {
    return std::chrono::duration<double>(d).count();
}

// ---- The folder as the driver left it

// The regular files of a folder by name; what is no regular file is said in `odd`.
std::map<std::string, std::string> folderFiles(const fs::path& dir,
                                               std::vector<std::string>* odd = nullptr) {
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

// ---- The driver as a child process

// The places a run may touch: the data folder, and a home, temporary folder and working
// folder of its own that must stay empty.
struct RunDirs {
    fs::path root, data, home, tmp, cwd;
    explicit RunDirs(const fs::path& r)
        : root(r), data(r / "data"), home(r / "home"), tmp(r / "tmp"), cwd(r / "cwd") {}
    void make() const {
        std::error_code ec;
        fs::remove_all(root, ec);
        for (const auto& d : {root, data, home, tmp, cwd})
            fs::create_directories(d);
    }
};

// The driver as a child process in folders of its own, with the seed 1: the harness's own
// --seed only moves the kills.
class Drive {
public:
    Drive(const std::string& path, const RunDirs& dirs) {
        args_ = {path, "--data-dir", dirs.data.string(), "--seed", "1"};
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
    // Starts the driver reading `in` and writing stdout and stderr to `out`.
    pid_t start(int in, int out) const {
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

private:
    std::vector<std::string> args_, env_;
    std::string cwd_;
};

// Waits for the child until `deadline`; true with its status when it ended by then.
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

// What a finished start of the driver printed that no clean run prints.
std::vector<std::string> errorLines(const std::string& out) {
    std::vector<std::string> bad;
    for (const auto& l : splitLines(out))
        if (startsWith(l, "error:") || l.find("corvanna-drive:") != std::string::npos)
            bad.push_back(l);
    return bad;
}

// One start of the driver on a session: whether it ended by the deadline (or was killed
// there), how, and what it printed.
struct Outcome {
    bool ended = false;
    int status = 0;
    std::string out;
};

Outcome runSession(const Drive& drive, const RunDirs& dirs, const Session& session,
                   Clock::time_point deadline) {
    const fs::path in = dirs.root / "session.cmd", out = dirs.root / "session.out";
    std::string text;
    for (const auto& line : session)
        text += line + "\n";
    writeFile(in, text);
    const int inFd = ::open(in.c_str(), O_RDONLY | O_CLOEXEC);
    const int outFd = ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    const pid_t pid = drive.start(inFd, outFd);
    ::close(inFd);
    ::close(outFd);
    Outcome o;
    o.ended = waitUntil(pid, deadline, o.status);
    if (!o.ended)
        killAndReap(pid);
    readFile(out, o.out);
    std::error_code ec;
    fs::remove(in, ec);
    fs::remove(out, ec);
    return o;
}

// What was wrong with a start that ended: how it ended or what it said; empty when nothing.
std::string problemOf(const Outcome& o) {
    if (WIFSIGNALED(o.status))
        return std::string("the driver ended with signal ") + strsignal(WTERMSIG(o.status));
    if (WEXITSTATUS(o.status) != 0)
        return "the driver ended with exit code " + std::to_string(WEXITSTATUS(o.status));
    const auto bad = errorLines(o.out);
    return bad.empty() ? "" : "the driver said: " + bad.front();
}

// No step of a script takes anywhere near this; a driver that does is hung.
constexpr auto kHangLimit = std::chrono::seconds(60);

struct Options {
    std::string drive;
    int kills = 50;
    std::vector<std::string> kinds;
    std::uint64_t seed = 1;
};

// ---- The reference run: every version of every file, command by command

struct Versions {
    std::map<std::string, std::optional<std::string>> before;  // nullopt: not there
    std::map<std::string, std::vector<std::string>> written;   // in the order they came
    std::map<std::string, std::string> end;                    // the folder at the end
    std::set<std::string> names;                               // every name seen

    bool known(const std::string& name, const std::string& bytes) const {
        auto b = before.find(name);
        if (b != before.end() && b->second && *b->second == bytes)
            return true;
        auto w = written.find(name);
        return w != written.end() &&
               std::find(w->second.begin(), w->second.end(), bytes) != w->second.end();
    }
    bool mayBeMissing(const std::string& name) const {
        auto b = before.find(name);
        return b == before.end() || !b->second;
    }
    int versionsOf(const std::string& name) const {
        auto w = written.find(name);
        return w == written.end() ? 0 : static_cast<int>(w->second.size());
    }
};

class Harness {
public:
    Harness(Options options, fs::path work) : o_(std::move(options)), work_(std::move(work)) {}

    bool runKind(const Kind& kind) {
        const fs::path initial = work_ / ("initial-" + kind.name);
        if (!prepare(kind, initial))
            return false;
        Versions v;
        if (!reference(kind, initial, v))
            return false;

        const RunDirs dirs(work_ / ("run-" + kind.name));

        // One run of the script, killed at `delay` after its start if it is still going.
        struct RunResult {
            bool killed = false;
            std::string problem;
        };
        auto run = [&](std::optional<Clock::duration> delay) {
            RunResult r;
            const auto deadline = Clock::now() + (delay ? *delay : Clock::duration(kHangLimit));
            for (std::size_t i = 0; i < kind.script.size() && !r.killed && r.problem.empty(); ++i) {
                const Outcome o = runSession(Drive(o_.drive, dirs), dirs, kind.script[i], deadline);
                const std::string start = "start " + std::to_string(i + 1);
                r.killed = !o.ended;
                if (r.killed && !delay)
                    r.problem = start + " did not finish";
                else if (!r.killed && !problemOf(o).empty())
                    r.problem = start + ": " + problemOf(o);
            }
            return r;
        };
        auto freshFolder = [&] {
            dirs.make();
            std::error_code ec;
            fs::copy(initial, dirs.data,
                     fs::copy_options::recursive | fs::copy_options::overwrite_existing, ec);
        };

        // The script's length at full speed, the span the kill moments are spread over. The
        // uncut run must end where the reference ended, or the versions would not be all.
        freshFolder();
        const auto t0 = Clock::now();
        if (const RunResult r = run(std::nullopt); !r.problem.empty())
            return fail(kind, "uncut run: " + r.problem);
        const double span = seconds(Clock::now() - t0);
        if (folderFiles(dirs.data) != v.end)
            return fail(kind,
                        "an uncut run did not end with the reference run's files: the "
                        "script is not repeatable");

        std::mt19937_64 rng(o_.seed ^ std::hash<std::string>{}(kind.name));
        int kindFailures = 0;
        for (int k = 1; k <= o_.kills; ++k) {
            // Uniform over the script's span, from the generator's bits alone so that a seed
            // gives the same moments with any standard library.
            const double fraction = static_cast<double>(rng() >> 11) * 0x1.0p-53;
            const auto delay = std::chrono::duration_cast<Clock::duration>(
                std::chrono::duration<double>(fraction * span));
            const std::string label =
                "kill " + std::to_string(k) + " at " +
                std::to_string(
                    std::chrono::duration_cast<std::chrono::microseconds>(delay).count()) +
                " us";
            freshFolder();
            const RunResult r = run(delay);
            const int failuresBefore = failures_;
            if (!r.problem.empty())
                fail(kind, label + ": " + r.problem);

            // What the kill left, before the next start tidies it.
            std::vector<std::string> odd;
            const auto left = folderFiles(dirs.data, &odd);
            for (const auto& [name, bytes] : left) {
                if (!isTempName(name) && !v.known(name, bytes))
                    fail(kind, label + ": " + name + " held " + std::to_string(bytes.size()) +
                                   " bytes, neither the version before the script nor any of the " +
                                   std::to_string(v.versionsOf(name)) + " written");
            }
            for (const auto& name : odd)
                fail(kind, label + ": " + name + " in the data folder is no regular file");
            for (const auto& [name, bytes] : v.before)
                if (!left.count(name) && !v.mayBeMissing(name))
                    fail(kind, label + ": " + name + " is gone");

            // Kept until the check is done, to be looked at when something failed.
            std::error_code ec;
            fs::copy(dirs.data, dirs.root / "as-killed", fs::copy_options::recursive, ec);
            checkNextStart(kind, dirs, label);
            for (const auto& [name, bytes] : folderFiles(dirs.data))
                if (!v.names.count(name) && !isTempName(name))
                    fail(kind, label + ": a file no run writes appeared: " + name);
            checkOutside(kind, dirs, label);
            if (failures_ != failuresBefore) {
                ++kindFailures;
                fs::rename(dirs.root, work_ / ("failed-" + kind.name + "-kill" + std::to_string(k)),
                           ec);
            }
        }
        std::error_code ec;
        fs::remove_all(dirs.root, ec);
        std::printf("%s: %d kills over a %.3f s script, %d failed\n", kind.name.c_str(), o_.kills,
                    span, kindFailures);
        std::fflush(stdout);
        return kindFailures == 0;
    }

private:
    bool fail(const Kind& kind, const std::string& what) {
        ++failures_;
        std::printf("FAIL %s: %s\n", kind.name.c_str(), what.c_str());
        std::fflush(stdout);
        return false;
    }

    bool runToEnd(const Kind& kind, const RunDirs& dirs, const Session& session,
                  const std::string& label, std::string* output = nullptr) {
        const Outcome o =
            runSession(Drive(o_.drive, dirs), dirs, session, Clock::now() + kHangLimit);
        if (output)
            *output = o.out;
        if (!o.ended)
            return fail(kind, label + ": the driver did not finish within " +
                                  std::to_string(kHangLimit.count()) + " s");
        const std::string problem = problemOf(o);
        return problem.empty() || fail(kind, label + ": " + problem);
    }

    bool prepare(const Kind& kind, const fs::path& initial) {
        const RunDirs dirs(work_ / ("prepare-" + kind.name));
        dirs.make();
        for (const auto& [name, bytes] : kind.files)
            writeFile(dirs.data / name, bytes);
        for (std::size_t i = 0; i < kind.prepare.size(); ++i)
            if (!runToEnd(kind, dirs, kind.prepare[i], "preparing, start " + std::to_string(i + 1)))
                return false;
        std::error_code ec;
        fs::remove_all(initial, ec);
        fs::copy(dirs.data, initial, fs::copy_options::recursive, ec);
        if (ec)
            return fail(kind, "cannot copy the prepared folder: " + ec.message());
        fs::remove_all(dirs.root, ec);
        return true;
    }

    void recordStep(const RunDirs& dirs, int inotifyFd, Versions& v,
                    std::map<std::string, int>& renamesThisStep,
                    std::vector<std::string>& inPlace) {
        // The events of the step are all queued by now: the driver answered after its writes.
        alignas(inotify_event) char buf[64 * 1024];
        while (true) {
            const ssize_t n = ::read(inotifyFd, buf, sizeof buf);
            if (n <= 0)
                break;
            for (ssize_t at = 0; at < n;) {
                const auto* e = reinterpret_cast<const inotify_event*>(buf + at);
                const std::string name = e->len ? e->name : "";
                if (!name.empty() && !isTempName(name)) {
                    if (e->mask & IN_MOVED_TO)
                        ++renamesThisStep[name];
                    if (e->mask & (IN_CLOSE_WRITE | IN_CREATE))
                        inPlace.push_back(name);
                }
                at += static_cast<ssize_t>(sizeof(inotify_event) + e->len);
            }
        }
        for (const auto& [name, bytes] : folderFiles(dirs.data)) {
            if (isTempName(name))
                continue;
            v.names.insert(name);
            auto& list = v.written[name];
            const bool wasBefore =
                v.before.count(name) && v.before[name] && *v.before[name] == bytes;
            if (std::find(list.begin(), list.end(), bytes) == list.end() &&
                !(wasBefore && list.empty()))
                list.push_back(bytes);
        }
    }

    bool referenceSession(const Kind& kind, const RunDirs& dirs, const Session& session, int index,
                          Versions& v) {
        int toDrive[2], fromDrive[2];
        if (::pipe2(toDrive, O_CLOEXEC) != 0 || ::pipe2(fromDrive, O_CLOEXEC) != 0)
            return fail(kind, std::string("pipe: ") + std::strerror(errno));
        const int inotifyFd = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
        if (inotifyFd < 0 || ::inotify_add_watch(inotifyFd, dirs.data.c_str(),
                                                 IN_MOVED_TO | IN_CLOSE_WRITE | IN_CREATE) < 0)
            return fail(kind, std::string("inotify: ") + std::strerror(errno));
        const pid_t pid = Drive(o_.drive, dirs).start(toDrive[0], fromDrive[1]);
        ::close(toDrive[0]);
        ::close(fromDrive[1]);

        std::string pending, transcript;
        bool eof = false;
        // Reads the driver's answers up to the marker line, or to its end.
        auto readUntil = [&](const std::string& marker) {
            while (true) {
                const auto nl = pending.find('\n');
                if (nl != std::string::npos) {
                    const std::string line = pending.substr(0, nl);
                    pending.erase(0, nl + 1);
                    if (line == marker)
                        return true;
                    transcript += line + "\n";
                    continue;
                }
                if (eof)
                    return false;
                pollfd p{fromDrive[0], POLLIN, 0};
                if (::poll(&p, 1, static_cast<int>(kHangLimit.count() * 1000)) <= 0)
                    return false;
                char buf[4096];
                const ssize_t n = ::read(fromDrive[0], buf, sizeof buf);
                if (n <= 0)
                    eof = true;
                else
                    pending.append(buf, static_cast<std::size_t>(n));
            }
        };

        bool ok = true;
        const std::string where = "reference run, start " + std::to_string(index + 1);
        for (std::size_t step = 0; step < session.size() && !eof && ok; ++step) {
            const std::string marker = "@@kill_writes step " + std::to_string(step);
            const std::string feed = session[step] + "\necho " + marker + "\n";
            if (::write(toDrive[1], feed.data(), feed.size()) != static_cast<ssize_t>(feed.size()))
                break;  // it quit: the end of the session is read below
            if (!readUntil(marker) && !eof)
                ok = fail(kind, where + ": no answer to '" + session[step] + "'");
            std::map<std::string, int> renames;
            std::vector<std::string> inPlace;
            recordStep(dirs, inotifyFd, v, renames, inPlace);
            for (const auto& [name, count] : renames) {
                // Two writes in one step would hide the version between them.
                if (count > 1)
                    ok = fail(kind, where + ": '" + session[step] + "' replaced " + name + " " +
                                        std::to_string(count) + " times; split the step");
            }
            for (const auto& name : inPlace)
                ok = fail(kind, where + ": '" + session[step] + "' wrote " + name +
                                    " in place, not through a temporary file");
        }
        ::close(toDrive[1]);
        readUntil("\x01 never printed");
        ::close(fromDrive[0]);
        int status = 0;
        if (!waitUntil(pid, Clock::now() + kHangLimit, status)) {
            killAndReap(pid);
            return fail(kind, where + ": the driver did not end at the end of its input");
        }
        std::map<std::string, int> renames;
        std::vector<std::string> inPlace;
        recordStep(dirs, inotifyFd, v, renames, inPlace);
        ::close(inotifyFd);
        if (const std::string problem = problemOf({true, status, transcript}); !problem.empty())
            ok = fail(kind, where + ": " + problem);
        for (const auto& [name, bytes] : folderFiles(dirs.data))
            if (isTempName(name))
                ok = fail(kind, where + ": a write that was not cut left " + name + " behind");
        return ok;
    }

    bool reference(const Kind& kind, const fs::path& initial, Versions& v) {
        const RunDirs dirs(work_ / ("reference-" + kind.name));
        dirs.make();
        std::error_code ec;
        fs::copy(initial, dirs.data,
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing, ec);
        const auto start = folderFiles(dirs.data);
        for (const auto& [name, bytes] : start) {
            v.before[name] = bytes;
            v.names.insert(name);
        }
        if (!v.before.count(kind.target))
            v.before[kind.target] = std::nullopt;
        for (std::size_t i = 0; i < kind.script.size(); ++i)
            if (!referenceSession(kind, dirs, kind.script[i], static_cast<int>(i), v))
                return false;
        v.end = folderFiles(dirs.data);
        // The check itself must pass on a folder no kill touched.
        if (!checkNextStart(kind, dirs, "the check after the uncut reference run"))
            return false;
        for (const auto& [name, bytes] : folderFiles(dirs.data))
            v.names.insert(name);
        fs::remove_all(dirs.root, ec);
        if (v.versionsOf(kind.target) < 2)
            return fail(kind, "the script wrote " + kind.target + " " +
                                  std::to_string(v.versionsOf(kind.target)) +
                                  " distinct times; it must write it again and again");
        return true;
    }

    bool checkNextStart(const Kind& kind, const RunDirs& dirs, const std::string& label) {
        std::string out;
        if (!runToEnd(kind, dirs, kind.check, label + ", next start", &out))
            return false;
        int expected = 0;
        for (const auto& l : splitLines(out)) {
            if (!startsWith(l, "msgbox "))
                continue;
            if (!kind.expectedMsgBox.empty() && startsWith(l, kind.expectedMsgBox))
                ++expected;
            else
                return fail(kind, label + ", next start showed: " + l);
        }
        if (!kind.expectedMsgBox.empty() && expected != 1)
            return fail(kind, label + ", next start did not show '" + kind.expectedMsgBox +
                                  "' once but " + std::to_string(expected) + " times");
        std::vector<std::string> odd;
        bool ok = true;
        for (const auto& [name, bytes] : folderFiles(dirs.data, &odd))
            if (isTempName(name))
                ok = fail(kind, label + ": " + name + " is still there after the next start");
        for (const auto& name : odd)
            ok = fail(kind, label + ": " + name + " in the data folder is no regular file");
        return ok;
    }

    bool checkOutside(const Kind& kind, const RunDirs& dirs, const std::string& label) {
        for (const auto& d : {dirs.home, dirs.tmp, dirs.cwd})
            if (std::error_code ec; !fs::is_directory(d, ec) || !fs::is_empty(d, ec))
                return fail(kind, label + ": the driver wrote into " + d.string());
        std::error_code ec;
        if (fs::is_symlink(dirs.data, ec) || !fs::is_directory(dirs.data, ec))
            return fail(kind, label + ": the data folder is no longer a plain folder");
        return true;
    }

    Options o_;
    fs::path work_;
    int failures_ = 0;
};

int usage(const char* why) {
    std::fprintf(stderr,
                 "kill_writes: %s\n"
                 "usage: kill_writes --drive PATH [--kills N] "
                 "[--kind settings|fivestack|user|played|table|saved|phrases]... [--seed S]\n",
                 why);
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    Options o;
    const auto kinds = allKinds();
    // --drive PATH [--kills N] [--kind NAME]... [--seed S]; a bad number reads as 0.
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string arg = argv[i], value = argv[i + 1];
        if (arg == "--drive")
            o.drive = value;
        else if (arg == "--kills")
            o.kills = std::max(1, std::atoi(value.c_str()));
        else if (arg == "--kind")
            o.kinds.push_back(value);
        else if (arg == "--seed")
            o.seed = std::strtoull(value.c_str(), nullptr, 10);
        else
            return usage(("unknown option '" + arg + "'").c_str());
    }
    for (const std::string& name : o.kinds)
        if (std::none_of(kinds.begin(), kinds.end(), [&](const Kind& k) { return k.name == name; }))
            return usage(("no kind of write '" + name + "'").c_str());
    if (o.drive.empty())
        return usage("--drive is needed");
    if (::access(o.drive.c_str(), X_OK) != 0)
        return usage(("cannot run '" + o.drive + "'").c_str());
    o.drive = fs::absolute(o.drive).string();

    // The children's ends are awaited with sigtimedwait, so SIGCHLD stays pending.
    sigset_t chld;
    sigemptyset(&chld);
    sigaddset(&chld, SIGCHLD);
    ::sigprocmask(SIG_BLOCK, &chld, nullptr);
    ::signal(SIGPIPE, SIG_IGN);

    std::error_code ec;
    fs::path base = fs::temp_directory_path(ec);
    if (ec)
        base = "/tmp";
    std::string templ = (base / "kill_writes-XXXXXX").string();
    if (!::mkdtemp(templ.data()))
        return usage("cannot make a work folder");
    const fs::path work = templ;

    Harness h(o, work);
    const auto t0 = Clock::now();
    bool ok = true;
    for (const auto& k : kinds)
        if (o.kinds.empty() || std::count(o.kinds.begin(), o.kinds.end(), k.name))
            ok = h.runKind(k) && ok;
    std::printf("%s in %.1f s (seed %llu)\n", ok ? "all kinds whole after every kill" : "FAILED",
                seconds(Clock::now() - t0), static_cast<unsigned long long>(o.seed));
    if (ok) {
        fs::remove_all(work, ec);
        return 0;
    }
    std::printf("the folders of the failures are kept in %s\n", work.c_str());
    return 1;
}
