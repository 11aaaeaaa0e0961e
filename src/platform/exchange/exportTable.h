#pragma once

#include "host/TOrvDatabase.h"
#include "host/TTableDecl.h"

#include <string>

namespace alinhavo {

class TOrvQuery;

enum class TFileForm { Csv, Xlsx };

/// Opens the query on all rows of the table, in the order of its key, with the columns that a person sees, under the titles
/// that an import finds them by. EExchange when there are none.
void OpenTable(const TTableDecl& table, TOrvQuery& rows);

/// The same as a file, which an import reads back unchanged. EExchange when a workbook does not hold as many rows.
std::string ExportTable(TOrvDatabase& database, const TTableDecl& table, TFileForm form);

} // namespace alinhavo
