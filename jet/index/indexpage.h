#pragma once
// One page of an index tree, taken apart: its entries in order and its links. Knows how entries are
// packed into a page; the tree's shape is btree's.

#include "jet/storage/bytes.h"
#include "jet/storage/pagefile.h"
#include "jet/value.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace jet::detail {

/// What follows the key bytes in an entry: the row's page (u24) and number; in a node the child's
/// page too.
inline constexpr std::size_t kRowPointerSize = 4, kChildSize = 4;

/// Key bytes and row pointer as they stand in a leaf. Entries are compared as bytes.
Bytes MakeEntry(ByteView key, RowPointer row);
/// The order of entries: as unsigned bytes.
bool EntryBelow(ByteView a, ByteView b);
ByteView KeyOf(ByteView entry);
RowPointer RowOf(ByteView entry);

/// A copy of the page to read and to change; Write puts it back.
class IndexPage {
  public:
    static IndexPage EmptyLeaf(std::uint32_t table);
    static IndexPage EmptyNode(std::uint32_t table, std::uint8_t level);
    /// Throws NotADatabase when the page is no sound index page.
    static IndexPage Read(const PageFile& file, std::uint32_t page);

    std::uint32_t table = 0;  ///< page of the table's definition
    std::uint32_t previous = 0, next = 0;
    std::uint32_t tail = 0;  ///< node: the last child, which has no entry; 0 = none
    std::uint8_t level = 0;  ///< 0 = leaf

    bool IsLeaf() const { return leaf_; }
    std::size_t Count() const { return ends_.size(); }
    /// Entry i without a node's child: key bytes and row pointer.
    Bytes Entry(std::size_t i) const;
    void Entry(std::size_t i, Bytes& into) const;
    bool IsEntry(std::size_t i, ByteView wanted) const;
    /// The first entry that is not below `wanted` (which may be the beginning of an entry).
    std::size_t LowerBound(ByteView wanted) const;

    /// Node: children in order, the tail last.
    std::size_t ChildCount() const { return Count() + (tail != 0 ? 1 : 0); }
    std::uint32_t Child(std::size_t i) const;
    /// The child in which `wanted` is, if it is anywhere.
    std::size_t ChildFor(ByteView wanted) const;

    void Insert(std::size_t i, ByteView entry);                       ///< leaf
    void Insert(std::size_t i, ByteView entry, std::uint32_t child);  ///< node
    void Erase(std::size_t i);
    void Erase(std::span<const std::size_t> ascending);
    void ReplaceKey(std::size_t i, ByteView entry);  ///< node: the child stays
    /// Node: the last entry's child becomes the tail.
    void MakeLastTail();
    /// Moves the first `count` entries into a page of their own, without links.
    IndexPage SplitOff(std::size_t count);

    bool Fits(const Layout& layout) const { return Fits(layout, {0, Count()}); }
    /// Whether the first `count` entries and the others would fit, each in a page of their own.
    bool FitsInTwo(const Layout& layout, std::size_t count) const;
    /// Puts the page there, whatever was there before. It must fit.
    void Write(PageFile& file, std::uint32_t page) const;

    /// Free bytes as the page states them, and as they are. For checking.
    static std::size_t StatedFreeBytes(const PageFile& file, std::uint32_t page);
    static std::size_t FreeBytes(const PageFile& file, std::uint32_t page);

  private:
    std::size_t Start(std::size_t i) const { return i == 0 ? 0 : ends_[i - 1]; }
    ByteView Suffix(std::size_t i) const {
        return ByteView(suffixes_).subspan(Start(i), ends_[i] - Start(i));
    }
    /// The suffix without a node's child, which is no part of the order.
    ByteView SortedPart(std::size_t i) const {
        const ByteView suffix = Suffix(i);
        return suffix.first(suffix.size() - (leaf_ ? 0 : std::min(kChildSize, suffix.size())));
    }
    /// Entries from `begin` to before `end`, as if they were a page.
    struct Range {
        std::size_t begin, end;
        std::size_t Count() const { return end - begin; }
    };
    std::size_t WholeSize(Range range) const {
        return prefix_.size() * range.Count() + Start(range.end) - Start(range.begin);
    }
    std::size_t SharedPrefix(const Layout& layout, Range range) const;
    bool Fits(const Layout& layout, Range range) const;
    void ShortenPrefix(std::size_t length);
    void InsertWhole(std::size_t i, ByteView entry);

    bool leaf_ = true;
    bool packed_ = false;  ///< was stored with a prefix
    // All entries are prefix_ + suffix; keeping the common part once bounds what a
    // hostile page can cost.
    Bytes prefix_, suffixes_;
    std::vector<std::uint32_t> ends_;  ///< of each suffix
};

}  // namespace jet::detail
