#pragma once
// The file as pages in memory. Changes are undone in memory by Rollback, and reach the disk by
// Commit, all or none. Knows nothing of what the pages hold but the header.

#include "jet/storage/bytes.h"
#include "jet/storage/earlierpages.h"
#include "jet/storage/fileimage.h"
#include "jet/storage/header.h"
#include "jet/storage/layout.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace jet::detail {

class PageJournal;
class StoredFile;

class PageFile {
  public:
    /// Throws what Load throws, and NotADatabase (damaged), ForeignFormat (another product's file
    /// or no database), NewerFormat, Encrypted, PasswordProtected. A file whose size is not a whole
    /// number of pages, or that may not be replaced, is read-only.
    static std::unique_ptr<PageFile> Open(const std::filesystem::path& path);

    /// The same checks on bytes in memory; such a file has no place on disk until SaveAs.
    static std::unique_ptr<PageFile> FromImage(FileImage image);

    /// A file of no pages yet; its pages are appended and edited without a transaction, then saved
    /// by SaveAs. What its first page is to say is written by the caller.
    static std::unique_ptr<PageFile> New(const Layout& layout, const FileHeader& header = {});

    ~PageFile();
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;

    const Layout& Format() const { return layout_; }
    const FileHeader& Header() const { return header_; }
    const std::filesystem::path& Path() const { return path_; }
    bool ReadOnly() const { return readOnly_; }
    void SetReadOnly() { readOnly_ = true; }

    std::uint32_t PageCount() const { return pageCount_; }
    std::uint64_t ByteCount() const { return image_.Size(); }

    /// One page. Throws NotADatabase for a page that is not in the file. Stays valid while the file
    /// grows; its bytes change with the page.
    ByteView Page(std::uint32_t page) const {
        if (page >= pageCount_) [[unlikely]] {
            ThrowNoSuchPage(page);
        }
        return {image_.At(static_cast<std::uint64_t>(page) << pageShift_), layout_.pageSize};
    }
    /// The same to write to; the old image is kept for Rollback. Throws ReadOnly.
    ByteSpan EditPage(std::uint32_t page);
    /// A page of zeros at the end of the file. Throws NotSupported at the format's largest size.
    std::uint32_t AppendPage();

    /// Begin opens a level of undo; levels nest. The outermost is the transaction: its Commit
    /// writes the file. An inner one is a savepoint, for one statement: its Commit joins the
    /// changes to the outer level.
    void Begin();
    /// Outermost level: stores the file when something changed. Throws DiskFull, DeviceIo,
    /// PermissionDenied, ReadOnly, ChangedByOther, FileNotFound, and bad_alloc; then everything
    /// since Begin is rolled back, in memory and in the file. An inner level that throws is rolled
    /// back as well.
    void Commit();
    /// Takes back everything since the matching Begin. Takes no memory, so it cannot fail.
    void Rollback() noexcept;
    std::size_t Depth() const { return levels_.size(); }

    /// Makes the pages what they were, and as many, inside a level. Throws what EditPage and
    /// AppendPage throw.
    void PutBack(const EarlierPages& earlier);
    /// Gets what every later Commit replaces, or null: nobody does. It outlives the file.
    void SetJournal(PageJournal* journal) { journal_ = journal; }
    /// Called before each store.
    void SetBeforeStoring(std::function<void()> work) { beforeStoring_ = std::move(work); }

    /// Writes all pages to `path` (a new file, or in the place of one).
    /// The object is not bound to it.
    void SaveAs(const std::filesystem::path& path) const;
    void SaveAsCopyOf(const std::filesystem::path& source, const std::filesystem::path& path) const;

    /// Pages that were freed since the file was opened, for AllocatePage and FreePage alone: a page
    /// that the file calls free is not trusted to be so, only one that we freed.
    std::optional<std::uint32_t> TakeFreed();
    void GiveFreed(std::uint32_t page);

  private:
    using Level = EarlierPages;  ///< at its Begin

    PageFile(const Layout& layout, FileImage image);
    [[noreturn]] void ThrowNoSuchPage(std::uint32_t page) const;
    void SwapImages(Level& level) noexcept;
    void JoinOuter() noexcept;
    void CutTo(std::uint32_t pageCount);
    void KeepFreed();
    void Store();
    std::vector<std::uint32_t> ChangedPages(const Level& level) const;
    bool IsBefore(const Level& level, const FileImage& image) const;

    const Layout& layout_;
    unsigned pageShift_;
    FileHeader header_;
    FileImage image_;
    std::uint32_t pageCount_ = 0;
    std::filesystem::path path_;
    std::unique_ptr<StoredFile> stored_;  ///< none: it has no place on disk
    bool readOnly_ = false;
    std::vector<Level> levels_;
    std::vector<std::uint32_t> freed_;  ///< descending: the lowest is given out first
    PageJournal* journal_ = nullptr;
    std::function<void()> beforeStoring_;
};

/// Begin, and Rollback unless Commit was called: one level of undo bound to a scope.
class UndoScope {
  public:
    explicit UndoScope(PageFile& file) : file_(file) { file_.Begin(); }
    ~UndoScope() {
        if (open_) file_.Rollback();
    }
    UndoScope(const UndoScope&) = delete;
    UndoScope& operator=(const UndoScope&) = delete;
    void Commit() {
        open_ = false;
        file_.Commit();
    }

  private:
    PageFile& file_;
    bool open_ = true;
};

}  // namespace jet::detail
