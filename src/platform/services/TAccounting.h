#pragma once

#include "host/TContabil.h"
#include "host/TOrvDatabase.h"

namespace alinhavo {

/// Closed periods (PERIODO_FECHADO) and the split of payables by class (RATEIO_CLASSE).
class TAccounting final : public TContabil {
public:
    explicit TAccounting(TOrvDatabase& database)
        : database_(database)
    {
    }

    bool PeriodoConciliado(TForm& screen, std::string_view group, TDateTime date) override;
    void SetRateioClasse(std::string_view numero, std::string_view os, std::string_view tipo, double valor,
        std::string_view classe, int sequencia, TDateTime data, double indice) override;

private:
    TOrvDatabase& database_;
};

} // namespace alinhavo
