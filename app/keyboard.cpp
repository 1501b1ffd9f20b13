#include "app/keyboard.h"

#include "app/frmPPM.h"
#include "app/texts.h"
#include "base/text.h"
#include "platform/dialogs.h"
#include "platform/platform.h"
#include "platform/qttext.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"
#include "widgets/diagramview.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>

#include <optional>
#include <string>

namespace {

std::optional<FunctionKey> FunctionKeyOf(int key) {
    switch (key) {
        case Qt::Key_Home:
            return FunctionKey::Home;
        case Qt::Key_Left:
            return FunctionKey::Left;
        case Qt::Key_Right:
            return FunctionKey::Right;
        case Qt::Key_F6:
            return FunctionKey::F6;
        case Qt::Key_F7:
            return FunctionKey::F7;
        case Qt::Key_F1:
            return FunctionKey::F1;
        case Qt::Key_F8:
            return FunctionKey::F8;
        case Qt::Key_F9:
            return FunctionKey::F9;
        case Qt::Key_F11:
            return FunctionKey::F11;
        case Qt::Key_F12:
            return FunctionKey::F12;
        default:
            return std::nullopt;
    }
}

constexpr auto kCommandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

}  // namespace

/// Looks at every key that is on its way to a control of the window.
class Keyboard::Preview final : public QObject {
  public:
    explicit Preview(Keyboard& keyboard) : keyboard_(keyboard) {}

    bool eventFilter(QObject* receiver, QEvent* event) override {
        const bool press = event->type() == QEvent::KeyPress;
        if (!press && event->type() != QEvent::KeyRelease) return false;
        if (!FirstReceiver(receiver)) return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        bool swallowed = false;
        keyboard_.Run([&] {
            if (press) swallowed = keyboard_.Form_KeyPress(key);
            if (!press && !key.isAutoRepeat()) keyboard_.Form_KeyUp(key);
        });
        return swallowed;
    }

  private:
    /// The control that has the focus, or the window without one: a key that a control leaves alone
    /// comes again for each of its parents.
    bool FirstReceiver(QObject* receiver) const {
        if (!receiver->isWidgetType()) return false;
        auto* widget = static_cast<QWidget*>(receiver);
        if (widget->window() != &keyboard_.window) return false;
        const QWidget* focused = keyboard_.window.focusWidget();
        return widget == focused || (focused == nullptr && widget == &keyboard_.window);
    }

    Keyboard& keyboard_;
};

Keyboard::Keyboard(frmPPM& ppm) : Controller(ppm), preview_(std::make_unique<Preview>(*this)) {
    QApplication::instance()->installEventFilter(preview_.get());
}

Keyboard::~Keyboard() = default;

ShownPanels Keyboard::KeyPanels() const {
    return {.holdings = GridShown(window.State()),
            .plotData = window.left == LeftPanel::PlotData,
            .page = PageShown(window.State()),
            .colourButton = window.modeButtons,
            .curvesButton = window.modeButtons};
}

/// Until the start-up pause has ended there is no panel that a key could serve.
bool Keyboard::Waits() const {
    return window.stage == Stage::Starting;
}

bool Keyboard::Form_KeyPress(const QKeyEvent& event) {
    if (Waits() || (event.modifiers() & kCommandKeys) != Qt::NoModifier) return false;
    char32_t typed = 0;
    if (event.key() == Qt::Key_Escape) typed = 27;
    const std::u32string text = ToCodePoints(FromQt(event.text()));
    if (typed == 0 && text.size() == 1) typed = text.front();
    if (typed == 0) return false;
    const KeyAction action = OnKeyPress(typed, KeyPanels());
    Act(action);
    return action != KeyAction::None;
}

void Keyboard::Form_KeyUp(const QKeyEvent& event) {
    if (Waits() || (event.modifiers() & kCommandKeys) != Qt::NoModifier) return;
    const auto key = FunctionKeyOf(event.key());
    if (!key) return;
    ShownPanels shown = KeyPanels();
    shown.inPicture = window.focusWidget() == window.picDiagram;
    shown.withShift = event.modifiers().testFlag(Qt::ShiftModifier);
    Act(OnKeyUp(*key, shown));
}

void Keyboard::Act(KeyAction action) {
    switch (action) {
        case KeyAction::None:
            return;
        case KeyAction::ScrollLeft:
            return window.Image4_MouseUp(Qt::LeftButton);
        case KeyAction::ScrollRight:
            return window.Image5_MouseUp(Qt::LeftButton);
        case KeyAction::ScrollYearLeft:
            return window.Image4_MouseUp(Qt::RightButton);
        case KeyAction::ScrollYearRight:
            return window.Image5_MouseUp(Qt::RightButton);
        case KeyAction::ShowMonthsOfStart:
            return window.ReturnToToday();
        case KeyAction::RedrawFunds:
            return window.imgScreen_Click();
        case KeyAction::ChooseColour:
            return window.imgColor_Click();
        case KeyAction::EnterPrice:
            return window.cmdFondList_Click();
        case KeyAction::ChooseCurves:
            return window.imgGrafNr_Click();
        case KeyAction::ToDiagram:
            window.GridPlott->CancelRow();
            return window.ResetPanels();
        case KeyAction::DayPrices:
            return window.mnuKurser_Click();
        case KeyAction::Overview:
            return window.mnuOversikt_Click();
        case KeyAction::ToDiagramFromPage:
            if (!window.GiveUpDayPrice()) window.ResetPanels();
            return;
        case KeyAction::ToDiagramFromGrid:
            return EscapeFromHoldings();
        case KeyAction::ShowHelp:
            return window.ShowHelpPage();
        case KeyAction::ZoomIn:
            return window.mnuPlus_Click();
        case KeyAction::ZoomOut:
            return window.mnuMinus_Click();
    }
}

/// Esc gives up the cell that is being typed. The next one leaves the grid: a complete row is
/// stored as the button does it, one that cannot be stored is given up only after a question.
void Keyboard::EscapeFromHoldings() {
    DataGrid& grid = *window.DBGrid;
    if (grid.GiveUpCell()) return;
    const bool stored = grid.RowIsComplete() && grid.StoreRow();
    if (!stored && !MayGiveUpRow()) return grid.setFocus();
    grid.CancelRow();
    for (BoundField* field : {window.txtKontoNr, window.txtPnr, window.txtNamn}) field->Reload();
    for (BoundField* box : window.txtNyAndel) box->Reload();
    window.ResetPanels();
    window.cmdPPMData_Click();
}

bool Keyboard::MayGiveUpRow() {
    return window.platform.dialogs.Show({.text = std::string(texts::AskGiveUpRow),
                                         .buttons = Buttons::YesNo,
                                         .icon = Icon::Question,
                                         .defaultButton = DefaultButton::Second}) == Answer::Yes;
}
