#pragma once
// What a screen reader is told of the controls. Labels, frames, pictures and grids speak by their
// kind, so that no panel has to see to it.

class QLabel;
class QString;
class QWidget;

namespace speech {

/// From now on a label is called by its accessible name and by what stands in it, or is not there
/// while nothing does; a label whose buddy is a label says its text before that one's. A frame is
/// called by its title; its parts, and a field that a table in it carries, follow each other from
/// top to bottom and from left to right. A list or table that gets the keys says its current line,
/// too. To be called after the application is made; again does nothing.
void Install();

/// Another control says what this one shows.
void Silence(QWidget* control);

/// The text of a label that shows only the part of it that fits.
void SetWhole(QLabel* label, const QString& text);

/// Says, when the present event is over, where the keys are.
void SayFocus(QWidget* focused);

/// Said at once, whatever has the focus. `from` is a part of the window to say it.
void Announce(QWidget* from, const QString& text);

}  // namespace speech
