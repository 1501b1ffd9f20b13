#pragma once
// What a user reads when an operation failed and no procedure has words of its own for it.

#include "base/error.h"

#include <string>

/// "Fel 61: " and a sentence for the user.
/// line.
std::string UntrappedText(const Error& error);
