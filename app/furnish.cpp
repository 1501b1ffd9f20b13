#include "app/furnish.h"

#include "app/furnishing.h"
#include "app/look.h"
#include "app/places.h"

#include <QMenuBar>

namespace {

/// Room, colours and the menu bar's height; the panels stand in the central widget.
void FurnishWindow(frmPPM& window) {
    Named(&window, "frmPPM");
    window.setPalette(look::WindowPalette());
    window.setStyleSheet(look::StyleSheet());
    window.setWindowIcon(QIcon(QStringLiteral(":/icons/kvarnbo.svg")));
    auto* client = Named(new QWidget, "client");
    window.setCentralWidget(client);
    QMenuBar* bar = window.menuBar();
    bar->setNativeMenuBar(false);
    window.layout.Letter(bar, kTextPoints, Letters::Control);
    window.layout.AlsoScale([bar](const Scaling& scaling) {
        bar->setFixedHeight(Pixels(places::kMenuHeight * scaling.down));
    });
}

}  // namespace

void Furnish(frmPPM& window) {
    Q_INIT_RESOURCE(icons);
    FurnishWindow(window);
    FurnishDataSources(window);
    FurnishMenus(window);
    FurnishHeading(window);
    FurnishFundList(window);
    FurnishControlPanel(window);
    FurnishDiagram(window);
    FurnishStartData(window);
    FurnishPlotData(window);
    FurnishTotals(window);
    FurnishHoldings(window);
    FurnishStatusBar(window);
    FurnishTabOrder(window);
}
