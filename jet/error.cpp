#include "jet/error.h"

#include <cerrno>

namespace jet {

ErrorNumber NumberOfSystemError(int code) noexcept {
    switch (code) {
        case ENOENT:
            return ErrorNumber::FileNotFound;
        case ENOTDIR:
        case ELOOP:
        case ENAMETOOLONG:
            return ErrorNumber::PathNotFound;
        case EACCES:
        case EPERM:
        case EISDIR:
            return ErrorNumber::PermissionDenied;
        case EROFS:
            return ErrorNumber::ReadOnly;
        case ETXTBSY:
        case EBUSY:
            return ErrorNumber::FileInUse;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorNumber::DiskFull;
        default:
            return ErrorNumber::DeviceIo;
    }
}

}  // namespace jet
