#pragma once
// A whole outside world for tests: scripted dialogs, a fixed date with hand-driven timers, settings
// in memory, a printer that makes a PDF, recorded programs and a fixed
// screen. Key strokes are real.

#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/keystrokes.h"
#include "platform/platform.h"
#include "platform/printing.h"
#include "platform/programs.h"
#include "platform/screen.h"
#include "platform/settings.h"

#include <QPointer>
#include <QRect>
#include <QSize>
#include <QTemporaryDir>

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

class QPrinter;

std::ostream& operator<<(std::ostream& out, const Message& message);
std::ostream& operator<<(std::ostream& out, const FileRequest& request);

/// The questions a test expects, in order, with their answers. A question that differs, comes
/// unexpectedly or is not asked by the end of the test fails the test.
class ScriptedDialogs final : public Dialogs {
  public:
    ~ScriptedDialogs() override { Verify(); }

    class Step {
      public:
        explicit Step(ScriptedDialogs& dialogs, std::size_t at) : dialogs_(dialogs), at_(at) {}
        /// Without it the answer is Ok.
        Step& Answer(::Answer answer);
        /// Runs while the box is open, before it is answered.
        Step& Meanwhile(std::function<void()> look);

      private:
        ScriptedDialogs& dialogs_;
        std::size_t at_;
    };
    class FileStep {
      public:
        explicit FileStep(ScriptedDialogs& dialogs, std::size_t at) : dialogs_(dialogs), at_(at) {}
        FileStep& Pick(std::string path);
        FileStep& Cancel() { return Pick(""); }
        /// Runs while the dialog is open, before it is answered.
        FileStep& Meanwhile(std::function<void()> look);

      private:
        ScriptedDialogs& dialogs_;
        std::size_t at_;
    };

    Step Expect(std::string_view text, Buttons buttons = Buttons::Ok, Icon icon = Icon::None,
                DefaultButton defaultButton = DefaultButton::First);
    FileStep ExpectFile(FileRequest request);
    /// Title and kind are what tells the commands apart;
    /// the rest of the request is in LastFileRequest.
    FileStep ExpectFile(FileChoice choice, std::string_view title);
    void ExpectColour(Colour shownFirst, std::optional<Colour> picked);
    /// Whatever colour is shown first.
    void ExpectColour(std::optional<Colour> picked);

    /// Fails the test for every question that is still to come, and forgets them.
    void Verify();
    const FileRequest& LastFileRequest() const { return lastFileRequest_; }
    const std::vector<Message>& Shown() const { return shown_; }

    ::Answer Show(const Message& message) override;
    std::string PickFile(const FileRequest& request) override;
    std::optional<Colour> PickColour(Colour shownFirst) override;
    bool PickPrinter(QPrinter& printer) override;

  private:
    struct Expectation {
        enum class Kind { Box, File, Colour } kind = Kind::Box;
        Message message;
        ::Answer answer = ::Answer::Ok;
        std::function<void()> look;
        FileRequest file;
        bool wholeFileRequest = false;
        std::string path;
        std::optional<Colour> shownFirst, picked;
    };
    std::optional<Expectation> Next(Expectation::Kind kind, const std::string& asked);

    std::deque<Expectation> script_;
    std::size_t taken_ = 0;
    std::vector<Message> shown_;
    FileRequest lastFileRequest_;
};

/// Time stands still until a test moves it.
class FixedClock final : public Clock {
  public:
    std::chrono::year_month_day Today() const override { return today_; }
    void SetToday(std::chrono::year_month_day today) { today_ = today; }
    [[nodiscard]] std::unique_ptr<Pause> After(std::chrono::milliseconds length,
                                               std::function<void()> tick) override;
    /// Lets `length` pass; pauses that end in it tick in their order.
    void Pass(std::chrono::milliseconds length);
    /// How long the pauses that are running still have to go, shortest first.
    std::vector<std::chrono::milliseconds> Running() const;

  private:
    struct Waiting {
        std::chrono::milliseconds at;
        std::function<void()> tick;
    };
    class FixedPause;
    std::chrono::year_month_day today_{std::chrono::year{2026}, std::chrono::November,
                                       std::chrono::day{16}};
    std::chrono::milliseconds now_{0};
    std::shared_ptr<std::map<int, Waiting>> waiting_ = std::make_shared<std::map<int, Waiting>>();
    int next_ = 0;
};

class MemorySettings final : public SettingsStore {
  public:
    std::string Get(std::string_view application, std::string_view section,
                    std::string_view key) const override;
    void Save(std::string_view application, std::string_view section, std::string_view key,
              std::string_view text) override;
    /// True: Save throws PermissionDenied.
    bool broken = false;

  private:
    std::map<std::string, std::string> texts_;
};

class RecordingPrograms final : public Programs {
  public:
    void Start(std::string_view commandLine) override;
    std::vector<std::string> started;
    /// True: nothing can be started (FileNotFound).
    bool missing = false;
};

class FixedScreen final : public Screen {
  public:
    QRect Area() const override { return area; }
    QSize RoomForWindow() const override { return room.value_or(area.size()); }
    float TextSize() const override { return textSize; }
    QRect area{0, 0, 800, 600};
    float textSize = 1;
    std::optional<QSize> room;  ///< none: the whole area
};

/// A page that becomes a PDF file. Throws Error PrinterError when the file cannot be written.
std::unique_ptr<PrinterPage> PdfPage(std::string_view path, std::string_view documentName);

/// Prints to PDF files in a folder of its own.
class PdfPrinting final : public Printing {
  public:
    std::unique_ptr<PrinterPage> Begin(std::string_view documentName) override;
    Previewed Preview(std::string_view documentName, const DrawDocument& draw) override;
    std::vector<std::string> previews;  ///< one for each document that was looked at
    Previewed afterPreview = Previewed::Closed;
    std::vector<std::string> files;  ///< one for each document, in order
    bool cancel = false;             ///< the user cancels the print dialog
    bool broken = false;             ///< the printer fails (PrinterError)

  private:
    QTemporaryDir folder_;
};

/// All of them. Build the window with `platform`. The program folder is empty and writable unless a
/// test sets another.
class FakePlatform {
  public:
    FakePlatform();
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    ScriptedDialogs dialogs;
    FixedClock clock;
    MemorySettings settings;
    PdfPrinting printing;
    RecordingPrograms programs;
    FixedScreen screen;
    FocusKeyStrokes keyStrokes;
    QTemporaryDir folder;  ///< the program folder
    Platform platform;
};
