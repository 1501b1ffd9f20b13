#pragma once
// A small field filled with one colour.

#include <QColor>
#include <QWidget>

class QPaintEvent;

class Swatch final : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QColor fillColour READ FillColour WRITE SetFillColour)

  public:
    explicit Swatch(QWidget* parent = nullptr);

    QColor FillColour() const { return colour_; }
    /// An invalid colour leaves the field empty.
    void SetFillColour(const QColor& colour);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor colour_;
};
