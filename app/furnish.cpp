#include "app/furnish.h"

#include "app/furnishing.h"
#include "app/look.h"
#include "app/places.h"
#include "widgets/speech.h"
#include "widgets/svgicon.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QMenuBar>
#include <QPushButton>

#include <algorithm>
#include <functional>

namespace {

constexpr float kTitleTop = 75;

/// Another sheet has all that stands on the control styled anew, the same one as well.
void SetStyleSheet(QWidget& control, const QString& sheet) {
    if (control.styleSheet() != sheet) control.setStyleSheet(sheet);
}

/// At once as well, for a sheet: the design screen's is there before the controls that it styles.
void ScaleFromTheStart(frmPPM& window, const std::function<void(const Scaling&)>& scale) {
    scale({});
    window.layout.AlsoScale(scale);
}

/// Room, colours and the menu bar's height; the panels stand in the central widget.
void FurnishWindow(frmPPM& window) {
    Named(&window, "frmPPM");
    window.setPalette(look::WindowPalette());
    window.setStyleSheet(look::StyleSheet());
    window.setWindowIcon(SvgIcon(QStringLiteral(":/icons/kvarnbo.svg")));
    auto* client = Named(new QWidget, "client");
    window.setCentralWidget(client);
    window.layout.SetFont(&window, kTextPoints, FontKind::Control);
    window.layout.PlaceAll(client, {0, 0, kLayoutWidth, kLayoutHeight - places::kMenuHeight});
    // The picture's own place: whatever else is shown there has as much room.
    const TwipRect& panel = places::kDiagram;
    const TwipRect& picture = places::kPicture;
    const float left = panel.left + picture.left, top = panel.top + picture.top;
    window.layout.Elastic(client, {left, left + picture.width}, {top, top + picture.height});
    // The frames' titles keep their place between the edge and what stands under them.
    ScaleFromTheStart(window, [client](const Scaling& scaling) {
        SetStyleSheet(*client, QStringLiteral("QGroupBox::title { top: %1px; }")
                                   .arg(Pixels(kTitleTop * scaling.rigid.down)));
    });
    QMenuBar* bar = window.menuBar();
    bar->setNativeMenuBar(false);
    Speak(bar, "Menyrad");
    // Without it a style sheet keeps fonts and colours from passing on to a control's children, and
    // a dark desktop theme would put light text on the light background of the window.
    QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles);
    window.layout.SetFont(bar, kTextPoints, FontKind::Control);
    ScaleFromTheStart(window, [bar](const Scaling& scaling) {
        const int height = Pixels(places::kMenuHeight * scaling.rigid.down);
        bar->setFixedHeight(height);
        // The style keeps its items at the top; this puts them in the middle.
        const int spare = std::max(0, height - 1 - bar->fontMetrics().height());
        SetStyleSheet(*bar, QStringLiteral("QMenuBar::item { padding: %1px 9px; }").arg(spare / 2));
    });
}

}  // namespace

void Furnish(frmPPM& window) {
    Q_INIT_RESOURCE(icons);
    speech::Install();
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
    FurnishCopies(window);
    FurnishHoldings(window);
    FurnishShortOverview(window);
    FurnishOverview(window);
    FurnishDayPrices(window);
    FurnishImport(window);
    FurnishStatusBar(window);
    FurnishDropFrame(window);
    FurnishTabOrder(window);
    FurnishContextMenus(window);
    // Enter presses a button that has the focus, as Space does.
    for (QPushButton* button : window.findChildren<QPushButton*>()) button->setAutoDefault(true);
}
