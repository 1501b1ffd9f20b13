#include "entry/priceentry.h"

#include "app/frmPPM.h"
#include "app/rules/holdingview.h"
#include "app/rules/modes.h"
#include "base/error.h"
#include "base/keyfilter.h"
#include "base/number.h"
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
#include "platform/platform.h"
#include "widgets/diagramview.h"
#include "widgets/entryfield.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>

namespace {

constexpr int kDecimals = 2;

}  // namespace

PriceEntry::PriceEntry(frmPPM& ppm) : Controller(ppm) {
    EntryField& price = *window.txtValue;
    price.SetFilter(kPriceKeys);
    price.SetPasteFilter(PastedPrice);
    price.BlockWhile([this] { return !window.holding; });
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
    window.Put(AfterFundListButton(window.State()));
}

void PriceEntry::txtValue_GotFocus() {
    window.Put(AfterPriceFocus(window.State()));
}

/// The list and the price field take turns; everything else is one Shift+Tab away.
bool PriceEntry::txtValue_Tab() {
    if (window.left != LeftPanel::FundList) return false;
    window.Put(WithKeysInList(window.State()));
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
    return Entry{*price, PercentChange(*price, static_cast<float>(window.holding->startPrice)),
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
    shown.bottom = window.drawnScale.bottom;
    const ScaleRange scale = WidenFor(shown, percent);
    if (scale == shown) return std::nullopt;
    return scale;
}

void PriceEntry::Store(const Entry& entry) {
    const WindowState before = window.State();
    const std::optional<ScaleRange> widened = WidenedScale(entry.percent);
    window.storingPoint = true;
    try {
        // Summary, point and scale are stored together or not at all.
        jet::Transaction transaction(window.FundDb);
        MoveToOpenHolding();
        window.view.status.latestPrice = LatestPriceText(entry.text);
        window.RefreshFundSummary(static_cast<float>(window.holding->startPrice), entry.price);
        StoreDayPoint(entry.percent);
        if (widened) StoreScale(*widened);
        transaction.Commit();
    } catch (const Error& error) {
        window.Put(before);
        Skipping skip;
        skip([&] { window.dtaPlott->Refresh(); });
        return Report(texts::StoreFailed, texts::StoreFailedLog, error);
    }
    window.storingPoint = false;
    if (widened) {
        window.ScaleTop = window.FundScaleTop = widened->top;
        window.ScaleBottom = window.FundScaleBottom = widened->bottom;
        window.SetVerticalScale(widened->bottom, widened->top);
    } else {
        window.picDiagram->Clear();
        window.PlotCurves();
    }
    SetCaption(window.txtValue, "");
    window.Put(WithKeysInList(window.State()));
}

/// Others move the current row too: the totals, the holdings grid, the drawing of several curves.
void PriceEntry::MoveToOpenHolding() {
    if (!window.dtaBasData->FindFirst(queries::KontoIdIs(window.holding->kontoId))) {
        throw Error{ErrorNumber::RecordDeleted, "the open holding is no longer in the file"};
    }
}

void PriceEntry::StoreDayPoint(std::int32_t percent) {
    ReplaceDayPoint(*window.dtaPlott, *window.dtaSQL, *window.FundDb,
                    {.fondNr = window.holding->fondNr,
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
