#include "app/demo/codes.h"
#include "app/demo/TDemoFactory.h"
#include "platform/services/TTableWriter.h"

namespace alinhavo {
namespace {

constexpr std::string_view shippingWarehouse = "01";
constexpr std::string_view finishedWarehouse = "07";
constexpr std::string_view rejectsWarehouse = "08";
constexpr std::string_view commonLot = "000000";
constexpr std::string_view countedEntry = "005"; ///< movement type of a count that adds

} // namespace

// The bar codes of a product's colour and size stand on its row of the shipping warehouse and nowhere else.
void TDemoFactory::FillProductStock()
{
    TRandom random = Random("stock of products");
    TTableWriter rows(
        database_, "PA_ITEN", "CODIGO,COR,TAM,TIPO,DEPOSITO,LOTE,QUANTIDADE,BARRA,BARRA28,BARRACLI,COMPOSICAO");
    int item = 0;
    for (const TProduct& product : products_) {
        const demo::TModel& model = *product.model;
        const demo::TMaterial* fabric = demo::FindMaterial(demo::SheetOf(model.sheet).lines.front().material);
        const std::string_view composition = fabric->composition;
        for (const demo::TColour& colour : product.colours) {
            for (const std::string_view size : demo::SizeRangeOf(model.range).sizes) {
                ++item;
                // A chain of children's shops labels with codes of its own.
                const TValue clientCode = IsForChildren(model) ? TValue("PP" + Code(31000 + item, 8)) : TValue();
                rows.Row({model.code, colour.code, size, "1", shippingWarehouse, commonLot,
                    random.Chance(60) ? random.Between(1, 80) : 0, Ean13(item), "K" + Code(item, 5), clientCode,
                    composition});
                if (random.Chance(15))
                    rows.Row({model.code, colour.code, size, "1", finishedWarehouse, commonLot, random.Between(1, 24),
                        nullptr, nullptr, nullptr, composition});
                if (random.Chance(3))
                    rows.Row({model.code, colour.code, size, "2", rejectsWarehouse, commonLot, random.Between(1, 4),
                        nullptr, nullptr, nullptr, composition});
            }
        }
    }
    for (const demo::TColour& colour : demo::Colours()) {
        if (colour.code == demo::singleColour)
            continue;
        const int quantity = random.Between(80, 900);
        rows.Row({demo::collar, colour.code, "0", "1", shippingWarehouse, commonLot, quantity, nullptr, nullptr,
            nullptr, nullptr});
        lots_.push_back({demo::collar, colour.code, std::string(commonLot), shippingWarehouse, double(quantity)});
    }
}

// What stands in stock was counted on the first day, and is told by its history like all that comes later.
void TDemoFactory::FillStockHistory()
{
    database_.ExecSQL(TStatement(R"(
        INSERT INTO {PA_MOV} (CODIGO, COR, TAM, LOTE, DEPOSITO, QUALIDADE, ORIGEM, TIPO_MOV, SAIDA, QUANTIDADE, DATA,
                              OBSERVACAO, USUARIO)
        SELECT CODIGO, COR, TAM, LOTE, DEPOSITO, TIPO, 'SI', CAST(? AS VARCHAR(3)), 'N', QUANTIDADE, CAST(? AS DATE),
               'Saldo inicial', 'ADMIN'
          FROM {PA_ITEN} WHERE QUANTIDADE > 0 ORDER BY IDENTIFICADOR)",
        countedEntry, today_));
    database_.ExecSQL(TStatement(R"(
        INSERT INTO {MAT_MOV} (CODIGO, COR, TAM, LOTE, DEPOSITO, QUALIDADE, ORIGEM, TIPO_MOV, SAIDA, QUANTIDADE, CUSTO,
                               DATA, OBSERVACAO, USUARIO)
        SELECT CODIGO, COR, '0', LOTE, DEPOSITO, QUALIDADE, 'SI', CAST(? AS VARCHAR(3)), 'N', QTDE, PRECO_MED,
               CAST(? AS DATE), 'Saldo inicial', 'ADMIN'
          FROM {MAT_ITEN} WHERE QTDE > 0 ORDER BY IDENTIFICADOR)",
        countedEntry, today_));
}

} // namespace alinhavo
