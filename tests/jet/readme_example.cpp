#include "jet/database.h"
#include "jet/error.h"
#include "jet/transaction.h"

#include <cstdio>

void Example(const std::filesystem::path& path) try {
    // Creating a file: two columns, a primary key that numbers itself.
    jet::ColumnDesign id{"Id", jet::ColumnType::Long};
    id.autonumber = true;
    jet::IndexDesign key{"PrimaryKey", {{"Id"}}};
    key.primary = key.unique = key.required = true;
    const jet::TableDesign people{"People", {id, {"Name", jet::ColumnType::Text, 40}}, {key}};
    jet::Database::Create(path, std::span(&people, 1));

    // Opening it, and adding two rows that are stored together or not at all.
    const auto database = jet::Database::Open(path);
    jet::Transaction transaction(database);
    const auto rows = database->OpenRecordSet("People");
    for (const char* who : {"Åsa", "Örjan"}) {
        rows->AddNew();
        rows->Set("Name", who);
        rows->Update();
    }
    transaction.Commit();

    // Reading a table, changing a row, deleting by a query.
    const auto byName = database->OpenRecordSet("SELECT Id,Name FROM People ORDER BY Name");
    for (; !byName->Eof(); byName->MoveNext()) {
        std::printf("%d %s\n", byName->Field(0).Integer(), byName->Field("Name").Text().c_str());
    }
    if (byName->FindFirst("Id = 2")) {
        byName->Edit();
        byName->Set("Name", "Östen");
        byName->Update();
    }
    database->Execute("DELETE FROM People WHERE Name = 'åsa'");
} catch (const jet::Error& error) {
    std::printf("error %d: %s\n", static_cast<int>(error.Number()), error.what());
}
