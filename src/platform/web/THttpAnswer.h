#pragma once

#include <boost/beast/http.hpp>
#include <string>
#include <string_view>

namespace alinhavo {

class TStaticFiles;

using THttpRequest = boost::beast::http::request<boost::beast::http::string_body>;
using THttpResponse = boost::beast::http::response<boost::beast::http::string_body>;

/// Where the client's messages go.
inline constexpr std::string_view SessionPath = "/sessao";
inline constexpr std::string_view SessionCookie = "alinhavo";

/// The answer to a request for a file of the client.
THttpResponse AnswerFile(const TStaticFiles& files, const THttpRequest& request);
/// A short text, in Portuguese, for a person who sees it.
THttpResponse AnswerText(const THttpRequest& request, boost::beast::http::status status, std::string_view text);
/// The request comes from a page of this server: its Origin names the host that the request was sent to.
bool FromOwnPage(const THttpRequest& request);
/// The value of a cookie, empty when it is not there.
std::string CookieOf(const THttpRequest& request, std::string_view name);

} // namespace alinhavo
