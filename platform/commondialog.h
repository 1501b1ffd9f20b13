#pragma once
// The window's one file dialog. Its settings outlive a use: what a command does not set stays.

#include <string>

class Dialogs;
enum class FileChoice;

/// A file whose name lacks the extension would not be found again in the open dialog.
std::string WithExtension(const std::string& path, const std::string& extension);

/// The file that a user means who typed `path` in order to find one: the name that WithExtension
/// gives if there is such a file, else the name as it stands if there is that one, else the name
/// with the extension after it, whatever it ends in.
std::string ExistingFile(const std::string& path, const std::string& extension);

class CommonDialog {
  public:
    static constexpr int kAskBeforeOverwriting = 2;
    static constexpr int kFileMustExist = 4096;

    explicit CommonDialog(Dialogs& dialogs) : dialogs_(dialogs) {}

    std::string filter;  ///< "Access97 mdb|*.mdb"
    std::string initialFolder;
    std::string defaultExtension;  ///< "*.mdb" and "mdb" mean the same
    std::string title;
    int flags = 0;
    std::string fileName;  ///< the choice; stays as it was when the user cancels
    std::string tag;

    void ShowOpen();
    void ShowSave();

  private:
    void Show(FileChoice choice);

    Dialogs& dialogs_;
};
