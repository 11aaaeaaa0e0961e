#pragma once

#include "forms/TValue.h"
#include "host/TTableDecl.h"
#include "platform/database/TListAggregate.h"

#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

enum class TSqlKind { Read, Write, Definition };

/// A statement in the server's own form.
struct TServerSql {
    std::string text;
    TSqlKind kind = TSqlKind::Read;
    std::vector<TListAggregate> lists; ///< those that are folded after fetching
};

/// What one server writes otherwise than the other, for one company. Statements are written once, in the notation that both
/// share, and translated here.
///
///     {FACCAO}                    the table's name for the company
///     ?                           a value
///     LIST[expr, 'sep', order]    an ordered aggregate of text, in what is selected; DISTINCT and DESC are understood.
///                                 A key that is a declared column or a CAST is ordered by its type, others as text.
///     ORDER BY                    nulls lowest
///     A STARTING WITH ?           by its beginning, through an index that is declared for it (a LIKE with a value is not)
///     CURRENT_DATE, CURRENT_TIMESTAMP    the day and hour that were set, else the server's
class TDialect {
public:
    explicit TDialect(const std::string& company);
    virtual ~TDialect() = default;
    TDialect(const TDialect&) = delete;
    TDialect& operator=(const TDialect&) = delete;

    const std::string& Company() const { return company_; }
    void SetNow(TDateTime now) { now_ = now; }

    /// Raises EDatabaseError (Syntax) for what is no statement, closes the transaction, or uses a notation wrongly.
    TServerSql Translate(std::string_view sql) const;
    /// With the values written into the text in place of its placeholders.
    TServerSql TranslateWith(std::string_view sql, const std::vector<TValue>& values) const;

    /// A table's name in statements.
    std::string LocalName(std::string_view table) const;
    virtual std::string Literal(const TValue& value) const = 0;

    virtual std::string ColumnType(const TColumnDecl& column) const = 0;
    /// The full statement that creates the index of that name.
    virtual std::string CreateIndex(const TTableDecl& table, const TIndexDecl& index) const = 0;
    /// The name of a key, index or foreign key of the company's table, from its logical one.
    virtual std::string LocalConstraint(const TTableDecl& table, std::string_view constraint) const = 0;
    /// Statements that come before the tables are created; they may be run again.
    virtual std::vector<std::string> Preparations() const { return {}; }
    /// Columns TABLE_NAME and COLUMN_NAME: all columns of the company's tables and the global ones, as the server names them.
    virtual std::string ExistingColumns() const = 0;
    /// Column NAME: the keys, indexes and foreign keys that exist, as the server names them.
    virtual std::string ExistingConstraints() const = 0;
    /// Statements that count anew what the server chooses access paths by; `constraints` are the names that exist.
    virtual std::vector<std::string> StatisticsCommands(const std::set<std::string>& constraints) const = 0;

protected:
    friend class TTranslator;

    virtual std::string CompanyTable(std::string_view table) const = 0;
    virtual std::string GlobalTable(std::string_view table) const = 0;
    virtual std::string Placeholder(std::size_t number) const = 0;
    virtual std::string Today() const = 0;
    virtual std::string Now() const = 0;
    /// The operator that stands for STARTING WITH.
    virtual std::string_view StartingWith() const = 0;
    /// Follows each key of an ORDER BY.
    virtual std::string_view NullsOrder(bool descending) const = 0;
    /// Follows a table's own number where what was filtered is ordered by it.
    virtual std::string_view SortedKey() const = 0;
    /// The aggregate; `number` is its own among the lists of the statement.
    virtual std::string List(const TListAggregate& list, std::size_t number) const = 0;

private:
    std::string company_;
    TDateTime now_;
};

/// Holds the version of each company's tables; global, and no table of the declarations, which the screens may show.
constexpr std::string_view VersionTable = "ALINHAVO_SCHEMA";

/// In upper case, ASCII letters only, as names are compared.
std::string UpperName(std::string_view name);
std::string LowerName(std::string_view name);

} // namespace alinhavo
