#include "jet/storage/datapage.h"

#include <algorithm>
#include <cstring>

namespace jet::detail {

namespace {

constexpr std::size_t kFreeBytes = 2, kOwner = 4;

void StoreFreeBytes(PageFile& file, std::uint32_t page) {
    const std::size_t free = DataPage(file, page).FreeBytes();
    PutU16(file.EditPage(page), kFreeBytes, static_cast<std::uint16_t>(free));
}

}  // namespace

void DataPage::ThrowNoSlot(std::size_t row) const {
    ThrowDamaged(number_, layout_->slotCount, "no row " + Decimal(row));
}

void DataPage::ThrowOutOfRoom(std::size_t row) const {
    ThrowDamaged(number_, layout_->slots + kSlotSize * row,
                 "row " + Decimal(row) + " lies outside its room");
}

std::size_t DataPage::FreeBytes() const {
    const std::size_t tableEnd = layout_->slots + kSlotSize * slotCount_;
    const std::size_t lowest = slotCount_ == 0 ? bytes_.size() : At(slotCount_ - 1).start;
    return lowest - tableEnd;
}

bool DataPage::HasRoomFor(std::size_t length) const {
    return slotCount_ <= kMaxSlot && FreeBytes() >= length + kSlotSize;
}

bool DataPage::AllDeleted() const {
    for (std::size_t row = 0; row < slotCount_; ++row) {
        if (!At(row).Deleted()) return false;
    }
    return true;
}

void FormatDataPage(PageFile& file, std::uint32_t page, std::uint32_t owner) {
    const ByteSpan bytes = file.EditPage(page);
    std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
    PutU8(bytes, 0, kDataPage);
    PutU8(bytes, 1, 1);
    PutU16(bytes, kFreeBytes, static_cast<std::uint16_t>(file.Format().FreeInEmptyDataPage()));
    PutU32(bytes, kOwner, owner);
}

RowPointer AddRow(PageFile& file, std::uint32_t page, ByteView row, std::uint16_t flags) {
    const DataPage before(file, page);
    if (!before.HasRoomFor(row.size())) ThrowDamaged(page, kFreeBytes, "no room for a row");
    const std::size_t count = before.SlotCount();
    const std::size_t end = count == 0 ? file.Format().pageSize : before.At(count - 1).start;
    const std::size_t start = end - row.size();
    const ByteSpan bytes = file.EditPage(page);
    PutBytes(bytes, start, row);
    PutU16(bytes, file.Format().slots + kSlotSize * count,
           static_cast<std::uint16_t>(start | flags));
    PutU16(bytes, file.Format().slotCount, static_cast<std::uint16_t>(count + 1));
    StoreFreeBytes(file, page);
    return {page, static_cast<std::uint8_t>(count)};
}

bool CanResizeRow(const PageFile& file, RowPointer where, std::size_t length) {
    const DataPage page(file, where.page);
    return page.At(where.row).Length() + page.FreeBytes() >= length;
}

void ReplaceRow(PageFile& file, RowPointer where, ByteView row, std::uint16_t flags) {
    const DataPage page(file, where.page);
    const Slot slot = page.At(where.row);
    const std::size_t count = page.SlotCount();
    if (!CanResizeRow(file, where, row.size())) {
        ThrowDamaged(where.page, kFreeBytes, "no room for a longer row");
    }
    // Each slot from here on is looked at: in a damaged page one in between may lie anywhere.
    std::size_t lowest = slot.start;
    for (std::size_t later = where.row; later < count; ++later) lowest = page.At(later).start;
    const auto shift =
        static_cast<std::ptrdiff_t>(slot.Length()) - static_cast<std::ptrdiff_t>(row.size());
    const ByteSpan bytes = file.EditPage(where.page);
    // Every later row lies below this one and moves with its lower edge.
    std::memmove(bytes.data() + static_cast<std::ptrdiff_t>(lowest) + shift, bytes.data() + lowest,
                 slot.start - lowest);
    PutBytes(bytes, slot.end - row.size(), row);
    for (std::size_t later = where.row; later < count; ++later) {
        const std::size_t place = file.Format().slots + kSlotSize * later;
        const std::uint16_t entry = U16(bytes, place, where.page);
        const auto start = static_cast<std::size_t>((entry & kSlotPlace) + shift);
        const auto kept =
            static_cast<std::uint16_t>(later == where.row ? flags : entry & kSlotFlags);
        PutU16(bytes, place, static_cast<std::uint16_t>(start | kept));
    }
    StoreFreeBytes(file, where.page);
}

void DeleteRow(PageFile& file, RowPointer where) {
    ReplaceRow(file, where, {}, kSlotDeleted);
}

void DeleteRows(PageFile& file, std::uint32_t page, std::span<const std::uint8_t> rows) {
    if (rows.empty()) return;
    const DataPage before(file, page);
    // Every slot is looked at before a byte moves: in a damaged page one may lie anywhere.
    std::vector<Slot> slots;
    for (std::size_t row = rows.front(); row < before.SlotCount(); ++row) {
        slots.push_back(before.At(row));
    }
    CheckRange(before.SlotCount(), rows.back(), 1, page);
    const ByteSpan bytes = file.EditPage(page);
    std::size_t shift = 0, gone = 0, row = rows.front();
    for (const Slot& slot : slots) {
        const bool goes = gone < rows.size() && rows[gone] == row;
        if (goes) {
            ++gone;
            shift += slot.Length();
        } else {
            std::memmove(&bytes[0] + slot.start + shift, &bytes[0] + slot.start, slot.Length());
        }
        PutU16(
            bytes, file.Format().slots + kSlotSize * row,
            static_cast<std::uint16_t>((slot.start + shift) | (goes ? kSlotDeleted : slot.flags)));
        ++row;
    }
    StoreFreeBytes(file, page);
}

ByteView RowAt(const PageFile& file, RowPointer where) {
    return DataPage(file, where.page).Row(where.row);
}

ByteSpan EditRowAt(PageFile& file, RowPointer where) {
    const Slot slot = DataPage(file, where.page).At(where.row);
    return Part(file.EditPage(where.page), slot.start, slot.Length(), where.page);
}

}  // namespace jet::detail
