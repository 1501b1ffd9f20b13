#pragma once
// The rows of one table on their pages: scan, read, insert, update, delete.
// Indexes are others' business.

#include "jet/storage/bytes.h"
#include "jet/storage/datapage.h"
#include "jet/storage/pagefile.h"
#include "jet/table/rowcodec.h"
#include "jet/table/tabledef.h"
#include "jet/value.h"

#include <cstdint>
#include <optional>
#include <span>
#include <type_traits>
#include <unordered_set>
#include <vector>

namespace jet::detail {

/// Every edit is to stand inside PageFile::Begin and Commit; when one throws, roll its level back
/// and call Reload. Views (RowView, ByteView) are good until the next edit of the file.
class TableStore {
  public:
    TableStore(PageFile& file, std::uint32_t definitionPage);

    PageFile& File() const { return *file_; }
    const TableDef& Def() const { return def_; }
    TableDef& EditDef() { return def_; }  ///< for StoreDistinctKeys and the name
    /// Reads the definition's counters anew, after a rollback.
    void Reload() noexcept;

    /// Calls visitor(RowPointer, const RowView&) for each row in stored order; a visitor that
    /// returns bool ends the scan with false. The pointer is the row's identity, also when the row
    /// itself has moved. A row that is damaged throws. The visitor must not edit this table.
    template <typename Visitor>
    void Scan(Visitor&& visitor) const;

    /// The data pages, ascending: those of the owned map that are this table's.
    std::vector<std::uint32_t> DataPages() const;

    /// How many rows a scan would find, by the slots alone: quick enough for every opening.
    std::uint64_t CountRows() const;

    /// The row's present bytes. Throws RecordDeleted when it is gone or was never there.
    RowView Read(RowPointer where) const;
    bool Exists(RowPointer where) const;
    Value Field(RowPointer where, std::size_t position) const;

    /// Gives null autonumber columns their next value (Guid: a random one).
    /// Changes nothing in the file.
    void FillAutonumbers(std::vector<Value>& values) const;
    /// Adds a row; `values` has one for each of Def().columns.
    /// Counts it and keeps the autonumber counter.
    RowPointer Insert(std::span<const Value> values);
    /// Gives the row new values where there is one; the other columns keep their bytes.
    /// Its pointer stays.
    void Update(RowPointer where, std::span<const std::optional<Value>> values);
    /// Takes the row, its overflow place and its long values away.
    void Delete(RowPointer where);
    /// Many at once (packed pointers): each page is put in order once.
    void Delete(std::span<const std::uint32_t> rows);

  private:
    /// Where a row's bytes are: the slot itself, or the end of its pointer.
    struct Place {
        RowPointer at;
        Slot slot;
        std::vector<RowPointer>
            trail;  ///< a moved row: the pointers on the way, its own slot first
    };
    bool IsOurs(std::uint32_t page) const;
    std::optional<Place> Find(RowPointer where) const;
    RowView ReadElsewhere(RowPointer where) const;  ///< a row that moved, or is gone
    Place Follow(RowPointer from, ByteView pointer) const;
    RowPointer AddSomewhere(ByteView row, std::uint16_t flags);
    void PutBack(RowPointer where, const Place& place, ByteView row);
    void DropRow(RowPointer where);
    void DropRows(std::uint32_t page, std::span<const std::uint8_t> rows);
    bool IsPlain(RowPointer where) const;
    void Refresh(std::uint32_t page);
    void NoteFreeSpace(std::uint32_t page);
    void KeepCounter(const ColumnDef& column, const Value& value);
    void CheckCount(std::size_t count) const;

    PageFile* file_;
    TableDef def_;
    bool hasLongValues_ = false;
    std::unordered_set<std::uint32_t>
        deletedHere_;  ///< pages on which rows were deleted since opening
};

inline bool TableStore::IsOurs(std::uint32_t page) const {
    constexpr std::size_t kOwner = 4;
    if (page == 0 || page >= file_->PageCount()) return false;
    const ByteView bytes = file_->Page(page);
    return bytes[0] == kDataPage && U32(bytes, kOwner, page) == def_.page;
}

inline RowView TableStore::Read(RowPointer where) const {
    if (IsOurs(where.page)) [[likely]] {
        const DataPage page(*file_, where.page);
        if (where.row < page.SlotCount()) {
            const Slot slot = page.At(where.row);
            if (slot.flags == 0) return {file_->Format(), def_, page.Bytes(slot), where};
        }
    }
    return ReadElsewhere(where);
}

template <typename Visitor>
void TableStore::Scan(Visitor&& visitor) const {
    const Layout& layout = file_->Format();
    for (const std::uint32_t number : DataPages()) {
        const DataPage page(*file_, number);
        for (std::size_t row = 0; row < page.SlotCount() && row <= kMaxSlot; ++row) {
            const Slot slot = page.At(row);
            if (slot.Hidden()) continue;
            const RowPointer where{number, static_cast<std::uint8_t>(row)};
            const ByteView bytes = slot.IsPointer()
                                       ? RowAt(*file_, Follow(where, page.Bytes(slot)).at)
                                       : page.Bytes(slot);
            const RowView view(layout, def_, bytes, where);
            if constexpr (std::is_same_v<decltype(visitor(where, view)), bool>) {
                if (!visitor(where, view)) return;
            } else {
                visitor(where, view);
            }
        }
    }
}

}  // namespace jet::detail
