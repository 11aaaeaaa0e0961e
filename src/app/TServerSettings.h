#pragma once

#include "platform/services/TConfiguration.h"
#include "platform/session/TDatabaseHost.h"
#include "platform/web/TWebServer.h"

namespace alinhavo {

struct TServirOptions;

/// What the server works with: the configuration, with what the command line says over it. docs/configuration.md lists the keys.
struct TServerSettings {
    TDatabaseHostOptions host;
    TWebOptions web;

    /// Throws std::runtime_error, in Portuguese, that names the key whose value cannot be used.
    static TServerSettings Read(const TConfiguration& configuration, const TServirOptions& options);
};

} // namespace alinhavo
