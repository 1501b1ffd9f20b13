#include "widgets/texttable.h"

#include <QApplication>
#include <QFont>
#include <QFontMetrics>
#include <QHeaderView>
#include <QImage>
#include <QPixmap>
#include <QString>
#include <QStyledItemDelegate>

#include <gtest/gtest.h>
#include <vector>

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

QImage LookOf(TextTable& table) {
    QApplication::processEvents();
    return table.grab().toImage();
}

TEST(TextTable, DrawsItsTextsWhereTheStyleWould) {
    TextTable table;
    table.SetColumns({{"Nr", true, 1}, {"Fond", false, 6}, {"Värde", true, 2}});
    table.resize(300, 160);
    table.SetRows({{{"7", "Cedervall Nordamerika Tillväxt och Utdelning", "840"}},
                   {{"12", "Björk", "678,90"}, RowTone::Quiet},
                   {{"13", "Ask", "1"}, RowTone::Doubted},
                   {{"", "Summa", "1519,90"}, RowTone::Sum}});
    table.SetCurrentRow(1);
    table.setFocusPolicy(Qt::NoFocus);
    table.show();
    const QImage drawn = LookOf(table);
    QStyledItemDelegate styles;
    table.setItemDelegate(&styles);
    EXPECT_EQ(drawn, LookOf(table));
}

TEST(TextTable, HasItsCaptionsWhetherRowsOrTheScreenComeFirst) {
    const std::vector<TextColumn> columns = {{"Nr", true, 1}, {"Fond", false, 6}};
    TextTable rowsFirst, screenFirst;
    for (TextTable* table : {&rowsFirst, &screenFirst}) table->SetColumns(columns);
    rowsFirst.SetRows({{{"7", "Ask"}}});
    rowsFirst.show();
    screenFirst.show();
    screenFirst.SetRows({{{"7", "Ask"}}});
    for (TextTable* table : {&rowsFirst, &screenFirst}) {
        EXPECT_TRUE(table->horizontalHeader()->isVisible());
        EXPECT_FALSE(table->verticalHeader()->isVisible());
        EXPECT_EQ(table->horizontalHeader()->count(), 2);
    }
}

}  // namespace
