#include "entry/dayprices.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/keyfilter.h"
#include "base/number.h"
#include "base/pastedtext.h"
#include "entry/roundlines.h"
#include "entry/rules/pricepreview.h"
#include "entry/texts.h"
#include "fundfile/rules/summary.h"
#include "platform/caption.h"
#include "platform/datasource.h"
#include "platform/qttext.h"
#include "widgets/entryfield.h"
#include "widgets/gridkeys.h"
#include "widgets/texttable.h"

#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <algorithm>
#include <string_view>
#include <utility>

namespace {

constexpr int kPage = 10;

}  // namespace

DayPrices::DayPrices(frmPPM& ppm) : Controller(ppm) {
    EntryField& field = *window.txtNyKurs;
    field.SetFilter(kPriceKeys);
    field.SetPasteFilter([this](std::string_view text) {
        std::optional<std::string> pasted;
        Run([&] { pasted = Pasted(std::string(text)); });
        return pasted;
    });
    field.BlockWhile([this] { return Current() == nullptr; });
    field.SetEnter([this] { Run([this] { txtNyKurs_Enter(); }); });
    On(&field, &EntryField::textChanged, [this] { txtNyKurs_Change(); });
    OnEvent(&field, QEvent::KeyPress, [this](QEvent& event) {
        return txtNyKurs_KeyDown(static_cast<const QKeyEvent&>(event));
    });
    window.grdKurser->SetField(&field, roundcolumn::kPrice);
    On(window.grdKurser, &TextTable::RowPressed, this, &DayPrices::grdKurser_Press);
    OnEvent(window.grdKurser, QEvent::KeyPress, [this](QEvent& event) {
        return grdKurser_KeyDown(static_cast<const QKeyEvent&>(event));
    });
    On(window.cboDag, &QComboBox::activated, [this] { cboDag_Click(); });
    OnEvent(window.cboDag, QEvent::KeyPress,
            [this](QEvent& event) { return cboDag_KeyDown(static_cast<const QKeyEvent&>(event)); });
    On(window.mnuKurser, &QAction::triggered, [this] { mnuKurser_Click(); });
    On(window.dtaPlott, &DataSource::Refreshed, [this] { FollowFile(); });
    OnEvent(window.panKurser, QEvent::Hide, [this](QEvent&) {
        panKurser_Hide();
        return false;
    });
}

void DayPrices::mnuKurser_Click() {
    if (!window.LeaveHoldingsGrid()) return;
    window.BringTodayUpToDate();
    const bool again = window.stage == Stage::DayPrices;
    WindowState next = AfterDayPricesKey(window.State());
    if (next.stage != Stage::DayPrices || next.round.pasted) return;
    if (!again) ReadLines();
    window.Put(std::move(next));
    ShowLines();
    if (!again) GoToFirstOpen();
}

/// Somebody else changed the file while the page shows.
void DayPrices::FollowFile() {
    if (window.stage != Stage::DayPrices || storing_ || !window.FundDb) return;
    ReadLines();
    if (!window.round.pasted) ShowLines();
}

void DayPrices::ReadLines() {
    if (file_.lock() != window.FundDb) lines_.clear();
    file_ = window.FundDb;
    lines_ = ReadRoundLines(*window.FundDb, lines_);
}

std::int32_t DayPrices::Day() const {
    return window.round.day.value_or(window.TodayDay);
}

/// The one that the field is for; null while no line is shown.
RoundLine* DayPrices::Current() {
    const bool shown = std::find(shown_.begin(), shown_.end(), current_) != shown_.end();
    return shown && current_ < lines_.size() ? &lines_[current_] : nullptr;
}

bool DayPrices::IsTyped(const RoundLine& line) const {
    return window.round.typed.contains(line.holding.kontoId);
}

void DayPrices::ShowLines() {
    const std::int32_t day = Day();
    shown_.clear();
    std::vector<TextRow> rows;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const bool done = PercentOn(lines_[i].points, day).has_value();
        if (done && window.round.hidesDone && !IsTyped(lines_[i])) continue;
        shown_.push_back(i);
        rows.push_back(RowOf(lines_[i]));
    }
    window.grdKurser->SetRows(std::move(rows));
    ShowDays();
    window.round.done = DoneText(lines_, day);
    window.ShowState();
    // The line that the field was for, or the one that took its place.
    const auto at = std::lower_bound(shown_.begin(), shown_.end(), current_);
    const auto last = static_cast<std::ptrdiff_t>(shown_.size()) - 1;
    GoTo(static_cast<int>(std::min(at - shown_.begin(), last)));
}

void DayPrices::ShowDays() {
    const QSignalBlocker quiet(window.cboDag);
    choices_ = DayChoices(lines_, window.TodayDay);
    window.cboDag->clear();
    for (const DayChoice& choice : choices_) {
        window.cboDag->addItem(ToQt(choice.text));
        if (choice.day == Day()) window.cboDag->setCurrentIndex(window.cboDag->count() - 1);
    }
}

void DayPrices::cboDag_Click() {
    const auto at = static_cast<std::size_t>(window.cboDag->currentIndex());
    if (at >= choices_.size()) return;
    window.Put(AfterDayChosen(window.State(), choices_[at].day));
    ShowLines();
    GoToFirstOpen();
}

/// With the day chosen on to the prices.
bool DayPrices::cboDag_KeyDown(const QKeyEvent& key) {
    if (!IsEnter(key)) return false;
    window.txtNyKurs->setFocus();
    return true;
}

TextRow DayPrices::RowOf(const RoundLine& line) const {
    TextRow row{RoundCells(line, Day()), RowTone::Plain};
    const auto typed = window.round.typed.find(line.holding.kontoId);
    if (typed != window.round.typed.end()) {
        row.cells[roundcolumn::kPrice] = typed->second.text;
        row.cells[roundcolumn::kChange] = texts::NotStoredYet;
        row.tone = RowTone::Doubted;
    } else if (PercentOn(line.points, Day())) {
        row.tone = RowTone::Quiet;
    }
    return row;
}

void DayPrices::GoTo(int row) {
    if (window.round.pasted) return;
    if (RoundLine* left = Current(); left != nullptr) {
        std::vector<TextRow> rows = window.grdKurser->Rows();
        const auto at = std::find(shown_.begin(), shown_.end(), current_) - shown_.begin();
        rows.at(static_cast<std::size_t>(at)) = RowOf(*left);
        window.grdKurser->SetRows(std::move(rows));
    }
    if (row >= 0) current_ = shown_.at(static_cast<std::size_t>(row));
    window.grdKurser->SetCurrentRow(row);
    ShowField();
}

void DayPrices::grdKurser_Press(int row) {
    GoTo(row);
    if (!window.round.pasted) window.txtNyKurs->setFocus();
}

void DayPrices::GoToFirstOpen() {
    const auto open = std::find_if(shown_.begin(), shown_.end(), [this](std::size_t line) {
        return !PercentOn(lines_[line].points, Day()) || IsTyped(lines_[line]);
    });
    if (open != shown_.end()) GoTo(static_cast<int>(open - shown_.begin()));
}

/// False at the table's ends.
bool DayPrices::Walk(int rows) {
    const int count = static_cast<int>(shown_.size());
    const int from = window.grdKurser->CurrentRow();
    const int to = std::clamp(from + rows, 0, std::max(count - 1, 0));
    if (count == 0 || to == from) return false;
    GoTo(to);
    return true;
}

/// To the next line, wherever the stored one has gone.
void DayPrices::GoOn() {
    const auto next = std::upper_bound(shown_.begin(), shown_.end(), current_);
    if (next != shown_.end()) current_ = *next;
    ShowLines();
}

void DayPrices::ShowField() {
    const RoundLine* line = Current();
    std::string text;
    PriceNote note;
    if (line != nullptr) {
        const std::optional<double> stored = PriceOn(*line, Day());
        if (stored) text = PriceText(*stored);
        if (IsTyped(*line)) {
            text = window.round.typed.at(line->holding.kontoId).text;
            note = PricePreview(line->holding, text, window.TodayDay);
        }
        const std::vector<std::string> cells = RoundCells(*line, Day());
        window.txtNyKurs->setAccessibleName(
            ToQt(std::string(texts::NewPriceOf) + line->holding.fond +
                 std::string(texts::WhoseLatestIs) + cells[roundcolumn::kLatest] + " " +
                 cells[roundcolumn::kDay]));
    }
    const QSignalBlocker quiet(window.txtNyKurs);
    SetCaption(window.txtNyKurs, text);
    window.txtNyKurs->selectAll();
    window.round.note = note;
    window.ShowState();
}

bool DayPrices::txtNyKurs_KeyDown(const QKeyEvent& key) {
    switch (key.key()) {
        case Qt::Key_Up:
            Walk(-1);
            return true;
        case Qt::Key_Down:
            Walk(1);
            return true;
        case Qt::Key_PageUp:
            Walk(-kPage);
            return true;
        case Qt::Key_PageDown:
            Walk(kPage);
            return true;
        case Qt::Key_Tab:
            return Walk(1);
        case Qt::Key_Backtab:
            return Walk(-1);
        default:
            return false;
    }
}

/// What is typed is kept with its line; what stands there stored is not.
void DayPrices::txtNyKurs_Change() {
    const RoundLine* line = Current();
    if (line == nullptr || window.round.pasted) return;
    const std::string text = Caption(window.txtNyKurs);
    const std::optional<double> stored = PriceOn(*line, Day());
    const bool nothingNew = text.empty() || (stored && text == PriceText(*stored));
    const std::int32_t kontoId = line->holding.kontoId;
    WindowState next =
        nothingNew ? AfterDayPriceGone(window.State(), kontoId)
                   : AfterDayPriceTyped(window.State(), kontoId, {line->holding.fond, text});
    next.round.note = nothingNew ? PriceNote{} : PricePreview(line->holding, text, window.TodayDay);
    window.Put(std::move(next));
}

void DayPrices::txtNyKurs_Enter() {
    const RoundLine* line = Current();
    if (line == nullptr) return;
    if (!IsTyped(*line)) return GoOn();
    window.BringTodayUpToDate();
    const auto show = [this](const std::string& price) { SetCaption(window.txtNyKurs, price); };
    const PriceFate fate = Store(current_, {line->holding, Caption(window.txtNyKurs), Day(), show});
    if (fate == PriceFate::Failed) return;
    if (fate == PriceFate::Stored) return GoOn();
    window.Put(AfterDayPriceGone(window.State(), lines_[current_].holding.kontoId));
    ShowField();
}

PriceFate DayPrices::Store(std::size_t at, const PriceToTake& price) {
    const QScopedValueRollback storing(storing_, true);
    const TakenPrice taken = window.TakePrice(price);
    if (taken.fate != PriceFate::Stored) return taken.fate;
    window.Put(AfterDayPriceGone(window.State(), price.holding.kontoId));
    pictureBehind_ = true;
    lines_[at] = WithPrice(std::move(lines_[at]), *taken.stored, {price.day, taken.percent});
    return taken.fate;
}

bool DayPrices::grdKurser_KeyDown(const QKeyEvent& key) {
    if (!IsEnter(key)) return false;
    if (window.round.pasted) StorePlan();
    return true;
}

bool DayPrices::GiveUp() {
    if (window.stage != Stage::DayPrices) return false;
    if (window.round.pasted) {
        EndPlan();
        return true;
    }
    const RoundLine* line = Current();
    if (line == nullptr || !IsTyped(*line)) return false;
    window.Put(AfterDayPriceGone(window.State(), line->holding.kontoId));
    ShowField();
    return true;
}

/// The pictures under the page are drawn once, when it is left.
void DayPrices::panKurser_Hide() {
    if (!std::exchange(pictureBehind_, false) || !window.FundDb) return;
    if (!window.holding) {
        window.SelectCurves(window.SelectedCurves);
        return window.DrawOnAllScale();
    }
    window.SetVerticalScale(window.Scale);
}

/// A column is shown in the table; one price goes into the field.
std::optional<std::string> DayPrices::Pasted(const std::string& text) {
    if (!IsPriceColumn(text)) return PastedNumber(text);
    window.txtNyKurs->deselect();  // what is typed there stays
    std::vector<OpenHolding> holdings;
    for (const RoundLine& line : lines_) holdings.push_back(line.holding);
    PasteInto into{{}, window.TodayDay};
    into.order.assign(std::lower_bound(shown_.begin(), shown_.end(), current_), shown_.end());
    plan_ = PastePlan(text, holdings, into);
    ShowPlan();
    return "";
}

void DayPrices::ShowPlan() {
    std::vector<TextRow> rows;
    for (const PastedPrice& pasted : plan_) {
        std::vector<std::string> cells(roundcolumn::kCount);
        if (pasted.holding) cells = RoundCells(lines_[*pasted.holding], Day());
        if (!pasted.holding) cells[roundcolumn::kFund] = pasted.name;
        cells[roundcolumn::kPrice] = pasted.price;
        cells[roundcolumn::kChange] = pasted.verdict;
        rows.push_back({cells, pasted.doubtful ? RowTone::Doubted : RowTone::Plain});
    }
    window.grdKurser->SetRows(std::move(rows));
    window.Put(AfterPasteShown(window.State(), {PlanText(plan_), false}));
}

/// One by one, as if each had been typed. Where the file takes no more, the rest stays to be seen.
void DayPrices::StorePlan() {
    window.BringTodayUpToDate();
    while (!plan_.empty()) {
        const PastedPrice pasted = plan_.front();
        if (pasted.stores) {
            const std::size_t at = *pasted.holding;
            const PriceToTake price{lines_[at].holding, pasted.price, Day()};
            if (Store(at, price) == PriceFate::Failed) return ShowPlan();
        }
        plan_.erase(plan_.begin());
    }
    EndPlan();
}

void DayPrices::EndPlan() {
    plan_.clear();
    window.Put(AfterPasteEnded(window.State()));
    ShowLines();
}
