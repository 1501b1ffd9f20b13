#pragma once
// Which page of the help is about what the window shows.

#include "app/rules/windowstate.h"

#include <string_view>

/// The page's name in the help.
std::string_view HelpPageFor(const WindowState& state);
