#include "host/TTableDecl.h"

#include "host/tables/Subjects.h"

#include <algorithm>

namespace alinhavo {
namespace {

char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// Orders identifiers without regard to case, by the byte order of their upper case.
bool Before(std::string_view left, std::string_view right)
{
    return std::ranges::lexicographical_compare(left, right, {}, Upper, Upper);
}

bool Same(std::string_view left, std::string_view right) { return std::ranges::equal(left, right, {}, Upper, Upper); }

std::vector<TTableDecl> Collect()
{
    using namespace tables;

    std::vector<TTableDecl> collected;
    for (const auto subject : {Finance(), Invoices(), Materials(), Movement(), Orders(), Partners(), Prices(),
             Products(), Quality(), Sectors(), Stock(), System()})
        collected.insert(collected.end(), subject.begin(), subject.end());
    std::ranges::sort(collected, Before, &TTableDecl::name);
    return collected;
}

} // namespace

std::span<const TTableDecl> Tables()
{
    static const std::vector<TTableDecl> all = Collect();
    return all;
}

const TTableDecl* FindTable(std::string_view name)
{
    const auto all = Tables();
    const auto found = std::ranges::lower_bound(all, name, Before, &TTableDecl::name);
    return found != all.end() && Same(found->name, name) ? &*found : nullptr;
}

const TColumnDecl* FindColumn(const TTableDecl& table, std::string_view name)
{
    const auto found
        = std::ranges::find_if(table.columns, [name](const TColumnDecl& column) { return Same(column.name, name); });
    return found != table.columns.end() ? &*found : nullptr;
}

TReference ReferenceOf(const TColumnDecl& column)
{
    const auto dot = std::min(column.refersTo.find('.'), column.refersTo.size());
    const auto* table = FindTable(column.refersTo.substr(0, dot));
    if (!table)
        return {};
    const auto name = dot < column.refersTo.size() ? column.refersTo.substr(dot + 1) : table->key;
    return {table, FindColumn(*table, name)};
}

std::vector<TChoice> Choices(const TColumnDecl& column)
{
    std::vector<TChoice> choices;
    for (const auto choice : ColumnNames(column.choices)) {
        const auto equals = std::min(choice.find('='), choice.size());
        choices.push_back({choice.substr(0, equals), choice.substr(std::min(equals + 1, choice.size()))});
    }
    return choices;
}

std::string_view PersonKey(const TTableDecl& table)
{
    if (!table.rowKey.empty())
        return table.rowKey;
    const auto* key = FindColumn(table, table.key);
    return key && key->kind == TColumnKind::Identity ? std::string_view() : table.key;
}

bool IsRequired(const TTableDecl& table, const TColumnDecl& column)
{
    if (column.kind == TColumnKind::Identity)
        return false;
    const auto listed = [&](std::string_view list) {
        return std::ranges::any_of(ColumnNames(list), [&](std::string_view name) { return Same(name, column.name); });
    };
    return listed(table.key) || listed(table.required);
}

std::string TableScreen(const TTableDecl& table) { return "TfmTabela_" + std::string(table.name); }

std::vector<std::string_view> ColumnNames(std::string_view list)
{
    std::vector<std::string_view> names;
    while (!list.empty()) {
        const auto comma = std::min(list.find(','), list.size());
        names.push_back(list.substr(0, comma));
        list.remove_prefix(std::min(comma + 1, list.size()));
    }
    return names;
}

} // namespace alinhavo
