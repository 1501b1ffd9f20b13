#include "diagram/severalcurves.h"

#include "app/frmPPM.h"
#include "app/imagebutton.h"
#include "app/rules/fundline.h"
#include "diagram/diagramview.h"
#include "fundfile/curvelist.h"
#include "fundfile/datasource.h"
#include "fundfile/queries.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "platform/caption.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>

#include <algorithm>
#include <string>
#include <utility>

SeveralCurves::SeveralCurves(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuAll, &QAction::triggered, [this] { mnuAll_Click(); });
    On(window.imgScreen, &ImageButton::MouseUp, [this] {
        if (window.LeaveHoldingsGrid()) imgScreen_Click();
    });
}

void SeveralCurves::ReadCurveList() {
    DataSource& holdings = *window.dtaBasData;
    std::vector<std::int32_t> curves;
    if (holdings.IsAttached() && !holdings.Empty()) {
        holdings.MoveFirst();
        curves = ListedCurves(holdings);
    }
    // No more curves than there are lines in the list.
    const auto lines = static_cast<std::size_t>(window.lstFonder->count());
    if (curves.size() > lines) curves.resize(lines);
    SelectCurves(std::move(curves));
}

void SeveralCurves::SelectCurves(std::vector<std::int32_t> kontoIds) {
    DataSource& holdings = *window.dtaBasData;
    std::int32_t top = 0;
    for (const std::int32_t kontoId : kontoIds) {
        if (!holdings.FindFirst(queries::KontoIdIs(kontoId))) continue;
        const std::string skala = holdings.Field(schema::holding::kSkala).Text();
        top = std::max(top, ParseScaleText(skala).scale.top);
    }
    if (!kontoIds.empty()) holdings.MoveFirst();
    const ScaleRange scale = top > 0 ? ScaleWithTop(top) : ScaleRange{};
    window.SelectedCurves = std::move(kontoIds);
    window.AllScaleTop = scale.top;
    window.AllScaleBottom = scale.bottom;
}

void SeveralCurves::DrawOnAllScale() {
    window.ScaleTop = window.AllScaleTop;
    window.ScaleBottom = window.AllScaleBottom;
    window.SetVerticalScale(window.ScaleBottom, window.ScaleTop);
}

void SeveralCurves::mnuAll_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    std::string marks = Caption(window.lblGrafNr);
    for (int i = 0; i < window.lstFonder->count(); ++i) {
        marks = AddCurveMark(marks, FromQt(window.lstFonder->item(i)->text()));
    }
    SetCaption(window.lblGrafNr, marks);
    window.lblPlottInfo->hide();
    window.markers.StopCollectingCurves();
    const std::vector<std::int32_t> curves = CurvesOfMarks(marks);
    if (!curves.empty()) {
        window.ClearFundPanel();
        SelectCurves(curves);
        DrawOnAllScale();
    }
    window.picDiagram->setFocus();
    window.panListFonder->hide();
    window.markers.ShowSeveralCurves();
    window.mnuMinus_Click();
    window.imgColor->hide();
    window.imgGrafNr->hide();
}

void SeveralCurves::imgScreen_Click() {
    window.dtaBasData->Refresh();
    if (window.dtaBasData->Empty()) return;
    ReadCurveList();
    if (window.SelectedCurves.size() > 1) window.ClearFundPanel();
    DrawOnAllScale();
}
