#pragma once
// What every furnish file needs: a control with its name and place,
// and the words a screen reader says.

#include "app/frmPPM.h"

#include <QLabel>
#include <QWidget>

#include <string_view>

class ImageButton;
class QString;

inline constexpr float kSmallPoints = 8;
inline constexpr float kTextPoints = 9;

template <typename T>
T* Named(T* control, const char* name) {
    control->setObjectName(QString::fromLatin1(name));
    return control;
}

/// A control array's element: `lblMonth_1`.
template <typename T>
T* Named(T* control, const char* name, int index) {
    control->setObjectName(QStringLiteral("%1_%2").arg(QString::fromLatin1(name)).arg(index));
    return control;
}

template <typename T>
T* Placed(frmPPM& window, T* control, const TwipRect& rect, float points = kTextPoints,
          FontKind kind = FontKind::Control) {
    window.layout.Place(control, rect, points, kind);
    return control;
}

/// What a screen reader calls the control, or the part of it that takes the keys. A label says this
/// before its text.
void Speak(QWidget* control, std::string_view name);
void Tip(QWidget* control, std::string_view text);

/// A label that names `buddy`; an "&" in `text` leads the keyboard there.
QLabel* Heading(QWidget* parent, std::string_view text, QWidget* buddy = nullptr);

/// A button whose picture takes three quarters of it, whatever its size.
ImageButton* PictureButton(frmPPM& window, QWidget* panel, const TwipRect& rect,
                           const QString& picture);
