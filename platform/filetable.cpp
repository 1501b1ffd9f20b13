#include "platform/filetable.h"

#include "base/number.h"
#include "platform/qttext.h"
#include "platform/texts.h"

#include <QDateTime>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

namespace {

enum Column { kName, kSize, kKind, kDay };

/// One decimal, rounded.
QString InUnits(std::int64_t bytes, std::int64_t unit, std::string_view name) {
    const std::int64_t tenths = (bytes * 10 + unit / 2) / unit;
    return ToQt(PlainText(tenths / 10) + "," + PlainText(tenths % 10) + std::string(name));
}

QString SizeText(std::int64_t bytes) {
    constexpr std::int64_t kKilobyte = 1000, kMegabyte = 1000 * kKilobyte;
    if (bytes >= kMegabyte) return InUnits(bytes, kMegabyte, texts::dialogs::Megabytes);
    if (bytes >= kKilobyte) return InUnits(bytes, kKilobyte, texts::dialogs::Kilobytes);
    return ToQt(PlainText(bytes) + std::string(texts::dialogs::Bytes));
}

QString KindText(const QFileInfo& file) {
    if (file.isDir()) return ToQt(texts::dialogs::Folder);
    const QString ending = file.suffix().toLower();
    if (ending.isEmpty()) return ToQt(texts::dialogs::File);
    return ending + ToQt(texts::dialogs::FileOfKind);
}

}  // namespace

QVariant FileTable::data(const QModelIndex& index, int role) const {
    // A screen reader says a cell with its column.
    if (role == Qt::AccessibleTextRole) {
        const QString shown = data(index, Qt::DisplayRole).toString();
        return headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString() +
               QStringLiteral(": ") + (shown.isEmpty() ? QStringLiteral("-") : shown);
    }
    const auto* files = qobject_cast<const QFileSystemModel*>(sourceModel());
    if (files == nullptr || role != Qt::DisplayRole || index.column() == kName) {
        return QIdentityProxyModel::data(index, role);
    }
    const QFileInfo file = files->fileInfo(mapToSource(index));
    switch (index.column()) {
        case kSize:
            return file.isDir() ? QString() : SizeText(file.size());
        case kKind:
            return KindText(file);
        case kDay:
            return file.lastModified().toString(QStringLiteral("yyyy-MM-dd hh:mm"));
        default:
            return QIdentityProxyModel::data(index, role);
    }
}
