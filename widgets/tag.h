#pragma once
// A text that a control carries for the program and that nobody sees.

#include <string>
#include <string_view>

class QObject;

void SetTag(QObject* control, std::string_view text);
std::string Tag(const QObject* control);  ///< "" until one is set
