#include "diagram/severalcurves.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "fundfile/curvelist.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "platform/datasource.h"
#include "widgets/imagebutton.h"

#include <QAction>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

SeveralCurves::SeveralCurves(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuAll, &QAction::triggered, [this] { mnuAll_Click(); });
    const auto redraw = [this] {
        if (window.LeaveHoldingsGrid()) imgScreen_Click();
    };
    On(window.imgScreen, &ImageButton::MouseUp, redraw);
    On(window.mnuRita, &QAction::triggered, redraw);
}

/// Those of the first row's list whose holdings are in the file, and no more than there are rows.
std::vector<std::int32_t> SeveralCurves::StoredCurves() {
    DataSource& holdings = *window.dtaBasData;
    if (!holdings.IsAttached() || holdings.Empty()) return {};
    std::vector<std::int32_t> curves = ListedCurves(holdings);
    std::erase_if(curves, [&holdings](std::int32_t kontoId) {
        return !holdings.FindFirst(queries::KontoIdIs(kontoId));
    });
    holdings.MoveFirst();
    const auto rows = static_cast<std::size_t>(holdings.RecordCount());
    if (curves.size() > rows) curves.resize(rows);
    return curves;
}

void SeveralCurves::ReadCurveList() {
    SelectCurves(StoredCurves());
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
    window.AllScale = scale;
    window.ShowState();
}

void SeveralCurves::DrawOnAllScale() {
    window.Scale = window.AllScale;
    window.SetVerticalScale(window.Scale);
}

void SeveralCurves::mnuAll_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    // Those that were being chosen come first, in their order.
    std::vector<std::int32_t> curves = window.chosenCurves;
    for (const HoldingRow& row : ReadHoldings(*window.dtaBasData)) {
        if (std::find(curves.begin(), curves.end(), row.kontoId) == curves.end()) {
            curves.push_back(row.kontoId);
        }
    }
    window.Put(AfterAllCurvesMenu(window.State()));
    if (!curves.empty()) {
        SelectCurves(std::move(curves));
        DrawOnAllScale();
    }
    window.mnuMinus_Click();
}

/// The listed curves together; a single one is a holding, which is opened. Without any the open
/// holding stays, so that panel and picture never belong to two.
void SeveralCurves::imgScreen_Click() {
    window.Put(AfterScreenButton(window.State()));
    window.dtaBasData->Refresh();
    if (window.dtaBasData->Empty()) return;
    std::vector<std::int32_t> curves = StoredCurves();
    if (curves.size() == 1 && window.OpenFund(curves.front())) return;
    if (curves.empty() && window.holding) return DrawOpenHolding();
    window.ClearFundPanel();
    SelectCurves(std::move(curves));
    DrawOnAllScale();
}

void SeveralCurves::DrawOpenHolding() {
    DataSource& holdings = *window.dtaBasData;
    holdings.FindFirst(queries::KontoIdIs(window.holding->kontoId));
    window.SelectedCurves = {window.holding->kontoId};
    window.SetVerticalScale(window.Scale);
}
