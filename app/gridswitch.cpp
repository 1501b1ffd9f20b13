#include "app/gridswitch.h"

#include "app/frmPPM.h"
#include "app/imagebutton.h"
#include "app/texts.h"
#include "fundfile/datasource.h"
#include "platform/boundfield.h"
#include "platform/caption.h"
#include "platform/datagrid.h"

#include <QAction>
#include <QGroupBox>
#include <QPushButton>

GridSwitch::GridSwitch(frmPPM& ppm) : Controller(ppm) {
    On(window.cmdPPMData, &QPushButton::clicked, [this] { cmdPPMData_Click(); });
}

void GridSwitch::cmdPPMData_Click() {
    if (window.panBasData->isVisible()) {
        ShowDiagram();
    } else {
        ShowHoldings();
    }
}

void GridSwitch::ShowHoldings() {
    // A point that may not be stored yet stays on the screen for correction.
    if (!StoreTypedRows()) return;
    const DataSource& holdings = *window.dtaBasData;
    window.cmdNyAndel->setEnabled(holdings.IsAttached() && !window.dtaBasData->Empty());
    window.panBasData->show();
    window.panBasData->raise();
    SetCaption(window.cmdPPMData, texts::ToDiagram);
    window.cmdFondList->setEnabled(false);
    SetCaption(window.txtValue, "");
    window.panListFonder->hide();
    window.imgColor->hide();
    window.imgGrafNr->hide();
    window.DBGrid->setFocus();
}

bool GridSwitch::StoreTypedRows() {
    for (DataGrid* grid : {window.DBGrid, window.GridPlott}) {
        if (grid->StoreRow()) continue;
        grid->setFocus();  // the row waits there for correction
        return false;
    }
    return true;
}

bool GridSwitch::LeaveHoldingsGrid() {
    if (!StoreTypedRows()) return false;
    if (window.panBasData->isVisible()) ShowDiagram();
    return true;
}

void GridSwitch::ShowDiagram() {
    // A row that may not be stored yet stays on the screen for correction.
    if (!StoreTypedRows()) return;
    SetCaption(window.cmdPPMData, texts::ToHoldings);
    window.cmdFondList->setEnabled(true);
    SetCaption(window.txtValue, "");
    window.ResetPanels();
    window.cmdNyOk->hide();
    window.fraNyAndel->hide();
    for (BoundField* box : window.txtNyAndel) box->hide();
    window.mnuPrint->setEnabled(true);
    window.cmdNyAndel->setVisible(true);
    window.panBasData->hide();
}
