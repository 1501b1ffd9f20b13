#pragma once
// Reads the help file.

#include "help/helpbook.h"

#include <string>

/// The book in the file; where it cannot be read, a book of one page that says so. An empty path is
/// the file beside the program.
HelpBook OpenHelp(const std::string& path);
