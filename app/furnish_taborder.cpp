// The order in which Tab goes through the controls: list, price field, list;
// then what else is visible.

#include "app/frmPPM.h"
#include "app/furnish.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"
#include "widgets/diagramview.h"
#include "widgets/entryfield.h"
#include "widgets/imagebutton.h"
#include "widgets/legendview.h"
#include "widgets/texttable.h"

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>

void FurnishTabOrder(frmPPM& window) {
    QWidget* const order[] = {
        window.lstFonder,     window.txtValue,      window.cmdFondList,   window.cmdPPMData,
        window.imgScreen,     window.imgColor,      window.imgGrafNr,     window.picDiagram,
        window.lstLegend,     window.cboSokFond,    window.txtSokDag,     window.GridPlott,
        window.txtPunktKr,    window.txtprcStart,   window.txtprcNy,      window.cmdPrc,
        window.txtTranslate,  window.cmdTranslate,  window.lstTotal,      window.lstKopior,
        window.cmdAterstall,  window.DBGrid,        window.cboDag,        window.txtNyKurs,
        window.grdKurser,     window.grdImport,     window.cmdImportera,  window.cmdImportNej,
        window.grdOversikt,   window.grdKort,       window.txtKontoNr,    window.txtPnr,
        window.txtNamn,       window.cmdNyAndel,    window.txtNyAndel[0], window.txtNyAndel[1],
        window.txtNyAndel[2], window.txtNyAndel[3], window.txtNyAndel[4], window.txtNyAndel[5],
        window.txtNyAndel[6], window.cmdNyOk};
    for (std::size_t i = 1; i < std::size(order); ++i) QWidget::setTabOrder(order[i - 1], order[i]);
}
