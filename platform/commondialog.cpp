#include "platform/commondialog.h"

#include "platform/dialogs.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace {

// "*.mdb" and ".mdb" and "mdb" all name the extension "mdb".
std::string BareExtension(const std::string& extension) {
    const std::size_t point = extension.rfind('.');
    return point == std::string::npos ? extension : extension.substr(point + 1);
}

// A date or an abbreviation in a name has points too: "Kopia 2026.11.21", "Fonder f.d. Elsa".
bool IsExtension(std::string_view ending) {
    constexpr std::size_t kMaxLength = 5;  // with its point
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    return ending.size() > 1 && ending.size() <= kMaxLength &&
           std::all_of(ending.begin() + 1, ending.end(), isLetter);
}

}  // namespace

std::string WithExtension(const std::string& path, const std::string& extension) {
    if (path.empty() || extension.empty()) return path;
    if (IsExtension(std::filesystem::path(path).extension().string())) return path;
    return path + "." + extension;
}

std::string ExistingFile(const std::string& path, const std::string& extension) {
    if (path.empty()) return path;
    const std::string completed = WithExtension(path, extension);
    std::error_code code;
    for (const std::string& name : {completed, path}) {
        if (std::filesystem::exists(name, code)) return name;
    }
    const std::string longer = path + "." + extension;
    return std::filesystem::exists(longer, code) ? longer : completed;
}

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
    if (picked.empty()) return;
    fileName = choice == FileChoice::Save ? WithExtension(picked, extension)
                                          : ExistingFile(picked, extension);
}
