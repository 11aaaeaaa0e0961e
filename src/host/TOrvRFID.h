#pragma once

#include "forms/TMemTable.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// A batch read by the outside reader service.
class TOrvRFID {
public:
    virtual ~TOrvRFID() = default;

    std::string Fornecedor; ///< whose reader it is

    /// Reads the service's address and key from the configuration; false when there is none.
    virtual bool BuscarParametros() = 0;
    virtual bool Configurado() const = 0;
    /// Lets the user set address and key.
    virtual void ConfigurarParametros(class TForm& screen) = 0;
    /// Fills the table (CODIGO, QTDE) anew with the batch of that number; false with the reason in `error`.
    virtual bool BuscarDados(std::string_view number, TMemTable& rows, std::string& error, std::string_view tipo) = 0;
};

} // namespace alinhavo
