#pragma once
// Both versions of the format as a test's parameter, which says its name.

#include "jet/storage/layout.h"

#include <gtest/gtest.h>
#include <ostream>

namespace jet::detail {

inline void PrintTo(const Layout* layout, std::ostream* out) {
    *out << "Jet" << layout->version;
}

}  // namespace jet::detail

#define INSTANTIATE_FOR_BOTH_VERSIONS(suite)                                            \
    INSTANTIATE_TEST_SUITE_P(Both, suite,                                               \
                             testing::Values(&jet::detail::kJet3, &jet::detail::kJet4), \
                             testing::PrintToStringParamName())
