#include "operations.h"

#include "jet/transaction.h"

#include <fstream>
#include <iterator>
#include <vector>

namespace crash {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
void Write(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

namespace {

std::vector<jet::TableDesign> Tables() {
    const auto column = [](std::string name, jet::ColumnType type, std::uint16_t size = 0) {
        return jet::ColumnDesign{std::move(name), type, size, false, 0, 0};
    };
    jet::TableDesign holdings{"Innehav", {}, {}};
    holdings.columns = {column("Id", jet::ColumnType::Long),
                        column("Namn", jet::ColumnType::Text, 40),
                        column("Text", jet::ColumnType::Memo)};
    holdings.columns[0].autonumber = true;
    jet::IndexDesign key;
    key.name = "PrimaryKey";
    key.columns = {{"Id", false}};
    key.primary = key.unique = key.required = true;
    holdings.indexes = {key};
    jet::TableDesign points{"Punkter", {}, {}};
    points.columns = {column("Id", jet::ColumnType::Long), column("Dag", jet::ColumnType::Long)};
    jet::IndexDesign byHolding;
    byHolding.name = "Id";
    byHolding.columns = {{"Id", false}};
    points.indexes = {byHolding};
    return {holdings, points};
}

}  // namespace

void Fill(const fs::path& path, std::int32_t days) {
    Database::Create(path, Tables(), jet::Date{45000});
    const auto database = Database::Open(path);
    jet::Transaction transaction(database);
    const auto holdings = database->OpenRecordSet("Innehav");
    const auto points = database->OpenRecordSet("Punkter");
    for (std::int32_t id = 1; id <= 3; ++id) {
        holdings->AddNew();
        holdings->Set("Namn", "Innehav å");
        holdings->Set("Text", std::string(5000, 'x'));
        holdings->Update();
        for (std::int32_t day = 0; day < days; ++day) {
            points->AddNew();
            points->Set("Id", id);
            points->Set("Dag", 36000 + day);
            points->Update();
        }
    }
    transaction.Commit();
    database->Close();
}

void Insert(const std::shared_ptr<Database>& database, const fs::path&) {
    const auto points = database->OpenRecordSet("Punkter");
    points->AddNew();
    points->Set("Id", 2);
    points->Set("Dag", 50000);
    points->Update();
}
void Update(const std::shared_ptr<Database>& database, const fs::path&) {
    const auto holdings = database->OpenRecordSet("Innehav");
    holdings->Edit();
    holdings->Set("Namn", "Ett mycket längre namn än förut");
    holdings->Set("Text", std::string(9000, 'y'));
    holdings->Update();
}
void Delete(const std::shared_ptr<Database>& database, const fs::path&) {
    const auto points = database->OpenRecordSet("Punkter");
    points->MoveLast();
    points->Delete();
}
void DeleteWithPoints(const std::shared_ptr<Database>& database, const fs::path&) {
    jet::Transaction transaction(database);
    database->Execute("DELETE FROM Punkter WHERE Id = 2");
    database->Execute("DELETE FROM Innehav WHERE Id = 2");
    transaction.Commit();
}
void StorePrice(const std::shared_ptr<Database>& database, const fs::path& path) {
    jet::Transaction transaction(database);
    Update(database, path);
    database->Execute("DELETE FROM Punkter WHERE Dag = 41999");
    Insert(database, path);
    transaction.Commit();
}
void Create(const std::shared_ptr<Database>&, const fs::path& path) {
    Database::Create(path, Tables(), jet::Date{45000});
}

}  // namespace crash
