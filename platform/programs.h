#pragma once
// Starts outside programs by command line.

#include <string>
#include <string_view>
#include <utility>

class Programs {
  public:
    Programs() = default;
    Programs(const Programs&) = delete;
    Programs& operator=(const Programs&) = delete;
    virtual ~Programs() = default;

    /// `commandLine` is a program's name, blanks, and the rest. Does not wait for the program.
    /// Throws Error FileNotFound when it cannot be started.
    virtual void Start(std::string_view commandLine) = 0;
};

/// "NotePad.exe" is the desktop's plain-text editor, which is told where a file is not UTF-8 but
/// windows-1252; "WinHlp32.exe" is our help viewer.
class DesktopPrograms final : public Programs {
  public:
    /// The viewer lies in this folder; where it is not there it is looked for on the PATH.
    explicit DesktopPrograms(std::string viewerFolder = {})
        : viewerFolder_(std::move(viewerFolder)) {}
    void Start(std::string_view commandLine) override;

  private:
    std::string viewerFolder_;
};
