#include "platform/report/separatedCell.h"

#include <string_view>

namespace alinhavo {
namespace {

constexpr std::string_view FormulaSigns = "=+-@\t\r";

/// Apostrophes, or none, and then a sign with which a formula begins.
bool ReadsAsFormula(std::string_view text)
{
    const auto first = text.find_first_not_of('\'');
    return first != std::string_view::npos && FormulaSigns.find(text[first]) != std::string_view::npos;
}

} // namespace

std::string WithFormulaMark(const std::string& text) { return ReadsAsFormula(text) ? '\'' + text : text; }

std::string WithoutFormulaMark(std::string text)
{
    if (text.starts_with('\'') && ReadsAsFormula(text))
        text.erase(0, 1);
    return text;
}

std::string QuotedCell(const std::string& text)
{
    if (text.find_first_of(";\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char letter : text)
        quoted.append(letter == '"' ? 2 : 1, letter);
    return quoted + '"';
}

} // namespace alinhavo
