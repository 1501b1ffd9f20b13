#pragma once
// A group box for a title that may be longer than the frame: it is cut with "..." and stands whole
// in the tooltip.

#include <QGroupBox>
#include <QString>

class QEvent;
class QPaintEvent;

class TitledFrame final : public QGroupBox {
    Q_OBJECT

  public:
    using QGroupBox::QGroupBox;
    /// What stands in the title's place while there is none.
    void SetUntitled(const QString& text) { untitled_ = text; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QString WholeTitle() const;  ///< "&" is a sign in it and no mnemonic
    QString FittingTitle() const;

    QString untitled_;
};
