#pragma once

#include "platform/database/TDatabaseAddress.h"

#include <filesystem>
#include <string>
#include <vector>

namespace alinhavo {

/// A process of its own in which one operation is carried out, and which may end at any moment of it without a word: the embedded
/// database has no other way to lose its user. It is this program again, with arguments that only this class knows.
class TVictim {
public:
    /// What an undisturbed operation leaves behind.
    struct TRecord {
        int moments = 0;
        std::vector<std::string> commitPoints; ///< all that was committed, before it and after each commit
    };

    /// Carries out the whole operation.
    static TRecord Watch(const TDatabaseAddress& address, const std::string& operation);
    /// Carries it out up to that moment, from 1, and is killed there. False when it came to its end alive.
    static bool Kill(const TDatabaseAddress& address, const std::string& operation, int moment);
    /// Carries out the operation in a database that cannot grow, and again when it can. What its user heard first, then what
    /// he found on his screen, one text each.
    static std::vector<std::string> Starve(const TDatabaseAddress& address);

    /// The other side: the exit code when the arguments are a victim's, -1 otherwise.
    static int Main(int argc, char** argv);
};

} // namespace alinhavo
