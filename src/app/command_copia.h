#pragma once

#include <iosfwd>
#include <string>

namespace alinhavo {

struct TCopiaOptions {
    std::string database; ///< what is copied, or what is restored
    std::string copy; ///< the copy: a database as well
    bool replace = false; ///< restore over a database that is there
};

/// `alinhavo copia`: makes a copy of the database while others work in it. Where the database belongs to a process that serves it,
/// that process makes the copy. The process's exit code.
int RunCopia(const TCopiaOptions& options);
/// The copy, made by this process; what there is to say goes to `told`.
int MakeCopy(const TCopiaOptions& options, std::ostream& told);

/// `alinhavo restaura`: makes the database of a copy, and verifies it. The process's exit code.
int RunRestaura(const TCopiaOptions& options);

} // namespace alinhavo
