#include "widgets/texttable.h"

#include <QApplication>
#include <QFontMetrics>
#include <QString>

#include <gtest/gtest.h>

namespace {

TEST(TextTable, CutsNamesAndNeverNumbers) {
    TextTable table;
    table.SetColumns({{"Nr", true, 1}, {"Fond", false, 20}, {"Värde", true, 1}});
    table.resize(200, 100);
    table.show();
    QApplication::processEvents();
    table.SetRows({{{"7", "Cedervall Nordamerika Tillväxt och Utdelning", "840"}},
                   {{"1234", "Björk", "12345678,90"}},
                   {{"", "Summa", "12346518,90"}, RowTone::Sum}});
    QFont bold = table.font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    EXPECT_GE(table.columnWidth(0), metrics.horizontalAdvance(QStringLiteral("1234")));
    EXPECT_GE(table.columnWidth(2), metrics.horizontalAdvance(QStringLiteral("12346518,90")));
    const int cut = table.columnWidth(1);
    // Shorter numbers give the room back.
    table.SetRows({{{"7", "Cedervall Nordamerika Tillväxt och Utdelning", "840"}}});
    EXPECT_GT(table.columnWidth(1), cut);
}

}  // namespace
