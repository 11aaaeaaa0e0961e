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
