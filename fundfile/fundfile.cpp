#include "fundfile/fundfile.h"

#include "base/error.h"
#include "base/number.h"
#include "fundfile/schema.h"

#include <QLockFile>

#include <chrono>
#include <map>
#include <string_view>
#include <system_error>
#include <utility>

namespace {

namespace fs = std::filesystem;

/// A lock file that nobody finished writing is left behind by a crash; after this time nobody will.
constexpr std::chrono::seconds kUnfinishedLockAge{10};

fs::path LockPath(const fs::path& realPath) {
    return fs::path(realPath) += ".lock";
}

QString ToQt(const fs::path& path) {
    return QString::fromStdString(path.string());
}

/// Links resolved, so that one file has one lock.
fs::path RealPath(const fs::path& path) {
    std::error_code code;
    fs::path real = fs::canonical(path, code);
    if (path.empty() || code == std::errc::no_such_file_or_directory) {
        throw Error{ErrorNumber::FileNotFound, "there is no file " + path.string()};
    }
    if (code) {
        throw Error{ErrorNumber::PermissionDenied, path.string() + ": " + code.message()};
    }
    return real;
}

struct Claim {
    std::unique_ptr<QLockFile> lock;  // null: not ours
    WriteRight right = WriteRight::Ours;
    std::string owner;
};

std::string OwnerOf(const QLockFile& lock) {
    qint64 process = 0;
    QString host, application;
    if (!lock.getLockInfo(&process, &host, &application)) {
        return {};
    }
    return "process " + PlainText(std::int64_t{process}) + ", dator " + host.toStdString();
}

Claim ClaimWriting(const fs::path& realPath) {
    auto lock = std::make_unique<QLockFile>(ToQt(LockPath(realPath)));
    // A copy may be open for days: a lock is stale when its process is gone, never by its age ...
    lock->setStaleLockTime(0);
    if (lock->tryLock(0)) {
        return {std::move(lock), WriteRight::Ours, {}};
    }
    if (lock->error() == QLockFile::LockFailedError && OwnerOf(*lock).empty()) {
        // ... except where it names no process, since the machine stopped while it was written.
        lock->setStaleLockTime(kUnfinishedLockAge);
        if (lock->tryLock(0)) {
            lock->setStaleLockTime(0);
            return {std::move(lock), WriteRight::Ours, {}};
        }
    }
    switch (lock->error()) {
        case QLockFile::LockFailedError:
            return {nullptr, WriteRight::OtherCopy, OwnerOf(*lock)};
        case QLockFile::PermissionError:
            return {nullptr, WriteRight::FolderProtected, {}};
        default:
            return {nullptr, WriteRight::CannotLock, {}};
    }
}

/// One fund file that is open here. Its users share it through FundFile::database.
struct Held {
    std::shared_ptr<jet::Database> database;
    Claim claim;
};

/// By real path. Ends when the program does; entries of files that nobody uses any more are empty.
std::map<fs::path, std::weak_ptr<Held>>& OpenFiles() {
    static std::map<fs::path, std::weak_ptr<Held>> files;
    return files;
}

std::shared_ptr<Held> FindOpen(const fs::path& realPath) {
    const auto found = OpenFiles().find(realPath);
    if (found == OpenFiles().end()) {
        return nullptr;
    }
    std::shared_ptr<Held> held = found->second.lock();
    if (held && held->database->IsOpen()) {
        return held;
    }
    if (held) {
        held->claim.lock.reset();  // closed behind our back; its last users no longer write
    }
    OpenFiles().erase(found);
    return nullptr;
}

FundFile Share(const std::shared_ptr<Held>& held) {
    return {std::shared_ptr<jet::Database>(held, held->database.get()), held->claim.right,
            held->claim.owner};
}

void CheckColumns(jet::Database& database, std::string_view source, std::size_t needed) {
    const std::size_t count = database.OpenRecordSet(source)->FieldCount();
    if (count < needed) {
        throw Error{ErrorNumber::FieldNotFound, std::string(source) + " has " +
                                                    PlainText(static_cast<std::int64_t>(count)) +
                                                    " columns, a fund file needs " +
                                                    PlainText(static_cast<std::int64_t>(needed))};
    }
}

template <typename Names>
void NameColumns(jet::Database& database, std::string_view table, const Names& names) {
    for (std::size_t position = 0; position < names.size(); ++position) {
        database.AliasColumn(table, names[position], position);
    }
}

void RequireFundFile(jet::Database& database) {
    for (const std::string_view table : {schema::kHoldingsTable, schema::kPointsTable}) {
        if (!database.HasSource(table)) {
            throw Error{ErrorNumber::TableNotFound,
                        database.Path().string() + " has no table " + std::string(table)};
        }
    }
    CheckColumns(database, schema::kHoldingsTable, schema::holding::kColumnCount);
    CheckColumns(database, schema::kPointsTable, schema::point::kColumnCount);
    database.AliasTable(schema::kHoldingsSource, schema::kHoldingsTable);
    database.AliasColumn(schema::kHoldingsTable, schema::kKontoId, schema::holding::kKontoId);
    NameColumns(database, schema::kPointsTable, schema::point::kNames);
    CheckColumns(database, schema::kHoldingsSource, schema::holding::kColumnCount);
}

}  // namespace

FundFile OpenFundFile(const fs::path& path) {
    const fs::path realPath = RealPath(path);
    if (const std::shared_ptr<Held> held = FindOpen(realPath)) {
        return Share(held);
    }
    const auto held = std::make_shared<Held>();
    held->claim =
        ClaimWriting(realPath);  // first, so that nobody writes between reading and claiming
    held->database = jet::Database::Open(
        realPath, held->claim.lock ? jet::Access::ReadWrite : jet::Access::ReadOnly);
    try {
        RequireFundFile(*held->database);
    } catch (const Error&) {
        held->database->Close();
        throw;
    }
    if (held->claim.lock && held->database->ReadOnly()) {
        held->claim = {nullptr, WriteRight::FileProtected, {}};
    }
    OpenFiles()[realPath] = held;
    return Share(held);
}

void CloseFundFile(std::shared_ptr<jet::Database>& database) noexcept {
    if (!database) {
        return;
    }
    database->Close();
    for (auto entry = OpenFiles().begin(); entry != OpenFiles().end(); ++entry) {
        const std::shared_ptr<Held> held = entry->second.lock();
        if (held && held->database.get() == database.get()) {
            held->claim.lock.reset();
            OpenFiles().erase(entry);
            break;
        }
    }
    database.reset();
}

void CheckNotInUse(const fs::path& path) {
    std::error_code code;
    const fs::path realPath = fs::canonical(path, code);
    if (code) {
        return;  // what does not exist is not in use
    }
    if (FindOpen(realPath) || ClaimWriting(realPath).right == WriteRight::OtherCopy) {
        throw Error{ErrorNumber::FileInUse, path.string() + " is open"};
    }
}

void DeleteFundFile(const fs::path& path) {
    const fs::path realPath = RealPath(path);
    if (FindOpen(realPath)) {
        throw Error{ErrorNumber::FileInUse, path.string() + " is open in this program"};
    }
    const Claim claim = ClaimWriting(realPath);  // kept until the file is gone
    if (claim.right == WriteRight::OtherCopy) {
        throw Error{ErrorNumber::FileInUse, path.string() + " is open in " + claim.owner};
    }
    if (!fs::is_regular_file(realPath)) {
        throw Error{ErrorNumber::PermissionDenied, path.string() + " is no file"};
    }
    std::error_code code;
    fs::remove(path, code);
    if (code) {
        throw Error{ErrorNumber::PermissionDenied, path.string() + ": " + code.message()};
    }
}

std::vector<jet::TableDesign> NewFundFileDesign() {
    using Type = jet::ColumnType;
    constexpr std::uint16_t kWidest = 255;
    const auto text = [](std::string_view name) {
        return jet::ColumnDesign{.name = std::string(name), .type = Type::Text, .size = kWidest};
    };
    const auto column = [](std::string_view name, Type type) {
        return jet::ColumnDesign{.name = std::string(name), .type = type};
    };
    const auto& names = schema::holding::kNames;
    jet::TableDesign holdings{std::string(schema::kHoldingsTable), {}, {}};
    for (const std::string_view name : names) {
        holdings.columns.push_back(text(name));
    }
    const auto retype = [&](std::size_t position, Type type) {
        holdings.columns[position] = column(names[position], type);
    };
    using namespace schema::holding;
    retype(kKontoId, Type::Long);
    holdings.columns[kKontoId].autonumber = true;
    retype(kBokfortDatum, Type::Date);
    for (const std::size_t number : {kFondandelar, kKursKr, kVardeKr, kAndel}) {
        retype(number, Type::Double);
    }
    retype(kPlottFarg, Type::Long);
    retype(kSenasteDag, Type::Long);
    retype(kSkala, Type::Memo);  // the first row lists every curve that is shown
    retype(kSparadeVarden, Type::Memo);
    holdings.indexes = {{.name = "PrimaryKey",
                         .columns = {{std::string(schema::kKontoId)}},
                         .primary = true,
                         .unique = true,
                         .required = true}};

    jet::TableDesign points{std::string(schema::kPointsTable), {}, {}};
    points.columns = {text(schema::point::kNames[schema::point::kFondNr]),
                      column("XCord", Type::Long), column("YCord", Type::Long),
                      column(schema::kKontoId, Type::Long)};
    points.indexes = {
        {.name = std::string(schema::kKontoId), .columns = {{std::string(schema::kKontoId)}}}};
    return {std::move(holdings), std::move(points)};
}
