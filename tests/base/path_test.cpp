#include "base/path.h"

#include <gtest/gtest.h>

TEST(WithSeparator, EndsAFolderInOneSeparator) {
    EXPECT_EQ(WithSeparator("/a/b"), "/a/b/");
    EXPECT_EQ(WithSeparator("/a/b/"), "/a/b/");
    EXPECT_EQ(WithSeparator(""), "");
}
