#include "platform/qtdialogs.h"

#include "base/text.h"
#include "platform/commondialog.h"
#include "platform/dressed.h"
#include "platform/filetable.h"
#include "platform/qttext.h"
#include "platform/texts.h"

#include <QApplication>
#include <QColor>
#include <QColorDialog>
#include <QDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QSize>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

struct Choice {
    Answer answer;
    std::string_view caption;
    QMessageBox::ButtonRole role;
};

constexpr Choice kOkChoice{Answer::Ok, texts::dialogs::Ok, QMessageBox::AcceptRole};
constexpr Choice kCancelChoice{Answer::Cancel, texts::dialogs::Cancel, QMessageBox::RejectRole};
constexpr Choice kYesChoice{Answer::Yes, texts::dialogs::Yes, QMessageBox::YesRole};
constexpr Choice kNoChoice{Answer::No, texts::dialogs::No, QMessageBox::NoRole};

std::vector<Choice> Choices(Buttons buttons) {
    switch (buttons) {
        case Buttons::OkCancel:
            return {kOkChoice, kCancelChoice};
        case Buttons::YesNo:
            return {kYesChoice, kNoChoice};
        case Buttons::Ok:
            break;
    }
    return {kOkChoice};
}

QMessageBox::Icon QtIcon(Icon icon) {
    switch (icon) {
        case Icon::Information:
            return QMessageBox::Information;
        case Icon::Question:
            return QMessageBox::Question;
        case Icon::Exclamation:
            return QMessageBox::Warning;
        case Icon::Critical:
            return QMessageBox::Critical;
        case Icon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

// A box on top of a box: the parent is whatever the user looks at.
QWidget* Parent() {
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : QApplication::activeWindow();
}

// "Access mdb|*.mdb|All|*.*" as Qt writes it.
QString QtFilter(const std::string& filter) {
    const std::vector<std::string> parts = Split(filter, "|");
    QStringList filters;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        filters += ToQt(parts[i]) + QStringLiteral(" (") + ToQt(parts[i + 1]) + QStringLiteral(")");
    }
    return filters.join(QStringLiteral(";;"));
}

/// The toolkit's own list of files is too narrow for what stands in it; a desktop's has none such.
void WidenColumns(QFileDialog& dialog) {
    auto* files = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    if (files == nullptr) return;
    constexpr std::array kCharacters = {28, 13, 16, 24};  // name, size, kind and day of a file
    constexpr int kRoomBesideColumns = 48;
    const int character = files->fontMetrics().averageCharWidth();
    int width = kRoomBesideColumns * character;
    for (int column = 0; column < static_cast<int>(kCharacters.size()); ++column) {
        const int room = kCharacters[static_cast<std::size_t>(column)] * character;
        files->setColumnWidth(column, room);
        width += room;
    }
    const int room = dialog.screen()->availableSize().width();
    dialog.resize(std::min(room, std::max(dialog.width(), width)), dialog.height());
}

}  // namespace

Answer QtDialogs::Show(const Message& message) {
    QMessageBox box(Parent());
    box.setWindowTitle(ToQt(texts::dialogs::DefaultTitle));
    box.setTextFormat(Qt::PlainText);
    // A label draws a carriage return as a character of its own.
    box.setText(ToQt(message.text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    box.setIcon(QtIcon(message.icon));

    const std::vector<Choice> choices = Choices(message.buttons);
    std::vector<QPushButton*> buttons;
    buttons.reserve(choices.size());
    for (const Choice& choice : choices) {
        buttons.push_back(box.addButton(ToQt(choice.caption), choice.role));
    }
    const bool second = message.defaultButton == DefaultButton::Second && buttons.size() > 1;
    box.setDefaultButton(buttons[second ? 1 : 0]);
    box.setEscapeButton(buttons.back());
    DressAsWindow(box);
    MakeRoomForTitle(box);
    box.exec();

    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (box.clickedButton() == buttons[i]) return choices[i].answer;
    }
    return choices.back().answer;
}

std::string QtDialogs::PickFile(const FileRequest& request) {
    QFileDialog dialog(Parent(), ToQt(request.title), ToQt(request.folder),
                       QtFilter(request.filter));
    const bool saving = request.choice == FileChoice::Save;
    // The toolkit's own dialog is the one that can be Swedish on every desktop.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    // Any name at first: one without its ending may well be a file's.
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, !request.askBeforeOverwriting);
    if (saving) dialog.setDefaultSuffix(ToQt(request.defaultExtension));
    dialog.setProxyModel(new FileTable(&dialog));
    DressAsWindow(dialog);
    WidenColumns(dialog);
    if (!request.fileName.empty()) dialog.selectFile(ToQt(request.fileName));
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        std::string picked = FromQt(dialog.selectedFiles().constFirst());
        if (!saving) {
            std::string found = ExistingFile(picked, request.defaultExtension);
            if (!request.mustExist || QFileInfo::exists(ToQt(found))) return found;
            Show({.text = found + std::string(texts::dialogs::NoFile), .icon = Icon::Exclamation});
            continue;
        }
        std::string path = WithExtension(picked, request.defaultExtension);
        // The dialog has asked about the name that it was given.
        if (path == picked || !request.askBeforeOverwriting || MayReplace(path)) return path;
    }
    return "";
}

bool QtDialogs::MayReplace(const std::string& path) {
    const QFileInfo file(ToQt(path));
    if (!file.exists()) return true;
    return Show({.text = FromQt(file.fileName()) + std::string(texts::dialogs::Replace),
                 .buttons = Buttons::YesNo,
                 .icon = Icon::Exclamation,
                 .defaultButton = DefaultButton::Second}) == Answer::Yes;
}

std::optional<Colour> QtDialogs::PickColour(Colour shownFirst) {
    QColorDialog dialog(QColor(shownFirst.red, shownFirst.green, shownFirst.blue), Parent());
    dialog.setWindowTitle(ToQt(texts::dialogs::DefaultTitle));
    DressAsWindow(dialog);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    const QColor picked = dialog.selectedColor();
    return Colour{static_cast<std::uint8_t>(picked.red()),
                  static_cast<std::uint8_t>(picked.green()),
                  static_cast<std::uint8_t>(picked.blue())};
}

bool QtDialogs::PickPrinter(QPrinter& printer) {
    QPrintDialog dialog(&printer, Parent());
    // The report is printed whole.
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    DressAsWindow(dialog);
    return dialog.exec() == QDialog::Accepted;
}
