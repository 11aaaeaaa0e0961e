#include "host/tables/Groups.h"
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
    {"TIPO", Text, width::inspectionType, "Tipo de inspeção", "DEF_TIPO"},
    {"CODIGO", Text, width::defect, "Defeito", "DEFEITO"},
    {"CODCLI", Text, width::client, "Facção", "ENTIDADE"},
    {"ARTIGO", Text, width::product, "Produto", "PRODUTO"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"MOV", Integer, 0, "Movimento"},
    {"DT_LAN", Date, 0, "Data de lançamento"},
    {"QUANT", Integer, 0, "Quantidade"},
    {"AMOSTRA", Float, 0, "Amostra"},
    {"PRECO", Float, 0, "Preço"},
    {"VALOR", Float, 0, "Valor"},
    {.name = "PENDENTE", .kind = Text, .width = width::flag, .caption = "Pendente", .choices = yesNo},
    {.name = "APROVADO", .kind = Text, .width = width::flag, .caption = "Aprovado", .choices = yesNo},
    {"STATUS", Text, 1, "Status (0 a 5)"},
    {"REVISOR", Text, width::employee, "Revisor", "PESSOAL"},
    {"INSPETOR", Text, width::employee, "Inspetor", "PESSOAL"},
    {"QUALIDADE", Text, width::quality, "Qualidade", "TABQUL"},
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
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"QUALIDADE", Text, 1, "Qualidade"},
    {.name = "SEGUNDA", .kind = Text, .width = width::flag, .caption = "Segunda", .choices = yesNo},
    {.name = "REPROC", .kind = Text, .width = width::flag, .caption = "Reprocessar", .choices = yesNo},
    {.name = "DESCONTO",
        .kind = Text,
        .width = 1,
        .caption = "Desconto",
        .choices = "1=Percentual do preço do movimento,2=Percentual do custo do produto,3=Percentual do preço do "
                   "produto,4=Valor fixo,5=Fora dos totais"},
    {"VAL_DESC", Float, 0, "Percentual ou valor do desconto"},
};

constexpr TColumnDecl defTipoColumns[] = {
    {"CODIGO", Text, width::inspectionType, "Código"},
    {"DESCRICAO", Text, 150, "Descrição"},
};

constexpr TColumnDecl defMedidasColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"LANCAMENTO", Text, width::entry, "Lançamento"},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"ABREV", Text, width::measureCode, "Abreviatura"},
    {"DESCRICAO", Text, 100, "Descrição"},
    {"TOLERANCIA", Float, 0, "Tolerância"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"MEDIDA", Float, 0, "Medida"},
};

constexpr TIndexDecl defMedidasIndexes[] = {
    {"NUMERO,LANCAMENTO"},
};

constexpr TColumnDecl inspAmostraColumns[] = {
    {"CODIGO", Text, 6, "Código"},
    {"TIPO_INSP", Text, width::inspectionType, "Tipo de inspeção", "DEF_TIPO"},
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
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"ABREV", Text, width::measureCode, "Abreviatura"},
    {"DESCRICAO", Text, 100, "Descrição"},
    {"TOLERANCIA", Float, 0, "Tolerância"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
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
    {.name = "DEFEITO",
        .caption = "Defeitos",
        .key = "CODIGO",
        .keeper = TKeeper::Screen,
        .group = group::quality,
        .screen = "TfmCadDef",
        .description = "DESCRICAO",
        .columns = defeitoColumns},
    {.name = "DEF_MEDIDAS",
        .caption = "Medidas apontadas na inspeção",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::quality,
        .columns = defMedidasColumns,
        .indexes = defMedidasIndexes},
    {.name = "DEF_MOV",
        .caption = "Defeitos e inspeções",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::quality,
        .columns = defMovColumns,
        .indexes = defMovIndexes},
    {.name = "DEF_TIPO",
        .caption = "Tipos de inspeção",
        .key = "CODIGO",
        .keeper = TKeeper::Screen,
        .group = group::quality,
        .screen = "TfmCadTipoDef",
        .description = "DESCRICAO",
        .columns = defTipoColumns},
    {.name = "INSP_AMOSTRA",
        .caption = "Amostragem da inspeção",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::quality,
        .columns = inspAmostraColumns,
        .indexes = inspAmostraIndexes},
    {.name = "PCP_MEDIDAS",
        .caption = "Medidas do produto",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::quality,
        .rowKey = "CODIGO,PARTE,ABREV,TAM",
        .required = "CODIGO,ABREV,TAM",
        .columns = pcpMedidasColumns,
        .indexes = pcpMedidasIndexes},
    {.name = "TABQUL",
        .caption = "Qualidades",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::quality,
        .description = "DESCRICAO",
        .columns = tabqulColumns},
};

} // namespace

std::span<const TTableDecl> Quality() { return all; }

} // namespace alinhavo::tables
