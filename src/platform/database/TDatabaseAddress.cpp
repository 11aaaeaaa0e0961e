#include "platform/database/TDatabaseAddress.h"

#include "host/EDatabaseError.h"

#include <charconv>
#include <libpq-fe.h>
#include <memory>

namespace alinhavo {
namespace {

constexpr std::string_view FirebirdScheme = "firebird://";
constexpr std::string_view PostgreSqlSchemes[] = {"postgresql://", "postgres://"};

[[noreturn]] void RaiseNoAddress()
{
    throw EDatabaseError(TDatabaseErrorKind::Connection, "Endereço do banco de dados inválido.");
}

/// The part before the separator, which is taken away with it; the whole when there is none.
std::string_view Take(std::string_view& text, char separator)
{
    const auto end = text.find(separator);
    const auto part = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return part;
}

std::string PercentDecoded(std::string_view text)
{
    std::string decoded;
    while (!text.empty()) {
        unsigned char byte = 0;
        const auto digits = text.substr(0, 3);
        if (digits.size() == 3 && digits[0] == '%'
            && std::from_chars(digits.data() + 1, digits.data() + 3, byte, 16).ptr == digits.data() + 3) {
            decoded += static_cast<char>(byte);
            text.remove_prefix(3);
        } else {
            decoded += text.front();
            text.remove_prefix(1);
        }
    }
    return decoded;
}

TDatabaseAddress FirebirdServer(std::string_view rest)
{
    TDatabaseAddress address;
    if (const auto at = rest.rfind('@', rest.find('/')); at != std::string_view::npos) {
        auto login = rest.substr(0, at);
        rest.remove_prefix(at + 1);
        address.user = PercentDecoded(Take(login, ':'));
        address.password = PercentDecoded(login);
    }
    const bool hasPath = rest.find('/') != std::string_view::npos;
    auto place = Take(rest, '/');
    address.host = PercentDecoded(Take(place, ':'));
    address.port = place;
    const bool isAlias = rest.find('/') == std::string_view::npos;
    address.path = (isAlias ? "" : "/") + PercentDecoded(rest);
    if (!hasPath || rest.empty() || address.host.empty())
        RaiseNoAddress();
    return address;
}

TDatabaseAddress PostgreSql(std::string_view text)
{
    TDatabaseAddress address;
    address.server = TDatabaseServer::PostgreSql;
    address.uri = text;
    const std::unique_ptr<PQconninfoOption, decltype(&PQconninfoFree)> options(
        PQconninfoParse(address.uri.c_str(), nullptr), &PQconninfoFree);
    if (!options)
        RaiseNoAddress();
    for (const auto* option = options.get(); option->keyword; ++option) {
        const std::string_view keyword = option->keyword;
        const std::string value = option->val ? option->val : "";
        if (keyword == "dbname")
            address.name = value;
        else if (keyword == "host")
            address.host = value;
        else if (keyword == "port")
            address.port = value;
        else if (keyword == "user")
            address.user = value;
    }
    if (address.name.empty())
        RaiseNoAddress();
    return address;
}

} // namespace

TDatabaseAddress TDatabaseAddress::Parse(std::string_view text)
{
    for (const auto scheme : PostgreSqlSchemes)
        if (text.starts_with(scheme))
            return PostgreSql(text);
    if (text.starts_with(FirebirdScheme))
        return FirebirdServer(text.substr(FirebirdScheme.size()));
    if (text.empty() || text.find("://") != std::string_view::npos)
        RaiseNoAddress();

    TDatabaseAddress address;
    address.path = text;
    return address;
}

std::string TDatabaseAddress::Text() const
{
    if (IsEmbedded())
        return path;
    const std::string place = host + (port.empty() ? "" : ":" + port);
    if (server == TDatabaseServer::PostgreSql)
        return "postgresql://" + place + "/" + name;
    return "firebird://" + place + (path.starts_with('/') ? "" : "/") + path;
}

} // namespace alinhavo
