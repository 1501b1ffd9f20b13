#include "faults.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// The names are the linker's: --wrap=write sends calls of write to __wrap_write.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {
ssize_t __real_write(int file, const void* bytes, size_t size);
ssize_t __real_pwrite(int file, const void* bytes, size_t size, off_t at);
int __real_fsync(int file);
int __real_rename(const char* from, const char* to);
int __real_unlink(const char* path);
int __real_fdatasync(int file);
int __real_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned how);
int __real_ftruncate(int file, off_t size);
int __real_fcntl(int file, int command, ...);
int __real_fchmod(int file, mode_t mode);
int __real_fchown(int file, uid_t user, gid_t group);
int __real_open(const char* path, int flags, ...);
}

namespace crash {
namespace {

struct State {
    bool active = false, hit = false;
    Plan plan;
    std::vector<std::string> calls, created;
    std::size_t counted = 0;
};
State state;

void Die() {
    ::kill(::getpid(), SIGKILL);
}

/// Notes a call and says what is to happen to it.
Fault Meet(const std::string& name) {
    if (!state.active) return Fault::None;
    state.calls.push_back(name);
    if (!state.plan.only.empty() && state.plan.only != name) return Fault::None;
    const std::size_t number = state.counted++;
    const bool later = state.plan.fault == Fault::FailFromNow && number > state.plan.at;
    if (number != state.plan.at && !later) return Fault::None;
    state.hit = true;
    return state.plan.fault;
}

/// For calls that either happen or do not.
template <typename Call>
int Whole(const std::string& name, Call&& call) {
    switch (Meet(name)) {
        case Fault::Die:
        case Fault::DieHalfway:
            Die();
            break;
        case Fault::Fail:
        case Fault::FailFromNow:
            errno = state.plan.code;
            return -1;
        default:
            break;
    }
    return call();
}

template <typename Write>
ssize_t Partial(const std::string& name, size_t size, Write&& write) {
    switch (Meet(name)) {
        case Fault::Die:
            Die();
            break;
        case Fault::DieHalfway:
            write(size / 2);
            Die();
            break;
        case Fault::Fail:
        case Fault::FailFromNow:
            errno = state.plan.code;
            return -1;
        case Fault::Short:
            return write(std::max<size_t>(size / 2, 1));
        default:
            break;
    }
    return write(size);
}

bool IsFolder(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

Injection::Injection(Plan plan) {
    state = {};
    state.plan = std::move(plan);
    state.active = true;
}
Injection::~Injection() {
    state.active = false;
}
const std::vector<std::string>& Injection::Calls() const {
    return state.calls;
}
const std::vector<std::string>& Injection::CreatedAnew() const {
    return state.created;
}
bool Injection::Hit() const {
    return state.hit;
}

}  // namespace crash

extern "C" {

ssize_t __wrap_write(int file, const void* bytes, size_t size) {
    return crash::Partial("write", size,
                          [&](size_t part) { return __real_write(file, bytes, part); });
}
ssize_t __wrap_pwrite(int file, const void* bytes, size_t size, off_t at) {
    return crash::Partial("pwrite", size,
                          [&](size_t part) { return __real_pwrite(file, bytes, part, at); });
}
int __wrap_fsync(int file) {
    return crash::Whole(crash::IsFolder(file) ? "fsync folder" : "fsync",
                        [&] { return __real_fsync(file); });
}
int __wrap_rename(const char* from, const char* to) {
    return crash::Whole("rename", [&] { return __real_rename(from, to); });
}
int __wrap_unlink(const char* path) {
    return crash::Whole("unlink", [&] { return __real_unlink(path); });
}
int __wrap_fdatasync(int file) {
    return crash::Whole("fdatasync", [&] { return __real_fdatasync(file); });
}
int __wrap_renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned how) {
    return crash::Whole("exchange",
                        [&] { return __real_renameat2(fromFolder, from, toFolder, to, how); });
}
int __wrap_fcntl(int file, int command, ...) {
    va_list rest;
    va_start(rest, command);
    const long argument = va_arg(rest, long);
    va_end(rest);
    const auto call = [&] { return __real_fcntl(file, command, argument); };
    return command == F_SETLEASE && argument == F_WRLCK ? crash::Whole("lease", call) : call();
}
int __wrap_ftruncate(int file, off_t size) {
    return crash::Whole("ftruncate", [&] { return __real_ftruncate(file, size); });
}
int __wrap_fchmod(int file, mode_t mode) {
    return crash::Whole("fchmod", [&] { return __real_fchmod(file, mode); });
}
int __wrap_fchown(int file, uid_t user, gid_t group) {
    return crash::Whole("fchown", [&] { return __real_fchown(file, user, group); });
}
int __wrap_open(const char* path, int flags, ...) {
    mode_t mode = 0;
    if ((flags & O_CREAT) != 0) {
        va_list rest;
        va_start(rest, flags);
        mode = va_arg(rest, mode_t);
        va_end(rest);
    }
    constexpr int kAnew = O_CREAT | O_EXCL | O_NOFOLLOW;
    if (crash::state.active && (flags & kAnew) == kAnew) crash::state.created.emplace_back(path);
    return crash::Whole("open", [&] { return __real_open(path, flags, mode); });
}
}
// NOLINTEND(bugprone-reserved-identifier)
