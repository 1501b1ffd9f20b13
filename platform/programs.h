#pragma once
// Starts outside programs by command line.

#include <string_view>

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

/// "NotePad.exe" is the desktop's plain-text editor, "WinHlp32.exe" the help viewer beside this
/// program.
class DesktopPrograms final : public Programs {
  public:
    void Start(std::string_view commandLine) override;
};
