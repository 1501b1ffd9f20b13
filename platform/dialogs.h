#pragma once
// Questions to the user: message boxes, and the choice of a file, a colour and a printer.
// Knows no texts; who asks brings them.

#include "base/colour.h"

#include <optional>
#include <string>

class QPrinter;

enum class Buttons { Ok, OkCancel, YesNo };
enum class Icon { None, Information, Question, Exclamation, Critical };
enum class Answer { Ok, Cancel, Yes, No };
/// The button that Enter presses.
enum class DefaultButton { First, Second };

struct Message {
    std::string text = {};  ///< UTF-8, lines joined by CR LF
    Buttons buttons = Buttons::Ok;
    Icon icon = Icon::None;
    DefaultButton defaultButton = DefaultButton::First;
    bool operator==(const Message&) const = default;
};

enum class FileChoice { Open, Save };

struct FileRequest {
    FileChoice choice = FileChoice::Open;
    std::string title = {};
    std::string filter = {};            ///< "Access mdb|*.mdb"
    std::string folder = {};            ///< where the choice begins
    std::string defaultExtension = {};  ///< "mdb"
    std::string fileName = {};          ///< proposed; may be empty
    bool askBeforeOverwriting = false;
    bool mustExist = false;
    bool operator==(const FileRequest&) const = default;
};

class Dialogs {
  public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    /// Closing the box without a button is the refusing answer: Cancel, No;
    /// Ok where there is only that.
    virtual Answer Show(const Message& message) = 0;
    /// The chosen path, "" when the user cancelled.
    virtual std::string PickFile(const FileRequest& request) = 0;
    virtual std::optional<Colour> PickColour(Colour shownFirst) = 0;
    /// Sets `printer` up as the user wishes; false when the user cancelled.
    virtual bool PickPrinter(QPrinter& printer) = 0;
};
