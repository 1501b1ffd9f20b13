#include "jet/table/tabledef.h"

#include "jet/storage/layout.h"
#include "jet/table/names.h"

#include <algorithm>

namespace jet::detail {

const ColumnDef* TableDef::FindColumn(std::string_view columnName) const {
    const auto position = PositionOf(columnName);
    return position ? &columns[*position] : nullptr;
}

std::optional<std::size_t> TableDef::PositionOf(std::string_view columnName) const {
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (SameName(columns[i].name, columnName)) return i;
    }
    return std::nullopt;
}

std::optional<std::size_t> TableDef::PositionOfNumber(std::uint16_t number) const {
    const auto found = std::lower_bound(
        columns.begin(), columns.end(), number,
        [](const ColumnDef& c, std::uint16_t wanted) { return c.number < wanted; });
    if (found == columns.end() || found->number != number) return std::nullopt;
    return static_cast<std::size_t>(found - columns.begin());
}

const LogicalIndex* TableDef::PrimaryKey() const {
    for (const LogicalIndex& index : logicalIndexes) {
        if (index.kind == IndexKind::Primary) return &index;
    }
    return nullptr;
}

const LongValueMaps* TableDef::MapsOf(std::uint16_t columnNumber) const {
    for (const LongValueMaps& maps : longValueMaps) {
        if (maps.column == columnNumber) return &maps;
    }
    return nullptr;
}

void ReloadCounters(const PageFile& file, TableDef& def) noexcept {
    const Layout& layout = file.Format();
    const ByteView page = file.Page(def.page);
    def.rowCount = U32(page, layout.tdefRowCount);
    def.autonumber = U32(page, layout.tdefAutonumber);
    std::size_t place = layout.tdefHeader + kDistinctKeys;
    for (RealIndex& index : def.realIndexes) {
        // Counts on a further page of the definition are never changed.
        if (place + sizeof(std::uint32_t) > page.size()) return;
        index.distinctKeys = U32(page, place);
        place += layout.indexCountsSize;
    }
}

void StoreRowCount(PageFile& file, TableDef& def, std::uint32_t count) {
    PutU32(file.EditPage(def.page), file.Format().tdefRowCount, count);
    def.rowCount = count;
}

void StoreAutonumber(PageFile& file, TableDef& def, std::uint32_t last) {
    PutU32(file.EditPage(def.page), file.Format().tdefAutonumber, last);
    def.autonumber = last;
}

void StoreDistinctKeys(PageFile& file, TableDef& def, std::size_t realIndex, std::uint32_t count) {
    const Layout& layout = file.Format();
    const std::size_t place =
        layout.tdefHeader + layout.indexCountsSize * realIndex + kDistinctKeys;
    PutU32(file.EditPage(def.page), place, count);
    def.realIndexes[realIndex].distinctKeys = count;
}

}  // namespace jet::detail
