// The overview of all holdings, as a page and in short form.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "platform/qttext.h"
#include "widgets/texttable.h"

#include <QGroupBox>

namespace {

constexpr float kTitle = 375;
constexpr float kEdge = 120;

}  // namespace

void FurnishOverview(frmPPM& window) {
    auto* page = window.panOversikt = Named(new QGroupBox(window.centralWidget()), "panOversikt");
    Placed(window, page, places::kWholeWidth);
    window.layout.Elastic(page, {}, {kTitle, places::kWholeWidth.height - kEdge});
    page->setTitle(ToQt("Översikt"));
    page->hide();
    auto* table = window.grdOversikt = Named(new TextTable(page), "grdOversikt");
    Placed(window, table,
           {kEdge, kTitle, places::kWholeWidth.width - 2 * kEdge,
            places::kWholeWidth.height - kTitle - kEdge},
           kTextPoints, FontKind::Grid);
    table->SetColumns({{"Nr", true, 5},
                       {"Fond", false, 21},
                       {"Konto", false, 13},
                       {"Senaste, kr", true, 10},
                       {"Dag", false, 10, "2026-11-13"},
                       {"Ändrad, %-enh", true, 13},
                       {"Sedan start", true, 10},
                       {"Värde, kr", true, 12, "1234567,89"},
                       {"Andel av konto", true, 13}});
    Speak(table, "Översikt över alla innehav");
}

void FurnishShortOverview(frmPPM& window) {
    auto* panel = window.panKort = Named(new QGroupBox(window.centralWidget()), "panKort");
    Placed(window, panel, places::kLeftColumn);
    window.layout.Elastic(panel, {}, {kTitle, places::kLeftColumn.height - kEdge});
    panel->setTitle(ToQt("Översikt  F7"));
    panel->hide();
    auto* table = window.grdKort = Named(new TextTable(panel), "grdKort");
    Placed(window, table,
           {kEdge, kTitle, places::kLeftColumn.width - 2 * kEdge,
            places::kLeftColumn.height - kTitle - kEdge},
           kSmallPoints, FontKind::Grid);
    table->SetColumns({{"Nr", true, 4},
                       {"Fond", false, 12},
                       {"Ändring", true, 7},
                       {"Värde", true, 8, "1234567"}});
    Speak(table, "Översikt i korthet");
}
