#include "help/openhelp.h"

#include "base/error.h"
#include "help/texts.h"
#include "platform/qttext.h"

#include <QFile>
#include <QIODevice>

#include <cstddef>

namespace {

QString PathOf(const std::string& path) {
    if (!path.empty()) return ToQt(path);
    return QStringLiteral(KVARNBO_DATA_FOLDER "/") + ToQt(helptexts::NoFile);
}

HelpBook Unreadable(const QString& path) {
    const std::string title(helptexts::CannotRead);
    const std::string html = "<h1>" + title + "</h1><p>" +
                             std::string(helptexts::CannotReadAdvice) + "</p><p><b>" +
                             FromQt(path.toHtmlEscaped()) + "</b></p>";
    return HelpBook({{"fel", std::string(helptexts::Contents), title, html}});
}

}  // namespace

HelpBook OpenHelp(const std::string& path) {
    QFile file(PathOf(path));
    if (!file.open(QIODevice::ReadOnly)) return Unreadable(file.fileName());
    try {
        return HelpBook::Parse(file.readAll().toStdString());
    } catch (const Error&) {
        return Unreadable(file.fileName());
    }
}

HelpPlace HelpPlaceOf(const std::string& argument) {
    const std::size_t mark = argument.rfind('#');
    if (mark == std::string::npos || QFile::exists(ToQt(argument))) return {argument, ""};
    return {argument.substr(0, mark), argument.substr(mark + 1)};
}
