#include "platform/services/TCertificates.h"

namespace alinhavo {

std::vector<std::string> TCertificates::Missing(
    std::string_view product, std::string_view subcontractor, TDateTime date)
{
    const auto found = database_.Open(TStatement(R"(
        SELECT P.CERTIFICADO, C.DESCRICAO
          FROM {PRODUTO_CERTIFICADO} P LEFT JOIN {CERTIFICADO} C ON C.CODIGO = P.CERTIFICADO
         WHERE P.PRODUTO = ?
           AND NOT EXISTS (SELECT 1 FROM {ENTIDADE_CERTIFICADO} E
                            WHERE E.CODCLI = ? AND E.CERTIFICADO = P.CERTIFICADO
                              AND (E.DT_INICIO IS NULL OR E.DT_INICIO <= COALESCE(CAST(? AS DATE), CURRENT_DATE))
                              AND (E.DT_FIM IS NULL OR E.DT_FIM >= COALESCE(CAST(? AS DATE), CURRENT_DATE)))
         ORDER BY P.CERTIFICADO)",
        product, subcontractor, date.Date(), date.Date()));
    std::vector<std::string> missing;
    for (std::size_t row = 0; row < found.RowCount(); ++row)
        missing.push_back(std::string(found.Column(0).Text(row)) + " - " + std::string(found.Column(1).Text(row)));
    return missing;
}

} // namespace alinhavo
