#include "app/command_verifica.h"

#include "app/TLocalControl.h"
#include "platform/database/OpenDatabase.h"
#include "platform/verification/TVerification.h"

#include <algorithm>
#include <exception>
#include <iostream>

namespace alinhavo {

int VerifyHere(const TVerificaOptions& options, std::ostream& out)
try {
    TDatabaseOptions opening;
    opening.company = options.company;
    const auto database = OpenDatabase(TDatabaseAddress::Parse(options.database), opening);
    const std::vector<TViolation> violations = Verify(*database);
    for (const TViolation& violation : violations)
        out << (violation.severity == TSeverity::Error ? "ERRO" : "Observação") << " [" << violation.check << "] "
            << violation.text << ": " << violation.keys << "\n";
    const auto errors = std::ranges::count(violations, TSeverity::Error, &TViolation::severity);
    out << Invariants().size() << " regras verificadas: " << errors << " erros, "
        << static_cast<std::ptrdiff_t>(violations.size()) - errors << " observações.\n";
    return errors == 0 ? 0 : 1;
} catch (const std::exception& error) {
    out << "Não foi possível verificar o banco: " << error.what() << "\n";
    return 2;
}

int RunVerifica(const TVerificaOptions& options)
{
    if (const auto code = AskServer(options.database, {"verifica", options.company}, std::cout))
        return *code;
    return VerifyHere(options, std::cout);
}

} // namespace alinhavo
