// The window on other screens and in other sizes.

#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRect>
#include <QSize>
#include <QStyle>
#include <QStyleOptionButton>

namespace {

class ScalingTest : public WindowTest {
  protected:
    void StartOn(int width, int height) {
        MakeFile(TwoHoldings());
        outside.screen.area = QRect(0, 0, width, height);
        Start();
    }
    struct Look {
        QRect place;
        double font;
    };
    Look LookOf(const QWidget* control) {
        return {control->geometry(), control->font().pointSizeF()};
    }
};

void ExpectTimes(const QRect& scaled, const QRect& design, double across, double down) {
    EXPECT_NEAR(scaled.left(), design.left() * across, 1);
    EXPECT_NEAR(scaled.top(), design.top() * down, 1);
    EXPECT_NEAR(scaled.width(), design.width() * across, 1.5);
    EXPECT_NEAR(scaled.height(), design.height() * down, 1.5);
}

}  // namespace

TEST_F(ScalingTest, DesignScreenMovesNothing) {
    StartOn(800, 600);
    EXPECT_EQ(Window().size(), QSize(800, 600));
    EXPECT_EQ(Window().picDiagram->geometry(), QRect(41, 28, 490, 302));
    EXPECT_NEAR(Window().lblRubrik->font().pointSizeF(), 13, 0.01);
}

TEST_F(ScalingTest, TheDesktopsBarsTakeHeightFromTheDesignScreenAndNothingFromItsFonts) {
    outside.screen.room = QSize(800, 560);
    StartOn(800, 600);
    EXPECT_EQ(Window().size(), QSize(800, 560));
    EXPECT_NEAR(Window().lblRubrik->font().pointSizeF(), 13, 0.01);
    EXPECT_NEAR(Window().lstFonder->font().pointSizeF(), 9, 0.01);
    EXPECT_EQ(Window().picDiagram->width(), 490);
}

TEST_F(ScalingTest, NoFontIsUnderEightPoints) {
    for (const QSize screen : {QSize(640, 480), QSize(800, 600), QSize(1066, 800)}) {
        outside.screen.room = screen - QSize(0, 40);
        StartOn(screen.width(), screen.height());
        for (const bool smallest : {false, true}) {
            if (smallest) Window().resize(Window().minimumSize());
            for (const QWidget* control : Window().centralWidget()->findChildren<QWidget*>()) {
                EXPECT_GE(control->font().pointSizeF(), 7.999)
                    << control->objectName().toStdString() << " on " << screen.width();
            }
        }
    }
}

TEST_F(ScalingTest, SmallerScreenShrinksWindowAndFonts) {
    StartOn(800, 600);
    const Look design = LookOf(Window().picDiagram);
    const Look title = LookOf(Window().lblRubrik);
    StartOn(640, 480);
    EXPECT_EQ(Window().width() * 15, 9600);
    EXPECT_EQ(Window().height() * 15, 6840);
    ExpectTimes(Window().picDiagram->geometry(), design.place, 0.8, 0.8 * 0.95);
    EXPECT_NEAR(Window().lblRubrik->font().pointSizeF(), title.font * 0.78, 0.01);
}

TEST_F(ScalingTest, LargerScreenGrowsByAThirdAndFontsBy30Percent) {
    StartOn(800, 600);
    const Look design = LookOf(Window().picDiagram);
    const Look button = LookOf(Window().cmdFondList);
    StartOn(1066, 800);  // 16000 twips wide, less a pixel's fraction
    ExpectTimes(Window().picDiagram->geometry(), design.place, 4.0 / 3, 4.0 / 3);
    ExpectTimes(Window().cmdFondList->geometry(), button.place, 4.0 / 3, 4.0 / 3);
    EXPECT_NEAR(Window().cmdFondList->font().pointSizeF(), button.font * 1.3, 0.01);
}

TEST_F(ScalingTest, AWideScreenIsFilledAndTheDiagramGetsTheWidth) {
    StartOn(1440, 1080);
    const int list = Window().panListFonder->width();
    const int picture = Window().picDiagram->width();
    const double font = Window().cmdFondList->font().pointSizeF();
    StartOn(1920, 1080);
    EXPECT_EQ(Window().size(), QSize(1920, 1080));
    EXPECT_LE(Window().panListFonder->width(), list * 1.16);
    EXPECT_GE(Window().picDiagram->width(), picture + 400);
    EXPECT_NEAR(Window().cmdFondList->font().pointSizeF(), font, 0.01);
}

TEST_F(ScalingTest, BoxesDoNotStandHollowOnALargeScreen) {
    StartOn(3440, 1440);
    EXPECT_EQ(Window().size(), QSize(3440, 1440));
    EXPECT_LE(Window().cmdFondList->height(), 4 * Window().cmdFondList->fontMetrics().height());
    EXPECT_GE(Window().picDiagram->width(), 3440 * 3 / 4);
    EXPECT_LT(Window().Image4->width(), 100);
}

TEST_F(ScalingTest, TheUsersWideWindowGivesItsWidthToTheDiagram) {
    StartOn(800, 600);
    const int list = Window().panListFonder->width();
    Window().resize(1600, 600);
    QApplication::processEvents();
    EXPECT_LE(Window().panListFonder->width(), list * 1.16);
    EXPECT_GE(Window().picDiagram->width(), 1200);
}

TEST_F(ScalingTest, TallScreenIsFilledAcross) {
    StartOn(1080, 1920);
    EXPECT_EQ(Window().size(), QSize(1080, 810));
}

TEST_F(ScalingTest, GridLinesKeepTheirPlacesInThePicture) {
    StartOn(1440, 1080);
    const GridLine& zero = *Window().Line[20];
    EXPECT_NEAR(zero.Y1(), Window().picDiagram->height() * 0.6, 0.01);
    EXPECT_NEAR(zero.X2(), Window().picDiagram->width(), 0.01);
}

TEST_F(ScalingTest, UsersOwnResizingKeepsTheProportions) {
    StartOn(800, 600);
    const Look design = LookOf(Window().panDiagram);
    Window().resize(1080, 750);
    QApplication::processEvents();
    ExpectTimes(Window().panDiagram->geometry(), design.place, 1.35, 1.25);
    EXPECT_EQ(Window().picDiagram->ToUser({0, 0}).y, DrawnScale().top);
}

TEST_F(ScalingTest, FontsNeverGrowBeyondTheirLimit) {
    StartOn(3200, 2400);
    EXPECT_NEAR(Window().lblRubrik->font().pointSizeF(), 13 * 1.3, 0.01);
    EXPECT_LE(Window().lstFonder->font().pointSizeF(), 9 * 1.3 + 0.01);
}

TEST_F(ScalingTest, NoCaptionIsCutOffInTheSmallestWindow) {
    for (const QSize screen : {QSize(640, 480), QSize(1024, 768)}) {
        StartOn(screen.width(), screen.height());
        Window().resize(Window().minimumSize());
        for (QPushButton* button : Window().centralWidget()->findChildren<QPushButton*>()) {
            QStyleOptionButton option;
            option.initFrom(button);
            const QRect room =
                button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button);
            const QString caption = button->text().remove(u'&');
            EXPECT_LE(button->fontMetrics().horizontalAdvance(caption), room.width())
                << button->objectName().toStdString();
        }
        const QLabel& help = *Window().txtGrid;
        EXPECT_LE(help.heightForWidth(help.width()), help.height());
        for (QLabel* panel : Window().staBar->findChildren<QLabel*>()) {
            EXPECT_LE(panel->fontMetrics().tightBoundingRect(QStringLiteral("Åg")).height(),
                      panel->contentsRect().height() - 2 * panel->margin());
        }
    }
}

TEST_F(ScalingTest, NothingLiesOutsideItsPanel) {
    for (const QSize screen :
         {QSize(640, 480), QSize(800, 600), QSize(1024, 768), QSize(1920, 1080)}) {
        StartOn(screen.width(), screen.height());
        for (const QWidget* control : Window().centralWidget()->findChildren<QWidget*>()) {
            const QWidget* parent = control->parentWidget();
            if (control->objectName().isEmpty() || parent->objectName().isEmpty()) continue;
            if (control->isWindow()) continue;
            EXPECT_TRUE(parent->rect().contains(control->geometry()))
                << control->objectName().toStdString() << " on a screen " << screen.width()
                << " wide";
        }
    }
}
