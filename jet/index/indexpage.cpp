#include "jet/index/indexpage.h"

#include "jet/storage/layout.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace jet::detail {
namespace {

constexpr std::size_t kOwnerOffset = 4, kFreeOffset = 2;
constexpr std::size_t kUsualEntries = 400;

std::size_t CommonLength(ByteView a, ByteView b) {
    const auto [end, other] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    return static_cast<std::size_t>(end - a.begin());
}

/// The ends that the entry mask marks, ascending.
std::vector<std::uint32_t> EntryEnds(const Layout& layout, ByteView page, std::uint32_t number) {
    std::vector<std::uint32_t> ends;
    ends.reserve(kUsualEntries);
    const ByteView mask =
        Part(page, layout.indexMask, layout.indexEntries - layout.indexMask, number);
    std::size_t end = 0;
    for (std::size_t at = 0; at < mask.size(); at += sizeof(std::uint64_t)) {
        const std::size_t count = std::min(sizeof(std::uint64_t), mask.size() - at);
        for (std::uint64_t bits = LittleEndian(mask, at, count); bits != 0; bits &= bits - 1) {
            end = 8 * at + static_cast<std::size_t>(std::countr_zero(bits));
            ends.push_back(static_cast<std::uint32_t>(end));
        }
    }
    if (!ends.empty() && (ends.front() == 0 || end > layout.IndexRoom())) {
        ThrowDamaged(number, layout.indexMask, "index entry past the page's end");
    }
    return ends;
}

bool SharesStart(ByteView a, ByteView b, std::size_t count) {
    return count == 0 || std::memcmp(a.data(), b.data(), count) == 0;
}

}  // namespace

bool EntryBelow(ByteView a, ByteView b) {
    const std::size_t common = std::min(a.size(), b.size());
    const int order = common == 0 ? 0 : std::memcmp(a.data(), b.data(), common);
    return order != 0 ? order < 0 : a.size() < b.size();
}

Bytes MakeEntry(ByteView key, RowPointer row) {
    Bytes entry;
    entry.reserve(key.size() + kRowPointerSize);
    entry.insert(entry.end(), key.begin(), key.end());
    for (const std::uint32_t shift : {16U, 8U, 0U}) {
        entry.push_back(static_cast<std::uint8_t>(row.page >> shift));
    }
    entry.push_back(row.row);
    return entry;
}

ByteView KeyOf(ByteView entry) {
    return entry.first(entry.size() - kRowPointerSize);
}

RowPointer RowOf(ByteView entry) {
    const std::size_t at = entry.size() - kRowPointerSize;
    return {U24BE(entry, at), U8(entry, at + 3)};
}

IndexPage IndexPage::EmptyLeaf(std::uint32_t table) {
    IndexPage page;
    page.table = table;
    return page;
}

IndexPage IndexPage::EmptyNode(std::uint32_t table, std::uint8_t level) {
    IndexPage page;
    page.table = table;
    page.level = level;
    page.leaf_ = false;
    return page;
}

IndexPage IndexPage::Read(const PageFile& file, std::uint32_t number) {
    const Layout& layout = file.Format();
    const ByteView bytes = file.Page(number);
    IndexPage page;
    const std::uint8_t type = U8(bytes, 0, number);
    if (type != kIndexNode && type != kIndexLeaf) {
        ThrowDamaged(number, 0, "not an index page");
    }
    page.leaf_ = type == kIndexLeaf;
    page.table = U32(bytes, kOwnerOffset, number);
    page.previous = U32(bytes, layout.indexPrevious, number);
    page.next = U32(bytes, layout.indexNext, number);
    page.tail = page.leaf_ ? 0 : U32(bytes, layout.indexTail, number);
    page.level = U8(bytes, layout.indexLevel, number);
    page.ends_ = EntryEnds(layout, bytes, number);
    if (page.ends_.empty()) return page;

    const std::size_t prefix = SizeAt(bytes, layout.indexPrefix, layout.indexPrefixSize, number);
    if (prefix >= page.ends_.front()) {
        ThrowDamaged(number, layout.indexPrefix, "index prefix longer than the first entry");
    }
    const ByteView data = Part(bytes, layout.indexEntries, page.ends_.back(), number);
    page.packed_ = prefix != 0;
    page.prefix_.assign(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(prefix));
    page.suffixes_.assign(data.begin() + static_cast<std::ptrdiff_t>(prefix), data.end());
    for (std::uint32_t& end : page.ends_) end -= static_cast<std::uint32_t>(prefix);

    // An entry is at least one key byte, the row pointer, and in a node the child.
    const std::size_t least = 1 + kRowPointerSize + (page.leaf_ ? 0 : kChildSize);
    for (std::size_t i = 0; i < page.Count(); ++i) {
        if (prefix + page.Suffix(i).size() < least) {
            ThrowDamaged(number, layout.indexEntries + page.Start(i), "index entry too short");
        }
    }
    return page;
}

void IndexPage::Entry(std::size_t i, Bytes& into) const {
    const ByteView sorted = SortedPart(i);
    into.resize(prefix_.size() + sorted.size());
    std::copy(prefix_.begin(), prefix_.end(), into.begin());
    std::copy(sorted.begin(), sorted.end(),
              into.begin() + static_cast<std::ptrdiff_t>(prefix_.size()));
}

bool IndexPage::IsEntry(std::size_t i, ByteView wanted) const {
    const ByteView rest = SortedPart(i);
    return wanted.size() == prefix_.size() + rest.size() &&
           std::equal(prefix_.begin(), prefix_.end(), wanted.begin()) &&
           std::equal(rest.begin(), rest.end(),
                      wanted.begin() + static_cast<std::ptrdiff_t>(prefix_.size()));
}

Bytes IndexPage::Entry(std::size_t i) const {
    Bytes entry;
    Entry(i, entry);
    return entry;
}

std::size_t IndexPage::LowerBound(ByteView wanted) const {
    const std::size_t common = CommonLength(prefix_, wanted);
    if (common == wanted.size()) return 0;
    if (common < prefix_.size()) return prefix_[common] < wanted[common] ? Count() : 0;
    const ByteView rest = wanted.subspan(common);
    std::size_t low = 0, high = Count();
    while (low < high) {
        const std::size_t middle = (low + high) / 2;
        if (EntryBelow(SortedPart(middle), rest)) {
            low = middle + 1;
        } else {
            high = middle;
        }
    }
    return low;
}

std::uint32_t IndexPage::Child(std::size_t i) const {
    if (i >= Count()) return tail;
    Bytes whole(prefix_);
    const ByteView suffix = Suffix(i);
    whole.insert(whole.end(), suffix.begin(), suffix.end());
    return U32BE(whole, whole.size() - kChildSize);
}

std::size_t IndexPage::ChildFor(ByteView wanted) const {
    const std::size_t i = LowerBound(wanted);
    const bool pastTheEnd = i == Count() && tail == 0;
    return pastTheEnd ? i - 1 : i;
}

void IndexPage::ShortenPrefix(std::size_t length) {
    if (length >= prefix_.size()) return;
    const ByteView moved = ByteView(prefix_).subspan(length);
    Bytes longer;
    longer.reserve(suffixes_.size() + moved.size() * Count());
    for (std::size_t i = 0; i < Count(); ++i) {
        const ByteView suffix = Suffix(i);
        longer.insert(longer.end(), moved.begin(), moved.end());
        longer.insert(longer.end(), suffix.begin(), suffix.end());
    }
    for (std::size_t i = 0; i < Count(); ++i) {
        ends_[i] += static_cast<std::uint32_t>(moved.size() * (i + 1));
    }
    suffixes_ = std::move(longer);
    prefix_.resize(length);
}

void IndexPage::InsertWhole(std::size_t i, ByteView entry) {
    if (ends_.empty()) prefix_.clear();
    // A suffix is never empty: the next entry would have no bit of its own.
    ShortenPrefix(std::min(CommonLength(prefix_, entry), entry.size() - 1));
    const ByteView suffix = entry.subspan(prefix_.size());
    suffixes_.insert(suffixes_.begin() + static_cast<std::ptrdiff_t>(Start(i)), suffix.begin(),
                     suffix.end());
    ends_.insert(ends_.begin() + static_cast<std::ptrdiff_t>(i),
                 static_cast<std::uint32_t>(Start(i)));
    for (std::size_t k = i; k < Count(); ++k) ends_[k] += static_cast<std::uint32_t>(suffix.size());
}

void IndexPage::Insert(std::size_t i, ByteView entry) {
    InsertWhole(i, entry);
}

void IndexPage::Insert(std::size_t i, ByteView entry, std::uint32_t child) {
    Bytes whole(entry.begin(), entry.end());
    whole.resize(entry.size() + kChildSize);
    PutU32BE(whole, entry.size(), child);
    InsertWhole(i, whole);
}

void IndexPage::Erase(std::size_t i) {
    const std::size_t begin = Start(i), size = ends_[i] - begin;
    suffixes_.erase(suffixes_.begin() + static_cast<std::ptrdiff_t>(begin),
                    suffixes_.begin() + static_cast<std::ptrdiff_t>(begin + size));
    ends_.erase(ends_.begin() + static_cast<std::ptrdiff_t>(i));
    for (std::size_t k = i; k < Count(); ++k) ends_[k] -= static_cast<std::uint32_t>(size);
}

void IndexPage::Erase(std::span<const std::size_t> ascending) {
    if (ascending.size() == 1) return Erase(ascending.front());
    Bytes suffixes;
    suffixes.reserve(suffixes_.size());
    std::vector<std::uint32_t> ends;
    ends.reserve(ends_.size());
    auto gone = ascending.begin();
    for (std::size_t i = 0; i < Count(); ++i) {
        if (gone != ascending.end() && *gone == i) {
            ++gone;
            continue;
        }
        const ByteView suffix = Suffix(i);
        suffixes.insert(suffixes.end(), suffix.begin(), suffix.end());
        ends.push_back(static_cast<std::uint32_t>(suffixes.size()));
    }
    suffixes_ = std::move(suffixes);
    ends_ = std::move(ends);
}

void IndexPage::ReplaceKey(std::size_t i, ByteView entry) {
    const std::uint32_t child = Child(i);
    Erase(i);
    Insert(i, entry, child);
}

void IndexPage::MakeLastTail() {
    tail = Child(Count() - 1);
    Erase(Count() - 1);
}

IndexPage IndexPage::SplitOff(std::size_t count) {
    IndexPage first = *this;
    const std::size_t end = Start(count);
    first.suffixes_.resize(end);
    first.ends_.resize(count);
    first.previous = first.next = first.tail = 0;
    suffixes_.erase(suffixes_.begin(), suffixes_.begin() + static_cast<std::ptrdiff_t>(end));
    ends_.erase(ends_.begin(), ends_.begin() + static_cast<std::ptrdiff_t>(count));
    for (std::uint32_t& e : ends_) e -= static_cast<std::uint32_t>(end);
    return first;
}

/// The prefix to store: none while the whole entries fit, else all that first and last share.
std::size_t IndexPage::SharedPrefix(const Layout& layout, Range range) const {
    // Nodes are stored whole, as engines do; one that came packed may stay so.
    const bool whole = range.Count() < 2 || WholeSize(range) <= layout.IndexRoom();
    if (whole || (!leaf_ && !packed_)) return 0;
    const ByteView first = Suffix(range.begin), last = Suffix(range.end - 1);
    const std::size_t shared = prefix_.size() + CommonLength(first, last);
    const std::size_t largest = layout.indexPrefixSize == 1 ? 0xFF : 0xFFFF;
    // The child pages of a node are no part of the order,
    // so what first and last share says nothing there.
    const std::size_t keys = prefix_.size() + std::min(first.size(), last.size()) - 1;
    const std::size_t limit = leaf_ ? keys : prefix_.size();
    const std::size_t prefix = std::min({shared, largest, limit});
    for (std::size_t i = range.begin; i < range.end && prefix > prefix_.size(); ++i) {
        // What first and last share, all share that stand between them; unless the page is damaged.
        const std::size_t beyond = prefix - std::min(prefix, prefix_.size());
        if (Suffix(i).size() <= beyond || !SharesStart(Suffix(i), first, beyond)) return 0;
    }
    return prefix;
}

bool IndexPage::Fits(const Layout& layout, Range range) const {
    const std::size_t saved =
        SharedPrefix(layout, range) * (range.Count() < 2 ? 0 : range.Count() - 1);
    return WholeSize(range) - saved <= layout.IndexRoom();
}

bool IndexPage::FitsInTwo(const Layout& layout, std::size_t count) const {
    return Fits(layout, {0, count}) && Fits(layout, {count, Count()});
}

void IndexPage::Write(PageFile& file, std::uint32_t number) const {
    const Layout& layout = file.Format();
    const std::size_t prefix = SharedPrefix(layout, {0, Count()});
    const ByteSpan page = file.EditPage(number);
    std::fill(page.begin(), page.end(), std::uint8_t{0});
    PutU8(page, 0, leaf_ ? kIndexLeaf : kIndexNode);
    PutU8(page, 1, 1);
    PutU32(page, kOwnerOffset, table);
    PutU32(page, layout.indexPrevious, previous);
    PutU32(page, layout.indexNext, next);
    PutU32(page, layout.indexTail, leaf_ ? 0 : tail);
    PutLittleEndian(page, layout.indexPrefix, prefix, layout.indexPrefixSize);
    PutU8(page, layout.indexLevel, level);

    const ByteSpan room = Part(page, layout.indexEntries, layout.IndexRoom(), number);
    std::size_t end = 0;
    const auto append = [&](ByteView bytes) {
        CheckRange(room.size(), end, bytes.size(), number);
        if (!bytes.empty()) std::memcpy(&room[end], bytes.data(), bytes.size());
        end += bytes.size();
    };
    const auto mark = [&](std::size_t entryEnd) {
        page[layout.indexMask + entryEnd / 8] |= static_cast<std::uint8_t>(1U << (entryEnd % 8));
    };
    if (prefix == prefix_.size()) {
        append(prefix_);
        append(suffixes_);
        for (const std::uint32_t suffixEnd : ends_) mark(prefix + suffixEnd);
    } else {
        for (std::size_t i = 0; i < Count(); ++i) {
            const std::size_t dropped = i == 0 ? 0 : prefix;
            append(ByteView(prefix_).subspan(std::min(prefix_.size(), dropped)));
            append(Suffix(i).subspan(dropped - std::min(dropped, prefix_.size())));
            mark(end);
        }
    }
    PutU16(page, kFreeOffset, static_cast<std::uint16_t>(layout.IndexRoom() - end));
}

std::size_t IndexPage::StatedFreeBytes(const PageFile& file, std::uint32_t page) {
    return U16(file.Page(page), kFreeOffset, page);
}

std::size_t IndexPage::FreeBytes(const PageFile& file, std::uint32_t page) {
    const auto ends = EntryEnds(file.Format(), file.Page(page), page);
    return file.Format().IndexRoom() - (ends.empty() ? 0 : ends.back());
}

}  // namespace jet::detail
