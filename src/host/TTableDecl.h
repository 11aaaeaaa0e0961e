#pragma once

#include <span>
#include <string>
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
    std::string_view caption = {}; ///< Portuguese name shown to a person; empty: a person never sees it
    std::string_view refersTo = {}; ///< table whose code it holds, or "TABLE.COLUMN" where that is not the table's key
    std::string_view choices = {}; ///< all that it may hold besides nothing, as "E=Entrada,S=Saída"; see Choices()
    std::string_view initial = {}; ///< what it holds in a new row until a person says otherwise
    bool kept = false; ///< written by the module alone, whoever keeps the row
};

/// The choices of a column that a person ticks.
inline constexpr std::string_view yesNo = "S=Sim,N=Não";

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

/// Who puts rows into a table.
enum class TKeeper {
    Person, ///< a person, on the tables screen or by import
    Screen, ///< a person, on the screen that is made for it (`screen`), or by import
    Work, ///< the module, as work goes on: nobody enters such a row as it stands
    System, ///< the program, for itself: a person does not see it as a table
};

/// One table of the host's database, as data: creation, migration, maintenance screens and checks are made from it.
struct TTableDecl {
    std::string_view name;
    std::string_view caption; ///< Portuguese name shown to a person
    std::string_view key; ///< comma-separated columns of the primary key, the only NOT NULL ones
    TKeeper keeper = TKeeper::System;
    std::string_view group = {}; ///< under what a person looks for it
    std::string_view screen = {}; ///< class of the screen that keeps it (TKeeper::Screen)
    std::string_view description = {}; ///< column that says what a code of this table means
    std::string_view rowKey = {}; ///< columns that tell rows apart for a person where `key` is a number unseen by him
    std::string_view required = {}; ///< columns that a person must fill, besides those of `key`
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

/// What a column refers to; both null when to nothing.
struct TReference {
    const TTableDecl* table = nullptr;
    const TColumnDecl* column = nullptr; ///< of that table
};
TReference ReferenceOf(const TColumnDecl& column);

/// One of the values that a column may hold, and what it means.
struct TChoice {
    std::string_view value;
    std::string_view caption;
};
std::vector<TChoice> Choices(const TColumnDecl& column); ///< empty: any value

/// The columns by which a person tells rows apart, comma-separated: the row key, else the key; empty when rows may repeat.
std::string_view PersonKey(const TTableDecl& table);
/// A person must fill it: a column of the key that is not an identity, or one of `required`.
bool IsRequired(const TTableDecl& table, const TColumnDecl& column);

/// The class of the screen on which a person sees, and where he keeps it changes, the rows of the table.
std::string TableScreen(const TTableDecl& table);

/// The names in a comma-separated list, in its order: the columns of a key, an index or a foreign key.
std::vector<std::string_view> ColumnNames(std::string_view list);

} // namespace alinhavo
