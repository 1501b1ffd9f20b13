// The window with the real outside world on a real screen, whose size is in KVARNBO_SCREEN.

#include "main/mainwindow.h"
#include "platform/qttext.h"
#include "platform/realplatform.h"
#include "tests/window/fundfiles.h"
#include "widgets/datagrid.h"
#include "widgets/statuspanels.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QStringList>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOptionButton>
#include <QTemporaryDir>
#include <QTest>

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace {

class ScreensTest : public testing::Test {
  protected:
    ScreensTest() {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));  // as main does
        WriteFundFile(std::filesystem::path(FromQt(folder_.path())) / "Vimmels_exempel.mdb",
                      TwoHoldings());
        window.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
        EXPECT_TRUE(QTest::qWaitFor([this] { return window.panDiagram->isVisible(); }, 20000));
    }
    QSize Screen() const {
        const QStringList size = qEnvironmentVariable("KVARNBO_SCREEN").split(QLatin1Char('x'));
        return {size.value(0).toInt(), size.value(1).toInt()};
    }

  private:
    QTemporaryDir folder_;
    RealPlatform outside_{FromQt(folder_.path()), FromQt(folder_.path())};

  public:
    MainWindow window{outside_.platform};
};

TEST_F(ScreensTest, TheWholeWindowIsOnTheScreen) {
    ASSERT_EQ(QGuiApplication::primaryScreen()->size(), Screen());
    EXPECT_EQ(window.width(), Screen().width());
    EXPECT_LE(window.height(), Screen().height());
    const QPoint lowest = window.staBar->mapToGlobal(QPoint(0, window.staBar->height()));
    EXPECT_LE(lowest.y(), Screen().height()) << "the status bar is in sight";
}

TEST_F(ScreensTest, NoFontIsUnderEightPoints) {
    for (const QWidget* control : window.centralWidget()->findChildren<QWidget*>()) {
        EXPECT_GE(control->font().pointSizeF(), 7.999) << FromQt(control->objectName());
    }
}

TEST_F(ScreensTest, TheDesignScreenScalesNoFontAndNoWidth) {
    if (Screen() != QSize(800, 600)) GTEST_SKIP() << "the others are scaled";
    EXPECT_EQ(window.lblRubrik->width(), 460);
    EXPECT_NEAR(window.lblRubrik->font().pointSizeF(), 13, 0.01);
    EXPECT_NEAR(window.lstFonder->font().pointSizeF(), 9, 0.01);
    EXPECT_NEAR(window.GridPlott->font().pointSizeF(), 8, 0.01);
}

TEST_F(ScreensTest, NoCaptionIsCutOff) {
    for (const QPushButton* button : window.centralWidget()->findChildren<QPushButton*>()) {
        QStyleOptionButton option;
        option.initFrom(button);
        const QRect room =
            button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
        EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text().remove(u'&')),
                  room.width())
            << FromQt(button->objectName());
    }
}

}  // namespace
