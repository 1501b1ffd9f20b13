#include "jet/query/engine.h"

#include "jet/catalog/properties.h"
#include "jet/error.h"
#include "jet/table/names.h"
#include "jet/verify/wholeness.h"

#include <algorithm>

namespace jet::detail {

Engine::Engine(std::unique_ptr<PageFile> file)
    : file_(std::move(file)), catalog_(*file_), loss_(FindLoss(*file_, catalog_)) {
    if (loss_) file_->SetReadOnly();
}

OpenTable& Engine::Table(std::string_view name) {
    const std::string known = Unalias(name);
    const auto& all = catalog_.UserTables();
    const auto found = std::find_if(all.begin(), all.end(), [&](const CatalogTable& table) {
        return SameName(table.name, known);
    });
    if (found == all.end()) {
        const auto& linked = catalog_.LinkedTables();
        if (std::any_of(linked.begin(), linked.end(),
                        [&](const auto& l) { return SameName(l, known); })) {
            throw Error{ErrorNumber::NotSupported,
                        "table " + known + " is linked from another file"};
        }
        // In a file that lost a part a table may be missing because its entry is.
        if (loss_) {
            throw Error{ErrorNumber::NotADatabase,
                        "no table or query " + Excerpt(name) + "; lost: " + loss_->what};
        }
        throw Error{ErrorNumber::TableNotFound, "no table or query " + Excerpt(name)};
    }
    return TableAt(found->page);
}

OpenTable& Engine::TableAt(std::uint32_t page) {
    const auto open = tables_.find(page);
    if (open != tables_.end()) return *open->second;
    const auto& all = catalog_.UserTables();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&](const CatalogTable& table) { return table.page == page; });
    if (found == all.end()) ThrowDamaged(page, 0, "not the definition of a user's table");
    // Made before it is entered: a damaged definition throws and leaves no empty entry.
    auto table = std::make_unique<OpenTable>(*file_, found->name, page);
    return *tables_.emplace(page, std::move(table)).first->second;
}

const std::vector<Relation>& Engine::Relations() {
    if (!relations_) relations_ = ReadRelations(*file_, catalog_);
    return *relations_;
}

const RowRules& Engine::RulesOf(const OpenTable& table) {
    const std::uint32_t page = table.Def().page;
    if (const auto known = rules_.find(page); known != rules_.end()) return known->second;
    RowRules rules(table.Def(),
                   ReadRules(catalog_.PropertiesOf(page), TextFormOf(*file_), table.Def()));
    return rules_.emplace(page, std::move(rules)).first->second;
}

bool Engine::HasTable(std::string_view name) const {
    const auto& all = catalog_.UserTables();
    return std::any_of(all.begin(), all.end(),
                       [&](const CatalogTable& table) { return SameName(table.name, name); });
}

std::optional<std::size_t> Engine::ColumnPosition(const OpenTable& table,
                                                  std::string_view name) const {
    if (const auto position = table.Def().PositionOf(name)) return position;
    const auto alias = columnAliases_.find({FoldName(table.Design().name), FoldName(name)});
    if (alias == columnAliases_.end() || alias->second >= table.Def().columns.size()) {
        return std::nullopt;
    }
    return alias->second;
}

void Engine::AliasTable(std::string_view alias, std::string_view table) {
    tableAliases_[FoldName(alias)] = table;
}

void Engine::AliasColumn(std::string_view table, std::string_view alias, std::size_t position) {
    columnAliases_[{FoldName(Unalias(table)), FoldName(alias)}] = position;
}

std::string Engine::Unalias(std::string_view name) const {
    const auto alias = tableAliases_.find(FoldName(name));
    const bool isAlias =
        alias != tableAliases_.end() && !HasTable(name) && !catalog_.HasQuery(name);
    return isAlias ? alias->second : std::string(name);
}

void Engine::BeginTransaction() {
    if (depth_ == 0) {
        file_->Begin();
        doomed_ = false;
    }
    ++depth_;
}

void Engine::CommitTransaction() {
    if (--depth_ > 0) return;
    if (doomed_) {
        file_->Rollback();
        AfterRollback();
        throw Error{ErrorNumber::InvalidProcedureCall,
                    "commit of a transaction of which a part was rolled back"};
    }
    try {
        file_->Commit();
    } catch (const std::bad_alloc&) {
        AfterRollback();
        ThrowOutOfMemory();
    } catch (...) {
        AfterRollback();
        throw;
    }
}

void Engine::RollbackTransaction() {
    if (--depth_ > 0) {
        doomed_ = true;
        return;
    }
    file_->Rollback();
    AfterRollback();
}

PageJournal& Engine::KeepJournal(JournalLimits limits) {
    if (!journal_) {
        journal_ = std::make_unique<PageJournal>(limits, file_->Format().pageSize);
        file_->SetJournal(journal_.get());
    }
    return *journal_;
}

void Engine::Replay(PageJournal::Way way) {
    RequireWritable();
    if (InTransaction()) {
        throw Error{ErrorNumber::InvalidProcedureCall, "undo or redo inside a transaction"};
    }
    const EarlierPages& pages = journal_->Start(way);
    try {
        Statement([&] {
            file_->PutBack(pages);
            return true;
        });
    } catch (...) {
        journal_->GiveUp();
        throw;
    }
    journal_->Finish(way);
    // What is known of the tables is of the pages before.
    AfterRollback();
}

void Engine::RequireWritable() const {
    if (file_->ReadOnly()) {
        throw Error{ErrorNumber::ReadOnly,
                    "file is open for reading only: " + file_->Path().string() +
                        (loss_ ? "; lost: " + loss_->what : "")};
    }
}

/// What was to be changed is as it was, in memory and in the file, when this is thrown.
void Engine::ThrowOutOfMemory() {
    throw Error{ErrorNumber::OutOfMemory, "memory ran out, nothing was changed"};
}

void Engine::AfterRollback() noexcept {
    for (auto& [page, table] : tables_) table->AfterRollback();
}

}  // namespace jet::detail
