#pragma once
// Reads the help file.

#include "help/helpbook.h"

#include <string>

/// The book in the file; where it cannot be read, a book of one page that says so. An empty path is
/// the installed file.
HelpBook OpenHelp(const std::string& path);

/// "folder/Kvarnbo.hlp#kurs" is the file and the page to open it at; a file whose own name has the
/// mark in it is meant itself.
struct HelpPlace {
    std::string path, page;
};
HelpPlace HelpPlaceOf(const std::string& argument);
