#include "entry/priceentry.h"

#include "app/frmPPM.h"
#include "app/imagebutton.h"
#include "app/look.h"
#include "app/rules/holdingview.h"
#include "app/texts.h"
#include "base/error.h"
#include "base/keyfilter.h"
#include "base/number.h"
#include "diagram/diagramview.h"
#include "entry/rules/pricecheck.h"
#include "entry/texts.h"
#include "fundfile/editrow.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "jet/transaction.h"
#include "platform/caption.h"
#include "platform/dialogs.h"
#include "platform/entryfield.h"
#include "platform/platform.h"
#include "platform/statuspanels.h"

#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include <array>

namespace {

constexpr std::array kSummaryPanels = {statuspanel::kLatestPrice, statuspanel::kChange,
                                       statuspanel::kValue};
constexpr int kDecimals = 2;

}  // namespace

/// What the summary shows, to show it again when storing fails.
struct PriceEntry::Shown {
    explicit Shown(frmPPM& ppm) : caption(Caption(&ppm)), change(ppm.ChangePercent) {
        for (std::size_t i = 0; i < kSummaryPanels.size(); ++i) {
            panels[i] = ppm.staBar->Text(kSummaryPanels[i]);
        }
    }
    void Restore(frmPPM& ppm) const {
        for (std::size_t i = 0; i < kSummaryPanels.size(); ++i) {
            ppm.staBar->SetText(kSummaryPanels[i], panels[i]);
        }
        SetCaption(&ppm, caption);
        ppm.ChangePercent = change;
    }

    std::array<std::string, kSummaryPanels.size()> panels;
    std::string caption;
    std::int32_t change;
};

PriceEntry::PriceEntry(frmPPM& ppm) : Controller(ppm) {
    EntryField& price = *window.txtValue;
    price.SetFilter(kPriceKeys);
    price.SetPasteFilter(PastedPrice);
    price.BlockWhile([this] { return !window.markers.HoldingChosen(); });
    price.Swallow(Qt::Key_Delete);
    price.SetEnter([this] { Run([this] { txtValue_Enter(); }); });
    On(&price, &EntryField::Entered, [this] { txtValue_GotFocus(); });
    OnEvent(&price, QEvent::KeyPress, [this](QEvent& event) {
        return static_cast<const QKeyEvent&>(event).key() == Qt::Key_Tab && txtValue_Tab();
    });
    On(window.cmdFondList, &QPushButton::clicked, [this] { cmdFondList_Click(); });
    // The button must not take the focus from a grid before it knows whether the row may be left.
    window.cmdFondList->setFocusPolicy(Qt::TabFocus);
}

void PriceEntry::cmdFondList_Click() {
    if (!window.StoreTypedRows()) return;
    if (window.panListFonder->isVisible()) {
        window.panListFonder->hide();
        window.lblGrafNr->hide();
        window.lblPlottInfo->hide();
        window.imgColor->show();
        window.imgGrafNr->show();
        return;
    }
    window.panListFonder->show();
    SetCaption(window.panListFonder, texts::ListForPrices);
    look::SetTextColour(*window.lstFonder, look::kListGreen);
    window.lstFonder->setFocus();
    SetCaption(window.txtValue, "");
    window.ClearFundPanel();
    window.imgColor->hide();
    window.imgGrafNr->hide();
}

void PriceEntry::txtValue_GotFocus() {
    if (window.imgGrafNr->isVisible()) return;
    window.imgGrafNr->show();
    window.imgColor->show();
}

/// The list and the price field take turns; everything else is one Shift+Tab away.
bool PriceEntry::txtValue_Tab() {
    if (!window.panListFonder->isVisible()) return false;
    window.lstFonder->setFocus(Qt::TabFocusReason);
    return true;
}

void PriceEntry::txtValue_Enter() {
    if (Caption(window.txtValue).empty()) return;
    const std::optional<Entry> entry = ReadEntry();
    if (!entry) return Refuse();
    SetCaption(window.txtValue, entry->text);
    if (!Believable(entry->percent)) {
        SetCaption(window.txtValue, "");
        return;
    }
    Store(*entry);
}

std::optional<PriceEntry::Entry> PriceEntry::ReadEntry() const try {
    const std::optional<float> price = ReadPrice(Caption(window.txtValue));
    if (!price) return std::nullopt;
    return Entry{*price, PercentChange(*price, window.markers.StartPrice()),
                 Fixed(*price, kDecimals)};
} catch (const Error&) {
    // A start price of 0, or a price so far from it that there is no percentage.
    return std::nullopt;
}

void PriceEntry::Refuse() {
    Tell(texts::WrongEntry);
    SetCaption(window.txtValue, "");
}

bool PriceEntry::Believable(std::int32_t percent) {
    const Verdict verdict = Judge(percent);
    if (verdict == Verdict::Accept) return true;
    const Answer answer = window.platform.dialogs.Show({.text = std::string(texts::MoreThan200),
                                                        .buttons = Buttons::OkCancel,
                                                        .icon = Icon::Question});
    if (answer == Answer::Cancel) return false;
    if (verdict == Verdict::AskFirst) return true;
    // The refusal comes after the question, also when the question was answered with OK.
    window.platform.dialogs.Show(
        {.text = std::string(texts::MoreThan1000), .icon = Icon::Exclamation});
    return false;
}

std::optional<ScaleRange> PriceEntry::WidenedScale(std::int32_t percent) const {
    ScaleRange shown{window.ScaleTop, window.ScaleBottom};
    Skipping skip;
    skip([&] { shown.bottom = ParseInteger(Caption(window.lblVertical[1])); });
    const ScaleRange scale = WidenFor(shown, percent);
    if (scale == shown) return std::nullopt;
    return scale;
}

void PriceEntry::Store(const Entry& entry) {
    const Shown before(window);
    const std::optional<ScaleRange> widened = WidenedScale(entry.percent);
    window.markers.HoldGridRedraw();
    try {
        // Summary, point and scale are stored together or not at all.
        jet::Transaction transaction(window.FundDb);
        MoveToOpenHolding();
        window.staBar->SetText(statuspanel::kLatestPrice, LatestPriceText(entry.text));
        window.RefreshFundSummary(window.markers.StartPrice(), entry.price);
        StoreDayPoint(entry.percent);
        if (widened) StoreScale(*widened);
        transaction.Commit();
    } catch (const Error& error) {
        before.Restore(window);
        Skipping skip;
        skip([&] { window.dtaPlott->Refresh(); });
        window.markers.LetGridRedraw();
        return Report(texts::StoreFailed, texts::StoreFailedLog, error);
    }
    window.markers.LetGridRedraw();
    if (widened) {
        window.ScaleTop = window.FundScaleTop = widened->top;
        window.ScaleBottom = window.FundScaleBottom = widened->bottom;
        window.SetVerticalScale(widened->bottom, widened->top);
    } else {
        window.picDiagram->Clear();
        window.PlotCurves();
    }
    SetCaption(window.txtValue, "");
    if (window.panListFonder->isVisible()) window.lstFonder->setFocus();
}

/// Others move the current row too: the totals, the holdings grid, the drawing of several curves.
void PriceEntry::MoveToOpenHolding() {
    const std::int32_t kontoId = ParseInteger(Caption(window.lblColorNr));
    if (!window.dtaBasData->FindFirst(queries::KontoIdIs(kontoId))) {
        throw Error{ErrorNumber::RecordDeleted, "the open holding is no longer in the file"};
    }
}

void PriceEntry::StoreDayPoint(std::int32_t percent) {
    const std::string fondNr = Caption(window.lblFraData[0]);
    ReplaceDayPoint(*window.dtaPlott, *window.dtaSQL, *window.FundDb,
                    {.fondNr = fondNr,
                     .day = window.TodayDay,
                     .percent = percent,
                     .kontoId = KontoIdOf(*window.dtaBasData)});
}

void PriceEntry::StoreScale(ScaleRange scale) {
    DataSource& holdings = *window.dtaBasData;
    const std::string present = holdings.Field(schema::holding::kSkala).Text();
    // The first row keeps the list of curves that stands before its scale.
    const std::string text =
        holdings.Position() == 0 ? WithScale(present, scale) : ScaleColumn(scale);
    EditRow(holdings, [&](DataSource& row) { row.Set(schema::holding::kSkala, text); });
}
