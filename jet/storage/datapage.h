#pragma once
// The slots of a data page: rows (or long values, or usage maps) packed from the page's end, slot
// order = position order. Knows nothing of what the rows mean.

#include "jet/storage/bytes.h"
#include "jet/storage/pagefile.h"

#include <cstdint>
#include <span>

namespace jet::detail {

inline constexpr std::uint16_t kSlotHidden =
    0x8000;  ///< deleted, or the target of an overflow pointer
inline constexpr std::uint16_t kSlotPointer =
    0x4000;  ///< the bytes are a pointer to where the row is now
inline constexpr std::uint16_t kSlotDeleted = 0xC000;
inline constexpr std::uint16_t kSlotFlags = 0xE000;
inline constexpr std::uint16_t kSlotPlace = 0x1FFF;  ///< where the row begins
inline constexpr std::size_t kSlotSize = 2;
inline constexpr std::size_t kMaxSlot = 254;  ///< row numbers are one byte

struct Slot {
    std::uint16_t flags = 0;
    std::size_t start = 0, end = 0;
    std::size_t Length() const { return end - start; }
    bool Hidden() const { return (flags & kSlotHidden) != 0; }
    bool IsPointer() const { return (flags & kSlotPointer) != 0; }
    bool Deleted() const { return (flags & kSlotDeleted) == kSlotDeleted; }
};

/// A page of rows, read-only and checked: type, slot table and each slot's place.
class DataPage {
  public:
    DataPage(const PageFile& file, std::uint32_t page);
    std::uint32_t Number() const { return number_; }
    std::uint32_t Owner() const { return U32(bytes_, 4, number_); }
    std::size_t SlotCount() const { return slotCount_; }
    std::size_t FreeBytes() const;  ///< computed from the slots, not the stored field
    std::size_t StoredFreeBytes() const { return U16(bytes_, 2, number_); }
    Slot At(std::size_t row) const;  ///< throws NotADatabase for a row that is not there
    ByteView Bytes(const Slot& slot) const { return bytes_.subspan(slot.start, slot.Length()); }
    ByteView Row(std::size_t row) const { return Bytes(At(row)); }
    /// Whether a row of this length can be added.
    bool HasRoomFor(std::size_t length) const;
    bool AllDeleted() const;  ///< no row is left, though their numbers are taken

  private:
    [[noreturn]] void ThrowNoSlot(std::size_t row) const;
    [[noreturn]] void ThrowOutOfRoom(std::size_t row) const;

    const Layout* layout_;
    std::uint32_t number_;
    ByteView bytes_;
    std::size_t slotCount_;
};

inline DataPage::DataPage(const PageFile& file, std::uint32_t page)
    : layout_(&file.Format()), number_(page), bytes_(file.Page(page)) {
    if (bytes_[0] != kDataPage) ThrowDamaged(page, 0, "not a page of rows");
    slotCount_ = U16(bytes_, layout_->slotCount, page);
    if (layout_->slots + kSlotSize * slotCount_ > bytes_.size()) {
        ThrowDamaged(page, layout_->slotCount, "more slots than fit");
    }
}

// What reading many rows does for each of them: the slot's own place was checked with the page.
inline Slot DataPage::At(std::size_t row) const {
    if (row >= slotCount_) [[unlikely]]
        ThrowNoSlot(row);
    const std::size_t place = layout_->slots + kSlotSize * row;
    const auto entryAt = [&](std::size_t at) {
        return static_cast<std::uint16_t>(bytes_[at] | bytes_[at + 1] << 8U);
    };
    const std::uint16_t entry = entryAt(place);
    Slot slot{.flags = static_cast<std::uint16_t>(entry & kSlotFlags),
              .start = static_cast<std::size_t>(entry & kSlotPlace),
              .end = bytes_.size()};
    if (row > 0) slot.end = entryAt(place - kSlotSize) & kSlotPlace;
    if (slot.start < layout_->slots + kSlotSize * slotCount_ || slot.start > slot.end ||
        slot.end > bytes_.size()) [[unlikely]] {
        ThrowOutOfRoom(row);
    }
    return slot;
}

/// Makes `page` an empty data page of `owner` (a definition's page, kLongValueOwner,
/// or 0 for maps).
void FormatDataPage(PageFile& file, std::uint32_t page, std::uint32_t owner);
/// Adds a row; throws NotADatabase when it does not fit (ask HasRoomFor first).
RowPointer AddRow(PageFile& file, std::uint32_t page, ByteView row, std::uint16_t flags = 0);
/// Whether the row can be given this length where it is.
bool CanResizeRow(const PageFile& file, RowPointer where, std::size_t length);
/// Gives the row new bytes of any length that fits, and new flags.
void ReplaceRow(PageFile& file, RowPointer where, ByteView row, std::uint16_t flags);
/// Squeezes the row to nothing and marks its slot deleted; the row number stays taken.
void DeleteRow(PageFile& file, RowPointer where);
/// The same for many rows of one page, each moved once at most. `rows` are ascending.
void DeleteRows(PageFile& file, std::uint32_t page, std::span<const std::uint8_t> rows);
/// The bytes of a row that something points to (hidden slots included), checked.
ByteView RowAt(const PageFile& file, RowPointer where);
/// The same to write to, in its present length.
ByteSpan EditRowAt(PageFile& file, RowPointer where);

}  // namespace jet::detail
