// Every source file stands as the formatter writes it. Another version would write it otherwise, so
// where this one cannot be had the test is skipped.

#include "tests/house/source.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {

struct Output {
    int status = -1;
    std::string text;
};

Output OutputOf(const std::string& command) {
    Output output;
    FILE* pipe = popen((command + " 2>&1").c_str(), "r");
    if (pipe == nullptr) return output;
    std::array<char, 4096> buffer{};
    while (fgets(buffer.data(), static_cast<int>(buffer.size()), pipe) != nullptr) {
        output.text += buffer.data();
    }
    output.status = pclose(pipe);
    return output;
}

TEST(HouseFormat, IsTheFormattersOwn) {
    if (OutputOf("clang-format-14 --version").status != 0) {
        GTEST_SKIP() << "clang-format-14 is not installed";
    }
    std::string command = "cd '" KVARNBO_SOURCES "' && clang-format-14 --dry-run -Werror";
    for (const auto& file : house::SourceFiles()) command += " '" + file.path + "'";
    const Output output = OutputOf(command);
    EXPECT_EQ(output.status, 0) << output.text;
}

}  // namespace
