#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

/// One posting, the same for products and materials.
constexpr TColumnDecl postingColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::product, "Código"},
    {"COR", Text, width::colour, "Cor"},
    {"TAM", Text, width::size, "Tamanho"},
    {"PARTE", Text, width::part, "Parte"},
    {"LOTE", Text, width::lot, "Lote"},
    {"DEPOSITO", Text, width::warehouse, "Depósito"},
    {"QUALIDADE", Text, width::quality, "Qualidade"},
    {"DOCUMENTO", Text, 20, "Documento"},
    {"ORIGEM", Text, 2, "Origem"},
    {"TIPO_MOV", Text, width::stockMovement, "Tipo de movimento"},
    {"SAIDA", Text, width::flag, "Saída"},
    {"QUANTIDADE", Float, 0, "Quantidade"},
    {"CUSTO", Float, 0, "Custo"},
    {"DATA", Date, 0, "Data"},
    {"OBSERVACAO", Text, 250, "Observação"},
    {"USUARIO", Text, width::userName, "Usuário"},
    {"DATA_HORA", DateTime, 0, "Gravado em"},
};

constexpr TIndexDecl postingIndexes[] = {
    {"CODIGO,COR,TAM"},
    {"DOCUMENTO"},
    {"DATA"},
};

constexpr TColumnDecl paItenColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::product, "Produto"},
    {"COR", Text, width::colour, "Cor"},
    {"TAM", Text, width::size, "Tamanho"},
    {"TIPO", Text, width::quality, "Qualidade"},
    {"DEPOSITO", Text, width::warehouse, "Depósito"},
    {"LOTE", Text, width::lot, "Lote"},
    {"QUANTIDADE", Float, 0, "Quantidade"},
    {"BARRA", Text, 14, "Código de barras EAN"},
    {"BARRA28", Text, 6, "Código da etiqueta Barra 128"},
    {"BARRACLI", Text, 25, "Código de barras do cliente"},
    {"COMPOSICAO", Text, 250, "Composição"},
};

constexpr TIndexDecl paItenIndexes[] = {
    {"CODIGO,COR,TAM,DEPOSITO,LOTE"},
    {.columns = "BARRA", .prefix = true},
    {"BARRA28"},
    {"BARRACLI"},
};

constexpr TColumnDecl matItenColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::product, "Material"},
    {"COR", Text, width::colour, "Cor"},
    {"DEPOSITO", Text, width::warehouse, "Depósito"},
    {"LOTE", Text, width::lot, "Lote"},
    {"QUALIDADE", Text, width::quality, "Qualidade"},
    {"QTDE", Float, 0, "Quantidade"},
    {"PRECO_MED", Float, 0, "Preço médio"},
    {"LARGURA", Float, 0, "Largura"},
    {"LOCAL", Text, width::place, "Local"},
    {"BARRA", Text, 25, "Código de barras"},
};

constexpr TIndexDecl matItenIndexes[] = {
    {"CODIGO,COR,DEPOSITO,LOTE"},
    {"BARRA"},
};

constexpr TColumnDecl matLoteColumns[] = {
    {"CODIGO", Text, width::product, "Material"},
    {"COR", Text, width::colour, "Cor"},
    {"LOTE", Text, width::lot, "Lote"},
    {"GRAMATURA", Float, 0, "Gramatura"},
    {"TONALIDADE", Text, 20, "Tonalidade"},
};

constexpr TColumnDecl depositoColumns[] = {
    {"CODIGO", Text, width::warehouse, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"PRIORIDADE", Text, 2, "Prioridade"},
};

constexpr TColumnDecl tabbaiColumns[] = {
    {"CODIGO", Text, width::stockMovement, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"TIPO", Text, width::flag, "Tipo (E entrada, S saída)"},
    {"TIPO_ESTOQUE", Integer, 0, "Uso pelo sistema (5 entrada de produção, 14 saída de produção ou consumo)"},
};

constexpr TColumnDecl localColumns[] = {
    {"CODIGO", Text, width::place, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TColumnDecl cadtagColumns[] = {
    {"CODIGO", Text, 1, "Dígito da embalagem"},
    {"QTDE", Integer, 0, "Unidades na embalagem"},
};

constexpr TColumnDecl vendaCaixaColumns[] = {
    {"USUARIO", Text, width::userName, "Usuário"},
    {"DEPOSITO", Text, width::warehouse, "Depósito"},
};

constexpr TColumnDecl inventarioColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"DATA", Date, 0, "Data"},
    {"CODIGO", Text, width::product, "Produto"},
    {"COR", Text, width::colour, "Cor"},
    {"TAM", Text, width::size, "Tamanho"},
    {"NUMERO", Text, width::order, "OF"},
    {"LOTE", Text, width::lot, "Lote"},
    {"PARTE", Text, width::part, "Parte"},
    {"DESCRICAO", Text, width::productName, "Descrição"},
    {"UNIDADE", Text, width::unit, "Unidade"},
    {"CODCLI", Text, width::client, "Facção"},
    {"QUANTIDADE", Float, 0, "Quantidade"},
    {"PRECO", Float, 0, "Preço"},
    {"POSSE", Text, width::flag, "Posse"},
    {"USUARIO", Text, width::userName, "Usuário"},
    {"DATA_HORA", DateTime, 0, "Gerado em"},
};

constexpr TIndexDecl inventarioIndexes[] = {
    {"DATA,CODIGO"},
};

constexpr TTableDecl all[] = {
    {.name = "CADTAG", .caption = "Embalagens do código DUN 14", .key = "CODIGO", .columns = cadtagColumns},
    {.name = "DEPOSITO", .caption = "Depósitos", .key = "CODIGO", .columns = depositoColumns},
    {.name = "INVENTARIO",
        .caption = "Inventário gerado",
        .key = "IDENTIFICADOR",
        .columns = inventarioColumns,
        .indexes = inventarioIndexes},
    {.name = "LOCAL", .caption = "Locais", .key = "CODIGO", .columns = localColumns},
    {.name = "MAT_ITEN",
        .caption = "Estoque de materiais",
        .key = "IDENTIFICADOR",
        .columns = matItenColumns,
        .indexes = matItenIndexes},
    {.name = "MAT_LOTE", .caption = "Lotes de material", .key = "CODIGO,COR,LOTE", .columns = matLoteColumns},
    {.name = "MAT_MOV",
        .caption = "Movimentos de estoque de materiais",
        .key = "IDENTIFICADOR",
        .columns = postingColumns,
        .indexes = postingIndexes},
    {.name = "PA_ITEN",
        .caption = "Estoque de produtos",
        .key = "IDENTIFICADOR",
        .columns = paItenColumns,
        .indexes = paItenIndexes},
    {.name = "PA_MOV",
        .caption = "Movimentos de estoque de produtos",
        .key = "IDENTIFICADOR",
        .columns = postingColumns,
        .indexes = postingIndexes},
    {.name = "TABBAI", .caption = "Tipos de movimento de estoque", .key = "CODIGO", .columns = tabbaiColumns},
    {.name = "VENDA_CAIXA", .caption = "Depósito padrão do usuário", .key = "USUARIO", .columns = vendaCaixaColumns},
};

} // namespace

std::span<const TTableDecl> Stock() { return all; }

} // namespace alinhavo::tables
