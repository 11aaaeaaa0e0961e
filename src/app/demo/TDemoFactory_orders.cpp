#include "app/demo/codes.h"
#include "app/demo/TDemoFactory.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <array>

namespace alinhavo {
namespace {

constexpr std::size_t orderCount = 300;
constexpr int firstOrder = 26001;
constexpr int firstSalesOrder = 4501;

constexpr std::string_view saleType = "001";
constexpr std::string_view stockType = "002";
constexpr std::string_view sampleType = "003";

/// Orders whose sale the client called off after they were made.
constexpr auto calledOff = std::to_array<std::size_t>({41, 187});

constexpr auto remarks = std::to_array<std::string_view>({"", "", "", "", "Cliente pediu etiqueta de preço na peça.",
    "Não misturar lotes de tinto na mesma facção.", "Atenção à simetria da estampa.",
    "Entregar junto com a coordenada da coleção.", "Embalar por cor, caixas de 24 peças."});

constexpr auto tables = std::to_array<std::string_view>({"Mesa 1", "Mesa 2", "Mesa 3", "Mesa 4"});

struct TNote {
    std::string_view field;
    std::string_view text;
};

constexpr auto cuttingNotes = std::to_array<TNote>({
    {"Enfesto", "Máximo de 60 folhas por enfesto"},
    {"Risco", "Usar o risco digital, encaixe de 86%"},
    {"Descanso", "Malha aberta 24 horas antes do corte"},
});

/// A week of the year as planners say it: whole weeks from the first of January.
int WeekOfYear(TDateTime day)
{
    return static_cast<int>(day.Days() - TDateTime::FromDate(day.Year(), 1, 1).Days()) / 7 + 1;
}

} // namespace

std::string TDemoFactory::Programme(TDateTime day)
{
    return "S" + Code(WeekOfYear(day), 2) + "-" + std::to_string(day.Year());
}

void TDemoFactory::FillOrderTypes()
{
    TTableWriter rows(database_, "TIPO_OP", "CODIGO,DESCRICAO,TABELA,DEPOSITO");
    rows.Row({saleType, "Venda", nullptr, "01"});
    rows.Row({stockType, "Pronta entrega", nullptr, "07"});
    rows.Row({sampleType, "Mostruário", demo::sampleOrderPrices, "05"});
}

// Orders are numbered as they begin; most belong to a sales order of one to three products.
void TDemoFactory::MakeOrders()
{
    constexpr int firstDay = -68;
    constexpr int days = 92;
    TRandom random = Random("orders");
    int salesOrder = firstSalesOrder;
    while (orders_.size() < orderCount) {
        const int day = firstDay + days * static_cast<int>(orders_.size()) / static_cast<int>(orderCount);
        const TDateTime start = NextWorkday(today_.AddDays(day));
        const int kind = random.Between(1, 100);
        if (kind > 20) {
            MakeSalesOrder(random, salesOrder++, start);
            continue;
        }
        TOrder order = MakeOrder(random, random.Pick(products_), start);
        order.type = kind > 8 ? stockType : sampleType;
        order.client = demo::factoryCode;
        if (order.type == sampleType) {
            for (TOrderItem& item : order.items)
                item.quantity = 1;
        }
        orders_.push_back(std::move(order));
    }
    for (const std::size_t index : calledOff)
        orders_[index].isCalledOff = true;
    summary_.salesOrders = salesOrder - firstSalesOrder;
}

void TDemoFactory::MakeSalesOrder(TRandom& random, int number, TDateTime start)
{
    const std::string client = random.Pick(clients_);
    const bool urgent = random.Chance(18);
    std::vector<const TProduct*> taken;
    for (int count = random.Between(1, 3); count > 0 && orders_.size() < orderCount; --count) {
        const TProduct& product = random.Pick(products_);
        if (std::ranges::find(taken, &product) != taken.end())
            continue;
        taken.push_back(&product);
        TOrder order = MakeOrder(random, product, start);
        order.type = saleType;
        order.client = client;
        order.urgent = urgent;
        order.salesOrder = Code(number, 6);
        order.delivery = NextWorkday(start.AddDays(52));
        orders_.push_back(std::move(order));
    }
}

TDemoFactory::TOrder TDemoFactory::MakeOrder(TRandom& random, const TProduct& product, TDateTime start)
{
    TOrder order;
    order.number = Code(firstOrder + static_cast<int>(orders_.size()), 6);
    order.product = &product;
    order.start = start;
    order.end = AddWorkdays(start, random.Between(24, 34));
    order.delivery = order.end;
    order.packs = random.Between(3, 14);
    const demo::TSizeRange& range = demo::SizeRangeOf(product.model->range);
    for (const demo::TColour& colour : product.colours) {
        const bool isLast = &colour == &product.colours.back();
        if (!random.Chance(80) && !(isLast && order.colours.empty()))
            continue;
        order.colours.push_back(colour.code);
        for (std::size_t size = 0; size < range.sizes.size(); ++size)
            order.items.push_back({colour.code, range.sizes[size], size, range.weights[size] * order.packs});
    }
    return order;
}

void TDemoFactory::FillSalesOrders()
{
    TRandom random = Random("sales orders");
    TTableWriter heads(
        database_, "PEDIDO", "NUMERO,CODCLI,PED_CLI,ART_CLI,PERIODO,PROGRAMACAO,PROG_SETOR,RIS,DT_FATURA,ENTREGA");
    TTableWriter inspections(database_, "PEDIDO4", "NUMERO,DT_INSPECAO,OBS_02");
    TTableWriter rows(database_, "PED_ITEN",
        "NUMERO,CODIGO,COR,TAM,QUANTIDADE,QTDE,QTDE_F,QTDE_CANC,PRECO,DESC_PACK,QTDE_PACK,QTDE_PACKS,OBSERVACAO");
    std::string_view previous;
    for (const TOrder& order : orders_) {
        if (order.salesOrder.empty())
            continue;
        if (order.salesOrder != previous) {
            heads.Row({order.salesOrder, order.client, "OC " + Code(random.Between(10000, 99999), 5),
                "ART-" + Code(random.Between(100, 999), 3), Period(order.delivery), Programme(order.start),
                "Corte " + Programme(order.start), "RIS" + Code(random.Between(1, 9999), 5), order.delivery,
                order.delivery.AddDays(3)});
            if (random.Chance(25))
                inspections.Row(
                    {order.salesOrder, order.delivery.AddDays(-4), "Inspeção do cliente na fábrica, nível II."});
        }
        previous = order.salesOrder;
        const demo::TSizeRange& range = demo::SizeRangeOf(order.product->model->range);
        for (const TOrderItem& item : order.items)
            rows.Row({order.salesOrder, order.product->model->code, item.colour, item.size, item.quantity,
                order.isCalledOff ? 0 : item.quantity, 0, order.isCalledOff ? item.quantity : 0, order.product->price,
                "Pack sortido " + std::string(range.name), range.weights[item.position], order.packs,
                order.urgent ? "Entrega antecipada" : ""});
    }
}

void TDemoFactory::FillOrders()
{
    TRandom random = Random("order heads");
    TTableWriter heads(database_, "OF1",
        "NUMERO,CODIGO,PEDIDO,CODCLI,TIPO_OP,TABELA,PERIODO,PROGRAMACAO,DT_INICIO,DT_FINAL,ATIVOS,FAC_QTDE,PERC,"
        "SEQUENCIAL,"
        "IDENTIFICADOR,OBSERVACAO");
    TTableWriter rows(database_, "OF_ITEN", "NUMERO,COR,TAM,QTDE,QTDE_B,QTDE_C,QTDE_OF,QTDE_OF_B");
    std::string_view previous;
    int sequence = 0;
    int identity = 0;
    for (const TOrder& order : orders_) {
        int pieces = 0;
        for (const TOrderItem& item : order.items)
            pieces += item.quantity;
        sequence = !order.salesOrder.empty() && order.salesOrder == previous ? sequence + 1 : 1;
        previous = order.salesOrder;
        heads.Row({order.number, order.product->model->code, order.salesOrder, order.client, order.type,
            order.urgent ? TValue(demo::urgentPrices) : TValue(), Period(order.delivery), Programme(order.start),
            order.start, order.end, pieces, "N", 0, std::to_string(sequence), ++identity, random.Pick(remarks)});
        for (const TOrderItem& item : order.items)
            rows.Row({order.number, item.colour, item.size, item.quantity, 0, 0, item.quantity, 0});
        summary_.pieces += pieces;
    }
    summary_.orders = heads.RowCount();
}

/// Notes for the cutting room, the grade of some orders, and where their bundles lie.
void TDemoFactory::FillOrderNotes()
{
    TRandom random = Random("order notes");
    TTableWriter notes(database_, "OF2", "NUMERO,CODIGO,CAMPO,DESCRICAO,SETOR,PARTE,MOV,TIPO,DATA");
    TTableWriter grades(database_, "PRODUTO_ORDEM", "CODIGO,COR,TAM,NUM_OF,TIPO,ORDEM,PERCENTUAL,SEQUENCIA,ATIVO");
    TTableWriter places(database_, "OF_SETOR", "NUMERO,SETOR,CODIGO,POSICAO,ORDEM,PARTE,LOCAL");
    for (const TOrder& order : orders_) {
        const demo::TModel& model = *order.product->model;
        if (random.Chance(30)) {
            int number = 0;
            for (const TNote& note : cuttingNotes)
                notes.Row({order.number, std::to_string(++number), note.field, note.text, nullptr, nullptr, 0, "G",
                    order.start});
        }
        if (random.Chance(10)) {
            const demo::TSizeRange& range = demo::SizeRangeOf(model.range);
            for (const TOrderItem& item : order.items)
                grades.Row({model.code, item.colour, item.size, order.number, "O", range.weights[item.position], 0,
                    static_cast<int>(item.position) + 1, "S"});
        }
        if (!random.Chance(50))
            continue;
        for (const demo::TPartFlow& part : demo::MakeOf(model.make).parts)
            places.Row({order.number, "01", "0", "0", 1, part.part, random.Pick(tables)});
    }
}

// Each sector begins when the one before it should be done.
void TDemoFactory::FillPlans()
{
    TTableWriter rows(database_, "PCP_MOV", "NUMERO,CODIGO,SETOR,PARTE,CODCLI,DT_INICIO,DT_FIM,DIAS");
    for (const TOrder& order : orders_) {
        for (const demo::TPartFlow& part : demo::MakeOf(order.product->model->make).parts) {
            TDateTime day = order.start;
            for (const std::string_view code : demo::FlowOf(part.flow).sectors) {
                const demo::TSector& sector = demo::SectorOf(code);
                const std::string_view holder = sector.trade == demo::TTrade::House
                    ? demo::factoryCode
                    : std::string_view(MainSubcontractor(*order.product, sector).code);
                const TDateTime end = AddWorkdays(day, sector.days);
                rows.Row({order.number, order.product->model->code, code, part.part, holder, day, end, sector.days});
                day = end;
            }
        }
    }
}

} // namespace alinhavo
