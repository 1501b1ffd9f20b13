#include "jet/copyfile.h"

#include "base/error.h"
#include "jet/storage/filestore.h"

namespace jet {

void CopyFile(const std::filesystem::path& source, const std::filesystem::path& target) {
    detail::SaveWhole(detail::Load(source).image, target);
}

}  // namespace jet
