#include "diagram/curves.h"

#include "app/chosencurves.h"
#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/error.h"
#include "diagram/texts.h"
#include "fundfile/editrow.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/missingdays.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "jet/transaction.h"
#include "platform/datasource.h"
#include "platform/printing.h"
#include "platform/qttext.h"
#include "widgets/diagramview.h"
#include "widgets/strokepainter.h"

#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr double kPrintedLineCm = 0.025;
constexpr double kPrintedHaloCm = 0.026;  // a pixel of the screen

/// The column with a scale behind the curve list that stands there, alone or before an older scale.
std::string WithListKept(const std::string& column, ScaleRange scale) {
    const bool onlyList = column.find('/') == std::string::npos;
    return WithScale(onlyList ? column + "/" + ScaleColumn(scale) : column, scale);
}

}  // namespace

Curves::Curves(frmPPM& ppm) : Controller(ppm) {}

void Curves::PlotCurves() try {
    std::vector<std::int32_t> missing;
    std::vector<ShownCurve> shown;
    ForEachChosenCurve(window, [&](std::span<const CurvePoint> points, const ShownCurve& curve) {
        window.picDiagram->Add(ScreenDrawing(points, {curve.kontoId, curve.colour},
                                             window.WindowStartDay, window.DayStep));
        shown.push_back(curve);
        if (window.holding && window.holding->kontoId == curve.kontoId) {
            missing = MissingWeekdays(points, window.TodayDay);
        }
    });
    window.Put(
        AfterCurvesDrawn(AfterDaysMissed(window.State(), std::move(missing)), std::move(shown)));
} catch (const Error& error) {
    Report(texts::PlotFailed, texts::PlotFailedLog, error);
}

void Curves::PrintCurves(PrinterPage& page) try {
    const ScaleRange scale = window.Scale;
    std::vector<Drawing> drawings;
    ForEachChosenCurve(window, [&](std::span<const CurvePoint> points, const ShownCurve& curve) {
        drawings.push_back(PageDrawing(points, {curve.kontoId, curve.colour}, window.WindowStartDay,
                                       window.DayStep, scale));
    });
    const QTransform toDevice = page.CentimetresToDevice();
    const QRectF areaCm(
        QPointF(onpage::kLeftCm, onpage::kZeroCm - onpage::CmPerPercent(scale) * scale.top),
        QSizeF(onpage::kEndCm - onpage::kLeftCm, onpage::kHeightCm));
    StrokeSurface surface;
    surface.toDevice = toDevice;
    surface.area = toDevice.mapRect(areaCm);
    surface.lineWidth = kPrintedLineCm * toDevice.m11();
    surface.finest = 0;
    surface.halo = Qt::white;
    surface.haloWidth = kPrintedHaloCm * toDevice.m11();
    surface.edgeWidth = kPrintedHaloCm * toDevice.m11();
    surface.repeatFrom = 1;  // no colours to trust in on paper
    QPainter& painter = page.Painter();
    painter.setRenderHint(QPainter::Antialiasing);
    DrawCurves(painter, drawings, surface);
} catch (const Error& error) {
    Report(texts::PrintPlotFailed, texts::PrintPlotFailedLog, error);
}

void Curves::ComputeFundScale(std::int32_t kontoId, bool replace) {
    if (!window.FundDb) throw Error{kObjectNotSet, "no fund file for a scale"};
    jet::Transaction together(window.FundDb);
    const ScaleRange scale = AutomaticScale(ReadValues(*window.FundDb, kontoId));

    DataSource& holdings = *window.dtaBasData;
    const std::string present = holdings.Field(schema::holding::kSkala).Text();
    EditRow(holdings, [&](DataSource& row) {
        row.Set(schema::holding::kSkala,
                replace ? ScaleColumn(scale) : WithListKept(present, scale));
    });
    together.Commit();
}
