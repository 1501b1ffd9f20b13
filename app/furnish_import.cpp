// The page of prices from a file: what would become of each line, and the buttons that store them
// or leave the page.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "platform/qttext.h"
#include "widgets/texttable.h"
#include "widgets/valuelabel.h"

#include <QGroupBox>
#include <QPushButton>

void FurnishImport(frmPPM& window) {
    auto* panel = window.panImport = Named(new QGroupBox(window.centralWidget()), "panImport");
    Placed(window, panel, places::kWholeWidth);
    panel->hide();

    auto* table = window.grdImport = Named(new TextTable(panel), "grdImport");
    Placed(window, table, {120, 405, 11520, 4695}, kTextPoints, FontKind::Grid);
    table->SetColumns({{"Rad", true, 6},
                       {"Datum", false, 11},
                       {"Fond", false, 22},
                       {"Konto", false, 15},
                       {"Kurs, kr", true, 11},
                       {"Vad som händer", false, 31}});
    Speak(table, "Kurserna i filen");

    window.lblImport = Named(new ValueLabel(panel), "lblImport");
    Placed(window, window.lblImport, {120, 5235, 7980, 420}, 10);
    window.lblImport->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Speak(window.lblImport, "Vad Enter gör");

    window.cmdImportera = Named(new QPushButton(ToQt("&Spara kurserna"), panel), "cmdImportera");
    Placed(window, window.cmdImportera, {8220, 5235, 1920, 420});
    Speak(window.cmdImportera, "Spara kurserna i filen");
    window.cmdImportNej = Named(new QPushButton(ToQt("Av&bryt"), panel), "cmdImportNej");
    Placed(window, window.cmdImportNej, {10260, 5235, 1380, 420});
    Speak(window.cmdImportNej, "Lämna sidan utan att spara");
}
