#include "platform/commondialog.h"

#include "platform/dialogs.h"

#include <filesystem>

namespace {

// "*.mdb" and ".mdb" and "mdb" all name the extension "mdb".
std::string BareExtension(const std::string& extension) {
    const std::size_t point = extension.rfind('.');
    return point == std::string::npos ? extension : extension.substr(point + 1);
}

std::string WithExtension(const std::string& path, const std::string& extension) {
    if (path.empty() || extension.empty()) return path;
    if (std::filesystem::path(path).has_extension()) return path;
    return path + "." + extension;
}

}  // namespace

void CommonDialog::ShowOpen() {
    Show(FileChoice::Open);
}

void CommonDialog::ShowSave() {
    Show(FileChoice::Save);
}

void CommonDialog::Show(FileChoice choice) {
    const std::string extension = BareExtension(defaultExtension);
    const std::string picked =
        dialogs_.PickFile({.choice = choice,
                           .title = title,
                           .filter = filter,
                           .folder = initialFolder,
                           .defaultExtension = extension,
                           .fileName = fileName,
                           .askBeforeOverwriting = (flags & kAskBeforeOverwriting) != 0,
                           .mustExist = (flags & kFileMustExist) != 0});
    if (!picked.empty()) fileName = WithExtension(picked, extension);
}
