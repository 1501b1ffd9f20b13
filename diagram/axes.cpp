#include "diagram/axes.h"

#include "app/frmPPM.h"
#include "app/rules/daystep.h"
#include "app/rules/modes.h"
#include "base/error.h"
#include "base/number.h"
#include "diagram/rules/zoom.h"
#include "platform/caption.h"
#include "widgets/diagramview.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QLabel>

#include <cstddef>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kScaleLabels = 6;

}  // namespace

Axes::Axes(frmPPM& ppm) : Controller(ppm) {
    On(window.Image4, &ImageButton::MouseUp, this, &Axes::Image4_MouseUp);
    On(window.Image5, &ImageButton::MouseUp, this, &Axes::Image5_MouseUp);
    On(window.mnuPlus, &QAction::triggered, [this] { mnuPlus_Click(); });
    On(window.mnuMinus, &QAction::triggered, [this] { mnuMinus_Click(); });
    On(window.mnuVeckor, &QAction::triggered, [this] { mnuVeckor_Click(); });
    On(window.mnuMonth, &QAction::triggered, [this] { mnuMonth_Click(); });
}

void Axes::SetVerticalScale(ScaleRange scale) {
    Skipping skip;
    skip([&] { window.picDiagram->SetUserScale(scale); });
    LabelScale(scale);
    window.drawnScale = scale;
    Redraw();
}

/// A label without a value is blank: it must not go on saying what the scale before said.
void Axes::LabelScale(ScaleRange scale) {
    std::vector<std::int32_t> values;
    Skipping skip;
    skip([&] { values = ScaleLabels(scale); });
    for (std::size_t i = 0; i < kScaleLabels; ++i) {
        SetCaption(window.lblVertical[static_cast<int>(i) + 1],
                   i < values.size() ? PlainText(values[i]) : "");
    }
}

void Axes::ShowFundScale(ScaleRange stored) {
    const bool changed = stored != window.FundScale;
    if (!changed && stored.top <= window.Scale.top) return Redraw();
    window.FundScale = stored;
    window.Scale = stored;
    SetVerticalScale(stored);
}

void Axes::AdvanceOneMonth() {
    MoveWindow(WindowMove::OneMonthAhead);
}

void Axes::MoveWindow(WindowMove move) {
    ShowMonthsFrom(MovedStart(window.WindowStartDay, move));
}

void Axes::ShowMonthsOfToday() {
    ShowMonthsFrom(FirstWindowStart(window.TodayDay));
    if (ShowsNextMonth(window.TodayDay)) AdvanceOneMonth();
}

void Axes::FollowToday(std::int32_t before) {
    const std::int32_t start = WindowStartFor(window.TodayDay);
    const bool scrolled = window.WindowStartDay != WindowStartFor(before);
    if (scrolled || start == window.WindowStartDay) return;
    ShowMonthsOfToday();
    Redraw();
}

void Axes::ReturnToToday() {
    if (!window.StoreTypedRows()) return;
    window.Put(AfterScroll(window.State()));
    ShowMonthsOfToday();
    Redraw();
}

void Axes::ShowMonthsFrom(std::int32_t startDay) {
    const WindowLabels labels = LabelsOf(startDay, window.MonthNames);
    window.WindowStartDay = startDay;
    int month = 0;
    for (const std::string& label : labels.months) SetCaption(window.lblMonth[++month], label);
    SetCaption(window.lbLeftYear, labels.leftYear);
    SetCaption(window.lblRightYear, labels.rightYear);
    window.ShowState();
}

void Axes::Scroll(WindowMove move) {
    if (!window.StoreTypedRows()) return;
    window.Put(AfterScroll(window.State()));
    MoveWindow(move);
    Redraw();
}

void Axes::Image4_MouseUp(Qt::MouseButton button) {
    Scroll(button == Qt::RightButton ? WindowMove::YearBack : WindowMove::QuarterBack);
}

void Axes::Image5_MouseUp(Qt::MouseButton button) {
    Scroll(button == Qt::RightButton ? WindowMove::YearAhead : WindowMove::QuarterAhead);
}

void Axes::mnuVeckor_Click() {
    ToggleStep(daystep::kWeek);
}
void Axes::mnuMonth_Click() {
    ToggleStep(daystep::kMonth);
}

void Axes::ToggleStep(std::int32_t days) {
    const bool showsDays = window.DayStep != daystep::kWeek && window.DayStep != daystep::kMonth;
    window.DayStep = showsDays ? days : daystep::kDay;
    window.ShowState();
    Redraw();
}

void Axes::mnuPlus_Click() {
    const bool single = window.holding.has_value();
    const ScaleRange automatic = single ? window.FundScale : window.AllScale;
    const Zoomed zoomed =
        ZoomIn(window.Scale, automatic, single ? CurveView::Single : CurveView::Several);
    window.Scale = zoomed.scale;
    if (zoomed.redraw) SetVerticalScale(zoomed.scale);
}

void Axes::mnuMinus_Click() {
    const Zoomed zoomed = ZoomOut(window.Scale);
    window.Scale = zoomed.scale;
    if (zoomed.redraw) SetVerticalScale(zoomed.scale);
}

void Axes::Redraw() {
    window.picDiagram->Clear();
    window.PlotCurves();
}
