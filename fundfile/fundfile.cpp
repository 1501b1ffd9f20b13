#include "fundfile/fundfile.h"

#include "base/error.h"
#include "base/number.h"
#include "fundfile/schema.h"

#include <string_view>
#include <system_error>
#include <utility>

namespace {

namespace fs = std::filesystem;

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

FundFile Share(std::shared_ptr<jet::Database> database) {
    const auto claim = std::static_pointer_cast<WriteClaim>(database->Attached());
    FundFile file{std::move(database), claim->right, claim->owner, {}};
    file.foreignLock = ForeignLockBeside(file.database->Path());
    file.loss = file.database->LostPart().value_or(jet::Loss{});
    return file;
}

/// Null when it is not open here as a fund file.
std::shared_ptr<jet::Database> FindOpen(const fs::path& realPath) {
    std::shared_ptr<jet::Database> open = jet::Database::FindOpen(realPath);
    return open && open->Attached() ? open : nullptr;
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
            // A cut file may have lost the entry of the table, not only its rows.
            throw Error{
                database.LostPart() ? ErrorNumber::NotADatabase : ErrorNumber::TableNotFound,
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
    if (std::shared_ptr<jet::Database> open = FindOpen(realPath)) {
        return Share(std::move(open));
    }
    // First, so that nobody writes between reading and claiming.
    const auto claim = std::make_shared<WriteClaim>(ClaimWriting(realPath));
    std::shared_ptr<jet::Database> database =
        jet::Database::Open(realPath, claim->lock ? jet::Access::ReadWrite : jet::Access::ReadOnly);
    database->Attach(claim);
    try {
        RequireFundFile(*database);
    } catch (const Error&) {
        database->Close();
        throw;
    }
    if (database->LostPart()) {
        *claim = {nullptr, WriteRight::Damaged, {}};
    } else if (claim->lock && database->ReadOnly()) {
        *claim = {nullptr, WriteRight::FileProtected, {}};
    }
    return Share(std::move(database));
}

std::shared_ptr<jet::Database> LoadFundFileCopy(const fs::path& path) {
    std::shared_ptr<jet::Database> copy = jet::Database::LoadCopy(path);
    if (copy->LostPart()) {
        throw Error{ErrorNumber::NotADatabase, path.string() + " lost: " + copy->LostPart()->what};
    }
    RequireFundFile(*copy);
    return copy;
}

void CloseFundFile(std::shared_ptr<jet::Database>& database) noexcept {
    if (!database) {
        return;
    }
    database->Close();
    database.reset();
}

void CheckNotInUse(const fs::path& path) {
    std::error_code code;
    const fs::path realPath = fs::canonical(path, code);
    if (code) {
        return;  // what does not exist is not in use
    }
    if (FindOpen(realPath) || IsHeldElsewhere(ClaimWriting(realPath))) {
        throw Error{ErrorNumber::FileInUse, path.string() + " is open"};
    }
}

void DeleteFundFile(const fs::path& path) {
    const fs::path realPath = RealPath(path);
    if (FindOpen(realPath)) {
        throw Error{ErrorNumber::FileInUse, path.string() + " is open in this program"};
    }
    const WriteClaim claim = ClaimWriting(realPath);  // kept until the file is gone
    if (IsHeldElsewhere(claim)) {
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
    constexpr std::uint16_t kMaxTextLength = 255;
    const auto text = [](std::string_view name) {
        return jet::ColumnDesign{
            .name = std::string(name), .type = Type::Text, .size = kMaxTextLength};
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
