#pragma once
// One open file: pages, catalog, the tables in use, names given by the program, and what makes a
// statement or a transaction whole.

#include "jet/catalog/catalog.h"
#include "jet/catalog/relations.h"
#include "jet/loss.h"
#include "jet/query/opentable.h"
#include "jet/query/rowrules.h"
#include "jet/storage/pagefile.h"
#include "jet/storage/pagejournal.h"

#include <cstdint>
#include <map>
#include <memory>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jet::detail {

class Engine {
  public:
    explicit Engine(std::unique_ptr<PageFile> file);

    PageFile& File() { return *file_; }
    const Catalog& Objects() const { return catalog_; }
    /// What the file lacked when it was opened; it is read-only then.
    const std::optional<Loss>& LostPart() const { return loss_; }

    /// By name or alias, letter case ignored. Throws TableNotFound,
    /// NotSupported for a linked table.
    OpenTable& Table(std::string_view name);
    /// By the page of its definition; a user's table.
    OpenTable& TableAt(std::uint32_t page);
    bool HasTable(std::string_view name) const;
    /// The enforced relations between the tables.
    const std::vector<Relation>& Relations();
    /// What the file asks of the table's values. Throws NotADatabase when that cannot be read.
    const RowRules& RulesOf(const OpenTable& table);
    /// The column that a name or alias stands for.
    std::optional<std::size_t> ColumnPosition(const OpenTable& table, std::string_view name) const;

    void AliasTable(std::string_view alias, std::string_view table);
    void AliasColumn(std::string_view table, std::string_view alias, std::size_t position);
    /// What a name of a table or query stands for: itself, or the table of its alias.
    std::string Unalias(std::string_view name) const;

    /// Runs a change of the file: all of it happens or nothing. Outside a transaction it is on the
    /// disk when this returns.
    template <typename Work>
    auto Statement(Work&& work);

    void BeginTransaction();
    void CommitTransaction();
    void RollbackTransaction();
    bool InTransaction() const { return depth_ > 0; }

    /// The journal of what is stored from the first call on.
    PageJournal& KeepJournal(JournalLimits limits);
    /// Null before.
    PageJournal* Journal() const { return journal_.get(); }
    /// Puts the pages of the next step back and stores that.
    void Replay(PageJournal::Way way);

  private:
    void RequireWritable() const;
    void AfterRollback() noexcept;
    [[noreturn]] static void ThrowOutOfMemory();

    std::unique_ptr<PageJournal> journal_;  ///< outlives the file that writes into it
    std::unique_ptr<PageFile> file_;
    Catalog catalog_;
    std::optional<Loss> loss_;
    std::optional<std::vector<Relation>> relations_;  ///< once they were asked for
    std::map<std::uint32_t, std::unique_ptr<OpenTable>> tables_;
    std::map<std::uint32_t, RowRules> rules_;  ///< by the page of the table's definition
    std::map<std::string, std::string> tableAliases_;
    std::map<std::pair<std::string, std::string>, std::size_t> columnAliases_;
    std::size_t depth_ = 0;
    bool doomed_ = false;  ///< an inner transaction was rolled back
};

template <typename Work>
auto Engine::Statement(Work&& work) {
    RequireWritable();
    try {
        UndoScope scope(*file_);
        auto result = work();
        scope.Commit();
        return result;
    } catch (const std::bad_alloc&) {
        AfterRollback();
        ThrowOutOfMemory();
    } catch (...) {
        AfterRollback();
        throw;
    }
}

}  // namespace jet::detail
