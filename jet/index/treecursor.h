#pragma once
// A walk over the entries of an index tree, from leaf to leaf.

#include "jet/index/indexpage.h"
#include "jet/storage/bytes.h"
#include "jet/storage/pagefile.h"
#include "jet/value.h"

#include <cstddef>
#include <cstdint>

namespace jet::detail {

/// A page of an index of the table whose definition is on page `table`.
/// Throws NotADatabase for any other.
IndexPage ReadIndexPage(const PageFile& file, std::uint32_t table, std::uint32_t page);

/// A place among the entries of a tree. Good until the tree is edited. Checks as it goes that
/// entries only grow (or shrink, backward) and that the walk ends; throws NotADatabase otherwise.
class TreeCursor {
  public:
    bool Valid() const { return valid_; }
    ByteView Entry() const { return entry_; }
    ByteView Key() const { return KeyOf(entry_); }
    RowPointer Row() const { return RowOf(entry_); }
    void Next();
    void Previous();

  private:
    friend class BTree;
    TreeCursor(const PageFile& file, std::uint32_t leaf, IndexPage content);
    void GoTo(std::size_t at);
    void Load(std::uint32_t leaf);

    const PageFile* file_;
    std::uint32_t leaf_;
    IndexPage content_;
    std::size_t at_ = 0;
    std::uint32_t leavesLeft_;
    Bytes entry_, before_;
    bool valid_ = false;
};

}  // namespace jet::detail
