#pragma once
// What a user reads when an operation failed and no procedure has words of its own for it.

#include <string>

class Error;

/// "Fel 61: Disken är full."; a number without a text of its own gives "Fel 9: " and the error's
/// line.
std::string UntrappedText(const Error& error);
