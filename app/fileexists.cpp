#include "app/fileexists.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

bool FileExists(std::string_view path) noexcept try {
    const std::filesystem::path file{std::string(path)};
    std::error_code failure;
    // A folder can be opened as a file on some systems; it is none.
    if (!std::filesystem::is_regular_file(file, failure)) return false;
    return std::ifstream(file, std::ios::binary).is_open();
} catch (const std::exception&) {
    return false;
}
