#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl cadfluxoColumns[] = {
    {"CODIGO", Text, width::sector, "Código"},
    {"DESCRICAO", Text, width::sectorName, "Descrição"},
    {"ORDEM", Integer, 0, "Ordem nos relatórios"},
    {"GRUPO", Text, width::sector, "Setor que encabeça o grupo"},
    {"TIPO", Text, width::flag, "Tipo (P produto, M material)"},
    {"IND_PAG", Integer, 0, "Quantidades pagas (1 a 4)"},
    {"PRECO", Float, 0, "Preço"},
    {"CUSTO", Float, 0, "Custo"},
    {"CONTA", Text, 20, "Conta"},
    {"CODSPED", Text, width::fiscalSector, "Código SPED"},
    {"COMPLEMENTO", Text, 100, "Complemento"},
    {"DIAS", Integer, 0, "Lead time em dias"},
    {"DIAS_SEMANA", Integer, 0, "Dias de trabalho na semana (1 a 7)"},
    {"PECAS_DIA", Float, 0, "Capacidade em peças por dia"},
    {"INVENTARIO", Text, width::flag, "Gera inventário"},
    {"IMP_FLUXO", Text, width::flag, "Mostrar em relatórios"},
    {"ALT_PRECO", Text, width::flag, "Permite alterar preço"},
    {"BAIXALIVRE", Text, width::flag, "Permite baixar fora da ordem do fluxo"},
    {"BAIXAMAIOR", Text, width::flag, "Permite baixar quantidade maior que a OF"},
    {"BAIXAPARCIAL", Text, width::flag, "Permite movimentação parcial"},
    {"BAIXAMOV", Text, width::flag, "Obriga a informar o número do movimento"},
    {"BAIXADEFEITO", Text, width::flag, "Valida apontamento de defeitos"},
    {"BAIXACONSUMO", Text, width::flag, "Solicita baixa de consumos"},
    {"MOVREPROVADO", Text, width::flag, "Movimenta estoque reprovado"},
};

constexpr TIndexDecl cadfluxoIndexes[] = {
    {.columns = "DESCRICAO", .unique = true},
};

constexpr TColumnDecl roteiroColumns[] = {
    {"CODIGO", Text, width::flow, "Código"},
    {"DESCRICAO", Text, 150, "Descrição"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"BAIXALIVRE", Text, width::flag, "Setores livres fora de ordem"},
};

constexpr TColumnDecl fluxoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::flow, "Fluxo"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"SETOR", Text, width::sector, "Setor"},
    {"DESCRICAO", Text, width::sectorName, "Descrição do setor"},
};

constexpr TIndexDecl fluxoIndexes[] = {
    {"CODIGO,ORDEM"},
    {"SETOR"},
};

constexpr TColumnDecl proFluxoColumns[] = {
    {"CODIGO", Text, width::product, "Produto"},
    {"PARTE", Text, width::part, "Parte"},
    {"FLUXO", Text, width::flow, "Fluxo"},
    {"PADRAO", Text, width::flag, "Parte padrão"},
};

constexpr TIndexDecl proFluxoIndexes[] = {
    {"FLUXO"},
};

constexpr TColumnDecl facProdColumns[] = {
    {"PRODUTO", Text, width::product, "Produto"},
    {"SETOR", Text, width::sector, "Setor"},
    {"PARTE", Text, width::part, "Parte"},
    {"CODCLI", Text, width::client, "Facção"},
    {"PRINCIPAL", Text, width::flag, "Principal"},
    {"OBS", Text, 1000, "Observação"},
};

constexpr TIndexDecl facProdIndexes[] = {
    {"CODCLI"},
};

constexpr TColumnDecl tipoAplColumns[] = {
    {"CODIGO", Text, width::part, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"PRINCIPAL", Text, width::flag, "Parte principal"},
    {"ESTOQUE", Text, width::flag, "Lança estoque no último setor"},
    {"BAIXA", Text, width::flag, "Baixa a OF no último setor"},
    {"ATUALIZA", Text, width::flag, "Atualiza as quantidades da OF"},
};

constexpr TColumnDecl tabspedColumns[] = {
    {"CODIGO", Text, width::fiscalSector, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TTableDecl all[] = {
    {.name = "CADFLUXO", .caption = "Setores", .key = "CODIGO", .columns = cadfluxoColumns, .indexes = cadfluxoIndexes},
    {.name = "FAC_PROD",
        .caption = "Facções do produto",
        .key = "PRODUTO,SETOR,PARTE,CODCLI",
        .columns = facProdColumns,
        .indexes = facProdIndexes},
    {.name = "FLUXO",
        .caption = "Setores do fluxo",
        .key = "IDENTIFICADOR",
        .columns = fluxoColumns,
        .indexes = fluxoIndexes},
    {.name = "PRO_FLUXO",
        .caption = "Fluxos do produto",
        .key = "CODIGO,PARTE",
        .columns = proFluxoColumns,
        .indexes = proFluxoIndexes},
    {.name = "ROTEIRO", .caption = "Fluxos", .key = "CODIGO", .columns = roteiroColumns},
    {.name = "TABSPED", .caption = "Códigos SPED", .key = "CODIGO", .columns = tabspedColumns},
    {.name = "TIPO_APL", .caption = "Partes do produto", .key = "CODIGO", .columns = tipoAplColumns},
};

} // namespace

std::span<const TTableDecl> Sectors() { return all; }

} // namespace alinhavo::tables
