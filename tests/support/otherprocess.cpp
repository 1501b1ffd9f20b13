#include "tests/support/otherprocess.h"

#include <array>
#include <exception>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace testdata {

namespace {

std::string ReadAll(int descriptor) {
    std::string text;
    std::array<char, 512> buffer{};
    for (ssize_t count = 0; (count = ::read(descriptor, buffer.data(), buffer.size())) > 0;) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return text;
}

void WriteAll(int descriptor, const std::string& text) {
    if (::write(descriptor, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
        ::_exit(3);
    }
}

[[noreturn]] void WorkAsChild(const std::function<std::string()>& work, Child::As as, int from,
                              int to) {
    constexpr uid_t kNobody = 65534;
    ReadAll(from);  // until the parent lets it begin
    if (as == Child::As::OrdinaryUser && ::geteuid() == 0 &&
        (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) {
        ::_exit(4);
    }
    std::string result;
    try {
        result = work();
    } catch (const std::exception& error) {
        result = std::string("threw ") + error.what();
    }
    WriteAll(to, result);
    ::_exit(0);
}

struct Pipe {
    Pipe() {
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    }
    std::array<int, 2> ends{};
};

}  // namespace

Child::Child(std::function<std::string()> work, As as) {
    const Pipe down, up;
    process_ = ::fork();
    if (process_ == 0) {
        ::close(down.ends[1]);
        WorkAsChild(work, as, down.ends[0], up.ends[1]);
    }
    ::close(down.ends[0]);
    ::close(up.ends[1]);
    toChild_ = down.ends[1];
    fromChild_ = up.ends[0];
}

std::string Child::Run() {
    if (process_ < 0) return {};
    ::close(toChild_);
    std::string result = ReadAll(fromChild_);
    ::close(fromChild_);
    int status = 0;
    ::waitpid(process_, &status, 0);
    process_ = -1;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) return "the child failed: " + result;
    return result;
}

OtherCopy::OtherCopy(const std::filesystem::path& path) {
    const auto [down, up] = std::array{Pipe().ends, Pipe().ends};
    process_ = ::fork();
    if (process_ == 0) {
        ::close(down[1]);
        {
            FundFile file = OpenFundFile(path);
            WriteAll(up[1], std::string(1, static_cast<char>(file.right)));
            ReadAll(down[0]);  // until the other end closes
            CloseFundFile(file.database);
        }
        ::_exit(0);
    }
    ::close(down[0]);
    ::close(up[1]);
    toChild_ = down[1];
    char right = 0;
    if (::read(up[0], &right, 1) != 1) ADD_FAILURE() << "the other copy could not open " << path;
    right_ = static_cast<WriteRight>(right);
    ::close(up[0]);
}

void OtherCopy::Wait() {
    if (process_ > 0) {
        int status = 0;
        ::waitpid(process_, &status, 0);
        process_ = -1;
    }
}

void OtherCopy::Close() {
    if (toChild_ >= 0) ::close(toChild_);
    toChild_ = -1;
    Wait();
}

void OtherCopy::Die() {
    ::kill(process_, SIGKILL);
    Wait();
    Close();
}

OtherCopy::~OtherCopy() {
    Close();
}

}  // namespace testdata
