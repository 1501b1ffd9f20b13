#include "diagram/pointsearch.h"

#include "app/frmPPM.h"
#include "app/rules/fundline.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/keyfilter.h"
#include "base/number.h"
#include "base/pastedtext.h"
#include "diagram/rules/pointline.h"
#include "diagram/texts.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/point.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "platform/caption.h"
#include "platform/datasource.h"
#include "platform/qttext.h"
#include "widgets/entryfield.h"

#include <QAction>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QSignalBlocker>

#include <algorithm>
#include <cstddef>
#include <utility>

PointSearch::PointSearch(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuSok, &QAction::triggered, [this] { mnuSok_Click(); });
    On(window.cboSokFond, &QComboBox::activated, [this] { cboSokFond_Click(); });
    window.txtSokDag->SetPasteFilter(PastedDate);
    window.txtSokDag->SetEnter([this] { Run([this] { txtSokDag_Enter(); }); });
    window.txtPunktKr->SetFilter(kPriceKeys);
    window.txtPunktKr->SetPasteFilter(PastedNumber);
    window.txtPunktKr->SetEnter([this] { Run([this] { txtPunktKr_Enter(); }); });
    On(window.dtaPlott, &DataSource::CurrentRowChanged, [this] { ShowPoint(); });
    On(window.dtaPlott, &DataSource::Refreshed, [this] { ShowPoint(); });
    OnEvent(window.panPlottData, QEvent::Show, [this](QEvent&) {
        panPlottData_Show();
        return false;
    });
    OnEvent(window.panPlottData, QEvent::Hide, [this](QEvent&) {
        panPlottData_Hide();
        return false;
    });
}

/// Of the open holding, if there is one; else the user chooses.
void PointSearch::mnuSok_Click() {
    if (window.left != LeftPanel::PlotData) window.mnuPEdit->trigger();
    if (window.left != LeftPanel::PlotData) return;
    if (window.holding) ChooseFund(window.holding->kontoId);
    window.cboSokFond->setFocus();
}

void PointSearch::panPlottData_Show() {
    funds_.clear();
    window.cboSokFond->clear();
    window.cboSokFond->addItem(ToQt(texts::AllFunds));
    SetCaption(window.txtSokDag, "");
    if (!window.dtaBasData->IsAttached()) return;
    for (const HoldingRow& row : ReadHoldings(*window.dtaBasData)) {
        funds_.push_back(row.kontoId);
        window.cboSokFond->addItem(ToQt(FundLine(row.kontoId, row.fond)));
    }
    ShowPoint();
}

/// Everybody else works with all points.
void PointSearch::panPlottData_Hide() {
    if (std::exchange(shownOf_, std::nullopt) && window.dtaPlott->IsAttached()) {
        ShowPointsOf(std::nullopt);
    }
}

void PointSearch::ChooseFund(std::optional<std::int32_t> kontoId) {
    if (!window.StoreTypedRows()) return;
    const auto found = kontoId ? std::find(funds_.begin(), funds_.end(), *kontoId) : funds_.end();
    const bool one = found != funds_.end();
    window.cboSokFond->setCurrentIndex(one ? static_cast<int>(found - funds_.begin()) + 1 : 0);
    shownOf_ = one ? kontoId : std::nullopt;
    ShowPointsOf(shownOf_);
}

void PointSearch::cboSokFond_Click() {
    const auto line = static_cast<std::size_t>(window.cboSokFond->currentIndex());
    if (line == 0 || line > funds_.size()) return ChooseFund(std::nullopt);
    ChooseFund(funds_[line - 1]);
}

/// The last one is current: it is the one that is looked for most.
void PointSearch::ShowPointsOf(std::optional<std::int32_t> kontoId) {
    if (!window.FundDb) return;
    DataSource& points = *window.dtaPlott;
    points.SetRecordSet(window.FundDb->OpenRecordSet(kontoId ? queries::AllPointsOf(*kontoId)
                                                             : queries::AllPointsAfterOpening()));
    if (!points.Empty()) points.MoveLast();
    window.RefreshPoints();
}

void PointSearch::txtSokDag_Enter() {
    const std::string typed = Caption(window.txtSokDag);
    if (typed.empty() || !window.StoreTypedRows()) return;
    const std::optional<std::int32_t> day = ParseDate(typed);
    if (!day) return Notice(std::string(texts::NoDay));
    DataSource& points = *window.dtaPlott;
    if (points.Empty() || !points.FindFirst(queries::XCordIs(*day))) {
        return Notice(std::string(texts::NoPointOn) + FormatDay(*day));
    }
    Notice({});
    window.txtPunktKr->setFocus();
    window.txtPunktKr->selectAll();
}

std::optional<PointSearch::Point> PointSearch::CurrentPoint() {
    std::optional<Point> current;
    DataSource& points = *window.dtaPlott;
    Skipping skip;  // a row may lack its day, its value or its holding
    skip([&] {
        if (!window.FundDb || points.Empty() || points.Eof() || points.Pending()) return;
        const auto holdings = window.FundDb->OpenRecordSet(schema::kHoldingsSource);
        const std::int32_t kontoId = points.Field(schema::point::kKontoId).Integer();
        if (holdings->Empty() || !holdings->FindFirst(queries::KontoIdIs(kontoId))) return;
        current = Point{points.Field(schema::point::kXCord).Integer(),
                        points.Field(schema::point::kYCord).Integer(),
                        OpenHoldingOf(ReadHolding(*holdings))};
    });
    return current;
}

void PointSearch::ShowPoint() {
    if (window.left != LeftPanel::PlotData) return;
    const std::optional<Point> point = CurrentPoint();
    const bool hasPrice = point && point->holding.startPrice > 0;
    SetCaption(window.lblPunkt, hasPrice ? PointLine(point->day, point->percent) : "");
    SetCaption(window.txtPunktKr,
               hasPrice ? PointPrice(point->day, point->percent, point->holding) : "");
}

void PointSearch::txtPunktKr_Enter() {
    const std::optional<Point> point = CurrentPoint();
    if (!point || !window.StoreTypedRows()) return;
    const std::string typed = Caption(window.txtPunktKr);
    if (typed == PointPrice(point->day, point->percent, point->holding)) return;
    double price = 0;
    std::int32_t percent = 0;
    try {
        price = ParseDouble(typed);
        percent = PercentChange(price, point->holding.startPrice);
    } catch (const Error&) {
        return Tell(texts::NoPointPrice);
    }
    if (price <= 0) return Tell(texts::NoPointPrice);
    if (window.Believable(percent) && window.MendPoint(percent, price)) ShowPoint();
    window.txtPunktKr->selectAll();
}

void PointSearch::Notice(std::string text) {
    window.notice = std::move(text);
    window.ShowState();
}
