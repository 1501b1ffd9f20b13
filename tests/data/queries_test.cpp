#include "fundfile/queries.h"

#include <gtest/gtest.h>
#include <ostream>
#include <string>

struct QueryText {
    std::string built, expected;
};

void PrintTo(const QueryText& tested, std::ostream* out) {
    *out << tested.expected;
}

class Queries : public testing::TestWithParam<QueryText> {};

TEST_P(Queries, AreByteForByteAsGiven) {
    EXPECT_EQ(GetParam().built, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    All, Queries,
    testing::Values(
        QueryText{queries::AllPoints(), "SELECT* FROM  PLOTTDATA  ORDER BY KontoId,XCord"},
        QueryText{queries::AllPointsAfterOpening(),
                  "SELECT * FROM  PLOTTDATA  ORDER BY KontoId,XCord"},
        QueryText{queries::PointsOf(7),
                  "SELECT XCord,YCord FROM  PLOTTDATA WHERE KontoId = 7 ORDER BY XCord"},
        QueryText{queries::PointsOf(-12),
                  "SELECT XCord,YCord FROM  PLOTTDATA WHERE KontoId = -12 ORDER BY XCord"},
        QueryText{queries::ValuesOf(123), "SELECT YCord FROM  PLOTTDATA WHERE KontoId = 123"},
        QueryText{queries::FondNrOfPointsOf(1), "SELECT FondNr FROM  PLOTTDATA WHERE KontoId = 1"},
        QueryText{queries::DeletePointsOf(2147483647),
                  "DELETE *  FROM  PLOTTDATA WHERE KontoId = 2147483647"},
        QueryText{queries::TotalsOf("PPM Konto"),
                  "SELECT FondNr,KursKr,VärdeKr,Procent,KursVärde,SenasteKurs FROM  FONDDATA "
                  "WHERE Namn = 'PPM Konto'"},
        QueryText{queries::TotalsOf("Åke's"),
                  "SELECT FondNr,KursKr,VärdeKr,Procent,KursVärde,SenasteKurs FROM  FONDDATA "
                  "WHERE Namn = 'Åke's'"},
        QueryText{queries::KontoIdIs(5), "KontoId = 5"},
        QueryText{queries::XCordIs(36891), "XCord = 36891"}));
