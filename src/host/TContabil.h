#pragma once

#include "forms/TDateTime.h"

#include <string_view>

namespace alinhavo {

class TForm;

/// The host's accounting unit.
class TContabil {
public:
    virtual ~TContabil() = default;

    /// True when the date lies in a closed period of the group ("IV" is the inventory); the user has then been told so
    /// on top of `screen`. A blank date lies in none.
    virtual bool PeriodoConciliado(TForm& screen, std::string_view group, TDateTime date) = 0;
    /// Writes the cost-class split of a payable, in the shared transaction.
    virtual void SetRateioClasse(std::string_view numero, std::string_view os, std::string_view tipo, double valor,
        std::string_view classe, int sequencia, TDateTime data, double indice)
        = 0;
};

} // namespace alinhavo
