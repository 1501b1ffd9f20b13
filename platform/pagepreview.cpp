#include "platform/pagepreview.h"

#include "base/number.h"
#include "platform/caption.h"
#include "platform/qttext.h"
#include "platform/texts.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <string>

namespace {

using namespace texts::dialogs;

constexpr double kZoomStep = 1.25;
constexpr double kScreenShare = 0.9;
constexpr QSize kGoodSize(900, 1100);

}  // namespace

PagePreview::PagePreview(QPrinter& printer, std::string_view documentName, QWidget* parent)
    : QDialog(parent),
      view_(new QPrintPreviewWidget(&printer, this)),
      page_(new QLabel(this)),
      back_(Button(kPageBack)),
      on_(Button(kPageOn)) {
    setWindowTitle(ToQt(std::string(kPreviewOf) + std::string(documentName)));
    view_->setAccessibleName(ToQt(kPreviewPages));
    view_->fitInView();
    connect(view_, &QPrintPreviewWidget::paintRequested, this, &PagePreview::PaintRequested);
    connect(view_, &QPrintPreviewWidget::previewChanged, this, &PagePreview::ShowPage);
    connect(back_, &QPushButton::clicked, this, [this] { Turn(-1); });
    connect(on_, &QPushButton::clicked, this, [this] { Turn(1); });
    auto* column = new QVBoxLayout(this);
    column->addLayout(LookingRow());
    column->addWidget(view_);
    column->addLayout(AnswerRow());
    ComeUp();
}

QPushButton* PagePreview::Button(std::string_view caption) {
    auto* button = new QPushButton(ToQt(caption), this);
    button->setAutoDefault(true);
    return button;
}

template <typename Work>
QPushButton* PagePreview::Add(QHBoxLayout& row, std::string_view caption, Work work) {
    QPushButton* button = Button(caption);
    connect(button, &QPushButton::clicked, this, work);
    row.addWidget(button);
    return button;
}

QHBoxLayout* PagePreview::LookingRow() {
    auto* row = new QHBoxLayout;
    row->addWidget(back_);
    row->addWidget(page_);
    row->addWidget(on_);
    row->addStretch();
    Add(*row, kZoomIn, [this] { Zoom(kZoomStep); });
    Add(*row, kZoomOut, [this] { Zoom(1 / kZoomStep); });
    Add(*row, kWholePage, [this] { ShowWholePage(); });
    return row;
}

QHBoxLayout* PagePreview::AnswerRow() {
    auto* row = new QHBoxLayout;
    const auto answer = [this](Previewed chosen) {
        return [this, chosen] {
            answer_ = chosen;
            accept();
        };
    };
    row->addStretch();
    QPushButton* print = Add(*row, kPrintIt, answer(Previewed::Print));
    Add(*row, kSaveAsPdf, answer(Previewed::SaveAsPdf));
    Add(*row, kClose, [this] { reject(); });
    print->setDefault(true);
    print->setFocus();
    connect(new QShortcut(QKeySequence(QStringLiteral("Ctrl+P")), this), &QShortcut::activated,
            print, &QPushButton::click);
    return row;
}

/// A page high where the screen is, and inside it where it is small.
void PagePreview::ComeUp() {
    const QSize room = screen()->availableSize() * kScreenShare;
    resize(kGoodSize.boundedTo(room));
}

void PagePreview::Draw() {
    view_->updatePreview();
}

Previewed PagePreview::Ask() {
    return exec() == QDialog::Accepted ? answer_ : Previewed::Closed;
}

void PagePreview::Turn(int pages) {
    const int page = std::clamp(view_->currentPage() + pages, 1, std::max(view_->pageCount(), 1));
    if (page != view_->currentPage()) view_->setCurrentPage(page);
    ShowPage();
}

void PagePreview::Zoom(double factor) {
    view_->zoomIn(factor);
}

/// A page that is in sight as a whole already, however small, would be left as it is.
void PagePreview::ShowWholePage() {
    constexpr double kTooLarge = 10;
    view_->setZoomFactor(kTooLarge);
    view_->fitInView();
}

void PagePreview::ShowPage() {
    const int page = view_->currentPage(), count = view_->pageCount();
    SetCaption(page_, std::string(kPageNumber) + PlainText(page) + std::string(kOfPages) +
                          PlainText(count));
    back_->setEnabled(page > 1);
    on_->setEnabled(page < count);
}

void PagePreview::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_PageUp:
            return Turn(-1);
        case Qt::Key_PageDown:
            return Turn(1);
        case Qt::Key_Plus:
            return Zoom(kZoomStep);
        case Qt::Key_Minus:
            return Zoom(1 / kZoomStep);
        case Qt::Key_0:
            return ShowWholePage();
        default:
            QDialog::keyPressEvent(event);
    }
}
