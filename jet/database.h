#pragma once
// An open Access-format file: its tables by name, queries on them, and new files.

#include "jet/design.h"
#include "jet/loss.h"
#include "jet/recordset.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jet {

enum class Access { ReadWrite, ReadOnly };

namespace detail {
class Engine;
class OpenFile;
}  // namespace detail

/// A file of the format. One object per file and process: opening a path that is open gives the
/// same object, so a second Open is cheap and sees the same rows. Not thread-safe.
class Database : public std::enable_shared_from_this<Database> {
  public:
    /// Throws FileNotFound, PermissionDenied, NotADatabase, NewerFormat, ForeignFormat, Encrypted,
    /// PasswordProtected. A file that cannot be written opens too; its edits throw ReadOnly. A file
    /// that is open already stays as it was opened, whatever access is asked for now.
    static std::shared_ptr<Database> Open(const std::filesystem::path& path,
                                          Access access = Access::ReadWrite);

    /// The file when it is open in this process, by whatever name; null otherwise.
    static std::shared_ptr<Database> FindOpen(const std::filesystem::path& path);

    /// A copy of the file in memory, which is nobody else's: its edits reach the disk by SaveAs
    /// alone. Throws what Open throws.
    static std::shared_ptr<Database> LoadCopy(const std::filesystem::path& path);

    /// Writes a new file (Jet 4) with the given empty tables, whole and synced; an existing file is
    /// replaced. `created` is the date that the file's catalog says of every table; none = now
    /// (UTC). Throws DiskFull, DeviceIo, PermissionDenied, FileInUse when the file is open here,
    /// InvalidProcedureCall for an impossible design.
    static void Create(const std::filesystem::path& path, std::span<const TableDesign> tables,
                       std::optional<Date> created = std::nullopt);

    /// Removes what processes that were killed while they stored this file left beside it; what a
    /// living one is using stays. For who alone may write the file, before opening it or after
    /// deleting it. Never fails: what cannot be removed stays.
    static void RemoveLeftOvers(const std::filesystem::path& path) noexcept;

    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    /// `source` is a SELECT text (SQL.md), or the name of a table or of a saved query over one
    /// table. Its rows are looked for when they are first asked for, not here.
    std::shared_ptr<RecordSet> OpenRecordSet(std::string_view source);

    /// Runs a DELETE text and returns the number of rows deleted. All of it is stored, or nothing.
    std::int32_t Execute(std::string_view sql);

    /// Writes the whole file to `path`, as Create does.
    void SaveAs(const std::filesystem::path& path) const;
    /// The same for what is to be a copy of `source`: a new file gets the mode of that one.
    void SaveAsCopyOf(const Database& source, const std::filesystem::path& path) const;

    /// Keeps `companion`, a lock for instance, for as long as the file is open here. It replaces a
    /// former one.
    void Attach(std::shared_ptr<void> companion) { companion_ = std::move(companion); }
    const std::shared_ptr<void>& Attached() const noexcept { return companion_; }

    /// Ends the use of the file for everybody who shares this object: later calls on it and on its
    /// record sets throw ObjectClosed. A transaction still open is rolled back.
    void Close() noexcept;

    bool IsOpen() const noexcept;
    bool ReadOnly() const noexcept;
    /// What the file lacks; none = it is whole. A file that lacks a part is read-only: what is left
    /// of it can be read, and what was lost reads as an error, never as something else.
    const std::optional<Loss>& LostPart() const;
    int Version() const;  ///< 3 (Access 97) or 4 (Access 2000 to 2003)
    const std::filesystem::path& Path() const noexcept;

    std::vector<std::string> TableNames() const;   ///< user tables, in catalog order
    std::vector<std::string> LinkedNames() const;  ///< linked tables, which cannot be opened
    bool HasSource(std::string_view name) const;   ///< a user table or saved query of that name
    TableDesign Describe(std::string_view table) const;
    /// The enforced relations between the users' tables, by the order of the tables.
    std::vector<RelationDesign> Relations() const;
    /// What the file asks of a table's values, written by the program that made it. Throws
    /// NotADatabase when it cannot be read.
    TableRules Rules(std::string_view table) const;
    /// All saved queries. Those over one table open as record sets (SQL.md says which).
    std::vector<QueryDesign> SavedQueries() const;
    std::int32_t StoredRowCount(std::string_view table) const;  ///< as the file says, unchecked

    /// From now on `alias` names `table` wherever the file has no table or query of that name.
    void AliasTable(std::string_view alias, std::string_view table);
    /// From now on `alias` names the column at `position` of `table` unless a column has that name.
    void AliasColumn(std::string_view table, std::string_view alias, std::size_t position);

    /// Every contradiction in the file (pages, maps, rows, indexes, counts), one line each; empty =
    /// sound.
    std::vector<std::string> Verify() const;

  private:
    friend class Transaction;
    explicit Database(std::unique_ptr<detail::Engine> engine);
    detail::Engine& RequireOpen() const;
    /// The open file for what works on it; whoever holds that keeps this object alive.
    std::shared_ptr<const detail::OpenFile> Shared() const;

    std::unique_ptr<detail::OpenFile> file_;
    bool readOnly_ = false;
    std::shared_ptr<void> companion_;
};

}  // namespace jet
