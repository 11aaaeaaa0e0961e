#pragma once

#include "host/TprReport.h"

#include <string>

namespace alinhavo {

class TGrid;

/// The data behind a report as a workbook (XLSX): a sheet for each dataset with its visible rows and fields, and in its last
/// line the sums of the fields that the report's groups total. std::runtime_error when it cannot be made.
std::string Spreadsheet(const TprReportBase& report);

/// The visible rows and fields of a dataset as a workbook of one sheet. std::runtime_error when it cannot be made.
std::string Spreadsheet(const std::string& sheet, const TDataSet& rows);

/// The rows of a grid as a workbook: its visible columns with their titles. std::runtime_error when it cannot be made.
std::string Spreadsheet(const TGrid& grid);

} // namespace alinhavo
