#include "app/rules/filedrop.h"

#include "app/rules/texts.h"
#include "fundfile/rules/listedfiles.h"

DropVerdict JudgeDrop(const std::vector<std::optional<std::string>>& paths) {
    if (paths.size() > 1) return DropVerdict::Several;
    if (paths.empty() || !paths.front()) return DropVerdict::NoFundFile;
    const std::string& path = *paths.front();
    const bool isFundFile = IsFundFileName(path.substr(path.find_last_of('/') + 1));
    return isFundFile ? DropVerdict::Opens : DropVerdict::NoFundFile;
}

std::string_view DropText(DropVerdict verdict) {
    switch (verdict) {
        case DropVerdict::Opens:
            return "";
        case DropVerdict::NoFundFile:
            return texts::DropsFundFilesOnly;
        case DropVerdict::Several:
            return texts::DropsOneFile;
    }
    return "";
}
