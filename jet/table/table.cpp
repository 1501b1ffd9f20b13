#include "jet/table/table.h"

#include "jet/storage/usagemap.h"
#include "jet/table/longvalue.h"
#include "jet/table/tabledefbytes.h"

#include <algorithm>
#include <limits>
#include <random>

namespace jet::detail {

namespace {

constexpr std::size_t kPointerSize = 4, kMaxPointerDepth = 4;
/// A page with less room than this is no place for a new row.
constexpr std::size_t kFewBytes = 32;
/// Row numbers of a page without rows are worth giving out again from here on.
constexpr std::size_t kManySlots = 16;

std::vector<std::uint8_t> PointerBytes(RowPointer to) {
    std::vector<std::uint8_t> bytes(kPointerSize, 0);
    PutU32(bytes, 0, to.Packed());
    return bytes;
}

Guid RandomGuid() {
    std::random_device random;
    Guid guid;
    for (std::uint8_t& byte : guid.bytes) byte = static_cast<std::uint8_t>(random());
    guid.bytes[6] = static_cast<std::uint8_t>((guid.bytes[6] & 0x0F) | 0x40);  // version: random
    guid.bytes[8] = static_cast<std::uint8_t>((guid.bytes[8] & 0x3F) | 0x80);
    return guid;
}

}  // namespace

TableStore::TableStore(PageFile& file, std::uint32_t definitionPage)
    : file_(&file), def_(ReadTableDef(file, definitionPage)) {
    hasLongValues_ = std::any_of(def_.columns.begin(), def_.columns.end(),
                                 [](const ColumnDef& column) { return column.IsLongValue(); });
}

void TableStore::Reload() noexcept {
    ReloadCounters(*file_, def_);
}

std::vector<std::uint32_t> TableStore::DataPages() const {
    std::vector<std::uint32_t> pages = UsageMap(*file_, def_.ownedMap).Pages();
    std::erase_if(pages, [&](std::uint32_t page) { return !IsOurs(page); });
    return pages;
}

std::uint64_t TableStore::CountRows() const {
    const Layout& layout = file_->Format();
    std::uint64_t rows = 0;
    for (const std::uint32_t number : DataPages()) {
        const DataPage page(*file_, number);
        const std::size_t slots = std::min(page.SlotCount(), kMaxSlot + 1);
        const ByteView entries = Part(file_->Page(number), layout.slots, kSlotSize * slots, number);
        for (std::size_t at = 1; at < entries.size(); at += kSlotSize) {
            rows += (entries[at] & (kSlotHidden >> 8)) == 0 ? 1U : 0U;
        }
    }
    return rows;
}

TableStore::Place TableStore::Follow(RowPointer from, ByteView pointer) const {
    Place place;
    place.trail.push_back(from);
    for (std::size_t depth = 0; depth < kMaxPointerDepth; ++depth) {
        const RowPointer to = RowPointer::FromPacked(U32(pointer, 0, from.page));
        if (!IsOurs(to.page)) ThrowDamaged(from.page, from.row, "a row moved out of its table");
        const DataPage page(*file_, to.page);
        const Slot slot = page.At(to.row);
        if (slot.Deleted()) ThrowDamaged(from.page, from.row, "a row moved to a deleted place");
        place.at = to;
        place.slot = slot;
        if (!slot.IsPointer()) return place;
        place.trail.push_back(to);
        pointer = page.Bytes(slot);
    }
    ThrowDamaged(from.page, from.row, "a row moved too often");
}

std::optional<TableStore::Place> TableStore::Find(RowPointer where) const {
    if (!IsOurs(where.page)) return std::nullopt;
    const DataPage page(*file_, where.page);
    if (where.row >= page.SlotCount()) return std::nullopt;
    const Slot slot = page.At(where.row);
    if (slot.Hidden()) return std::nullopt;
    if (slot.IsPointer()) return Follow(where, page.Bytes(slot));
    return Place{where, slot, {}};
}

bool TableStore::Exists(RowPointer where) const {
    return Find(where).has_value();
}

RowView TableStore::ReadElsewhere(RowPointer where) const {
    const std::optional<Place> place = Find(where);
    if (!place) {
        throw Error{ErrorNumber::RecordDeleted, "row " + Decimal(where.row) + " of page " +
                                                    Decimal(where.page) + " is not there"};
    }
    return {file_->Format(), def_, DataPage(*file_, place->at.page).Bytes(place->slot), where};
}

Value TableStore::Field(RowPointer where, std::size_t position) const {
    return DecodeColumn(*file_, def_.columns.at(position), Read(where));
}

void TableStore::FillAutonumbers(std::vector<Value>& values) const {
    for (std::size_t i = 0; i < def_.columns.size() && i < values.size(); ++i) {
        const ColumnDef& column = def_.columns[i];
        if (!column.Autonumber() || !values[i].IsNull()) continue;
        if (column.Type() == ColumnType::Guid) {
            values[i] = RandomGuid();
            continue;
        }
        const auto last = static_cast<std::int32_t>(def_.autonumber);
        if (last == std::numeric_limits<std::int32_t>::max()) {
            throw Error{ErrorNumber::Overflow, "column " + column.name + ": no number is left"};
        }
        values[i] = last + 1;
    }
}

RowPointer TableStore::Insert(std::span<const Value> values) {
    CheckCount(values.size());
    std::vector<StoredColumn> columns;
    columns.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        columns.push_back(EncodeValue(*file_, def_, def_.columns[i], values[i]));
        KeepCounter(def_.columns[i], values[i]);
    }
    const RowPointer where = AddSomewhere(BuildRow(file_->Format(), def_, columns), 0);
    StoreRowCount(*file_, def_, def_.rowCount + 1);
    return where;
}

void TableStore::Update(RowPointer where, std::span<const std::optional<Value>> values) {
    CheckCount(values.size());
    const RowView old = Read(where);
    std::vector<StoredColumn> columns(values.size());
    std::vector<std::pair<std::size_t, std::vector<std::uint8_t>>> replaced;  // long values
    for (std::size_t i = 0; i < values.size(); ++i) {
        const ColumnDef& column = def_.columns[i];
        const ByteView raw = old.Raw(column);
        if (!values[i]) {
            const bool bit = column.Type() == ColumnType::Boolean && old.Bit(column);
            columns[i] = {bit || !old.IsNull(column), {raw.begin(), raw.end()}};
            if (column.Type() == ColumnType::Boolean) columns[i].notNull = bit;
        } else if (column.IsLongValue() && !raw.empty()) {
            replaced.emplace_back(i, std::vector<std::uint8_t>(raw.begin(), raw.end()));
        }
    }
    // The row's bytes are copied: from here on pages change.
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!values[i]) continue;
        columns[i] = EncodeValue(*file_, def_, def_.columns[i], *values[i]);
        KeepCounter(def_.columns[i], *values[i]);
    }
    const std::vector<std::uint8_t> row = BuildRow(file_->Format(), def_, columns);
    for (const auto& [position, descriptor] : replaced) {
        FreeLongValue(*file_, def_, def_.columns[position], descriptor);
    }
    if (const std::optional<Place> place = Find(where)) PutBack(where, *place, row);
}

void TableStore::Delete(RowPointer where) {
    const RowView row = Read(where);
    std::vector<std::pair<std::size_t, std::vector<std::uint8_t>>> values;
    for (std::size_t i = 0; i < def_.columns.size(); ++i) {
        if (!def_.columns[i].IsLongValue()) continue;
        const ByteView raw = row.Raw(def_.columns[i]);
        if (!raw.empty()) values.emplace_back(i, std::vector<std::uint8_t>(raw.begin(), raw.end()));
    }
    const std::optional<Place> place = Find(where);
    for (const auto& [position, descriptor] : values) {
        FreeLongValue(*file_, def_, def_.columns[position], descriptor);
    }
    if (place) {
        DropRow(place->at);
        for (const RowPointer step : place->trail) DropRow(step);
    }
    StoreRowCount(*file_, def_, def_.rowCount == 0 ? 0 : def_.rowCount - 1);
}

void TableStore::Delete(std::span<const std::uint32_t> rows) {
    std::vector<std::uint32_t> plain;
    for (const std::uint32_t packed : rows) {
        if (IsPlain(RowPointer::FromPacked(packed))) {
            plain.push_back(packed);
        } else {
            Delete(RowPointer::FromPacked(packed));
        }
    }
    if (!std::is_sorted(plain.begin(), plain.end())) std::sort(plain.begin(), plain.end());
    std::vector<std::uint8_t> ofPage;
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const RowPointer row = RowPointer::FromPacked(plain[i]);
        ofPage.push_back(row.row);
        const bool last =
            i + 1 == plain.size() || RowPointer::FromPacked(plain[i + 1]).page != row.page;
        if (!last) continue;
        DropRows(row.page, ofPage);
        ofPage.clear();
    }
    const auto gone = static_cast<std::uint32_t>(plain.size());
    if (gone > 0) StoreRowCount(*file_, def_, def_.rowCount - std::min(def_.rowCount, gone));
}

/// Whether the row's bytes in its own slot are all there is of it.
bool TableStore::IsPlain(RowPointer where) const {
    if (hasLongValues_ || !IsOurs(where.page)) return false;
    const DataPage page(*file_, where.page);
    return where.row < page.SlotCount() && page.At(where.row).flags == 0;
}

void TableStore::CheckCount(std::size_t count) const {
    if (count == def_.columns.size()) return;
    throw Error{ErrorNumber::InvalidProcedureCall,
                Decimal(count) + " values for " + Decimal(def_.columns.size()) + " columns"};
}

void TableStore::KeepCounter(const ColumnDef& column, const Value& value) {
    if (!column.Autonumber() || column.Type() != ColumnType::Long) return;
    const auto* number = std::get_if<std::int32_t>(&value.Held());
    if (number == nullptr || *number <= static_cast<std::int32_t>(def_.autonumber)) return;
    StoreAutonumber(*file_, def_, static_cast<std::uint32_t>(*number));
}

RowPointer TableStore::AddSomewhere(ByteView row, std::uint16_t flags) {
    UsageMap freePages(*file_, def_.freeMap);
    const std::vector<std::uint32_t> pages = freePages.Pages();
    for (auto page = pages.rbegin(); page != pages.rend(); ++page) {
        if (IsOurs(*page)) {
            Refresh(*page);
            if (DataPage(*file_, *page).HasRoomFor(row.size())) {
                const RowPointer where = AddRow(*file_, *page, row, flags);
                if (DataPage(*file_, *page).FreeBytes() < kFewBytes) freePages.Remove(*page);
                return where;
            }
        }
        freePages.Remove(*page);
    }
    const std::uint32_t page = AllocatePage(*file_);
    FormatDataPage(*file_, page, def_.page);
    UsageMap(*file_, def_.ownedMap).Add(page);
    freePages.Add(page);
    return AddRow(*file_, page, row, flags);
}

/// Gives out the row numbers of a page again when none of its rows is left, but not where we
/// deleted one of them since the file was opened: somebody may still hold its pointer and must find
/// it deleted.
void TableStore::Refresh(std::uint32_t page) {
    if (deletedHere_.contains(page)) return;
    const DataPage rows(*file_, page);
    if (rows.SlotCount() < kManySlots || !rows.AllDeleted()) return;
    FormatDataPage(*file_, page, def_.page);
}

void TableStore::DropRow(RowPointer where) {
    DeleteRow(*file_, where);
    deletedHere_.insert(where.page);
    NoteFreeSpace(where.page);
}

void TableStore::DropRows(std::uint32_t page, std::span<const std::uint8_t> rows) {
    DeleteRows(*file_, page, rows);
    deletedHere_.insert(page);
    NoteFreeSpace(page);
}

void TableStore::NoteFreeSpace(std::uint32_t page) {
    UsageMap freePages(*file_, def_.freeMap);
    if (!DataPage(*file_, page).HasRoomFor(kFewBytes) || freePages.Contains(page)) return;
    freePages.Add(page);
}

void TableStore::PutBack(RowPointer where, const Place& place, ByteView row) {
    if (CanResizeRow(*file_, place.at, row.size())) {
        const bool shorter = row.size() < place.slot.Length();
        ReplaceRow(*file_, place.at, row, place.slot.flags);
        if (shorter) NoteFreeSpace(place.at.page);
        return;
    }
    if (place.at != where) {
        // It has moved before and must move again: never a pointer to a pointer.
        DropRow(place.at);
        for (const RowPointer step : place.trail) {
            if (step != where) DropRow(step);
        }
    }
    const RowPointer moved = AddSomewhere(row, kSlotHidden);
    ReplaceRow(*file_, where, PointerBytes(moved), kSlotPointer);
    NoteFreeSpace(where.page);
}

}  // namespace jet::detail
