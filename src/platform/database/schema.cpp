#include "platform/database/schema.h"

#include "forms/text.h"
#include "host/EDatabaseError.h"
#include "platform/database/TConstraint.h"

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

namespace alinhavo {
namespace {

constexpr TColumnDecl versionColumns[] = {
    {"COMPANY", TColumnKind::Text, 2},
    {"VERSION", TColumnKind::Integer},
};
constexpr TTableDecl versionTable{
    .name = VersionTable, .caption = {}, .key = "COMPANY", .columns = versionColumns, .global = true};

/// What turns the database of the version before into this one, after its tables and columns have been added.
struct TStep {
    int version;
    void (*run)(TSqlDatabase& database);
};

/// In ascending order. The first version has none: it is the declarations.
constexpr std::array<TStep, 0> steps{};

using TNames = std::set<std::string>;

std::string Joined(const std::vector<std::string>& parts)
{
    std::string joined;
    for (const auto& part : parts)
        joined += (joined.empty() ? "" : ", ") + part;
    return joined;
}

TNames ExistingConstraints(TSqlDatabase& database)
{
    const auto rows = database.OpenText(database.Dialect().ExistingConstraints());
    TNames names;
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
        names.insert(UpperName(rows.Column(0).Text(row)));
    return names;
}

/// Creates what is declared and missing.
class TSchemaBuilder {
public:
    explicit TSchemaBuilder(TSqlDatabase& database)
        : database_(database)
        , dialect_(database.Dialect())
        , constraints_(ExistingConstraints(database))
    {
        const auto columns = database_.OpenText(dialect_.ExistingColumns());
        for (std::size_t row = 0; row < columns.RowCount(); ++row) {
            const auto table = UpperName(columns.Column(0).Text(row));
            tables_.insert(table);
            columns_.insert(table + "." + UpperName(columns.Column(1).Text(row)));
        }
    }

    void CreateTables(std::span<const TTableDecl> tables)
    {
        for (const auto& table : tables) {
            if (!tables_.contains(Known(table)))
                CreateTable(table);
            else
                AddColumns(table);
        }
        database_.CommitRetaining();
    }

    void CreateIndexes(std::span<const TTableDecl> tables)
    {
        for (const auto& table : tables)
            for (const auto& index : table.indexes)
                if (IsMissing(table, IndexName(table, index)))
                    database_.ExecText(dialect_.CreateIndex(table, index));
        database_.CommitRetaining();
    }

    void CreateForeignKeys(std::span<const TTableDecl> tables)
    {
        for (const auto& table : tables)
            for (const auto& key : table.foreignKeys)
                if (IsMissing(table, ForeignKeyName(table, key)))
                    CreateForeignKey(table, key);
        database_.CommitRetaining();
    }

private:
    /// As the list of existing columns names the table.
    std::string Known(const TTableDecl& table) const { return UpperName(dialect_.LocalName(table.name)); }

    bool IsMissing(const TTableDecl& table, const std::string& constraint) const
    {
        return !constraints_.contains(UpperName(dialect_.LocalConstraint(table, constraint)));
    }

    std::string Column(const TTableDecl& table, const TColumnDecl& column) const
    {
        const auto key = ColumnNames(table.key);
        const bool isKey = std::ranges::find(key, column.name) != key.end();
        return std::string(column.name) + " " + dialect_.ColumnType(column) + (isKey ? " NOT NULL" : "");
    }

    void CreateTable(const TTableDecl& table)
    {
        std::vector<std::string> parts;
        for (const auto& column : table.columns)
            parts.push_back(Column(table, column));
        parts.push_back("CONSTRAINT " + dialect_.LocalConstraint(table, KeyName(table)) + " PRIMARY KEY ("
            + std::string(table.key) + ")");
        database_.ExecText("CREATE TABLE " + dialect_.LocalName(table.name) + " (" + Joined(parts) + ")");
    }

    void AddColumns(const TTableDecl& table)
    {
        for (const auto& column : table.columns)
            if (!columns_.contains(Known(table) + "." + std::string(column.name)))
                database_.ExecText("ALTER TABLE " + dialect_.LocalName(table.name) + " ADD " + Column(table, column));
    }

    void CreateForeignKey(const TTableDecl& table, const TForeignKeyDecl& key)
    {
        database_.ExecText("ALTER TABLE " + dialect_.LocalName(table.name) + " ADD CONSTRAINT "
            + dialect_.LocalConstraint(table, ForeignKeyName(table, key)) + " FOREIGN KEY (" + std::string(key.columns)
            + ") REFERENCES " + dialect_.LocalName(key.table) + " (" + std::string(key.references) + ")");
    }

    TSqlDatabase& database_;
    const TDialect& dialect_;
    TNames tables_;
    TNames columns_; ///< TABLE.COLUMN
    TNames constraints_;
};

bool HasVersionTable(TSqlDatabase& database)
{
    const auto wanted = UpperName(database.Dialect().LocalName(VersionTable));
    const auto columns = database.OpenText(database.Dialect().ExistingColumns());
    for (std::size_t row = 0; row < columns.RowCount(); ++row)
        if (UpperName(columns.Column(0).Text(row)) == wanted)
            return true;
    return false;
}

void StoreVersion(TSqlDatabase& database, int version)
{
    const auto& company = database.Dialect().Company();
    if (database.ExecSQL({"UPDATE {ALINHAVO_SCHEMA} SET VERSION = ? WHERE COMPANY = ?", version, company}) == 0)
        database.ExecSQL({"INSERT INTO {ALINHAVO_SCHEMA} (COMPANY, VERSION) VALUES (?, ?)", company, version});
    database.CommitRetaining();
}

} // namespace

void RefreshStatistics(TSqlDatabase& database)
{
    for (const auto& command : database.Dialect().StatisticsCommands(ExistingConstraints(database)))
        database.ExecText(command);
    database.CommitRetaining();
}

int SchemaVersion(TSqlDatabase& database)
{
    if (!HasVersionTable(database))
        return 0;
    const auto found
        = database.Open({"SELECT VERSION FROM {ALINHAVO_SCHEMA} WHERE COMPANY = ?", database.Dialect().Company()});
    return found.RowCount() == 0 ? 0 : static_cast<int>(found.Column(0).Integer(0));
}

void CreateTables(TSqlDatabase& database)
{
    for (const auto& preparation : database.Dialect().Preparations())
        database.ExecText(preparation);
    database.CommitRetaining();
    TSchemaBuilder builder(database);
    builder.CreateTables({&versionTable, 1});
    builder.CreateTables(Tables());
}

std::vector<std::string> Companies(TSqlDatabase& database)
{
    std::vector<std::string> companies;
    if (!HasVersionTable(database))
        return companies;
    const auto rows = database.Open({"SELECT COMPANY FROM {ALINHAVO_SCHEMA} ORDER BY COMPANY"});
    for (std::size_t row = 0; row < rows.RowCount(); ++row)
        companies.emplace_back(rows.Column(0).Text(row));
    return companies;
}

void MigrateSchema(TSqlDatabase& database)
{
    const int stored = SchemaVersion(database);
    if (stored > CurrentSchemaVersion)
        throw EDatabaseError(TDatabaseErrorKind::Other, "O banco de dados é de uma versão mais nova do programa.");

    CreateTables(database);
    TSchemaBuilder builder(database);
    builder.CreateIndexes(Tables());
    builder.CreateForeignKeys(Tables());
    for (const auto& step : steps)
        if (stored > 0 && step.version > stored) {
            step.run(database);
            StoreVersion(database, step.version);
        }
    if (stored != CurrentSchemaVersion)
        StoreVersion(database, CurrentSchemaVersion);
}

} // namespace alinhavo
