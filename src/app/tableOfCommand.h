#pragma once

#include "host/TTableDecl.h"
#include "platform/database/TSqlDatabase.h"

#include <memory>
#include <string>

namespace alinhavo {

// What the commands that bring tables in and out begin with. std::runtime_error says, in Portuguese, what is wrong and what to do.

/// The table of that name.
const TTableDecl& TableOfCommand(const std::string& name);

/// A database that exists. An embedded one that the server has open is reached by nobody else.
std::unique_ptr<TSqlDatabase> OpenForCommand(const std::string& address, const std::string& company);

} // namespace alinhavo
