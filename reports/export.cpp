#include "reports/export.h"

#include "app/frmPPM.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "fundfile/texts.h"
#include "jet/database.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/wholefile.h"
#include "reports/texts.h"

#include <QAction>

#include <filesystem>
#include <string>
#include <system_error>

namespace {

std::string NameOf(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

}  // namespace

Export::Export(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuExportera, &QAction::triggered, [this] { mnuExportera_Click(); });
}

void Export::mnuExportera_Click() {
    if (!window.FundDb) return;
    const std::string stem = std::filesystem::path(window.CurrentFile).stem().string();
    const std::string path =
        window.platform.dialogs.PickFile({.choice = FileChoice::Save,
                                          .title = std::string(texts::ExportTitle),
                                          .filter = std::string(texts::ExportFiles),
                                          .folder = window.platform.userFolder,
                                          .defaultExtension = "csv",
                                          .fileName = stem + ".csv"});
    if (path.empty() || !window.StoreTypedRows()) return;
    const ExportNames names = ExportNamesFor(path);
    if (!MayReplace(names)) return;
    try {
        Write(names);
    } catch (const Error& error) {
        window.platform.dialogs.Show(
            {.text = fundtexts::Failure(texts::NotExported, names.holdings + "\r\n" + names.prices,
                                        fundtexts::Explain(error.Number())),
             .icon = Icon::Exclamation});
        return;
    }
    window.ShowReceipt(std::string(texts::Exported) + NameOf(names.holdings) +
                       std::string(texts::AndFile) + NameOf(names.prices));
}

/// The dialog asks about the chosen name, which is not that of either file.
bool Export::MayReplace(const ExportNames& names) {
    std::string there;
    for (const std::string& path : {names.holdings, names.prices}) {
        std::error_code code;
        if (std::filesystem::exists(path, code)) {
            there += NameOf(path) + std::string(texts::ReplacedFile);
        }
    }
    return there.empty() ||
           window.platform.dialogs.Show({.text = there + std::string(texts::AskReplace),
                                         .buttons = Buttons::YesNo,
                                         .icon = Icon::Exclamation,
                                         .defaultButton = DefaultButton::Second}) == Answer::Yes;
}

void Export::Write(const ExportNames& names) {
    const auto rows = ReadHoldings(*window.FundDb->OpenRecordSet(schema::kHoldingsSource));
    WriteWholeFiles({{names.holdings, HoldingsCsv(rows)},
                     {names.prices, PointsCsv(rows, ReadPointsByHolding(*window.FundDb))}});
}
