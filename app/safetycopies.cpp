#include "app/safetycopies.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "fundfile/fundfile.h"
#include "fundfile/schema.h"
#include "fundfile/texts.h"
#include "jet/database.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/qttext.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

#include <chrono>
#include <cstddef>
#include <exception>
#include <utility>

namespace {

std::string NameOf(const CopyName& name) {
    return FormatDay(name.day) +
           (name.number > 1 ? std::string(fundtexts::CopyNumber) + PlainText(name.number) : "");
}

}  // namespace

SafetyCopies::SafetyCopies(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuAterstall, &QAction::triggered, [this] { mnuAterstall_Click(); });
    On(window.cmdAterstall, &QPushButton::clicked, [this] { cmdAterstall_Click(); });
    OnListClick(window.lstKopior, [this] { lstKopior_Click(); });
    OnEvent(window.lstKopior, QEvent::KeyPress,
            [this](const QEvent& event) { return lstKopior_KeyDown(event); });
}

// ---- Making them ----

void SafetyCopies::GuardFile() {
    copiedDay_.reset();
    told_ = false;
    telling_.reset();
    if (!window.FundDb || window.FundDb->ReadOnly()) return;
    const std::filesystem::path file = window.FundDb->Path();
    window.FundDb->CallBeforeStoring([this, file] { BeforeStoring(file); });
}

/// Nothing that goes wrong here may keep the change from being stored.
void SafetyCopies::BeforeStoring(const std::filesystem::path& file) {
    const std::int32_t today = DayNumber(window.platform.clock.Today());
    if (copiedDay_ == today) return;
    try {
        MakeCopyOfDay(file, today);
        copiedDay_ = today;
    } catch (const std::exception&) {
        TellOnce();
    }
}

/// When the procedure that stores is over: it has its own say in the status bar.
void SafetyCopies::TellOnce() {
    if (std::exchange(told_, true)) return;
    telling_ = window.platform.clock.After(std::chrono::milliseconds(0), [this] {
        window.notice = fundtexts::NoSafetyCopy;
        Run([this] { window.ShowState(); });
    });
}

// ---- Restoring one ----

void SafetyCopies::mnuAterstall_Click() {
    if (!window.FundDb || !window.LeaveHoldingsGrid()) return;
    now_ = ContentOf(*window.FundDb);
    FillList();
    window.Put(AfterCopiesMenu(window.State()));
}

void SafetyCopies::FillList() {
    const QSignalBlocker quiet(window.lstKopior);
    window.lstKopior->clear();
    listed_ = SafetyCopiesOf(window.FundDb->Path());
    for (const SafetyCopy& copy : listed_) window.lstKopior->addItem(ToQt(LineOf(copy)));
    window.hasCopies = !listed_.empty();
    window.lstKopior->setCurrentRow(window.hasCopies ? 0 : -1);
    window.copyText =
        window.hasCopies ? TextOf(listed_.front()) : std::string(fundtexts::NoCopiesYet);
}

std::string SafetyCopies::LineOf(const SafetyCopy& copy) const {
    const std::string name = NameOf(copy.name) + "\n    ";
    try {
        const auto file = LoadFundFileCopy(copy.path);
        return name + PlainText(file->StoredRowCount(schema::kHoldingsTable)) +
               std::string(fundtexts::HoldingsInCopy) +
               PlainText(file->StoredRowCount(schema::kPointsTable)) +
               std::string(fundtexts::PointsInCopy);
    } catch (const Error&) {
        return name + std::string(fundtexts::CopyUnreadable);
    }
}

/// What differs from now; or why it cannot be looked at.
std::string SafetyCopies::TextOf(const SafetyCopy& copy) const {
    try {
        return DifferenceText(DifferenceOf(ContentOf(*LoadFundFileCopy(copy.path)), now_));
    } catch (const Error& error) {
        return std::string(fundtexts::Explain(error.Number()));
    }
}

void SafetyCopies::lstKopior_Click() {
    const auto row = static_cast<std::size_t>(window.lstKopior->currentRow());
    if (row >= listed_.size()) return;
    window.copyText = TextOf(listed_[row]);
    window.ShowState();
}

bool SafetyCopies::lstKopior_KeyDown(const QEvent& event) {
    const int key = static_cast<const QKeyEvent&>(event).key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
    cmdAterstall_Click();
    return true;
}

void SafetyCopies::cmdAterstall_Click() {
    const auto row = static_cast<std::size_t>(window.lstKopior->currentRow());
    if (row >= listed_.size() || !window.FundDb) return;
    const SafetyCopy copy = listed_[row];
    if (!window.MayLeaveFile() || !MayRestore(copy)) return;
    try {
        Restore(copy);
    } catch (const Error& error) {
        Complain(copy, error);
    }
}

bool SafetyCopies::MayRestore(const SafetyCopy& copy) {
    return window.platform.dialogs.Show({.text = std::string(fundtexts::AskRestore) +
                                                 NameOf(copy.name) +
                                                 std::string(fundtexts::RestoreReplaces),
                                         .buttons = Buttons::YesNo,
                                         .icon = Icon::Exclamation,
                                         .defaultButton = DefaultButton::Second}) == Answer::Yes;
}

/// Nothing is restored unless the file as it is now has been copied. Whatever happens then, the
/// file is opened anew.
void SafetyCopies::Restore(const SafetyCopy& copy) {
    const std::string path = window.CurrentFile;
    const SafetyCopy former =
        MakeFurtherCopy(window.FundDb->Path(), DayNumber(window.platform.clock.Today()));
    try {
        RestoreFundFile(*window.FundDb, copy.path);
    } catch (const Error&) {
        window.OpenFile(path);
        throw;
    }
    window.OpenFile(path);
    window.notice = std::string(fundtexts::Restored) + NameOf(copy.name) +
                    std::string(fundtexts::FormerState) + former.path.filename().string();
    window.ShowState();
}

void SafetyCopies::Complain(const SafetyCopy& copy, const Error& error) {
    window.platform.dialogs.Show(
        {.text = fundtexts::Failure(fundtexts::NotRestored, copy.path.string(),
                                    fundtexts::Explain(error.Number())),
         .icon = Icon::Exclamation});
}
