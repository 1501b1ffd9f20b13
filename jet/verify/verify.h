#pragma once
// Looks at everything in a file and lists what contradicts itself: pages, maps, rows, long values,
// indexes, counts. Changes nothing; no input makes it hang or crash.

#include "jet/storage/pagefile.h"

#include <string>
#include <vector>

namespace jet::detail {

struct Findings {
    std::vector<std::string> faults;  ///< contradictions, one line each; empty = sound
    std::vector<std::string> notes;   ///< odd, but found in files that every engine accepts
};

Findings Verify(PageFile& file);

}  // namespace jet::detail
