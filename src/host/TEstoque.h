#pragma once

#include "forms/TDateTime.h"

#include <string>

namespace alinhavo {

/// Movement types of stock that the host configures (TABBAI.TIPO_ESTOQUE).
enum class TTipoMovimentoEstoque { EntradaProducao = 5, SaidaProducao = 14 };

struct TEstoque;

/// Where stock is kept. A posting updates the stock and writes its history in the shared transaction; one that cannot be
/// done (unknown code, warehouse or type, a quantity not above zero) raises std::runtime_error that says why.
class IStock {
public:
    virtual ~IStock() = default;
    virtual std::string CodigoTipoMovEstoque(TTipoMovimentoEstoque kind)
        = 0; ///< TABBAI code; "" when none is configured
    virtual void PostProduct(const TEstoque& posting) = 0;
    virtual void PostMaterial(const TEstoque& posting) = 0;
};

/// One stock posting after the other: fill the fields, post, fill again.
struct TEstoque {
    explicit TEstoque(IStock& stock)
        : stock_(stock)
    {
    }

    std::string Codigo;
    std::string Cor;
    std::string Lote;
    std::string Deposito;
    std::string Qualidade;
    std::string Documento;
    std::string Origem; ///< "FC" production, "BC" consumption
    std::string TipoMovimento; ///< TABBAI code
    bool Saida = false; ///< goods leave the warehouse
    std::string Observacao;
    double Quantidade = 0; ///< always above zero; the direction is Saida's
    double Custo = 0; ///< unit cost; 0: not given
    TDateTime Data; ///< blank: today
    std::string Tam; ///< "0" for materials
    std::string Parte;

    std::string CodigoTipoMovEstoque(TTipoMovimentoEstoque kind) { return stock_.CodigoTipoMovEstoque(kind); }
    void MovimentaEstoqueProduto() { stock_.PostProduct(*this); }
    void MovimentaEstoqueMaterial() { stock_.PostMaterial(*this); }

private:
    IStock& stock_;
};

} // namespace alinhavo
