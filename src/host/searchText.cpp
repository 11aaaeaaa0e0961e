#include "host/searchText.h"

#include "forms/text.h"

namespace alinhavo {
namespace {

constexpr std::size_t longestSearch = 60;

std::string Pattern(std::string_view text)
{
    auto pattern = UpperCase(Left(text, longestSearch));
    for (const auto* special : {"!", "%", "_"})
        pattern = Replace(pattern, special, std::string("!") + special);
    return "%" + pattern + "%";
}

} // namespace

TStatement StandsIn(const std::vector<std::string>& columns, std::string_view text)
{
    TStatement any;
    if (text.empty())
        return any;
    const auto pattern = Pattern(text);
    for (const auto& column : columns)
        any.Add(any.IsEmpty() ? TFragment("") : TFragment(" OR "))
            // The cast frees the pattern from the width of the column, to which a server would else hold it.
            .Add("UPPER(?) LIKE CAST(? AS VARCHAR(200)) ESCAPE '!'", TName(column), pattern);
    return any;
}

} // namespace alinhavo
