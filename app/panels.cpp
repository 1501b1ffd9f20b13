#include "app/panels.h"

#include "app/look.h"
#include "app/rules/mnemonics.h"
#include "app/rules/texts.h"
#include "base/number.h"
#include "platform/caption.h"
#include "platform/commondialog.h"
#include "platform/qttext.h"
#include "widgets/boundfield.h"
#include "widgets/colours.h"
#include "widgets/datagrid.h"
#include "widgets/daymarks.h"
#include "widgets/diagramview.h"
#include "widgets/entryfield.h"
#include "widgets/imagebutton.h"
#include "widgets/legendview.h"
#include "widgets/speech.h"
#include "widgets/statuspanels.h"
#include "widgets/swatch.h"
#include "widgets/tag.h"
#include "widgets/texttable.h"

#include <QAction>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPushButton>

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// The box of a notice that its date is typed in.
constexpr int kNoticeDate = 2;

void Write(QObject* control, std::string_view caption) {
    if (Caption(control) != caption) SetCaption(control, caption);
}

void Mark(QObject* control, std::string_view tag) {
    if (Tag(control) != tag) SetTag(control, tag);
}

/// What a screen reader says of a control that is all picture.
void Call(QWidget* control, std::string_view name) {
    const QString spoken = ToQt(name);
    if (control->accessibleName() != spoken) control->setAccessibleName(spoken);
}

/// Shows (`which` true) or hides one control if that is what it should be and is not yet.
void Turn(QWidget* control, bool visible, bool which) {
    if (visible != which || control->isHidden() != visible) return;
    control->setVisible(visible);
    if (visible && qobject_cast<QGroupBox*>(control) != nullptr) control->raise();
}

template <typename Control>
void TurnOn(Control* control, bool enabled, bool which) {
    if (enabled == which && control->isEnabled() != enabled) control->setEnabled(enabled);
}

}  // namespace

void Panels::Show(const Shown& shown) {
    ShowFundPanel(shown.view);
    ShowCaptions(shown.captions);
    ShowTags(shown.tags);
    ShowListColour(shown.listColour);
    controls_.axlSaknas->SetDays(shown.missingDays, static_cast<std::int32_t>(DiagramView::kDays));
    look::SetDoubt(*controls_.lblForhand, shown.priceDoubted);
    look::SetDoubt(*controls_.lblKursBesked, shown.roundDoubted);
    if (shown.typedPrice == TypedPrice::Cleared) Write(controls_.txtValue, "");
    Enable(shown.enabled, true);
    Reveal(shown.visible, true);
    ShowCurves(shown);
    ShowFiles(shown.files);
    controls_.picDiagram->MarkDay(shown.today, ToQt(texts::Today));
    GiveFocus(shown.focus);
    KeepFocusInSight(shown);
    Reveal(shown.visible, false);
    Enable(shown.enabled, false);
}

void Panels::ShowCaptions(const Shown::Captions& captions) {
    Write(&window_, captions.frmPPM);
    Write(controls_.lblRubrik, captions.lblRubrik);
    Write(controls_.lblKopia, captions.lblKopia);
    Write(controls_.mnuAngra, captions.mnuAngra);
    Write(controls_.mnuGorOm, captions.mnuGorOm);
    Write(controls_.lblPanDatum, captions.lblPanDatum);
    Write(controls_.lblIngenFil, captions.lblIngenFil);
    Write(controls_.panListFonder, captions.panListFonder);
    Write(controls_.lblGrafNr, captions.lblGrafNr);
    Write(controls_.lblPlottInfo, captions.lblPlottInfo);
    Write(controls_.cmdPPMData, captions.cmdPPMData);
    Write(controls_.mnuVeckor, captions.mnuVeckor);
    Write(controls_.mnuMonth, captions.mnuMonth);
    Write(controls_.lblTotal, captions.lblTotal);
    Write(controls_.lblXCord, captions.lblXCord);
    Write(controls_.lblYCord, captions.lblYCord);
    if (Caption(controls_.lblForhand) != captions.lblForhand) {
        Write(controls_.lblForhand, captions.lblForhand);
        // A screen reader says it without the focus leaving the price.
        controls_.txtValue->setAccessibleDescription(ToQt(captions.lblForhand));
    }
    Write(controls_.panKurser, captions.panKurser);
    Write(controls_.lblKlara, captions.lblKlara);
    if (Caption(controls_.lblKursBesked) != captions.lblKursBesked) {
        Write(controls_.lblKursBesked, captions.lblKursBesked);
        controls_.txtNyKurs->setAccessibleDescription(ToQt(captions.lblKursBesked));
        controls_.grdKurser->setAccessibleDescription(ToQt(captions.lblKursBesked));
    }
    if (!captions.lblRecCount.empty()) Write(controls_.lblRecCount, captions.lblRecCount);
    Write(controls_.panImport, captions.panImport);
    if (Caption(controls_.lblImport) != captions.lblImport) {
        Write(controls_.lblImport, captions.lblImport);
        controls_.grdImport->setAccessibleDescription(ToQt(captions.lblImport));
    }
    controls_.picDiagram->SetPlaceholder(ToQt(captions.picDiagram));
    StatusPanels& bar = *controls_.staBar;
    if (bar.Notice() != captions.staBar) bar.SetNotice(captions.staBar);
}

void Panels::ShowCurves(const Shown& shown) {
    DiagramView& picture = *controls_.picDiagram;
    std::vector<LegendEntry> entries;
    for (const ShownCurve& curve : shown.legend) {
        entries.push_back({curve.kontoId, curve.colour, ToQt(PlainText(curve.kontoId)),
                           ToQt(curve.name), ToQt(curve.change)});
    }
    controls_.lstLegend->SetEntries(std::move(entries));
    const QString spoken = ToQt(shown.captions.spoken);
    if (picture.accessibleDescription() != spoken) picture.setAccessibleDescription(spoken);
    Call(controls_.axlSaknas, shown.captions.missingDays);
    Call(controls_.shaPlottColor, shown.captions.curveColour);
    speech::Announce(controls_.staBar, ToQt(shown.captions.news));
    if (!shown.lit) return picture.Light(std::nullopt);
    LitDrawing lit{.kontoId = shown.lit->kontoId,
                   .title = ToQt(shown.lit->title),
                   .note = ToQt(shown.lit->note)};
    if (const auto& at = shown.lit->at)
        lit.at = Point{static_cast<double>(at->day), static_cast<double>(at->value)};
    picture.Light(std::move(lit));
}

void Panels::ShowFiles(const std::vector<Shown::FileItem>& files) {
    for (std::size_t i = 0; i < controls_.mnuFil.size(); ++i) {
        QAction* item = controls_.mnuFil[static_cast<int>(i) + 1];
        const bool there = i < files.size();
        if (item->isVisible() != there) item->setVisible(there);
        if (!there) continue;
        // Its key is marked while the menu is open.
        if (WithoutMnemonic(Caption(item)) != files[i].caption) SetCaption(item, files[i].caption);
        if (item->isChecked() != files[i].checked) item->setChecked(files[i].checked);
        const QString path = ToQt(files[i].path);
        if (item->toolTip() != path) item->setToolTip(path);
    }
}

void Panels::ShowTags(const Shown::Tags& tags) {
    Mark(controls_.panListFonder, tags.panListFonder);
    Mark(controls_.imgGrafNr, tags.imgGrafNr);
    Mark(controls_.imgColor, tags.imgColor);
    Mark(controls_.GridPlott, tags.GridPlott);
    Mark(controls_.DBGrid, tags.DBGrid);
    controls_.CmDialog->tag = tags.CmDialog;
}

void Panels::ShowFundPanel(const HoldingView& view) {
    Write(controls_.fraStartData, view.frameCaption);
    for (std::size_t i = 0; i < view.labels.size(); ++i) {
        const int index = static_cast<int>(i);
        Write(controls_.lblFraData[index], view.labels[i]);
        Write(controls_.lblFraHeading[index], view.headings[i]);
    }
    Write(controls_.lblColorNr, view.colourNumber);
    const QColor colour = view.colour ? ToQColor(*view.colour) : QColor();
    if (controls_.shaPlottColor->FillColour() != colour) {
        controls_.shaPlottColor->SetFillColour(colour);
    }
    ShowStatus(view.status);
}

void Panels::ShowStatus(const StatusTexts& texts) {
    StatusPanels& bar = *controls_.staBar;
    const auto write = [&bar](int panel, const std::string& text) {
        if (bar.Text(panel) != text) bar.SetText(panel, text);
    };
    write(statuspanel::kFund, texts.fund);
    write(statuspanel::kStartPrice, texts.startPrice);
    write(statuspanel::kLatestPrice, texts.latestPrice);
    write(statuspanel::kChange, texts.change);
    write(statuspanel::kValue, texts.value);
    bar.SetTag(statuspanel::kStartPrice, texts.startPriceTag);
}

void Panels::ShowListColour(ListUse use) {
    look::SetTextColour(*controls_.lstFonder,
                        use == ListUse::Curves ? colours::kListCurves : colours::kListGreen);
}

void Panels::Enable(const Shown::Enabled& enabled, bool which) {
    TurnOn(controls_.mnuArkiv, enabled.mnuArkiv, which);
    TurnOn(controls_.mnuRedigera, enabled.mnuRedigera, which);
    TurnOn(controls_.mnuShow, enabled.mnuShow, which);
    TurnOn(controls_.mnuAterstall, enabled.mnuAterstall, which);
    TurnOn(controls_.cmdAterstall, enabled.cmdAterstall, which);
    TurnOn(controls_.mnuAngra, enabled.mnuAngra, which);
    TurnOn(controls_.mnuGorOm, enabled.mnuGorOm, which);
    TurnOn(controls_.mnuPrint, enabled.mnuPrint, which);
    TurnOn(controls_.cboDag, enabled.cboDag, which);
    TurnOn(controls_.mnuExportera, enabled.mnuExportera, which);
    TurnOn(controls_.mnuImportera, enabled.mnuImportera, which);
    TurnOn(controls_.cmdImportera, enabled.cmdImportera, which);
    TurnOn(controls_.cmdFondList, enabled.cmdFondList, which);
    TurnOn(controls_.cmdNyAndel, enabled.cmdNyAndel, which);
    TurnOn(controls_.txtValue, enabled.txtValue, which);
    TurnOn(controls_.picDiagram, enabled.picDiagram, which);
}

void Panels::Reveal(const Shown::Visible& visible, bool which) {
    Turn(controls_.panRubrik, visible.panRubrik, which);
    Turn(controls_.panControl, visible.panControl, which);
    Turn(controls_.panDiagram, visible.panDiagram, which);
    Turn(controls_.fraStartData, visible.fraStartData, which);
    Turn(controls_.lblIngenFil, visible.lblIngenFil, which);
    Turn(controls_.panListFonder, visible.panListFonder, which);
    Turn(controls_.panTotal, visible.panTotal, which);
    Turn(controls_.panPlottData, visible.panPlottData, which);
    Turn(controls_.panBasData, visible.panBasData, which);
    Turn(controls_.panKopior, visible.panKopior, which);
    Turn(controls_.imgColor, visible.imgColor, which);
    Turn(controls_.imgGrafNr, visible.imgGrafNr, which);
    Turn(controls_.lblGrafNr, visible.lblGrafNr, which);
    Turn(controls_.lblPlottInfo, visible.lblPlottInfo, which);
    Turn(controls_.lblColorNr, visible.lblColorNr, which);
    Turn(controls_.lblFraHint, visible.lblFraHint, which);
    Turn(controls_.lblForhand, visible.lblForhand, which);
    Turn(controls_.lstLegend, visible.lstLegend, which);
    Turn(controls_.cmdNyAndel, visible.cmdNyAndel, which);
    Turn(controls_.txtGrid, visible.txtGrid, which);
    Turn(controls_.fraNyAndel, visible.fraNyAndel, which);
    Turn(controls_.cmdNyOk, visible.cmdNyOk, which);
    for (BoundField* box : controls_.txtNyAndel) Turn(box, visible.txtNyAndel, which);
    Turn(controls_.lblTotal, visible.lblTotal, which);
    Turn(controls_.panKort, visible.panKort, which);
    Turn(controls_.panKurser, visible.panKurser, which);
    Turn(controls_.panOversikt, visible.panOversikt, which);
    Turn(controls_.panImport, visible.panImport, which);
    Turn(controls_.fraSlapp, visible.fraSlapp, which);
    Turn(controls_.txtNyKurs, visible.txtNyKurs, which);
}

void Panels::GiveFocus(Focus focus) {
    switch (focus) {
        case Focus::Stays:
            return;
        case Focus::Picture:
            return controls_.picDiagram->setFocus();
        case Focus::FundList:
            return controls_.lstFonder->setFocus();
        case Focus::Price:
            return controls_.txtValue->setFocus();
        case Focus::Accounts:
            return controls_.lstTotal->setFocus();
        case Focus::Points:
            return controls_.GridPlott->setFocus();
        case Focus::Copies:
            return controls_.lstKopior->setFocus();
        case Focus::HoldingsGrid:
            return controls_.DBGrid->setFocus();
        case Focus::NoticeDate:
            return controls_.txtNyAndel[kNoticeDate]->setFocus();
        case Focus::DayPrice:
            return controls_.txtNyKurs->setFocus();
        case Focus::PastedPrices:
            return controls_.grdKurser->setFocus();
        case Focus::Overview:
            return controls_.grdOversikt->setFocus();
        case Focus::Import:
            return controls_.grdImport->setFocus();
    }
}

/// A panel that goes with the focus in it leaves the keys to the price field.
void Panels::KeepFocusInSight(const Shown& shown) {
    const QWidget* focused = window_.focusWidget();
    if (focused == nullptr || !shown.enabled.txtValue) return;
    const auto goes = [focused](const QWidget* panel, bool visible) {
        const bool holds = panel == focused || panel->isAncestorOf(focused);
        return !visible && !panel->isHidden() && holds;
    };
    if (goes(controls_.panListFonder, shown.visible.panListFonder) ||
        goes(controls_.panTotal, shown.visible.panTotal) ||
        goes(controls_.panPlottData, shown.visible.panPlottData) ||
        goes(controls_.panKopior, shown.visible.panKopior) ||
        goes(controls_.panBasData, shown.visible.panBasData) ||
        goes(controls_.panKurser, shown.visible.panKurser) ||
        goes(controls_.panImport, shown.visible.panImport) ||
        goes(controls_.panOversikt, shown.visible.panOversikt) ||
        goes(controls_.panKort, shown.visible.panKort) ||
        goes(controls_.lstLegend, shown.visible.lstLegend)) {
        controls_.txtValue->setFocus();
    }
}
