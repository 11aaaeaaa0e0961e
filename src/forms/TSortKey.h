#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

enum class TDirection { Ascending, Descending };

struct TSortKey {
    std::string field;
    TDirection direction = TDirection::Ascending;
};

/// "mov;codigo;cor" as sort keys; a leading '-' sorts that field downwards. Blanks around a name do not count.
std::vector<TSortKey> SortKeys(std::string_view fields);

/// "CODIGO;COR" as names, without the blanks around them.
std::vector<std::string> FieldNames(std::string_view fields);

} // namespace alinhavo
