#pragma once
// One index tree: entries (key bytes + row pointer) found, walked, inserted, erased. Knows
// no values and no rows; every edit is to stand inside PageFile::Begin and Commit.

#include "jet/index/indexpage.h"
#include "jet/index/treecursor.h"
#include "jet/storage/bytes.h"
#include "jet/storage/pagefile.h"
#include "jet/table/tabledef.h"
#include "jet/value.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace jet::detail {

/// Not a copy: every call reads or edits the pages. The root stays on its page for ever.
/// A tree that contradicts itself throws NotADatabase; the caller rolls back.
class BTree {
  public:
    /// `table` is the page of the table's definition.
    BTree(PageFile& file, std::uint32_t table, const RealIndex& index);

    /// Adds an entry and says whether its key was not there before. Throws NotADatabase when the
    /// very entry is there already, FieldTooLong when no page can hold it.
    bool Insert(ByteView key, RowPointer row);
    /// Removes the entry; false when it is not there.
    bool Erase(ByteView key, RowPointer row);
    /// Removes many at once: each leaf is taken apart and put back once, not once for each entry.
    /// `entries` are as MakeEntry makes them, in any order; returns those that are not there.
    std::vector<Bytes> EraseAll(std::vector<Bytes> entries);
    /// Removes the row's entry by looking at all of them, and returns its key. For keys that cannot
    /// be computed.
    Bytes EraseByRowPointer(RowPointer row);

    /// Whether an entry of another row has exactly this key: the check before a unique insert.
    bool ContainsOther(ByteView key, RowPointer self) const;

    /// The first entry; the first one not below `wanted`; the last one.
    TreeCursor First() const;
    TreeCursor From(ByteView wanted) const;
    TreeCursor Last() const;

    std::uint32_t Root() const { return root_; }

  private:
    /// A page on the way from the root to a leaf, and which child or entry the way takes there.
    struct Step {
        std::uint32_t page = 0;
        IndexPage content;
        std::size_t position = 0;
        bool changed = false;
    };
    using Path = std::vector<Step>;

    Path Descend(ByteView wanted) const;
    Step LastLeafBelow(std::uint32_t page) const;
    IndexPage ReadPage(std::uint32_t page) const;
    std::optional<bool> InsertInPlace(ByteView entry);
    bool KeyIsBeside(const Step& leaf, ByteView key) const;
    std::size_t EraseInLeaf(std::span<const Bytes> sorted);
    static void LastEntryChanged(Path& path, std::size_t level, ByteView entry);
    void RemovePage(Path& path);
    void TakeFromParent(Path& path);
    std::size_t SplitPoint(const Step& step) const;
    void Settle(Path& path);
    void GrowRoot(Path& path);
    void Split(Path& path, std::size_t level);
    void CutChildLink(const IndexPage& left, const IndexPage& right);
    void CollapseRoot();
    std::uint32_t NewPage();
    void DropPage(std::uint32_t page);
    void Relink(std::uint32_t page, std::size_t linkOffset, std::uint32_t to);

    PageFile* file_;
    std::uint32_t table_, root_;
    RowPointer map_;
};

}  // namespace jet::detail
