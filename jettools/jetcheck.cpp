// jetcheck FILE: verifies the file. Prints OK, or the first fault; exit status 0 sound, 1 not, 2
// used wrongly.

#include "base/error.h"
#include "base/tooloptions.h"
#include "jet/storage/pagefile.h"
#include "jet/verify/verify.h"

#include <cstdio>
#include <exception>

namespace {

constexpr const char* kUsage =
    "usage: jetcheck FILE\n"
    "Verifies every page, row and index of an Access-format file: prints OK, or the first fault.\n";

int Check(const char* path) {
    const auto file = jet::detail::PageFile::Open(path);
    const jet::detail::Findings findings = jet::detail::Verify(*file);
    std::puts(findings.faults.empty() ? "OK" : findings.faults.front().c_str());
    return findings.faults.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    if (const auto status = Answered("jetcheck", argv[1], kUsage)) return *status;
    try {
        return Check(argv[1]);
    } catch (const std::exception& error) {
        std::puts(error.what());
        return 1;
    }
}
