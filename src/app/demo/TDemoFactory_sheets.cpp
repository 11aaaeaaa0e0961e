#include "app/demo/TDemoFactory.h"
#include "forms/numbers.h"
#include "platform/services/TTableWriter.h"

#include <algorithm>
#include <map>
#include <utility>

namespace alinhavo {

int TDemoFactory::PiecesOf(const TOrder& order, std::string_view colour, const TSheetRow& row)
{
    const std::size_t smallSizes = demo::SizeRangeOf(order.product->model->range).smallSizes;
    int pieces = 0;
    for (const TOrderItem& item : order.items) {
        const bool isSmall = item.position < smallSizes;
        const bool takes = row.consumptionRange.ends_with("-P") ? isSmall
            : row.consumptionRange.ends_with("-G")              ? !isSmall
                                                                : true;
        if (takes && item.colour == colour)
            pieces += item.quantity;
    }
    return pieces;
}

void TDemoFactory::FillTechnicalSheets()
{
    TTableWriter rows(
        database_, "PCPFTOF", "NUMERO,ID,TIPO,INSUMO,COR,COR_I,PARTE,SETOR,FAIXA,APLICACAO,CONSUMO,CUSTO,SITUACAO");
    for (const TOrder& order : orders_) {
        const auto sheet = SheetOf(*order.product->model);
        int id = 0;
        for (const std::string_view colour : order.colours) {
            for (const TSheetRow& row : sheet) {
                const std::string_view worn = ColourOfPart(*order.product, colour, row.part).code;
                rows.Row({order.number, ++id, demo::FindMaterial(row.line->material) ? "M" : "P", row.line->material,
                    colour, ColourOf(*row.line, worn), row.part, row.sector, row.consumptionRange,
                    row.line->application, row.quantity, row.price, "A"});
            }
        }
    }
}

// Every sixth order has its fabric and collars reserved, lot by lot, as far as the lots go.
void TDemoFactory::FillReservations()
{
    constexpr std::size_t every = 6;
    TTableWriter materials(database_, "MAT_RESERVA", "NUMERO,MOV,CODIGO,COR,DEPOSITO,LOTE,QTDE,QTDE_B,DT_CAD,TIPO");
    TTableWriter products(
        database_, "PED_RESERVA", "NUMERO,RESERVA,CODIGO,COR,TAM,DEPOSITO,LOTE,QTDE,QTDE_B,QTDE_EXP,DT_CAD,TIPO");
    for (std::size_t index = 0; index < orders_.size(); index += every) {
        const TOrder& order = orders_[index];
        std::map<std::pair<std::string_view, std::string_view>, double> needs;
        for (const TSheetRow& row : SheetOf(*order.product->model)) {
            const demo::TMaterial* material = demo::FindMaterial(row.line->material);
            if (material != nullptr && material->group != demo::fabricGroup)
                continue;
            for (const std::string_view colour : order.colours) {
                const std::string_view worn = ColourOfPart(*order.product, colour, row.part).code;
                needs[{row.line->material, ColourOf(*row.line, worn)}] += row.quantity * PiecesOf(order, colour, row);
            }
        }
        const TDateTime reserved = std::min(today_, order.start).AddDays(-2);
        for (auto& [key, need] : needs) {
            for (TLot& lot : lots_) {
                const double taken = RoundTo(std::min(need, lot.quantity), 3);
                if (lot.material != key.first || lot.colour != key.second || taken <= 0)
                    continue;
                if (demo::FindMaterial(lot.material))
                    materials.Row(
                        {order.number, 0, lot.material, lot.colour, lot.warehouse, lot.lot, taken, 0, reserved, "F"});
                else
                    products.Row({order.number, 0, lot.material, lot.colour, "0", lot.warehouse, lot.lot, taken, 0, 0,
                        reserved, "F"});
                lot.quantity -= taken;
                need -= taken;
            }
        }
    }
}

} // namespace alinhavo
