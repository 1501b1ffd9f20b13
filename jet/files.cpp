#include "jet/files.h"

#include "jet/storage/filestore.h"

#include <exception>
#include <system_error>

namespace jet {

void CopyFile(const std::filesystem::path& source, const std::filesystem::path& target) {
    detail::SaveWhole(detail::Load(source).image, target);
}

bool IsSameFile(const std::filesystem::path& one, const std::filesystem::path& other) noexcept try {
    if (one == other) return true;
    std::error_code code;
    if (std::filesystem::equivalent(one, other, code)) return true;
    const std::filesystem::path real = std::filesystem::weakly_canonical(one, code);
    return !code && real == std::filesystem::weakly_canonical(other, code);
} catch (const std::exception&) {
    return false;
}

}  // namespace jet
