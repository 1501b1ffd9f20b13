#include "platform/wholefile.h"

#include "base/error.h"
#include "platform/qttext.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileDevice>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>

#include <cstddef>
#include <memory>

namespace {

ErrorNumber NumberOf(const QSaveFile& file, std::size_t size) {
    const QFileInfo target(file.fileName());
    if (!target.dir().exists()) return ErrorNumber::PathNotFound;
    if (target.isDir()) return ErrorNumber::PermissionDenied;
    switch (file.error()) {
        case QFileDevice::OpenError:
        case QFileDevice::PermissionsError:
        case QFileDevice::RenameError:
            return ErrorNumber::PermissionDenied;
        default:
            break;
    }
    const QStorageInfo disk(target.absolutePath());
    const bool full = disk.isValid() && disk.bytesAvailable() < static_cast<qint64>(size);
    return full ? ErrorNumber::DiskFull : ErrorNumber::DeviceIo;
}

void Check(bool done, const QSaveFile& file, std::size_t size) {
    if (done) return;
    throw Error{NumberOf(file, size),
                "cannot write " + FromQt(file.fileName()) + ": " + FromQt(file.errorString())};
}

std::unique_ptr<QSaveFile> Prepared(const FileToWrite& file) {
    auto prepared = std::make_unique<QSaveFile>(ToQt(file.path));
    const auto size = static_cast<qint64>(file.bytes.size());
    Check(prepared->open(QIODevice::WriteOnly), *prepared, file.bytes.size());
    Check(prepared->write(file.bytes.data(), size) == size && prepared->flush(), *prepared,
          file.bytes.size());
    return prepared;
}

}  // namespace

void WriteWholeFiles(const std::vector<FileToWrite>& files) {
    std::vector<std::unique_ptr<QSaveFile>> prepared;
    prepared.reserve(files.size());
    for (const FileToWrite& file : files) prepared.push_back(Prepared(file));
    for (std::size_t i = 0; i < files.size(); ++i) {
        Check(prepared[i]->commit(), *prepared[i], files[i].bytes.size());
    }
}

std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t maxBytes) {
    const QFileInfo info(ToQt(path));
    if (!info.exists()) throw Error{ErrorNumber::FileNotFound, "no file " + path};
    // What is no ordinary file may have no end.
    if (!info.isFile()) throw Error{ErrorNumber::DeviceIo, "no ordinary file: " + path};
    if (info.size() > static_cast<qint64>(maxBytes)) return std::nullopt;
    QFile file(ToQt(path));
    if (!file.open(QIODevice::ReadOnly)) {
        throw Error{ErrorNumber::PermissionDenied, "cannot read " + path};
    }
    const QByteArray bytes = file.read(static_cast<qint64>(maxBytes));
    if (file.error() != QFileDevice::NoError) {
        throw Error{ErrorNumber::DeviceIo, "cannot read " + path + " to its end"};
    }
    return bytes.toStdString();
}

void WriteWholeFile(const std::string& path, std::string_view bytes) {
    WriteWholeFiles({{path, std::string(bytes)}});
}
