#include "jet/table/longvalue.h"

#include "jet/storage/datapage.h"
#include "jet/storage/usagemap.h"

#include <algorithm>
#include <optional>
#include <set>

namespace jet::detail {

namespace {

constexpr std::size_t kDescriptor = 12, kPlace = 4, kNextPiece = 4;
constexpr std::uint32_t kLengthMask = 0x3FFFFFFF, kFormMask = 0xC0000000;
constexpr std::uint32_t kInline = 0x80000000, kOneRow = 0x40000000, kChain = 0;
constexpr std::size_t kFewBytes = 32;

struct Descriptor {
    std::uint32_t length, form;
    RowPointer place;
};

Descriptor ReadDescriptor(ByteView bytes) {
    CheckRange(bytes.size(), 0, kDescriptor);
    const std::uint32_t first = U32(bytes, 0);
    return {first & kLengthMask, first & kFormMask, RowPointer::FromPacked(U32(bytes, kPlace))};
}

std::vector<std::uint8_t> MakeDescriptor(std::uint32_t form, std::size_t length, RowPointer place) {
    std::vector<std::uint8_t> bytes(kDescriptor, 0);
    PutU32(bytes, 0, form | static_cast<std::uint32_t>(length));
    PutU32(bytes, kPlace, place.Packed());
    return bytes;
}

ByteView PieceAt(const PageFile& file, RowPointer where) {
    const DataPage page(file, where.page);
    if (page.Owner() != kLongValueOwner) ThrowDamaged(where.page, 4, "not a page of long values");
    const Slot slot = page.At(where.row);
    if (slot.flags != 0) ThrowDamaged(where.page, where.row, "a piece of a long value is deleted");
    return page.Bytes(slot);
}

// Where pages were lost and their numbers given out again, an old pointer leads to another value.
[[noreturn]] void ThrowOtherValue(RowPointer where) {
    ThrowDamaged(where.page, where.row, "a long value of another length than its row says");
}

/// Calls visit(where, data) for each piece of a chain until it returns false or the chain ends.
template <typename Visit>
void WalkChain(const PageFile& file, RowPointer where, Visit&& visit) {
    std::uint64_t steps = 0;
    const std::uint64_t most = std::uint64_t{file.PageCount()} * (kMaxSlot + 1);
    while (!where.IsNull() && steps++ < most) {
        const ByteView piece = PieceAt(file, where);
        if (piece.size() <= kNextPiece) return;
        const RowPointer next = RowPointer::FromPacked(U32(piece, 0, where.page));
        if (!visit(where, piece.subspan(kNextPiece))) return;
        where = next;
    }
}

/// Where the pieces of one column's values go.
class PieceStore {
  public:
    PieceStore(PageFile& file, const TableDef& def, const ColumnDef& column) : file_(file) {
        const LongValueMaps* maps = def.MapsOf(column.number);
        if (maps == nullptr) return;
        owned_ = SoundMap(file, maps->owned);
        free_ = SoundMap(file, maps->freeSpace);
    }

    RowPointer Add(ByteView piece) {
        if (free_) {
            for (const std::uint32_t page : free_->Pages()) {
                if (const auto where = TryPage(page, piece)) return *where;
                free_->Remove(page);
            }
        }
        const std::uint32_t page = AllocatePage(file_);
        FormatDataPage(file_, page, kLongValueOwner);
        if (owned_) owned_->Add(page);
        const RowPointer where = AddRow(file_, page, piece);
        if (free_ && DataPage(file_, page).FreeBytes() >= kFewBytes) free_->Add(page);
        return where;
    }

    void Remove(RowPointer where) {
        DeleteRow(file_, where);
        const bool ours = owned_ && owned_->Contains(where.page);
        if (ours && free_ && !free_->Contains(where.page)) free_->Add(where.page);
    }

  private:
    std::optional<RowPointer> TryPage(std::uint32_t page, ByteView piece) {
        if (file_.Page(page)[0] != kDataPage) return std::nullopt;
        const DataPage rows(file_, page);
        if (rows.Owner() != kLongValueOwner) return std::nullopt;
        // Nothing points to a page whose rows are all deleted:
        // their numbers can be given out again.
        if (rows.SlotCount() > 0 && rows.AllDeleted()) FormatDataPage(file_, page, kLongValueOwner);
        if (!DataPage(file_, page).HasRoomFor(piece.size())) return std::nullopt;
        return AddRow(file_, page, piece);
    }

    PageFile& file_;
    std::optional<UsageMap> owned_, free_;
};

}  // namespace

std::uint32_t LongValueLength(ByteView descriptor) {
    return ReadDescriptor(descriptor).length;
}

std::vector<std::uint8_t> ReadLongValue(const PageFile& file, ByteView descriptor) {
    return ReadLongValue(file, descriptor, kLengthMask);
}

std::vector<std::uint8_t> ReadLongValue(const PageFile& file, ByteView descriptor,
                                        std::size_t limit) {
    const Descriptor value = ReadDescriptor(descriptor);
    if (value.length > file.ByteCount()) {
        ThrowDamaged(kNoPage, 0, "a long value longer than the file");
    }
    const std::size_t wanted = std::min<std::size_t>(value.length, limit);
    if (value.form == kInline) {
        const ByteView part = Part(descriptor, kDescriptor, wanted);
        return {part.begin(), part.end()};
    }
    if (wanted == 0) return {};
    if (value.form == kOneRow) {
        const ByteView piece = PieceAt(file, value.place);
        if (piece.size() != value.length) ThrowOtherValue(value.place);
        const ByteView part = piece.first(wanted);
        return {part.begin(), part.end()};
    }
    if (value.form != kChain) ThrowDamaged(kNoPage, 0, "unknown form of a long value");
    std::vector<std::uint8_t> bytes;
    std::size_t last = 0;  // what the last piece has more than the value
    WalkChain(file, value.place, [&](RowPointer, ByteView piece) {
        const ByteView part = piece.first(std::min(piece.size(), wanted - bytes.size()));
        bytes.insert(bytes.end(), part.begin(), part.end());
        last = piece.size() - part.size();
        return bytes.size() < wanted;
    });
    if (bytes.size() < wanted) {
        ThrowDamaged(value.place.page, value.place.row, "a long value ends too early");
    }
    if (wanted == value.length && last != 0) ThrowOtherValue(value.place);
    return bytes;
}

std::vector<RowPointer> PiecesOf(const PageFile& file, ByteView descriptor) {
    const Descriptor value = ReadDescriptor(descriptor);
    if (value.form == kInline || value.length == 0) return {};
    if (value.form == kOneRow) {
        if (PieceAt(file, value.place).size() != value.length) ThrowOtherValue(value.place);
        return {value.place};
    }
    std::vector<RowPointer> pieces;
    std::set<RowPointer> seen;
    std::size_t left = value.length;
    WalkChain(file, value.place, [&](RowPointer where, ByteView piece) {
        if (piece.size() > left || !seen.insert(where).second) ThrowOtherValue(value.place);
        pieces.push_back(where);
        left -= piece.size();
        return left > 0;
    });
    if (left > 0) ThrowOtherValue(value.place);
    return pieces;
}

std::vector<std::uint8_t> WriteLongValue(PageFile& file, const TableDef& def,
                                         const ColumnDef& column, ByteView value) {
    if (value.size() > kLengthMask) {
        throw Error{ErrorNumber::FieldTooLong, "column " + column.name + ": longer than any value"};
    }
    const Layout& layout = file.Format();
    if (value.size() <= layout.largestInlineLongValue) {
        std::vector<std::uint8_t> bytes = MakeDescriptor(kInline, value.size(), {});
        bytes.insert(bytes.end(), value.begin(), value.end());
        return bytes;
    }
    PieceStore store(file, def, column);
    if (value.size() <= layout.largestLongValueRow) {
        return MakeDescriptor(kOneRow, value.size(), store.Add(value));
    }
    // From the last piece to the first, since each holds the place of the next.
    const std::size_t most = layout.largestLongValueRow - kNextPiece;
    const std::size_t pieces = (value.size() + most - 1) / most;
    RowPointer next;
    for (std::size_t piece = pieces; piece-- > 0;) {
        const ByteView part =
            value.subspan(piece * most).first(std::min(most, value.size() - piece * most));
        std::vector<std::uint8_t> row(kNextPiece, 0);
        PutU32(row, 0, next.Packed());
        row.insert(row.end(), part.begin(), part.end());
        next = store.Add(row);
    }
    return MakeDescriptor(kChain, value.size(), next);
}

void FreeLongValue(PageFile& file, const TableDef& def, const ColumnDef& column,
                   ByteView descriptor) {
    if (descriptor.size() < kDescriptor) return;
    std::vector<RowPointer> pieces;
    try {
        pieces = PiecesOf(file, descriptor);
    } catch (const Error& error) {
        // A value that cannot be read has nothing that could safely be freed; its row may still go.
        if (error.Number() != ErrorNumber::NotADatabase) throw;
        return;
    }
    PieceStore store(file, def, column);
    for (const RowPointer where : pieces) store.Remove(where);
}

}  // namespace jet::detail
