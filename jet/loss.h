#pragma once
// What a file lacks that it says it has.

#include <cstdint>
#include <string>

namespace jet {

/// A file that was cut off, or lost pages in its middle. It is read-only: new pages would take the
/// numbers of lost ones, which rows still point to.
struct Loss {
    /// Rows in the users' tables: those that are there, and those that the tables say they have. A
    /// table whose definition is lost counts in neither.
    std::uint64_t rowsFound = 0, rowsStated = 0;
    std::string what;  ///< the first thing missing: one English line for developers
};

}  // namespace jet
