#include "app/filemenu.h"

#include "app/frmPPM.h"
#include "app/rules/modes.h"
#include "base/error.h"
#include "base/number.h"
#include "fundfile/newfiles.h"
#include "fundfile/queries.h"
#include "fundfile/sources.h"
#include "fundfile/texts.h"
#include "platform/caption.h"
#include "platform/commondialog.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/settings.h"
#include "widgets/datagrid.h"
#include "widgets/diagramview.h"
#include "widgets/entryfield.h"

#include <QAction>
#include <QCoreApplication>
#include <QEventLoop>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>

#include <filesystem>
#include <system_error>
#include <utility>

struct FileDialogTexts {
    std::string_view filter, title;
};

namespace {

constexpr std::string_view kExtension = "*.mdb";

constexpr FileDialogTexts kNew{fundtexts::FundFiles, fundtexts::NewTitle};
constexpr FileDialogTexts kOpen{fundtexts::FundFiles, fundtexts::OpenTitle};
constexpr FileDialogTexts kStartFile{fundtexts::FundFiles, fundtexts::StartFileTitle};
constexpr FileDialogTexts kSaveAs{fundtexts::FundFiles, fundtexts::SaveAsTitle};
constexpr FileDialogTexts kDelete{fundtexts::FilesToDelete, fundtexts::DeleteTitle};

/// By whatever name: a link to a file is that file, and one that is missing is its path.
bool IsSameFile(const std::filesystem::path& one, const std::filesystem::path& other) {
    std::error_code code;
    if (std::filesystem::equivalent(one, other, code)) return true;
    const std::filesystem::path real = std::filesystem::weakly_canonical(one, code);
    return !code && real == std::filesystem::weakly_canonical(other, code);
}

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
        StoreStartFile();
        return;
    }
    if (dialog.fileName.empty()) return;
    // A row that is still being typed belongs to the file that is open now.
    if (window.StoreTypedRows()) SwitchTo(dialog.fileName);
}

/// The file to start with is always the same one, whatever the dialog gave.
void FileMenu::StoreStartFile() {
    if (window.DayStep == 0) window.DayStep = 1;
    window.CurrentFile = window.AppFolder + std::string(fundtexts::StartFile);
    SettingsStore& store = window.platform.settings;
    store.Save(settings::kApplication, settings::kStartUp, settings::kStartPath,
               window.CurrentFile);
    store.Save(settings::kApplication, settings::kStartUp, settings::kStartX,
               PlainText(window.DayStep));
}

void FileMenu::SwitchTo(const std::string& path) {
    const std::string formerName = window.CurrentFile;
    const std::string formerFile = window.FundDb ? window.FundDb->Path().string() : std::string();
    try {
        const FundFile tried = OpenFundFile(path);  // fails before anything has changed
        window.CurrentFile = path;
        Bind(path);
    } catch (const Error& error) {
        window.CurrentFile = formerName;
        if (!window.FundDb && !formerFile.empty()) GoBackTo(formerFile);
        Complain(fundtexts::NotOpened, path, error);
        return;
    }
    ShowOpenedFile();
}

void FileMenu::Bind(const std::string& path) {
    window.dtaSQL->SetRecordSet(nullptr);
    CloseFundFile(window.FundDb);
    const FundFile file =
        OpenAndBind(path, {*window.dtaBasData, *window.dtaPlott}, queries::AllPointsAfterOpening());
    window.FundDb = file.database;
    notice_ = fundtexts::Explain(file);
}

void FileMenu::GoBackTo(const std::string& formerFile) {
    Skipping skip;
    skip([&] {
        Bind(formerFile);
        ShowOpenedFile();
    });
}

void FileMenu::ShowOpenedFile() {
    window.Activate();
    LetPendingEventsRun();
    window.Put(AfterFileOpened(window.State()));
    if (window.hasHoldings) {
        SetCaption(window.lblRecCount, std::string(fundtexts::ListHolds) +
                                           PlainText(window.dtaPlott->RecordCount()) +
                                           std::string(fundtexts::Rows));
    }
    if (!notice_.empty()) Tell(notice_);
}

void FileMenu::mnuSaveAs_Click() {
    const std::string path = FileToWrite(kSaveAs, fundtexts::NotCopied);
    if (path.empty()) return;
    if (!window.StoreTypedRows()) return;
    try {
        SaveCopy(*window.dtaBasData, *window.dtaPlott, Template(), path);
    } catch (const Error& error) {
        Complain(fundtexts::NotCopied, path, error);
    }
}

void FileMenu::mnuRadera_Click() {
    SetUpDialog(kDelete);  // the flags of the dialog's last use stay
    window.CmDialog->ShowOpen();
    const std::string path = window.CmDialog->fileName;
    if (!AskTwice(path)) return;
    try {
        DeleteFundFile(path);
    } catch (const Error& error) {
        // Any other failure ends the command without a word, a cancelled dialog among them.
        if (error.Number() == ErrorNumber::FileInUse) Tell(fundtexts::NotDeleted);
    }
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
    if (!IsSameFile(path, Template())) return true;
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
