#pragma once
// Opening a fund file: the database under the names the program uses, the check that it is a fund
// file, and how it was opened. Shows no messages: texts.h has them.

#include "fundfile/writeright.h"
#include "jet/database.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

struct FundFile {
    std::shared_ptr<jet::Database> database;
    WriteRight right = WriteRight::Ours;
    /// OtherCopy: "process 4711, dator HALLA"; OtherComputer: "dator HALLA";
    /// "" where that is not known.
    std::string owner = {};
    /// "fonder.ldb" when another database program's lock lies beside the file: it may have the file
    /// open, or have left the lock behind.
    std::string foreignLock = {};
    jet::Loss loss = {};  ///< Damaged: what is missing
};

/// Opens `path`, or gives the open one again when it is open here already, by whatever name. A file
/// without the right to write opens for reading: its edits throw ReadOnly. The right ends when
/// CloseFundFile is called or the last user of `database` lets go of it;
/// a copy that died does not keep it.
///
/// Throws what jet::Database::Open throws; TableNotFound or FieldNotFound for a sound database that
/// is no fund file; NotADatabase for one that lost the tables with a part of it.
FundFile OpenFundFile(const std::filesystem::path& path);

/// A copy of a fund file in memory, to look at. Throws what OpenFundFile throws, and NotADatabase
/// for a file that lost a part.
std::shared_ptr<jet::Database> LoadFundFileCopy(const std::filesystem::path& path);

/// Closes the file for everybody in the program, gives up the right to write it and empties
/// `database`. Nothing happens when it is empty already.
void CloseFundFile(std::shared_ptr<jet::Database>& database) noexcept;

/// Deletes a file. Throws FileInUse when it is open here or in another running copy, FileNotFound
/// when there is no such file, PermissionDenied, DeviceIo.
void DeleteFundFile(const std::filesystem::path& path);

/// Throws FileInUse when `path` is open here or in another running copy.
void CheckNotInUse(const std::filesystem::path& path);

/// The tables of a new fund file, wide enough for every value that can be typed: texts of 255
/// characters, amounts and shares in double precision. The curve list in `Skala` and the saved
/// values have no limit.
std::vector<jet::TableDesign> NewFundFileDesign();
