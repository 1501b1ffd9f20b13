#include "jet/error.h"

#include <cerrno>
#include <gtest/gtest.h>

namespace jet::test {

TEST(NumberOfSystemError, TellsApartWhatUsersCanDoSomethingAbout) {
    const struct {
        int code;
        ErrorNumber number;
    } rows[] = {
        {ENOENT, ErrorNumber::FileNotFound},
        {ENOTDIR, ErrorNumber::PathNotFound},
        {ELOOP, ErrorNumber::PathNotFound},
        {ENAMETOOLONG, ErrorNumber::PathNotFound},
        {EACCES, ErrorNumber::PermissionDenied},
        {EPERM, ErrorNumber::PermissionDenied},
        {EROFS, ErrorNumber::ReadOnly},
        {EISDIR, ErrorNumber::PermissionDenied},
        {ENOSPC, ErrorNumber::DiskFull},
        {EDQUOT, ErrorNumber::DiskFull},
        {EFBIG, ErrorNumber::DiskFull},
        {EBUSY, ErrorNumber::FileInUse},
        {ETXTBSY, ErrorNumber::FileInUse},
        {EIO, ErrorNumber::DeviceIo},
        {0, ErrorNumber::DeviceIo},
    };
    for (const auto& row : rows) EXPECT_EQ(NumberOfSystemError(row.code), row.number) << row.code;
}

}  // namespace jet::test
