#pragma once

#include "host/TFuncoes.h"
#include "host/TOrvDatabase.h"

#include <string>
#include <string_view>

namespace alinhavo {

/// Writes the audit log (GERALOG) in the shared transaction. What is too long for a column is cut: a line is never lost.
class TAuditLog {
public:
    TAuditLog(TOrvDatabase& database, std::string userName)
        : database_(database)
        , user_(std::move(userName))
    {
    }

    void Write(std::string_view module, std::string_view text, TOperacaoLog operation, std::string_view key);

private:
    TOrvDatabase& database_;
    std::string user_;
};

} // namespace alinhavo
