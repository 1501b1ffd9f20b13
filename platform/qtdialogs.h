#pragma once
// The dialogs of the desktop.

#include "platform/dialogs.h"

#include <optional>
#include <string>

class QPrinter;

class QtDialogs final : public Dialogs {
  public:
    Answer Show(const Message& message) override;
    std::string PickFile(const FileRequest& request) override;
    std::optional<Colour> PickColour(Colour shownFirst) override;
    bool PickPrinter(QPrinter& printer) override;

  private:
    bool MayReplace(const std::string& path);
};
