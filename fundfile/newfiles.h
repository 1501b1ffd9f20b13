#pragma once
// New fund files on disk: an empty one from the template, and a copy of the open one's rows.

#include "jet/recordset.h"
#include "platform/datasource.h"

#include <filesystem>

/// Copies the template to `target`, whole or not at all; a file there is replaced. Throws FileInUse
/// when that file is open here or in another running copy, FileNotFound without template,
/// PermissionDenied, PathNotFound, DiskFull, DeviceIo.
void CreateFundFile(const std::filesystem::path& templateFile, const std::filesystem::path& target);

/// The same, then filled with the rows of both: columns 0 to 16 of the holdings, 0 to 3 of the
/// points, identities included. The current row of the source stays where it is.
void SaveCopy(DataSource& holdings, jet::RecordSet& points,
              const std::filesystem::path& templateFile, const std::filesystem::path& target);
