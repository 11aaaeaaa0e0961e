#pragma once

#include "forms/TTableData.h"

#include <libpq-fe.h>

namespace alinhavo::postgresql {

/// The types of values and columns that the driver tells apart, by the server's numbers.
namespace oid {

constexpr Oid Unknown = 0;
constexpr Oid Bool = 16;
constexpr Oid Int8 = 20;
constexpr Oid Int2 = 21;
constexpr Oid Int4 = 23;
constexpr Oid Text = 25;
constexpr Oid Float4 = 700;
constexpr Oid Float8 = 701;
constexpr Oid Varchar = 1043;
constexpr Oid Date = 1082;
constexpr Oid Timestamp = 1114;
constexpr Oid TimestampTz = 1184;
constexpr Oid Numeric = 1700;

} // namespace oid

/// The columns and rows of a result in binary form.
TTableData ReadResult(const PGresult& result);

} // namespace alinhavo::postgresql
