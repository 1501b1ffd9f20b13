#include "tests/support/fakeplatform.h"

#include "base/error.h"
#include "platform/qttext.h"

#include <QMarginsF>
#include <QPageSize>
#include <QPdfWriter>
#include <QPrinter>

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <ostream>
#include <utility>

std::ostream& operator<<(std::ostream& out, const Message& message) {
    constexpr const char* kButtons[] = {"OK", "OK/Cancel", "Yes/No"};
    constexpr const char* kIcons[] = {"no icon", "information", "question", "exclamation",
                                      "critical"};
    out << '"' << message.text << "\" [" << kButtons[static_cast<int>(message.buttons)] << ", "
        << kIcons[static_cast<int>(message.icon)];
    return out << (message.defaultButton == DefaultButton::First ? ", first" : ", second")
               << " button is the default]";
}

std::ostream& operator<<(std::ostream& out, const FileRequest& request) {
    out << (request.choice == FileChoice::Open ? "open" : "save") << " \"" << request.title
        << "\" filter \"" << request.filter << "\" folder \"" << request.folder << "\" extension \""
        << request.defaultExtension << "\" name \"" << request.fileName << '"';
    if (request.askBeforeOverwriting) out << " asks before overwriting";
    if (request.mustExist) out << " must exist";
    return out;
}

// ---- Dialogs ----

ScriptedDialogs::Step& ScriptedDialogs::Step::Answer(::Answer answer) {
    dialogs_.script_.at(at_ - dialogs_.taken_).answer = answer;
    return *this;
}

ScriptedDialogs::Step& ScriptedDialogs::Step::Meanwhile(std::function<void()> look) {
    dialogs_.script_.at(at_ - dialogs_.taken_).look = std::move(look);
    return *this;
}

ScriptedDialogs::FileStep& ScriptedDialogs::FileStep::Pick(std::string path) {
    dialogs_.script_.at(at_ - dialogs_.taken_).path = std::move(path);
    return *this;
}

ScriptedDialogs::FileStep& ScriptedDialogs::FileStep::Meanwhile(std::function<void()> look) {
    dialogs_.script_.at(at_ - dialogs_.taken_).look = std::move(look);
    return *this;
}

ScriptedDialogs::Step ScriptedDialogs::Expect(std::string_view text, Buttons buttons, Icon icon,
                                              DefaultButton defaultButton) {
    Expectation expected;
    expected.message = {std::string(text), buttons, icon, defaultButton};
    script_.push_back(std::move(expected));
    return Step(*this, taken_ + script_.size() - 1);
}

ScriptedDialogs::FileStep ScriptedDialogs::ExpectFile(FileRequest request) {
    Expectation expected;
    expected.kind = Expectation::Kind::File;
    expected.file = std::move(request);
    expected.wholeFileRequest = true;
    script_.push_back(std::move(expected));
    return FileStep(*this, taken_ + script_.size() - 1);
}

ScriptedDialogs::FileStep ScriptedDialogs::ExpectFile(FileChoice choice, std::string_view title) {
    Expectation expected;
    expected.kind = Expectation::Kind::File;
    expected.file.choice = choice;
    expected.file.title = title;
    script_.push_back(std::move(expected));
    return FileStep(*this, taken_ + script_.size() - 1);
}

void ScriptedDialogs::ExpectColour(Colour shownFirst, std::optional<Colour> picked) {
    ExpectColour(picked);
    script_.back().shownFirst = shownFirst;
}

void ScriptedDialogs::ExpectColour(std::optional<Colour> picked) {
    Expectation expected;
    expected.kind = Expectation::Kind::Colour;
    expected.picked = picked;
    script_.push_back(std::move(expected));
}

void ScriptedDialogs::Verify() {
    for (const Expectation& expected : script_) {
        switch (expected.kind) {
            case Expectation::Kind::Box:
                ADD_FAILURE() << "never asked: " << expected.message;
                break;
            case Expectation::Kind::File:
                ADD_FAILURE() << "never asked: " << expected.file;
                break;
            case Expectation::Kind::Colour:
                ADD_FAILURE() << "never asked for a colour";
                break;
        }
    }
    taken_ += script_.size();
    script_.clear();
}

std::optional<ScriptedDialogs::Expectation> ScriptedDialogs::Next(Expectation::Kind kind,
                                                                  const std::string& asked) {
    if (script_.empty() || script_.front().kind != kind) {
        ADD_FAILURE() << "unexpected: " << asked;
        return std::nullopt;
    }
    Expectation expected = std::move(script_.front());
    script_.pop_front();
    ++taken_;
    return expected;
}

::Answer ScriptedDialogs::Show(const Message& message) {
    shown_.push_back(message);
    const std::optional<Expectation> expected =
        Next(Expectation::Kind::Box, ::testing::PrintToString(message));
    if (!expected) {
        if (message.buttons == Buttons::Ok) return ::Answer::Ok;
        return message.buttons == Buttons::YesNo ? ::Answer::No : ::Answer::Cancel;
    }
    EXPECT_EQ(message, expected->message);
    if (expected->look) expected->look();
    return expected->answer;
}

std::string ScriptedDialogs::PickFile(const FileRequest& request) {
    lastFileRequest_ = request;
    const std::optional<Expectation> expected =
        Next(Expectation::Kind::File, ::testing::PrintToString(request));
    if (!expected) return "";
    if (expected->wholeFileRequest) {
        EXPECT_EQ(request, expected->file);
    } else {
        EXPECT_EQ(request.choice, expected->file.choice);
        EXPECT_EQ(request.title, expected->file.title);
    }
    if (expected->look) expected->look();
    return expected->path;
}

std::optional<Colour> ScriptedDialogs::PickColour(Colour shownFirst) {
    const std::optional<Expectation> expected = Next(Expectation::Kind::Colour, "a colour");
    if (!expected) return std::nullopt;
    if (expected->shownFirst) {
        EXPECT_TRUE(*expected->shownFirst == shownFirst) << "another colour is shown first";
    }
    return expected->picked;
}

bool ScriptedDialogs::PickPrinter(QPrinter&) {
    ADD_FAILURE() << "unexpected: a real printer";
    return false;
}

// ---- Time ----

class FixedClock::FixedPause final : public Clock::Pause {
  public:
    FixedPause(std::shared_ptr<std::map<int, Waiting>> waiting, int key)
        : waiting_(std::move(waiting)), key_(key) {}
    ~FixedPause() override { waiting_->erase(key_); }

  private:
    std::shared_ptr<std::map<int, Waiting>> waiting_;
    int key_;
};

std::unique_ptr<Clock::Pause> FixedClock::After(std::chrono::milliseconds length,
                                                std::function<void()> tick) {
    const int key = next_++;
    waiting_->emplace(key, Waiting{now_ + length, std::move(tick)});
    return std::make_unique<FixedPause>(waiting_, key);
}

void FixedClock::Pass(std::chrono::milliseconds length) {
    const std::chrono::milliseconds end = now_ + length;
    while (true) {
        const auto first = std::min_element(
            waiting_->begin(), waiting_->end(),
            [](const auto& a, const auto& b) { return a.second.at < b.second.at; });
        if (first == waiting_->end() || first->second.at > end) break;
        now_ = std::max(now_, first->second.at);
        const std::function<void()> tick = std::move(first->second.tick);
        waiting_->erase(first);
        tick();
    }
    now_ = end;
}

std::vector<std::chrono::milliseconds> FixedClock::Running() const {
    std::vector<std::chrono::milliseconds> left;
    for (const auto& [key, waiting] : *waiting_) left.push_back(waiting.at - now_);
    std::sort(left.begin(), left.end());
    return left;
}

// ---- Settings, programs, printer ----

namespace {

std::string Address(std::string_view application, std::string_view section, std::string_view key) {
    return std::string(application) + '\n' + std::string(section) + '\n' + std::string(key);
}

}  // namespace

std::string MemorySettings::Get(std::string_view application, std::string_view section,
                                std::string_view key) const {
    const auto found = texts_.find(Address(application, section, key));
    return found == texts_.end() ? "" : found->second;
}

void MemorySettings::Save(std::string_view application, std::string_view section,
                          std::string_view key, std::string_view text) {
    if (broken) throw Error{ErrorNumber::PermissionDenied, "the settings cannot be written"};
    texts_[Address(application, section, key)] = text;
}

void RecordingPrograms::Start(std::string_view commandLine) {
    if (missing) throw Error{ErrorNumber::FileNotFound, "nothing can be started"};
    started.emplace_back(commandLine);
}

std::unique_ptr<PrinterPage> PdfPage(std::string_view path, std::string_view documentName) {
    auto writer = std::make_unique<QPdfWriter>(ToQt(path));
    writer->setTitle(ToQt(documentName));
    writer->setResolution(600);
    writer->setPageSize(QPageSize(QPageSize::A4));
    writer->setPageMargins(QMarginsF(0, 0, 0, 0));
    return std::make_unique<PrinterPage>(std::move(writer));
}

std::unique_ptr<PrinterPage> PdfPrinting::Begin(std::string_view documentName) {
    if (cancel) return nullptr;
    // Its file cannot be made: the failure is the real page's own.
    if (broken) {
        return PdfPage(FromQt(folder_.filePath(QStringLiteral("missing/page.pdf"))), documentName);
    }
    files.push_back(FromQt(folder_.filePath(QStringLiteral("page%1.pdf").arg(files.size() + 1))));
    return PdfPage(files.back(), documentName);
}

Previewed PdfPrinting::Preview(std::string_view documentName, const DrawDocument& draw) {
    const std::string file =
        FromQt(folder_.filePath(QStringLiteral("preview%1.pdf").arg(previews.size() + 1)));
    draw(*PdfPage(file, documentName));
    previews.push_back(file);
    return afterPreview;
}

FakePlatform::FakePlatform()
    : platform{dialogs,
               clock,
               settings,
               printing,
               programs,
               screen,
               keyStrokes,
               FromQt(folder.path()),
               FromQt(folder.path())} {}
