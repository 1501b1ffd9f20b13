#pragma once
// An open Access-format file: its tables by name, queries on them, and new files.

#include "jet/design.h"
#include "jet/loss.h"
#include "jet/recordset.h"

#include <cstdint>
#include <filesystem>
#include <functional>
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
/// same object, so a second Open is cheap and sees the same rows.
///
/// Lifetimes: record sets and transactions keep the object alive; the file is closed when the last
/// of them is gone, or by Close. References that a call returns hold until Close, all other results
/// are copies. After Close every call throws ObjectClosed but Close, IsOpen, ReadOnly, Path, Attach
/// and Attached.
///
/// Threads: open and close files on one thread, and use a database and all that comes from it from
/// one thread at a time.
///
/// Errors: every call that looks into the file throws NotADatabase where it finds damage, and
/// std::bad_alloc when memory runs out. What each call throws beside that is said with it.
class Database : public std::enable_shared_from_this<Database> {
  public:
    /// Reads the whole file, and looks whether it is all there. Throws FileNotFound, PathNotFound,
    /// PermissionDenied, DeviceIo, NotADatabase, NewerFormat, ForeignFormat, Encrypted,
    /// PasswordProtected, ChangedByOther (it was being written meanwhile). A file that cannot be
    /// written opens too; its edits throw ReadOnly. A file that is open already stays as it was
    /// opened, whatever access is asked for now.
    static std::shared_ptr<Database> Open(const std::filesystem::path& path,
                                          Access access = Access::ReadWrite);

    /// The file when it is open in this process, by whatever name; null otherwise.
    /// Never throws but std::bad_alloc.
    static std::shared_ptr<Database> FindOpen(const std::filesystem::path& path);

    /// A copy of the file in memory, which is nobody else's: its edits reach the disk by SaveAs
    /// alone, and Path is empty. Reads the whole file. Throws what Open throws.
    static std::shared_ptr<Database> LoadCopy(const std::filesystem::path& path);

    /// Writes a new file (Jet 4) with the given empty tables, whole and synced; an existing file is
    /// replaced and keeps its mode, a new one follows the umask. `created` is the date that the
    /// file's catalog says of every table; none = now (UTC). Throws PathNotFound, DiskFull,
    /// DeviceIo, PermissionDenied, ReadOnly, FileInUse when the file is open here,
    /// InvalidProcedureCall for an impossible design; then nothing was written.
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
    /// table. Its rows are looked for when they are first asked for, not here. Never null. Throws
    /// SyntaxError, TableNotFound, TooFewParameters (a name that is no column), TypeMismatch,
    /// NotSupported for a linked table or a query of another kind.
    std::shared_ptr<RecordSet> OpenRecordSet(std::string_view source);

    /// Runs a DELETE text and returns the number of rows deleted; rows of other tables that went
    /// with them do not count. All of it is stored when this returns (in a Transaction: with that),
    /// or nothing. Throws what OpenRecordSet throws for the text and RecordSet::Delete
    /// for the rows.
    std::int32_t Execute(std::string_view sql);

    /// Writes the whole file to `path`, as Create does and throwing what that throws; this object
    /// goes on with the file that it had.
    void SaveAs(const std::filesystem::path& path) const;
    /// The same for what is to be a copy of `source`: a new file gets the mode of that one.
    void SaveAsCopyOf(const Database& source, const std::filesystem::path& path) const;

    /// Keeps `companion`, a lock for instance, for as long as the file is open here. It replaces a
    /// former one, and is let go by Close. Never throws.
    void Attach(std::shared_ptr<void> companion) { companion_ = std::move(companion); }
    const std::shared_ptr<void>& Attached() const noexcept { return companion_; }

    /// From now on `work` is called whenever a changed version is about to take the file's place,
    /// which is the old one still. It must not use the database, and nothing that it throws keeps
    /// the store from going on. An empty one ends it.
    void CallBeforeStoring(std::function<void()> work);

    /// Ends the use of the file for everybody who shares this object: later calls on it and on its
    /// record sets throw ObjectClosed. A transaction still open is rolled back. Nothing of ours is
    /// left beside the file. A second call does nothing.
    void Close() noexcept;

    bool IsOpen() const noexcept;
    /// Whether edits throw ReadOnly: as it was asked for, or because the file or its folder is
    /// write-protected, or it lost a part.
    bool ReadOnly() const noexcept;
    /// What the file lacks; none = it is whole. A file that lacks a part is read-only: what is left
    /// of it can be read, and what was lost reads as an error, never as something else.
    const std::optional<Loss>& LostPart() const;
    int Version() const;  ///< 3 (Access 97) or 4 (Access 2000 to 2003)
    /// The file itself, all links followed; as it was opened, also after Close.
    const std::filesystem::path& Path() const noexcept;

    std::vector<std::string> TableNames() const;   ///< user tables, in catalog order
    std::vector<std::string> LinkedNames() const;  ///< linked tables, which cannot be opened
    /// Whether there is a user's table or a saved query of that name, letter case ignored.
    bool HasSource(std::string_view name) const;
    /// Throws TableNotFound, NotSupported for a linked table.
    TableDesign Describe(std::string_view table) const;
    /// The enforced relations between the users' tables, by the order of the tables.
    std::vector<RelationDesign> Relations() const;
    /// What the file asks of a table's values, written by the program that made it. Throws
    /// TableNotFound, NotSupported for a linked table.
    TableRules Rules(std::string_view table) const;
    /// All saved queries. Those over one table open as record sets (SQL.md says which).
    std::vector<QueryDesign> SavedQueries() const;
    /// The number of rows that the file says the table has, without looking. Throws TableNotFound,
    /// NotSupported for a linked table.
    std::int32_t StoredRowCount(std::string_view table) const;

    /// From now on `alias` names `table` wherever the file has no table or query of that name. For
    /// this object alone; nothing of it is stored. Neither name is checked before it is used.
    void AliasTable(std::string_view alias, std::string_view table);
    /// The same for the column at `position` of `table`, unless a column has that name.
    void AliasColumn(std::string_view table, std::string_view alias, std::size_t position);

    /// Every contradiction in the file (pages, maps, rows, indexes, counts), an English line each,
    /// at most 1000; empty = sound. Reads everything and takes memory with the number of rows. What
    /// a transaction that is open has changed is looked at as it is in memory.
    std::vector<std::string> Verify() const;

  private:
    friend class Transaction;
    friend class Journal;
    explicit Database(std::unique_ptr<detail::Engine> engine);
    detail::Engine& RequireOpen() const;
    /// The open file for what works on it; whoever holds that keeps this object alive.
    std::shared_ptr<const detail::OpenFile> Shared() const;

    std::unique_ptr<detail::OpenFile> file_;
    bool readOnly_ = false;
    std::shared_ptr<void> companion_;
};

}  // namespace jet
