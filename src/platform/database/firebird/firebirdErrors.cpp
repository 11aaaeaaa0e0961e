#include "host/EDatabaseError.h"
#include "platform/database/databaseErrors.h"
#include "platform/database/firebird/firebirdApi.h"

#include <algorithm>
#include <ibase.h>

namespace alinhavo::firebird {
namespace {

std::string Text(const EFirebird& failure, ISC_STATUS code, std::size_t index = 0)
{
    const auto texts = failure.TextsOf(code);
    return index < texts.size() ? texts[index] : std::string();
}

bool HasAny(const EFirebird& failure, std::initializer_list<ISC_STATUS> codes)
{
    return std::ranges::any_of(codes, [&](ISC_STATUS code) { return failure.Has(code); });
}

/// "TABLE"."COLUMN" taken apart.
[[noreturn]] void RaiseNotNullOf(std::string_view qualified)
{
    const auto dot = qualified.find("\".\"");
    if (dot == std::string_view::npos || qualified.size() < 2)
        RaiseNotNull({}, qualified);
    RaiseNotNull(qualified.substr(1, dot - 1), qualified.substr(dot + 3, qualified.size() - dot - 4));
}

[[noreturn]] void RaiseSyntaxOf(const EFirebird& failure)
{
    std::string text = "the statement is not understood";
    if (failure.Has(isc_dsql_relation_err))
        text = "unknown table in the statement";
    else if (failure.Has(isc_dsql_field_err))
        text = "unknown column in the statement";
    throw EDatabaseError(TDatabaseErrorKind::Syntax, text);
}

} // namespace

bool IsConnectionLost(const EFirebird& failure)
{
    return HasAny(failure,
        {isc_network_error, isc_net_read_err, isc_net_write_err, isc_lost_db_connection, isc_shutdown, isc_att_shutdown,
            isc_bad_db_handle});
}

void RaiseDatabaseError(const EFirebird& failure)
{
    if (IsConnectionLost(failure))
        RaiseConnection();
    if (failure.Has(isc_cancelled))
        RaiseCancelled();
    if (HasAny(failure, {isc_io_error, isc_io_write_err}))
        RaiseDisk();
    if (failure.Has(isc_unique_key_violation))
        RaiseDuplicate(Text(failure, isc_unique_key_violation), Text(failure, isc_unique_key_violation, 1));
    if (failure.Has(isc_no_dup))
        RaiseDuplicate(Text(failure, isc_no_dup), {});
    if (failure.Has(isc_foreign_key)) {
        const auto constraint = Text(failure, isc_foreign_key);
        const auto table = Text(failure, isc_foreign_key, 1);
        if (failure.Has(isc_foreign_key_references_present))
            RaiseReferenced(constraint, table);
        RaiseNotFound(constraint, table);
    }
    if (failure.Has(isc_not_valid))
        RaiseNotNullOf(Text(failure, isc_not_valid));
    if (HasAny(failure, {isc_lock_timeout, isc_lock_conflict, isc_deadlock, isc_update_conflict}))
        RaiseLock();
    if (HasAny(failure, {isc_string_truncation, isc_trunc_limits}))
        RaiseTooLong();
    if (HasAny(failure, {isc_exception_integer_divide_by_zero, isc_exception_float_divide_by_zero}))
        throw EDatabaseError(TDatabaseErrorKind::Other, "division by zero");
    if (HasAny(failure, {isc_malformed_string, isc_transliteration_failed}))
        RaiseNoUtf8();
    if (HasAny(failure, {isc_numeric_out_of_range, isc_exception_integer_overflow, isc_arith_except}))
        RaiseOutOfRange();
    if (failure.Has(isc_convert_error))
        throw EDatabaseError(TDatabaseErrorKind::Conversion, "a text is no number or date");
    if (HasAny(failure, {isc_dsql_error, isc_sqlerr, isc_dsql_relation_err, isc_dsql_field_err}))
        RaiseSyntaxOf(failure);
    throw EDatabaseError(TDatabaseErrorKind::Other, "the database refused the operation");
}

} // namespace alinhavo::firebird
