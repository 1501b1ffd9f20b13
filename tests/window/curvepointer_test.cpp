// Pointing at curves: by the mouse without a button, by the keys in the picture, and by a click on
// a number.

#include "base/daynumber.h"
#include "tests/window/windowtest.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QPoint>
#include <QPointF>
#include <QRectF>

#include <cmath>
#include <optional>
#include <string>

namespace {

std::int32_t Day(const char* date) {
    return *ParseDate(date);
}

class CurvePointerTest : public WindowTest {
  protected:
    CurvePointerTest() {
        SetToday(2026, 3, 10);  // the window starts on 1 April 2025
        auto holdings = TwoHoldings();
        holdings[0].kursKr = 100;
        holdings[0].points = {
            {Day("2025-07-10"), 4}, {Day("2025-10-18"), 8}, {Day("2026-01-26"), 6}};
        holdings[1].kursKr = 50;
        holdings[1].points = {
            {Day("2025-03-10"), 1}, {Day("2025-07-12"), -6}, {Day("2026-01-26"), -4}};
        MakeFile(holdings);
        Start();
        Window().SetVerticalScale({.top = 15, .bottom = -10});
        Picture().grab();
    }

    DiagramView& Picture() { return *Window().picDiagram; }
    QPoint At(const char* day, double percent) {
        const double x = Day(day) - Window().WindowStartDay;
        return Picture().ToPixels({x, percent}).toPoint();
    }
    void MoveTo(QPoint at) {
        QMouseEvent move(QEvent::MouseMove, at, Picture().mapToGlobal(at), Qt::NoButton,
                         Qt::NoButton, {});
        QApplication::sendEvent(&Picture(), &move);
    }
    void Walk(Qt::Key key) { QTest::keyClick(&Picture(), key, Qt::ControlModifier); }
    std::string Title() { return Picture().Lit() ? FromQt(Picture().Lit()->title) : ""; }
    std::string Note() { return Picture().Lit() ? FromQt(Picture().Lit()->note) : ""; }
    std::string Spoken() { return FromQt(Picture().accessibleDescription()); }
};

}  // namespace

TEST_F(CurvePointerTest, TheNearestCurveLightsUpAndSaysItsNearestPoint) {
    MoveTo(At("2025-07-12", 4.1));
    EXPECT_EQ(Title(), "1. Vimmels Asien");
    EXPECT_EQ(Note(), "10 juli 2025   4 %   104,00 kr");
    MoveTo(At("2026-01-20", -4));
    EXPECT_EQ(Title(), "2. Kvarnbo Europa");
    EXPECT_EQ(Note(), "26 januari 2026   -4 %   48,00 kr");
    EXPECT_EQ(Spoken(), "2. Kvarnbo Europa   26 januari 2026   -4 %   48,00 kr");
}

TEST_F(CurvePointerTest, FarFromEveryCurveNothingIsLit) {
    MoveTo(At("2025-07-12", 4));
    ASSERT_TRUE(Picture().Lit());
    MoveTo(At("2025-09-10", 14));
    EXPECT_FALSE(Picture().Lit());
    EXPECT_EQ(Spoken(),
              "2 kurvor från april 2025 till mars 2026, skala -10 till 15 %. "
              "1. Vimmels Asien, 110,00 kr, 10 %. 2. Kvarnbo Europa, 110,00 kr, 10 %");
}

TEST_F(CurvePointerTest, LeavingThePictureEndsTheLight) {
    MoveTo(At("2025-07-12", 4));
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&Picture(), &leave);
    EXPECT_FALSE(Picture().Lit());
}

TEST_F(CurvePointerTest, MeasuringEndsTheLightAndTheReadingIsTheGivenOne) {
    MoveTo(At("2025-07-12", 4));
    const QPoint at = At("2025-07-12", 4);
    QTest::mousePress(&Picture(), Qt::LeftButton, {}, at);
    EXPECT_FALSE(Picture().Lit());
    EXPECT_NE(Caption(Window().lblXCord), "");
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, at);
    EXPECT_FALSE(Window().holding) << "a press on a curve only measures";
}

TEST_F(CurvePointerTest, TheKeysWalkTheStoredDaysAndTheCurves) {
    Picture().setFocus();
    Walk(Qt::Key_Left);
    EXPECT_EQ(Note(), "26 januari 2026   6 %   106,00 kr") << "where a walk begins";
    Walk(Qt::Key_Left);
    EXPECT_EQ(Note(), "18 oktober 2025   8 %   108,00 kr");
    Walk(Qt::Key_Down);
    EXPECT_EQ(Title(), "2. Kvarnbo Europa");
    EXPECT_EQ(Note(), "12 juli 2025   -6 %   47,00 kr") << "its nearest stored point";
    Walk(Qt::Key_Left);
    EXPECT_EQ(Note(), "12 juli 2025   -6 %   47,00 kr")
        << "the point before lies left of the picture";
    Walk(Qt::Key_Up);
    EXPECT_EQ(Note(), "10 juli 2025   4 %   104,00 kr");
    Walk(Qt::Key_Up);
    EXPECT_EQ(Title(), "1. Vimmels Asien") << "the topmost";
    Walk(Qt::Key_Right);
    Walk(Qt::Key_Right);
    Walk(Qt::Key_Right);
    EXPECT_EQ(Spoken(), "1. Vimmels Asien   26 januari 2026   6 %   106,00 kr");
    EXPECT_EQ(Window().WindowStartDay, Day("2025-04-01")) << "nothing was scrolled";
}

TEST_F(CurvePointerTest, TheStoredDaysAreWalkedInWeekViewToo) {
    Window().mnuMonth->trigger();
    Picture().setFocus();
    Walk(Qt::Key_Left);
    Walk(Qt::Key_Left);
    EXPECT_EQ(Note(), "18 oktober 2025   8 %   108,00 kr");
}

TEST_F(CurvePointerTest, EscAndLeavingThePictureEndTheWalk) {
    Picture().setFocus();
    Walk(Qt::Key_Left);
    ASSERT_TRUE(Picture().Lit());
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Picture().Lit());
    Walk(Qt::Key_Left);
    ASSERT_TRUE(Picture().Lit());
    Window().txtValue->setFocus();
    EXPECT_FALSE(Picture().Lit());
}

TEST_F(CurvePointerTest, AWalkWithoutCurvesDoesNothing) {
    Picture().Clear();
    Picture().setFocus();
    Walk(Qt::Key_Up);
    EXPECT_FALSE(Picture().Lit());
}

TEST_F(CurvePointerTest, AClickOnTheNumberAtACurvesEndOpensItsFund) {
    const QPoint number = Picture().NumberPlaceOf(2).center().toPoint();
    MoveTo(number);
    EXPECT_EQ(Picture().cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseClick(&Picture(), Qt::LeftButton, {}, number);
    ASSERT_TRUE(Window().holding);
    EXPECT_EQ(Window().holding->kontoId, 2);
    EXPECT_EQ(Window().lstFonder->currentRow(), 1);
}

TEST_F(CurvePointerTest, ADragFromANumberAndTheRightButtonOpenNothing) {
    const QPoint number = Picture().NumberPlaceOf(2).center().toPoint();
    QTest::mouseClick(&Picture(), Qt::RightButton, {}, number);
    EXPECT_FALSE(Window().holding);
    QTest::mousePress(&Picture(), Qt::LeftButton, {}, number);
    QMouseEvent drag(QEvent::MouseMove, number - QPoint(40, 0),
                     Picture().mapToGlobal(number - QPoint(40, 0)), Qt::NoButton, Qt::LeftButton,
                     {});
    QApplication::sendEvent(&Picture(), &drag);
    QTest::mouseRelease(&Picture(), Qt::LeftButton, {}, number);
    EXPECT_FALSE(Window().holding);
}

TEST_F(CurvePointerTest, ACurveThatIsPointedAtStandsOverTheOthers) {
    const QImage before = Picture().grab().toImage();
    MoveTo(At("2025-10-18", 8));
    ASSERT_TRUE(Picture().Lit());
    EXPECT_NE(Picture().grab().toImage(), before);
    MoveTo(At("2025-09-10", 14));
    EXPECT_EQ(Picture().grab().toImage(), before) << "and leaves no trace";
}
