#include "platform/database/TListAggregate.h"

#include "forms/numbers.h"
#include "forms/text.h"

#include <algorithm>

namespace alinhavo {
namespace {

struct TElement {
    std::string_view text;
    std::vector<std::string_view> keys;
};

std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const auto end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

bool IsNull(std::string_view key) { return key.size() == 1 && key.front() == listmarks::NullKey; }

int CompareKeys(std::string_view left, std::string_view right, bool numeric)
{
    if (IsNull(left) || IsNull(right))
        return static_cast<int>(IsNull(right)) - static_cast<int>(IsNull(left));
    if (!numeric)
        return CompareText(left, right);
    const auto a = StrToFloatDef(Trim(left), 0);
    const auto b = StrToFloatDef(Trim(right), 0);
    return a < b ? -1 : static_cast<int>(a > b);
}

bool Before(const TElement& left, const TElement& right, const std::vector<TListKey>& keys)
{
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const int order = CompareKeys(left.keys[i], right.keys[i], keys[i].numeric);
        if (order != 0)
            return (order < 0) != keys[i].descending;
    }
    return false;
}

std::string Fold(std::string_view tagged, const TListAggregate& list)
{
    std::vector<TElement> elements;
    for (const auto part : Split(tagged, listmarks::Element)) {
        auto pieces = Split(part, listmarks::Key);
        const auto text = pieces.front();
        pieces.erase(pieces.begin());
        pieces.resize(list.keys.size());
        elements.push_back({text, std::move(pieces)});
    }
    elements.erase(elements.begin()); // the text before the first mark, which is none
    std::ranges::stable_sort(
        elements, [&](const TElement& left, const TElement& right) { return Before(left, right, list.keys); });

    std::string joined;
    for (const auto& element : elements) {
        if (&element != &elements.front())
            joined += list.separator;
        joined += element.text;
    }
    return joined;
}

} // namespace

std::string FoldLists(std::string_view text, const std::vector<TListAggregate>& lists)
{
    std::string folded;
    for (;;) {
        const auto begin = text.find(listmarks::Begin);
        folded += text.substr(0, begin);
        if (begin == std::string_view::npos)
            return folded;
        text.remove_prefix(begin + 1);
        const auto end = text.find(listmarks::End);
        const auto number = static_cast<std::size_t>(text.front() - 'A');
        folded += Fold(text.substr(1, end - 1), lists[number]);
        text.remove_prefix(end + 1);
    }
}

} // namespace alinhavo
