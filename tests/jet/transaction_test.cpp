#include "jet/transaction.h"

#include "ledger.h"

#include <fstream>
#include <gmock/gmock.h>
#include <iterator>

namespace jet::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

class Transactions : public Ledger {
  protected:
    std::vector<std::string> Days() { return Texts("Punkter", "XCord"); }
};

TEST_F(Transactions, StoreEverythingAtCommit) {
    {
        Transaction transaction(database);
        AddPoint(1, 0, 1);
        AddPoint(2, 0, 1);
        transaction.Commit();
    }
    Reopen();
    EXPECT_THAT(Days(), ElementsAre("1", "2"));
}

TEST_F(Transactions, WriteNothingBeforeCommit) {
    const std::string before = BytesOf(Path());
    Transaction transaction(database);
    AddPoint(1, 0, 1);
    EXPECT_THAT(Days(), ElementsAre("1"));
    EXPECT_EQ(BytesOf(Path()), before);
    transaction.Commit();
    EXPECT_NE(BytesOf(Path()), before);
}

TEST_F(Transactions, TakeEverythingBackWithoutCommit) {
    AddPoint(1, 0, 1);
    const std::string before = BytesOf(Path());
    {
        const Transaction transaction(database);
        AddPoint(2, 0, 1);
        database->Execute("DELETE FROM Punkter WHERE XCord = 1");
        AddHolding(5, "Fem");
        EXPECT_THAT(Days(), ElementsAre("2"));
    }
    EXPECT_THAT(Days(), ElementsAre("1"));
    EXPECT_TRUE(Open("Innehav")->Empty());
    EXPECT_EQ(database->StoredRowCount("Punkter"), 1);
    EXPECT_EQ(BytesOf(Path()), before);
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_F(Transactions, GiveAnAutonumberAgainThatWasTakenBack) {
    {
        const Transaction transaction(database);
        const auto holdings = Open("Innehav");
        holdings->AddNew();
        holdings->Update();
    }
    const auto holdings = Open("Innehav");
    holdings->AddNew();
    holdings->Update();
    EXPECT_EQ(holdings->Field("Id"), Value(std::int32_t{1}));
}

TEST_F(Transactions, InsideOthersJoinThem) {
    const std::string before = BytesOf(Path());
    Transaction outer(database);
    AddPoint(1, 0, 1);
    {
        Transaction inner(database);
        AddPoint(2, 0, 1);
        inner.Commit();
    }
    EXPECT_EQ(BytesOf(Path()), before);
    outer.Commit();
    Reopen();
    EXPECT_THAT(Days(), ElementsAre("1", "2"));
}

TEST_F(Transactions, AreTakenBackWithTheOuterOne) {
    {
        const Transaction outer(database);
        Transaction inner(database);
        AddPoint(2, 0, 1);
        inner.Commit();
    }
    EXPECT_THAT(Days(), IsEmpty());
}

TEST_F(Transactions, CannotBeCommittedAfterAnInnerOneWasTakenBack) {
    Transaction outer(database);
    AddPoint(1, 0, 1);
    { const Transaction inner(database); }
    EXPECT_NE(FailureOf([&] { outer.Commit(); }), ErrorNumber::None);
    EXPECT_THAT(Days(), IsEmpty());
    AddPoint(2, 0, 1);
    EXPECT_THAT(Days(), ElementsAre("2"));
}

TEST_F(Transactions, SurviveAStatementThatFails) {
    AddHolding(5, "Fem");
    Transaction transaction(database);
    AddHolding(6, "Sex");
    EXPECT_EQ(FailureOf([&] { AddHolding(5, "Fem igen"); }), ErrorNumber::DuplicateKey);
    AddHolding(7, "Sju");
    transaction.Commit();
    Reopen();
    EXPECT_THAT(Texts("Innehav", "Id"), ElementsAre("5", "6", "7"));
    EXPECT_THAT(database->Verify(), IsEmpty());
}

TEST_F(Transactions, WithoutAChangeDoNotTouchTheFile) {
    const auto before = std::filesystem::last_write_time(Path());
    Transaction transaction(database);
    EXPECT_TRUE(Days().empty());
    transaction.Commit();
    EXPECT_EQ(std::filesystem::last_write_time(Path()), before);
}

TEST_F(Transactions, AreTakenBackWhenTheFileIsClosed) {
    Transaction transaction(database);
    AddPoint(1, 0, 1);
    database->Close();
    EXPECT_EQ(FailureOf([&] { transaction.Commit(); }), ErrorNumber::ObjectClosed);
    database = Database::Open(Path());
    EXPECT_THAT(Days(), IsEmpty());
}

TEST_F(Transactions, CommitOnce) {
    Transaction transaction(database);
    AddPoint(1, 0, 1);
    transaction.Commit();
    transaction.Commit();
    EXPECT_THAT(Days(), ElementsAre("1"));
}

TEST_F(Transactions, OnAFileThatAnotherProgramChangedFailAndChangeNothing) {
    AddPoint(1, 0, 1);
    std::filesystem::copy_file(Path(), folder / "copy.mdb");
    std::filesystem::rename(folder / "copy.mdb", Path());
    const std::string theirs = BytesOf(Path());
    EXPECT_EQ(FailureOf([&] { AddPoint(2, 0, 1); }), ErrorNumber::ChangedByOther);
    EXPECT_EQ(BytesOf(Path()), theirs);
    EXPECT_THAT(Days(), ElementsAre("1"));
}

}  // namespace
}  // namespace jet::test
