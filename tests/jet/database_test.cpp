#include "jet/database.h"

#include "jet/transaction.h"
#include "ledger.h"

#include <fstream>
#include <gmock/gmock.h>

namespace jet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class OpenFile : public Ledger {};

TEST_F(OpenFile, IsSharedByEverybodyWhoOpensIt) {
    const auto again = Database::Open(Path());
    EXPECT_EQ(again, database);
    AddPoint(1, 2, 3);
    EXPECT_EQ(again->OpenRecordSet("Punkter")->RecordCount(), 1);
}

TEST_F(OpenFile, IsKnownUnderItsOtherPaths) {
    std::filesystem::create_symlink(Path(), folder / "link.mdb");
    std::filesystem::create_hard_link(Path(), folder / "second.mdb");
    EXPECT_EQ(Database::Open(folder / "link.mdb"), database);
    EXPECT_EQ(Database::Open(folder / "second.mdb"), database);
    EXPECT_EQ(Database::Open(folder.Path() / "." / "ledger.mdb"), database);
}

TEST_F(OpenFile, IsReadAgainWhenNobodyHadItOpen) {
    const Database* first = database.get();
    AddPoint(1, 2, 3);
    database.reset();
    database = Database::Open(Path());
    EXPECT_EQ(database->OpenRecordSet("Punkter")->RecordCount(), 1);
    static_cast<void>(first);
}

TEST_F(OpenFile, StaysOpenAsLongAsARecordSetLives) {
    AddPoint(1, 2, 3);
    const auto points = Open("Punkter");
    database.reset();
    EXPECT_EQ(points->Field("YCord"), Value(std::int32_t{2}));
}

TEST_F(OpenFile, ClosesForEverybody) {
    AddPoint(1, 2, 3);
    const auto points = Open("Punkter");
    const auto again = Database::Open(Path());
    again->Close();
    EXPECT_FALSE(database->IsOpen());
    for (const auto& work : std::vector<std::function<void()>>{
             [&] { points->Field(0); }, [&] { points->RecordCount(); }, [&] { points->Eof(); },
             [&] { points->MoveNext(); }, [&] { points->MoveTo(0); }, [&] { points->Column(0); },
             [&] { points->AddNew(); }, [&] { points->CancelUpdate(); }, [&] { points->Requery(); },
             [&] { points->FindFirst("XCord = 1"); }, [&] { points->Integers({1}); },
             [&] { points->FieldPosition("XCord"); }, [&] { Open("Punkter"); },
             [&] { database->Execute("DELETE FROM Punkter"); }, [&] { database->TableNames(); },
             [&] { database->Verify(); }, [&] { const Transaction transaction(database); }}) {
        EXPECT_EQ(FailureOf(work), ErrorNumber::ObjectClosed);
    }
    EXPECT_EQ(database->Path().filename(), "ledger.mdb");
    database->Close();
}

TEST_F(OpenFile, OpensAnewAfterItWasClosed) {
    AddPoint(1, 2, 3);
    database->Close();
    const auto again = Database::Open(Path());
    EXPECT_NE(again, database);
    EXPECT_EQ(again->OpenRecordSet("Punkter")->RecordCount(), 1);
}

TEST_F(OpenFile, IsNotReplacedByANewOne) {
    EXPECT_EQ(FailureOf([&] { Database::Create(Path(), LedgerTables()); }), ErrorNumber::FileInUse);
    database->Close();
    Database::Create(Path(), {});
    EXPECT_THAT(Database::Open(Path())->TableNames(), IsEmpty());
}

TEST_F(OpenFile, TellsItsTables) {
    EXPECT_EQ(database->Version(), 4);
    EXPECT_THAT(database->TableNames(), ElementsAre("Innehav", "Punkter"));
    EXPECT_THAT(database->LinkedNames(), IsEmpty());
    EXPECT_TRUE(database->HasSource("innehav"));
    EXPECT_FALSE(database->HasSource("Saldo"));
}

TEST_F(OpenFile, TellsATablesDesignAsItWasGiven) {
    for (const TableDesign& expected : LedgerTables()) {
        const TableDesign design = database->Describe(expected.name);
        EXPECT_EQ(design.columns, expected.columns);
        EXPECT_EQ(design.indexes, expected.indexes);
    }
}

TEST_F(OpenFile, DeletesTheRowsThatAQueryNames) {
    for (const std::int32_t holding : {1, 2, 1}) AddPoint(holding, 0, holding);
    EXPECT_EQ(database->Execute("DELETE *  FROM  Punkter WHERE KontoId = 1"), 2);
    EXPECT_EQ(database->Execute("DELETE *  FROM  Punkter WHERE KontoId = 1"), 0);
    EXPECT_EQ(database->Execute("DELETE FROM Punkter"), 1);
    Reopen();
    EXPECT_TRUE(Open("Punkter")->Empty());
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_F(OpenFile, ExecutesNothingButDeletions) {
    EXPECT_EQ(FailureOf([&] { database->Execute("SELECT * FROM Punkter"); }),
              ErrorNumber::SyntaxError);
    EXPECT_EQ(FailureOf([&] { database->Execute("DELETE FROM Saldo"); }),
              ErrorNumber::TableNotFound);
    EXPECT_EQ(FailureOf([&] { database->Execute("DELETE FROM Punkter WHERE Saldo = 1"); }),
              ErrorNumber::TooFewParameters);
}

class Aliases : public Ledger {};

TEST_F(Aliases, StandForATable) {
    AddHolding(1, "Ett");
    database->AliasTable("FR_Innehav", "Innehav");
    EXPECT_EQ(Open("FR_Innehav")->RecordCount(), 1);
    EXPECT_EQ(Open("SELECT Id FROM fr_innehav WHERE Id = 1")->RecordCount(), 1);
    EXPECT_FALSE(database->HasSource("FR_Innehav"));
}

TEST_F(Aliases, GiveWayToATableOfThatName) {
    AddHolding(1, "Ett");
    database->AliasTable("Innehav", "Punkter");
    EXPECT_EQ(Open("Innehav")->RecordCount(), 1);
}

TEST_F(Aliases, StandForAColumn) {
    AddHolding(4, "Fyra");
    database->AliasColumn("Innehav", "KontoId", 0);
    const auto holdings =
        Open("SELECT Namn,KontoId FROM Innehav WHERE kontoid = 4 ORDER BY KontoId");
    EXPECT_EQ(holdings->Field("KontoId"), Value(std::int32_t{4}));
    EXPECT_TRUE(holdings->FindFirst("KontoId = 4"));
    EXPECT_EQ(holdings->Column(1).name, "Id");
}

TEST_F(Aliases, GiveWayToAColumnOfThatName) {
    AddHolding(4, "Fyra");
    database->AliasColumn("Innehav", "Namn", 0);
    EXPECT_EQ(Open("Innehav")->Field("Namn"), Value("Fyra"));
}

TEST_F(Aliases, BeyondTheLastColumnNameNothing) {
    database->AliasColumn("Innehav", "Saldo", 99);
    EXPECT_EQ(FailureOf([&] { Open("SELECT Saldo FROM Innehav"); }), ErrorNumber::TooFewParameters);
}

class ReadOnlyFile : public Ledger {
  protected:
    ReadOnlyFile() {
        AddPoint(1, 2, 3);
        database->Close();
    }
    void ExpectNoEdits() {
        const auto points = Open("Punkter");
        EXPECT_EQ(points->Field("YCord"), Value(std::int32_t{2}));
        points->AddNew();
        EXPECT_EQ(FailureOf([&] { points->Update(); }), ErrorNumber::ReadOnly);
        points->Edit();
        EXPECT_EQ(FailureOf([&] { points->Update(); }), ErrorNumber::ReadOnly);
        EXPECT_EQ(FailureOf([&] { points->Delete(); }), ErrorNumber::ReadOnly);
        EXPECT_EQ(FailureOf([&] { database->Execute("DELETE FROM Punkter"); }),
                  ErrorNumber::ReadOnly);
        EXPECT_EQ(Open("Punkter")->RecordCount(), 1);
    }
};

TEST_F(ReadOnlyFile, ByWishIsReadAndNotWritten) {
    database = Database::Open(Path(), Access::ReadOnly);
    EXPECT_TRUE(database->ReadOnly());
    ExpectNoEdits();
}

TEST_F(ReadOnlyFile, ByItsModeIsReadAndNotWritten) {
    using std::filesystem::perms;
    std::filesystem::permissions(Path(),
                                 perms::owner_read | perms::group_read | perms::others_read);
    database = Database::Open(Path());
    EXPECT_TRUE(database->ReadOnly());
    ExpectNoEdits();
}

TEST_F(ReadOnlyFile, StaysAsItWasOpened) {
    database = Database::Open(Path(), Access::ReadOnly);
    EXPECT_EQ(Database::Open(Path(), Access::ReadWrite), database);
    EXPECT_TRUE(database->ReadOnly());
}

TEST(MissingFile, IsNotFound) {
    const ScratchFolder folder;
    EXPECT_EQ(FailureOf([&] { Database::Open(folder / "none.mdb"); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(FailureOf([&] { Database::Open(""); }), ErrorNumber::FileNotFound);
}

TEST(ForeignFile, IsToldFromADamagedOne) {
    const ScratchFolder folder;
    std::ofstream(folder / "text.mdb") << std::string(10000, 'x');
    EXPECT_EQ(FailureOf([&] { Database::Open(folder / "text.mdb"); }), ErrorNumber::ForeignFormat);
}

}  // namespace
}  // namespace jet::test
