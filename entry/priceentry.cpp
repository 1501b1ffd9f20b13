#include "entry/priceentry.h"

#include "app/change.h"
#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "app/rules/spoken.h"
#include "base/error.h"
#include "base/keyfilter.h"
#include "base/pastedtext.h"
#include "entry/rules/pricecheck.h"
#include "entry/rules/pricepreview.h"
#include "entry/texts.h"
#include "fundfile/dayprice.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "platform/caption.h"
#include "platform/datasource.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "widgets/diagramview.h"
#include "widgets/entryfield.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QPushButton>

#include <utility>

namespace {

constexpr auto kHeldKeys =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

}  // namespace

PriceEntry::PriceEntry(frmPPM& ppm) : Controller(ppm) {
    EntryField& price = *window.txtValue;
    price.SetFilter(kPriceKeys);
    price.SetPasteFilter(PastedNumber);
    price.BlockWhile([this] { return !window.holding; });
    price.Swallow(Qt::Key_Delete);
    price.SetEnter([this] { Run([this] { txtValue_Enter(); }); });
    On(&price, &EntryField::Entered, [this] { txtValue_GotFocus(); });
    On(&price, &EntryField::textChanged, [this] { txtValue_Change(); });
    OnEvent(&price, QEvent::KeyPress, [this](QEvent& event) {
        return txtValue_KeyDown(static_cast<const QKeyEvent&>(event));
    });
    On(window.cmdFondList, &QPushButton::clicked, [this] { cmdFondList_Click(); });
    On(window.mnuDagskurs, &QAction::triggered, [this] { mnuDagskurs_Click(); });
    // The button must not take the focus from a grid before it knows whether the row may be left.
    window.cmdFondList->setFocusPolicy(Qt::TabFocus);
}

void PriceEntry::cmdFondList_Click() {
    if (!window.StoreTypedRows()) return;
    window.Put(AfterFundListButton(window.State()));
}

/// From the holdings grid it leads to the list as well.
void PriceEntry::mnuDagskurs_Click() {
    if (window.LeaveHoldingsGrid()) cmdFondList_Click();
}

void PriceEntry::txtValue_GotFocus() {
    window.Put(AfterPriceFocus(window.State()));
}

void PriceEntry::txtValue_Change() {
    PriceNote note;
    if (window.holding) {
        note = PricePreview(*window.holding, Caption(window.txtValue), window.TodayDay);
    }
    window.Put(AfterPriceTyped(window.State(), std::move(note)));
}

bool PriceEntry::txtValue_KeyDown(const QKeyEvent& event) {
    if ((event.modifiers() & kHeldKeys) != Qt::NoModifier) return false;
    switch (event.key()) {
        case Qt::Key_Tab:
            return txtValue_Tab();
        case Qt::Key_Up:
            OpenNeighbour(-1);
            return true;
        case Qt::Key_Down:
            OpenNeighbour(1);
            return true;
        default:
            return false;
    }
}

/// From one price to the next without the list. A price that is being typed keeps its holding open.
void PriceEntry::OpenNeighbour(std::int32_t step) {
    if (!window.holding || Choosing(window.State()) || !Caption(window.txtValue).empty()) return;
    DataSource& holdings = *window.dtaBasData;
    if (!holdings.FindFirst(queries::KontoIdIs(window.holding->kontoId))) return;
    const std::int32_t row = holdings.Position() + step;
    if (row < 0 || row >= holdings.RecordCount()) return;
    holdings.MoveTo(row);
    window.OpenFund(KontoIdOf(holdings));
}

/// The list and the price field take turns; everything else is one Shift+Tab away.
bool PriceEntry::txtValue_Tab() {
    if (window.left != LeftPanel::FundList) return false;
    window.Put(WithKeysInList(window.State()));
    return true;
}

void PriceEntry::txtValue_Enter() {
    if (Caption(window.txtValue).empty() || !window.holding) return;
    window.BringTodayUpToDate();
    const auto show = [this](const std::string& price) { SetCaption(window.txtValue, price); };
    // The price is of the day on which Enter was pressed, however long a question stays open.
    const PriceFate fate =
        TakePrice({*window.holding, Caption(window.txtValue), window.TodayDay, show}).fate;
    if (fate == PriceFate::Failed) return;
    SetCaption(window.txtValue, "");
    if (fate == PriceFate::Stored) window.Put(WithKeysInList(window.State()));
}

TakenPrice PriceEntry::TakePrice(const PriceToTake& price) try {
    const std::optional<DayPrice> read = ReadDayPrice(price.typed, price.holding, price.day);
    if (!read) {
        Tell(texts::WrongEntry);
        return {};
    }
    if (price.show) price.show(read->text);
    if (!Believable(read->point.value)) return {};
    const OpenHolding stored = Store(price.holding, *read);
    window.news = SpokenStoredPrice(read->text, price.holding.fond, read->point.value);
    ShowStored(stored, *read);
    window.ShowState();
    return {PriceFate::Stored, stored, read->point.value};
} catch (const Error& error) {
    Report(texts::StoreFailed, texts::StoreFailedLog, error);
    return {.fate = PriceFate::Failed};
}

OpenHolding PriceEntry::Store(const OpenHolding& holding, const DayPrice& price) {
    const Change change(window, PriceChange(price.text, holding.fond));
    return StoreDayPrice(window.FundDb, holding, price, window.TodayDay);
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

void PriceEntry::ShowStored(const OpenHolding& stored, const DayPrice& price) {
    window.storingPoint = true;
    Skipping skip;  // the price is stored; points that cannot be read are told by their grid
    skip([&] { window.dtaPlott->Refresh(); });
    window.storingPoint = false;
    if (!window.holding || window.holding->kontoId != stored.kontoId) return;
    if (stored.summary.day == price.point.day) {
        window.RefreshFundSummary(stored, price.price);
    } else {
        window.Put(AfterPriceStored(window.State(), stored));
    }
    window.ShowFundScale(stored.scale);
}
