#include "jet/database.h"

#include "jet/create/newfile.h"
#include "jet/error.h"
#include "jet/files.h"
#include "jet/query/edits.h"
#include "jet/query/engine.h"
#include "jet/query/keysetrecordset.h"
#include "jet/query/openfile.h"
#include "jet/query/queryplan.h"
#include "jet/storage/filestore.h"
#include "jet/verify/verify.h"

#include <chrono>

namespace jet {
namespace {

using detail::Engine;

/// The open files of this process. Closed ones are dropped when somebody looks.
std::vector<std::weak_ptr<Database>>& OpenFiles() {
    static std::vector<std::weak_ptr<Database>> files;
    return files;
}

void RequireNotOpen(const std::filesystem::path& path) {
    if (Database::FindOpen(path) != nullptr) {
        throw Error{ErrorNumber::FileInUse, "file is open: " + path.string()};
    }
}

Date Now() {
    using namespace std::chrono;
    constexpr sys_days kDayZero = year{1899} / December / 30;
    return Date{duration<double, days::period>(system_clock::now() - kDayZero).count()};
}

}  // namespace

Database::Database(std::unique_ptr<Engine> engine)
    : file_(std::make_unique<detail::OpenFile>(std::move(engine))),
      readOnly_(file_->Get().File().ReadOnly()) {}

Database::~Database() {
    Close();
}

std::shared_ptr<Database> Database::FindOpen(const std::filesystem::path& path) {
    auto& files = OpenFiles();
    std::erase_if(files, [](const std::weak_ptr<Database>& file) {
        const auto database = file.lock();
        return database == nullptr || !database->IsOpen();
    });
    for (const std::weak_ptr<Database>& file : files) {
        auto database = file.lock();
        if (IsSameFile(database->Path(), path)) return database;
    }
    return nullptr;
}

std::shared_ptr<Database> Database::LoadCopy(const std::filesystem::path& path) {
    auto file = detail::PageFile::FromImage(detail::Load(path).image);
    return std::shared_ptr<Database>(new Database(std::make_unique<Engine>(std::move(file))));
}

std::shared_ptr<Database> Database::Open(const std::filesystem::path& path, Access access) {
    // An empty path would resolve to the current folder.
    if (path.empty()) throw Error{ErrorNumber::FileNotFound, "no file name"};
    const std::filesystem::path resolved = detail::Resolve(path);
    if (auto open = FindOpen(resolved)) return open;
    auto file = detail::PageFile::Open(path);
    if (access == Access::ReadOnly) file->SetReadOnly();
    if (!file->ReadOnly()) detail::RemoveLeftOvers(resolved);
    // The constructor is private, which make_shared cannot reach.
    std::shared_ptr<Database> database(new Database(std::make_unique<Engine>(std::move(file))));
    OpenFiles().push_back(database);
    return database;
}

void Database::Create(const std::filesystem::path& path, std::span<const TableDesign> tables,
                      std::optional<Date> created) {
    RequireNotOpen(path);
    detail::NewFile(tables, created.value_or(Now()))->SaveAs(path);
}

std::shared_ptr<RecordSet> Database::OpenRecordSet(std::string_view source) {
    return std::make_shared<detail::KeysetRecordSet>(Shared(),
                                                     detail::PlanSource(RequireOpen(), source));
}

std::int32_t Database::Execute(std::string_view sql) {
    Engine& engine = RequireOpen();
    const detail::QueryPlan plan = detail::PlanDelete(engine, sql);
    return engine.Statement([&] {
        const auto rows = plan.Rows(detail::Ordering(plan.table->Store(), {}));
        detail::DeleteRows(engine, *plan.table, rows);
        return static_cast<std::int32_t>(rows.size());
    });
}

void Database::SaveAs(const std::filesystem::path& path) const {
    RequireNotOpen(path);
    RequireOpen().File().SaveAs(path);
}

void Database::SaveAsCopyOf(const Database& source, const std::filesystem::path& path) const {
    RequireNotOpen(path);
    RequireOpen().File().SaveAsCopyOf(source.Path(), path);
}

void Database::RemoveLeftOvers(const std::filesystem::path& path) noexcept {
    detail::RemoveLeftOvers(path);
}

void Database::CallBeforeStoring(std::function<void()> work) {
    RequireOpen().File().SetBeforeStoring(std::move(work));
}

void Database::Close() noexcept {
    file_->Close();
    companion_.reset();
}

bool Database::IsOpen() const noexcept {
    return file_->IsOpen();
}
bool Database::ReadOnly() const noexcept {
    return readOnly_;
}
const std::optional<Loss>& Database::LostPart() const {
    return RequireOpen().LostPart();
}
int Database::Version() const {
    return RequireOpen().File().Format().version;
}
const std::filesystem::path& Database::Path() const noexcept {
    return file_->Path();
}

std::vector<std::string> Database::TableNames() const {
    std::vector<std::string> names;
    for (const auto& table : RequireOpen().Objects().UserTables()) names.push_back(table.name);
    return names;
}

std::vector<std::string> Database::LinkedNames() const {
    return RequireOpen().Objects().LinkedTables();
}

bool Database::HasSource(std::string_view name) const {
    const Engine& engine = RequireOpen();
    return engine.HasTable(name) || engine.Objects().HasQuery(name);
}

TableDesign Database::Describe(std::string_view table) const {
    return RequireOpen().Table(table).Design();
}

std::vector<RelationDesign> Database::Relations() const {
    Engine& engine = RequireOpen();
    const auto names = [&](const detail::RelationEnd& end) {
        std::vector<std::string> columns;
        if (end.table == 0) return columns;
        for (const std::size_t position : end.positions) {
            columns.push_back(engine.TableAt(end.table).Def().columns[position].name);
        }
        return columns;
    };
    std::vector<RelationDesign> designs;
    for (const detail::Relation& relation : engine.Relations()) {
        designs.push_back({relation.name, relation.referencing.name, names(relation.referencing),
                           relation.referenced.name, names(relation.referenced),
                           relation.cascadeUpdates, relation.cascadeDeletes});
    }
    return designs;
}

TableRules Database::Rules(std::string_view table) const {
    Engine& engine = RequireOpen();
    return engine.RulesOf(engine.Table(table)).Texts();
}

std::vector<QueryDesign> Database::SavedQueries() const {
    return RequireOpen().Objects().QueryTexts();
}

std::int32_t Database::StoredRowCount(std::string_view table) const {
    return static_cast<std::int32_t>(RequireOpen().Table(table).Def().rowCount);
}

void Database::AliasTable(std::string_view alias, std::string_view table) {
    RequireOpen().AliasTable(alias, table);
}

void Database::AliasColumn(std::string_view table, std::string_view alias, std::size_t position) {
    RequireOpen().AliasColumn(table, alias, position);
}

std::vector<std::string> Database::Verify() const {
    return detail::Verify(RequireOpen().File()).faults;
}

Engine& Database::RequireOpen() const {
    return file_->Get();
}

std::shared_ptr<const detail::OpenFile> Database::Shared() const {
    return {shared_from_this(), file_.get()};
}

}  // namespace jet
