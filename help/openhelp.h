#pragma once
// Reads the help file.

#include "help/helpbook.h"

#include <string>

/// The book in the file; where it cannot be read, a book of one page that says so. An empty path is
/// the installed file.
HelpBook OpenHelp(const std::string& path);
