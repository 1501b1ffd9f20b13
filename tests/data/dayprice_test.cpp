#include "fundfile/dayprice.h"

#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "fundfile/sources.h"
#include "tests/data/support.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using testdata::NumberOf;
using Points = std::vector<CurvePoint>;

constexpr std::int32_t kToday = 46342;

class DayPriceTest : public testing::Test {
  protected:
    ~DayPriceTest() override { CloseFundFile(file.database); }

    void Open(const std::vector<jet::TableDesign>& design = NewFundFileDesign()) {
        jet::Database::Create(path, design);
        file = OpenAndBind(path, {holdings, points}, queries::AllPoints());
        AddHolding("Gran", "1.2./15/-10");
        AddHolding("Tall", "15/-10");
        holdings.Refresh();
    }
    void AddHolding(std::string_view name, std::string_view skala) {
        using namespace schema::holding;
        const auto rows = file.database->OpenRecordSet(schema::kHoldingsTable);
        rows->AddNew();
        rows->Set(kFond, std::string(name));
        rows->Set(kFondNr, std::string("249 995"));
        rows->Set(kFondandelar, 10.0);
        rows->Set(kKursKr, 100.0);
        rows->Set(kSkala, std::string(skala));
        rows->Set(kSparadeVarden, std::string("x"));
        rows->Update();
    }
    OpenHolding Holding(std::int32_t row) {
        holdings.MoveTo(row);
        return OpenHoldingOf(ReadHolding(holdings));
    }
    std::string Skala(std::int32_t row) {
        return holdings.Records().At(row, schema::holding::kSkala).Text();
    }
    OpenHolding Store(std::int32_t row, double price, std::int32_t day = kToday) {
        const OpenHolding stored = StoreOf(Holding(row), price, day, day);
        points.Refresh();
        return stored;
    }
    OpenHolding StoreOf(const OpenHolding& holding, double price, std::int32_t day,
                        std::int32_t today = kToday) {
        return StoreDayPrice(file.database, holding, DayPriceOf(holding, price, day), today);
    }
    Points Series(const OpenHolding& holding) {
        return testdata::PointsOf(*file.database, holding.kontoId);
    }

    testdata::TemporaryFolder folder;
    testdata::fs::path path = folder / "a.mdb";
    DataSource holdings{"dtaBasData", "BasData"}, points{"dtaPlott", "Plotting"};
    FundFile file;
};

TEST_F(DayPriceTest, OfSeveralDaysAreStoredTogetherAsOneByOneWouldBe) {
    Open();
    Store(0, 104, kToday - 4);
    Store(1, 104, kToday - 4);
    const std::vector<std::pair<double, std::int32_t>> days = {
        {130, kToday - 2}, {106, kToday - 4}, {95, kToday - 9}};
    std::vector<DayPrice> together;
    for (const auto& [price, day] : days) {
        StoreOf(Holding(0), price, day);
        together.push_back(DayPriceOf(Holding(1), price, day));
    }
    const OpenHolding stored = StoreDayPrices(file.database, Holding(1), together, kToday);
    EXPECT_EQ(stored.summary.latestPrice, "Senaste : 130,00");
    EXPECT_EQ(stored.summary, Holding(0).summary);
    EXPECT_EQ(Series(stored), Series(Holding(0)));
    EXPECT_EQ(Series(stored), (Points{{kToday - 9, -5}, {kToday - 4, 6}, {kToday - 2, 30}}));
    EXPECT_TRUE(file.database->Verify().empty());
}

TEST_F(DayPriceTest, ComesBackAsTheHoldingThatIsStored) {
    Open();
    const OpenHolding stored = Store(1, 120.5);
    EXPECT_EQ(stored.summary, (HoldingSummary{kToday, "Senaste : 120,50", "20 %", "1205"}));
    EXPECT_EQ(stored.scale, (ScaleRange{30, -20}));
    EXPECT_EQ(stored, Holding(1));
    EXPECT_EQ(Series(stored), (Points{{kToday, 20}}));
}

TEST_F(DayPriceTest, WidensTheStoredScaleAsFarAsThePointsNeed) {
    Open();
    Store(1, 120, kToday - 1);
    EXPECT_EQ(Skala(1), "30/-20");
    Store(1, 105);
    EXPECT_EQ(Skala(1), "30/-20") << "never narrower";
    Store(0, 120);
    EXPECT_EQ(Skala(0), "1.2./30/-20") << "the first row keeps its list";
}

TEST_F(DayPriceTest, AReplacedPointMakesTheScaleThatOfThePoints) {
    Open();
    Store(0, 100, kToday - 1);
    Store(0, 890);
    EXPECT_EQ(Skala(0), "1.2./795/-530");
    Store(0, 120);
    EXPECT_EQ(Skala(0), "1.2./30/-20");
    EXPECT_EQ(Series(Holding(0)), (Points{{kToday - 1, 0}, {kToday, 20}}));
}

TEST_F(DayPriceTest, OfAnEarlierDayLeavesTheSummaryToALaterOne) {
    Open();
    Store(0, 120);
    const auto store = [&](double price, std::int32_t day) {
        const OpenHolding stored = StoreOf(Holding(0), price, day);
        points.Refresh();
        EXPECT_EQ(stored, Holding(0));
        return stored.summary;
    };
    const HoldingSummary today{kToday, "Senaste : 120,00", "20 %", "1200"};
    EXPECT_EQ(store(150, kToday - 3), today);
    EXPECT_EQ(Series(Holding(0)), (Points{{kToday - 3, 50}, {kToday, 20}}));
    EXPECT_EQ(Skala(0), "1.2./60/-40") << "the scale takes the point in all the same";
    EXPECT_EQ(store(110, kToday - 3), today);
    EXPECT_EQ(Series(Holding(0)), (Points{{kToday - 3, 10}, {kToday, 20}})) << "replaced";
    EXPECT_TRUE(file.database->Verify().empty());
}

TEST_F(DayPriceTest, OfAnEarlierDayIsTheLatestOneWhereNoLaterDayHasOne) {
    Open();
    StoreOf(Holding(1), 130, kToday - 5);
    const HoldingSummary summary{kToday - 3, "Senaste : 140,00", "40 %", "1400"};
    EXPECT_EQ(StoreOf(Holding(1), 140, kToday - 3).summary, summary);
    EXPECT_EQ(StoreOf(Holding(1), 135, kToday - 4).summary, summary);
}

TEST_F(DayPriceTest, AFailureInTheMiddleLeavesTheOldFile) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    design[1].columns[schema::point::kFondNr].size = 7;
    Open(design);
    Store(1, 105);
    const std::string before = testdata::BytesOf(path);
    OpenHolding holding = Holding(1);
    holding.fondNr = "much too long";  // the day's earlier point is gone when this is found out
    EXPECT_EQ(NumberOf([&] { StoreOf(holding, 150, kToday); }), ErrorNumber::FieldTooLong);
    EXPECT_EQ(testdata::BytesOf(path), before);
    EXPECT_EQ(Series(holding), (Points{{kToday, 5}}));
    EXPECT_EQ(Skala(1), "15/-10");
    EXPECT_EQ(Holding(1).summary.latestPrice, "Senaste : 105,00");
}

TEST_F(DayPriceTest, OfAHoldingThatIsGoneIsRefused) {
    Open();
    OpenHolding holding = Holding(1);
    holding.kontoId = 77;
    const std::string before = testdata::BytesOf(path);
    EXPECT_EQ(NumberOf([&] { StoreOf(holding, 150, kToday); }), ErrorNumber::RecordDeleted);
    EXPECT_EQ(testdata::BytesOf(path), before);
}

TEST_F(DayPriceTest, WithoutASummaryIsRefused) {
    Open();
    OpenHolding holding = Holding(1);
    holding.shares = 1e9;
    const std::string before = testdata::BytesOf(path);
    EXPECT_EQ(NumberOf([&] { StoreOf(holding, 150, kToday); }), ErrorNumber::Overflow);
    EXPECT_EQ(testdata::BytesOf(path), before);
}

class CorrectedPointTest : public DayPriceTest {
  protected:
    void SetUp() override {
        Open();
        points.StoreThrough([this](const std::function<void()>& store) {
            StorePoint(file.database, points, store);
        });
        Store(0, 100, kToday - 1);
        Store(0, 120);
        Store(1, 100, kToday - 1);
    }
    void Set(std::size_t column, std::int32_t value) {
        points.Edit();
        points.Set(column, value);
        points.Update();
    }
};

TEST_F(CorrectedPointTest, TakesTheScaleWithIt) {
    ASSERT_EQ(Skala(0), "1.2./30/-20");
    points.MoveTo(1);
    Set(schema::point::kYCord, 90);
    EXPECT_EQ(Skala(0), "1.2./105/-70");
    Set(schema::point::kYCord, 3);
    EXPECT_EQ(Skala(0), "1.2./15/-10");
    EXPECT_EQ(Skala(1), "15/-10");
}

TEST_F(CorrectedPointTest, ThatIsTheLastTakesTheSummaryWithIt) {
    points.MoveTo(1);
    Set(schema::point::kYCord, 33);
    EXPECT_EQ(Holding(0).summary.latestPrice, "Senaste : 133,00");
    EXPECT_EQ(Holding(0).summary.change, "33 %");
    EXPECT_EQ(Holding(0).summary.day, kToday);
    points.MoveTo(0);
    Set(schema::point::kYCord, 7);
    EXPECT_EQ(Holding(0).summary.latestPrice, "Senaste : 133,00") << "not the last";
    points.MoveTo(1);
    points.Delete();
    EXPECT_EQ(Holding(0).summary.latestPrice, "Senaste : 107,00");
    EXPECT_EQ(Holding(0).summary.day, kToday - 1);
    points.MoveTo(0);
    points.Delete();
    EXPECT_EQ(Holding(0).summary.latestPrice, "Senaste : 107,00") << "no point is left to say more";
}

TEST_F(CorrectedPointTest, ThatIsTheLastKeepsAPriceThatIsKnown) {
    std::vector<FollowedSummary> followed;
    points.StoreThrough([&](const std::function<void()>& store) {
        followed = StorePoint(file.database, points, store, 120.4);
    });
    points.MoveTo(1);
    Set(schema::point::kYCord, 20);  // the same percentage
    EXPECT_EQ(Holding(0).summary.latestPrice, "Senaste : 120,40");
    ASSERT_EQ(followed.size(), 1U);
    EXPECT_EQ(followed.front().holding, Holding(0));
    EXPECT_EQ(followed.front().price, 120.4);
}

TEST_F(CorrectedPointTest, ChangesBothScalesWhenItChangesItsHolding) {
    points.MoveTo(1);
    Set(schema::point::kKontoId, Holding(1).kontoId);
    EXPECT_EQ(Skala(0), "1.2./15/-10");
    EXPECT_EQ(Skala(1), "30/-20");
}

TEST_F(CorrectedPointTest, DeletedNarrowsTheScale) {
    points.MoveTo(1);
    points.Delete();
    EXPECT_EQ(Skala(0), "1.2./15/-10");
}

TEST_F(CorrectedPointTest, AddedOnlyWidensTheScale) {
    holdings.MoveTo(1);
    holdings.Edit();
    holdings.Set(schema::holding::kSkala, std::string("60/-40"));
    holdings.Update();
    AddPoint(points, {"249 995", {kToday, 5}, Holding(1).kontoId});
    EXPECT_EQ(Skala(1), "60/-40");
    AddPoint(points, {"249 995", {kToday + 1, -41}, Holding(1).kontoId});
    EXPECT_EQ(Skala(1), "75/-50");
}

TEST_F(CorrectedPointTest, ThatCannotBeStoredLeavesFileAndRecordSet) {
    const auto later = std::chrono::hours(1);
    testdata::fs::last_write_time(path, testdata::fs::last_write_time(path) + later);
    const std::string before = testdata::BytesOf(path);
    const std::int32_t count = points.RecordCount();
    points.MoveTo(1);
    EXPECT_EQ(NumberOf([&] { points.Delete(); }), ErrorNumber::ChangedByOther);
    EXPECT_EQ(points.RecordCount(), count);
    EXPECT_EQ(points.Position(), 1);
    EXPECT_EQ(NumberOf([&] { Set(schema::point::kYCord, 90); }), ErrorNumber::ChangedByOther);
    EXPECT_EQ(NumberOf([&] {
                  AddPoint(points, {"249 995", {kToday, 5}, 2});
              }),
              ErrorNumber::ChangedByOther);
    EXPECT_EQ(points.RecordCount(), count);
    EXPECT_EQ(testdata::BytesOf(path), before);
    EXPECT_EQ(Skala(0), "1.2./30/-20");
}

}  // namespace
