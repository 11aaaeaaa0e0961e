#include "TDatabaseTest.h"

#include "host/TTableDecl.h"
#include "platform/database/schema.h"
#include "platform/database/TConstraint.h"

#include <set>

namespace alinhavo {
namespace {

class Schema : public TDatabaseTest { };
ON_BOTH_SERVERS(Schema);

std::size_t CountOfConstraints(TSqlDatabase& database)
{
    return database.OpenText(database.Dialect().ExistingConstraints()).RowCount();
}

TEST_P(Schema, EveryDeclaredColumnCanBeRead)
{
    for (const auto& table : Tables()) {
        std::string columns;
        for (const auto& column : table.columns)
            columns += (columns.empty() ? "" : ", ") + std::string(column.name);
        const auto data = db->OpenText("SELECT " + columns + " FROM {" + std::string(table.name) + "}");
        ASSERT_EQ(data.ColumnCount(), table.columns.size()) << table.name;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            EXPECT_EQ(data.Column(i).Name(), table.columns[i].name);
            EXPECT_EQ(data.Column(i).Size(), table.columns[i].width) << table.name << " " << table.columns[i].name;
        }
    }
}

TEST_P(Schema, NamesOfConstraintsAreDifferentAndShortEnough)
{
    std::set<std::string> names;
    std::size_t count = 0;
    const auto add = [&](const std::string& name) {
        names.insert(name);
        ++count;
        EXPECT_LE(name.size(), 28U) << name;
        EXPECT_TRUE(FindConstraint(name)) << name;
        EXPECT_TRUE(FindConstraint(LowerName(name) + "_02")) << name;
    };
    for (const auto& table : Tables()) {
        add(KeyName(table));
        for (const auto& index : table.indexes)
            add(IndexName(table, index));
        for (const auto& key : table.foreignKeys)
            add(ForeignKeyName(table, key));
    }
    EXPECT_EQ(names.size(), count);
}

TEST_P(Schema, ATableThatIsEmptyIsNotCountedAsSuch)
{
    if (IsFirebird())
        GTEST_SKIP() << "there is no count of rows";
    db->ExecSQL({"INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES ('010', 'Corte')"});
    db->CommitRetaining();
    RefreshStatistics(*db);
    const auto counted = [&](const TStatement& statement) { return Value(*db, statement); };
    EXPECT_EQ(counted({"SELECT reltuples FROM pg_class WHERE oid = CAST('cadfluxo' AS regclass)"}), "1");
    EXPECT_EQ(counted({"SELECT reltuples FROM pg_class WHERE oid = CAST('pa_iten' AS regclass)"}), "-1");
}

TEST_P(Schema, MigratingAgainChangesNothing)
{
    EXPECT_EQ(SchemaVersion(*db), CurrentSchemaVersion);
    const auto before = CountOfConstraints(*db);
    MigrateSchema(*db);
    EXPECT_EQ(SchemaVersion(*db), CurrentSchemaVersion);
    EXPECT_EQ(CountOfConstraints(*db), before);
}

TEST_P(Schema, MissingTablesColumnsAndIndexesAreAddedAndRowsStay)
{
    db->ExecSQL({"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (?, ?)", "000009", "Azul"});
    db->CommitRetaining();
    const auto before = CountOfConstraints(*db);
    db->ExecText("ALTER TABLE {CADCOR} DROP DESCRICAO");
    db->CommitRetaining();
    db->ExecText("DROP TABLE {FACCAO4}");
    db->CommitRetaining();
    MigrateSchema(*db);
    EXPECT_EQ(Value(*db, {"SELECT COR FROM {CADCOR} WHERE DESCRICAO IS NULL"}), "000009");
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {FACCAO4}"}), "0");
    EXPECT_EQ(CountOfConstraints(*db), before);
}

TEST_P(Schema, ADatabaseOfANewerProgramIsRefused)
{
    db->ExecSQL({"UPDATE {ALINHAVO_SCHEMA} SET VERSION = ?", CurrentSchemaVersion + 1});
    db->CommitRetaining();
    EXPECT_THROW(MigrateSchema(*db), EDatabaseError);
}

TEST_P(Schema, AnEmptyDatabaseHasVersionZero)
{
    const auto address = OtherAddress();
    CreateDatabase(address, {.forcedWrites = false});
    EXPECT_EQ(SchemaVersion(*OpenDatabase(address)), 0);
}

TEST_P(Schema, ASecondCompanyHasTablesOfItsOwnAndSharesTheGlobalOnes)
{
    auto second = Connect({.company = "02"});
    EXPECT_EQ(SchemaVersion(*second), 0);
    MigrateSchema(*second);
    EXPECT_EQ(SchemaVersion(*second), CurrentSchemaVersion);

    second->ExecSQL({"INSERT INTO {CADCOR} (COR, DESCRICAO) VALUES (?, ?)", "000001", "Verde"});
    second->ExecSQL({"INSERT INTO {EMPRESA} (EMP_PAT, EMP_NOME) VALUES (?, ?)", "02", "Filial"});
    second->CommitRetaining();
    EXPECT_EQ(Value(*db, {"SELECT COUNT(*) FROM {CADCOR}"}), "0");
    EXPECT_EQ(Value(*db, {"SELECT EMP_NOME FROM {EMPRESA}"}), "Filial");
}

TEST_P(Schema, ErrorsOfASecondCompanyNameTheLogicalTable)
{
    auto second = Connect({.company = "02"});
    MigrateSchema(*second);
    const TStatement insert("INSERT INTO {CADFLUXO} (CODIGO, DESCRICAO) VALUES (?, ?)", "010", "Corte");
    second->ExecSQL(insert);
    const auto refusal = Refusal(*second, insert);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->Table(), "CADFLUXO");
    EXPECT_EQ(refusal->Columns(), "CODIGO");
}

TEST_P(Schema, IdentitiesGrowWithInsertion)
{
    for (int i = 0; i < 3; ++i)
        db->ExecSQL({"INSERT INTO {FLUXO} (CODIGO) VALUES (?)", std::to_string(i)});
    EXPECT_EQ(
        Values(*db, {"SELECT CODIGO FROM {FLUXO} ORDER BY IDENTIFICADOR"}), (std::vector<std::string>{"0", "1", "2"}));
}

} // namespace
} // namespace alinhavo
