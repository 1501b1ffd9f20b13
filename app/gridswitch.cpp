#include "app/gridswitch.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "platform/datasource.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"

#include <QPushButton>

GridSwitch::GridSwitch(frmPPM& ppm) : Controller(ppm) {
    On(window.cmdPPMData, &QPushButton::clicked, [this] { cmdPPMData_Click(); });
}

void GridSwitch::cmdPPMData_Click() {
    if (GridShown(window.State())) {
        LeaveHoldingsGrid();
    } else {
        ShowHoldings();
    }
}

void GridSwitch::ShowHoldings() {
    // A point that may not be stored yet stays on the screen for correction.
    if (!StoreTypedRows()) return;
    window.hasHoldings = window.dtaBasData->IsAttached() && !window.dtaBasData->Empty();
    window.Put(AfterGridSwitch(window.State()));
}

bool GridSwitch::StoreTypedRows() {
    for (DataGrid* grid : {window.DBGrid, window.GridPlott}) {
        if (!grid->StoreRow()) return false;
    }
    for (BoundField* field : {window.txtKontoNr, window.txtPnr, window.txtNamn}) {
        if (!field->Store()) return false;
    }
    return true;
}

bool GridSwitch::LeaveHoldingsGrid() {
    if (!StoreTypedRows() || !window.MayLeaveNotice()) return false;
    window.Put(AfterGridLeft(window.State()));
    return true;
}
