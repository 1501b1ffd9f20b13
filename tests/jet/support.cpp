#include "support.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

namespace jet::test {
namespace {

void BecomeProgram(const std::vector<std::string>& arguments, int output) {
    dup2(output, STDOUT_FILENO);
    std::vector<char*> pointers;
    for (const std::string& argument : arguments) {
        pointers.push_back(const_cast<char*>(argument.c_str()));
    }
    pointers.push_back(nullptr);
    // mdb-json stops at the first letter that the user's locale cannot write.
    setenv("LC_ALL", "C.UTF-8", 1);
    if (std::freopen("/dev/null", "w", stderr) != nullptr) execvp(pointers[0], pointers.data());
    _exit(127);
}

}  // namespace

std::vector<std::filesystem::path> SampleFiles() {
    std::vector<std::filesystem::path> files;
    std::vector<std::filesystem::path> folders{samplefiles::FundFileFolder()};
    for (const char* folder : {"mdb-samples", "relations"}) {
        if (OtherFiles()) folders.push_back(*OtherFiles() / folder);
    }
    for (const auto& folder : folders) {
        if (!std::filesystem::exists(folder)) continue;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            if (entry.path().extension() == ".mdb") files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

ScratchFolder::ScratchFolder() {
    std::string name = std::filesystem::temp_directory_path() / "kvarnbo-XXXXXX";
    if (mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

Outcome Run(const std::vector<std::string>& arguments) {
    std::array<int, 2> pipeEnds{};
    if (pipe(pipeEnds.data()) != 0) return {};
    const pid_t child = fork();
    if (child == 0) BecomeProgram(arguments, pipeEnds[1]);
    close(pipeEnds[1]);
    Outcome outcome;
    std::array<char, 65536> buffer{};
    while (true) {
        const ssize_t got = read(pipeEnds[0], buffer.data(), buffer.size());
        if (got <= 0) break;
        outcome.output.append(buffer.data(), static_cast<std::size_t>(got));
    }
    close(pipeEnds[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
    return outcome;
}

std::string ReadWith(const std::vector<std::string>& arguments) {
    const Outcome outcome = Run(arguments);
    EXPECT_NE(outcome.status, 127) << arguments.front() << " is missing (Debian package mdbtools)";
    EXPECT_EQ(outcome.status, 0) << arguments.front();
    return outcome.output;
}

}  // namespace jet::test
