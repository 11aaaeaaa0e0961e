#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl of1Columns[] = {
    {"NUMERO", Text, width::order, "OF"},
    {"CODIGO", Text, width::product, "Produto"},
    {"PEDIDO", Text, width::salesOrder, "Pedido"},
    {"CODCLI", Text, width::client, "Cliente"},
    {"TIPO_OP", Text, width::orderType, "Tipo de OP"},
    {"TABELA", Text, width::priceTable, "Tabela de preços"},
    {"PERIODO", Text, width::period, "Período"},
    {"PROGRAMACAO", Text, width::programme, "Programação"},
    {"DT_INICIO", Date, 0, "Data de início"},
    {"DT_FINAL", Date, 0, "Data final"},
    {"ATIVOS", Float, 0, "Peças em aberto"},
    {"FAC_QTDE", Text, width::flag, "Quantidades governadas pela produção"},
    {"PERC", Float, 0, "Percentual"},
    {"SEQUENCIAL", Text, 10, "Sequencial"},
    {"IDENTIFICADOR", Integer},
    {"OBSERVACAO", Text, width::longText, "Observação"},
};

constexpr TIndexDecl of1Indexes[] = {
    {"CODIGO"},
    {"PEDIDO"},
    {"PERIODO"},
    {"PROGRAMACAO"},
};

constexpr TColumnDecl ofItenColumns[] = {
    {"NUMERO", Text, width::order, "OF"},
    {"COR", Text, width::colour, "Cor"},
    {"TAM", Text, width::size, "Tamanho"},
    {"QTDE", Float, 0, "Quantidade em aberto"},
    {"QTDE_B", Float, 0, "Quantidade baixada"},
    {"QTDE_C", Float, 0, "Quantidade cancelada"},
    {"QTDE_OF", Float, 0, "Quantidade da OF"},
    {"QTDE_OF_B", Float, 0, "Quantidade da OF encerrada"},
};

constexpr TColumnDecl of2Columns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF"},
    {"CODIGO", Text, 15, "Código"},
    {"CAMPO", Text, 60, "Campo"},
    {"DESCRICAO", Text, 250, "Descrição"},
    {"DESCRICAO2", Text, 250, "Descrição 2"},
    {"DESCRICAO3", Text, 250, "Descrição 3"},
    {"DATA", Date, 0, "Data"},
    {"SETOR", Text, width::sector, "Setor"},
    {"PARTE", Text, width::part, "Parte"},
    {"MOV", Integer, 0, "Movimento"},
    {"TIPO", Text, 2, "Tipo"},
};

constexpr TIndexDecl of2Indexes[] = {
    {"NUMERO,TIPO,CODIGO"},
};

constexpr TColumnDecl ofpadraoColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, 15, "Código"},
    {"CAMPO", Text, 60, "Campo"},
    {"DESCRICAO", Text, 250, "Descrição"},
    {"ORDEM", Integer, 0, "Ordem"},
};

constexpr TIndexDecl ofpadraoIndexes[] = {
    {"CODIGO,ORDEM"},
};

constexpr TColumnDecl ofSetorColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF"},
    {"SETOR", Text, width::sector, "Setor"},
    {"CODIGO", Text, 15, "Código"},
    {"POSICAO", Text, 10, "Posição"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"PARTE", Text, width::part, "Parte"},
    {"LOCAL", Text, 30, "Endereço"},
};

constexpr TIndexDecl ofSetorIndexes[] = {
    {"NUMERO,PARTE,SETOR"},
};

constexpr TColumnDecl pcpMovColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF"},
    {"CODIGO", Text, width::product, "Produto"},
    {"SETOR", Text, width::sector, "Setor"},
    {"PARTE", Text, width::part, "Parte"},
    {"CODCLI", Text, width::client, "Facção planejada"},
    {"DT_INICIO", Date, 0, "Data de início"},
    {"DT_FIM", Date, 0, "Data de fim"},
    {"DIAS", Integer, 0, "Lead time em dias"},
};

constexpr TIndexDecl pcpMovIndexes[] = {
    {"NUMERO,SETOR,PARTE"},
    {"SETOR"},
};

constexpr TColumnDecl pcpftofColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF"},
    {"ID", Integer, 0, "Sequência"},
    {"TIPO", Text, width::flag, "Tipo (M material, P produto)"},
    {"INSUMO", Text, width::product, "Insumo"},
    {"INSUMO_ORIG", Text, width::product, "Insumo original"},
    {"COR", Text, width::colour, "Cor"},
    {"TAM", Text, width::size, "Tamanho"},
    {"COR_I", Text, width::colour, "Cor do insumo"},
    {"COR_I_ORIG", Text, width::colour, "Cor original do insumo"},
    {"PARTE", Text, width::part, "Parte"},
    {"SETOR", Text, width::sector, "Setor"},
    {"FAIXA", Text, width::consumptionRange, "Faixa de consumo"},
    {"APLICACAO", Text, width::application, "Aplicação"},
    {"CONSUMO", Float, 0, "Consumo por peça"},
    {"CUSTO", Float, 0, "Custo"},
    {"SITUACAO", Text, width::flag, "Situação (A aberto, P parcial, B baixado)"},
};

constexpr TIndexDecl pcpftofIndexes[] = {
    {"NUMERO,INSUMO,COR_I"},
    {"NUMERO,SETOR,PARTE"},
};

constexpr TColumnDecl matReservaColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF"},
    {"MOV", Integer, 0, "Movimento"},
    {"CODIGO", Text, width::product, "Material"},
    {"COR", Text, width::colour, "Cor"},
    {"DEPOSITO", Text, width::warehouse, "Depósito"},
    {"LOTE", Text, width::lot, "Lote"},
    {"QTDE", Float, 0, "Quantidade reservada"},
    {"QTDE_B", Float, 0, "Quantidade baixada"},
    {"DT_CAD", Date, 0, "Data de cadastro"},
    {"TIPO", Text, 2, "Tipo"},
};

constexpr TIndexDecl matReservaIndexes[] = {
    {"NUMERO,CODIGO,COR"},
    {"CODIGO,COR,DEPOSITO,LOTE"},
};

constexpr TColumnDecl pedReservaColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::salesOrder, "Número"},
    {"RESERVA", Integer, 0, "Reserva"},
    {"CODIGO", Text, width::product, "Produto"},
    {"COR", Text, width::colour, "Cor"},
    {"TAM", Text, width::size, "Tamanho"},
    {"DEPOSITO", Text, width::warehouse, "Depósito"},
    {"LOTE", Text, width::lot, "Lote"},
    {"QTDE", Float, 0, "Quantidade reservada"},
    {"QTDE_B", Float, 0, "Quantidade baixada"},
    {"QTDE_EXP", Float, 0, "Quantidade expedida"},
    {"DT_CAD", Date, 0, "Data de cadastro"},
    {"TIPO", Text, 2, "Tipo"},
};

constexpr TIndexDecl pedReservaIndexes[] = {
    {"NUMERO,CODIGO,COR"},
    {"CODIGO,COR,DEPOSITO,LOTE"},
};

constexpr TColumnDecl tipoOpColumns[] = {
    {"CODIGO", Text, width::orderType, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
    {"TABELA", Text, width::priceTable, "Tabela de preços"},
    {"DEPOSITO", Text, width::warehouse, "Depósito de entrada"},
};

constexpr TColumnDecl tabprzColumns[] = {
    {"PRAZO", Text, width::period, "Período"},
    {"DESCRICAO", Text, 60, "Descrição"},
    {"ATIVO", Text, width::flag, "Ativo"},
    {"DT_INICIO", Date, 0, "Data de início"},
    {"DT_FIM", Date, 0, "Data de fim"},
};

constexpr TIndexDecl tabprzIndexes[] = {
    {"DT_INICIO"},
};

constexpr TColumnDecl pedidoColumns[] = {
    {"NUMERO", Text, width::salesOrder, "Pedido"},
    {"CODCLI", Text, width::client, "Cliente"},
    {"PED_CLI", Text, 30, "Pedido do cliente"},
    {"ART_CLI", Text, 30, "Artigo do cliente"},
    {"PERIODO", Text, width::period, "Período"},
    {"PROGRAMACAO", Text, width::programme, "Programação"},
    {"PROG_SETOR", Text, 20, "Programação do setor"},
    {"RIS", Text, 12, "RIS"},
    {"DT_FATURA", Date, 0, "Data de faturamento"},
    {"ENTREGA", Date, 0, "Data de entrega"},
};

constexpr TIndexDecl pedidoIndexes[] = {
    {"CODCLI"},
    {"PED_CLI"},
    {"PERIODO"},
    {"PROGRAMACAO"},
};

constexpr TColumnDecl pedido4Columns[] = {
    {"NUMERO", Text, width::salesOrder, "Pedido"},
    {"DT_INSPECAO", Date, 0, "Data da inspeção"},
    {"OBS_02", Text, width::longText, "Observação"},
};

constexpr TColumnDecl pedItenColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::salesOrder, "Pedido"},
    {"CODIGO", Text, width::product, "Produto"},
    {"COR", Text, width::colour, "Cor"},
    {"TAM", Text, width::size, "Tamanho"},
    {"QUANTIDADE", Float, 0, "Quantidade pedida"},
    {"QTDE", Float, 0, "Quantidade em aberto"},
    {"QTDE_F", Float, 0, "Quantidade faturada"},
    {"QTDE_CANC", Float, 0, "Quantidade cancelada"},
    {"PRECO", Float, 0, "Preço"},
    {"DESC_PACK", Text, 60, "Descrição do pack"},
    {"QTDE_PACK", Float, 0, "Peças por pack"},
    {"QTDE_PACKS", Float, 0, "Quantidade de packs"},
    {"OBSERVACAO", Text, 1000, "Observação"},
};

constexpr TIndexDecl pedItenIndexes[] = {
    {"NUMERO,CODIGO"},
    {"CODIGO,COR,TAM"},
};

constexpr TColumnDecl produtoOrdemColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"CODIGO", Text, width::product, "Produto"},
    {"COR", Text, width::colour, "Cor"},
    {"TAM", Text, width::size, "Tamanho"},
    {"NUM_OF", Text, width::order, "OF"},
    {"TIPO", Text, width::flag, "Tipo (O ordem, P produto, V venda)"},
    {"ORDEM", Float, 0, "Peças por folha"},
    {"PERCENTUAL", Float, 0, "Percentual"},
    {"SEQUENCIA", Integer, 0, "Sequência"},
    {"ATIVO", Text, width::flag, "Ativo"},
};

constexpr TIndexDecl produtoOrdemIndexes[] = {
    {"NUM_OF,TIPO"},
    {"CODIGO,TIPO"},
};

constexpr TColumnDecl desperdicioColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF"},
    {"PESOL", Float, 0, "Peso líquido"},
};

constexpr TIndexDecl desperdicioIndexes[] = {
    {"NUMERO"},
};

constexpr TColumnDecl tecelColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF"},
    {"MAQUINA", Text, width::machine, "Máquina"},
};

constexpr TIndexDecl tecelIndexes[] = {
    {"NUMERO"},
};

constexpr TColumnDecl maquinaColumns[] = {
    {"MAQUINA", Text, width::machine, "Código"},
    {"DESCRICAO", Text, width::description, "Descrição"},
};

constexpr TTableDecl all[] = {
    {.name = "DESPERDICIO",
        .caption = "Desperdício da OF",
        .key = "IDENTIFICADOR",
        .columns = desperdicioColumns,
        .indexes = desperdicioIndexes},
    {.name = "MAQUINA", .caption = "Máquinas", .key = "MAQUINA", .columns = maquinaColumns},
    {.name = "MAT_RESERVA",
        .caption = "Reservas de material",
        .key = "IDENTIFICADOR",
        .columns = matReservaColumns,
        .indexes = matReservaIndexes},
    {.name = "OF1", .caption = "Ordens de fabricação", .key = "NUMERO", .columns = of1Columns, .indexes = of1Indexes},
    {.name = "OF2", .caption = "Anotações da OF", .key = "IDENTIFICADOR", .columns = of2Columns, .indexes = of2Indexes},
    {.name = "OFPADRAO",
        .caption = "Anotações padrão da OF",
        .key = "IDENTIFICADOR",
        .columns = ofpadraoColumns,
        .indexes = ofpadraoIndexes},
    {.name = "OF_ITEN", .caption = "Grade da OF", .key = "NUMERO,COR,TAM", .columns = ofItenColumns},
    {.name = "OF_SETOR",
        .caption = "Endereços da OF nos setores",
        .key = "IDENTIFICADOR",
        .columns = ofSetorColumns,
        .indexes = ofSetorIndexes},
    {.name = "PCPFTOF",
        .caption = "Ficha técnica da OF",
        .key = "IDENTIFICADOR",
        .columns = pcpftofColumns,
        .indexes = pcpftofIndexes},
    {.name = "PCP_MOV",
        .caption = "Planejamento da OF",
        .key = "IDENTIFICADOR",
        .columns = pcpMovColumns,
        .indexes = pcpMovIndexes},
    {.name = "PEDIDO",
        .caption = "Pedidos de venda",
        .key = "NUMERO",
        .columns = pedidoColumns,
        .indexes = pedidoIndexes},
    {.name = "PEDIDO4", .caption = "Inspeção do pedido", .key = "NUMERO", .columns = pedido4Columns},
    {.name = "PED_ITEN",
        .caption = "Itens do pedido",
        .key = "IDENTIFICADOR",
        .columns = pedItenColumns,
        .indexes = pedItenIndexes},
    {.name = "PED_RESERVA",
        .caption = "Reservas de produto",
        .key = "IDENTIFICADOR",
        .columns = pedReservaColumns,
        .indexes = pedReservaIndexes},
    {.name = "PRODUTO_ORDEM",
        .caption = "Grade de corte e venda",
        .key = "IDENTIFICADOR",
        .columns = produtoOrdemColumns,
        .indexes = produtoOrdemIndexes},
    {.name = "TABPRZ", .caption = "Períodos", .key = "PRAZO", .columns = tabprzColumns, .indexes = tabprzIndexes},
    {.name = "TECEL", .caption = "Tecelagem", .key = "IDENTIFICADOR", .columns = tecelColumns, .indexes = tecelIndexes},
    {.name = "TIPO_OP", .caption = "Tipos de OP", .key = "CODIGO", .columns = tipoOpColumns},
};

} // namespace

std::span<const TTableDecl> Orders() { return all; }

} // namespace alinhavo::tables
