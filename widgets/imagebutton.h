#pragma once
// A picture that reacts to the mouse: says which button was released over it,
// and works from the keyboard.

#include <QToolButton>

class QMouseEvent;

class ImageButton final : public QToolButton {
    Q_OBJECT

  public:
    explicit ImageButton(QWidget* parent = nullptr);

  signals:
    /// A mouse button was released over the picture;
    /// keys that press a button count as the left one.
    void MouseUp(Qt::MouseButton button);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    bool byMouse_ = false;
};
