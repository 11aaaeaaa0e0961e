#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl defMovColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"LANCAMENTO", Text, width::entry, "Lançamento"},
    {"NUMERO", Text, width::invoice, "OF ou nota"},
    {"SERIE", Text, width::series, "Série da nota"},
    {"TIPO", Text, width::inspectionType, "Tipo de inspeção"},
    {"CODIGO", Text, width::defect, "Defeito"},
    {"CODCLI", Text, width::client, "Facção"},
    {"ARTIGO", Text, width::product, "Produto"},
    {"COR", Text, width::colour, "Cor"},
    {"TAM", Text, width::size, "Tamanho"},
    {"PARTE", Text, width::part, "Parte"},
    {"SETOR", Text, width::sector, "Setor"},
    {"MOV", Integer, 0, "Movimento"},
    {"DT_LAN", Date, 0, "Data de lançamento"},
    {"QUANT", Integer, 0, "Quantidade"},
    {"AMOSTRA", Float, 0, "Amostra"},
    {"PRECO", Float, 0, "Preço"},
    {"VALOR", Float, 0, "Valor"},
    {"PENDENTE", Text, width::flag, "Pendente"},
    {"APROVADO", Text, width::flag, "Aprovado"},
    {"STATUS", Text, 1, "Status (0 a 5)"},
    {"REVISOR", Text, width::employee, "Revisor"},
    {"INSPETOR", Text, width::employee, "Inspetor"},
    {"QUALIDADE", Text, width::quality, "Qualidade"},
    {"ROLO", Text, 20, "Rolo"},
    {"TEMPO", Float, 0, "Tempo"},
    {"TURNO", Text, 2, "Turno"},
    {"OBS_ITEM", Text, 100, "Observação do item"},
    {"OBS", Text, width::longText, "Observação"},
};

constexpr TIndexDecl defMovIndexes[] = {
    {"NUMERO,LANCAMENTO"},
    {"NUMERO,SETOR,PARTE,MOV"},
    {.columns = "LANCAMENTO", .descending = true},
    {"CODCLI,DT_LAN"},
    {"DT_LAN"},
    {"PENDENTE,NUMERO"},
};

constexpr TColumnDecl defeitoColumns[] = {
    {"CODIGO", Text, width::defect, "Código"},
    {"DESCRICAO", Text, 30, "Descrição"},
    {"COMPLEMENTO", Text, 100, "Complemento"},
    {"GRUPO", Text, 2, "Grupo (0 a 11)"},
    {"SETOR", Text, width::sector, "Setor"},
    {"QUALIDADE", Text, 1, "Qualidade"},
    {"SEGUNDA", Text, width::flag, "Segunda"},
    {"REPROC", Text, width::flag, "Reprocessar"},
    {"DESCONTO", Text, 1, "Desconto (1 a 5)"},
    {"VAL_DESC", Float, 0, "Percentual ou valor do desconto"},
};

constexpr TColumnDecl defTipoColumns[] = {
    {"CODIGO", Text, width::inspectionType, "Código"},
    {"DESCRICAO", Text, 150, "Descrição"},
};

constexpr TColumnDecl defMedidasColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"LANCAMENTO", Text, width::entry, "Lançamento"},
    {"NUMERO", Text, width::order, "OF"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"CODIGO", Text, width::product, "Produto"},
    {"PARTE", Text, width::part, "Parte"},
    {"ABREV", Text, width::measureCode, "Abreviatura"},
    {"DESCRICAO", Text, 100, "Descrição"},
    {"TOLERANCIA", Float, 0, "Tolerância"},
    {"TAM", Text, width::size, "Tamanho"},
    {"MEDIDA", Float, 0, "Medida"},
};

constexpr TIndexDecl defMedidasIndexes[] = {
    {"NUMERO,LANCAMENTO"},
};

constexpr TColumnDecl inspAmostraColumns[] = {
    {"CODIGO", Text, 6, "Código"},
    {"TIPO_INSP", Text, width::inspectionType, "Tipo de inspeção"},
    {"QTDE_MIN", Integer, 0, "Quantidade mínima"},
    {"QTDE_MAX", Integer, 0, "Quantidade máxima"},
    {"QTDE_AMOSTRA", Integer, 0, "Quantidade de amostra"},
    {"QTDE_DEF", Integer, 0, "Máximo de defeitos"},
};

constexpr TIndexDecl inspAmostraIndexes[] = {
    {"TIPO_INSP,QTDE_MIN"},
};

constexpr TColumnDecl pcpMedidasColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::product, "Produto"},
    {"PARTE", Text, width::part, "Parte"},
    {"ABREV", Text, width::measureCode, "Abreviatura"},
    {"DESCRICAO", Text, 100, "Descrição"},
    {"TOLERANCIA", Float, 0, "Tolerância"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"TAM", Text, width::size, "Tamanho"},
    {"MEDIDA", Float, 0, "Medida"},
};

constexpr TIndexDecl pcpMedidasIndexes[] = {
    {"CODIGO,ORDEM"},
};

constexpr TColumnDecl tabqulColumns[] = {
    {"CODIGO", Text, width::quality, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TTableDecl all[] = {
    {.name = "DEFEITO", .caption = "Defeitos", .key = "CODIGO", .columns = defeitoColumns},
    {.name = "DEF_MEDIDAS",
        .caption = "Medidas apontadas na inspeção",
        .key = "IDENTIFICADOR",
        .columns = defMedidasColumns,
        .indexes = defMedidasIndexes},
    {.name = "DEF_MOV",
        .caption = "Defeitos e inspeções",
        .key = "IDENTIFICADOR",
        .columns = defMovColumns,
        .indexes = defMovIndexes},
    {.name = "DEF_TIPO", .caption = "Tipos de inspeção", .key = "CODIGO", .columns = defTipoColumns},
    {.name = "INSP_AMOSTRA",
        .caption = "Amostragem da inspeção",
        .key = "CODIGO",
        .columns = inspAmostraColumns,
        .indexes = inspAmostraIndexes},
    {.name = "PCP_MEDIDAS",
        .caption = "Medidas do produto",
        .key = "IDENTIFICADOR",
        .columns = pcpMedidasColumns,
        .indexes = pcpMedidasIndexes},
    {.name = "TABQUL", .caption = "Qualidades", .key = "CODIGO", .columns = tabqulColumns},
};

} // namespace

std::span<const TTableDecl> Quality() { return all; }

} // namespace alinhavo::tables
