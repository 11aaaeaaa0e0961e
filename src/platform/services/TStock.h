#pragma once

#include "host/TEstoque.h"
#include "host/TOrvDatabase.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// Stock of products (PA_ITEN) and materials (MAT_ITEN) with its history (PA_MOV, MAT_MOV), in the shared transaction. Stock
/// may fall below zero: what was really moved is recorded, and counting it is another matter.
class TStock final : public IStock {
public:
    TStock(TOrvDatabase& database, std::string userName)
        : database_(database)
        , user_(std::move(userName))
    {
    }

    std::string CodigoTipoMovEstoque(TTipoMovimentoEstoque kind) override;
    void PostProduct(const TEstoque& posting) override;
    /// An entry with a cost moves the average price of the material in that place.
    void PostMaterial(const TEstoque& posting) override;

private:
    void Check(const TEstoque& posting);
    void CheckKnown(std::string_view table, std::string_view code, std::string_view what);
    /// Of the stock row that the posting changes; null when there is none yet.
    TValue ProductRow(const TEstoque& posting);
    TValue MaterialRow(const TEstoque& posting);
    void WriteHistory(const TName& table, const TEstoque& posting);

    TOrvDatabase& database_;
    std::string user_;
};

} // namespace alinhavo
