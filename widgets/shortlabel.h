#pragma once
// A label for a name among others side by side: where the whole name would touch the next one, its
// first letters are shown.

#include <QLabel>

class QPaintEvent;

class ShortLabel final : public QLabel {
    Q_OBJECT

  public:
    explicit ShortLabel(QWidget* parent = nullptr);
    /// What is to be read of the text at the label's present size.
    QString ShownText() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
};
