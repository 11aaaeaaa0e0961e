#pragma once

#include <boost/beast/http.hpp>
#include <filesystem>
#include <nlohmann/json_fwd.hpp>
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
THttpResponse AnswerJson(const THttpRequest& request, boost::beast::http::status status, const nlohmann::json& answer);
/// A file for the browser to keep under that name, which is plain ASCII without quotes.
THttpResponse AnswerDownload(
    const THttpRequest& request, std::string content, std::string_view type, const std::string& name);
/// A report, which may run nothing and fetch nothing.
THttpResponse AnswerReport(const THttpRequest& request, std::string html);
/// A picture of the server to be shown, anything else as AnswerDownload.
THttpResponse AnswerServerFile(const THttpRequest& request, const std::filesystem::path& file);
/// The value of Set-Cookie that gives the client the secret of its login; an empty one takes it away. When the server
/// encrypts, the client says it over no connection that does not.
std::string CookieOfLogin(const std::string& secret, bool encrypted);
/// The request's target without what follows a "?".
std::string PathOf(const THttpRequest& request);
/// A value behind the "?", decoded; empty when it is not there.
std::string QueryOf(const THttpRequest& request, std::string_view name);
/// The request comes from a page of this server: its Origin names the host that the request was sent to, and https where the
/// server encrypts. Where it does not, something before it may.
bool FromOwnPage(const THttpRequest& request, bool encrypted);
/// The value of a cookie, empty when it is not there.
std::string CookieOf(const THttpRequest& request, std::string_view name);

} // namespace alinhavo
