#pragma once

#include "forms/TValue.h"

#include <string>
#include <variant>

namespace alinhavo {

/// What only the engine itself makes: a picture or a bar code. Goes to a page of HTML as it stands.
struct TMarkup {
    std::string html;
    std::string plain; ///< in a report of text
};

/// What an expression gives.
using TReportValue = std::variant<TValue, bool, TMarkup>;

/// As a person reads it: numbers with a comma, dates as DD/MM/YYYY, with the hour when there is one; nothing for a null.
std::string Shown(const TValue& value);
std::string Shown(const TReportValue& value);
/// A null, zero, an empty text and false do not hold.
bool Holds(const TReportValue& value);

} // namespace alinhavo
