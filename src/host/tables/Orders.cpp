#include "host/tables/Groups.h"
#include "host/tables/Subjects.h"
#include "host/tables/Widths.h"

namespace alinhavo::tables {
namespace {

using enum TColumnKind;

constexpr TColumnDecl of1Columns[] = {
    {"NUMERO", Text, width::order, "OF"},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"PEDIDO", Text, width::salesOrder, "Pedido", "PEDIDO"},
    {"CODCLI", Text, width::client, "Cliente", "ENTIDADE"},
    {"TIPO_OP", Text, width::orderType, "Tipo de OP", "TIPO_OP"},
    {"TABELA", Text, width::priceTable, "Tabela de preços", "REGIAO"},
    {"PERIODO", Text, width::period, "Período", "TABPRZ"},
    {"PROGRAMACAO", Text, width::programme, "Programação"},
    {"DT_INICIO", Date, 0, "Data de início"},
    {"DT_FINAL", Date, 0, "Data final"},
    {.name = "ATIVOS", .kind = Float, .caption = "Peças em aberto", .kept = true},
    {.name = "FAC_QTDE",
        .kind = Text,
        .width = width::flag,
        .caption = "Quantidades governadas pela produção",
        .choices = yesNo,
        .kept = true},
    {"PERC", Float, 0, "Percentual"},
    {.name = "SEQUENCIAL", .kind = Text, .width = 10, .caption = "Sequencial", .kept = true},
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
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"QTDE", Float, 0, "Quantidade em aberto"},
    {.name = "QTDE_B", .kind = Float, .caption = "Quantidade baixada", .kept = true},
    {.name = "QTDE_C", .kind = Float, .caption = "Quantidade cancelada", .kept = true},
    {"QTDE_OF", Float, 0, "Quantidade da OF"},
    {.name = "QTDE_OF_B", .kind = Float, .caption = "Quantidade da OF encerrada", .kept = true},
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
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
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
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"CODIGO", Text, 15, "Código"},
    {"POSICAO", Text, 10, "Posição"},
    {"ORDEM", Integer, 0, "Ordem"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"LOCAL", Text, 30, "Endereço"},
};

constexpr TIndexDecl ofSetorIndexes[] = {
    {"NUMERO,PARTE,SETOR"},
};

constexpr TColumnDecl pcpMovColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"CODCLI", Text, width::client, "Facção planejada", "ENTIDADE"},
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
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"ID", Integer, 0, "Sequência"},
    {.name = "TIPO", .kind = Text, .width = width::flag, .caption = "Tipo", .choices = "M=Material,P=Produto"},
    {"INSUMO", Text, width::product, "Insumo"},
    {"INSUMO_ORIG", Text, width::product, "Insumo original"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"COR_I", Text, width::colour, "Cor do insumo", "CADCOR"},
    {"COR_I_ORIG", Text, width::colour, "Cor original do insumo", "CADCOR"},
    {"PARTE", Text, width::part, "Parte", "TIPO_APL"},
    {"SETOR", Text, width::sector, "Setor", "CADFLUXO"},
    {"FAIXA", Text, width::consumptionRange, "Faixa de consumo", "PCPFAIXA"},
    {"APLICACAO", Text, width::application, "Aplicação", "PCPAPL"},
    {"CONSUMO", Float, 0, "Consumo por peça"},
    {"CUSTO", Float, 0, "Custo"},
    {.name = "SITUACAO",
        .kind = Text,
        .width = width::flag,
        .caption = "Situação",
        .choices = "A=Em aberto,P=Parcial,B=Baixado"},
};

constexpr TIndexDecl pcpftofIndexes[] = {
    {"NUMERO,INSUMO,COR_I"},
    {"NUMERO,SETOR,PARTE"},
};

constexpr TColumnDecl matReservaColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"MOV", Integer, 0, "Movimento"},
    {"CODIGO", Text, width::product, "Material", "MATERIAL"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"DEPOSITO", Text, width::warehouse, "Depósito", "DEPOSITO"},
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
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"DEPOSITO", Text, width::warehouse, "Depósito", "DEPOSITO"},
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
    {"TABELA", Text, width::priceTable, "Tabela de preços", "REGIAO"},
    {"DEPOSITO", Text, width::warehouse, "Depósito de entrada", "DEPOSITO"},
};

constexpr TColumnDecl tabprzColumns[] = {
    {"PRAZO", Text, width::period, "Período"},
    {"DESCRICAO", Text, 60, "Descrição"},
    {.name = "ATIVO", .kind = Text, .width = width::flag, .caption = "Ativo", .choices = yesNo, .initial = "S"},
    {"DT_INICIO", Date, 0, "Data de início"},
    {"DT_FIM", Date, 0, "Data de fim"},
};

constexpr TIndexDecl tabprzIndexes[] = {
    {"DT_INICIO"},
};

constexpr TColumnDecl pedidoColumns[] = {
    {"NUMERO", Text, width::salesOrder, "Pedido"},
    {"CODCLI", Text, width::client, "Cliente", "ENTIDADE"},
    {"PED_CLI", Text, 30, "Pedido do cliente"},
    {"ART_CLI", Text, 30, "Artigo do cliente"},
    {"PERIODO", Text, width::period, "Período", "TABPRZ"},
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
    {"NUMERO", Text, width::salesOrder, "Pedido", "PEDIDO"},
    {"DT_INSPECAO", Date, 0, "Data da inspeção"},
    {"OBS_02", Text, width::longText, "Observação"},
};

constexpr TColumnDecl pedItenColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::salesOrder, "Pedido", "PEDIDO"},
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
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
    {"CODIGO", Text, width::product, "Produto", "PRODUTO"},
    {"COR", Text, width::colour, "Cor", "CADCOR"},
    {"TAM", Text, width::size, "Tamanho", "TABTAM"},
    {"NUM_OF", Text, width::order, "OF", "OF1"},
    {.name = "TIPO", .kind = Text, .width = width::flag, .caption = "Tipo", .choices = "O=Ordem,P=Produto,V=Venda"},
    {"ORDEM", Float, 0, "Peças por folha"},
    {"PERCENTUAL", Float, 0, "Percentual"},
    {"SEQUENCIA", Integer, 0, "Sequência"},
    {.name = "ATIVO", .kind = Text, .width = width::flag, .caption = "Ativo", .choices = yesNo, .initial = "S"},
};

constexpr TIndexDecl produtoOrdemIndexes[] = {
    {"NUM_OF,TIPO"},
    {"CODIGO,TIPO"},
};

constexpr TColumnDecl desperdicioColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"PESOL", Float, 0, "Peso líquido"},
};

constexpr TIndexDecl desperdicioIndexes[] = {
    {"NUMERO"},
};

constexpr TColumnDecl tecelColumns[] = {
    {"IDENTIFICADOR", Identity},
    {"NUMERO", Text, width::order, "OF", "OF1"},
    {"MAQUINA", Text, width::machine, "Máquina", "MAQUINA"},
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
        .keeper = TKeeper::Person,
        .group = group::orders,
        .rowKey = "NUMERO",
        .required = "NUMERO",
        .columns = desperdicioColumns,
        .indexes = desperdicioIndexes},
    {.name = "MAQUINA",
        .caption = "Máquinas",
        .key = "MAQUINA",
        .keeper = TKeeper::Person,
        .group = group::production,
        .description = "DESCRICAO",
        .columns = maquinaColumns},
    {.name = "MAT_RESERVA",
        .caption = "Reservas de material",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::materials,
        .columns = matReservaColumns,
        .indexes = matReservaIndexes},
    {.name = "OF1",
        .caption = "Ordens de fabricação",
        .key = "NUMERO",
        .keeper = TKeeper::Screen,
        .group = group::orders,
        .screen = "TfmNovaOF",
        .columns = of1Columns,
        .indexes = of1Indexes},
    {.name = "OF2",
        .caption = "Anotações da OF",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::orders,
        .columns = of2Columns,
        .indexes = of2Indexes},
    {.name = "OFPADRAO",
        .caption = "Anotações padrão da OF",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::orders,
        .rowKey = "CODIGO,ORDEM",
        .required = "CODIGO,DESCRICAO",
        .columns = ofpadraoColumns,
        .indexes = ofpadraoIndexes},
    {.name = "OF_ITEN",
        .caption = "Grade da OF",
        .key = "NUMERO,COR,TAM",
        .keeper = TKeeper::Screen,
        .group = group::orders,
        .screen = "TfmNovaOF",
        .columns = ofItenColumns},
    {.name = "OF_SETOR",
        .caption = "Endereços da OF nos setores",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::orders,
        .columns = ofSetorColumns,
        .indexes = ofSetorIndexes},
    {.name = "PCPFTOF",
        .caption = "Ficha técnica da OF",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::orders,
        .rowKey = "NUMERO,ID",
        .required = "NUMERO,INSUMO",
        .columns = pcpftofColumns,
        .indexes = pcpftofIndexes},
    {.name = "PCP_MOV",
        .caption = "Planejamento da OF",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::orders,
        .rowKey = "NUMERO,SETOR,PARTE",
        .required = "NUMERO,SETOR,PARTE",
        .columns = pcpMovColumns,
        .indexes = pcpMovIndexes},
    {.name = "PEDIDO",
        .caption = "Pedidos de venda",
        .key = "NUMERO",
        .keeper = TKeeper::Person,
        .group = group::orders,
        .description = "PED_CLI",
        .columns = pedidoColumns,
        .indexes = pedidoIndexes},
    {.name = "PEDIDO4",
        .caption = "Inspeção do pedido",
        .key = "NUMERO",
        .keeper = TKeeper::Person,
        .group = group::orders,
        .columns = pedido4Columns},
    {.name = "PED_ITEN",
        .caption = "Itens do pedido",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::orders,
        .rowKey = "NUMERO,CODIGO,COR,TAM",
        .required = "NUMERO,CODIGO,COR,TAM",
        .columns = pedItenColumns,
        .indexes = pedItenIndexes},
    {.name = "PED_RESERVA",
        .caption = "Reservas de produto",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Work,
        .group = group::orders,
        .columns = pedReservaColumns,
        .indexes = pedReservaIndexes},
    {.name = "PRODUTO_ORDEM",
        .caption = "Grade de corte e venda",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::orders,
        .rowKey = "NUM_OF,CODIGO,COR,TAM,TIPO",
        .required = "CODIGO,COR,TAM,TIPO",
        .columns = produtoOrdemColumns,
        .indexes = produtoOrdemIndexes},
    {.name = "TABPRZ",
        .caption = "Períodos",
        .key = "PRAZO",
        .keeper = TKeeper::Person,
        .group = group::periods,
        .description = "DESCRICAO",
        .columns = tabprzColumns,
        .indexes = tabprzIndexes},
    {.name = "TECEL",
        .caption = "Tecelagem",
        .key = "IDENTIFICADOR",
        .keeper = TKeeper::Person,
        .group = group::orders,
        .rowKey = "NUMERO,MAQUINA",
        .required = "NUMERO,MAQUINA",
        .columns = tecelColumns,
        .indexes = tecelIndexes},
    {.name = "TIPO_OP",
        .caption = "Tipos de OP",
        .key = "CODIGO",
        .keeper = TKeeper::Person,
        .group = group::orders,
        .description = "DESCRICAO",
        .columns = tipoOpColumns},
};

} // namespace

std::span<const TTableDecl> Orders() { return all; }

} // namespace alinhavo::tables
