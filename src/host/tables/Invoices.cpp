#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl notaColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"FATURA", Text, width::invoice, "Nota"},
    {"SERIE", Text, width::series, "Série"},
    {"CODCLI", Text, width::client, "Cliente", "ENTIDADE"},
    {"DT_EMISSAO", Date, 0, "Data de emissão"},
    {"DT_SAIDA", Date, 0, "Data de saída"},
    {"VALOR", Float, 0, "Valor"},
    {"NATUREZA", Text, width::nature, "Natureza de operação", "NATUREZA"},
    {.name = "IMPRESSO",
        .kind = Text,
        .width = width::flag,
        .caption = "Situação",
        .choices = "S=Impressa,C=Cancelada,D=Denegada"},
    {"TIPFAT", Text, width::flag, "Tipo (D devolução)"},
};

constexpr TIndexDecl notaIndexes[] = {
    {"FATURA,SERIE"},
    {"CODCLI"},
    {"DT_EMISSAO"},
};

constexpr TColumnDecl notaitenColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"FATURA", Text, width::invoice, "Nota"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"TIPO_IT", Text, width::flag, "Tipo do item"},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"DESCRICAO", Text, width::productName, "Descrição"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAMANHO", Text, width::size, "Tamanho", "TABTAM"},
    {"LOTE", Text, width::lot, "Lote"},
    {"QTDE", Float, 0, "Quantidade"},
    {"PRECO", Float, 0, "Preço"},
    {"VALOR", Float, 0, "Valor"},
    {"NATUREZA", Text, width::nature, "Natureza de operação", "NATUREZA"},
};

constexpr TIndexDecl notaitenIndexes[] = {
    {"FATURA,ORDEM"},
    {"LOTE,CODIGO"},
};

constexpr TColumnDecl notaEntraColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NOTAFISCAL", Text, width::invoice, "Nota fiscal"},
    {"SERIE", Text, width::series, "Série"},
    {"CREDOR", Text, width::client, "Fornecedor", "ENTIDADE"},
    {"DT_EMISSAO", Date, 0, "Data de emissão"},
    {"DT_ENTRADA", Date, 0, "Data de entrada"},
    {"VALOR", Float, 0, "Valor"},
    {"NATUREZA", Text, width::nature, "Natureza de operação", "NATUREZA"},
};

constexpr TIndexDecl notaEntraIndexes[] = {
    {"NOTAFISCAL,CREDOR"},
    {"CREDOR"},
};

constexpr TColumnDecl nfEntraItenColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::invoice, "Nota fiscal"},
    {"SERIE", Text, width::series, "Série"},
    {"CODCRE", Text, width::client, "Fornecedor", "ENTIDADE"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"TIPO", Text, width::flag, "Tipo (P produto)"},
    {"CODIGO", Text, width::product, "Produto"},
    {"DESCRICAO", Text, width::productName, "Descrição"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"LOTE", Text, width::lot, "Lote"},
    {"QTDE", Float, 0, "Quantidade"},
    {"VALOR", Float, 0, "Valor unitário"},
    {"VAL_DESC", Float, 0, "Desconto"},
    {"DOCTO", Text, width::invoice, "Nota de remessa"},
};

constexpr TIndexDecl nfEntraItenIndexes[] = {
    {"NUMERO,CODCRE"},
    {"LOTE"},
    {"DOCTO,CODIGO"},
};

constexpr TColumnDecl naturezaColumns[] = {
    {"NATUREZA", Text, width::nature, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"TIPO", Text, width::flag, "Tipo (R remessa)"},
};

constexpr TColumnDecl tabfisColumns[] = {
    {"CODIGO", Text, width::fiscalClass, "NCM"},
    {"DESCRICAO", Text, width::productName, "Descrição"},
};

constexpr TTableDecl all[] = {
    {.name = "NATUREZA",
        .caption = "Naturezas de operação",
        .key = "NATUREZA",
        .keeper = TKeeper::Person,
        .group = group::invoices,
        .description = "DESCRICAO",
        .columns = naturezaColumns},
    {.name = "NF_ENTRA_ITEN",
        .caption = "Itens das notas de entrada",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::invoices,
        .rowKey = "NUMERO,SERIE,CODCRE,ORDEM",
        .required = "NUMERO,CODCRE",
        .columns = nfEntraItenColumns,
        .indexes = nfEntraItenIndexes},
    {.name = "NOTA",
        .caption = "Notas emitidas",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::invoices,
        .rowKey = "FATURA,SERIE",
        .required = "FATURA,CODCLI",
        .columns = notaColumns,
        .indexes = notaIndexes},
    {.name = "NOTAITEN",
        .caption = "Itens das notas emitidas",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::invoices,
        .rowKey = "FATURA,ORDEM",
        .required = "FATURA",
        .columns = notaitenColumns,
        .indexes = notaitenIndexes},
    {.name = "NOTA_ENTRA",
        .caption = "Notas de entrada",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::invoices,
        .rowKey = "NOTAFISCAL,SERIE,CREDOR",
        .required = "NOTAFISCAL,CREDOR",
        .columns = notaEntraColumns,
        .indexes = notaEntraIndexes},
    {.name = "TABFIS",
        .caption = "Classificações fiscais",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::invoices,
        .description = "DESCRICAO",
        .columns = tabfisColumns},
};

} // namespace

std::span<const TTableDecl> Invoices() { return all; }

} // namespace alinhavo::tables
