#pragma once
// What a journal may hold, and what its caller says of a step.

#include <cstddef>
#include <string>

namespace jet {

/// The oldest steps are forgotten first.
struct JournalLimits {
    std::size_t steps = 200;
    std::size_t bytes = std::size_t{64} * 1024 * 1024;
};

/// The caller's own words about a step; the library reads neither.
struct JournalNote {
    std::string name, remark;
    bool operator==(const JournalNote&) const = default;
};

}  // namespace jet
