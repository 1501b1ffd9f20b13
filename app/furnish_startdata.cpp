// The start data of the chosen holding: ten labels, each under a small heading.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "platform/qttext.h"
#include "widgets/legendview.h"
#include "widgets/swatch.h"
#include "widgets/titledframe.h"
#include "widgets/valuelabel.h"

#include <QGroupBox>
#include <QLabel>

#include <array>

namespace {

constexpr int kColumns = 5;
/// Amounts may have many decimals and need the most room.
constexpr std::array<float, kColumns> kColumnLefts = {180, 1560, 3000, 4620, 6390};
constexpr std::array<float, kColumns> kColumnWidths = {1320, 1380, 1560, 1710, 1650};
constexpr float kRowHeight = 510;

}  // namespace

void FurnishStartData(frmPPM& window) {
    auto* frame = window.fraStartData =
        Named(new TitledFrame(window.centralWidget()), "fraStartData");
    Placed(window, frame, places::kStartData);
    frame->setTitle(ToQt("StartData"));
    frame->hide();

    for (int i = 0; i < 2 * kColumns; ++i) {
        const auto column = static_cast<std::size_t>(i % kColumns);
        const int row = i / kColumns;
        const float left = kColumnLefts[column];
        const float width = kColumnWidths[column];
        const float top = 315 + kRowHeight * static_cast<float>(row);
        QLabel* heading = window.lblFraHeading[i] = Named(Heading(frame, ""), "lblFraHeading", i);
        Placed(window, heading, {left, top, width, 240}, kSmallPoints);
        QLabel* value = window.lblFraData[i] = Named(new ValueLabel(frame), "lblFraData", i);
        Placed(window, value, {left, top + 210, width, 285}, 10);
        heading->setBuddy(value);
    }
    window.lblFraHint =
        Named(Heading(frame, "Välj en fond i listan, så visas dess startdata här."), "lblFraHint");
    Placed(window, window.lblFraHint, {180, 600, 7740, 300});
    window.lstLegend = Named(new LegendView(frame), "lstLegend");
    Placed(window, window.lstLegend, {120, 345, 7890, 1260}, kSmallPoints, FontKind::List);
    Speak(window.lstLegend, "Kurvor i diagrammet");
    window.lstLegend->hide();
    // The fifth value is never used; the curve's colour and number stand in its place.
    window.shaPlottColor = Named(new Swatch(frame), "shaPlottColor");
    Placed(window, window.shaPlottColor, {180, 1065, 450, 225});
    window.lblColorNr = Named(new QLabel(frame), "lblColorNr");
    Placed(window, window.lblColorNr, {720, 1035, 780, 285}, 10);
    Speak(window.lblColorNr, "Kurvans nummer");
    window.lblColorNr->hide();

    // Beside the price field, across the whole frame: in the line of the buttons under it.
    window.lblForhand = Named(new ValueLabel(frame), "lblForhand");
    Placed(window, window.lblForhand, {120, 1335, 7890, 285});
    window.lblForhand->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    window.lblForhand->setContentsMargins(5, 0, 5, 0);
    Speak(window.lblForhand, "Besked om kursen");
    window.lblForhand->hide();
}
