#pragma once
// What a change of the pages replaced: all that is needed to go back.

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace jet::detail {

struct EarlierPages {
    std::uint32_t pageCount = 0;
    /// Of pages that there were, as they were; those that are not here did not change.
    std::map<std::uint32_t, std::unique_ptr<std::uint8_t[]>> images;
    std::optional<std::vector<std::uint32_t>> freed;  ///< none: unchanged
    bool changed = false;

    /// Takes over from what happened after this; takes no memory.
    /// What is kept here is older and stays.
    void Join(EarlierPages&& later) noexcept {
        changed = changed || later.changed;
        if (!freed) freed = std::move(later.freed);
        later.images.erase(later.images.lower_bound(pageCount), later.images.end());
        images.merge(later.images);
    }
};

}  // namespace jet::detail
