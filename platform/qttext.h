#pragma once
// Texts between the program, which speaks UTF-8, and Qt.

#include <QString>

#include <string>
#include <string_view>

QString ToQt(std::string_view utf8);
std::string FromQt(const QString& text);
