// Saved queries: all of them can be read as texts, those over one table open.

#include "jet/database.h"
#include "ledger.h"

#include <algorithm>
#include <gmock/gmock.h>

namespace jet::test {
namespace {

std::string TextOf(const Database& database, std::string_view name) {
    for (const QueryDesign& query : database.SavedQueries()) {
        if (query.name == name) return query.text;
    }
    return "no such query";
}

TEST(SavedQueries, AreListedWithTheirTexts) {
    SKIP_WITHOUT_SAMPLES();
    const auto database =
        Database::Open(*OtherFiles() / "mdb-samples" / "nwind.mdb", Access::ReadOnly);
    EXPECT_EQ(database->SavedQueries().size(), 22U);
    EXPECT_EQ(TextOf(*database, "Current Product List"),
              "SELECT [Product List].ProductID, [Product List].ProductName FROM Products AS "
              "[Product List] WHERE ((([Product List].Discontinued)=No)) ORDER BY "
              "[Product List].ProductName");
    EXPECT_EQ(TextOf(*database, "Order Subtotals"),
              "SELECT DISTINCTROW [Order Details].OrderID, "
              "Sum(CCur([UnitPrice]*[Quantity]*(1-[Discount])/100)*100) AS Subtotal FROM "
              "[Order Details] GROUP BY [Order Details].OrderID");
    EXPECT_THAT(TextOf(*database, "Ten Most Expensive Products"),
                testing::StartsWith("SELECT DISTINCTROW TOP 10 Products.ProductName AS "));
    EXPECT_THAT(TextOf(*database, "Catalog"),
                testing::HasSubstr(" FROM Categories INNER JOIN Products ON "
                                   "Categories.CategoryID = Products.CategoryID WHERE "));
    for (const QueryDesign& query : database->SavedQueries()) EXPECT_NE(query.text, "");
}

TEST(SavedQueries, OfEveryKindHaveAText) {
    SKIP_WITHOUT_SAMPLES();
    const auto database =
        Database::Open(*OtherFiles() / "mdb-samples" / "queryTestV2000.mdb", Access::ReadOnly);
    EXPECT_THAT(TextOf(*database, "DeleteQuery"),
                "DELETE Table1.col1, Table1.col2, Table1.col3 FROM Table1 WHERE "
                "(((Table1.col1)>\"blah\"))");
    EXPECT_THAT(TextOf(*database, "UpdateQuery"), testing::StartsWith("UPDATE Table1 SET "));
    EXPECT_THAT(TextOf(*database, "AppendQuery"), testing::StartsWith("INSERT INTO "));
    EXPECT_THAT(TextOf(*database, "MakeTableQuery"), testing::HasSubstr(" INTO "));
    EXPECT_THAT(TextOf(*database, "UnionQuery"), testing::HasSubstr(" UNION "));
    for (const QueryDesign& query : database->SavedQueries()) EXPECT_NE(query.text, "");
}

TEST(SavedQueries, OverOneTableUnderAnotherNameOpen) {
    SKIP_WITHOUT_SAMPLES();
    const auto database =
        Database::Open(*OtherFiles() / "mdb-samples" / "nwind.mdb", Access::ReadOnly);
    const auto sold = database->OpenRecordSet("Current Product List");
    ASSERT_EQ(sold->FieldCount(), 2U);
    EXPECT_EQ(sold->Column(1).name, "ProductName");
    const auto all = database->OpenRecordSet("Products");
    std::vector<std::string> expected, found;
    for (; !all->Eof(); all->MoveNext()) {
        if (all->Field("Discontinued") == Value(false)) {
            expected.push_back(all->Field("ProductName").Text());
        }
    }
    for (; !sold->Eof(); sold->MoveNext()) found.push_back(sold->Field(1).Text());
    EXPECT_GT(found.size(), 50U);
    EXPECT_THAT(found, testing::UnorderedElementsAreArray(expected));
    EXPECT_LT(found.size(), static_cast<std::size_t>(all->RecordCount()));
}

TEST(SavedQueries, OfOtherKindsAreRefused) {
    SKIP_WITHOUT_SAMPLES();
    const auto database =
        Database::Open(*OtherFiles() / "mdb-samples" / "nwind.mdb", Access::ReadOnly);
    for (const char* name : {"Catalog", "Order Subtotals", "Ten Most Expensive Products",
                             "Products Above Average Price", "Customers and Suppliers by City"}) {
        EXPECT_EQ(FailureOf([&] { database->OpenRecordSet(name); }), ErrorNumber::NotSupported)
            << name;
    }
}

}  // namespace
}  // namespace jet::test
