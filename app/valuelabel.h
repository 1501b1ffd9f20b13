#pragma once
// A label for one value: a text too long for it is cut with "..." where it is shown, and stands
// whole in the tooltip.

#include <QLabel>

class QEvent;
class QPaintEvent;

class ValueLabel final : public QLabel {
    Q_OBJECT

  public:
    explicit ValueLabel(QWidget* parent = nullptr);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    bool Fits() const;
};
