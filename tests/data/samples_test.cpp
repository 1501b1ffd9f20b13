// The files that the build puts beside the program, made here for a fixed date.

#include "base/daynumber.h"
#include "base/number.h"
#include "base/text.h"
#include "entry/rules/cells.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/curvecolour.h"
#include "fundfile/rules/point.h"
#include "fundfile/rules/savedvalues.h"
#include "fundfile/rules/scale.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "fundfile/sources.h"
#include "tests/data/support.h"

#include <QProcess>
#include <QString>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono;

constexpr year_month_day kLastDay = 2026y / February / 24;

void Make(const fs::path& folder, year_month_day date = kLastDay) {
    QProcess program;
    const std::string day = FormatDay(DayNumber(date));
    program.start(QStringLiteral(MAKESAMPLES_PROGRAM),
                  {QString::fromStdString(folder.string()), QString::fromStdString(day)});
    ASSERT_TRUE(program.waitForFinished());
    ASSERT_EQ(program.exitCode(), 0) << program.readAllStandardError().toStdString();
}

/// Made once, read by all tests below.
const fs::path& Made() {
    static const testdata::TemporaryFolder folder;
    static const fs::path path = [] {
        Make(folder.Path());
        return folder.Path();
    }();
    return path;
}

class SampleFile : public testing::TestWithParam<std::string> {
  protected:
    void SetUp() override {
        path = Made() / GetParam();
        file = OpenAndBind(path, {holdings, points}, queries::AllPoints());
        rows = ReadHoldings(holdings);
    }
    void TearDown() override { CloseFundFile(file.database); }

    std::vector<CurvePoint> PointsOf(const HoldingRow& row) {
        return testdata::PointsOf(*file.database, row.kontoId);
    }
    /// Price and shares from which the percentages of a row start.
    static double StartOf(const HoldingRow& row) {
        const auto saved = ParseSavedValues(row.sparadeVarden);
        return saved ? ParseDouble(saved->price) : row.kursKr.value();
    }

    fs::path path;
    DataSource holdings{"dtaBasData", "BasData"}, points{"dtaPlott", "Plotting"};
    FundFile file;
    std::vector<HoldingRow> rows;
};

TEST_P(SampleFile, IsSoundAndReadByAnotherReader) {
    EXPECT_EQ(file.database->Verify(), std::vector<std::string>{});
    EXPECT_EQ(testdata::MdbExport(path, "FONDDATA").size(), rows.size());
    EXPECT_EQ(testdata::MdbExport(path, "PLOTTDATA").size(),
              static_cast<std::size_t>(points.RecordCount()));
}

TEST_P(SampleFile, HasEightToFifteenHoldingsOnSeveralAccounts) {
    EXPECT_GE(rows.size(), 8U);
    EXPECT_LE(rows.size(), 15U);
    std::set<std::string> accounts, names;
    for (const HoldingRow& row : rows) {
        accounts.insert(row.namn);
        names.insert(row.fond);
        EXPECT_FALSE(row.namn.empty());
        EXPECT_LT(Length(row.fond), 25U) << row.fond;
        EXPECT_EQ(Length(row.fondNr), 7U) << row.fondNr;
        EXPECT_EQ(row.fondNr[3], ' ');
    }
    EXPECT_GE(accounts.size(), 3U);
    EXPECT_EQ(names.size(), rows.size());
}

TEST_P(SampleFile, PricesRunOverTwoToSixYearsOfWeekdaysUpToTheLastDay) {
    for (const HoldingRow& row : rows) {
        const std::vector<CurvePoint> series = PointsOf(row);
        const std::int32_t span = series.back().day - series.front().day;
        EXPECT_GE(span, 2 * 365 - 4) << row.fond;
        EXPECT_LE(span, 6 * 366) << row.fond;
        EXPECT_EQ(FormatDay(series.back().day), "2026-02-24");
        for (std::size_t i = 0; i < series.size(); ++i) {
            EXPECT_NE(WeekdayName(series[i].day), "lördag");
            EXPECT_NE(WeekdayName(series[i].day), "söndag");
            if (i > 0) {
                EXPECT_GT(series[i].day, series[i - 1].day);
                EXPECT_LE(series[i].day - series[i - 1].day, 6) << row.fond;
            }
        }
    }
}

TEST_P(SampleFile, PricesMoveLikeFundPrices) {
    for (const HoldingRow& row : rows) {
        const std::vector<CurvePoint> series = PointsOf(row);
        std::int32_t largestStep = 0;
        std::set<std::int32_t> values;
        for (std::size_t i = 1; i < series.size(); ++i) {
            // Relative to the price of the day before, not to the start.
            const double before = 100.0 + series[i - 1].value;
            largestStep = std::max(
                largestStep, static_cast<std::int32_t>(std::lround(
                                 std::abs(series[i].value - series[i - 1].value) * 100 / before)));
            values.insert(series[i].value);
        }
        EXPECT_LE(largestStep, 12) << row.fond;
        EXPECT_GE(values.size(), 8U) << row.fond << " hardly moves";
        EXPECT_GT(*values.begin(), -60) << row.fond;
        EXPECT_LT(*values.rbegin(), 300) << row.fond;
    }
}

TEST_P(SampleFile, EverySeriesBeginsWithZeroOnTheBookingDay) {
    for (const HoldingRow& row : rows) {
        const std::vector<CurvePoint> series = PointsOf(row);
        const auto saved = ParseSavedValues(row.sparadeVarden);
        EXPECT_EQ(series.front().value, 0);
        EXPECT_EQ(FormatDay(series.front().day),
                  saved ? saved->date : FormatDay(row.bokfortDatum.value()));
    }
}

TEST_P(SampleFile, SummaryTextsAgreeWithTheLastPoint) {
    for (const HoldingRow& row : rows) {
        const CurvePoint last = PointsOf(row).back();
        const std::vector<std::string> latest = Split(row.senasteKurs, " : ");
        ASSERT_EQ(latest.size(), 2U) << row.senasteKurs;
        EXPECT_EQ(latest[0], "Senaste");
        const double price = ParseDouble(latest[1]);
        EXPECT_EQ(latest[1], Fixed(price, 2));
        EXPECT_EQ(PercentChange(price, StartOf(row)), last.value) << row.fond;
        EXPECT_EQ(row.procent, PlainText(last.value) + " %");
        EXPECT_EQ(row.senasteDag, last.day);
        const double value = row.fondandelar.value() * ParseDouble(latest[1]);
        EXPECT_EQ(row.kursVarde,
                  row.fondNr == kSummaryFondNr ? "-" : PlainText(RoundHalfEven(value)));
        EXPECT_EQ(row.vardeKr, RowValue(row.fondandelar, row.kursKr));
    }
}

TEST_P(SampleFile, SharesOfAnAccountAddUpToAboutAHundredPercent) {
    std::map<std::string, double> sums;
    for (const HoldingRow& row : rows) sums[row.namn] += row.andel.value();
    for (const auto& [account, sum] : sums) EXPECT_NEAR(sum, 100, 2) << account;
}

TEST_P(SampleFile, OneAccountIsKeptAsASummaryRow) {
    const auto isSummary = [](const HoldingRow& row) { return row.fondNr == kSummaryFondNr; };
    ASSERT_EQ(std::count_if(rows.begin(), rows.end(), isSummary), 1);
    const HoldingRow summary = *std::find_if(rows.begin(), rows.end(), isSummary);
    EXPECT_EQ(std::count_if(rows.begin(), rows.end(),
                            [&](const HoldingRow& row) { return row.namn == summary.namn; }),
              1);
}

TEST_P(SampleFile, OneHoldingHasAShareNoticeWithSavedValues) {
    std::vector<HoldingRow> noticed;
    for (const HoldingRow& row : rows) {
        if (row.sparadeVarden != "x") noticed.push_back(row);
    }
    ASSERT_EQ(noticed.size(), 1U);
    const auto saved = ParseSavedValues(noticed[0].sparadeVarden);
    ASSERT_TRUE(saved);
    EXPECT_LT(saved->date, FormatDay(noticed[0].bokfortDatum.value()));
    EXPECT_EQ(DateOf(noticed[0].bokfortDatum.value()).month(), February);
    EXPECT_GT(noticed[0].fondandelar.value(), ParseDouble(saved->shares));
    EXPECT_NEAR(ParseDouble(saved->value), ParseDouble(saved->shares) * ParseDouble(saved->price),
                1e-6);
}

TEST_P(SampleFile, EveryScaleIsTheAutomaticOneAndTheFirstListsShownCurves) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        std::vector<std::int32_t> values;
        for (const CurvePoint& point : PointsOf(rows[i])) values.push_back(point.value);
        const ScaleText scale = ParseScaleText(rows[i].skala);
        EXPECT_EQ(scale.scale, AutomaticScale(values)) << rows[i].fond;
        EXPECT_EQ(scale.curves.size() >= 3, i == 0);
        EXPECT_EQ(scale.list.empty(), i != 0);
    }
    for (const std::int32_t kontoId : ParseScaleText(rows[0].skala).curves) {
        EXPECT_TRUE(HasPoints(*file.database, kontoId));
    }
}

TEST_P(SampleFile, ColoursCanBeReadOnTheDiagramAndToldApart) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Colour colour = ColourFromValue(rows[i].plottFarg.value());
        EXPECT_GE(Contrast(colour, kDiagramBackground), 3.0) << rows[i].fond;
        for (std::size_t j = 0; j < i; ++j) {
            const Colour other = ColourFromValue(rows[j].plottFarg.value());
            const int distance = std::abs(colour.red - other.red) +
                                 std::abs(colour.green - other.green) +
                                 std::abs(colour.blue - other.blue);
            EXPECT_GE(distance, 40) << rows[i].fond << " and " << rows[j].fond;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Both, SampleFile,
                         testing::Values("Vimmels_exempel.mdb", "Rusken_Kina.mdb"),
                         [](const auto& file) { return Split(file.param, ".").front(); });

TEST(SampleFiles, TheTemplateIsAnEmptyFundFile) {
    FundFile file = OpenFundFile(Made() / "Db0.dat");
    EXPECT_EQ(file.database->OpenRecordSet("FR_FONDDATA")->RecordCount(), 0);
    EXPECT_EQ(file.database->OpenRecordSet("PLOTTDATA")->RecordCount(), 0);
    EXPECT_EQ(file.database->Verify(), std::vector<std::string>{});
    CloseFundFile(file.database);
}

TEST(SampleFiles, TheSameDateGivesTheSameBytes) {
    const testdata::TemporaryFolder again;
    Make(again.Path());
    for (const char* name : {"Db0.dat", "Vimmels_exempel.mdb", "Rusken_Kina.mdb", "Grid.dib"}) {
        EXPECT_EQ(testdata::BytesOf(again / name), testdata::BytesOf(Made() / name)) << name;
    }
}

TEST(SampleFiles, AnotherDateMovesTheEndOfTheSeries) {
    const testdata::TemporaryFolder later;
    Make(later.Path(), 2027y / November / 20);  // a Saturday
    FundFile file = OpenFundFile(later / "Vimmels_exempel.mdb");
    EXPECT_EQ(FormatDay(testdata::PointsOf(*file.database, 1).back().day), "2027-11-19");
    CloseFundFile(file.database);
}

TEST(SampleFiles, WithoutADateNothingIsMade) {
    const testdata::TemporaryFolder folder;
    for (const char* date : {"", "i dag", "2026-02-30"}) {
        QProcess program;
        program.start(QStringLiteral(MAKESAMPLES_PROGRAM),
                      {QString::fromStdString(folder.Path().string()), QString::fromUtf8(date)});
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), 2) << date;
    }
    EXPECT_TRUE(testdata::NamesIn(folder.Path()).empty());
}

TEST(SampleFiles, TheGridIsAPictureWithLinesInTheDiagramsProportions) {
    const std::string bytes = testdata::BytesOf(Made() / "Grid.dib");
    ASSERT_GT(bytes.size(), 118U);
    EXPECT_EQ(bytes.substr(0, 2), "BM");
    const auto number = [&](std::size_t at) {
        std::uint32_t value = 0;
        for (std::size_t i = 4; i-- > 0;) {
            value = value << 8 | static_cast<std::uint8_t>(bytes[at + i]);
        }
        return value;
    };
    EXPECT_EQ(number(2), bytes.size());
    EXPECT_NEAR(number(18) / 14.965, number(22) / 7.0, 1);
}

}  // namespace
