#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

/// One posting, the same for products and materials.
constexpr TColumnDecl postingColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::product, "Código"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"LOTE", Text, width::lot, "Lote"},
    {"DEPOSITO", Text, width::warehouse, "Depósito", "DEPOSITO"},
    {"QUALIDADE", Text, width::quality, "Qualidade", "TABQUL"},
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
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"TIPO", Text, width::quality, "Qualidade", "TABQUL"},
    {"DEPOSITO", Text, width::warehouse, "Depósito", "DEPOSITO"},
    {"LOTE", Text, width::lot, "Lote"},
    {.name = "QUANTIDADE", .kind = Float, .caption = "Quantidade", .kept = true},
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
    {"CODIGO", Text, width::product, "Material", "MATERIAL"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"DEPOSITO", Text, width::warehouse, "Depósito", "DEPOSITO"},
    {"LOTE", Text, width::lot, "Lote"},
    {"QUALIDADE", Text, width::quality, "Qualidade", "TABQUL"},
    {.name = "QTDE", .kind = Float, .caption = "Quantidade", .kept = true},
    {.name = "PRECO_MED", .kind = Float, .caption = "Preço médio", .kept = true},
    {"LARGURA", Float, 0, "Largura"},
    {"LOCAL", Text, width::place, "Local", "LOCAL"},
    {"BARRA", Text, 25, "Código de barras"},
};

constexpr TIndexDecl matItenIndexes[] = {
    {"CODIGO,COR,DEPOSITO,LOTE"},
    {"BARRA"},
};

constexpr TColumnDecl matLoteColumns[] = {
    {"CODIGO", Text, width::product, "Material", "MATERIAL"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
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
    {.name = "TIPO", .kind = Text, .width = width::flag, .caption = "Tipo", .choices = "E=Entrada,S=Saída"},
    {.name = "TIPO_ESTOQUE",
        .kind = Integer,
        .caption = "Uso pelo sistema",
        .choices = "5=Entrada de produção,14=Saída de produção ou consumo"},
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
    {"USUARIO", Text, width::userName, "Usuário", "ACESSO_USUARIOS.NOME"},
    {"DEPOSITO", Text, width::warehouse, "Depósito", "DEPOSITO"},
};

constexpr TColumnDecl inventarioColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"DATA", Date, 0, "Data"},
    {"CODIGO", Text, width::product, "Produto"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"LOTE", Text, width::lot, "Lote"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"DESCRICAO", Text, width::productName, "Descrição"},
    {"UNIDADE", Text, width::unit, "Unidade", "UNIDADE"},
    {"CODCLI", Text, width::client, "Facção", "ENTIDADE"},
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
    {.name = "CADTAG",
        .caption = "Embalagens do código DUN 14",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::stock,
        .columns = cadtagColumns},
    {.name = "DEPOSITO",
        .caption = "Depósitos",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::stock,
        .description = "DESCRICAO",
        .required = "DESCRICAO",
        .columns = depositoColumns},
    {.name = "INVENTARIO",
        .caption = "Inventário gerado",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::stock,
        .columns = inventarioColumns,
        .indexes = inventarioIndexes},
    {.name = "LOCAL",
        .caption = "Locais",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::stock,
        .description = "DESCRICAO",
        .columns = localColumns},
    {.name = "MAT_ITEN",
        .caption = "Estoque de materiais",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::stock,
        .rowKey = "CODIGO,COR,DEPOSITO,LOTE,QUALIDADE",
        .required = "CODIGO",
        .columns = matItenColumns,
        .indexes = matItenIndexes},
    {.name = "MAT_LOTE",
        .caption = "Lotes de material",
        .key = "CODIGO,COR,LOTE",
        .keeper = TKeeper::Person,
        .group = group::stock,
        .columns = matLoteColumns},
    {.name = "MAT_MOV",
        .caption = "Movimentos de estoque de materiais",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::stock,
        .columns = postingColumns,
        .indexes = postingIndexes},
    {.name = "PA_ITEN",
        .caption = "Estoque de produtos",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::stock,
        .rowKey = "CODIGO,COR,TAM,TIPO,DEPOSITO,LOTE",
        .required = "CODIGO",
        .columns = paItenColumns,
        .indexes = paItenIndexes},
    {.name = "PA_MOV",
        .caption = "Movimentos de estoque de produtos",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::stock,
        .columns = postingColumns,
        .indexes = postingIndexes},
    {.name = "TABBAI",
        .caption = "Tipos de movimento de estoque",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::stock,
        .description = "DESCRICAO",
        .columns = tabbaiColumns},
    {.name = "VENDA_CAIXA",
        .caption = "Depósito padrão do usuário",
        .key = "USUARIO",
        .keeper = TKeeper::Person,
        .group = group::stock,
        .columns = vendaCaixaColumns},
};

} // namespace

std::span<const TTableDecl> Stock() { return all; }

} // namespace alinhavo::tables
