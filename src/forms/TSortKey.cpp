#include "forms/TSortKey.h"

#include "forms/text.h"

namespace alinhavo {

std::vector<std::string> FieldNames(std::string_view fields)
{
    std::vector<std::string> names;
    for (const std::string& piece : Explode(fields, ";")) {
        std::string name = Trim(piece);
        if (!name.empty())
            names.push_back(std::move(name));
    }
    return names;
}

std::vector<TSortKey> SortKeys(std::string_view fields)
{
    std::vector<TSortKey> keys;
    for (std::string& name : FieldNames(fields)) {
        const bool downwards = name.front() == '-';
        keys.push_back({downwards ? Trim(name.substr(1)) : std::move(name),
            downwards ? TDirection::Descending : TDirection::Ascending});
    }
    return keys;
}

} // namespace alinhavo
