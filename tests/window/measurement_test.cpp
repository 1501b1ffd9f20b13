#include "base/daynumber.h"
#include "base/number.h"
#include "tests/window/windowtest.h"
#include "widgets/colours.h"

#include <QApplication>
#include <QEvent>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QPoint>

#include <cmath>
#include <optional>

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
        Window().SetVerticalScale({.top = 15, .bottom = -10});
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
    /// The column and the row of the picture that the dotted lines stand in.
    struct Lines {
        std::optional<int> column, row;
    };
    Lines CrossHair() {
        const QImage picture = Picture().grab().toImage();
        const auto dotted = [&](QPoint from, QPoint step, int length) {
            int green = 0;
            for (int n = 0; n < length; ++n) {
                if (picture.pixelColor(from + n * step) == ToQColor(colours::kCrossHairPen)) {
                    ++green;
                }
            }
            return green > length / 4;
        };
        Lines lines;
        for (int x = 0; x < picture.width(); ++x) {
            if (dotted({x, 0}, {0, 1}, picture.height())) lines.column = x;
        }
        for (int y = 0; y < picture.height(); ++y) {
            if (dotted({0, y}, {1, 0}, picture.width())) lines.row = y;
        }
        return lines;
    }
    bool HasCrossHair() {
        const Lines lines = CrossHair();
        return lines.column.has_value() || lines.row.has_value();
    }
    std::string Date() { return Caption(Window().lblXCord); }
    std::string Value() { return Caption(Window().lblYCord); }
    /// The amount that is shown; 0 where none is.
    double Kronor() {
        const std::string value = Value();
        return value.ends_with(" kr") ? ParseDouble(value.substr(0, value.size() - 3)) : 0;
    }
};

TEST_F(MeasurementTest, APressAtDayAHundredShowsItsDate) {
    PressAt(At(100, 5));
    EXPECT_EQ(Date(), "11  april 2006");
    EXPECT_EQ(Value(), "5 %");
}

TEST_F(MeasurementTest, APressDrawsNoCrossHairYetAndMakesTheLabelsOpaque) {
    PressAt(At(100, 5));
    EXPECT_FALSE(HasCrossHair());
    EXPECT_TRUE(Window().lblXCord->autoFillBackground());
    EXPECT_TRUE(Window().lblYCord->autoFillBackground());
}

TEST_F(MeasurementTest, PressingTheOtherButtonTooBeginsWithoutACrossHair) {
    PressAt(At(100, 5));
    MoveTo(At(120, 5));
    ASSERT_TRUE(HasCrossHair());
    PressAt(At(120, 5), Qt::RightButton);
    EXPECT_FALSE(HasCrossHair());
}

TEST_F(MeasurementTest, TheCrossHairFollowsThePointer) {
    PressAt(At(100, 5));
    MoveTo(At(120, 5));
    EXPECT_EQ(CrossHair().column, At(120, 5).x());
    EXPECT_EQ(CrossHair().row, At(120, 5).y());
    MoveTo(At(150, -4));
    EXPECT_EQ(CrossHair().column, At(150, -4).x());
    EXPECT_EQ(CrossHair().row, At(150, -4).y());
    EXPECT_EQ(Date(), "31  maj 2006");
}

TEST_F(MeasurementTest, OnReleaseTheCrossHairGoesAndTheReadingStays) {
    PressAt(At(100, 5));
    MoveTo(At(120, 5));
    ReleaseAt(At(120, 5));
    EXPECT_FALSE(HasCrossHair());
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
    EXPECT_EQ(Value().size() - Value().find(','), 6U) << "two decimals";
    EXPECT_NEAR(Kronor(), 100 + at.y, 0.006);
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
    EXPECT_NEAR(CrossHair().row.value_or(0), 50, 1);
    EXPECT_EQ(CrossHair().column, std::nullopt);
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

TEST_F(MeasurementTest, AfterScrollingTheDateIsThatOfTheShownMonths) {
    Press(Qt::Key_Left);
    ASSERT_EQ(FormatDay(Window().WindowStartDay), "2005-10-01");
    PressAt(At(100, 5));
    EXPECT_EQ(Date(), "9  januari 2006");
    MoveTo(At(0, 5));
    EXPECT_EQ(Date(), "1  oktober 2005");
    MoveTo(QPoint(Picture().width() - 1, 50));
    EXPECT_EQ(Date(), "30  september 2006") << "the last day of the twelve months";
}

TEST_F(MeasurementTest, AfterZoomingTheValueIsThatOfTheShownScale) {
    ChooseFund(0);
    for (int n = 0; n < 3; ++n) Type("-");
    ASSERT_EQ(DrawnScale(), (ScaleRange{60, -40}));
    PressAt(At(100, 50));
    EXPECT_EQ(Value(), "50 %");
    MoveTo(At(100, -35), Qt::RightButton);
    EXPECT_NEAR(Kronor(), 65, 0.5);
    MoveTo(QPoint(100, -3));
    EXPECT_EQ(Value(), "") << "above the scale";
}

TEST_F(MeasurementTest, AfterZoomingBackTheFormerScaleCountsAgain) {
    ChooseFund(0);
    Type("-");
    Type("+");
    ASSERT_EQ(DrawnScale(), (ScaleRange{15, -10}));
    PressAt(At(100, 10));
    MoveTo(At(100, 10));
    EXPECT_EQ(Value(), "10 %");
}

TEST_F(MeasurementTest, AHoldingWithSavedValuesIsMeasuredFromItsStartPrice) {
    auto holdings = TwoHoldings();
    holdings[1].sparadeVarden = "2025-04-01¶10¶400¶4000¶";
    MakeFile(holdings);
    Start();
    ChooseFund(1);
    const Point at = Picture().ToUser(At(100, 20));
    PressAt(At(100, 20), Qt::RightButton);
    EXPECT_NEAR(Kronor(), 400 + 4 * at.y, 0.006);
}

TEST_F(MeasurementTest, OtherButtonsDoNothing) {
    PressAt(At(100, 5), Qt::MiddleButton);
    MoveTo(At(120, 5), Qt::MiddleButton);
    EXPECT_EQ(Date(), "");
    EXPECT_FALSE(HasCrossHair());
    EXPECT_FALSE(Window().lblXCord->autoFillBackground());
}

TEST_F(MeasurementTest, TheDrawnScaleDecidesWhatIsInside) {
    Window().Scale.top = 1005;  // stored, not drawn
    Window().Scale.bottom = -670;
    PressAt(At(100, 5));
    MoveTo(QPoint(100, -30));
    EXPECT_EQ(Value(), "");
}

TEST_F(MeasurementTest, ThePanelInvitesToIt) {
    EXPECT_EQ(Caption(Window().panDiagram),
              "Mätning :  Klick med vänster eller höger musknapp i diagrammet    ");
}

}  // namespace
