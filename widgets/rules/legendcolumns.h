#pragma once
// The columns in which a legend lists its entries.

#include <cstddef>

struct LegendRoom {
    int width = 0, height = 0;  ///< in pixels
};

struct LegendEntrySize {
    int narrowest = 1;  ///< that can be read
    int widest = 1;     ///< that an entry needs
    int height = 1;
};

/// All entries can be seen and read at once.
bool LegendFits(std::size_t entries, LegendEntrySize size, LegendRoom room);
/// How wide each column is. If all entries can be seen at once they have the columns they need;
/// else as many columns stand side by side as can be read, and the rest is scrolled to. No column
/// is wider than the widest entry, or the room.
int LegendColumnWidth(std::size_t entries, LegendEntrySize size, LegendRoom room);
