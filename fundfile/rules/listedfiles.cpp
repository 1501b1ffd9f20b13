#include "fundfile/rules/listedfiles.h"

#include "base/text.h"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

bool IsFundFileName(std::string_view name) {
    constexpr std::string_view kExtension = ".mdb";
    if (name.size() <= kExtension.size() || name.front() == '.') return false;
    return LowerCase(name.substr(name.size() - kExtension.size())) == kExtension;
}

std::vector<ListedFile> Newest(std::vector<FoundFile> found) {
    std::sort(found.begin(), found.end(), [](const FoundFile& one, const FoundFile& other) {
        return std::tie(other.changed, one.file.path) < std::tie(one.changed, other.file.path);
    });
    const auto open = std::find_if(found.begin(), found.end(),
                                   [](const FoundFile& each) { return each.file.open; });
    if (found.size() > kMaxListedFiles) {
        const auto last = found.begin() + (kMaxListedFiles - 1);
        if (open > last && open != found.end()) std::iter_swap(last, open);
        found.resize(kMaxListedFiles);
    }
    std::vector<ListedFile> files;
    for (FoundFile& each : found) files.push_back(std::move(each.file));
    return files;
}
