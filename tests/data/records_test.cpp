#include "fundfile/records.h"

#include "fundfile/queries.h"
#include "fundfile/schema.h"
#include "fundfile/sources.h"
#include "jet/transaction.h"
#include "tests/data/support.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace {

using testdata::NumberOf;
using Points = std::vector<CurvePoint>;

class RecordsTest : public testing::Test {
  protected:
    void Open(const std::vector<jet::TableDesign>& design = NewFundFileDesign()) {
        jet::Database::Create(path, design);
        file = OpenAndBind(path, {holdings, points}, queries::AllPoints());
    }
    ~RecordsTest() override { CloseFundFile(file.database); }

    void Add(std::int32_t kontoId, std::int32_t day, std::int32_t percent) {
        AddPoint(points, {"123 456", {day, percent}, kontoId});
        points.Refresh();
    }
    /// In the series of the first holding.
    bool StoreOn(std::int32_t day, std::int32_t percent) {
        return StoreDayPoint(*file.database->OpenRecordSet(queries::AllPointsOf(1)),
                             {"123 456", {day, percent}, 1});
    }
    Points Read(std::int32_t kontoId) { return testdata::PointsOf(*file.database, kontoId); }

    testdata::TemporaryFolder folder;
    testdata::fs::path path = folder / "a.mdb";
    DataSource holdings{"dtaBasData", "BasData"}, points{"dtaPlott", "Plotting"};
    FundFile file;
};

TEST_F(RecordsTest, PointsOfAHoldingComeInDayOrder) {
    Open();
    Add(1, 40003, 3);
    Add(2, 40001, 99);
    Add(1, 40001, -1);
    Add(1, 40002, 2);
    EXPECT_EQ(Read(1), (Points{{40001, -1}, {40002, 2}, {40003, 3}}));
    EXPECT_EQ(Read(2), (Points{{40001, 99}}));
    EXPECT_EQ(Read(3), Points{});
    EXPECT_TRUE(HasPoints(*file.database, 2));
    EXPECT_FALSE(HasPoints(*file.database, 3));
    const std::map<std::int32_t, Points> all = {{1, {{40003, 3}, {40001, -1}, {40002, 2}}},
                                                {2, {{40001, 99}}}};
    EXPECT_EQ(ReadPointsByHolding(*file.database), all);
}

TEST_F(RecordsTest, APointWithoutDayOrValueIsLeftOut) {
    Open();
    Add(1, 40001, 5);
    points.AddNew();
    points.Set(schema::point::kKontoId, 1);
    points.Set(schema::point::kXCord, 40002);
    points.Update();
    points.AddNew();
    points.Set(schema::point::kKontoId, 1);
    points.Set(schema::point::kYCord, 7);
    points.Update();
    EXPECT_EQ(Read(1), (Points{{40001, 5}}));
    EXPECT_EQ(ReadPointsByHolding(*file.database),
              (std::map<std::int32_t, Points>{{1, {{40001, 5}}}}));
    EXPECT_EQ(ReadValues(*file.database, 1), (std::vector<std::int32_t>{5, 7}));
}

TEST_F(RecordsTest, ASecondPriceOfADayReplacesTheFirst) {
    Open();
    Add(1, 40001, 1);
    Add(2, 40002, 50);
    EXPECT_FALSE(StoreOn(40002, 2));
    EXPECT_TRUE(StoreOn(40002, -3));
    points.Refresh();
    EXPECT_EQ(Read(1), (Points{{40001, 1}, {40002, -3}}));
    EXPECT_EQ(Read(2), (Points{{40002, 50}}));
    EXPECT_EQ(points.RecordCount(), 3);
}

TEST_F(RecordsTest, SeveralPointsOfADayBecomeOne) {
    Open();
    Add(1, 40001, 1);
    Add(1, 40001, 2);
    Add(1, 40001, 3);
    StoreOn(40001, 4);
    EXPECT_EQ(Read(1), (Points{{40001, 4}}));
}

TEST_F(RecordsTest, AReplacementThatIsTakenBackLeavesTheFormerPoint) {
    Open();
    Add(1, 40001, 1);
    {
        const jet::Transaction transaction(file.database);
        StoreOn(40001, 4);
    }
    points.Refresh();
    EXPECT_EQ(Read(1), (Points{{40001, 1}}));
    EXPECT_EQ(points.RecordCount(), 1);
}

TEST_F(RecordsTest, APointThatDoesNotFitLeavesNothingPending) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    design[1].columns[schema::point::kFondNr].size = 7;
    Open(design);
    EXPECT_EQ(NumberOf([&] {
                  AddPoint(points, {"much too long", {40001, 4}, 1});
              }),
              ErrorNumber::FieldTooLong);
    EXPECT_FALSE(points.Pending());
    EXPECT_EQ(Read(1), Points{});
}

TEST_F(RecordsTest, DeletingAHoldingsPointsLeavesAllOthers) {
    Open();
    Add(1, 40001, 1);
    Add(2, 40001, 2);
    Add(1, 40002, 3);
    Add(11, 40002, 4);
    EXPECT_EQ(DeletePointsOf(*file.database, 1), 2);
    EXPECT_EQ(DeletePointsOf(*file.database, 99), 0);
    EXPECT_EQ(Read(1), Points{});
    EXPECT_EQ(Read(2), (Points{{40001, 2}}));
    EXPECT_EQ(Read(11), (Points{{40002, 4}}));
}

TEST_F(RecordsTest, AnEmptyRowReadsAsAnEmptyHolding) {
    Open();
    holdings.AddNew();
    holdings.Update();
    HoldingRow expected;
    expected.kontoId = 1;
    EXPECT_EQ(ReadHolding(holdings), expected);
}

TEST_F(RecordsTest, WithoutACurrentRowThereIsNoHolding) {
    Open();
    EXPECT_EQ(NumberOf([&] { ReadHolding(holdings); }), ErrorNumber::NoCurrentRecord);
    EXPECT_TRUE(ReadHoldings(holdings).empty());
}

/// What the fund files of many years hold in a number's place.
struct TypedColumn {
    std::string name;
    jet::ColumnType type;
    jet::Value stored;
    std::optional<double> read;
};

void PrintTo(const TypedColumn& tested, std::ostream* out) {
    *out << tested.name;
}

class NumberColumn : public RecordsTest, public testing::WithParamInterface<TypedColumn> {};

TEST_P(NumberColumn, ReadsAsTheNumberThatItShows) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    design[0].columns[schema::holding::kKursKr].type = GetParam().type;
    design[0].columns[schema::holding::kKursKr].size =
        GetParam().type == jet::ColumnType::Text ? std::uint16_t{50} : std::uint16_t{0};
    Open(design);
    holdings.AddNew();
    holdings.Set(schema::holding::kKursKr, GetParam().stored);
    holdings.Update();
    EXPECT_EQ(ReadHolding(holdings).kursKr, GetParam().read);
}

INSTANTIATE_TEST_SUITE_P(
    Types, NumberColumn,
    testing::Values(TypedColumn{"Double", jet::ColumnType::Double, 226.14, 226.14},
                    TypedColumn{"SingleWithoutNoise", jet::ColumnType::Single, 226.14F, 226.14},
                    TypedColumn{"Currency", jet::ColumnType::Currency, jet::Currency{2261400},
                                226.14},
                    TypedColumn{"Long", jet::ColumnType::Long, 226, 226.0},
                    TypedColumn{"Integer", jet::ColumnType::Integer, std::int16_t{226}, 226.0},
                    TypedColumn{"Byte", jet::ColumnType::Byte, std::uint8_t{226}, 226.0},
                    TypedColumn{"TextWithComma", jet::ColumnType::Text, "226,14", 226.14},
                    TypedColumn{"TextWithPoint", jet::ColumnType::Text, "226.14", 226.14},
                    TypedColumn{"TextThatIsNoNumber", jet::ColumnType::Text, "okänd", std::nullopt},
                    TypedColumn{"Memo", jet::ColumnType::Memo, "226,14", 226.14},
                    TypedColumn{"Null", jet::ColumnType::Double, {}, std::nullopt}),
    [](const auto& column) { return column.param.name; });

class DateColumn : public RecordsTest, public testing::WithParamInterface<TypedColumn> {};

TEST_P(DateColumn, ReadsAsADay) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    design[0].columns[schema::holding::kBokfortDatum].type = GetParam().type;
    design[0].columns[schema::holding::kBokfortDatum].size =
        GetParam().type == jet::ColumnType::Text ? std::uint16_t{50} : std::uint16_t{0};
    Open(design);
    holdings.AddNew();
    holdings.Set(schema::holding::kBokfortDatum, GetParam().stored);
    holdings.Update();
    const std::optional<std::int32_t> day = ReadHolding(holdings).bokfortDatum;
    EXPECT_EQ(day, GetParam().read ? std::optional(static_cast<std::int32_t>(*GetParam().read))
                                   : std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(
    Types, DateColumn,
    testing::Values(TypedColumn{"Date", jet::ColumnType::Date, jet::Date{36891}, 36891.0},
                    TypedColumn{"DateWithTime", jet::ColumnType::Date, jet::Date{36891.25},
                                36891.0},
                    TypedColumn{"Text", jet::ColumnType::Text, "2000-12-31", 36891.0},
                    TypedColumn{"ShortText", jet::ColumnType::Text, "00/12/31", 36891.0},
                    TypedColumn{"Number", jet::ColumnType::Long, 36891, 36891.0},
                    TypedColumn{"NoDate", jet::ColumnType::Text, "i våras", std::nullopt},
                    TypedColumn{"Null", jet::ColumnType::Date, {}, std::nullopt}),
    [](const auto& column) { return column.param.name; });

TEST_F(RecordsTest, AnIdentityThatIsNoNumberIsOne) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    design[0].indexes.clear();
    design[0].columns[0] = {.name = "Namn på rad", .type = jet::ColumnType::Text, .size = 20};
    Open(design);
    holdings.AddNew();
    holdings.Set(schema::holding::kKontoId, "rad A");
    holdings.Update();
    EXPECT_EQ(KontoIdOf(holdings), 1);
    EXPECT_EQ(ReadHolding(holdings).kontoId, 1);
    holdings.Edit();
    holdings.Set(schema::holding::kKontoId, "17");
    holdings.Update();
    EXPECT_EQ(KontoIdOf(holdings), 17);
}

TEST_F(RecordsTest, AccountHolderAndNumberAreFoundByNameInEitherOrder) {
    std::vector<jet::TableDesign> design = NewFundFileDesign();
    std::swap(design[0].columns[8], design[0].columns[9]);
    Open(design);
    holdings.AddNew();
    holdings.Set("Kontoinnehavare", "541399-0000");
    holdings.Set("Kontonummer", "0000-00 117");
    holdings.Update();
    EXPECT_EQ(holdings.Field(8).Text(), "0000-00 117");
    EXPECT_EQ(ReadHolding(holdings).kontoinnehavare, "541399-0000");
    EXPECT_EQ(ReadHolding(holdings).kontonummer, "0000-00 117");
}

TEST_F(RecordsTest, AllHoldingsAreReadWithoutMoving) {
    Open();
    for (const char* name : {"Ett", "Två", "Tre"}) {
        holdings.AddNew();
        holdings.Set("Fond", name);
        holdings.Update();
    }
    holdings.MoveTo(1);
    const std::vector<HoldingRow> rows = ReadHoldings(holdings);
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0].fond, "Ett");
    EXPECT_EQ(rows[2].kontoId, 3);
    EXPECT_EQ(holdings.Position(), 1);
}

TEST_F(RecordsTest, ARowBeingEditedReadsAsTyped) {
    Open();
    holdings.AddNew();
    holdings.Set("Fond", "Som skrivet");
    EXPECT_EQ(ReadHolding(holdings).fond, "Som skrivet");
}

}  // namespace
