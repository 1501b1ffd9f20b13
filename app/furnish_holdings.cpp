// The holdings panel: the grid, the account fields and the entry row of a new shares notice.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "platform/boundfield.h"
#include "platform/caption.h"
#include "platform/datagrid.h"

#include <QGroupBox>
#include <QPushButton>

void FurnishHoldings(frmPPM& window) {
    auto* panel = window.panBasData = Named(new QGroupBox(window.centralWidget()), "panBasData");
    Placed(window, panel, places::kWholeWidth);
    panel->hide();

    window.DBGrid = Placed(window, Named(new DataGrid(panel), "DBGrid"), {120, 120, 11520, 3600});
    window.txtKontoNr =
        Placed(window, Named(new BoundField(panel), "txtKontoNr"), {120, 4050, 2400, 375});
    window.txtPnr = Placed(window, Named(new BoundField(panel), "txtPnr"), {2640, 4050, 2400, 375});
    window.txtNamn =
        Placed(window, Named(new BoundField(panel), "txtNamn"), {5160, 4050, 3600, 375});
    window.txtGrid = Placed(window, Named(new QLabel(panel), "txtGrid"), {6600, 600, 4920, 2940});
    window.cmdNyAndel =
        Placed(window, Named(new QPushButton(panel), "cmdNyAndel"), {120, 4740, 1800, 405});
    window.cmdNyOk =
        Placed(window, Named(new QPushButton(panel), "cmdNyOk"), {10500, 5160, 1140, 405});
    window.fraNyAndel =
        Placed(window, Named(new QGroupBox(panel), "fraNyAndel"), {2040, 4560, 8400, 1110});
    for (int i = 0; i <= 6; ++i) {
        const float left = 120 + 1170 * static_cast<float>(i);
        window.lblNyAndel[i] = Named(Heading(window.fraNyAndel, ""), "lblNyAndel", i);
        Placed(window, window.lblNyAndel[i], {left, 300, 1110, 240}, kSmallPoints);
        window.txtNyAndel[i] = Named(new BoundField(window.fraNyAndel), "txtNyAndel", i);
        Placed(window, window.txtNyAndel[i], {left, 570, 1110, 375});
    }
}
