#include "diagram/curveselection.h"

#include "app/frmPPM.h"
#include "app/imagebutton.h"
#include "app/look.h"
#include "app/rules/fundline.h"
#include "base/error.h"
#include "diagram/diagramview.h"
#include "diagram/texts.h"
#include "fundfile/datasource.h"
#include "fundfile/editrow.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "platform/caption.h"

#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <string>

CurveSelection::CurveSelection(frmPPM& ppm) : Controller(ppm) {
    On(window.imgColor, &ImageButton::MouseUp, [this] { imgColor_Click(); });
    On(window.imgGrafNr, &ImageButton::MouseUp, [this] { imgGrafNr_Click(); });
    OnEvent(window.panListFonder, QEvent::Hide, [this](QEvent& event) {
        if (!event.spontaneous()) panListFonder_Hide();
        return false;
    });
}

// Whoever hides the list ends what was being chosen in it: a mark that stayed behind would turn the
// next Enter in the list into something else than a price entry.
void CurveSelection::panListFonder_Hide() {
    const bool wipedInVain =
        window.markers.CollectingCurves() && window.picDiagram->Drawings().empty();
    window.markers.StopChoosingColour();
    window.markers.StopCollectingCurves();
    SetCaption(window.lblGrafNr, "");
    window.lblGrafNr->hide();
    window.lblPlottInfo->hide();
    // The holdings grid, which hides the list too, blocks the button until it is left.
    if (window.panBasData->isHidden()) window.cmdFondList->setEnabled(true);
    // The picture was cleared for the choice: without one, what was drawn before comes back.
    if (wipedInVain) window.PlotCurves();
}

bool CurveSelection::ColourModeShown() const {
    return !window.panListFonder->isHidden() &&
           Caption(window.panListFonder) == texts::ChooseColourFor;
}

void CurveSelection::imgColor_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    if (ColourModeShown()) {
        EndColourMode();
    } else {
        StartColourMode();
    }
}

void CurveSelection::StartColourMode() {
    window.markers.StartChoosingColour();
    SetCaption(window.panListFonder, texts::ChooseColourFor);
    window.panListFonder->show();
    window.lstFonder->setFocus();
    window.cmdFondList->setEnabled(false);
    window.lblGrafNr->hide();
    SetCaption(window.lblPlottInfo, texts::ChooseColourInfo);
    window.lblPlottInfo->show();
}

void CurveSelection::EndColourMode() {
    window.markers.StopChoosingColour();
    window.markers.StopCollectingCurves();
    window.cmdFondList->setEnabled(true);
    window.panListFonder->hide();
    SetCaption(window.panListFonder, "");
    window.lblPlottInfo->hide();
}

void CurveSelection::imgGrafNr_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    if (window.panListFonder->isHidden()) {
        StartSelection();
    } else {
        EndSelection();
    }
}

void CurveSelection::StartSelection() {
    SetCaption(window.lblGrafNr, "");
    window.picDiagram->Clear();
    window.markers.StartCollectingCurves();
    SetCaption(window.lblPlottInfo, texts::ChooseCurvesInfo);
    window.lblPlottInfo->show();
    look::SetTextColour(*window.lstFonder, look::kListCurves);
    SetCaption(window.panListFonder, texts::ChooseCurves);
    window.panListFonder->show();
    window.lstFonder->setFocus();
    window.cmdFondList->setEnabled(false);
}

void CurveSelection::EndSelection() {
    const std::vector<std::int32_t> curves = CurvesOfMarks(Caption(window.lblGrafNr));
    window.lblGrafNr->hide();
    window.lblPlottInfo->hide();
    window.panListFonder->hide();
    window.cmdFondList->setEnabled(true);
    window.markers.StopCollectingCurves();
    if (curves.empty()) return;

    try {
        StoreSelection(curves);
    } catch (const Error&) {
        // A choice that cannot be kept, as in a file that is open for reading only, is shown all
        // the same.
        ShowSelection(curves);
        throw;
    }
    window.SelectedCurves = curves;
    window.lstFonder->clear();
    window.Activated = false;
    window.Activate();
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
    EditRow(holdings,
            [&](DataSource& row) { row.Set(schema::holding::kSkala, WithCurves(column, curves)); });
}
