#include "platform/database/TDialect.h"

#include "host/EDatabaseError.h"
#include "host/TStatement.h"
#include "platform/database/TTranslator.h"

#include <algorithm>

namespace alinhavo {

TDialect::TDialect(const std::string& company)
    : company_(UpperName(TName("EMP" + company).Text()).substr(3))
{
    if (company_.empty() || company_.size() > 2)
        throw EDatabaseError(TDatabaseErrorKind::Syntax, "a company has a code of one or two characters");
}

TServerSql TDialect::Translate(std::string_view sql) const { return TTranslator(*this, sql, nullptr).Translation(); }

TServerSql TDialect::TranslateWith(std::string_view sql, const std::vector<TValue>& values) const
{
    return TTranslator(*this, sql, &values).Translation();
}

std::string TDialect::LocalName(std::string_view table) const
{
    const TName name(table);
    const auto* declared = FindTable(name.Text());
    const bool isGlobal = (declared && declared->global) || UpperName(table) == VersionTable;
    return isGlobal ? GlobalTable(name.Text()) : CompanyTable(name.Text());
}

std::string UpperName(std::string_view name)
{
    std::string upper(name);
    std::ranges::transform(
        upper, upper.begin(), [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

std::string LowerName(std::string_view name)
{
    std::string lower(name);
    std::ranges::transform(
        lower, lower.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

} // namespace alinhavo
