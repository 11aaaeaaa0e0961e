#include "platform/services/mailAddress.h"

#include "forms/text.h"

#include <algorithm>

namespace alinhavo {
namespace {

constexpr std::size_t LongestName = 64;
constexpr std::size_t LongestPart = 63;
constexpr std::size_t LongestAddress = 200;

bool IsLetterOrDigit(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

bool IsOfName(char c)
{
    return IsLetterOrDigit(c) || std::string_view("!#$%&'*+-/=?^_`{|}~").find(c) != std::string_view::npos;
}

bool IsOfDomain(char c) { return IsLetterOrDigit(c) || c == '-'; }

/// Parts between points, none of them empty or too long.
bool AreParts(std::string_view text, bool (*accepts)(char))
{
    const auto parts = Explode(text, ".");
    return !parts.empty() && std::ranges::all_of(parts, [accepts](const std::string& part) {
        return !part.empty() && part.size() <= LongestPart && std::ranges::all_of(part, accepts);
    });
}

bool IsDomain(std::string_view domain)
{
    const auto last = domain.rfind('.');
    return last != std::string_view::npos && domain.size() - last > 2 && AreParts(domain, IsOfDomain);
}

} // namespace

std::optional<std::string> MailAddress(std::string_view text)
{
    auto address = Trim(text);
    const auto at = address.find('@');
    if (at == std::string::npos || at > LongestName || address.size() > LongestAddress)
        return std::nullopt;
    const std::string_view whole(address);
    if (!AreParts(whole.substr(0, at), IsOfName) || !IsDomain(whole.substr(at + 1)))
        return std::nullopt;
    return address;
}

} // namespace alinhavo
