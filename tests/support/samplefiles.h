#pragma once
// The files that tests read: fund files of our own, with made-up data, which are always there, and
// files of other programs, which are where KVARNBO_SAMPLES says.

#include <filesystem>
#include <optional>
#include <string_view>

namespace samplefiles {

/// "tom", "liten" ... without the extension; beside each lies its dump.
std::filesystem::path FundFile(std::string_view name);
std::filesystem::path FundFileFolder();

/// The folder that holds the folders with other programs' files, if there is one on this machine.
std::optional<std::filesystem::path> OtherFiles();

}  // namespace samplefiles
