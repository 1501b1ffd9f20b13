#include "widgets/rules/legendcolumns.h"

#include <algorithm>

namespace {

std::size_t ColumnsFor(std::size_t entries, int height, int entryHeight) {
    const auto rows = static_cast<std::size_t>(std::max(1, height / std::max(1, entryHeight)));
    return std::max<std::size_t>(1, (entries + rows - 1) / rows);
}

}  // namespace

bool LegendFits(std::size_t entries, LegendEntrySize size, LegendRoom room) {
    const int narrowest = std::max(1, std::min(size.narrowest, size.widest));
    const auto readable = static_cast<std::size_t>(std::max(1, room.width / narrowest));
    return ColumnsFor(entries, room.height, size.height) <= readable;
}

int LegendColumnWidth(std::size_t entries, LegendEntrySize size, LegendRoom room) {
    const int narrowest = std::max(1, std::min(size.narrowest, size.widest));
    const auto readable = static_cast<std::size_t>(std::max(1, room.width / narrowest));
    const std::size_t needed = ColumnsFor(entries, room.height, size.height);
    const std::size_t columns = std::min(needed, readable);
    const int share = room.width / static_cast<int>(columns);
    return std::max(1, std::min({share, std::max(size.widest, 1), room.width}));
}
