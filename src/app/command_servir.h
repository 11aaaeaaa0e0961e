#pragma once

#include "forms/TDateTime.h"

#include <string>

namespace alinhavo {

/// What the command line says; empty: as in the configuration.
struct TServirOptions {
    std::string configuration = "alinhavo.ini";
    std::string database;
    std::string address;
    std::string port;
    std::string client;
    TDateTime today; ///< of every session; blank: the clock's
};

/// `alinhavo servir`: answers browsers until it is told to end (SIGTERM, SIGINT). The process's exit code.
int RunServir(const TServirOptions& options);

} // namespace alinhavo
