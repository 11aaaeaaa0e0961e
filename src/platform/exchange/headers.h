#pragma once

#include "host/TTableDecl.h"

#include <string>
#include <string_view>
#include <vector>

namespace alinhavo {

/// Only letters and digits, in upper case and without accents: what counts when titles are compared.
std::string Plain(std::string_view text);

/// The column that a title names: by its name, by its caption, or by what stands before the brackets of its caption, whichever
/// finds a single one. Null for no column, and for one that no person sees.
const TColumnDecl* ColumnOfTitle(const TTableDecl& table, std::string_view title);
/// The title under which a column goes out: its caption, or its name where the caption would not find it again.
std::string_view TitleOfColumn(const TTableDecl& table, const TColumnDecl& column);

/// The columns that go out and may come in: those with a caption.
std::vector<const TColumnDecl*> ExchangedColumns(const TTableDecl& table);

} // namespace alinhavo
