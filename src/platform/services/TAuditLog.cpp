#include "platform/services/TAuditLog.h"

#include "forms/text.h"

namespace alinhavo {
namespace {

constexpr std::size_t tagWidth = 60;
constexpr std::size_t userWidth = 40;
constexpr std::size_t textWidth = 8000;

} // namespace

void TAuditLog::Write(std::string_view module, std::string_view text, TOperacaoLog operation, std::string_view key)
{
    database_.ExecSQL(TStatement(R"(
        INSERT INTO {GERALOG} (MODULO, CHAVE, OPERACAO, USUARIO, DATA_HORA, TEXTO)
        VALUES (?, ?, ?, ?, CURRENT_TIMESTAMP, ?))",
        Left(module, tagWidth), Left(key, tagWidth), static_cast<int>(operation), Left(user_, userWidth),
        Left(text, textWidth)));
}

} // namespace alinhavo
