#include "platform/datasource.h"

#include "fundfile/queries.h"
#include "fundfile/schema.h"
#include "fundfile/sources.h"
#include "tests/data/support.h"
#include "tests/support/samplefiles.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace {

using testdata::NumberOf;

/// Writes down, in order, what a data source tells its views.
class Listener {
  public:
    explicit Listener(DataSource& source) {
        QObject::connect(&source, &DataSource::Refreshed, [this] { Note("Refreshed"); });
        QObject::connect(&source, &DataSource::CurrentRowChanged, [this] { Note("Row"); });
        QObject::connect(&source, &DataSource::RowStored, [this] { Note("Stored"); });
        QObject::connect(&source, &DataSource::RowDeleted,
                         [this](int position) { Note("Deleted " + std::to_string(position)); });
        QObject::connect(&source, &DataSource::Failed, [this](int number, const QString&) {
            Note("Failed " + std::to_string(number));
        });
    }

    std::vector<std::string> Take() { return std::exchange(heard_, {}); }

  private:
    void Note(std::string what) { heard_.push_back(std::move(what)); }
    std::vector<std::string> heard_;
};

using Heard = std::vector<std::string>;

class DataSourceTest : public testing::Test {
  protected:
    DataSourceTest() {
        testdata::MakeFundFile(path, 3, 4);
        file = OpenAndBind(path, {holdings, points}, queries::AllPoints());
    }
    ~DataSourceTest() override { CloseFundFile(file.database); }

    std::string Fond() { return holdings.Field(schema::holding::kFond).Text(); }

    testdata::TemporaryFolder folder;
    testdata::fs::path path = folder / "a.mdb";
    DataSource holdings{"dtaBasData", "BasData"}, points{"dtaPlott", "Plotting"};
    FundFile file;
};

TEST_F(DataSourceTest, KnowsItsNameAndCaption) {
    EXPECT_EQ(holdings.Name(), "dtaBasData");
    EXPECT_EQ(holdings.Caption(), "BasData");
}

TEST_F(DataSourceTest, StandsOnTheFirstRowAfterRefresh) {
    holdings.MoveLast();
    holdings.Refresh();
    EXPECT_EQ(holdings.Position(), 0);
    EXPECT_EQ(Fond(), "Fond 1");
}

TEST_F(DataSourceTest, TellsOfAMoveToAnotherRow) {
    Listener listener(holdings);
    holdings.MoveNext();
    holdings.MoveLast();
    holdings.Move(-1);
    holdings.MoveTo(0);
    EXPECT_EQ(listener.Take(), (Heard{"Row", "Row", "Row", "Row"}));
}

TEST_F(DataSourceTest, IsSilentWhenTheRowStaysTheSame) {
    Listener listener(holdings);
    holdings.MoveFirst();
    holdings.MoveTo(0);
    EXPECT_TRUE(holdings.FindFirst(queries::KontoIdIs(1)));
    EXPECT_FALSE(holdings.FindFirst(queries::KontoIdIs(99)));
    EXPECT_EQ(listener.Take(), Heard{});
    EXPECT_EQ(holdings.Position(), 0);
}

TEST_F(DataSourceTest, FindsARowAndMakesItCurrent) {
    Listener listener(holdings);
    EXPECT_TRUE(holdings.FindFirst(queries::KontoIdIs(3)));
    EXPECT_EQ(Fond(), "Fond 3");
    EXPECT_EQ(listener.Take(), Heard{"Row"});
}

TEST_F(DataSourceTest, MovingPastTheLastRowIsTheEnd) {
    holdings.MoveLast();
    holdings.MoveNext();
    EXPECT_TRUE(holdings.Eof());
    EXPECT_EQ(holdings.Position(), 3);
}

TEST_F(DataSourceTest, AnEditIsToldWhenItIsStored) {
    holdings.MoveTo(1);
    Listener listener(holdings);
    holdings.Edit();
    holdings.Set(schema::holding::kProcent, "5 %");
    EXPECT_EQ(listener.Take(), Heard{});
    EXPECT_TRUE(holdings.Pending());
    holdings.Update();
    EXPECT_EQ(listener.Take(), (Heard{"Stored", "Row"}));
    EXPECT_EQ(holdings.Position(), 1);
    EXPECT_EQ(holdings.Field("Procent").Text(), "5 %");
}

TEST_F(DataSourceTest, ANewRowIsCurrentAndLastAfterUpdate) {
    Listener listener(holdings);
    holdings.AddNew();
    holdings.Set("Fond", "Ny fond");
    holdings.Update();
    EXPECT_EQ(listener.Take(), (Heard{"Stored", "Row"}));
    EXPECT_EQ(holdings.Position(), 3);
    EXPECT_EQ(holdings.RecordCount(), 4);
    EXPECT_EQ(holdings.Field(schema::holding::kKontoId).Integer(), 4);
}

TEST_F(DataSourceTest, AGivenUpEditIsToldAndChangesNothing) {
    Listener listener(holdings);
    holdings.Edit();
    holdings.Set("Fond", "Annat");
    holdings.CancelUpdate();
    EXPECT_EQ(listener.Take(), Heard{"Row"});
    EXPECT_EQ(Fond(), "Fond 1");
    holdings.CancelUpdate();
    EXPECT_EQ(listener.Take(), Heard{});
}

TEST_F(DataSourceTest, MovingForgetsAPendingRowAndTellsEvenWhenItStays) {
    Listener listener(holdings);
    holdings.Edit();
    holdings.Set("Fond", "Annat");
    holdings.MoveFirst();
    EXPECT_EQ(listener.Take(), Heard{"Row"});
    EXPECT_FALSE(holdings.Pending());
    EXPECT_EQ(Fond(), "Fond 1");
}

TEST_F(DataSourceTest, ADeletedRowIsToldWithItsPlace) {
    holdings.MoveTo(1);
    Listener listener(holdings);
    holdings.Delete();
    EXPECT_EQ(listener.Take(), (Heard{"Deleted 1", "Row"}));
    EXPECT_EQ(holdings.RecordCount(), 2);
    EXPECT_EQ(Fond(), "Fond 3");
}

TEST_F(DataSourceTest, TwoSourcesOfOneFileSeeEachOthersEdits) {
    DataSource other("dtaSQL", "SQL");
    other.SetDatabase(file.database);
    other.SetRecordSource("SELECT * FROM FONDDATA");
    other.Refresh();
    other.Edit();
    other.Set("Fond", "Omdöpt");
    other.Update();
    EXPECT_EQ(Fond(), "Omdöpt");
}

TEST_F(DataSourceTest, RowsAddedElsewhereShowAfterRefresh) {
    const auto records = file.database->OpenRecordSet("FONDDATA");
    testdata::AddHolding(*records, "Fond 4");
    Listener listener(holdings);
    holdings.Refresh();
    EXPECT_EQ(listener.Take(), Heard{"Refreshed"});
    EXPECT_EQ(holdings.RecordCount(), 4);
}

TEST_F(DataSourceTest, AGivenRecordSetIsRequeriedByRefresh) {
    EXPECT_EQ(points.RecordCount(), 12);
    file.database->Execute(queries::DeletePointsOf(2));
    points.Refresh();
    EXPECT_EQ(points.RecordCount(), 8);
}

TEST_F(DataSourceTest, ARecordSourceReplacesAGivenRecordSet) {
    points.SetRecordSource(queries::PointsOf(1));
    EXPECT_EQ(NumberOf([&] { points.Refresh(); }), kObjectNotSet);
    points.SetDatabase(file.database);
    points.Refresh();
    EXPECT_EQ(points.RecordCount(), 4);
}

TEST_F(DataSourceTest, DetachingEmptiesTheViews) {
    Listener listener(points);
    points.SetRecordSet(nullptr);
    EXPECT_EQ(listener.Take(), Heard{"Refreshed"});
    EXPECT_FALSE(points.IsAttached());
}

TEST_F(DataSourceTest, WithoutARecordSetEveryCallSaysSo) {
    DataSource source("dtaSQL", "SQL");
    const std::vector<std::function<void()>> calls = {
        [&] { source.Refresh(); },     [&] { source.Records(); },
        [&] { source.Empty(); },       [&] { source.Eof(); },
        [&] { source.RecordCount(); }, [&] { source.Position(); },
        [&] { source.MoveFirst(); },   [&] { source.MoveLast(); },
        [&] { source.MoveNext(); },    [&] { source.Move(1); },
        [&] { source.MoveTo(0); },     [&] { source.FindFirst("KontoId = 1"); },
        [&] { source.Field(0); },      [&] { source.Field("KontoId"); },
        [&] { source.AddNew(); },      [&] { source.Edit(); },
        [&] { source.Set(0, 1); },     [&] { source.Set("KontoId", 1); },
        [&] { source.Update(); },      [&] { source.CancelUpdate(); },
        [&] { source.Delete(); }};
    for (std::size_t call = 0; call < calls.size(); ++call) {
        EXPECT_EQ(NumberOf(calls[call]), kObjectNotSet) << "call " << call;
    }
    EXPECT_FALSE(source.Pending());
    EXPECT_FALSE(source.IsAttached());
}

TEST_F(DataSourceTest, ASourceThatCannotBeOpenedLeavesNoOldRowsStanding) {
    holdings.SetRecordSource("INGEN_TABELL");
    Listener listener(holdings);
    EXPECT_NE(NumberOf([&] { holdings.Refresh(); }), ErrorNumber::None);
    EXPECT_FALSE(holdings.IsAttached());
    EXPECT_EQ(listener.Take(), Heard{"Refreshed"});
}

TEST_F(DataSourceTest, CloseDetachesAndTellsOnce) {
    Listener listener(holdings);
    holdings.Close();
    holdings.Close();
    EXPECT_EQ(listener.Take(), Heard{"Refreshed"});
    EXPECT_TRUE(file.database->IsOpen());
}

TEST_F(DataSourceTest, GuardTurnsAnErrorIntoASignal) {
    Listener listener(holdings);
    EXPECT_TRUE(holdings.Guard([&] { holdings.MoveFirst(); }));
    EXPECT_FALSE(holdings.Guard([] { throw Error{ErrorNumber::FileInUse, "in use"}; }));
    EXPECT_EQ(listener.Take(), Heard{"Failed 75"});
}

TEST_F(DataSourceTest, AfterTheFileIsClosedEveryCallSaysSo) {
    CloseFundFile(file.database);
    EXPECT_EQ(NumberOf([&] { holdings.MoveFirst(); }), ErrorNumber::ObjectClosed);
    EXPECT_EQ(NumberOf([&] {
                  points.Refresh();
                  points.RecordCount();
              }),
              ErrorNumber::ObjectClosed);
}

TEST_F(DataSourceTest, StoringARowDoesNotLookForTheOtherRows) {
    // A position would have to be counted; views ask for it when they are looked at.
    Listener listener(points);
    points.AddNew();
    points.Set(schema::point::kFondNr, "123 456");
    points.Set(schema::point::kXCord, 40000);
    points.Set(schema::point::kYCord, 1);
    points.Set(schema::point::kKontoId, 3);
    points.Update();
    EXPECT_EQ(listener.Take(), (Heard{"Stored", "Row"}));
    EXPECT_EQ(points.Field(schema::point::kXCord).Integer(), 40000);
}

TEST(LazyDataSource, ARefreshReadsNoRowsUntilSomebodyLooks) {
    const testdata::TemporaryFolder folder;
    constexpr int kPoints = 20'000;
    testdata::MakeFundFile(folder / "stor.mdb", 1, kPoints);
    DataSource holdings("dtaBasData", "BasData"), points("dtaPlott", "Plotting");
    FundFile file = OpenAndBind(folder / "stor.mdb", {holdings, points}, queries::AllPoints());
    const auto timed = [](const std::function<void()>& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::steady_clock::now() - start;
    };
    const auto look = timed([&] {
        points.MoveLast();
        EXPECT_EQ(points.RecordCount(), kPoints);
    });
    const auto refreshes = timed([&] {
        for (int i = 0; i < 20; ++i) points.Refresh();
    });
    EXPECT_LT(refreshes, look) << "twenty refreshes cost more than one look at " << kPoints
                               << " rows";
    CloseFundFile(file.database);
}

TEST_F(DataSourceTest, AnEmptiedFieldIsNullWhereTheFileAllowsNoEmptyText) {
    const auto samples = samplefiles::OtherFiles();
    if (!samples) GTEST_SKIP() << "KVARNBO_SAMPLES names no folder of sample files";
    const testdata::fs::path copy = folder / "n.mdb";
    testdata::WriteText(copy, testdata::BytesOf(*samples / "mdb-samples" / "nwind.mdb"));
    const auto database = jet::Database::Open(copy);
    const auto shippers = database->OpenRecordSet("Shippers");
    shippers->Edit();
    shippers->Set("Phone", "");
    EXPECT_EQ(NumberOf([&] { shippers->Update(); }), ErrorNumber::ZeroLength);
    holdings.SetRecordSet(shippers);
    holdings.Edit();
    holdings.Set("Phone", "");
    holdings.Update();
    EXPECT_TRUE(holdings.Field("Phone").IsNull());
    holdings.SetRecordSet(nullptr);
}

}  // namespace
