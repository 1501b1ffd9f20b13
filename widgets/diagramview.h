#pragma once
// The diagram's drawing surface: a grid, curves and a cross-hair in user coordinates.
// Knows nothing of funds, files or other controls;
// says where the mouse is pressed, moved and released.

#include "fundfile/rules/scale.h"
#include "widgets/rules/stroke.h"
#include "widgets/strokepainter.h"

#include <QImage>
#include <QLineF>
#include <QPixmap>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QString>
#include <QTransform>
#include <QWidget>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

class QContextMenuEvent;
class QEvent;
class QMouseEvent;
class QPaintEvent;
class QPainter;

/// One line of the fixed grid, as fractions of the picture; x1 to y2 in pixels follow the picture's
/// size, whatever it is.
class GridLine final : public QObject {
    Q_OBJECT
    Q_PROPERTY(double x1 READ X1)
    Q_PROPERTY(double y1 READ Y1)
    Q_PROPERTY(double x2 READ X2)
    Q_PROPERTY(double y2 READ Y2)

  public:
    enum class Kind { Value, Zero, Month };

    GridLine(QWidget* picture, Kind kind, QLineF fractions);
    Kind LineKind() const { return kind_; }
    double X1() const;
    double Y1() const;
    double X2() const;
    double Y2() const;

  private:
    Kind kind_;
    QLineF fractions_;
};

/// A curve that stands out. Where it has a note it has a ring there, too.
struct LitDrawing {
    std::int32_t kontoId = 0;
    std::optional<Point> at{};
    QString title{}, note{};
    bool operator==(const LitDrawing&) const = default;
};

/// `picDiagram`: x runs from 0 (left) to 365 (right), y from the scale's bottom to its top.
class DiagramView final : public QWidget {
    Q_OBJECT

  public:
    static constexpr double kDays = 365;

    explicit DiagramView(QWidget* parent = nullptr);
    ~DiagramView() override;

    /// The user coordinate system: upper left (0, top), lower right (365, bottom).
    /// Throws InvalidProcedureCall, and keeps the scale it has, unless bottom < top.
    void SetUserScale(ScaleRange scale);
    QPointF ToPixels(Point user) const;
    Point ToUser(QPointF pixels) const;

    /// Takes all curves away.
    void Clear();
    /// Draws a curve over those there are; an empty one is ignored.
    void Add(Drawing drawing);
    const std::vector<Drawing>& Drawings() const { return drawings_; }
    /// Said in the middle of the picture while it has no curve.
    void SetPlaceholder(const QString& text);
    QString Placeholder() const { return placeholder_; }
    /// A thin line through the day with a word at it; no day takes it away.
    void MarkDay(std::optional<std::int32_t> day, const QString& word);
    std::optional<std::int32_t> MarkedDay() const { return markedDay_; }

    /// The index of the drawing nearest to the place within reach of a hand.
    std::optional<std::size_t> CurveNear(QPointF pixels) const;
    /// One curve stands out over the others, with a note at one of its places; none ends it.
    void Light(std::optional<LitDrawing> lit);
    const std::optional<LitDrawing>& Lit() const { return lit_; }
    /// Where the number at the end of a curve stands; empty where it has none.
    QRectF NumberPlaceOf(std::int32_t kontoId) const;

    /// `Line1` ... `Line20`: six values, thirteen month borders, the zero line.
    /// They never move or hide.
    const std::vector<GridLine*>& GridLines() const { return grid_; }

    void ShowCrossHair(Point at);
    void HideCrossHair();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    void Pressed(Qt::MouseButton button, Point at);
    void Moved(Qt::MouseButtons buttons, Point at);
    void Released(Qt::MouseButton button, Point at);
    void Hovered(QPointF pixels);  ///< the pointer moves and no button is held
    void HoverEnded();
    void NumberClicked(
        std::int32_t kontoId);  ///< pressed and let go on the number at a curve's end

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

  private:
    void AddGrid();
    void Outdated();
    void PaintPicture();
    void PaintGrid(QPainter& painter) const;
    void PaintMarkedDay(QPainter& painter) const;
    double OnDevicePixel(double place) const;
    StrokeSurface Surface() const;
    void PaintPlaceholder(QPainter& painter) const;
    void PaintCrossHair(QPainter& painter) const;
    void PaintLit(QPainter& painter) const;
    void PaintNote(QPainter& painter, QPointF at) const;
    const Drawing* DrawingOf(std::int32_t kontoId) const;
    std::optional<std::int32_t> NumberAt(QPointF pixels) const;
    QTransform ToPixelsTransform() const;

    ScaleRange scale_;
    std::vector<Drawing> drawings_;
    QString placeholder_, dayWord_;
    std::optional<std::int32_t> markedDay_;
    std::vector<GridLine*> grid_;
    std::optional<Point> crossHair_;
    QPixmap picture_;  ///< background, grid and curves
    bool outdated_ = true;
    DrawnCurves drawn_;  ///< of the picture
    std::optional<LitDrawing> lit_;
    std::optional<std::int32_t> pressedNumber_;
    QPointF pressedAt_;
};
