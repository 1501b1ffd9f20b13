// The diagram with its scale, months, years, scroll buttons and the two readings of the cross-hair.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "app/rules/texts.h"
#include "base/number.h"
#include "base/text.h"
#include "platform/caption.h"
#include "platform/qttext.h"
#include "widgets/daymarks.h"
#include "widgets/diagramview.h"
#include "widgets/imagebutton.h"
#include "widgets/shortlabel.h"
#include "widgets/tag.h"
#include "widgets/titledframe.h"

#include <QLabel>
#include <QRect>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace {

using places::kPicture;
constexpr float kLabelHeight = 240;
constexpr float kUnderTop = 5340;  // the line of buttons and readings under the picture
constexpr float kUnderHeight = 330;
constexpr int kValues = 6;
constexpr int kMonths = 12;

QLabel* Label(frmPPM& window, QLabel* label, const TwipRect& rect, Qt::Alignment alignment,
              std::string_view spoken) {
    label->setAlignment(alignment | Qt::AlignVCenter);
    Speak(label, spoken);
    return Placed(window, label, rect, kSmallPoints);
}

/// One of those under the picture.
QLabel* Under(frmPPM& window, const char* name, const TwipRect& rect, Qt::Alignment alignment,
              std::string_view spoken) {
    constexpr float kPoints = 10;
    auto* label = Named(new QLabel(window.panDiagram), name);
    label->setAlignment(alignment | Qt::AlignVCenter);
    Speak(label, spoken);
    return Placed(window, label, rect, kPoints);
}

void FurnishScale(frmPPM& window) {
    static constexpr std::array<std::string_view, kValues> kCaptions = {"-20", "-10", "0",
                                                                        "10",  "20",  "30"};
    for (int i = 1; i <= kValues; ++i) {
        const float line =
            kPicture.top + kPicture.height * static_cast<float>(kValues - i) / (kValues - 1);
        QLabel*& label = window.lblVertical[i];
        label = Named(new QLabel(window.panDiagram), "lblVertical", i);
        Label(window, label, {45, line - kLabelHeight / 2, 495, kLabelHeight}, Qt::AlignRight,
              "Procentskala");
        SetCaption(label, kCaptions[static_cast<std::size_t>(i - 1)]);
    }
}

/// Where the picture gives its height to larger text, a label keeps its own, around its line.
void KeepScaleReadable(frmPPM& window) {
    window.layout.AlsoScale([&window](const Scaling& scaling) {
        const QRect picture = window.picDiagram->geometry();
        const int height = Pixels(kLabelHeight * scaling.rigid.down);
        for (int i = 1; i <= kValues; ++i) {
            QRect place = window.lblVertical[i]->geometry();
            if (place.height() >= height) continue;
            const int line = picture.top() + picture.height() * (kValues - i) / (kValues - 1);
            place.setRect(place.left(), line - height / 2, place.width(), height);
            window.lblVertical[i]->setGeometry(place);
        }
    });
}

void FurnishMonths(frmPPM& window) {
    const float width = kPicture.width / kMonths;
    const float top = kPicture.top + kPicture.height + 60;
    const std::vector<std::string> names = Split(texts::MonthNames, "|");
    for (int i = 1; i <= kMonths; ++i) {
        const float left = kPicture.left + width * static_cast<float>(i - 1);
        QLabel*& label = window.lblMonth[i];
        label = Named(new ShortLabel(window.panDiagram), "lblMonth", i);
        Label(window, label, {left, top, width, kLabelHeight}, Qt::AlignHCenter, "Månad");
        SetCaption(label, names[static_cast<std::size_t>(i - 1)]);
    }
    SetTag(window.lblMonth[1], texts::MonthNames);
}

ImageButton* Scroll(frmPPM& window, const QString& picture, float left, std::string_view spoken,
                    std::string_view tip) {
    auto* button =
        PictureButton(window, window.panDiagram, {left, kUnderTop, 450, kUnderHeight}, picture);
    button->setFocusPolicy(Qt::NoFocus);  // the arrow keys do the same everywhere
    Speak(button, spoken);
    Tip(button, tip);
    return button;
}

/// Over the picture, where no file is open.
void FurnishNoFile(frmPPM& window) {
    window.lblIngenFil = Named(new QLabel(window.panDiagram), "lblIngenFil");
    Placed(window, window.lblIngenFil,
           {kPicture.left + 450, kPicture.top + 450, kPicture.width - 900, kPicture.height - 900},
           10);
    window.lblIngenFil->setTextFormat(Qt::PlainText);
    window.lblIngenFil->setWordWrap(true);
    window.lblIngenFil->setAttribute(Qt::WA_TransparentForMouseEvents);
    window.lblIngenFil->hide();
}

}  // namespace

void FurnishDiagram(frmPPM& window) {
    auto* panel = window.panDiagram = Named(new TitledFrame(window.centralWidget()), "panDiagram");
    Placed(window, panel, places::kDiagram);
    window.layout.Elastic(panel, {kPicture.left, kPicture.left + kPicture.width},
                          {kPicture.top, kPicture.top + kPicture.height});
    window.layout.ElasticRow(panel, {kUnderTop, places::kDiagram.height}, {4740, 4860});
    panel->setTitle(ToQt("Mätning :  Klick med vänster eller höger musknapp i diagrammet    "));
    panel->hide();

    window.picDiagram = Named(new DiagramView(panel), "picDiagram");
    Placed(window, window.picDiagram, kPicture, kSmallPoints);
    Speak(window.picDiagram, "Diagram");
    for (std::size_t i = 0; i < window.Line.size(); ++i) {
        window.Line[static_cast<int>(i) + 1] = window.picDiagram->GridLines().at(i);
    }
    FurnishScale(window);
    KeepScaleReadable(window);
    window.axlSaknas = Named(new DayMarks(panel), "axlSaknas");
    Placed(window, window.axlSaknas,
           {kPicture.left, kPicture.top + kPicture.height, kPicture.width, 75});
    Tip(window.axlSaknas, "Vardagar utan kurs de senaste 60 dagarna: fyll i dem med <F6>");
    FurnishMonths(window);

    FurnishNoFile(window);

    // Under the picture, so that they never stand on a curve.
    window.lblXCord = Under(window, "lblXCord", {2460, kUnderTop, 2280, kUnderHeight},
                            Qt::AlignRight, "Datum vid hårkorset");
    window.lblYCord = Under(window, "lblYCord", {4860, kUnderTop, 1380, kUnderHeight},
                            Qt::AlignLeft, "Värde vid hårkorset");
    window.lbLeftYear = Under(window, "lbLeftYear", {1215, kUnderTop, 1050, kUnderHeight},
                              Qt::AlignLeft, "År till vänster");
    window.lblRightYear = Under(window, "lblRightYear", {6315, kUnderTop, 1050, kUnderHeight},
                                Qt::AlignRight, "År till höger");
    window.Image4 = Named(Scroll(window, QStringLiteral(":/icons/left.svg"), 615, "Bakåt i tiden",
                                 "Flytta vänster kvartal / år  <pil vänster> "),
                          "Image4");
    window.Image5 = Named(Scroll(window, QStringLiteral(":/icons/right.svg"), 7515,
                                 "Framåt i tiden", "Flytta höger kvartal / år  <pil höger>   "),
                          "Image5");
}
