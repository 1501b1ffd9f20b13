#include "base/daynumber.h"
#include "tests/window/windowtest.h"

#include <QApplication>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMouseEvent>
#include <QPoint>

#include <cmath>

namespace {

class MeasurementTest : public WindowTest {
  protected:
    MeasurementTest() {
        SetToday(2026, 3, 10);
        auto holdings = TwoHoldings();
        holdings[0].kursKr = 100;
        MakeFile(holdings);
        Start();
        Window().WindowStartDay = *ParseDate("2006-01-01");
        Window().SetVerticalScale(-10, 15);
    }

    DiagramView& Picture() { return *Window().picDiagram; }
    /// The pixel in which a place of the diagram lies.
    QPoint At(double x, double y) {
        const QPointF at = Picture().ToPixels({x, y});
        return {static_cast<int>(std::ceil(at.x())), static_cast<int>(std::floor(at.y()))};
    }
    void PressAt(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(&Picture(), button, {}, at);
    }
    void MoveTo(QPoint at, Qt::MouseButtons held = Qt::LeftButton) {
        QMouseEvent move(QEvent::MouseMove, at, Picture().mapToGlobal(at), Qt::NoButton, held, {});
        QApplication::sendEvent(&Picture(), &move);
    }
    void ReleaseAt(QPoint at, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseRelease(&Picture(), button, {}, at);
    }
    std::string Date() { return Caption(Window().lblXCord); }
    std::string Value() { return Caption(Window().lblYCord); }
};

TEST_F(MeasurementTest, APressAtDayAHundredShowsItsDate) {
    PressAt(At(100, 5));
    EXPECT_EQ(Date(), "11  april 2006");
    EXPECT_EQ(Value(), "5 %");
}

TEST_F(MeasurementTest, APressDrawsNoCrossHairYetAndMakesTheLabelsOpaque) {
    PressAt(At(100, 5));
    EXPECT_FALSE(Picture().CrossHair().has_value());
    EXPECT_TRUE(Window().lblXCord->autoFillBackground());
    EXPECT_TRUE(Window().lblYCord->autoFillBackground());
}

TEST_F(MeasurementTest, TheCrossHairFollowsThePointer) {
    PressAt(At(100, 5));
    MoveTo(At(120, 5));
    ASSERT_TRUE(Picture().CrossHair().has_value());
    EXPECT_NEAR(Picture().CrossHair()->x, 120, 1);
    MoveTo(At(150, -4));
    EXPECT_NEAR(Picture().CrossHair()->x, 150, 1);
    EXPECT_EQ(Date(), "31  maj 2006");
}

TEST_F(MeasurementTest, OnReleaseTheCrossHairGoesAndTheReadingStays) {
    PressAt(At(100, 5));
    MoveTo(At(120, 5));
    ReleaseAt(At(120, 5));
    EXPECT_FALSE(Picture().CrossHair().has_value());
    EXPECT_EQ(Date(), "1  maj 2006");
    EXPECT_EQ(Value(), "5 %");
    EXPECT_FALSE(Window().lblXCord->autoFillBackground());
    EXPECT_FALSE(Window().lblYCord->autoFillBackground());
}

TEST_F(MeasurementTest, TheRightButtonWithoutAFundShowsPercent) {
    PressAt(At(100, 5), Qt::RightButton);
    EXPECT_EQ(Value(), "5 %");
    MoveTo(At(100, 10), Qt::RightButton);
    EXPECT_EQ(Value(), "10 %");
}

TEST_F(MeasurementTest, TheRightButtonWithAFundShowsKronor) {
    ChooseFund(0);
    const Point at = Picture().ToUser(At(100, 5));
    PressAt(At(100, 5), Qt::RightButton);
    ASSERT_TRUE(Value().ends_with(" kr")) << Value();
    EXPECT_EQ(Value().find('.'), std::string::npos);
    std::string number = Value().substr(0, Value().size() - 3);
    EXPECT_EQ(number.size() - number.find(','), 3U) << "two decimals";
    number.replace(number.find(','), 1, ".");
    EXPECT_NEAR(std::stod(number), 100 + at.y, 0.006);
}

TEST_F(MeasurementTest, TheLeftButtonWithAFundShowsPercent) {
    ChooseFund(0);
    PressAt(At(100, 5));
    EXPECT_EQ(Value(), "5 %");
}

TEST_F(MeasurementTest, BeyondTheRightEdgeTheLabelsAreBlankAndTheCrossHairFollows) {
    PressAt(At(100, 5));
    MoveTo(QPoint(Picture().width() + 20, 50));
    EXPECT_EQ(Date(), "");
    EXPECT_EQ(Value(), "");
    ASSERT_TRUE(Picture().CrossHair().has_value());
    EXPECT_GT(Picture().CrossHair()->x, 365);
    MoveTo(At(100, 5));
    EXPECT_EQ(Date(), "11  april 2006");
}

TEST_F(MeasurementTest, OutsideOnTheOtherSidesTheLabelsAreBlank) {
    PressAt(At(100, 5));
    for (const QPoint at : {QPoint(-5, 50), QPoint(100, -5), QPoint(100, Picture().height() + 5)}) {
        MoveTo(At(100, 5));
        ASSERT_NE(Date(), "");
        MoveTo(at);
        EXPECT_EQ(Date(), "") << at.x() << " " << at.y();
        EXPECT_EQ(Value(), "");
    }
}

TEST_F(MeasurementTest, OtherButtonsDoNothing) {
    PressAt(At(100, 5), Qt::MiddleButton);
    MoveTo(At(120, 5), Qt::MiddleButton);
    EXPECT_EQ(Date(), "");
    EXPECT_FALSE(Picture().CrossHair().has_value());
    EXPECT_FALSE(Window().lblXCord->autoFillBackground());
}

TEST_F(MeasurementTest, TheDrawnScaleDecidesWhatIsInside) {
    Window().ScaleTop = 1005;  // stored, not drawn
    Window().ScaleBottom = -670;
    PressAt(At(100, 5));
    MoveTo(QPoint(100, -30));
    EXPECT_EQ(Value(), "");
}

TEST_F(MeasurementTest, ThePanelInvitesToIt) {
    EXPECT_EQ(Caption(Window().panDiagram),
              "Mätning :  Klick med vänster eller höger musknapp i diagrammet    ");
}

}  // namespace
