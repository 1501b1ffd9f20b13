#include "jet/index/indexview.h"

#include "jet/index/indexpage.h"
#include "jet/storage/layout.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <utility>

namespace jet::detail {
namespace {

constexpr std::size_t kOwnerOffset = 4, kFreeOffset = 2;
constexpr std::size_t kWordBits = 64, kMaxWords = 64;

/// Compares the shorter's length of both; 0 when they agree so far.
int CompareStart(ByteView a, ByteView b) {
    const std::size_t common = std::min(a.size(), b.size());
    return common == 0 ? 0 : std::memcmp(a.data(), b.data(), common);
}

bool BeginsWith(ByteView bytes, ByteView start) {
    return bytes.size() >= start.size() && CompareStart(bytes, start) == 0;
}

}  // namespace

std::optional<IndexPageView> IndexPageView::Of(const PageFile& file, std::uint32_t table,
                                               std::uint32_t page) {
    if (page == 0 || page >= file.PageCount()) return std::nullopt;
    IndexPageView view(file.Format(), file.Page(page), page);
    const std::uint8_t type = view.page_[0];
    const bool ours =
        (type == kIndexLeaf || type == kIndexNode) && U32(view.page_, kOwnerOffset, page) == table;
    view.childSize_ = type == kIndexLeaf ? 0 : kChildSize;
    return ours && view.Measure() ? std::optional(view) : std::nullopt;
}

/// Prefix and end of the entries; false when they contradict each other.
bool IndexPageView::Measure() {
    constexpr std::uint64_t kEmptyEntry = 1;
    if ((MaskWord(0) & kEmptyEntry) != 0) return false;
    end_ = LastEndUpTo(kWordBits * MaskWords() - 1);
    prefix_ = SizeAt(page_, layout_->indexPrefix, layout_->indexPrefixSize, number_);
    // A page that lost its last entry may have kept its prefix.
    if (end_ == 0) return IsLeaf() && prefix_ == 0;
    const std::size_t first = EndAfter(0);  // the first entry is stored whole
    return end_ <= layout_->IndexRoom() && first > prefix_ &&
           first > kRowPointerSize + childSize_ && (prefix_ == 0 || IsLeaf());
}

std::size_t IndexPageView::MaskWords() const {
    const std::size_t bytes = layout_->indexEntries - layout_->indexMask;
    return (bytes + sizeof(std::uint64_t) - 1) / sizeof(std::uint64_t);
}

std::uint64_t IndexPageView::MaskWord(std::size_t word) const {
    const std::size_t at = layout_->indexMask + sizeof(std::uint64_t) * word;
    if (at + sizeof(std::uint64_t) <= layout_->indexEntries) return U64(page_, at, number_);
    return LittleEndian(page_, at, layout_->indexEntries - at, number_);
}

/// Where the entry that begins at `at` ends; 0 when none begins there.
std::size_t IndexPageView::EndAfter(std::size_t at) const {
    std::size_t word = (at + 1) / kWordBits;
    if (word >= MaskWords()) return 0;
    std::uint64_t bits = MaskWord(word) & ~std::uint64_t{0} << (at + 1) % kWordBits;
    while (bits == 0) {
        if (++word == MaskWords()) return 0;
        bits = MaskWord(word);
    }
    return kWordBits * word + static_cast<std::size_t>(std::countr_zero(bits));
}

/// Where the last entry that does not end past `at` ends; 0 when there is none.
std::size_t IndexPageView::LastEndUpTo(std::size_t at) const {
    std::size_t word = at / kWordBits;
    std::uint64_t bits = MaskWord(word) & ~std::uint64_t{0} >> (kWordBits - 1 - at % kWordBits);
    while (bits == 0) {
        if (word-- == 0) return 0;
        bits = MaskWord(word);
    }
    return kWordBits * word + kWordBits - 1 - static_cast<std::size_t>(std::countl_zero(bits));
}

IndexPageView::Parts IndexPageView::At(Place place) const {
    const ByteView entries = Entries();
    ByteView rest = entries.subspan(place.begin, place.end - place.begin);
    rest = rest.first(rest.size() - std::min(rest.size(), childSize_));
    return {entries.first(place.begin == 0 ? 0 : prefix_), rest};
}

bool IndexPageView::Below(const Parts& entry, ByteView wanted) {
    const int order = CompareStart(entry.start, wanted);
    if (order != 0) return order < 0;
    if (entry.start.size() >= wanted.size()) return false;
    return EntryBelow(entry.rest, wanted.subspan(entry.start.size()));
}

// Halves the bytes, not the entries: where an entry begins is looked up in the mask.
IndexPageView::Place IndexPageView::LowerBound(ByteView wanted) const {
    std::size_t low = 0, high = end_;
    while (low < high) {
        const std::size_t begin = std::max(low, LastEndUpTo((low + high) / 2));
        const Place middle{begin, EndAfter(begin)};
        if (Below(At(middle), wanted)) {
            low = middle.end;
        } else {
            high = begin;
        }
    }
    return {low, low == end_ ? end_ : EndAfter(low)};
}

std::optional<IndexPageView::Way> IndexPageView::ChildFor(ByteView wanted) const {
    Place place = LowerBound(wanted);
    const std::uint32_t tail = U32(page_, layout_->indexTail, number_);
    if (IsPastTheLast(place)) {
        if (tail == 0) return std::nullopt;
        return Way{tail, true};
    }
    if (place.end - place.begin < kChildSize) return std::nullopt;
    return Way{U32BE(Entries(), place.end - kChildSize, number_), false};
}

/// The prefix may reach into what follows the bytes that are looked for.
bool IndexPageView::StartsWith(const Parts& entry, ByteView bytes) {
    if (CompareStart(entry.start, bytes) != 0) return false;
    return bytes.size() <= entry.start.size() ||
           BeginsWith(entry.rest, bytes.subspan(entry.start.size()));
}

bool IndexPageView::HasKey(Place place, ByteView key) const {
    const Parts entry = At(place);
    return entry.Size() == key.size() + kRowPointerSize && StartsWith(entry, key);
}

std::optional<bool> IndexPageView::KeyIsBeside(Place place, ByteView entry) const {
    const bool first = place.begin == 0, last = IsPastTheLast(place);
    if (first && U32(page_, layout_->indexPrevious, number_) != 0) return std::nullopt;
    if (last && U32(page_, layout_->indexNext, number_) != 0) return std::nullopt;
    const ByteView key = KeyOf(entry);
    const bool before = !first && HasKey({LastEndUpTo(place.begin - 1), place.begin}, key);
    if (last) return before;
    const Parts next = At(place);
    const bool same = next.Size() == entry.size() && StartsWith(next, entry);
    if (same) return std::nullopt;
    return before || HasKey(place, key);
}

/// A first entry is stored whole, so the others would have to change; one that does not share what
/// the others share would change all.
bool IndexPageView::HasRoomAt(Place place, ByteView entry) const {
    if (prefix_ > 0 && (place.begin == 0 || !BeginsWith(entry, Entries().first(prefix_)))) {
        return false;
    }
    return entry.size() > prefix_ && end_ + entry.size() - prefix_ <= layout_->IndexRoom();
}

void IndexPageView::Insert(PageFile& file, Place place, ByteView entry) const {
    const ByteView stored = entry.subspan(prefix_);
    const std::size_t count = stored.size(), words = MaskWords();
    // The ends behind the new entry move up by its bytes.
    std::array<std::uint64_t, 2 * kMaxWords> behind{};
    std::array<std::uint64_t, kMaxWords> before{};
    for (std::size_t word = 0; word < words; ++word) {
        before[word] = MaskWord(word);
        const std::size_t firstBit = kWordBits * word;
        if (firstBit > place.begin) {
            behind[kMaxWords + word] = std::exchange(before[word], 0);
        } else if (place.begin - firstBit < kWordBits - 1) {
            const std::uint64_t upper = ~std::uint64_t{0} << (place.begin - firstBit + 1);
            behind[kMaxWords + word] = before[word] & upper;
            before[word] &= ~upper;
        }
    }
    const ByteSpan bytes = file.EditPage(number_);
    const ByteSpan room = bytes.subspan(layout_->indexEntries);
    std::memmove(&room[0] + place.begin + count, &room[0] + place.begin, end_ - place.begin);
    std::memcpy(&room[0] + place.begin, stored.data(), count);
    const std::size_t newEnd = place.begin + count;
    before[newEnd / kWordBits] |= std::uint64_t{1} << newEnd % kWordBits;
    for (std::size_t word = 0; word < words; ++word) {
        const std::size_t from = kMaxWords + word - count / kWordBits;
        const std::size_t shift = count % kWordBits;
        std::uint64_t moved = behind[from] << shift;
        if (shift != 0) moved |= behind[from - 1] >> (kWordBits - shift);
        const std::size_t at = layout_->indexMask + sizeof(std::uint64_t) * word;
        if (at + sizeof(std::uint64_t) <= layout_->indexEntries) {
            PutU64(bytes, at, before[word] | moved);
        } else {
            PutLittleEndian(bytes, at, before[word] | moved, layout_->indexEntries - at);
        }
    }
    PutU16(bytes, kFreeOffset, static_cast<std::uint16_t>(layout_->IndexRoom() - end_ - count));
}

}  // namespace jet::detail
