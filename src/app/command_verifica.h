#pragma once

#include <iosfwd>
#include <string>

namespace alinhavo {

struct TVerificaOptions {
    std::string database; ///< a Firebird file or the address of a database
    std::string company = "01";
};

/// Checks the tables against each other, by the process that serves the database where there is one, and prints what is wrong:
/// 0 without errors (remarks may be printed), 1 with errors, 2 when the database could not be read.
int RunVerifica(const TVerificaOptions& options);
/// The same, by this process and nobody else.
int VerifyHere(const TVerificaOptions& options, std::ostream& out, std::ostream& failures);

} // namespace alinhavo
