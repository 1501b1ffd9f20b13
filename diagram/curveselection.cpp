#include "diagram/curveselection.h"

#include "app/change.h"
#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/error.h"
#include "fundfile/editrow.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "platform/datasource.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QListWidget>
#include <QSignalBlocker>

#include <string>

CurveSelection::CurveSelection(frmPPM& ppm) : Controller(ppm) {
    On(window.imgColor, &ImageButton::MouseUp, [this] { imgColor_Click(); });
    On(window.imgGrafNr, &ImageButton::MouseUp, [this] { imgGrafNr_Click(); });
    On(window.mnuFarg, &QAction::triggered, [this] { mnuFarg_Click(); });
    On(window.mnuKurvor, &QAction::triggered, [this] { mnuKurvor_Click(); });
}

/// The buttons' work, whether or not they are to be seen.
void CurveSelection::mnuFarg_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    window.Put(AfterChoiceMenu(window.State()));
    imgColor_Click();
}

void CurveSelection::mnuKurvor_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    window.Put(AfterChoiceMenu(window.State()));
    imgGrafNr_Click();
}

void CurveSelection::imgColor_Click() {
    if (window.LeaveHoldingsGrid()) window.Put(AfterColourButton(window.State()));
}

void CurveSelection::imgGrafNr_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    const std::vector<std::int32_t> chosen = window.chosenCurves;
    window.Put(AfterCurvesButton(window.State()));
    if (!chosen.empty()) DrawChosen(chosen);
}

/// The curves are kept in the file and drawn as the screen button draws them, in the twelve months
/// that the window began with.
void CurveSelection::DrawChosen(const std::vector<std::int32_t>& curves) {
    try {
        StoreSelection(curves);
    } catch (const Error&) {
        // A choice that cannot be kept, as in a file that is open for reading only,
        // is shown all the same.
        ShowSelection(curves);
        throw;
    }
    {
        const QSignalBlocker quiet(window.lstFonder);
        window.lstFonder->setCurrentRow(0);
    }
    window.ShowMonthsOfToday();
    window.imgScreen_Click();
}

void CurveSelection::ShowSelection(const std::vector<std::int32_t>& curves) {
    window.ClearFundPanel();
    window.SelectCurves(curves);
    window.DrawOnAllScale();
}

void CurveSelection::StoreSelection(const std::vector<std::int32_t>& curves) {
    DataSource& holdings = *window.dtaBasData;
    holdings.MoveFirst();
    const std::string column = holdings.Field(schema::holding::kSkala).Text();
    const Change change(window, CurvesChange());
    EditRow(holdings,
            [&](DataSource& row) { row.Set(schema::holding::kSkala, WithCurves(column, curves)); });
}
