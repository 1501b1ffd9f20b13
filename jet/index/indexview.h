#pragma once
// A page of an index tree where it lies: an entry is found and added without taking the page apart.
// For the usual cases only; whatever is unusual or damaged it leaves to IndexPage, by saying no.

#include "jet/storage/bytes.h"
#include "jet/storage/pagefile.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace jet::detail {

class IndexPageView {
  public:
    /// Where an entry is among the page's bytes of entries.
    struct Place {
        std::size_t begin = 0, end = 0;
    };
    struct Way {
        std::uint32_t page = 0;
        bool isTail = false;
    };

    /// Nothing for a page that is not this table's, is not sound,
    /// or is a node stored with a prefix.
    static std::optional<IndexPageView> Of(const PageFile& file, std::uint32_t table,
                                           std::uint32_t page);

    bool IsLeaf() const { return childSize_ == 0; }
    /// Node: where `wanted` is, if it is anywhere.
    std::optional<Way> ChildFor(ByteView wanted) const;

    /// Leaf: the first entry that is not below `wanted`;
    /// begins at the end of all when there is none.
    Place LowerBound(ByteView wanted) const;
    bool IsPastTheLast(Place place) const { return place.begin == end_; }
    /// Leaf: whether a neighbour of the new entry has the same key. Nothing
    /// when the entry is there already, or a neighbour is on another page.
    std::optional<bool> KeyIsBeside(Place place, ByteView entry) const;
    /// Leaf: whether an entry can be added there without any other part of the page changing.
    bool HasRoomAt(Place place, ByteView entry) const;
    /// Adds it, after HasRoomAt. The view is of no use afterwards.
    void Insert(PageFile& file, Place place, ByteView entry) const;

  private:
    /// An entry's bytes in two parts, without a node's child.
    struct Parts {
        ByteView start, rest;
        std::size_t Size() const { return start.size() + rest.size(); }
    };
    IndexPageView(const Layout& layout, ByteView page, std::uint32_t number)
        : layout_(&layout), page_(page), number_(number) {}

    bool Measure();
    std::uint64_t MaskWord(std::size_t word) const;
    std::size_t MaskWords() const;
    std::size_t EndAfter(std::size_t at) const;
    std::size_t LastEndUpTo(std::size_t at) const;
    Parts At(Place place) const;
    static bool Below(const Parts& entry, ByteView wanted);
    static bool StartsWith(const Parts& entry, ByteView bytes);
    bool HasKey(Place place, ByteView key) const;
    ByteView Entries() const { return page_.subspan(layout_->indexEntries); }

    const Layout* layout_;
    ByteView page_;
    std::uint32_t number_;
    std::size_t childSize_ = 0, prefix_ = 0, end_ = 0;
};

}  // namespace jet::detail
