#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl tabelaColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::priceTable, "Tabela de preços", "REGIAO"},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"PRECO", Float, 0, "Preço"},
    {"OBSERVACAO", Text, 1000, "Observação"},
};

constexpr TIndexDecl tabelaIndexes[] = {
    {"CODIGO,NUMERO,SETOR,PARTE"},
    {"SETOR,NUMERO"},
};

constexpr TForeignKeyDecl tabelaForeignKeys[] = {
    {"SETOR", "CADFLUXO", "CODIGO"},
};

constexpr TColumnDecl regiaoColumns[] = {
    {"REGIAO", Text, width::priceTable, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {.name = "PADRAO", .kind = Text, .width = width::flag, .caption = "Padrão", .choices = yesNo},
};

constexpr TColumnDecl tabprecoColumns[] = {
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"REGIAO", Text, width::priceTable, "Tabela de preços", "REGIAO"},
    {"PRECO_00", Float, 0, "Preço a 0 dias"},
    {"PRECO_07", Float, 0, "Preço a 7 dias"},
    {"PRECO_14", Float, 0, "Preço a 14 dias"},
    {"PRECO_21", Float, 0, "Preço a 21 dias"},
    {"PRECO_28", Float, 0, "Preço a 28 dias"},
    {"PRECO_35", Float, 0, "Preço a 35 dias"},
    {"PRECO_42", Float, 0, "Preço a 42 dias"},
    {"PRECO_49", Float, 0, "Preço a 49 dias"},
    {"PRECO_56", Float, 0, "Preço a 56 dias"},
    {"PRECO_63", Float, 0, "Preço a 63 dias"},
    {"PRECO_70", Float, 0, "Preço a 70 dias"},
    {"PRECO_77", Float, 0, "Preço a 77 dias"},
    {"PRECO_84", Float, 0, "Preço a 84 dias"},
    {"PRECO_91", Float, 0, "Preço a 91 dias"},
};

constexpr TColumnDecl precoItenColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"ARTIGO", Text, width::product, "Produto", "PRODUTO"},
    {"VALOR", Float, 0, "Valor"},
};

constexpr TIndexDecl precoItenIndexes[] = {
    {"ARTIGO"},
};

constexpr TTableDecl all[] = {
    {.name = "PRECO_ITEN",
        .caption = "Itens do custo do produto",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::prices,
        .required = "ARTIGO",
        .columns = precoItenColumns,
        .indexes = precoItenIndexes},
    {.name = "REGIAO",
        .caption = "Tabelas de preços",
        .key = "REGIAO",
        .keeper = TKeeper::Person,
        .group = group::prices,
        .description = "DESCRICAO",
        .columns = regiaoColumns},
    {.name = "TABELA",
        .caption = "Preços de facção",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Screen,
        .group = group::prices,
        .screen = "TFmFacPreco",
        .rowKey = "NUMERO,CODIGO,SETOR,PARTE,COR,TAM",
        .required = "NUMERO,CODIGO,SETOR,PARTE",
        .columns = tabelaColumns,
        .indexes = tabelaIndexes,
        .foreignKeys = tabelaForeignKeys},
    {.name = "TABPRECO",
        .caption = "Preços de venda",
        .key = "CODIGO,REGIAO",
        .keeper = TKeeper::Person,
        .group = group::prices,
        .columns = tabprecoColumns},
};

} // namespace

std::span<const TTableDecl> Prices() { return all; }

} // namespace alinhavo::tables
