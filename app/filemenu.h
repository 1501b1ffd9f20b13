#pragma once
// The menu's file commands: new, open, save a copy, delete, and the file to start with.

#include "app/controller.h"
#include "platform/clock.h"

#include <memory>
#include <string>
#include <string_view>

struct FileDialogTexts;
struct FundFile;

class FileMenu : Controller {
  public:
    explicit FileMenu(frmPPM& ppm);

    /// Says why the file can only be read, and offers to take over the lock of another computer.
    void TellAbout(const FundFile& file);
    /// Opens the file in the place of the open one, which may be the same.
    void SwitchTo(const std::string& path);
    /// The same for a file that the user chose: what is half typed may keep the open one.
    void OpenChosen(const std::string& path);
    /// In the status bar that something went well, for some seconds at most.
    void ShowReceipt(std::string text);

  private:
    void mnuNew_Click();
    void mnuOpen_Click();
    void mnuSaveAs_Click();
    void mnuRadera_Click();
    void mnuStartFile_Click();

    void SetUpDialog(const FileDialogTexts& texts);
    std::string FileToWrite(const FileDialogTexts& texts, std::string_view failed);
    void StoreStartFile();
    void ShowOpenedFile(const FundFile& file);
    void ShowNothingOpen();
    void OfferTakeOver(const std::string& why);
    void ShowNotice(std::string text);
    bool AskTwice(const std::string& path);
    bool MayBeReplaced(const std::string& path, std::string_view failed);
    void Complain(std::string_view failed, const std::string& path, const Error& error);
    void Complain(std::string_view failed, const std::string& path, std::string_view why);
    std::string Template() const;

    std::unique_ptr<Clock::Pause> receiptTime_;
};
