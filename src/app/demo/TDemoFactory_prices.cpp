#include "app/demo/TDemoFactory.h"
#include "forms/numbers.h"
#include "platform/services/TTableWriter.h"

namespace alinhavo {

void TDemoFactory::FillPriceTables()
{
    TTableWriter rows(database_, "REGIAO", "REGIAO,DESCRICAO,PADRAO");
    rows.Row({demo::defaultPrices, "Tabela padrão das facções", "S"});
    rows.Row({demo::preferredPrices, "Facções preferenciais", "N"});
    rows.Row({demo::sampleOrderPrices, "Mostruário e peça piloto", "N"});
    rows.Row({demo::urgentPrices, "Pedidos urgentes", "N"});
    rows.Row({demo::colourSizePrices, "Preço por cor e tamanho", "N"});
}

// The default table knows every product and sector. The others are partial, as price tables are: what they lack is looked
// up in the next one.
void TDemoFactory::FillSectorPrices()
{
    constexpr double preferredRate = 1.08;
    constexpr double sampleRate = 1.8;
    constexpr double urgentRate = 1.25;
    TTableWriter rows(database_, "TABELA", "NUMERO,CODIGO,SETOR,PARTE,PRECO,OBSERVACAO");
    std::size_t number = 0;
    for (const TProduct& product : products_) {
        const demo::TModel& model = *product.model;
        const bool hasUrgentPrice = ++number % 2 == 0;
        for (const demo::TPartFlow& part : demo::MakeOf(model.make).parts) {
            for (const std::string_view code : demo::FlowOf(part.flow).sectors) {
                const demo::TSector& sector = demo::SectorOf(code);
                const double price = SectorPrice(sector, model);
                rows.Row({demo::defaultPrices, model.code, code, part.part, price, nullptr});
                if (sector.trade == demo::TTrade::House)
                    continue;
                rows.Row(
                    {demo::preferredPrices, model.code, code, part.part, RoundTo(price * preferredRate, 3), nullptr});
                if (sector.group == "05")
                    rows.Row({demo::sampleOrderPrices, model.code, code, part.part, RoundTo(price * sampleRate, 3),
                        "Peça única: conferir com a modelista."});
                if (hasUrgentPrice)
                    rows.Row(
                        {demo::urgentPrices, model.code, code, part.part, RoundTo(price * urgentRate, 3), nullptr});
            }
        }
    }
}

/// The large sizes and the dark colours of one jeans model cost more in the sewing.
void TDemoFactory::FillColourSizePrices()
{
    TTableWriter rows(database_, "TABELA", "NUMERO,CODIGO,SETOR,PARTE,COR,TAM,PRECO");
    for (const TProduct& product : products_) {
        const demo::TModel& model = *product.model;
        if (model.code != "JEA0101")
            continue;
        const demo::TSizeRange& range = demo::SizeRangeOf(model.range);
        const double price = SectorPrice(demo::SectorOf("07"), model);
        for (const demo::TColour& colour : product.colours) {
            for (std::size_t size = 0; size < range.sizes.size(); ++size) {
                const double large = size < range.smallSizes ? 0 : 0.35;
                const double dark = colour.code == "000002" ? 0.2 : 0;
                rows.Row({demo::colourSizePrices, model.code, "07", "01", colour.code, range.sizes[size],
                    RoundTo(price + large + dark, 2)});
            }
        }
    }
}

/// A sales price for each term, from cash to 91 days.
void TDemoFactory::FillSalesPrices()
{
    constexpr double perWeek = 1.004;
    TTableWriter rows(database_, "TABPRECO",
        "CODIGO,REGIAO,PRECO_00,PRECO_07,PRECO_14,PRECO_21,PRECO_28,PRECO_35,PRECO_42,PRECO_49,PRECO_56,PRECO_63,PRECO_"
        "70,"
        "PRECO_77,PRECO_84,PRECO_91");
    for (const TProduct& product : products_) {
        double price = product.price;
        const auto next = [&] {
            const double term = RoundTo(price, 2);
            price *= perWeek;
            return term;
        };
        // Braces fix the order in which the terms are computed.
        const double terms[] = {next(), next(), next(), next(), next(), next(), next(), next(), next(), next(), next(),
            next(), next(), next()};
        rows.Row({product.model->code, demo::defaultPrices, terms[0], terms[1], terms[2], terms[3], terms[4], terms[5],
            terms[6], terms[7], terms[8], terms[9], terms[10], terms[11], terms[12], terms[13]});
    }
}

} // namespace alinhavo
