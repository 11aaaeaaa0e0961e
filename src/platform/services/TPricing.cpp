#include "platform/services/TPricing.h"

#include "forms/numbers.h"
#include "platform/services/singleValue.h"

namespace alinhavo {

double TPricing::UnitPrice(const TPriceKey& key)
{
    const bool byColourAndSize = parameters_.Value("FAC", 270) == "S";
    const TStatement sources[] = {
        TStatement(
            "SELECT Y.TABELA FROM {OF1} O JOIN {TIPO_OP} Y ON Y.CODIGO = O.TIPO_OP WHERE O.NUMERO = ?", key.order),
        TStatement("SELECT O.TABELA FROM {OF1} O WHERE O.NUMERO = ?", key.order),
        TStatement("SELECT E.TABELA FROM {ENTIDADE} E WHERE E.CODCLI = ?", key.subcontractor),
        TStatement("SELECT R.REGIAO FROM {REGIAO} R WHERE R.PADRAO = 'S'"),
    };
    for (const auto& tableNumbers : sources) {
        const auto price = PriceIn(tableNumbers, key, byColourAndSize);
        if (price > 0)
            return price;
    }
    return 0;
}

double TPricing::PriceIn(const TStatement& tableNumbers, const TPriceKey& key, bool byColourAndSize)
{
    TStatement sql("SELECT T.PRECO FROM {TABELA} T WHERE T.CODIGO = ? AND T.SETOR = ? AND T.PARTE = ?", key.product,
        key.sector, key.part);
    if (byColourAndSize)
        sql.Add(" AND T.COR = ? AND T.TAM = ?", key.colour, key.size);
    sql.Add(" AND T.NUMERO IN (").Add(tableNumbers).Add(") ORDER BY T.IDENTIFICADOR FETCH FIRST 1 ROWS ONLY");
    return RoundTo(SingleValue(database_, sql).AsFloat(), 3);
}

} // namespace alinhavo
