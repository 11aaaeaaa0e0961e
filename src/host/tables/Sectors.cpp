#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl cadfluxoColumns[] = {
    {"CODIGO", Text, width::sector, "Código"},
    {"DESCRICAO", Text, width::sectorName, "Descrição"},
    {"ORDEM", Integer, 0, "Ordem nos relatórios"},
    {"GRUPO", Text, width::sector, "Setor que encabeça o grupo", "CADFLUXO"},
    {.name = "TIPO", .kind = Text, .width = width::flag, .caption = "Tipo", .choices = "P=Produto,M=Material"},
    {.name = "IND_PAG",
        .kind = Integer,
        .caption = "Quantidades pagas",
        .choices
        = "1=Primeira qualidade,2=Primeira e segunda,3=Primeira e segunda e incompletas,4=Primeira e incompletas"},
    {"PRECO", Float, 0, "Preço"},
    {"CUSTO", Float, 0, "Custo"},
    {"CONTA", Text, 20, "Conta"},
    {"CODSPED", Text, width::fiscalSector, "Código SPED", "TABSPED"},
    {"COMPLEMENTO", Text, 100, "Complemento"},
    {"DIAS", Integer, 0, "Lead time em dias"},
    {"DIAS_SEMANA", Integer, 0, "Dias de trabalho na semana (1 a 7)"},
    {"PECAS_DIA", Float, 0, "Capacidade em peças por dia"},
    {.name = "INVENTARIO", .kind = Text, .width = width::flag, .caption = "Gera inventário", .choices = yesNo},
    {.name = "IMP_FLUXO", .kind = Text, .width = width::flag, .caption = "Mostrar em relatórios", .choices = yesNo},
    {.name = "ALT_PRECO", .kind = Text, .width = width::flag, .caption = "Permite alterar preço", .choices = yesNo},
    {.name = "BAIXALIVRE",
        .kind = Text,
        .width = width::flag,
        .caption = "Permite baixar fora da ordem do fluxo",
        .choices = yesNo},
    {.name = "BAIXAMAIOR",
        .kind = Text,
        .width = width::flag,
        .caption = "Permite baixar quantidade maior que a OF",
        .choices = yesNo},
    {.name = "BAIXAPARCIAL",
        .kind = Text,
        .width = width::flag,
        .caption = "Permite movimentação parcial",
        .choices = yesNo},
    {.name = "BAIXAMOV",
        .kind = Text,
        .width = width::flag,
        .caption = "Obriga a informar o número do movimento",
        .choices = yesNo},
    {.name = "BAIXADEFEITO",
        .kind = Text,
        .width = width::flag,
        .caption = "Valida apontamento de defeitos",
        .choices = yesNo},
    {.name = "BAIXACONSUMO",
        .kind = Text,
        .width = width::flag,
        .caption = "Solicita baixa de consumos",
        .choices = yesNo},
    {.name = "MOVREPROVADO",
        .kind = Text,
        .width = width::flag,
        .caption = "Movimenta estoque reprovado",
        .choices = yesNo},
};

constexpr TIndexDecl cadfluxoIndexes[] = {
    {.columns = "DESCRICAO", .unique = true},
};

constexpr TColumnDecl roteiroColumns[] = {
    {"CODIGO", Text, width::flow, "Código"},
    {"DESCRICAO", Text, 150, "Descrição"},
    {"ORDEM", Integer, 0, "Ordem"},
    {.name = "BAIXALIVRE",
        .kind = Text,
        .width = width::flag,
        .caption = "Setores livres fora de ordem",
        .choices = yesNo},
};

constexpr TColumnDecl fluxoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::flow, "Fluxo", "ROTEIRO"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"DESCRICAO", Text, width::sectorName, "Descrição do setor"},
};

constexpr TIndexDecl fluxoIndexes[] = {
    {"CODIGO,ORDEM"},
    {"SETOR"},
};

constexpr TColumnDecl proFluxoColumns[] = {
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"FLUXO", Text, width::flow, "Fluxo", "ROTEIRO"},
    {.name = "PADRAO", .kind = Text, .width = width::flag, .caption = "Parte padrão", .choices = yesNo},
};

constexpr TIndexDecl proFluxoIndexes[] = {
    {"FLUXO"},
};

constexpr TColumnDecl facProdColumns[] = {
    {"PRODUTO", Text, width::product, "Produto", "PRODUTO"},
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"CODCLI", Text, width::client, "Facção", "ENTIDADE"},
    {.name = "PRINCIPAL", .kind = Text, .width = width::flag, .caption = "Principal", .choices = yesNo},
    {"OBS", Text, 1000, "Observação"},
};

constexpr TIndexDecl facProdIndexes[] = {
    {"CODCLI"},
};

constexpr TColumnDecl tipoAplColumns[] = {
    {"CODIGO", Text, width::part, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {.name = "PRINCIPAL", .kind = Text, .width = width::flag, .caption = "Parte principal", .choices = yesNo},
    {.name = "ESTOQUE",
        .kind = Text,
        .width = width::flag,
        .caption = "Lança estoque no último setor",
        .choices = yesNo},
    {.name = "BAIXA", .kind = Text, .width = width::flag, .caption = "Baixa a OF no último setor", .choices = yesNo},
    {.name = "ATUALIZA",
        .kind = Text,
        .width = width::flag,
        .caption = "Atualiza as quantidades da OF",
        .choices = yesNo},
};

constexpr TColumnDecl tabspedColumns[] = {
    {"CODIGO", Text, width::fiscalSector, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TTableDecl all[] = {
    {.name = "CADFLUXO",
        .caption = "Setores",
        .key = "CODIGO",
        .keeper = TKeeper::Screen,
        .group = group::sectors,
        .screen = "TfmCadFluxo",
        .description = "DESCRICAO",
        .columns = cadfluxoColumns,
        .indexes = cadfluxoIndexes},
    {.name = "FAC_PROD",
        .caption = "Facções do produto",
        .key = "PRODUTO,SETOR,PARTE,CODCLI",
        .keeper = TKeeper::Person,
        .group = group::sectors,
        .columns = facProdColumns,
        .indexes = facProdIndexes},
    {.name = "FLUXO",
        .caption = "Setores do fluxo",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Screen,
        .group = group::sectors,
        .screen = "TfmFacFluxo",
        .rowKey = "CODIGO,ORDEM",
        .required = "CODIGO,ORDEM,SETOR",
        .columns = fluxoColumns,
        .indexes = fluxoIndexes},
    {.name = "PRO_FLUXO",
        .caption = "Fluxos do produto",
        .key = "CODIGO,PARTE",
        .keeper = TKeeper::Person,
        .group = group::sectors,
        .required = "FLUXO",
        .columns = proFluxoColumns,
        .indexes = proFluxoIndexes},
    {.name = "ROTEIRO",
        .caption = "Fluxos",
        .key = "CODIGO",
        .keeper = TKeeper::Screen,
        .group = group::sectors,
        .screen = "TfmFacFluxo",
        .description = "DESCRICAO",
        .columns = roteiroColumns},
    {.name = "TABSPED",
        .caption = "Códigos SPED",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::sectors,
        .description = "DESCRICAO",
        .columns = tabspedColumns},
    {.name = "TIPO_APL",
        .caption = "Partes do produto",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::sectors,
        .description = "DESCRICAO",
        .required = "DESCRICAO",
        .columns = tipoAplColumns},
};

} // namespace

std::span<const TTableDecl> Sectors() { return all; }

} // namespace alinhavo::tables
