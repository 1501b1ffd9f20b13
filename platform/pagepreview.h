#pragma once
// Shows a document as it would be printed.

#include "platform/printing.h"

#include <QDialog>

#include <string_view>

class QHBoxLayout;
class QKeyEvent;
class QLabel;
class QPrinter;
class QPrintPreviewWidget;
class QPushButton;

/// Page Up and Page Down turn the pages, "+" and "-" make them larger and smaller, Esc closes.
class PagePreview : public QDialog {
    Q_OBJECT

  public:
    /// `printer` gets the pages' size; nothing is printed on it.
    explicit PagePreview(QPrinter& printer, std::string_view documentName,
                         QWidget* parent = nullptr);

    /// The document is to be drawn by whoever hears PaintRequested.
    void Draw();
    Previewed Ask();

  signals:
    void PaintRequested(QPrinter* printer);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    QPushButton* Button(std::string_view caption);
    template <typename Work>
    QPushButton* Add(QHBoxLayout& row, std::string_view caption, Work work);
    QHBoxLayout* LookingRow();
    QHBoxLayout* AnswerRow();
    void ComeUp();
    void Turn(int pages);
    void Zoom(double factor);
    void ShowWholePage();
    void ShowPage();

    QPrintPreviewWidget* view_;
    QLabel* page_;
    QPushButton *back_, *on_;
    Previewed answer_ = Previewed::Closed;
};
