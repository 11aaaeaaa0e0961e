#pragma once

#include "forms/TValue.h"
#include "host/TTabela.h"

#include <string>
#include <string_view>

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
    double PrecoProduto(std::string_view numero, std::string_view cor);

private:
    double Preco(const TStatement& statement);
    double MaoDeObra(std::string_view numero);
    double Material(std::string_view numero, std::string_view cor);

    TTabela& tabela_;
};

} // namespace alinhavo
