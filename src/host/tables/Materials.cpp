#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl materialColumns[] = {
    {"CODIGO", Text, width::product, "Código"},
    {"DESCRICAO", Text, width::productName, "Descrição"},
    {"UNIDADE", Text, width::unit, "Unidade", "UNIDADE"},
    {"GRUPO", Text, width::materialGroup, "Grupo", "GRUPO_MA"},
    {.name = "ATIVO", .kind = Text, .width = width::flag, .caption = "Ativo", .choices = yesNo, .initial = "S"},
    {"COMPOSICAO", Text, 250, "Composição"},
    {"CONCENTRACAO", Text, 20, "Concentração"},
    {"GRAMATURA", Float, 0, "Gramatura"},
    {"LARGURA", Float, 0, "Largura"},
    {"NE", Text, 20, "Título do fio (Ne)"},
    {"REPOSICAO", Float, 0, "Preço de reposição"},
    {"OBSERVACAO", Text, width::longText, "Observação"},
};

constexpr TIndexDecl materialIndexes[] = {
    {"DESCRICAO"},
    {"GRUPO"},
};

constexpr TColumnDecl grupoMaColumns[] = {
    {"CODIGO", Text, width::materialGroup, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {.name = "DESP", .kind = Text, .width = width::flag, .caption = "Tecido de corte", .choices = yesNo},
};

constexpr TColumnDecl cadmattiColumns[] = {
    {"CODIGO2", Text, width::product, "Material", "MATERIAL"},
    {"GRAMATURA", Float, 0, "Gramatura"},
    {"KGROLO", Float, 0, "Quilos por rolo"},
    {"LTIN", Float, 0, "Largura tinta"},
    {"RAMA", Text, 20, "Rama"},
};

constexpr TColumnDecl cadcortiColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODCLI", Text, width::client, "Tinturaria", "ENTIDADE"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"COR1", Text, 20, "Cor na tinturaria"},
    {"CUSTO", Float, 0, "Custo"},
    {"TIPO", Text, 2, "Tipo"},
};

constexpr TIndexDecl cadcortiIndexes[] = {
    {"CODCLI,COR"},
};

constexpr TColumnDecl consMalhaColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"PRODUTO", Text, width::product, "Produto", "PRODUTO"},
    {"CODIGO", Text, width::product, "Material", "MATERIAL"},
    {"FAIXA", Text, width::consumptionRange, "Faixa de consumo", "PCPFAIXA"},
    {"APLICACAO", Text, width::application, "Aplicação", "PCPAPL"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"INFESTO", Text, 10, "Enfesto"},
    {"COMPRIMENTO", Float, 0, "Comprimento"},
    {"LARGURA", Float, 0, "Largura"},
    {"GRAMATURA", Float, 0, "Gramatura"},
    {"INDICE", Float, 0, "Índice"},
    {"PECAS", Float, 0, "Peças"},
    {"PESO", Float, 0, "Peso"},
    {"PESO_PECA", Float, 0, "Peso da peça"},
    {"QTDE_FOLHAS", Float, 0, "Quantidade de folhas"},
    {.name = "TUBULAR", .kind = Text, .width = width::flag, .caption = "Tubular", .choices = yesNo},
};

constexpr TIndexDecl consMalhaIndexes[] = {
    {"PRODUTO,CODIGO"},
};

constexpr TColumnDecl contratipoColumns[] = {
    {"MATERIAL", Text, width::product, "Material", "MATERIAL"},
    {"CODIGO", Text, width::product, "Contratipo", "MATERIAL"},
};

constexpr TColumnDecl pcpaplColumns[] = {
    {"CODIGO", Text, width::application, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"TIPO", Text, 2, "Tipo"},
};

constexpr TColumnDecl pcpfaixaColumns[] = {
    {"FAIXA", Text, width::consumptionRange, "Faixa de consumo"},
    {"TAM01", Text, width::size, "Tamanho 1"},
    {"TAM02", Text, width::size, "Tamanho 2"},
    {"TAM03", Text, width::size, "Tamanho 3"},
    {"TAM04", Text, width::size, "Tamanho 4"},
    {"TAM05", Text, width::size, "Tamanho 5"},
    {"TAM06", Text, width::size, "Tamanho 6"},
    {"TAM07", Text, width::size, "Tamanho 7"},
    {"TAM08", Text, width::size, "Tamanho 8"},
    {"TAM09", Text, width::size, "Tamanho 9"},
    {"TAM10", Text, width::size, "Tamanho 10"},
    {"TAM11", Text, width::size, "Tamanho 11"},
    {"TAM12", Text, width::size, "Tamanho 12"},
    {"TAM13", Text, width::size, "Tamanho 13"},
    {"TAM14", Text, width::size, "Tamanho 14"},
    {"TAM15", Text, width::size, "Tamanho 15"},
    {"TAM16", Text, width::size, "Tamanho 16"},
    {"TAM17", Text, width::size, "Tamanho 17"},
    {"TAM18", Text, width::size, "Tamanho 18"},
    {"TAM19", Text, width::size, "Tamanho 19"},
    {"TAM20", Text, width::size, "Tamanho 20"},
    {"TAM21", Text, width::size, "Tamanho 21"},
    {"TAM22", Text, width::size, "Tamanho 22"},
    {"TAM23", Text, width::size, "Tamanho 23"},
    {"TAM24", Text, width::size, "Tamanho 24"},
};

constexpr TColumnDecl pcpft2Columns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"APLICACAO", Text, width::application, "Aplicação", "PCPAPL"},
};

constexpr TIndexDecl pcpft2Indexes[] = {
    {"CODIGO"},
};

constexpr TTableDecl all[] = {
    {.name = "CADCORTI",
        .caption = "Cores de tinturaria",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::materials,
        .rowKey = "CODCLI,COR",
        .required = "CODCLI,COR",
        .columns = cadcortiColumns,
        .indexes = cadcortiIndexes},
    {.name = "CADMATTI",
        .caption = "Malhas tintas",
        .key = "CODIGO2",
        .keeper = TKeeper::Person,
        .group = group::materials,
        .columns = cadmattiColumns},
    {.name = "CONS_MALHA",
        .caption = "Consumo de malha",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::materials,
        .rowKey = "PRODUTO,CODIGO,FAIXA,APLICACAO,PARTE",
        .required = "PRODUTO,CODIGO",
        .columns = consMalhaColumns,
        .indexes = consMalhaIndexes},
    {.name = "CONTRATIPO",
        .caption = "Contratipos de materiais",
        .key = "MATERIAL,CODIGO",
        .keeper = TKeeper::Person,
        .group = group::materials,
        .columns = contratipoColumns},
    {.name = "GRUPO_MA",
        .caption = "Grupos de materiais",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::materials,
        .description = "DESCRICAO",
        .columns = grupoMaColumns},
    {.name = "MATERIAL",
        .caption = "Materiais",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::materials,
        .description = "DESCRICAO",
        .columns = materialColumns,
        .indexes = materialIndexes},
    {.name = "PCPAPL",
        .caption = "Aplicações",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::materials,
        .description = "DESCRICAO",
        .columns = pcpaplColumns},
    {.name = "PCPFAIXA",
        .caption = "Faixas de consumo",
        .key = "FAIXA",
        .keeper = TKeeper::Person,
        .group = group::materials,
        .columns = pcpfaixaColumns},
    {.name = "PCPFT2",
        .caption = "Ficha técnica do produto",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::materials,
        .rowKey = "CODIGO,APLICACAO",
        .required = "CODIGO,APLICACAO",
        .columns = pcpft2Columns,
        .indexes = pcpft2Indexes},
};

} // namespace

std::span<const TTableDecl> Materials() { return all; }

} // namespace alinhavo::tables
