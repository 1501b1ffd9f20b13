#include "diagram/curvepointer.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "widgets/diagramview.h"
#include "widgets/legendview.h"

#include <QEvent>
#include <QKeyEvent>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr std::int32_t kDaysShown = 365;

std::optional<Walk> WalkOf(const QKeyEvent& event) {
    if (event.modifiers() != Qt::ControlModifier &&
        event.modifiers() != (Qt::ControlModifier | Qt::KeypadModifier)) {
        return std::nullopt;
    }
    switch (event.key()) {
        case Qt::Key_Left:
            return Walk::Back;
        case Qt::Key_Right:
            return Walk::Ahead;
        case Qt::Key_Up:
            return Walk::Up;
        case Qt::Key_Down:
            return Walk::Down;
        default:
            return std::nullopt;
    }
}

}  // namespace

CurvePointer::CurvePointer(frmPPM& ppm) : Controller(ppm) {
    const auto unlight = [this] { Put(AfterLightOut(window.State())); };
    On(window.picDiagram, &DiagramView::Hovered, this, &CurvePointer::picDiagram_Hovered);
    On(window.picDiagram, &DiagramView::HoverEnded, unlight);
    On(window.picDiagram, &DiagramView::Pressed, unlight);
    On(window.picDiagram, &DiagramView::NumberClicked, this, &CurvePointer::Open);
    OnEvent(window.picDiagram, QEvent::KeyPress, [this](QEvent& event) {
        return picDiagram_KeyDown(static_cast<const QKeyEvent&>(event));
    });
    OnEvent(window.picDiagram, QEvent::FocusOut, [unlight](QEvent&) {
        unlight();
        return false;
    });
    On(window.lstLegend, &LegendView::Lit, this, &CurvePointer::lstLegend_Lit);
    On(window.lstLegend, &LegendView::Unlit, unlight);
    On(window.lstLegend, &LegendView::Chosen, this, &CurvePointer::Open);
}

void CurvePointer::lstLegend_Lit(std::int32_t kontoId) {
    Put(AfterCurveLit(window.State(), {kontoId, std::nullopt}));
}

void CurvePointer::Open(std::int32_t kontoId) {
    // The legend stands under the holdings grid, too.
    if (window.LeaveHoldingsGrid()) window.OpenFund(kontoId);
}

/// The pointer moves often: what is shown already is not shown again.
void CurvePointer::Put(WindowState next) {
    if (next.lit != window.lit) window.Put(std::move(next));
}

void CurvePointer::Light(const Drawing& drawing, std::optional<CurvePoint> point) {
    Put(AfterCurveLit(window.State(), {drawing.kontoId, point}));
}

void CurvePointer::picDiagram_Hovered(QPointF at) {
    const auto near = window.picDiagram->CurveNear(at);
    if (!near) return Put(AfterLightOut(window.State()));
    const Drawing& drawing = window.picDiagram->Drawings()[*near];
    const double day = window.WindowStartDay + window.picDiagram->ToUser(at).x;
    Light(drawing, NearestPoint(drawing.stored, day));
}

bool CurvePointer::picDiagram_KeyDown(const QKeyEvent& event) {
    const auto walk = WalkOf(event);
    if (!walk) return false;
    Step(*walk);
    return true;
}

std::optional<std::size_t> CurvePointer::LitDrawing() const {
    const auto& drawings = window.picDiagram->Drawings();
    for (std::size_t at = 0; at < drawings.size(); ++at) {
        if (window.lit && drawings[at].kontoId == window.lit->kontoId) return at;
    }
    return std::nullopt;
}

ShownDays CurvePointer::DaysShown() const {
    return {window.WindowStartDay, window.WindowStartDay + kDaysShown};
}

/// A walk begins at the last point of the first curve that has one in the picture.
void CurvePointer::Step(Walk walk) {
    const auto& drawings = window.picDiagram->Drawings();
    const auto lit = LitDrawing();
    if (!lit || !window.lit->point) {
        const std::size_t first = lit.value_or(0);
        for (std::size_t at = first; at < drawings.size(); ++at) {
            const auto last = LastShownPoint(drawings[at].stored, DaysShown());
            if (last) return Light(drawings[at], last);
        }
        return;
    }
    const std::int32_t day = window.lit->point->day;
    if (walk == Walk::Up || walk == Walk::Down) return StepToCurve(*lit, day, walk);
    const auto next = NextPoint(drawings[*lit].stored, DaysShown(), day, walk);
    if (next) Light(drawings[*lit], next);
}

void CurvePointer::StepToCurve(std::size_t from, std::int32_t day, Walk walk) {
    const auto& drawings = window.picDiagram->Drawings();
    std::vector<std::optional<std::int32_t>> values;
    for (const Drawing& drawing : drawings) {
        const auto point = NearestPoint(drawing.stored, day);
        values.push_back(point ? std::optional(point->value) : std::nullopt);
    }
    const auto next = NextCurve(values, from, walk);
    if (next) Light(drawings[*next], NearestPoint(drawings[*next].stored, day));
}
