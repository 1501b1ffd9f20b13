#include "tools/log.h"

#include "app/frmPPM.h"
#include "base/codepage.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "jet/error.h"
#include "platform/clock.h"
#include "platform/platform.h"
#include "tools/texts.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

constexpr std::string_view kLineEnd = "\r\n";

}  // namespace

void Log::WriteLogEntry(std::string_view entry) {
    const std::int32_t today = DayNumber(window.platform.clock.Today());
    const std::string line =
        FormatDayShort(today) + std::string(kLineEnd) + std::string(entry) + std::string(kLineEnd);
    const std::filesystem::path path = window.AppFolder + std::string(texts::LogFile);
    errno = 0;
    std::ofstream file(path, std::ios::binary | std::ios::app);
    if (!file) throw Error{jet::NumberOfSystemError(errno), "cannot open the log for appending"};
    file << EncodeCp1252(line);
    file.close();
    if (!file) throw Error{jet::NumberOfSystemError(errno), "cannot write the log"};
}
