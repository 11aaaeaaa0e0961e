#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace alinhavo {

/// What a column holds. The physical type on each server follows from it.
enum class TColumnKind {
    Text, ///< up to `width` characters, stored without trailing blanks
    Integer, ///< whole number, 64 bits
    Float, ///< double precision
    Date, ///< calendar date
    DateTime, ///< date and hour, to the second
    Identity, ///< whole number filled by the database on insertion, growing with insertion order
};

struct TColumnDecl {
    std::string_view name;
    TColumnKind kind;
    int width = 0; ///< characters of a Text column; 0 for the other kinds
    std::string_view caption = {}; ///< Portuguese name shown to a person; empty: the column's own name
};

/// An access path. `columns` is a comma-separated list of column names.
struct TIndexDecl {
    std::string_view columns;
    bool unique = false;
    bool descending = false; ///< finds the largest value at once, where an ascending index would read all of them
    bool prefix = false; ///< finds texts by their beginning (STARTING WITH) too; of one text column
};

/// Rows of `columns` are held by a row of `table`: the database refuses to delete that row while they exist.
/// Nulls are exempt; an empty text is a code like any other, so only columns that are never blank are declared here.
struct TForeignKeyDecl {
    std::string_view columns;
    std::string_view table;
    std::string_view references;
};

/// One table of the host's database, as data: creation, migration, maintenance screens and checks are made from it.
struct TTableDecl {
    std::string_view name;
    std::string_view caption; ///< Portuguese name shown to a person
    std::string_view key; ///< comma-separated columns of the primary key, the only NOT NULL ones
    std::span<const TColumnDecl> columns;
    std::span<const TIndexDecl> indexes = {};
    std::span<const TForeignKeyDecl> foreignKeys = {};
    bool global = false; ///< one for all companies; otherwise each company has its own
};

/// All tables, by name in ascending order.
std::span<const TTableDecl> Tables();

/// The declaration of a table, or null when there is none. Case does not count.
const TTableDecl* FindTable(std::string_view name);

/// The declaration of a column, or null when the table has none of that name. Case does not count.
const TColumnDecl* FindColumn(const TTableDecl& table, std::string_view name);

/// The names in a comma-separated list, in its order: the columns of a key, an index or a foreign key.
std::vector<std::string_view> ColumnNames(std::string_view list);

} // namespace alinhavo
