#include "app/demo/TDemoFactory.h"
#include "platform/services/TTableWriter.h"

#include <array>

namespace alinhavo {

void TDemoFactory::FillStockCodes()
{
    TTableWriter warehouses(database_, "DEPOSITO", "CODIGO,DESCRICAO,PRIORIDADE");
    warehouses.Row({"01", "Expedição", "1"});
    warehouses.Row({"02", "Matéria-prima", "2"});
    warehouses.Row({"03", "Aviamentos", "2"});
    warehouses.Row({"04", "Em poder de terceiros", "4"});
    warehouses.Row({"05", "Mostruário", "5"});
    warehouses.Row({"07", "Produto acabado", "7"});
    warehouses.Row({"08", "Rejeitados", "8"});

    TTableWriter movements(database_, "TABBAI", "CODIGO,DESCRICAO,TIPO,TIPO_ESTOQUE");
    movements.Row({"001", "Entrada de produção", "E", 5});
    movements.Row({"002", "Saída de produção e consumo", "S", 14});
    movements.Row({"003", "Entrada por devolução", "E", nullptr});
    movements.Row({"004", "Entrada de rejeitados", "E", nullptr});
    movements.Row({"005", "Ajuste de inventário, entrada", "E", nullptr});
    movements.Row({"006", "Ajuste de inventário, saída", "S", nullptr});

    TTableWriter qualities(database_, "TABQUL", "CODIGO,DESCRICAO");
    qualities.Row({"1", "Primeira qualidade"});
    qualities.Row({"2", "Segunda qualidade"});
    qualities.Row({"3", "Ponta de estoque"});

    TTableWriter packages(database_, "CADTAG", "CODIGO,QTDE");
    packages.Row({"1", 6});
    packages.Row({"2", 12});
    packages.Row({"3", 24});
    packages.Row({"4", 48});

    TTableWriter places(database_, "LOCAL", "CODIGO,DESCRICAO");
    places.Row({"A1", "Estante A, corredor 1"});
    places.Row({"A2", "Estante A, corredor 2"});
    places.Row({"A3", "Estante A, corredor 3"});
    places.Row({"B1", "Estante B, cabideiro"});
    places.Row({"Q1", "Sala de químicos"});
    places.Row({"R1", "Porta-rolos"});

    TTableWriter natures(database_, "NATUREZA", "NATUREZA,DESCRICAO,TIPO");
    natures.Row({"5901", "Remessa para industrialização por encomenda", "R"});
    natures.Row({"5915", "Remessa para conserto", "R"});
    natures.Row({"1902", "Retorno de industrialização por encomenda", "T"});
    natures.Row({"5101", "Venda de produção do estabelecimento", "V"});

    TTableWriter machines(database_, "MAQUINA", "MAQUINA,DESCRICAO");
    machines.Row({"M01", "Máquina de corte automática"});
    machines.Row({"M02", "Máquina de corte de faca vertical"});
    machines.Row({"M03", "Mesa de enfesto"});
}

void TDemoFactory::FillFinanceCodes()
{
    TTableWriter banks(database_, "CADBAN", "BANCO,NOME_BANCO");
    banks.Row({"901", "Banco do Vale Têxtil"});
    banks.Row({"902", "Cooperativa de Crédito Costa e Serra"});
    banks.Row({"903", "Banco Comercial do Litoral"});

    TTableWriter histories(database_, "HISTCP", "HISTORICO,DESCRICAO");
    histories.Row({"0010", "Serviço de facção"});
    histories.Row({"0011", "Serviço de bordado e estamparia"});
    histories.Row({"0012", "Serviço de lavanderia e tinturaria"});
    histories.Row({"0020", "Compra de matéria-prima"});

    TTableWriter classes(database_, "SUBGRUPO", "CODIGO,DESCRICAO,TP_CONTA");
    classes.Row({"3", "Custos de produção", "T"});
    classes.Row({"31", "Serviços de terceiros", "T"});
    classes.Row({"3101", "Costura", "A"});
    classes.Row({"3102", "Beneficiamento", "A"});
    classes.Row({"3103", "Lavação e tingimento", "A"});
    classes.Row({"3201", "Matéria-prima", "A"});

    TTableWriter situations(database_, "TABSIT", "CODIGO,DESCRICAO");
    situations.Row({"001", "Em carteira"});
    situations.Row({"002", "Depósito em conta"});
    situations.Row({"003", "Boleto"});
}

} // namespace alinhavo
