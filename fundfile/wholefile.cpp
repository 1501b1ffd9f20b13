#include "fundfile/wholefile.h"

#include "base/error.h"
#include "base/number.h"
#include "base/systemerror.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::error_code& code, const fs::path& path) {
    throw Error{NumberOfSystemError(code.value()), path.string() + ": " + code.message()};
}

void Sync(const fs::path& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) {
        Fail({errno, std::generic_category()}, path);
    }
    const int failure = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    if (failure != 0 && failure != EINVAL) {  // EINVAL: a file system that has nothing to sync
        Fail({failure, std::generic_category()}, path);
    }
}

/// The file itself when `target` is a link, also one to a file that is not there yet.
fs::path Followed(const fs::path& target) {
    std::error_code code;
    const fs::path real = fs::weakly_canonical(target, code);
    return code ? target : real;
}

}  // namespace

WholeFile::WholeFile(const fs::path& start, const fs::path& target)
    : target_(Followed(target)), building_(target_) {
    building_ += "." + PlainText(std::int64_t{::getpid()}) + ".tmp";
    std::error_code code;
    if (!fs::is_regular_file(start, code)) {
        throw Error{ErrorNumber::FileNotFound, "there is no file " + start.string()};
    }
    if (fs::is_directory(target_, code)) {
        throw Error{ErrorNumber::PermissionDenied, target_.string() + " is a folder"};
    }
    fs::copy_file(start, building_, fs::copy_options::overwrite_existing, code);
    if (!code) {
        // An installed template may be write-protected; the user's own file is not.
        fs::permissions(building_, fs::perms::owner_write, fs::perm_options::add, code);
    }
    if (code) {
        std::error_code ignored;
        fs::remove(building_, ignored);
        Fail(code, target_);
    }
}

WholeFile::~WholeFile() {
    if (!placed_) {
        std::error_code ignored;
        fs::remove(building_, ignored);
    }
}

void WholeFile::PutInPlace() {
    Sync(building_);
    std::error_code code;
    fs::rename(building_, target_, code);
    if (code) {
        Fail(code, target_);
    }
    placed_ = true;
    const fs::path folder = target_.parent_path();
    Sync(folder.empty() ? fs::path(".") : folder);
}
