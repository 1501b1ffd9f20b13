#pragma once
// Makes the engine's system calls fail, or the process die at one of them. The linker puts our
// functions in the place of write, fsync, rename and the others;
// the engine itself knows nothing of it.

#include <string>
#include <vector>

namespace crash {

enum class Fault {
    None,
    Die,          ///< the process is killed before the call
    DieHalfway,   ///< a write does half its work, then the process is killed; other calls as Die
    Fail,         ///< the call fails with `code`
    FailFromNow,  ///< it and every later call of the same name fail with `code`
    Short,        ///< a write does half its work and says so
};

struct Plan {
    Fault fault = Fault::None;
    std::size_t at = 0;  ///< the call that is hit, from 0
    std::string only;    ///< count only calls of this name; empty = all
    int code = 0;        ///< errno
};

/// The calls made while one of these lives, and the fault that meets them.
class Injection {
  public:
    explicit Injection(Plan plan);
    ~Injection();
    Injection(const Injection&) = delete;
    Injection& operator=(const Injection&) = delete;

    /// The names of the calls so far: "open", "write", "pwrite", "fsync", "fdatasync", "fsync
    /// folder", "rename", "exchange", "lease", "unlink", "ftruncate", "fchmod", "fchown".
    const std::vector<std::string>& Calls() const;
    /// The paths of files that were created, each as a new one and never through a link.
    const std::vector<std::string>& CreatedAnew() const;
    bool Hit() const;
};

}  // namespace crash
