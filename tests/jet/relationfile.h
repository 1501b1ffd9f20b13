#pragma once
// Files with relations between tables, which other programs draw and this library only keeps.

#include "jet/database.h"

#include <filesystem>

namespace jet::test {

/// Which of a relation's two tables know of it.
enum class Ends { Both, ReferencingAlone, ReferencedAlone };

/// A file with the tables A and B: Id (primary key), Ref (indexed), Namn (text, uniquely indexed in
/// B, plainly in A). An existing file is replaced.
void CreateRelatable(const std::filesystem::path& path);

/// Enters a relation between two indexed columns into the definitions of a closed file.
void Relate(const std::filesystem::path& path, const RelationDesign& relation,
            Ends ends = Ends::Both);

/// Enters a relation into the file's list of relations, and nowhere else.
void ListRelation(const std::filesystem::path& path, const RelationDesign& relation);

}  // namespace jet::test
