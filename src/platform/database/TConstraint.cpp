#include "platform/database/TConstraint.h"

#include "platform/database/TDialect.h"

#include <cstdint>
#include <unordered_map>

namespace alinhavo {
namespace {

constexpr std::size_t CharactersOfTable = 18;
constexpr std::string_view Digits = "0123456789ABCDEFGHJKMNPQRSTVWXYZ";

/// Six characters that differ when the text differs, for as many names as there are.
std::string Digest(std::string_view text)
{
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
    std::string digest;
    for (int i = 0; i < 6; ++i, hash /= Digits.size())
        digest += Digits[hash % Digits.size()];
    return digest;
}

std::string Name(std::string_view prefix, const TTableDecl& table, std::string_view what)
{
    const std::string whole = std::string(table.name) + ":" + std::string(what);
    return std::string(prefix) + std::string(table.name.substr(0, CharactersOfTable)) + "_" + Digest(whole);
}

using TConstraints = std::unordered_map<std::string, TConstraint>;

TConstraints Collect()
{
    TConstraints all;
    for (const auto& table : Tables()) {
        all.emplace(KeyName(table), TConstraint{TConstraintKind::Key, &table, table.key});
        for (const auto& index : table.indexes)
            all.emplace(IndexName(table, index), TConstraint{TConstraintKind::Index, &table, index.columns});
        for (const auto& key : table.foreignKeys)
            all.emplace(
                ForeignKeyName(table, key), TConstraint{TConstraintKind::ForeignKey, &table, key.columns, &key});
    }
    return all;
}

} // namespace

std::string KeyName(const TTableDecl& table) { return Name("PK_", table, table.key); }

std::string IndexName(const TTableDecl& table, const TIndexDecl& index)
{
    return Name(index.unique ? "UX_" : "IX_", table,
        std::string(index.columns) + (index.descending ? ":DESC" : "") + (index.prefix ? ":PREFIX" : ""));
}

std::string ForeignKeyName(const TTableDecl& table, const TForeignKeyDecl& key)
{
    return Name("FK_", table, std::string(key.columns) + ">" + std::string(key.table));
}

const TConstraint* FindConstraint(std::string_view name)
{
    static const TConstraints all = Collect();

    const auto upper = UpperName(name);
    auto found = all.find(upper);
    if (found == all.end())
        found = all.find(upper.substr(0, upper.rfind('_')));
    return found == all.end() ? nullptr : &found->second;
}

} // namespace alinhavo
