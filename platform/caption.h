#pragma once
// The text of a control, whatever its kind.

#include <string>
#include <string_view>

class QObject;

/// The text of a label, button, entry field, text box, group box, menu or menu item; the title of a
/// window; of any other control its "caption" property. Null is allowed where a control may be
/// missing: then nothing happens.
void SetCaption(QObject* control, std::string_view text);
std::string Caption(const QObject* control);
