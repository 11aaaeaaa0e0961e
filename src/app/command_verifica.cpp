#include "app/command_verifica.h"

#include "app/TLocalControl.h"
#include "platform/database/OpenDatabase.h"
#include "platform/verification/TVerification.h"

#include <algorithm>
#include <exception>
#include <iostream>

namespace alinhavo {
namespace {

int NotVerified(const std::exception& error, std::ostream& failures)
{
    failures << "Não foi possível verificar o banco: " << error.what() << "\n";
    return 2;
}

} // namespace

int VerifyHere(const TVerificaOptions& options, std::ostream& out, std::ostream& failures)
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
    return NotVerified(error, failures);
}

int RunVerifica(const TVerificaOptions& options)
try {
    if (const auto code = AskServer(options.database, {"verifica", options.company}, std::cout))
        return *code;
    return VerifyHere(options, std::cout, std::cerr);
} catch (const std::exception& error) {
    return NotVerified(error, std::cerr);
}

} // namespace alinhavo
