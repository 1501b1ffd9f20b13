#include "app/filemenu.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/error.h"
#include "base/number.h"
#include "fundfile/newfiles.h"
#include "fundfile/queries.h"
#include "fundfile/sources.h"
#include "fundfile/texts.h"
#include "jet/database.h"
#include "jet/files.h"
#include "platform/commondialog.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/settings.h"

#include <QAction>
#include <QCoreApplication>
#include <QEventLoop>

#include <chrono>
#include <filesystem>
#include <system_error>
#include <utility>

struct FileDialogTexts {
    std::string_view filter, title;
};

namespace {

constexpr std::string_view kExtension = "*.mdb";
constexpr std::chrono::seconds kReceiptTime{8};

constexpr FileDialogTexts kNew{fundtexts::FundFiles, fundtexts::NewTitle};
constexpr FileDialogTexts kOpen{fundtexts::FundFiles, fundtexts::OpenTitle};
constexpr FileDialogTexts kStartFile{fundtexts::FundFiles, fundtexts::StartFileTitle};
constexpr FileDialogTexts kSaveAs{fundtexts::FundFiles, fundtexts::SaveAsTitle};
constexpr FileDialogTexts kDelete{fundtexts::FilesToDelete, fundtexts::DeleteTitle};

/// Windows are painted; keys and clicks wait, so that none arrives in the middle of a procedure.
void LetPendingEventsRun() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace

FileMenu::FileMenu(frmPPM& ppm) : Controller(ppm) {
    On(window.mnuNew, &QAction::triggered, [this] { mnuNew_Click(); });
    On(window.mnuOpen, &QAction::triggered, [this] { mnuOpen_Click(); });
    On(window.mnuSaveAs, &QAction::triggered, [this] { mnuSaveAs_Click(); });
    On(window.mnuRadera, &QAction::triggered, [this] { mnuRadera_Click(); });
    On(window.mnuStartFile, &QAction::triggered, [this] { mnuStartFile_Click(); });
}

void FileMenu::SetUpDialog(const FileDialogTexts& texts) {
    CommonDialog& dialog = *window.CmDialog;
    dialog.filter = texts.filter;
    dialog.title = texts.title;
    dialog.initialFolder = window.AppFolder;
    dialog.defaultExtension = kExtension;
    dialog.fileName.clear();
}

/// Empty when the dialog was cancelled, or the user has been told why the file cannot be written.
std::string FileMenu::FileToWrite(const FileDialogTexts& texts, std::string_view failed) {
    SetUpDialog(texts);
    window.CmDialog->flags = CommonDialog::kAskBeforeOverwriting;
    window.CmDialog->ShowSave();
    const std::string path = window.CmDialog->fileName;
    return path.empty() || MayBeReplaced(path, failed) ? path : "";
}

void FileMenu::mnuNew_Click() {
    const std::string path = FileToWrite(kNew, fundtexts::NotCreated);
    if (path.empty()) return;
    try {
        CreateFundFile(Template(), path);
    } catch (const Error& error) {
        Complain(fundtexts::NotCreated, path, error);
        return;
    }
    LetPendingEventsRun();
    const Answer answer = window.platform.dialogs.Show({.text = std::string(fundtexts::OpenNewFile),
                                                        .buttons = Buttons::YesNo,
                                                        .icon = Icon::Question});
    // The user picks the new file once more: the dialog comes up with an empty name.
    if (answer == Answer::Yes) mnuOpen_Click();
}

void FileMenu::mnuOpen_Click() {
    CommonDialog& dialog = *window.CmDialog;
    const bool choosesStartFile = window.choosingStartFile;
    SetUpDialog(choosesStartFile ? kStartFile : kOpen);
    dialog.flags = CommonDialog::kFileMustExist;
    dialog.ShowOpen();
    if (choosesStartFile) {
        // First: the next use is an ordinary one even if storing fails.
        window.choosingStartFile = false;
        window.ShowState();
        if (!dialog.fileName.empty()) StoreStartFile();
        return;
    }
    if (!dialog.fileName.empty()) OpenChosen(dialog.fileName);
}

void FileMenu::OpenChosen(const std::string& path) {
    // What is still being typed belongs to the file that is open now.
    if (window.MayLeaveFile()) SwitchTo(path);
}

/// The file to start with is always the same one, whatever the dialog gave.
void FileMenu::StoreStartFile() {
    if (window.DayStep == 0) window.DayStep = 1;
    const std::string startFile = window.AppFolder + std::string(fundtexts::StartFile);
    SettingsStore& store = window.platform.settings;
    try {
        store.Save(settings::kApplication, settings::kStartUp, settings::kStartPath, startFile);
        store.Save(settings::kApplication, settings::kStartUp, settings::kStartX,
                   PlainText(window.DayStep));
    } catch (const Error&) {
        Complain(fundtexts::StartFileNotStored, startFile, fundtexts::SettingsNotWritten);
        return;
    }
    ShowReceipt(std::string(fundtexts::StartsWith) + std::string(fundtexts::StartFile));
}

void FileMenu::SwitchTo(const std::string& path) {
    window.dtaSQL->SetRecordSet(nullptr);
    const bool hadFile = window.FundDb != nullptr;
    FundFile file;
    try {
        file = OpenInPlaceOf(window.FundDb, path, {*window.dtaBasData, *window.dtaPlott},
                             queries::AllPointsAfterOpening());
    } catch (const Error& error) {
        if (hadFile && !window.FundDb) {
            window.NoFileReason = fundtexts::NothingOpen(path, error.Number());
            ShowNothingOpen();
        }
        Complain(fundtexts::NotOpened, path, error);
        return;
    }
    window.FundDb = file.database;
    window.CurrentFile = path;
    ShowOpenedFile(file);
}

void FileMenu::ShowOpenedFile(const FundFile& file) {
    window.NoFileReason.clear();
    window.Activate();
    LetPendingEventsRun();
    window.Put(AfterFileOpened(window.State()));
    if (window.hasHoldings) {
        window.pointCount = window.dtaPlott->RecordCount();
        window.ShowState();
    }
    TellAbout(file);
}

void FileMenu::ShowNothingOpen() {
    window.Activate();
    window.Put(AfterFileLost(window.State()));
}

void FileMenu::TellAbout(const FundFile& file) {
    if (!file.foreignLock.empty()) {
        ShowNotice(file.foreignLock + std::string(fundtexts::MayBeOpenElsewhere));
    }
    const std::string why = fundtexts::Explain(file);
    if (file.right == WriteRight::OtherComputer) {
        OfferTakeOver(why);
    } else if (!why.empty()) {
        Tell(why);
    }
}

/// Nobody here can know whether the other computer's copy is alive: the user says so.
void FileMenu::OfferTakeOver(const std::string& why) {
    const Answer answer =
        window.platform.dialogs.Show({.text = why + std::string(fundtexts::TakeOver),
                                      .buttons = Buttons::YesNo,
                                      .icon = Icon::Exclamation,
                                      .defaultButton = DefaultButton::Second});
    if (answer != Answer::Yes) return;
    const std::string path = window.CurrentFile;
    try {
        BreakLock(path);
    } catch (const Error& error) {
        Complain(fundtexts::LockNotBroken, path, error);
        return;
    }
    SwitchTo(path);
}

void FileMenu::mnuSaveAs_Click() {
    const std::string path = FileToWrite(kSaveAs, fundtexts::NotCopied);
    if (path.empty()) return;
    if (!window.StoreTypedRows()) return;
    try {
        if (!window.FundDb) throw Error{kObjectNotSet, "no fund file is open"};
        // All of them: the grid may show those of one holding.
        SaveCopy(*window.dtaBasData, *window.FundDb->OpenRecordSet(queries::AllPoints()),
                 Template(), path);
    } catch (const Error& error) {
        Complain(fundtexts::NotCopied, path, error);
        return;
    }
    ShowReceipt(std::string(fundtexts::CopySaved) +
                std::filesystem::path(path).filename().string());
}

void FileMenu::mnuRadera_Click() {
    SetUpDialog(kDelete);  // the flags of the dialog's last use stay
    window.CmDialog->ShowOpen();
    const std::string path = window.CmDialog->fileName;
    if (path.empty()) return;
    // Nobody is asked about a file that is not there.
    std::error_code code;
    if (!std::filesystem::exists(path, code)) {
        Complain(fundtexts::NotRemoved, path, fundtexts::Explain(ErrorNumber::FileNotFound));
        return;
    }
    if (!AskTwice(path)) return;
    try {
        DeleteFundFile(path);
    } catch (const Error& error) {
        // Any other failure ends the command without a word.
        if (error.Number() == ErrorNumber::FileInUse) Tell(fundtexts::NotDeleted);
    }
}

/// Over the status bar, until that has something else to tell.
void FileMenu::ShowNotice(std::string text) {
    receiptTime_.reset();
    window.notice = std::move(text);
    window.ShowState();
}

void FileMenu::ShowReceipt(std::string text) {
    ShowNotice(std::move(text));
    receiptTime_ = window.platform.clock.After(kReceiptTime, [this] {
        window.notice.clear();
        Run([this] { window.ShowState(); });
    });
}

bool FileMenu::AskTwice(const std::string& path) {
    const auto agrees = [this](std::string text, Icon icon) {
        return window.platform.dialogs.Show({.text = std::move(text),
                                             .buttons = Buttons::YesNo,
                                             .icon = icon,
                                             .defaultButton = DefaultButton::Second}) ==
               Answer::Yes;
    };
    return agrees(std::string(fundtexts::DeleteQuestion), Icon::Question) &&
           agrees(
               std::string(fundtexts::FileToDelete) + path + std::string(fundtexts::WillBeDeleted),
               Icon::Exclamation);
}

void FileMenu::mnuStartFile_Click() {
    window.choosingStartFile = true;
    window.ShowState();
    mnuOpen_Click();
}

/// Rows in the template would be rows in every new file, and a lost template the last new file.
bool FileMenu::MayBeReplaced(const std::string& path, std::string_view failed) {
    if (!jet::IsSameFile(path, Template())) return true;
    Complain(failed, path, fundtexts::IsTemplate);
    return false;
}

void FileMenu::Complain(std::string_view failed, const std::string& path, const Error& error) {
    Complain(failed, path, fundtexts::Explain(error.Number()));
}

void FileMenu::Complain(std::string_view failed, const std::string& path, std::string_view why) {
    window.platform.dialogs.Show(
        {.text = fundtexts::Failure(failed, path, why), .icon = Icon::Exclamation});
}

std::string FileMenu::Template() const {
    return window.AppFolder + std::string(fundtexts::TemplateFile);
}
