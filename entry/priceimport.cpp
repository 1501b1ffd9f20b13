#include "entry/priceimport.h"

#include "app/change.h"
#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/csv.h"
#include "base/number.h"
#include "entry/texts.h"
#include "fundfile/dayprice.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "fundfile/texts.h"
#include "jet/database.h"
#include "jet/transaction.h"
#include "platform/datasource.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/wholefile.h"
#include "widgets/gridkeys.h"
#include "widgets/texttable.h"

#include <QAction>
#include <QEvent>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPushButton>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

namespace {

constexpr std::size_t kMaxBytes = 32 << 20;
constexpr std::size_t kMaxLines = 200'000;

/// Whoever waits sees that the program works.
class Busy {
  public:
    Busy() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Busy() { QGuiApplication::restoreOverrideCursor(); }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
};

TextRow RowOf(const ImportedPrice& price, const std::vector<RoundLine>& holdings) {
    const bool nothing = price.fate == ImportFate::IsThere || price.fate == ImportFate::NoPrice;
    return {ImportCells(price, holdings), price.doubtful ? RowTone::Doubted
                                          : nothing      ? RowTone::Quiet
                                                         : RowTone::Plain};
}

std::vector<OpenHolding> Opened(const std::vector<RoundLine>& lines) {
    std::vector<OpenHolding> opened;
    for (const RoundLine& line : lines) opened.push_back(line.holding);
    return opened;
}

}  // namespace

PriceImport::PriceImport(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuImportera, &QAction::triggered, [this] { mnuImportera_Click(); });
    On(window.cmdImportera, &QPushButton::clicked, [this] { cmdImportera_Click(); });
    On(window.cmdImportNej, &QPushButton::clicked, [this] { window.ResetPanels(); });
    OnEvent(window.grdImport, QEvent::KeyPress,
            [this](const QEvent& event) { return grdImport_KeyDown(event); });
    OnEvent(window.panImport, QEvent::Hide, [this](QEvent&) {
        panImport_Hide();
        return false;
    });
    On(window.dtaPlott, &DataSource::Refreshed, [this] { FollowFile(); });
}

void PriceImport::mnuImportera_Click() {
    if (!window.FundDb || window.stage == Stage::Starting) return;
    const std::string path =
        window.platform.dialogs.PickFile({.choice = FileChoice::Open,
                                          .title = std::string(texts::ImportTitle),
                                          .filter = std::string(texts::ImportFiles),
                                          .folder = window.platform.userFolder,
                                          .mustExist = true});
    if (path.empty() || !window.LeaveHoldingsGrid()) return;
    window.BringTodayUpToDate();
    const Busy busy;
    try {
        ReadHoldings();
        if (Read(path)) ShowPlan();
    } catch (const Error& error) {
        Complain(path, fundtexts::Explain(error.Number()));
    }
}

void PriceImport::ReadHoldings() {
    auto points = ReadPointsByHolding(*window.FundDb);
    holdings_.clear();
    file_ = window.FundDb;
    for (const HoldingRow& row :
         ::ReadHoldings(*window.FundDb->OpenRecordSet(schema::kHoldingsSource))) {
        holdings_.push_back({OpenHoldingOf(row), points[row.kontoId], std::nullopt});
    }
}

/// False: the user has been told what is wrong with the file.
bool PriceImport::Read(const std::string& path) {
    const std::optional<std::string> bytes = ReadWholeFile(path, kMaxBytes);
    std::string_view why;
    if (!bytes) {
        why = texts::ImportTooLarge;
    } else if (bytes->find('\0') != std::string::npos) {
        why = texts::ImportNoText;
    } else {
        auto lines = ReadPriceFile(DecodeForeignText(*bytes), FundNames(Opened(holdings_)));
        if (lines && lines->size() <= kMaxLines) {
            read_ = *std::move(lines);
            path_ = path;
            return true;
        }
        why = lines ? texts::ImportTooManyLines : texts::ImportNoColumns;
    }
    Complain(path, why);
    return false;
}

void PriceImport::Complain(const std::string& path, std::string_view why) {
    window.platform.dialogs.Show(
        {.text = fundtexts::Failure(texts::NotImported, path, why), .icon = Icon::Exclamation});
}

void PriceImport::ShowPlan() {
    plan_ = ImportPlan(read_, holdings_, window.TodayDay);
    std::vector<TextRow> rows;
    for (const ImportedPrice& price : plan_) rows.push_back(RowOf(price, holdings_));
    window.grdImport->SetRows(std::move(rows));
    window.grdImport->SetCurrentRow(plan_.empty() ? -1 : 0);
    const ImportCounts counts = CountOf(plan_);
    window.Put(AfterImportShown(window.State(), {std::filesystem::path(path_).filename().string(),
                                                 ImportText(counts), counts.stores > 0}));
}

/// A change was taken back, or done again, while the page shows.
void PriceImport::FollowFile() {
    if (window.stage != Stage::Import || !window.FundDb || file_.lock() != window.FundDb) return;
    ReadHoldings();
    ShowPlan();
}

bool PriceImport::grdImport_KeyDown(const QEvent& event) {
    if (!IsEnter(static_cast<const QKeyEvent&>(event))) return false;
    cmdImportera_Click();
    return true;
}

void PriceImport::cmdImportera_Click() {
    const ImportCounts counts = CountOf(plan_);
    if (counts.stores == 0 || !window.FundDb) return;
    const bool withDoubted = counts.asks == 0 || MayStoreDoubted();
    const std::int32_t count = withDoubted ? counts.stores : counts.stores - counts.asks;
    const std::string from = window.imported.file;
    if (count == 0 || !Store(withDoubted)) return;
    window.ResetPanels();
    window.ShowFileAnew();
    const std::string what = count == 1 ? std::string(texts::OneImported)
                                        : PlainText(count) + std::string(texts::MoreImported);
    window.ShowReceipt(what + from);
}

bool PriceImport::MayStoreDoubted() {
    const std::int32_t count = CountOf(plan_).asks;
    return window.platform.dialogs.Show(
               {.text = PlainText(count) + std::string(count == 1 ? texts::OneFarAboveStart
                                                                  : texts::MoreFarAboveStart),
                .buttons = Buttons::YesNo,
                .icon = Icon::Question,
                .defaultButton = DefaultButton::Second}) == Answer::Yes;
}

/// All of them, or none; false: the user has been told why not.
bool PriceImport::Store(bool withDoubted) {
    std::map<std::size_t, std::vector<DayPrice>> prices;
    for (const ImportedPrice& price : plan_) {
        const bool stores =
            price.fate == ImportFate::Stores || (withDoubted && price.fate == ImportFate::Asks);
        if (stores && price.made) prices[*price.holding].push_back(*price.made);
    }
    const Busy busy;
    try {
        const Change change(window, ImportChange(window.imported.file));
        jet::Transaction together(window.FundDb);
        for (const auto& [at, list] : prices) {
            StoreDayPrices(window.FundDb, holdings_[at].holding, list, window.TodayDay);
        }
        together.Commit();
    } catch (const Error& error) {
        Report(texts::StoreFailed, texts::StoreFailedLog, error);
        return false;
    }
    return true;
}

void PriceImport::panImport_Hide() {
    plan_.clear();
    read_.clear();
    holdings_.clear();
    window.grdImport->SetRows({});
}
