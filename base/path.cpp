#include "base/path.h"

#include <exception>
#include <system_error>

bool IsSameFile(const std::filesystem::path& one, const std::filesystem::path& other) noexcept try {
    if (one == other) return true;
    std::error_code code;
    if (std::filesystem::equivalent(one, other, code)) return true;
    const std::filesystem::path real = std::filesystem::weakly_canonical(one, code);
    return !code && real == std::filesystem::weakly_canonical(other, code);
} catch (const std::exception&) {
    return false;
}

std::string WithSeparator(const std::filesystem::path& folder) {
    return (folder / "").string();
}
