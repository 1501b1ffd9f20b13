#include "app/fileexists.h"

#include "platform/qttext.h"

#include <QFile>
#include <QFileInfo>

bool FileExists(std::string_view path) {
    QFile file(ToQt(path));
    // A folder can be opened as a file on some systems; it is none.
    return QFileInfo(file).isFile() && file.open(QIODevice::ReadOnly);
}
