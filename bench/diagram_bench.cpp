// A redraw of the diagram, beside a bare QPainter::drawPolyline of the same points: 20 curves of
// 5,000 points at 1200 x 800. "Year" has all points in the twelve months shown, "History" has
// twenty years of weekdays, of which the last twelve months show.

#include "widgets/colours.h"
#include "widgets/diagramview.h"
#include "widgets/strokepainter.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>
#include <cmath>
#include <random>
#include <span>
#include <vector>

namespace {

constexpr QSize kSize{1200, 800};
constexpr ScaleRange kScale{45, -30};
constexpr int kCurves = 20;
constexpr int kPoints = 5000;
constexpr std::int32_t kStart = 46000;

enum Kind { Year, History };

std::vector<std::vector<CurvePoint>> Series(Kind kind) {
    std::mt19937 random(1);
    std::normal_distribution<double> step(0, 0.3);
    const double days = kind == Year ? 365 : 20 * 365;
    std::vector<std::vector<CurvePoint>> series(kCurves);
    for (auto& points : series) {
        double value = 0;
        for (int n = 0; n < kPoints; ++n) {
            value += step(random);
            const double day = 350 - days * (kPoints - 1 - n) / kPoints;
            points.push_back({kStart + static_cast<std::int32_t>(day),
                              static_cast<std::int32_t>(std::lround(value))});
        }
    }
    return series;
}

std::vector<CurveStyle> Styles() {
    std::vector<CurveStyle> styles;
    for (int kontoId = 1; kontoId <= kCurves; ++kontoId) {
        styles.push_back({kontoId, NewCurveColour(kontoId)});
    }
    return styles;
}

void RedrawOfTheDiagram(benchmark::State& state) {
    const auto series = Series(static_cast<Kind>(state.range(0)));
    const std::vector<CurveStyle> styles = Styles();
    DiagramView view;
    view.resize(kSize);
    view.SetUserScale(kScale);
    QImage screen(kSize, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        view.Clear();
        for (std::size_t i = 0; i < series.size(); ++i) {
            view.Add(ScreenDrawing(series[i], styles[i], kStart, 1));
        }
        view.render(&screen);
    }
}

void BarePolyline(benchmark::State& state) {
    const QTransform toPixels(kSize.width() / 365.0, 0, 0, -kSize.height() / 75.0, 0,
                              kSize.height() / 75.0 * kScale.top);
    std::vector<QPolygonF> lines;
    for (const auto& points : Series(static_cast<Kind>(state.range(0)))) {
        QPolygonF line;
        for (const CurvePoint& at : points) {
            line << toPixels.map(QPointF(at.day - kStart, at.value));
        }
        lines.push_back(line);
    }
    const std::vector<CurveStyle> styles = Styles();
    QImage screen(kSize, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter painter(&screen);
        painter.setRenderHint(QPainter::Antialiasing, state.range(1) != 0);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            painter.setPen(ToQColor(styles[i].colour));
            painter.drawPolyline(lines[i]);
        }
    }
}

BENCHMARK(RedrawOfTheDiagram)
    ->ArgName("history")
    ->Arg(Year)
    ->Arg(History)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BarePolyline)
    ->ArgNames({"history", "antialiased"})
    ->ArgsProduct({{Year, History}, {0, 1}})
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
