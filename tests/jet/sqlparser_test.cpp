#include "jet/query/sqlparser.h"

#include "jet/error.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace jet::detail {
namespace {

Select ParsedSelect(std::string_view sql) {
    return std::get<Select>(ParseStatement(sql));
}
Delete ParsedDelete(std::string_view sql) {
    return std::get<Delete>(ParseStatement(sql));
}

ErrorNumber FailureOf(std::string_view sql) {
    try {
        ParseStatement(sql);
    } catch (const Error& error) {
        return error.Number();
    }
    return ErrorNumber::None;
}

Comparison Number(std::string field, std::string value) {
    return {std::move(field), {false, std::move(value)}};
}
Comparison Text(std::string field, std::string value) {
    return {std::move(field), {true, std::move(value)}};
}

struct SelectRow {
    std::string sql;
    Select meaning;
};

void PrintTo(const SelectRow& tested, std::ostream* out) {
    *out << tested.sql;
}

class SelectTexts : public testing::TestWithParam<SelectRow> {};

TEST_P(SelectTexts, MeanWhatTheySay) {
    EXPECT_EQ(ParsedSelect(GetParam().sql), GetParam().meaning);
}

INSTANTIATE_TEST_SUITE_P(
    OfTheProgram, SelectTexts,
    testing::Values(
        SelectRow{"SELECT* FROM  PLOTTDATA  ORDER BY KontoId,XCord",
                  {{}, "PLOTTDATA", {}, {{"KontoId", false}, {"XCord", false}}}},
        SelectRow{"SELECT * FROM  PLOTTDATA  ORDER BY KontoId,XCord",
                  {{}, "PLOTTDATA", {}, {{"KontoId", false}, {"XCord", false}}}},
        SelectRow{"SELECT XCord,YCord FROM  PLOTTDATA WHERE KontoId = 12 ORDER BY XCord",
                  {{"XCord", "YCord"}, "PLOTTDATA", Number("KontoId", "12"), {{"XCord", false}}}},
        SelectRow{"SELECT YCord FROM  PLOTTDATA WHERE KontoId = 7",
                  {{"YCord"}, "PLOTTDATA", Number("KontoId", "7"), {}}},
        SelectRow{"SELECT FondNr FROM  PLOTTDATA WHERE KontoId = 3",
                  {{"FondNr"}, "PLOTTDATA", Number("KontoId", "3"), {}}},
        SelectRow{"SELECT FondNr,KursKr,VärdeKr,Procent,KursVärde,SenasteKurs FROM  FONDDATA "
                  "WHERE Namn = 'Konto A'",
                  {{"FondNr", "KursKr", "VärdeKr", "Procent", "KursVärde", "SenasteKurs"},
                   "FONDDATA",
                   Text("Namn", "Konto A"),
                   {}}}));

INSTANTIATE_TEST_SUITE_P(
    InOtherSpelling, SelectTexts,
    testing::Values(
        SelectRow{"SELECT*FROM FONDDATA", {{}, "FONDDATA", {}, {}}},
        SelectRow{"\tselect\r\n*\nfrom fonddata  ", {{}, "fonddata", {}, {}}},
        SelectRow{"SeLeCt Fond FrOm FONDDATA oRdEr bY Fond dEsC",
                  {{"Fond"}, "FONDDATA", {}, {{"Fond", true}}}},
        SelectRow{"SELECT VÄRDEKR FROM FONDDATA", {{"VÄRDEKR"}, "FONDDATA", {}, {}}},
        SelectRow{"SELECT Andel% FROM FONDDATA WHERE Andel%=5",
                  {{"Andel%"}, "FONDDATA", Number("Andel%", "5"), {}}},
        SelectRow{"SELECT[Andel%],[Fond Nr]FROM[Mina fonder]WHERE[Fond Nr]='1'ORDER BY[a]ASC",
                  {{"Andel%", "Fond Nr"}, "Mina fonder", Text("Fond Nr", "1"), {{"a", false}}}},
        SelectRow{"SELECT [FROM] FROM [SELECT]", {{"FROM"}, "SELECT", {}, {}}},
        SelectRow{"SELECT a FROM b ORDER BY c DESC, d ASC, e",
                  {{"a"}, "b", {}, {{"c", true}, {"d", false}, {"e", false}}}},
        SelectRow{"SELECT a FROM b WHERE c = -12.50", {{"a"}, "b", Number("c", "-12.50"), {}}},
        SelectRow{"SELECT a FROM b WHERE c =.5", {{"a"}, "b", Number("c", ".5"), {}}},
        SelectRow{"SELECT a FROM b WHERE c = \"it's\"", {{"a"}, "b", Text("c", "it's"), {}}},
        SelectRow{"SELECT a FROM b WHERE c = 'O''Brien'", {{"a"}, "b", Text("c", "O'Brien"), {}}},
        SelectRow{"SELECT a FROM b WHERE c = \"5\"\"\"", {{"a"}, "b", Text("c", "5\""), {}}},
        SelectRow{"SELECT a FROM b WHERE c = ''", {{"a"}, "b", Text("c", ""), {}}},
        SelectRow{"SELECT a FROM b WHERE c = ' Åke  '", {{"a"}, "b", Text("c", " Åke  "), {}}}));

TEST(DeleteText, OfTheProgramIsRead) {
    const Delete expected{"PLOTTDATA", Number("KontoId", "5")};
    EXPECT_EQ(ParsedDelete("DELETE *  FROM  PLOTTDATA WHERE KontoId = 5"), expected);
}

TEST(DeleteText, NeedsNoStar) {
    EXPECT_EQ(ParsedDelete("delete from t"), (Delete{"t", std::nullopt}));
    EXPECT_EQ(ParsedDelete("DELETE*FROM t WHERE n='x'"), (Delete{"t", Text("n", "x")}));
}

class BrokenTexts : public testing::TestWithParam<std::string> {};

TEST_P(BrokenTexts, AreSyntaxErrors) {
    EXPECT_EQ(FailureOf(GetParam()), ErrorNumber::SyntaxError);
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryKind, BrokenTexts,
    testing::Values("", "FONDDATA", "SELECT", "SELECT FROM t", "SELECT a", "SELECT a,FROM t",
                    "SELECT a b FROM t", "SELECT a FROM", "SELECT a FROM t u",
                    "SELECT a FROM t WHERE",
                    "SELECT a FROM t WHERE KontoId = ", "SELECT a FROM t WHERE c 5",
                    "SELECT a FROM t WHERE c = d", "SELECT a FROM t WHERE c > 5",
                    "SELECT a FROM t WHERE c = 5 AND d = 6", "SELECT a FROM t WHERE c = 'O'Brien'",
                    "SELECT a FROM t WHERE c = 'x", "SELECT a FROM t WHERE c = 5x",
                    "SELECT a FROM t WHERE c = 1.2.3", "SELECT a FROM t WHERE c = 5.",
                    "SELECT a FROM t WHERE c = 1,5", "SELECT a FROM t WHERE c = +5",
                    "SELECT a FROM t WHERE c = --5", "SELECT a FROM t WHERE c = 1E5",
                    "SELECT a FROM t WHERE c = 5ORDER BY a", "SELECT a FROM t ORDER a",
                    "SELECT a FROM t ORDER BY", "SELECT a FROM t ORDER BY a b",
                    "SELECT a FROM t ORDER BY a DESC ASC", "SELECT a FROM t;", "SELECT *,a FROM t",
                    "SELECT t.a FROM t", "SELECT [a FROM t", "SELECT [] FROM t",
                    "SELECT a AS b FROM t", "SELECTa FROM t", "SELECT a FROMt", "SELECT 5 FROM t",
                    "DELETE", "DELETE * FROM t ORDER BY a", "DELETE a FROM t", "DELETE FROM",
                    "UPDATE t SET a = 5", "DROP TABLE t",
                    "SELECT a FROM t WHERE c = #2000-01-01#"));

TEST(Syntax, ErrorNamesThePlaceAndTheText) {
    try {
        ParseStatement("SELECT a FROM t WHERE c = 'O'Brien'");
        FAIL();
    } catch (const Error& error) {
        EXPECT_NE(std::string(error.what()).find("before \"'\""), std::string::npos)
            << error.what();
    }
}

TEST(Source, IsAQueryOnlyWhenItBeginsWithTheWordSelect) {
    for (const char* query :
         {"SELECT a FROM b", "select* from b", "  \nSELECT", "SELECT[a]FROM b"}) {
        EXPECT_TRUE(IsSelect(query)) << query;
    }
    for (const char* name : {"FONDDATA", "Selection", "selected", "", "DELETE FROM a", "SELECT%"}) {
        EXPECT_FALSE(IsSelect(name)) << name;
    }
}

TEST(Criterion, IsOneComparison) {
    EXPECT_EQ(ParseCriterion("KontoId = 5"), Number("KontoId", "5"));
    EXPECT_EQ(ParseCriterion("XCord=46000"), Number("XCord", "46000"));
    EXPECT_EQ(ParseCriterion(" [Andel%] = -0.5 "), Number("Andel%", "-0.5"));
    EXPECT_EQ(ParseCriterion("Namn = 'Åsa'"), Text("Namn", "Åsa"));
    for (const char* broken : {"", "KontoId", "KontoId =", "KontoId = 5 6", "= 5", "5 = KontoId"}) {
        EXPECT_THROW(ParseCriterion(broken), Error) << broken;
    }
}

TEST(SavedExpression, MayNameItsSourceAndUseParentheses) {
    EXPECT_EQ(ParseSavedCriterion("(((FONDDATA.Namn)=\"x\"))", "FONDDATA"), Text("Namn", "x"));
    EXPECT_EQ(ParseSavedCriterion("[fonddata].[KontoId]=5", "FONDDATA"), Number("KontoId", "5"));
    EXPECT_EQ(ParseSavedColumn("FONDDATA.*", "FONDDATA"), "*");
    EXPECT_EQ(ParseSavedColumn("*", "FONDDATA"), "*");
    EXPECT_EQ(ParseSavedColumn("[FONDDATA].[Andel%]", "FONDDATA"), "Andel%");
    EXPECT_EQ(ParseSavedColumn("Fond", "FONDDATA"), "Fond");
}

TEST(SavedExpression, BeyondThatIsNotSupported) {
    for (const char* expression :
         {"Other.Fond", "Sum(Fond)", "[a]+[b]", "a And b", "Fond Like 'x*'"}) {
        try {
            ParseSavedColumn(expression, "FONDDATA");
            ADD_FAILURE() << expression;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::NotSupported) << expression;
        }
    }
}

}  // namespace
}  // namespace jet::detail
