#include "fundfile/safetycopies.h"

#include "base/error.h"
#include "fundfile/fundfile.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "fundfile/texts.h"
#include "fundfile/writeright.h"
#include "jet/database.h"
#include "jet/files.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <optional>
#include <system_error>
#include <tuple>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

fs::path FolderOf(const fs::path& fundFile) {
    return fundFile.parent_path() / std::string(fundtexts::CopiesFolder);
}

/// So that a power cut does not take a new folder with all that is in it. Where it cannot be done
/// the copy is as safe as any new file there.
void SyncFolder(const fs::path& folder) {
    const int open = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (open < 0) return;
    ::fsync(open);
    ::close(open);
}

void RequireFolder(const fs::path& folder) {
    std::error_code failed;
    if (fs::create_directory(folder, failed)) return SyncFolder(folder.parent_path());
    if (!failed) return;
    // Something else has the folder's name.
    const int code = failed.value() == EEXIST ? ENOTDIR : failed.value();
    throw Error{jet::NumberOfSystemError(code),
                "make " + folder.string() + ": " + failed.message()};
}

std::optional<SafetyCopy> CopyAt(const fs::path& fundFile, const fs::path& path) {
    const auto name = ReadCopyName(fundFile.filename().string(), path.filename().string());
    return name ? std::optional(SafetyCopy{*name, path}) : std::nullopt;
}

/// A copy that cannot be removed stays.
void RemoveOldCopies(const fs::path& fundFile, std::int32_t today) {
    const std::vector<SafetyCopy> copies = SafetyCopiesOf(fundFile);
    std::vector<std::int32_t> days;
    for (const SafetyCopy& copy : copies) {
        if (days.empty() || days.back() != copy.name.day) days.push_back(copy.name.day);
    }
    const std::vector<std::int32_t> kept = DaysToKeep(days, today);
    for (const SafetyCopy& copy : copies) {
        std::error_code ignored;
        if (!std::binary_search(kept.begin(), kept.end(), copy.name.day)) {
            fs::remove(copy.path, ignored);
        }
    }
}

SafetyCopy MakeCopy(const fs::path& fundFile, CopyName name) {
    const fs::path folder = FolderOf(fundFile);
    RequireFolder(folder);
    SafetyCopy copy{name, folder / CopyFileName(fundFile.filename().string(), name)};
    jet::CopyFile(fundFile, copy.path);
    return copy;
}

}  // namespace

std::vector<SafetyCopy> SafetyCopiesOf(const fs::path& fundFile) {
    std::vector<SafetyCopy> copies;
    std::error_code failed;
    for (fs::directory_iterator entry(FolderOf(fundFile), failed), end; !failed && entry != end;
         entry.increment(failed)) {
        if (const auto copy = CopyAt(fundFile, entry->path())) copies.push_back(*copy);
    }
    std::sort(copies.begin(), copies.end(), [](const SafetyCopy& one, const SafetyCopy& other) {
        return std::tie(one.name.day, one.name.number) >
               std::tie(other.name.day, other.name.number);
    });
    return copies;
}

void MakeCopyOfDay(const fs::path& fundFile, std::int32_t today) {
    const CopyName name{.day = today};
    std::error_code unknown;
    if (fs::exists(FolderOf(fundFile) / CopyFileName(fundFile.filename().string(), name),
                   unknown)) {
        return;
    }
    MakeCopy(fundFile, name);
    RemoveOldCopies(fundFile, today);
}

SafetyCopy MakeFurtherCopy(const fs::path& fundFile, std::int32_t today) {
    std::int32_t number = 0;
    for (const SafetyCopy& copy : SafetyCopiesOf(fundFile)) {
        if (copy.name.day == today) number = std::max(number, copy.name.number);
    }
    return MakeCopy(fundFile, {.day = today, .number = number + 1});
}

void RestoreFundFile(jet::Database& open, const fs::path& copy) {
    const fs::path fundFile = open.Path();
    LoadFundFileCopy(copy);
    open.Close();  // its lock goes with it
    const WriteClaim claim = ClaimWriting(fundFile);
    if (claim.right != WriteRight::Ours) {
        throw Error{ErrorNumber::FileInUse, fundFile.string() + " was opened by " + claim.owner};
    }
    jet::CopyFile(copy, fundFile);
}

FundContent ContentOf(jet::Database& fundFile) {
    FundContent content;
    content.holdings = ReadHoldings(*fundFile.OpenRecordSet(schema::kHoldingsSource));
    const auto points = fundFile.OpenRecordSet(queries::AllPoints());
    const std::int32_t count = points->RecordCount();
    for (std::int32_t row = 0; row < count; ++row) {
        Skipping skip;
        skip([&] {
            const std::int32_t kontoId = points->At(row, schema::point::kKontoId).Integer();
            const std::int32_t day = points->At(row, schema::point::kXCord).Integer();
            const std::int32_t value = points->At(row, schema::point::kYCord).Integer();
            content.points[{kontoId, day}].push_back(value);
        });
    }
    for (auto& [day, values] : content.points) std::sort(values.begin(), values.end());
    return content;
}
