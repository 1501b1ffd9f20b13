#include "base/systemerror.h"

#include <cerrno>

ErrorNumber NumberOfSystemError(int code) {
    switch (code) {
        case ENOENT:
        case ENOTDIR:
            return ErrorNumber::PathNotFound;
        case EACCES:
        case EPERM:
        case EROFS:
        case EISDIR:
            return ErrorNumber::PermissionDenied;
        case ENOSPC:
        case EDQUOT:
            return ErrorNumber::DiskFull;
        default:
            return ErrorNumber::DeviceIo;
    }
}
