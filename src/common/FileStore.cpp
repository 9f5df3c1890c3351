#include "common/FileStore.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace corvanna {

bool fileExists(const std::string& path) {
    return QFileInfo(QString::fromStdString(path)).isFile();
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
            *error = "it is too large";
        return ReadStatus::Failed;
    }
    const QByteArray bytes = f.read(info.size() + 1);
    if (bytes.size() > limit) {
        if (error)
            *error = "it is too large";
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

bool writeFileAtomic(const std::string& path, const std::string& bytes, std::string* error) {
    QSaveFile f(QString::fromStdString(path));
    if (!f.open(QIODevice::WriteOnly)) {
        if (error)
            *error = f.errorString().toStdString();
        return false;
    }
    if (f.write(bytes.data(), static_cast<qint64>(bytes.size())) !=
        static_cast<qint64>(bytes.size())) {
        if (error)
            *error = f.errorString().toStdString();
        f.cancelWriting();
        return false;
    }
    if (!f.commit()) {
        if (error)
            *error = f.errorString().toStdString();
        return false;
    }
    return true;
}

}  // namespace corvanna
