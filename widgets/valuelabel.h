#pragma once
// A label for one value: a text too long for it is written smaller; one that is still too long is
// cut with "..." and stands whole in the tooltip.

#include <QFont>
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
    /// The label's font, smaller where the text needs it.
    QFont FittingFont() const;
    int WidthIn(const QFont& font) const;
    int Flags() const;
};
