// jetcheck FILE: verifies the file. Prints OK, or the first fault; exit status 0 sound, 1 not, 2
// used wrongly.

#include "base/error.h"
#include "jet/detail/pagefile.h"
#include "jet/detail/verify.h"

#include <cstdio>
#include <exception>

namespace {

int Check(const char* path) {
    const auto file = jet::detail::PageFile::Open(path);
    const jet::detail::Findings findings = jet::detail::Verify(*file);
    std::puts(findings.faults.empty() ? "OK" : findings.faults.front().c_str());
    return findings.faults.empty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: jetcheck FILE\n", stderr);
        return 2;
    }
    try {
        return Check(argv[1]);
    } catch (const std::exception& error) {
        std::puts(error.what());
        return 1;
    }
}
