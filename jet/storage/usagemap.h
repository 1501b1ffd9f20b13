#pragma once
// Sets of pages: which pages an object owns, which of them have room, and which pages of the file
// are free.

#include "jet/storage/bytes.h"
#include "jet/storage/pagefile.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace jet::detail {

/// A usage map by the row pointer that leads to it. Not a copy:
/// every call reads or edits the pages.
class UsageMap {
  public:
    UsageMap(PageFile& file, RowPointer where) : file_(&file), where_(where) {}
    static UsageMap Global(PageFile& file) { return {file, RowPointer{1, 0}}; }

    RowPointer Where() const { return where_; }
    bool Contains(std::uint32_t page) const;
    /// All pages of the set that are in the file, ascending.
    std::vector<std::uint32_t> Pages() const;
    /// The first page that the map names but the file does not have: of the set, or one that holds
    /// a part of the map itself. For maps of tables: the global map has odd bits in sound files.
    std::optional<std::uint32_t> FirstBeyondEnd() const;
    void Add(std::uint32_t page);  ///< lengthens or converts the map as needed; may allocate pages
    void Remove(std::uint32_t page);  ///< nothing happens when it is not in the set

  private:
    void AddOutsideInlineRange(std::uint32_t page);
    void SetInReference(std::uint32_t page);

    PageFile* file_;
    RowPointer where_;
};

/// The map of a column's long values if the pointer leads to one;
/// old files have pointers that lead elsewhere.
std::optional<UsageMap> SoundMap(PageFile& file, RowPointer where);

/// A page to use, all zeros: one that was freed since the file was opened, else a new one at the
/// end. Marked as used.
std::uint32_t AllocatePage(PageFile& file);
/// Gives a page back; the caller has taken it out of its owner's maps.
void FreePage(PageFile& file, std::uint32_t page);
/// Whether the file's global map calls the page free.
bool IsFree(PageFile& file, std::uint32_t page);

/// A new page with `count` empty inline maps as its rows; returns the page.
/// For new tables and indexes.
std::uint32_t AllocateMapPage(PageFile& file, std::size_t count);
/// The bytes of an empty inline map: all zeros.
std::vector<std::uint8_t> EmptyInlineMap(const Layout& layout);

}  // namespace jet::detail
