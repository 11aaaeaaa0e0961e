#pragma once

#include "forms/TValue.h"
#include "host/TTabela.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace alinhavo {

/// Which of the pieces that leave a sector are paid (CADFLUXO.IND_PAG). Missing pieces never are.
enum class TIndPag { Nenhuma = 0, Boas = 1, BoasSegunda = 2, BoasSegundaIncompletas = 3, BoasIncompletas = 4 };

/// Null and every number outside 1 to 4 pay nothing.
TIndPag IndPag(const TValue& value);

/// The part of the quantities that is paid; fractions stay.
double QuantidadePaga(TIndPag indPag, double quant, double quant2, double quantI);

/// What decides the price of a movement.
struct TChavePreco {
    std::string numero; ///< order
    std::string codigo; ///< product on the screen
    std::string setor;
    std::string parte;
    std::string faccao; ///< the subcontractor who does the work
};

/// What a piece of an order's product costs as it enters stock, for each colour, read once for all of them.
class TCustosProduto {
public:
    TCustosProduto(double maoDeObra, std::map<std::string, double, std::less<>> materiais)
        : maoDeObra_(maoDeObra)
        , materiais_(std::move(materiais))
    {
    }

    /// Labour plus material, rounded to four decimals.
    double Preco(std::string_view cor) const;

private:
    /// A colour without a sheet of its own takes the average of the others.
    double Material(std::string_view cor) const;

    double maoDeObra_;
    std::map<std::string, double, std::less<>> materiais_; ///< by colour
};

/// What a movement is worth and what a finished product cost.
class TPrecos {
public:
    explicit TPrecos(TTabela& tabela)
        : tabela_(tabela)
    {
    }

    /// Unit price of the sector: the first above zero among the tables of the order's type, of the order, of the
    /// subcontractor and the default one, rounded to three decimals. Colour and size play no part; where a table holds
    /// several rows for the key, the oldest counts. 0 when no table has a price; a negative price only from the default.
    double PrecoFaccao(const TChavePreco& chave);

    /// Unit cost of the product in that colour as it enters stock: labour of all sectors and parts of the order, less two
    /// percentages of the company, plus material; rounded to four decimals.
    double PrecoProduto(std::string_view numero, std::string_view cor) { return CustosProduto(numero).Preco(cor); }
    TCustosProduto CustosProduto(std::string_view numero);

private:
    double Preco(const TStatement& statement);
    double MaoDeObra(std::string_view numero);
    std::map<std::string, double, std::less<>> Materiais(std::string_view numero);

    TTabela& tabela_;
};

} // namespace alinhavo
