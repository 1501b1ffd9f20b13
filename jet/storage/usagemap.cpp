#include "jet/storage/usagemap.h"

#include "jet/storage/datapage.h"

#include <algorithm>
#include <bit>

namespace jet::detail {

namespace {

constexpr std::uint8_t kInline = 0, kReference = 1;
constexpr std::size_t kFirstPage = 1, kInlineBits = 5, kReferences = 1, kReferenceSize = 4;
constexpr std::size_t kMapPageBits = 4;
constexpr std::size_t kGrowStep = 4;
constexpr RowPointer kGlobalMap{1, 0};

bool BitAt(ByteView bits, std::size_t index) {
    return index / 8 < bits.size() && (bits[index / 8] >> (index % 8) & 1) != 0;
}
void PutBit(ByteSpan bits, std::size_t index, bool value) {
    CheckRange(bits.size(), index / 8, 1);
    const auto bit = static_cast<std::uint8_t>(1U << (index % 8));
    if (value) {
        bits[index / 8] |= bit;
    } else {
        bits[index / 8] &= static_cast<std::uint8_t>(~bit);
    }
}

/// A map's row, checked: its form and, for either form, its parts.
class MapRow {
  public:
    MapRow(const PageFile& file, RowPointer where) : row_(RowAt(file, where)), page_(where.page) {
        const std::uint8_t form = U8(row_, 0, page_);
        if (form > kReference) ThrowDamaged(page_, 0, "unknown form of a usage map");
        inline_ = form == kInline;
        if (inline_) CheckRange(row_.size(), 0, kInlineBits, page_);
    }
    bool IsInline() const { return inline_; }
    std::uint32_t First() const { return U32(row_, kFirstPage, page_); }
    ByteView Bits() const { return row_.subspan(kInlineBits); }
    std::uint64_t End() const { return First() + std::uint64_t{8} * Bits().size(); }
    bool Covers(std::uint32_t page) const { return page >= First() && page < End(); }
    std::size_t ReferenceCount() const { return (row_.size() - kReferences) / kReferenceSize; }
    std::uint32_t Reference(std::size_t index) const {
        return U32(row_, kReferences + kReferenceSize * index, page_);
    }
    std::size_t Size() const { return row_.size(); }

  private:
    ByteView row_;
    std::uint32_t page_;
    bool inline_;
};

void CheckMapPage(const PageFile& file, std::uint32_t page) {
    if (file.Page(page)[0] != kMapPage) ThrowDamaged(page, 0, "not a page of a usage map");
}

/// The bits of a reference's page; nothing for a reference that leads nowhere.
ByteView BitsOfReference(const PageFile& file, std::uint32_t page) {
    if (page == 0 || page >= file.PageCount()) return {};
    CheckMapPage(file, page);
    return file.Page(page).subspan(kMapPageBits);
}

ByteSpan EditBitsOfReference(PageFile& file, std::uint32_t page) {
    CheckMapPage(file, page);
    return file.EditPage(page).subspan(kMapPageBits);
}

void FormatMapPage(PageFile& file, std::uint32_t page, std::uint8_t fill) {
    const ByteSpan bytes = file.EditPage(page);
    std::fill(bytes.begin(), bytes.end(), fill);
    PutU32(bytes, 0, 0x00000100 | kMapPage);
}

void AppendPages(const PageFile& file, ByteView bits, std::uint64_t first,
                 std::vector<std::uint32_t>& pages) {
    for (std::size_t at = 0; at < bits.size(); ++at) {
        for (unsigned byte = bits[at]; byte != 0; byte &= byte - 1) {
            const std::uint64_t page =
                first + 8 * at + static_cast<unsigned>(std::countr_zero(byte));
            if (page >= file.PageCount()) return;
            if (page > 0) pages.push_back(static_cast<std::uint32_t>(page));
        }
    }
}

/// The first page in the set that is not below `from`; `first` is the page of the first bit.
std::optional<std::uint32_t> FirstSetFrom(ByteView bits, std::uint64_t first, std::uint64_t from) {
    const auto skipped = static_cast<std::size_t>(from > first ? from - first : 0);
    for (std::size_t bit = skipped; bit < 8 * bits.size(); ++bit) {
        if (BitAt(bits, bit)) return static_cast<std::uint32_t>(first + bit);
    }
    return std::nullopt;
}

// The global map: a set bit is a free page, and pages it does not cover yet are free.

void MarkInGlobal(PageFile& file, std::uint32_t page, bool free);

/// Makes the page of bits for range `index` of the global map, all pages that the file has marked
/// as used.
std::uint32_t AddGlobalMapPage(PageFile& file, std::size_t index) {
    const std::uint32_t mapPage = file.AppendPage();
    FormatMapPage(file, mapPage, 0xFF);
    const std::size_t perPage = file.Format().pagesPerMapPage;
    const ByteSpan bits = EditBitsOfReference(file, mapPage);
    for (std::size_t bit = 0; bit < perPage; ++bit) {
        if (index * perPage + bit >= file.PageCount()) break;
        PutBit(bits, bit, false);
    }
    return mapPage;
}

void ConvertGlobal(PageFile& file) {
    const std::size_t perPage = file.Format().pagesPerMapPage;
    const MapRow before(file, kGlobalMap);
    const std::uint32_t first = before.First();
    const std::vector<std::uint8_t> oldBits(before.Bits().begin(), before.Bits().end());
    std::vector<std::uint8_t> row(before.Size(), 0);
    row[0] = kReference;
    const std::size_t ranges = file.PageCount() / perPage + 1;
    for (std::size_t index = 0; index < ranges; ++index) {
        PutU32(row, kReferences + kReferenceSize * index, AddGlobalMapPage(file, index));
    }
    ReplaceRow(file, kGlobalMap, row, 0);
    for (std::size_t bit = 0; bit < 8 * oldBits.size(); ++bit) {
        const std::uint64_t page = std::uint64_t{first} + bit;
        if (page >= file.PageCount()) break;
        // A page made just now may stand where the old map still said "free".
        const bool isNew = page >= file.PageCount() - ranges;
        if (BitAt(oldBits, bit) && !isNew) {
            MarkInGlobal(file, static_cast<std::uint32_t>(page), true);
        }
    }
}

/// Lengthens the inline global map so that it covers `page`; false when its page has no room.
bool LengthenGlobal(PageFile& file, std::uint32_t page) {
    const MapRow map(file, kGlobalMap);
    const auto missing = static_cast<std::size_t>((page - map.End()) / 8 + 1);
    const std::size_t length = map.Size() + (missing + kGrowStep - 1) / kGrowStep * kGrowStep;
    if (length > file.Format().pageSize || !CanResizeRow(file, kGlobalMap, length)) return false;
    const ByteView old = RowAt(file, kGlobalMap);
    std::vector<std::uint8_t> row(old.begin(), old.end());
    row.resize(length, 0xFF);
    ReplaceRow(file, kGlobalMap, row, 0);
    return true;
}

void MarkInReferenceGlobal(PageFile& file, std::uint32_t page, bool free) {
    const std::size_t perPage = file.Format().pagesPerMapPage;
    const std::size_t index = page / perPage;
    const MapRow map(file, kGlobalMap);
    if (index >= map.ReferenceCount()) {
        throw Error{ErrorNumber::NotSupported, "the file's global map cannot grow further"};
    }
    std::uint32_t mapPage = map.Reference(index);
    if (mapPage == 0 || mapPage >= file.PageCount()) {
        mapPage = AddGlobalMapPage(file, index);
        PutU32(EditRowAt(file, kGlobalMap), kReferences + kReferenceSize * index, mapPage);
        if (mapPage / perPage != index) MarkInGlobal(file, mapPage, false);
    }
    PutBit(EditBitsOfReference(file, mapPage), page % perPage, free);
}

void MarkInGlobal(PageFile& file, std::uint32_t page, bool free) {
    const MapRow map(file, kGlobalMap);
    if (!map.IsInline()) {
        MarkInReferenceGlobal(file, page, free);
        return;
    }
    if (page < map.First()) return;
    if (page >= map.End()) {
        if (free) return;
        if (!LengthenGlobal(file, page)) {
            ConvertGlobal(file);
            MarkInGlobal(file, page, false);
            return;
        }
    }
    const MapRow grown(file, kGlobalMap);
    PutBit(EditRowAt(file, kGlobalMap).subspan(kInlineBits), page - grown.First(), free);
}

}  // namespace

bool UsageMap::Contains(std::uint32_t page) const {
    const MapRow map(*file_, where_);
    if (map.IsInline()) return map.Covers(page) && BitAt(map.Bits(), page - map.First());
    const std::size_t perPage = file_->Format().pagesPerMapPage;
    const std::size_t index = page / perPage;
    if (index >= map.ReferenceCount()) return false;
    return BitAt(BitsOfReference(*file_, map.Reference(index)), page % perPage);
}

std::vector<std::uint32_t> UsageMap::Pages() const {
    std::vector<std::uint32_t> pages;
    const MapRow map(*file_, where_);
    if (map.IsInline()) {
        AppendPages(*file_, map.Bits(), map.First(), pages);
        return pages;
    }
    const std::size_t perPage = file_->Format().pagesPerMapPage;
    for (std::size_t index = 0; index < map.ReferenceCount(); ++index) {
        if (index * perPage >= file_->PageCount()) break;
        AppendPages(*file_, BitsOfReference(*file_, map.Reference(index)), index * perPage, pages);
    }
    return pages;
}

std::optional<std::uint32_t> UsageMap::FirstBeyondEnd() const {
    const MapRow map(*file_, where_);
    if (map.IsInline()) return FirstSetFrom(map.Bits(), map.First(), file_->PageCount());
    const std::size_t perPage = file_->Format().pagesPerMapPage;
    for (std::size_t index = 0; index < map.ReferenceCount(); ++index) {
        const std::uint32_t reference = map.Reference(index);
        if (reference >= file_->PageCount()) return reference;
        const std::uint64_t first = std::uint64_t{index} * perPage;
        if (first + perPage <= file_->PageCount()) continue;
        const ByteView bits = BitsOfReference(*file_, reference);
        if (const auto page = FirstSetFrom(bits, first, file_->PageCount())) return page;
    }
    return std::nullopt;
}

void UsageMap::Add(std::uint32_t page) {
    const MapRow map(*file_, where_);
    if (!map.IsInline()) {
        SetInReference(page);
        return;
    }
    if (!map.Covers(page)) {
        AddOutsideInlineRange(page);
        return;
    }
    const std::size_t bit = page - map.First();
    PutBit(EditRowAt(*file_, where_).subspan(kInlineBits), bit, true);
}

void UsageMap::AddOutsideInlineRange(std::uint32_t page) {
    std::vector<std::uint32_t> pages = Pages();
    pages.push_back(page);
    const auto [lowest, highest] = std::minmax_element(pages.begin(), pages.end());
    const std::uint32_t first = *lowest / 8 * 8;
    const MapRow map(*file_, where_);
    std::vector<std::uint8_t> row(map.Size(), 0);
    if (*highest - first < 8 * map.Bits().size()) {
        PutU32(row, kFirstPage, first);
        const ByteSpan bits = ByteSpan(row).subspan(kInlineBits);
        for (const std::uint32_t member : pages) PutBit(bits, member - first, true);
        PutBytes(EditRowAt(*file_, where_), 0, row);
        return;
    }
    row[0] = kReference;
    PutBytes(EditRowAt(*file_, where_), 0, row);
    for (const std::uint32_t member : pages) SetInReference(member);
}

void UsageMap::SetInReference(std::uint32_t page) {
    const std::size_t perPage = file_->Format().pagesPerMapPage;
    const std::size_t index = page / perPage;
    const MapRow map(*file_, where_);
    if (index >= map.ReferenceCount()) {
        throw Error{ErrorNumber::NotSupported, "a usage map cannot grow further"};
    }
    std::uint32_t mapPage = map.Reference(index);
    if (mapPage == 0 || mapPage >= file_->PageCount()) {
        mapPage = AllocatePage(*file_);
        FormatMapPage(*file_, mapPage, 0);
        PutU32(EditRowAt(*file_, where_), kReferences + kReferenceSize * index, mapPage);
    }
    PutBit(EditBitsOfReference(*file_, mapPage), page % perPage, true);
}

void UsageMap::Remove(std::uint32_t page) {
    if (!Contains(page)) return;
    const MapRow map(*file_, where_);
    if (map.IsInline()) {
        const std::size_t bit = page - map.First();
        PutBit(EditRowAt(*file_, where_).subspan(kInlineBits), bit, false);
        return;
    }
    const std::size_t perPage = file_->Format().pagesPerMapPage;
    const std::uint32_t mapPage = map.Reference(page / perPage);
    PutBit(EditBitsOfReference(*file_, mapPage), page % perPage, false);
}

std::optional<UsageMap> SoundMap(PageFile& file, RowPointer where) {
    if (where.IsNull() || where.page >= file.PageCount()) return std::nullopt;
    if (file.Page(where.page)[0] != kDataPage) return std::nullopt;
    const DataPage page(file, where.page);
    constexpr std::uint32_t kMaxMapOwner = 1;
    if (page.Owner() > kMaxMapOwner || where.row >= page.SlotCount()) return std::nullopt;
    const ByteView row = page.Row(where.row);
    if (row.size() < file.Format().inlineMapRow || row[0] > 1) return std::nullopt;
    return UsageMap(file, where);
}

std::uint32_t AllocatePage(PageFile& file) {
    const std::optional<std::uint32_t> freed = file.TakeFreed();
    const std::uint32_t page = freed ? *freed : file.AppendPage();
    if (freed) {
        const ByteSpan bytes = file.EditPage(page);
        std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
    }
    MarkInGlobal(file, page, false);
    return page;
}

void FreePage(PageFile& file, std::uint32_t page) {
    constexpr std::uint32_t kFirstPageOfObjects = 6;
    if (page < kFirstPageOfObjects) ThrowDamaged(page, 0, "a page of the system cannot be freed");
    const ByteSpan bytes = file.EditPage(page);
    std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
    MarkInGlobal(file, page, true);
    file.GiveFreed(page);
}

bool IsFree(PageFile& file, std::uint32_t page) {
    const MapRow map(file, kGlobalMap);
    if (map.IsInline()) {
        return !map.Covers(page) || BitAt(map.Bits(), page - map.First());
    }
    const std::size_t perPage = file.Format().pagesPerMapPage;
    const std::size_t index = page / perPage;
    if (index >= map.ReferenceCount()) return true;
    const ByteView bits = BitsOfReference(file, map.Reference(index));
    return bits.empty() || BitAt(bits, page % perPage);
}

std::uint32_t AllocateMapPage(PageFile& file, std::size_t count) {
    const std::uint32_t page = AllocatePage(file);
    FormatDataPage(file, page, 0);
    const std::vector<std::uint8_t> empty = EmptyInlineMap(file.Format());
    for (std::size_t row = 0; row < count; ++row) AddRow(file, page, empty);
    return page;
}

std::vector<std::uint8_t> EmptyInlineMap(const Layout& layout) {
    return std::vector<std::uint8_t>(layout.inlineMapRow, 0);
}

}  // namespace jet::detail
