#include "base/path.h"

std::string WithSeparator(const std::filesystem::path& folder) {
    return (folder / "").string();
}
