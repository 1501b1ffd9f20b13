#include "app/filedrop.h"

#include "app/frmPPM.h"
#include "platform/platform.h"
#include "platform/qttext.h"

#include <QApplication>
#include <QDropEvent>
#include <QEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <chrono>
#include <filesystem>
#include <optional>
#include <utility>
#include <vector>

namespace {

constexpr std::chrono::milliseconds kPatience{100};

std::vector<std::optional<std::string>> PathsOf(const QDropEvent& event) {
    std::vector<std::optional<std::string>> paths;
    for (const QUrl& url : event.mimeData()->urls()) {
        paths.emplace_back();
        if (url.isLocalFile()) paths.back() = FromQt(url.toLocalFile());
    }
    return paths;
}

/// Never by a move: the file stays where it is.
bool MayTake(const QDropEvent& event) {
    return event.possibleActions().testFlag(Qt::CopyAction) ||
           event.possibleActions().testFlag(Qt::LinkAction);
}

void Take(QDropEvent& event) {
    const bool copies = event.possibleActions().testFlag(Qt::CopyAction);
    event.setDropAction(copies ? Qt::CopyAction : Qt::LinkAction);
    event.accept();
}

/// A question is open, or a menu: it is answered first.
bool IsBusy() {
    return QApplication::activeModalWidget() != nullptr ||
           QApplication::activePopupWidget() != nullptr;
}

}  // namespace

/// Sees files before the field that they are dragged over, which would take their names as text.
class FileDrop::Watch final : public QObject {
  public:
    explicit Watch(FileDrop& drop) : drop_(drop) {}

    bool eventFilter(QObject* receiver, QEvent* event) override {
        if (!IsDrag(event->type()) || !receiver->isWidgetType()) return false;
        if (static_cast<QWidget*>(receiver)->window() != &drop_.window) return false;
        if (event->type() == QEvent::DragLeave) {
            drop_.Run([this] { drop_.LetGo(); });
            return false;
        }
        auto& drag = static_cast<QDropEvent&>(*event);
        if (!drag.mimeData()->hasUrls()) return false;
        drop_.Run([&] { event->type() == QEvent::Drop ? drop_.Drop(drag) : drop_.Hold(drag); });
        return true;
    }

  private:
    static bool IsDrag(QEvent::Type type) {
        return type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::DragLeave ||
               type == QEvent::Drop;
    }

    FileDrop& drop_;
};

FileDrop::FileDrop(frmPPM& ppm) : Controller(ppm), watch_(std::make_unique<Watch>(*this)) {
    QApplication::instance()->installEventFilter(watch_.get());
}

FileDrop::~FileDrop() = default;

DropVerdict FileDrop::Judge(const QDropEvent& event) const {
    return MayTake(event) ? JudgeDrop(PathsOf(event)) : DropVerdict::NoFundFile;
}

void FileDrop::Hold(QDropEvent& event) {
    event.ignore();
    if (IsBusy()) return;
    const DropVerdict verdict = Judge(event);
    if (verdict != DropVerdict::Opens) return Refuse(verdict);
    Take(event);
    window.heldFile = std::filesystem::path(*PathsOf(event).front()).filename().string();
    window.ShowState();
}

void FileDrop::Refuse(DropVerdict verdict) {
    window.heldFile.clear();
    window.ShowReceipt(std::string(DropText(verdict)));
}

void FileDrop::LetGo() {
    window.heldFile.clear();
    window.ShowState();
}

/// The file opens when the drag has ended: whoever it came from waits for that, and no question may
/// keep it waiting.
void FileDrop::Drop(QDropEvent& event) {
    event.ignore();
    LetGo();
    if (IsBusy()) return;
    const DropVerdict verdict = Judge(event);
    if (verdict != DropVerdict::Opens) return Refuse(verdict);
    Take(event);
    dropped_ = *PathsOf(event).front();
    OpenIn(std::chrono::milliseconds(0));
}

/// When the start-up pause has ended, and no question is open that came meanwhile.
void FileDrop::OpenIn(std::chrono::milliseconds pause) {
    opening_ = window.platform.clock.After(pause, [this] {
        if (IsBusy() || window.stage == Stage::Starting) return OpenIn(kPatience);
        window.activateWindow();
        Run([this] { window.OpenChosenFile(dropped_); });
    });
}
