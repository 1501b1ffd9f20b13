#pragma once
// A small file with two tables, which most tests of the public interface work on.

#include "jet/database.h"
#include "jet/error.h"
#include "support.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace jet::test {

/// The number of the Error that `work` throws; None when it throws none.
inline ErrorNumber FailureOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        return error.Number();
    }
    return ErrorNumber::None;
}

/// `Innehav` (Id autonumber, primary key; Namn; Kurs; Andel%; Dag; Aktiv; Text) and
/// `Punkter` (FondNr; XCord; YCord; KontoId, indexed). Both are empty.
inline std::vector<TableDesign> LedgerTables() {
    const auto column = [](std::string name, ColumnType type, std::uint16_t size = 0) {
        return ColumnDesign{std::move(name), type, size, false, 0, 0};
    };
    TableDesign holdings{"Innehav", {}, {}};
    holdings.columns = {column("Id", ColumnType::Long),     column("Namn", ColumnType::Text, 40),
                        column("Kurs", ColumnType::Single), column("Andel%", ColumnType::Double),
                        column("Dag", ColumnType::Date),    column("Aktiv", ColumnType::Boolean),
                        column("Text", ColumnType::Memo)};
    holdings.columns[0].autonumber = true;
    IndexDesign key;
    key.name = "PrimaryKey";
    key.columns = {{"Id", false}};
    key.primary = key.unique = key.required = true;
    holdings.indexes = {key};

    TableDesign points{"Punkter", {}, {}};
    points.columns = {column("FondNr", ColumnType::Text, 12), column("XCord", ColumnType::Long),
                      column("YCord", ColumnType::Long), column("KontoId", ColumnType::Long)};
    IndexDesign byHolding;
    byHolding.name = "KontoId";
    byHolding.columns = {{"KontoId", false}};
    points.indexes = {byHolding};
    return {holdings, points};
}

class Ledger : public testing::Test {
  protected:
    Ledger() {
        Database::Create(Path(), LedgerTables());
        database = Database::Open(Path());
    }

    std::filesystem::path Path() const { return folder / "ledger.mdb"; }

    std::shared_ptr<RecordSet> Open(std::string_view source) {
        return database->OpenRecordSet(source);
    }

    void AddHolding(std::int32_t id, const std::string& name) {
        const auto holdings = Open("Innehav");
        holdings->AddNew();
        holdings->Set("Id", id);
        holdings->Set("Namn", name);
        holdings->Update();
    }

    void AddPoint(std::int32_t day, std::int32_t value, std::int32_t holding) {
        const auto points = Open("Punkter");
        points->AddNew();
        points->Set("FondNr", "249 995");
        points->Set("XCord", day);
        points->Set("YCord", value);
        points->Set("KontoId", holding);
        points->Update();
    }

    /// All values of one field, as texts, in the set's order.
    std::vector<std::string> Texts(std::string_view source, std::string_view field) {
        const auto records = Open(source);
        std::vector<std::string> texts;
        for (; !records->Eof(); records->MoveNext()) texts.push_back(records->Field(field).Text());
        return texts;
    }

    /// Closes the file and reads it from the disk again.
    void Reopen() {
        database->Close();
        database = Database::Open(Path());
    }

    ScratchFolder folder;
    std::shared_ptr<Database> database;
};

}  // namespace jet::test
