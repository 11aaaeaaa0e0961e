#pragma once

#include "platform/database/TSqlDatabase.h"

#include <string>
#include <vector>

namespace alinhavo {

/// What this program's declarations amount to.
constexpr int CurrentSchemaVersion = 1;

/// The version stored in the database for its company; 0 when the company has no tables.
int SchemaVersion(TSqlDatabase& database);

/// Brings the database to this program's version for the connection's company: creates the tables, columns and indexes that are
/// declared and missing, the global tables included, and runs the numbered steps that it has not seen. Nothing is pending
/// before or after. A database that is newer than this program is refused (EDatabaseError, Other). Nobody else may be at work
/// in it.
void MigrateSchema(TSqlDatabase& database);

/// Creates the tables that are declared and missing, without indexes and references, for rows that come in bulk; MigrateSchema does
/// the rest when they are there. Nothing is pending before or after.
void CreateTables(TSqlDatabase& database);

/// The companies whose tables the database holds.
std::vector<std::string> Companies(TSqlDatabase& database);

/// Has the server count anew what it chooses access paths by: after many rows have come. Nothing is pending before or after.
void RefreshStatistics(TSqlDatabase& database);

} // namespace alinhavo
