#include "base/systemerror.h"

#include <cerrno>
#include <gtest/gtest.h>

TEST(NumberOfSystemError, TellsApartWhatUsersCanDoSomethingAbout) {
    const struct {
        int code;
        ErrorNumber number;
    } rows[] = {
        {ENOENT, ErrorNumber::PathNotFound},
        {ENOTDIR, ErrorNumber::PathNotFound},
        {EACCES, ErrorNumber::PermissionDenied},
        {EPERM, ErrorNumber::PermissionDenied},
        {EROFS, ErrorNumber::PermissionDenied},
        {EISDIR, ErrorNumber::PermissionDenied},
        {ENOSPC, ErrorNumber::DiskFull},
        {EDQUOT, ErrorNumber::DiskFull},
        {EIO, ErrorNumber::DeviceIo},
        {0, ErrorNumber::DeviceIo},
    };
    for (const auto& row : rows) EXPECT_EQ(NumberOfSystemError(row.code), row.number) << row.code;
}
