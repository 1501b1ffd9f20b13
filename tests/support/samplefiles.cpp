#include "tests/support/samplefiles.h"

#include <cstdlib>
#include <string>

namespace samplefiles {

std::filesystem::path FundFile(std::string_view name) {
    return FundFileFolder() / (std::string(name) + ".mdb");
}

std::filesystem::path FundFileFolder() {
    return std::filesystem::path(KVARNBO_SOURCES) / "tests" / "files" / "fundfiles";
}

std::optional<std::filesystem::path> OtherFiles() {
    const char* folder = std::getenv("KVARNBO_SAMPLES");
    if (folder == nullptr || *folder == '\0') return std::nullopt;
    return std::filesystem::path(folder);
}

}  // namespace samplefiles
