#pragma once
// The menu's file commands: new, open, save a copy, delete, and the file to start with.

#include "app/controller.h"

#include <string>
#include <string_view>

struct FileDialogTexts;

class FileMenu : Controller {
  public:
    explicit FileMenu(frmPPM& window);

  private:
    void mnuNew_Click();
    void mnuOpen_Click();
    void mnuSaveAs_Click();
    void mnuRadera_Click();
    void mnuStartFile_Click();

    void SetUpDialog(const FileDialogTexts& texts);
    std::string FileToWrite(const FileDialogTexts& texts, std::string_view failed);
    void StoreStartFile();
    void SwitchTo(const std::string& path);
    void Bind(const std::string& path);
    void GoBackTo(const std::string& formerFile);
    void ShowOpenedFile();
    bool AskTwice(const std::string& path);
    bool MayBeReplaced(const std::string& path, std::string_view failed);
    void Complain(std::string_view failed, const std::string& path, const Error& error);
    void Complain(std::string_view failed, const std::string& path, std::string_view why);
    std::string Template() const;

    std::string notice_;  ///< why the open file cannot be changed; "" when it can
};
