#pragma once
// The program's log, a text file beside it. Only ever appended to.

#include "app/controller.h"

#include <string_view>

class Log : Controller {
  public:
    explicit Log(frmPPM& ppm) : Controller(ppm) {}

    /// A line with the date, then the entry. Throws PathNotFound, PermissionDenied or DeviceIo.
    void WriteLogEntry(std::string_view entry);
};
