#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// A key by which the elements of a LIST[…] are put in order.
struct TListKey {
    std::string expression = {};
    bool numeric = false;
    bool descending = false;
};

/// LIST[expression, separator, order] taken apart.
struct TListAggregate {
    bool distinct = false;
    std::string expression = {};
    std::string separator = {};
    std::vector<TListKey> keys = {};
};

/// How a server without an ordered aggregate hands the elements over: each with its keys, in no order, between marks that no
/// stored text holds. They are brought in order after fetching.
namespace listmarks {

constexpr char Begin = '\x1D'; ///< followed by the number of the list in its statement, as a letter from 'A'
constexpr char Element = '\x1E'; ///< before each element
constexpr char Key = '\x1F'; ///< before each of the element's keys
constexpr char NullKey = '\x01'; ///< stands for a key that is null
constexpr char End = '\x1C';

} // namespace listmarks

/// The text with each list in it brought in order and joined by its separator; other text stays.
std::string FoldLists(std::string_view text, const std::vector<TListAggregate>& lists);

} // namespace alinhavo
