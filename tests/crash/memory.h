#pragma once
// Memory that runs out: the test program's own operator new, which fails when it is told to.

#include <cstddef>

namespace crash {

enum class Shortage {
    Once,        ///< one allocation fails, the later ones succeed
    FromThenOn,  ///< it and every later one fail
};

/// While one of these lives, the allocation with the number `at` (from 0) fails.
class MemoryShortage {
  public:
    MemoryShortage(std::size_t at, Shortage kind);
    ~MemoryShortage();
    MemoryShortage(const MemoryShortage&) = delete;
    MemoryShortage& operator=(const MemoryShortage&) = delete;

    /// Whether there were so many allocations.
    bool Hit() const;
    std::size_t Counted() const;
};

}  // namespace crash
