#pragma once
// The enforced relations between the tables of a file: read from both tables' definitions and from
// the file's list of relations, which must say the same.

#include "jet/catalog/catalog.h"
#include "jet/storage/pagefile.h"
#include "jet/table/tabledef.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jet::detail {

/// One table's end of a relation.
struct RelationEnd {
    std::uint32_t table = 0;             ///< page of its definition
    std::string name;                    ///< of the table
    std::size_t index = 0;               ///< the real index that the relation goes by
    std::vector<std::size_t> positions;  ///< of the columns, in the other end's order
};

struct Relation {
    std::string name;
    RelationEnd referencing, referenced;
    bool cascadeUpdates = false, cascadeDeletes = false;
    /// Not empty: why it cannot be followed, as where an end has no index. What could break such a
    /// relation is refused; its positions are those that are known to belong to it, or all.
    std::string flaw;
};

/// Relations between users' tables, enforced ones alone.
std::vector<Relation> ReadRelations(PageFile& file, const Catalog& catalog);

}  // namespace jet::detail
