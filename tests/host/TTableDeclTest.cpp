#include "host/TTableDecl.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <numeric>
#include <set>
#include <string>

namespace alinhavo {
namespace {

// What the narrower of the two servers takes: Firebird 3 with four bytes a character.
constexpr int longestIdentifier = 31;
constexpr int widestText = 8000;
constexpr int widestRow = 60'000;
constexpr int widestIndex = 3'000;
constexpr int bytesPerCharacter = 4;

bool IsIdentifier(std::string_view name)
{
    const auto letter = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto rest = [&](char c) { return letter(c) || (c >= '0' && c <= '9') || c == '_'; };
    return !name.empty() && name.size() <= longestIdentifier && letter(name.front()) && std::ranges::all_of(name, rest);
}

std::string Lower(std::string_view text)
{
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
    return lower;
}

int TextWidth(const TTableDecl& table, std::string_view columns)
{
    int width = 0;
    for (const auto name : ColumnNames(columns))
        if (const auto* column = FindColumn(table, name))
            width += column->width;
    return width;
}

bool HasIndexOn(const TTableDecl& table, std::string_view columns)
{
    return std::ranges::find(table.indexes, columns, &TIndexDecl::columns) != table.indexes.end();
}

/// Runs a check on each table and says which one failed.
template <typename Check>
void ForEachTable(Check check)
{
    ASSERT_GT(Tables().size(), 100u);
    for (const auto& table : Tables()) {
        SCOPED_TRACE(table.name);
        check(table);
    }
}

TEST(TableDeclarations, AreInAscendingOrderOfDistinctNames)
{
    const auto notAscending = std::ranges::adjacent_find(Tables(), std::ranges::greater_equal{}, &TTableDecl::name);
    EXPECT_EQ(notAscending, Tables().end()) << notAscending->name;
}

TEST(TableDeclarations, NameTablesAndColumnsAsBothServersAccept)
{
    ForEachTable([](const TTableDecl& table) {
        EXPECT_TRUE(IsIdentifier(table.name));
        for (const auto& column : table.columns)
            EXPECT_TRUE(IsIdentifier(column.name)) << column.name;
    });
}

TEST(TableDeclarations, NameEachColumnOfATableOnce)
{
    ForEachTable([](const TTableDecl& table) {
        std::set<std::string_view> names;
        for (const auto& column : table.columns)
            EXPECT_TRUE(names.insert(column.name).second) << column.name;
    });
}

TEST(TableDeclarations, HaveAKeyOfTheirOwnColumns)
{
    ForEachTable([](const TTableDecl& table) {
        EXPECT_FALSE(ColumnNames(table.key).empty());
        for (const auto name : ColumnNames(table.key))
            EXPECT_NE(FindColumn(table, name), nullptr) << name;
    });
}

TEST(TableDeclarations, IndexTheirOwnColumnsAndNoListTwice)
{
    ForEachTable([](const TTableDecl& table) {
        std::set<std::pair<std::string_view, bool>> seen{{table.key, false}};
        for (const auto& index : table.indexes) {
            EXPECT_TRUE(seen.insert({index.columns, index.descending}).second) << index.columns;
            for (const auto name : ColumnNames(index.columns))
                EXPECT_NE(FindColumn(table, name), nullptr) << index.columns;
        }
    });
}

TEST(TableDeclarations, PointForeignKeysAtKeysOfTheSameKindAndWidth)
{
    ForEachTable([](const TTableDecl& table) {
        for (const auto& foreign : table.foreignKeys) {
            const auto* referred = FindTable(foreign.table);
            ASSERT_NE(referred, nullptr) << foreign.table;
            EXPECT_EQ(foreign.references, referred->key);
            const auto own = ColumnNames(foreign.columns);
            const auto others = ColumnNames(foreign.references);
            ASSERT_EQ(own.size(), others.size());
            for (std::size_t i = 0; i < own.size(); ++i) {
                const auto* column = FindColumn(table, own[i]);
                const auto* other = FindColumn(*referred, others[i]);
                ASSERT_TRUE(column && other) << own[i];
                EXPECT_EQ(column->kind, other->kind);
                EXPECT_EQ(column->width, other->width);
            }
        }
    });
}

TEST(TableDeclarations, GiveAWidthToTextAndToNothingElse)
{
    ForEachTable([](const TTableDecl& table) {
        for (const auto& column : table.columns) {
            const bool text = column.kind == TColumnKind::Text;
            EXPECT_TRUE(text ? column.width >= 1 && column.width <= widestText : column.width == 0) << column.name;
        }
    });
}

TEST(TableDeclarations, HaveAtMostOneIdentityAndItIsTheKey)
{
    ForEachTable([](const TTableDecl& table) {
        EXPECT_LE(std::ranges::count(table.columns, TColumnKind::Identity, &TColumnDecl::kind), 1);
        for (const auto& column : table.columns)
            EXPECT_TRUE(column.kind != TColumnKind::Identity || column.name == table.key) << column.name;
    });
}

TEST(TableDeclarations, FitTheWidestRow)
{
    ForEachTable([](const TTableDecl& table) {
        const int characters = std::accumulate(table.columns.begin(), table.columns.end(), 0,
            [](int sum, const TColumnDecl& column) { return sum + column.width; });
        EXPECT_LT(characters * bytesPerCharacter, widestRow);
    });
}

TEST(TableDeclarations, FitTheWidestIndex)
{
    ForEachTable([](const TTableDecl& table) {
        EXPECT_LE(TextWidth(table, table.key) * bytesPerCharacter, widestIndex);
        for (const auto& index : table.indexes)
            EXPECT_LE(TextWidth(table, index.columns) * bytesPerCharacter, widestIndex) << index.columns;
    });
}

/// Numbers that the program gives, and what nobody may read.
bool IsTechnical(std::string_view column)
{
    return std::set<std::string_view>{"ID_ANT", "EMAIL", "SEQUENCIA", "SENHA", "IDENTIFICADOR"}.contains(column);
}

bool HasUnseenKey(const TTableDecl& table)
{
    const auto* key = FindColumn(table, table.key);
    return key && key->kind == TColumnKind::Identity;
}

TEST(TableDeclarations, CaptionEveryTableAndEveryColumnThatAPersonSees)
{
    ForEachTable([](const TTableDecl& table) {
        EXPECT_FALSE(table.caption.empty());
        for (const auto& column : table.columns)
            EXPECT_TRUE(!column.caption.empty() || IsTechnical(column.name)) << column.name;
    });
}

TEST(TableDeclarations, CaptionNoTwoColumnsOfATableAlike)
{
    ForEachTable([](const TTableDecl& table) {
        std::set<std::string_view> captions;
        for (const auto& column : table.columns)
            EXPECT_TRUE(column.caption.empty() || captions.insert(column.caption).second) << column.caption;
    });
}

TEST(TableDeclarations, CaptionNoTwoTablesAlike)
{
    std::set<std::string_view> captions;
    for (const auto& table : Tables())
        EXPECT_TRUE(captions.insert(table.caption).second) << table.name << " " << table.caption;
}

TEST(TableDeclarations, SayUnderWhatAPersonLooksForATable)
{
    ForEachTable([](const TTableDecl& table) { EXPECT_EQ(table.group.empty(), table.keeper == TKeeper::System); });
}

TEST(TableDeclarations, NameTheScreenOfATableThatAScreenKeeps)
{
    ForEachTable([](const TTableDecl& table) { EXPECT_EQ(table.screen.empty(), table.keeper != TKeeper::Screen); });
}

TEST(TableDeclarations, LetAPersonSeeTheKeyOfWhatHeMaintains)
{
    ForEachTable([](const TTableDecl& table) {
        if (table.keeper != TKeeper::Person)
            return;
        for (const auto name : ColumnNames(table.key))
            EXPECT_EQ(FindColumn(table, name)->caption.empty(), HasUnseenKey(table)) << name;
    });
}

TEST(TableDeclarations, NameTheirOwnColumnsAsDescriptionRowKeyAndRequired)
{
    ForEachTable([](const TTableDecl& table) {
        EXPECT_TRUE(table.description.empty() || FindColumn(table, table.description)) << table.description;
        for (const auto list : {table.rowKey, table.required})
            for (const auto name : ColumnNames(list))
                EXPECT_NE(FindColumn(table, name), nullptr) << name;
    });
}

TEST(TableDeclarations, HaveARowKeyOnlyWhereTheKeyIsANumberUnseen)
{
    ForEachTable([](const TTableDecl& table) { EXPECT_TRUE(table.rowKey.empty() || HasUnseenKey(table)); });
}

TEST(TableDeclarations, ReferToDeclaredColumnsOfTheSameKindAndWidth)
{
    ForEachTable([](const TTableDecl& table) {
        for (const auto& column : table.columns) {
            if (column.refersTo.empty())
                continue;
            const auto reference = ReferenceOf(column);
            ASSERT_TRUE(reference.table && reference.column) << column.name << " " << column.refersTo;
            EXPECT_EQ(column.kind, reference.column->kind) << column.name;
            EXPECT_EQ(column.width, reference.column->width) << column.name;
        }
    });
}

TEST(TableDeclarations, GiveChoicesThatFitTheirColumn)
{
    ForEachTable([](const TTableDecl& table) {
        for (const auto& column : table.columns)
            for (const auto& choice : Choices(column)) {
                EXPECT_FALSE(choice.value.empty() || choice.caption.empty()) << column.name;
                EXPECT_TRUE(column.kind != TColumnKind::Text || choice.value.size() <= std::size_t(column.width))
                    << column.name << " " << choice.value;
            }
    });
}

TEST(TableDeclarations, FollowAReferenceToTheKeyOrToTheColumnNamed)
{
    EXPECT_EQ(ReferenceOf(*FindColumn(*FindTable("OF1"), "CODCLI")).table, FindTable("ENTIDADE"));
    EXPECT_EQ(ReferenceOf(*FindColumn(*FindTable("OF1"), "CODCLI")).column->name, "CODCLI");
    EXPECT_EQ(ReferenceOf(*FindColumn(*FindTable("VENDA_CAIXA"), "USUARIO")).column->name, "NOME");
    EXPECT_EQ(ReferenceOf(*FindColumn(*FindTable("OF1"), "OBSERVACAO")).table, nullptr);
}

TEST(TableDeclarations, TellTheRowsOfATableApartForAPerson)
{
    EXPECT_EQ(PersonKey(*FindTable("CADCOR")), "COR");
    EXPECT_EQ(PersonKey(*FindTable("PED_ITEN")), "NUMERO,CODIGO,COR,TAM");
    EXPECT_EQ(PersonKey(*FindTable("PRECO_ITEN")), "");
}

TEST(TableDeclarations, RequireTheKeyAndWhatTheyListButNoIdentity)
{
    const auto required = [](const char* table, const char* column) {
        return IsRequired(*FindTable(table), *FindColumn(*FindTable(table), column));
    };
    EXPECT_TRUE(required("CADCOR", "COR"));
    EXPECT_TRUE(required("CADCOR", "DESCRICAO"));
    EXPECT_TRUE(required("PED_ITEN", "TAM"));
    EXPECT_FALSE(required("PED_ITEN", "IDENTIFICADOR"));
    EXPECT_FALSE(required("PED_ITEN", "PRECO"));
}

TEST(TableDeclarations, SplitChoicesInValueAndCaption)
{
    const auto choices = Choices(*FindColumn(*FindTable("TABBAI"), "TIPO"));
    ASSERT_EQ(choices.size(), 2u);
    EXPECT_EQ(choices[0].value, "E");
    EXPECT_EQ(choices[0].caption, "Entrada");
    EXPECT_EQ(choices[1].value, "S");
    EXPECT_EQ(choices[1].caption, "Saída");
    EXPECT_TRUE(Choices(*FindColumn(*FindTable("CADCOR"), "DESCRICAO")).empty());
}

TEST(TableDeclarations, KeepUsersRightsAndPasswordsOffTheTablesScreen)
{
    for (const auto name : {"ACESSO", "ACESSO_MENU", "ACESSO_USUARIOS", "PREFERENCIA", "PARAMETRO", "ARQUIVO"})
        EXPECT_EQ(FindTable(name)->keeper, TKeeper::System) << name;
    EXPECT_TRUE(FindColumn(*FindTable("ACESSO_USUARIOS"), "SENHA")->caption.empty());
}

TEST(TableDeclarations, AreFoundWithoutRegardToCase)
{
    ForEachTable([](const TTableDecl& table) {
        EXPECT_EQ(FindTable(table.name), &table);
        EXPECT_EQ(FindTable(Lower(table.name)), &table);
        for (const auto& column : table.columns) {
            EXPECT_EQ(FindColumn(table, column.name), &column);
            EXPECT_EQ(FindColumn(table, Lower(column.name)), &column);
        }
    });
}

TEST(TableDeclarations, AreNotFoundUnderOtherNames)
{
    for (const auto name : {"", "A", "FACCA", "FACCAO2", "FACCAO33", "ZZZ", "FACCAO "})
        EXPECT_EQ(FindTable(name), nullptr) << name;
    EXPECT_EQ(FindColumn(*FindTable("FACCAO"), "QUANT_3"), nullptr);
    EXPECT_EQ(FindColumn(*FindTable("FACCAO"), ""), nullptr);
}

TEST(TableDeclarations, SplitAListOfColumnsInItsOrder)
{
    EXPECT_EQ(ColumnNames("NUMERO,OP,PARTE"), (std::vector<std::string_view>{"NUMERO", "OP", "PARTE"}));
    EXPECT_EQ(ColumnNames("MOV"), std::vector<std::string_view>{"MOV"});
    EXPECT_TRUE(ColumnNames("").empty());
}

TEST(TableDeclarations, ShareOneSetOfUsersRightsAndCompaniesAmongAllCompanies)
{
    std::vector<std::string_view> global;
    for (const auto& table : Tables())
        if (table.global)
            global.push_back(table.name);
    EXPECT_EQ(
        global, (std::vector<std::string_view>{"ACESSO", "ACESSO_MENU", "ACESSO_USUARIOS", "EMPRESA", "PREFERENCIA"}));
}

TEST(TableDeclarations, HoldASectorInUseByItsPositionsMovementsAndPrices)
{
    std::vector<std::string> holders;
    for (const auto& table : Tables())
        for (const auto& foreign : table.foreignKeys)
            holders.push_back(
                std::string(table.name) + "." + std::string(foreign.columns) + " " + std::string(foreign.table));
    EXPECT_EQ(
        holders, (std::vector<std::string>{"FACCAO.OP CADFLUXO", "FACCAO3.OP CADFLUXO", "TABELA.SETOR CADFLUXO"}));
}

TEST(TableDeclarations, KeepTheNamesOfSectorsUnique)
{
    const auto indexes = FindTable("CADFLUXO")->indexes;
    EXPECT_TRUE(std::ranges::any_of(
        indexes, [](const TIndexDecl& index) { return index.unique && index.columns == "DESCRICAO"; }));
}

TEST(TableDeclarations, LetRowsThatMayRepeatHaveAnIdentityOfTheirOwn)
{
    for (const auto name : {"FACCAO", "FACCAO3", "FLUXO", "TABELA", "DEF_MOV", "OF2", "PRODUCAO1", "PCP_PACOTE"}) {
        const auto* table = FindTable(name);
        ASSERT_NE(table, nullptr) << name;
        EXPECT_EQ(table->key, "IDENTIFICADOR") << name;
        EXPECT_EQ(FindColumn(*table, "IDENTIFICADOR")->kind, TColumnKind::Identity) << name;
    }
}

TEST(TableDeclarations, IndexTheHotPathsOfTheMovement)
{
    for (const auto name : {"FACCAO", "FACCAO3"}) {
        EXPECT_TRUE(HasIndexOn(*FindTable(name), "NUMERO,OP,PARTE,MOV")) << name;
        EXPECT_TRUE(HasIndexOn(*FindTable(name), "ID_ANT")) << name;
    }
    EXPECT_TRUE(HasIndexOn(*FindTable("FACCAO3"), "CODCLI,PAGO,DT_PAGTO"));
    EXPECT_TRUE(HasIndexOn(*FindTable("PA_ITEN"), "BARRA"));
    EXPECT_TRUE(HasIndexOn(*FindTable("TABELA"), "CODIGO,NUMERO,SETOR,PARTE"));
}

struct TNamedColumn {
    const char* table;
    const char* column;
    TColumnKind kind;
    int width = 0;
};

class ColumnsOnWhichScreensRest : public testing::TestWithParam<TNamedColumn> { };

TEST_P(ColumnsOnWhichScreensRest, AreDeclaredWithTheirKindAndWidth)
{
    const auto* table = FindTable(GetParam().table);
    ASSERT_NE(table, nullptr);
    const auto* column = FindColumn(*table, GetParam().column);
    ASSERT_NE(column, nullptr);
    EXPECT_EQ(column->kind, GetParam().kind);
    EXPECT_EQ(column->width, GetParam().width);
}

std::string NameOf(const testing::TestParamInfo<TNamedColumn>& info)
{
    return std::string(info.param.table) + "_" + info.param.column;
}

using enum TColumnKind;

INSTANTIATE_TEST_SUITE_P(TableDeclarations, ColumnsOnWhichScreensRest,
    testing::Values(TNamedColumn{"FACCAO", "NUMERO", Text, 6}, TNamedColumn{"FACCAO", "OP", Text, 3},
        TNamedColumn{"FACCAO", "FLUXO", Text, 3}, TNamedColumn{"FACCAO", "ID_ANT", Integer},
        TNamedColumn{"FACCAO", "QUANT_F", Float}, TNamedColumn{"FACCAO", "DT_LAN", Date},
        TNamedColumn{"FACCAO", "NOTA_REM", Text, 7}, TNamedColumn{"FACCAO", "OBS", Text, 8000},
        TNamedColumn{"FACCAO3", "CODCLI_ANT", Text, 5}, TNamedColumn{"FACCAO3", "NOTA", Text, 30},
        TNamedColumn{"FACCAO3", "NUM_AP", Text, 6}, TNamedColumn{"FACCAO3", "OBS", Text, 200},
        TNamedColumn{"FACCAO4", "CODIGO", Text, 8}, TNamedColumn{"FACCAO4", "DT_PAGTO", Date},
        TNamedColumn{"OF1", "OBSERVACAO", Text, 8000}, TNamedColumn{"OF_ITEN", "QTDE_C", Float},
        TNamedColumn{"OF2", "MOV", Integer}, TNamedColumn{"OF_SETOR", "LOCAL", Text, 30},
        TNamedColumn{"PCPFTOF", "COR_I_ORIG", Text, 6}, TNamedColumn{"MAT_RESERVA", "MOV", Integer},
        TNamedColumn{"PED_RESERVA", "QTDE_EXP", Float}, TNamedColumn{"PCP_PACOTE", "PACOTE", Text, 3},
        TNamedColumn{"CADFLUXO", "IND_PAG", Integer}, TNamedColumn{"CADFLUXO", "DIAS_SEMANA", Integer},
        TNamedColumn{"CADFLUXO", "MOVREPROVADO", Text, 1}, TNamedColumn{"ROTEIRO", "DESCRICAO", Text, 150},
        TNamedColumn{"PRO_FLUXO", "PADRAO", Text, 1}, TNamedColumn{"TABSPED", "CODIGO", Text, 10},
        TNamedColumn{"TABELA", "OBSERVACAO", Text, 1000}, TNamedColumn{"TABPRECO", "PRECO_00", Float},
        TNamedColumn{"TABPRECO", "PRECO_49", Float}, TNamedColumn{"TABPRECO", "PRECO_91", Float},
        TNamedColumn{"DEFEITO", "DESCRICAO", Text, 30}, TNamedColumn{"DEFEITO", "GRUPO", Text, 2},
        TNamedColumn{"DEF_MOV", "QUANT", Integer}, TNamedColumn{"DEF_MOV", "OBS_ITEM", Text, 100},
        TNamedColumn{"DEF_MOV", "OBS", Text, 8000}, TNamedColumn{"DEF_MEDIDAS", "MEDIDA", Float},
        TNamedColumn{"INSP_AMOSTRA", "CODIGO", Text, 6}, TNamedColumn{"PA_ITEN", "TIPO", Text, 2},
        TNamedColumn{"PA_ITEN", "BARRA28", Text, 6}, TNamedColumn{"MAT_ITEN", "PRECO_MED", Float},
        TNamedColumn{"PA_MOV", "DATA_HORA", DateTime}, TNamedColumn{"TABBAI", "TIPO_ESTOQUE", Integer},
        TNamedColumn{"ENTIDADE", "ATIVO", Text, 1}, TNamedColumn{"ENTIDADE", "OBS_FINAN", Text, 8000},
        TNamedColumn{"SITCLI", "CODIGO", Text, 3}, TNamedColumn{"MATERIAL", "ATIVO", Text, 1},
        TNamedColumn{"PAGTO", "NUM_AP", Text, 6}, TNamedColumn{"PAGTO", "DUPLI", Text, 20},
        TNamedColumn{"DESPERDICIO", "PESOL", Float}, TNamedColumn{"PRODUTO_ORDEM", "PERCENTUAL", Float},
        TNamedColumn{"COMBINACAO", "COR21", Text, 50}, TNamedColumn{"EST_QUADRO", "CAMADA8", Text, 6},
        TNamedColumn{"PCPFAIXA", "TAM24", Text, 4}, TNamedColumn{"FAC_TEMPO", "OPERADORES", Float},
        TNamedColumn{"PESSOAL", "TEMPO_DIARIO", Float}, TNamedColumn{"EMPRESA", "EMP_DTINV", Date},
        TNamedColumn{"ACESSO_USUARIOS", "SENHA", Text, 200}, TNamedColumn{"ACESSO_MENU", "NOME_FORM", Text, 60},
        TNamedColumn{"GERALOG", "TEXTO", Text, 8000}, TNamedColumn{"PREFERENCIA", "VALOR", Text, 8000}),
    NameOf);

} // namespace
} // namespace alinhavo
