#include "platform/services/TAccounting.h"

#include "forms/TForm.h"
#include "platform/services/singleValue.h"

namespace alinhavo {

bool TAccounting::PeriodoConciliado(TForm& screen, std::string_view group, TDateTime date)
{
    if (date.IsBlank())
        return false;
    const auto closed = SingleValue(database_,
        TStatement(R"(
        SELECT 1 FROM {PERIODO_FECHADO}
         WHERE GRUPO = ? AND (DT_INICIO IS NULL OR DT_INICIO <= ?) AND (DT_FIM IS NULL OR DT_FIM >= ?)
         FETCH FIRST 1 ROWS ONLY)",
            group, date.Date(), date.Date()));
    if (closed.IsNull())
        return false;
    screen.Mensagem("A data " + date.Date().Text() + " pertence a um período fechado.");
    return true;
}

void TAccounting::SetRateioClasse(std::string_view numero, std::string_view os, std::string_view tipo, double valor,
    std::string_view classe, int sequencia, TDateTime data, double indice)
{
    database_.ExecSQL(TStatement(R"(
        INSERT INTO {RATEIO_CLASSE} (NUMERO, NUM_OS, TIPO, VALOR, CLASSE, SEQUENCIA, DATA, INDICE)
        VALUES (?, ?, ?, ?, ?, ?, ?, ?))",
        numero, os, tipo, valor, classe, sequencia, data.Date(), indice));
}

} // namespace alinhavo
