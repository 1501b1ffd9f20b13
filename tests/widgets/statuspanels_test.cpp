#include "widgets/statuspanels.h"

#include "base/error.h"
#include "platform/qttext.h"

#include <QCoreApplication>
#include <QLabel>

#include <gtest/gtest.h>
#include <string>

namespace {

TEST(StatusPanels, AreNumberedFromOneEachWithTextAndTag) {
    StatusPanels bar(6);
    bar.SetText(1, "ett");
    bar.SetText(6, "sex");
    bar.SetTag(6, "12,5");
    EXPECT_EQ(bar.Count(), 6);
    EXPECT_EQ(bar.Text(1), "ett");
    EXPECT_EQ(bar.Text(6), "sex");
    EXPECT_EQ(bar.Tag(6), "12,5");
    EXPECT_EQ(bar.Tag(1), "");
}

TEST(StatusPanels, APanelThatIsNotThereIsErrorNine) {
    StatusPanels bar(6);
    for (const int panel : {0, 7, -1}) {
        try {
            bar.SetText(panel, "x");
            ADD_FAILURE() << "panel " << panel;
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
        }
    }
}

TEST(StatusPanels, ALongTextIsElidedAndShownWholeAsTooltip) {
    StatusPanels bar(3);
    bar.SetMinimumPanelWidth(1, 60, 1);
    bar.SetMinimumPanelWidth(2, 60, 1);
    bar.resize(240, 24);
    bar.show();
    const char* text = "En fond med ett mycket långt namn som inte får plats";
    bar.SetText(1, text);
    bar.SetText(2, "kort");
    const QList<QLabel*> labels = bar.findChildren<QLabel*>();
    EXPECT_EQ(FromQt(labels[0]->toolTip()), text);
    EXPECT_NE(FromQt(labels[0]->text()), text);
    EXPECT_EQ(bar.Text(1), text);
    EXPECT_EQ(labels[1]->toolTip(), QString());
    bar.resize(2000, 24);
    QCoreApplication::processEvents();
    EXPECT_EQ(FromQt(labels[0]->text()), text);
}

TEST(StatusPanels, NeverStandOverEachOther) {
    StatusPanels bar(3);
    for (int panel = 1; panel <= 3; ++panel) bar.SetMinimumPanelWidth(panel, 60, 1);
    bar.resize(200, 24);
    bar.show();
    for (int panel = 1; panel <= 3; ++panel) bar.SetText(panel, "Cedervall Nordamerika Tillväxt");
    QCoreApplication::processEvents();
    const QList<QLabel*> labels = bar.findChildren<QLabel*>();
    EXPECT_LE(labels[0]->geometry().right(), labels[1]->geometry().left());
    EXPECT_LE(labels[1]->geometry().right(), labels[2]->geometry().left());
    EXPECT_LE(labels[2]->geometry().right(), bar.width());
}

TEST(StatusPanels, ATextTakesTheRoomThatItsNeighboursSpare) {
    StatusPanels bar(3);
    for (int panel = 1; panel <= 3; ++panel) bar.SetMinimumPanelWidth(panel, 60, 1);
    bar.show();
    const QList<QLabel*> labels = bar.findChildren<QLabel*>();
    const QString text = QStringLiteral("Senaste : 190,29");
    bar.resize(labels[1]->fontMetrics().horizontalAdvance(text) + 180, 24);
    bar.SetText(2, FromQt(text));
    QCoreApplication::processEvents();
    EXPECT_EQ(labels[1]->text(), text);
    EXPECT_GE(labels[0]->width(), 60);
}

TEST(StatusPanels, ATextNeverMakesAPanelWider) {
    StatusPanels bar(2);
    const int before = bar.minimumSizeHint().width();
    bar.SetText(1, std::string(500, 'x'));
    EXPECT_EQ(bar.minimumSizeHint().width(), before);
}

TEST(StatusPanels, PanelsKeepTheirLeastWidth) {
    StatusPanels bar(2);
    bar.SetMinimumPanelWidth(1, 120);
    bar.SetMinimumPanelWidth(2, 50, 1);
    bar.resize(400, 24);
    bar.show();
    const QList<QLabel*> labels = bar.findChildren<QLabel*>();
    EXPECT_EQ(labels[0]->width(), 120);
    EXPECT_GT(labels[1]->width(), 200);
}

}  // namespace
