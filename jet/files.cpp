#include "jet/files.h"

#include "jet/error.h"
#include "jet/storage/filestore.h"
#include "jet/storage/systemfile.h"

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

void SetTemporaryEnding(std::string_view ending) {
    constexpr std::string_view kAllowed =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789.-_";
    if (ending.empty() || ending.size() > kMaxTemporaryEnding ||
        ending.find_first_not_of(kAllowed) != std::string_view::npos) {
        throw Error{ErrorNumber::InvalidProcedureCall, "no ending for temporary names"};
    }
    detail::EndTemporaryNamesWith(ending);
}

}  // namespace jet
