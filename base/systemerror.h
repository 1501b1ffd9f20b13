#pragma once
// The number that users know for a failed call of the operating system.

#include "base/error.h"

/// For an `errno` that opening or writing a file left.
ErrorNumber NumberOfSystemError(int code);
