#include "common/FileStore.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace corvanna {

bool fileExists(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).isFile();
}

std::string tooLargeReason(std::uintmax_t size) {
    return "it is larger than 1 MiB (" + std::to_string(size) + " bytes)";
}

ReadStatus readWholeFile(const std::string& path, std::string& out, std::string* error,
                         std::size_t maxBytes) {
    const QString name = QString::fromStdString(path);
    QFileInfo info(name);
    if (!info.exists())
        return ReadStatus::Missing;
    QFile f(name);
    if (!info.isFile() || !f.open(QIODevice::ReadOnly)) {
        if (error)
            *error = info.isFile() ? f.errorString().toStdString() : "it is not a file";
        return ReadStatus::Failed;
    }
    // Read by the file's own size, not the limit: a settings file is a few hundred bytes.
    const qint64 limit = static_cast<qint64>(maxBytes);
    if (info.size() > limit) {
        if (error)
            *error = tooLargeReason(static_cast<std::uintmax_t>(info.size()));
        return ReadStatus::Failed;
    }
    const QByteArray bytes = f.read(info.size() + 1);
    // It grew while being read.
    if (bytes.size() > limit) {
        if (error)
            *error = tooLargeReason(static_cast<std::uintmax_t>(bytes.size()));
        return ReadStatus::Failed;
    }
    if (f.error() != QFileDevice::NoError) {
        if (error)
            *error = f.errorString().toStdString();
        return ReadStatus::Failed;
    }
    out.assign(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    return ReadStatus::Ok;
}

namespace {

std::optional<std::size_t> g_failAtByte;
std::string g_failName;

std::string systemError(int err) {
    return std::strerror(err);
}

// Writes all of it, as far as a fault planted by a test lets it.
bool writeAll(int fd, const std::string& bytes, std::optional<std::size_t> failAt) {
    std::size_t done = 0;
    while (done < bytes.size()) {
        std::size_t chunk = bytes.size() - done;
        if (failAt) {
            if (done >= *failAt) {
                errno = ENOSPC;
                return false;
            }
            chunk = std::min(chunk, *failAt - done);
        }
        const ssize_t n = ::write(fd, bytes.data() + done, chunk);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            return false;
        }
        done += static_cast<std::size_t>(n);
    }
    return true;
}

}  // namespace

void failWritesAtByte(std::optional<std::size_t> offset, const std::string& onlyFileName) {
    g_failAtByte = offset;
    g_failName = onlyFileName;
}

bool writeFileAtomic(const std::string& path, const std::string& bytes, std::string* error) {
    auto fail = [error](int err) {
        if (error)
            *error = systemError(err);
        return false;
    };
    const std::filesystem::path target(path);
    const std::filesystem::path folder =
        target.has_parent_path() ? target.parent_path() : std::filesystem::path(".");
    std::string temp =
        (folder / ("." + target.filename().string() + kTempMarker + "XXXXXX")).string();
    std::optional<std::size_t> failAt;
    if (g_failName.empty() || target.filename() == g_failName)
        failAt = g_failAtByte;
    const int fd = ::mkstemp(temp.data());
    if (fd < 0)
        return fail(errno);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    // The new file gets the permissions a new file gets, not mkstemp's private ones.
    if (::fchmod(fd, 0666 & ~mask) != 0 || !writeAll(fd, bytes, failAt) || ::fsync(fd) != 0) {
        const int err = errno;
        ::close(fd);
        ::unlink(temp.c_str());
        return fail(err);
    }
    if (::close(fd) != 0) {
        const int err = errno;
        ::unlink(temp.c_str());
        return fail(err);
    }
    // A rename replaces whatever has the name, a planted symbolic link included, and never
    // writes through it.
    if (::rename(temp.c_str(), path.c_str()) != 0) {
        const int err = errno;
        ::unlink(temp.c_str());
        return fail(err);
    }
    // The rename itself lasts only once the folder is on disk too.
    const int dir = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
    return true;
}

int removeStaleTempFiles(const std::string& folder) {
    int removed = 0;
    std::error_code ec;
    for (const auto& e : std::filesystem::directory_iterator(folder, ec)) {
        const std::string name = e.path().filename().string();
        const auto at = name.rfind(kTempMarker);
        // ".NAME.tmp-XXXXXX": what a write left behind when it was cut off.
        if (name.size() > 1 && name[0] == '.' && at != std::string::npos &&
            name.size() == at + std::strlen(kTempMarker) + 6 && e.is_regular_file(ec) &&
            !e.is_symlink(ec) && std::filesystem::remove(e.path(), ec))
            ++removed;
    }
    return removed;
}

}  // namespace corvanna
