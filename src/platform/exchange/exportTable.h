#pragma once

#include "host/TOrvDatabase.h"
#include "host/TTableDecl.h"

#include <string>

namespace alinhavo {

enum class TFileForm { Csv, Xlsx };

/// All rows of a table, in the order of its key, with the columns that a person sees: what an import reads back unchanged.
/// EExchange when the table shows nothing to a person, or has more rows than a workbook holds.
std::string ExportTable(TOrvDatabase& database, const TTableDecl& table, TFileForm form);

} // namespace alinhavo
