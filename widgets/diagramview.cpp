#include "widgets/diagramview.h"

#include "base/error.h"
#include "base/number.h"
#include "platform/qttext.h"
#include "widgets/colours.h"

#include <QColor>
#include <QEvent>
#include <QFontMetrics>
#include <QLineF>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QSizePolicy>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr int kValueSteps = 5;  // the scale's six labels, bottom to top
constexpr int kZeroStep = 2;    // as 3 : -2 puts it
constexpr int kMonths = 12;

constexpr int kDayWordGap = 3;

/// Few curves are drawn stronger; many stay apart better when they are fine.
constexpr std::size_t kFewCurves = 4;
/// From so many on their colours are hard to tell apart for many eyes.
constexpr std::size_t kManyCurves = 7;
constexpr double kStrongLine = 1.6;
constexpr double kFineLine = 1.0;
constexpr double kPaleEdge = 1.5;

}  // namespace

GridLine::GridLine(QWidget* picture, Kind kind, QLineF fractions)
    : QObject(picture), kind_(kind), fractions_(fractions) {}

double GridLine::X1() const {
    return fractions_.x1() * static_cast<QWidget*>(parent())->width();
}
double GridLine::Y1() const {
    return fractions_.y1() * static_cast<QWidget*>(parent())->height();
}
double GridLine::X2() const {
    return fractions_.x2() * static_cast<QWidget*>(parent())->width();
}
double GridLine::Y2() const {
    return fractions_.y2() * static_cast<QWidget*>(parent())->height();
}

DiagramView::DiagramView(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    AddGrid();
}

DiagramView::~DiagramView() = default;

void DiagramView::AddGrid() {
    const auto add = [&](GridLine::Kind kind, QLineF fractions) {
        auto* line = new GridLine(this, kind, fractions);
        grid_.push_back(line);
        const auto number = static_cast<std::int32_t>(grid_.size());
        line->setObjectName(QStringLiteral("Line") + ToQt(PlainText(number)));
    };
    const auto across = [](int step) {
        const double y = 1 - static_cast<double>(step) / kValueSteps;
        return QLineF(0, y, 1, y);
    };
    for (int step = 0; step <= kValueSteps; ++step) add(GridLine::Kind::Value, across(step));
    for (int month = 0; month <= kMonths; ++month) {
        const double x = static_cast<double>(month) / kMonths;
        add(GridLine::Kind::Month, QLineF(x, 0, x, 1));
    }
    add(GridLine::Kind::Zero, across(kZeroStep));
}

void DiagramView::SetUserScale(ScaleRange scale) {
    if (scale.bottom >= scale.top) {
        throw Error{ErrorNumber::InvalidProcedureCall, "a diagram scale without height"};
    }
    if (scale == scale_) return;
    scale_ = scale;
    Outdated();
}

QTransform DiagramView::ToPixelsTransform() const {
    const double dayWidth = width() / kDays;
    const double percentHeight = height() / (static_cast<double>(scale_.top) - scale_.bottom);
    return {dayWidth, 0, 0, -percentHeight, 0, percentHeight * scale_.top};
}

QPointF DiagramView::ToPixels(Point user) const {
    return ToPixelsTransform().map(QPointF(user.x, user.y));
}

Point DiagramView::ToUser(QPointF pixels) const {
    const double percentPerPixel =
        (static_cast<double>(scale_.top) - scale_.bottom) / std::max(height(), 1);
    return {pixels.x() * kDays / std::max(width(), 1), scale_.top - pixels.y() * percentPerPixel};
}

void DiagramView::Clear() {
    drawings_.clear();
    drawn_ = {};
    Outdated();
}

void DiagramView::Add(Drawing drawing) {
    if (drawing.label.empty()) return;
    drawings_.push_back(std::move(drawing));
    Outdated();
}

void DiagramView::SetPlaceholder(const QString& text) {
    if (placeholder_ == text) return;
    placeholder_ = text;
    Outdated();
}

void DiagramView::MarkDay(std::optional<std::int32_t> day, const QString& word) {
    if (markedDay_ == day && dayWord_ == word) return;
    markedDay_ = day;
    dayWord_ = word;
    Outdated();
}

void DiagramView::Outdated() {
    outdated_ = true;
    update();
}

void DiagramView::ShowCrossHair(Point at) {
    if (crossHair_ == at) return;
    crossHair_ = at;
    update();
}

void DiagramView::HideCrossHair() {
    crossHair_.reset();
    update();
}

QSize DiagramView::sizeHint() const {
    return {600, 400};
}
QSize DiagramView::minimumSizeHint() const {
    return {60, 40};
}

void DiagramView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::FontChange) Outdated();
    QWidget::changeEvent(event);
}

void DiagramView::paintEvent(QPaintEvent*) {
    const QSize wanted = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (picture_.size() != wanted) {
        picture_ = QPixmap(wanted);
        picture_.setDevicePixelRatio(devicePixelRatioF());
        outdated_ = true;
    }
    if (outdated_) PaintPicture();
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    if (lit_) PaintLit(painter);
    if (crossHair_) PaintCrossHair(painter);
    if (hasFocus()) {
        painter.setPen(QPen(ToQColor(colours::kAccent), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

StrokeSurface DiagramView::Surface() const {
    StrokeSurface surface;
    surface.toDevice = ToPixelsTransform();
    surface.area = QRectF(rect());
    surface.lineWidth = drawings_.size() <= kFewCurves ? kStrongLine : kFineLine;
    surface.finest = 1 / devicePixelRatioF();
    surface.halo = ToQColor(kDiagramBackground);
    surface.edgeWidth = kPaleEdge;
    surface.repeatFrom = kManyCurves;
    return surface;
}

void DiagramView::PaintPicture() {
    outdated_ = false;
    picture_.fill(ToQColor(kDiagramBackground));
    QPainter painter(&picture_);
    painter.setFont(font());
    PaintGrid(painter);
    if (markedDay_) PaintMarkedDay(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    drawn_ = DrawCurves(painter, drawings_, Surface());
    if (drawings_.empty() && !placeholder_.isEmpty()) PaintPlaceholder(painter);
}

void DiagramView::PaintPlaceholder(QPainter& painter) const {
    painter.setPen(ToQColor(colours::kQuietText));
    const QRect upperHalf(0, 0, width(), height() / 2);
    painter.drawText(upperHalf, Qt::AlignCenter | Qt::TextWordWrap, placeholder_);
}

/// The middle of the screen's own pixel that a place lies in: a line of one such pixel there is
/// sharp, whatever the screen's scaling.
double DiagramView::OnDevicePixel(double place) const {
    const double ratio = devicePixelRatioF();
    return (std::floor(place * ratio) + 0.5) / ratio;
}

void DiagramView::PaintGrid(QPainter& painter) const {
    for (const GridLine* line : grid_) {
        const bool zero = line->LineKind() == GridLine::Kind::Zero;
        painter.setPen(QPen(ToQColor(zero ? colours::kZeroPen : colours::kGridPen), 0));
        painter.drawLine(QPointF(OnDevicePixel(line->X1()), OnDevicePixel(line->Y1())),
                         QPointF(OnDevicePixel(line->X2()), OnDevicePixel(line->Y2())));
    }
    painter.setPen(QPen(ToQColor(colours::kFramePen), 1));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

/// The word stands at the top, right of the line or, where there is no room for it, left.
void DiagramView::PaintMarkedDay(QPainter& painter) const {
    const double x = OnDevicePixel(ToPixels({static_cast<double>(*markedDay_), 0}).x());
    painter.setPen(QPen(ToQColor(colours::kDayPen), 0));
    painter.drawLine(QPointF(x, 1), QPointF(x, height() - 2));
    const QFontMetrics metrics(painter.font(), painter.device());
    const int wide = metrics.horizontalAdvance(dayWord_);
    const bool right = x + 2 * kDayWordGap + wide <= width();
    painter.setPen(ToQColor(colours::kQuietText));
    painter.drawText(
        QPointF(right ? x + kDayWordGap : x - kDayWordGap - wide, metrics.ascent() + kDayWordGap),
        dayWord_);
}

void DiagramView::PaintCrossHair(QPainter& painter) const {
    const QPointF at = ToPixels(*crossHair_);
    const double x = std::floor(at.x()), y = std::floor(at.y());
    painter.setPen(QPen(ToQColor(colours::kCrossHairPen), 1, Qt::DotLine));
    painter.drawLine(QLineF(x, 0, x, height()));
    painter.drawLine(QLineF(0, y, width(), y));
}
