#pragma once

#include "host/TTableDecl.h"

#include <string>
#include <string_view>

namespace alinhavo {

enum class TConstraintKind { Key, Index, ForeignKey };

/// What stands behind the name of a key, an index or a foreign key: names are made from the declarations, so that a server
/// that reports one tells table and columns.
struct TConstraint {
    TConstraintKind kind;
    const TTableDecl* table;
    std::string_view columns;
    const TForeignKeyDecl* foreignKey = nullptr;
};

// Names of at most 28 characters, which change when what they stand for changes.
std::string KeyName(const TTableDecl& table);
std::string IndexName(const TTableDecl& table, const TIndexDecl& index);
std::string ForeignKeyName(const TTableDecl& table, const TForeignKeyDecl& key);

/// Null for a name that the declarations do not make. Case and a company's ending do not count.
const TConstraint* FindConstraint(std::string_view name);

} // namespace alinhavo
