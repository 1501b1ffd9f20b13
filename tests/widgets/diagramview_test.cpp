#include "widgets/diagramview.h"

#include "base/error.h"
#include "widgets/strokepainter.h"

#include <QApplication>
#include <QColor>
#include <QEvent>
#include <QFont>
#include <QImage>
#include <QLineF>
#include <QMouseEvent>
#include <QPainter>
#include <QPoint>
#include <QPolygonF>
#include <QRect>
#include <QSignalSpy>
#include <QSize>
#include <QTest>
#include <QTransform>

#include <algorithm>
#include <cstdint>
#include <gtest/gtest.h>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr QSize kSize{366, 251};

class DiagramViewTest : public testing::Test {
  protected:
    DiagramViewTest() {
        view.resize(kSize);
        view.SetUserScale({15, -10});
    }

    QImage Picture() { return view.grab().toImage(); }
    static Drawing Line(std::vector<Point> points, Colour colour, std::string label = "1") {
        Drawing drawing;
        drawing.end = drawing.labelAt = points.back();
        drawing.line = std::move(points);
        drawing.label = std::move(label);
        drawing.colour = colour;
        return drawing;
    }

    DiagramView view;
};

/// The pixels that are clearly red; curves are drawn in red where a test counts them.
int RedPixels(const QImage& picture, QRect area) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor at = picture.pixelColor(x, y);
            if (at.red() > 150 && at.green() < 120 && at.blue() < 120) ++count;
        }
    }
    return count;
}

constexpr Colour kRed{255, 0, 0};
constexpr Colour kBlue{0, 0, 255};

TEST_F(DiagramViewTest, UserCoordinatesRunFromTopLeftToBottomRight) {
    struct Row {
        Point user;
        QPointF pixels;
    };
    const double width = kSize.width(), height = kSize.height();
    const std::vector<Row> rows{{{0, 15}, {0, 0}},
                                {{365, -10}, {width, height}},
                                {{0, -10}, {0, height}},
                                {{182.5, 2.5}, {width / 2, height / 2}}};
    for (const Row& row : rows) {
        const QPointF at = view.ToPixels(row.user);
        EXPECT_NEAR(at.x(), row.pixels.x(), 1e-6);
        EXPECT_NEAR(at.y(), row.pixels.y(), 1e-6);
        const Point back = view.ToUser(at);
        EXPECT_NEAR(back.x, row.user.x, 1e-6);
        EXPECT_NEAR(back.y, row.user.y, 1e-6);
    }
}

TEST_F(DiagramViewTest, AScaleWithoutHeightIsRefusedAndTheOldOneStays) {
    for (const ScaleRange scale : {ScaleRange{10, 10}, ScaleRange{-10, 15}}) {
        EXPECT_THROW(view.SetUserScale(scale), Error);
        EXPECT_EQ(view.ToUser({0, 0}).y, 15);
        EXPECT_NEAR(view.ToUser({0, static_cast<double>(view.height())}).y, -10, 1e-9);
    }
}

TEST_F(DiagramViewTest, HasTwentyNamedGridLinesThatFollowItsSize) {
    ASSERT_EQ(view.GridLines().size(), 20U);
    for (int number = 1; number <= 20; ++number) {
        EXPECT_NE(view.findChild<QObject*>(QStringLiteral("Line%1").arg(number)), nullptr)
            << number;
    }
    const GridLine* zero = view.GridLines().back();
    EXPECT_EQ(zero->LineKind(), GridLine::Kind::Zero);
    EXPECT_NEAR(zero->Y1(), kSize.height() * 0.6, 1e-9);
    EXPECT_NEAR(zero->X2(), kSize.width(), 1e-9);
    view.resize(kSize * 2);
    EXPECT_NEAR(zero->Y1(), kSize.height() * 1.2, 1e-9);
}

TEST_F(DiagramViewTest, GridLinesStayWhenTheScaleChanges) {
    const auto place = [](const GridLine* line) {
        return QLineF(line->X1(), line->Y1(), line->X2(), line->Y2());
    };
    std::vector<QLineF> before;
    for (const GridLine* line : view.GridLines()) before.push_back(place(line));
    view.SetUserScale({990, -660});
    view.Clear();
    for (std::size_t i = 0; i < before.size(); ++i) {
        EXPECT_EQ(place(view.GridLines()[i]), before[i]);
    }
}

TEST_F(DiagramViewTest, MarksTheZeroLineStrongerThanTheGrid) {
    const QImage picture = Picture();
    const int zero = static_cast<int>(view.ToPixels({0, 0}).y());
    const int five = static_cast<int>(view.ToPixels({0, 5}).y());
    constexpr int x = 15;  // between two month borders
    EXPECT_LT(picture.pixelColor(x, zero).lightness(),
              picture.pixelColor(x, five).lightness() - 30);
    EXPECT_LT(picture.pixelColor(x, five).lightness(),
              picture.pixelColor(x, five + 10).lightness());
}

TEST_F(DiagramViewTest, DrawsACurveWhereItsPointsAre) {
    view.Add(Line({{0, 0}, {365, 0}}, kRed, "1"));
    const QImage picture = Picture();
    const int zero = static_cast<int>(view.ToPixels({0, 0}).y());
    EXPECT_GT(RedPixels(picture, {10, zero - 2, 300, 4}), 290);
    EXPECT_EQ(RedPixels(picture, {10, 5, 300, zero - 30}), 0);
}

TEST_F(DiagramViewTest, DrawsALaterCurveOverAnEarlierOne) {
    view.Add(Line({{0, 3}, {365, 3}}, kBlue));
    view.Add(Line({{0, 3}, {365, 3}}, kRed));
    const int y = static_cast<int>(view.ToPixels({0, 3}).y());
    EXPECT_GT(RedPixels(Picture(), {10, y - 2, 300, 4}), 290);
}

TEST_F(DiagramViewTest, ClearTakesAllCurvesAway) {
    view.Add(Line({{0, 3}, {365, 3}}, kRed));
    EXPECT_GT(RedPixels(Picture(), Picture().rect()), 0);
    view.Clear();
    EXPECT_TRUE(view.Drawings().empty());
    EXPECT_EQ(RedPixels(Picture(), Picture().rect()), 0);
}

TEST_F(DiagramViewTest, AnEmptyDrawingIsNotKept) {
    view.Add(Drawing{});
    EXPECT_TRUE(view.Drawings().empty());
}

TEST_F(DiagramViewTest, ASinglePointShowsItsNumberAndNoLine) {
    Drawing only;
    only.label = "7";
    only.end = {100, 4};
    only.labelAt = {100, 5};
    only.colour = kRed;
    view.Add(only);
    const QPointF at = view.ToPixels({100, 5});
    const QImage picture = Picture();
    EXPECT_GT(RedPixels(picture, QRect(at.toPoint(), QSize(14, 18))), 3);
    EXPECT_EQ(RedPixels(picture, {1, 1, static_cast<int>(at.x()) - 3, 249}), 0);
}

TEST_F(DiagramViewTest, PointsOutsideTheWindowAreCutOffByTheEdge) {
    view.Add(Line({{-400, 5}, {-10, 5}}, kRed));
    view.Add(Line({{400, -5}, {800, 5}}, kRed));
    EXPECT_EQ(RedPixels(Picture(), Picture().rect()), 0);
}

TEST_F(DiagramViewTest, ValuesOutsideTheScaleLeaveAndEnterThePicture) {
    view.Add(Line({{0, 0}, {180, 2000000000}, {365, 0}}, kRed));
    const QImage picture = Picture();
    EXPECT_GT(RedPixels(picture, {0, 0, 20, 251}), 50);
    EXPECT_EQ(RedPixels(picture, {100, 0, 150, 251}), 0);
}

TEST_F(DiagramViewTest, APaleCurveHasAnEdgeThatCanBeSeen) {
    for (const Colour pale : {Colour{255, 255, 0}, Colour{255, 255, 255}}) {
        view.Clear();
        view.Add(Line({{0, 3.3}, {365, 3.3}}, pale));
        const QImage picture = Picture();
        const int y = static_cast<int>(view.ToPixels({0, 3.3}).y());
        double seen = 1;
        for (int row = y - 4; row <= y + 4; ++row) {
            const QColor at = picture.pixelColor(15, row);
            const Colour ink{static_cast<std::uint8_t>(at.red()),
                             static_cast<std::uint8_t>(at.green()),
                             static_cast<std::uint8_t>(at.blue())};
            seen = std::max(seen, Contrast(ink, kDiagramBackground));
        }
        EXPECT_GE(seen, 3);
    }
}

TEST_F(DiagramViewTest, FromSevenCurvesOnEachHasItsNumberAlongItToo) {
    const int y = static_cast<int>(view.ToPixels({0, 8}).y());
    view.Add(Line({{0, 8}, {300, 8}}, kRed));
    for (int n = 0; n < 5; ++n) view.Add(Line({{0, -8.0 + n}, {300, -8.0 + n}}, kBlue));
    const int six = RedPixels(Picture(), {5, y - 10, 280, 20});
    view.Add(Line({{0, -9}, {300, -9}}, kBlue));
    EXPECT_GT(RedPixels(Picture(), {5, y - 10, 280, 20}), six + 20);
}

TEST_F(DiagramViewTest, TheMarkedDayHasALineAndItsWord) {
    const QImage plain = Picture();
    view.MarkDay(100, QStringLiteral("idag"));
    const QImage marked = Picture();
    const int x = static_cast<int>(view.ToPixels({100, 0}).x());
    for (int y = 1; y < kSize.height() - 2; ++y) {
        ASSERT_EQ(marked.pixelColor(x, y), QColor(143, 178, 200)) << y;
    }
    EXPECT_NE(marked.copy(x + 2, 0, 40, 20), plain.copy(x + 2, 0, 40, 20));
    EXPECT_EQ(marked.copy(x + 2, 25, 40, 200), plain.copy(x + 2, 25, 40, 200));
    view.MarkDay(360, QStringLiteral("idag"));
    EXPECT_NE(Picture().copy(320, 0, 35, 20), plain.copy(320, 0, 35, 20)) << "left of its line";
    view.MarkDay(std::nullopt, QStringLiteral("idag"));
    EXPECT_EQ(Picture(), plain);
}

TEST_F(DiagramViewTest, GridLinesAreSharp) {
    // A level line stands in one row of pixels and leaves its neighbours as they are.
    const QImage picture = Picture();
    for (const GridLine* line : view.GridLines()) {
        if (line->LineKind() != GridLine::Kind::Value) continue;
        const int y = static_cast<int>(line->Y1());
        if (y < 3 || y > kSize.height() - 4 || line->Y1() == view.GridLines().back()->Y1())
            continue;
        EXPECT_NE(picture.pixelColor(15, y), picture.pixelColor(15, y - 2));
        EXPECT_EQ(picture.pixelColor(15, y - 1), picture.pixelColor(15, y - 2));
        EXPECT_EQ(picture.pixelColor(15, y + 1), picture.pixelColor(15, y - 2));
    }
}

TEST(DrawCurves, TellsWhereTheNumbersAtTheEndsStandAndLeadsToThoseThatAreMoved) {
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    StrokeSurface surface;
    surface.area = QRectF(0, 0, 400, 300);
    std::vector<Drawing> drawings;
    for (const double y : {100.0, 101.0, 200.0}) {
        Drawing drawing;
        drawing.line = {{0, y}, {300, y}};
        drawing.end = drawing.line.back();
        drawing.labelAt = {300, y - 12};
        drawing.label = std::to_string(drawings.size() + 1);
        drawing.colour = kRed;
        drawings.push_back(drawing);
    }
    drawings.push_back(drawings.back());
    drawings.back().line = {{-90, 250}, {-10, 250}};
    drawings.back().end = {-10, 250};  // before the picture begins
    const auto places = DrawCurves(painter, drawings, surface).numbers;
    ASSERT_EQ(places.size(), 3U);
    EXPECT_TRUE(places[0].leader || places[1].leader);
    EXPECT_FALSE(places[2].leader);
    painter.end();
    // A led number has its line between the curve's end and itself.
    const NumberPlace& led = places[0].leader ? places[0] : places[1];
    const QRect between(302, 60, static_cast<int>(led.box.left) - 302, 90);
    EXPECT_GT(RedPixels(picture, between), 1);
}

TEST_F(DiagramViewTest, TheCrossHairIsLaidOverAndLeavesNoTrace) {
    view.Add(Line({{0, 3}, {365, 3}}, kRed));
    const QImage before = Picture();
    view.ShowCrossHair({100, 5});
    const QImage with = Picture();
    EXPECT_NE(with, before);
    int green = 0;
    const int x = static_cast<int>(view.ToPixels({100, 5}).x());
    for (int y = 1; y < kSize.height() - 1; ++y) {
        if (with.pixelColor(x, y) == QColor(0, 128, 0)) ++green;
    }
    EXPECT_GT(green, kSize.height() / 4);
    EXPECT_LT(green, kSize.height() * 3 / 4) << "dotted, not solid";
    view.HideCrossHair();
    EXPECT_EQ(Picture(), before);
}

TEST_F(DiagramViewTest, SaysWhereTheMouseIsPressedMovedAndReleased) {
    QSignalSpy pressed(&view, &DiagramView::Pressed);
    QSignalSpy moved(&view, &DiagramView::Moved);
    QSignalSpy released(&view, &DiagramView::Released);
    view.show();
    const QPoint at = view.ToPixels({100, 5}).toPoint();
    QTest::mouseMove(&view, at);
    EXPECT_EQ(moved.count(), 0) << "no button is held";
    QTest::mousePress(&view, Qt::RightButton, {}, at);
    QMouseEvent drag(QEvent::MouseMove, at + QPoint(10, 0), view.mapToGlobal(at + QPoint(10, 0)),
                     Qt::NoButton, Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&view, &drag);
    QTest::mouseRelease(&view, Qt::RightButton, {}, at);

    ASSERT_EQ(pressed.count(), 1);
    EXPECT_EQ(pressed[0][0].value<Qt::MouseButton>(), Qt::RightButton);
    EXPECT_NEAR(pressed[0][1].value<Point>().x, 100, 0.6);
    EXPECT_NEAR(pressed[0][1].value<Point>().y, 5, 0.1);
    ASSERT_EQ(moved.count(), 1);
    EXPECT_EQ(moved[0][0].value<Qt::MouseButtons>(), Qt::RightButton);
    EXPECT_NEAR(moved[0][1].value<Point>().x, 110, 0.6);
    ASSERT_EQ(released.count(), 1);
}

TEST_F(DiagramViewTest, CanBeReachedByTheKeyboard) {
    EXPECT_EQ(view.focusPolicy(), Qt::StrongFocus);
}

TEST_F(DiagramViewTest, ASmallerFontMakesSmallerLabels) {
    Drawing only;
    only.label = "888";
    only.labelAt = {100, 5};
    only.colour = kRed;
    view.Add(only);
    QFont font = view.font();
    font.setPixelSize(10);
    view.setFont(font);
    const int small = RedPixels(Picture(), Picture().rect());
    font.setPixelSize(30);
    view.setFont(font);
    EXPECT_GT(RedPixels(Picture(), Picture().rect()), small * 2);
}

TEST_F(DiagramViewTest, AnySizeCanBePainted) {
    view.Add(Line({{0, 3}, {365, 3}}, kRed, "12"));
    for (const QSize size : {QSize(1, 1), QSize(5, 300), QSize(300, 5), QSize(2000, 1500)}) {
        view.resize(size);
        EXPECT_EQ(Picture().size(), size);
    }
}

StrokeSurface Surface() {
    return {QTransform(1, 0, 0, -1, 0, 100), QRectF(0, 0, 200, 100), 1, 1, {}};
}

TEST(VisiblePieces, AreOnePieceForALineInside) {
    const std::vector<Point> line{{0, 10}, {50, 20}, {200, 90}};
    const auto pieces = VisiblePieces(line, Surface());
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_EQ(pieces[0], (QPolygonF{{0, 90}, {50, 80}, {200, 10}}));
}

TEST(VisiblePieces, EndWhereTheLineLeavesAndBeginWhereItReturns) {
    const std::vector<Point> line{{0, 50}, {50, 1000}, {100, 50}, {150, 50}};
    const auto pieces = VisiblePieces(line, Surface());
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(pieces[0].size(), 2);
    EXPECT_EQ(pieces[1].back(), QPointF(150, 50));
    for (const QPolygonF& piece : pieces) {
        EXPECT_GE(piece.boundingRect().top(), -20);
        EXPECT_LE(piece.boundingRect().bottom(), 120);
    }
}

TEST(VisiblePieces, LeaveOutWhatLiesOutside) {
    EXPECT_TRUE(
        VisiblePieces(std::vector<Point>{{-500, 5}, {-300, 6}, {-100, 7}}, Surface()).empty());
    EXPECT_TRUE(VisiblePieces(std::vector<Point>{{5, 5}}, Surface()).empty());
    EXPECT_TRUE(VisiblePieces({}, Surface()).empty());
}

TEST(VisiblePieces, KeepTheExtremesOfAColumnAndNoMoreThanFourPoints) {
    std::vector<Point> line;
    for (int n = 0; n < 1000; ++n) line.push_back({50 + n * 0.0005, 40.0 + (n * 37) % 21});
    line.push_back({60, 50});
    const auto pieces = VisiblePieces(line, Surface());
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_LE(pieces[0].size(), 6);
    EXPECT_EQ(pieces[0].boundingRect().top(), 40);
    EXPECT_EQ(pieces[0].boundingRect().bottom(), 60);
}

TEST(VisiblePieces, KeepEveryPointWhereAllDetailShows) {
    StrokeSurface paper = Surface();
    paper.finest = 0;
    std::vector<Point> line;
    for (int n = 0; n < 1000; ++n) line.push_back({50 + n * 0.0005, 40.0 + n % 21});
    const auto pieces = VisiblePieces(line, paper);
    ASSERT_EQ(pieces.size(), 1U);
    EXPECT_EQ(pieces[0].size(), 1000);
}

TEST(DiagramView, SaysItsPlaceholderOnlyWhileItHasNoCurve) {
    DiagramView view;
    view.resize(300, 200);
    const QImage empty = view.grab().toImage();
    view.SetPlaceholder(QStringLiteral("Inga kurvor valda: F12"));
    const QImage saying = view.grab().toImage();
    EXPECT_NE(saying, empty);
    // It stands in the upper half.
    const QRect lower(0, 100, 300, 100);
    EXPECT_EQ(saying.copy(lower), empty.copy(lower));
    Drawing beside;
    beside.label = "1";
    beside.line = {{-20, 0}, {-10, 0}};
    view.Add(beside);
    EXPECT_EQ(view.grab().toImage().copy(100, 20, 100, 60), empty.copy(100, 20, 100, 60));
    view.Clear();
    EXPECT_EQ(view.grab().toImage(), saying);
}

}  // namespace
