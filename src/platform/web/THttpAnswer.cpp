#include "platform/web/THttpAnswer.h"

#include "forms/text.h"
#include "platform/web/TStaticFiles.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>

namespace alinhavo {

namespace {

namespace http = boost::beast::http;

constexpr std::string_view Policy = "default-src 'self'; style-src 'self' 'unsafe-inline'; img-src 'self' data:; "
                                    "font-src 'self' data:; object-src 'none'; base-uri 'none'; form-action 'self'; "
                                    "frame-ancestors 'none'";

// The page around it may print it, so it stays of the same origin; without scripts that gives it nothing.
constexpr std::string_view ReportPolicy = "default-src 'none'; style-src 'unsafe-inline'; img-src data:; font-src "
                                          "data:; base-uri 'none'; form-action 'none'; "
                                          "frame-ancestors 'self'; sandbox allow-same-origin allow-modals";

std::string_view View(boost::beast::string_view text) { return {text.data(), text.size()}; }

THttpResponse Begin(const THttpRequest& request, http::status status)
{
    THttpResponse response(status, request.version());
    response.keep_alive(request.keep_alive());
    response.set("X-Content-Type-Options", "nosniff");
    response.set("Referrer-Policy", "no-referrer");
    response.set("Content-Security-Policy", boost::beast::string_view(Policy.data(), Policy.size()));
    return response;
}

bool AcceptsGzip(const THttpRequest& request)
{
    return View(request[http::field::accept_encoding]).find("gzip") != std::string_view::npos;
}

int HexDigit(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    const char lower = static_cast<char>(digit | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string Decoded(std::string_view text)
{
    std::string decoded;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const char letter = text[place];
        const int high = letter == '%' && place + 2 < text.size() ? HexDigit(text[place + 1]) : -1;
        const int low = high >= 0 ? HexDigit(text[place + 2]) : -1;
        if (low >= 0) {
            decoded += static_cast<char>(high * 16 + low);
            place += 2;
        } else {
            decoded += letter == '+' ? ' ' : letter;
        }
    }
    return decoded;
}

constexpr std::array<std::pair<std::string_view, std::string_view>, 6> PictureTypes = {{
    {".png", "image/png"},
    {".jpg", "image/jpeg"},
    {".jpeg", "image/jpeg"},
    {".gif", "image/gif"},
    {".bmp", "image/bmp"},
    {".webp", "image/webp"},
}};

THttpResponse AnswerContent(const THttpRequest& request, std::string content, std::string_view type)
{
    auto response = AnswerText(request, http::status::ok, {});
    response.set(http::field::content_type, boost::beast::string_view(type.data(), type.size()));
    response.body() = std::move(content);
    response.prepare_payload();
    return response;
}

} // namespace

THttpResponse AnswerReport(const THttpRequest& request, std::string html)
{
    auto response = AnswerContent(request, std::move(html), "text/html; charset=utf-8");
    response.set("Content-Security-Policy", boost::beast::string_view(ReportPolicy.data(), ReportPolicy.size()));
    return response;
}

THttpResponse AnswerDownload(
    const THttpRequest& request, std::string content, std::string_view type, const std::string& name)
{
    auto response = AnswerContent(request, std::move(content), type);
    response.set(http::field::content_disposition, "attachment; filename=\"" + name + "\"");
    return response;
}

THttpResponse AnswerServerFile(const THttpRequest& request, const std::filesystem::path& file)
{
    std::error_code unreadable;
    std::ifstream stream(file, std::ios::binary);
    if (!stream || !std::filesystem::is_regular_file(file, unreadable))
        return AnswerText(request, http::status::not_found, "Arquivo não encontrado.");
    std::string content(std::istreambuf_iterator<char>(stream), {});
    const auto type = std::ranges::find(
        PictureTypes, LowerCase(file.extension().string()), &std::pair<std::string_view, std::string_view>::first);
    if (type != PictureTypes.end())
        return AnswerContent(request, std::move(content), type->second);
    return AnswerDownload(request, std::move(content), "application/octet-stream", "arquivo");
}

std::string PathOf(const THttpRequest& request)
{
    const auto target = View(request.target());
    return std::string(target.substr(0, target.find('?')));
}

std::string QueryOf(const THttpRequest& request, std::string_view name)
{
    auto query = View(request.target());
    query.remove_prefix(std::min(query.find('?'), query.size()));
    while (!query.empty()) {
        query.remove_prefix(1);
        const auto pair = query.substr(0, query.find('&'));
        const auto equals = std::min(pair.find('='), pair.size());
        if (pair.substr(0, equals) == name && equals < pair.size())
            return Decoded(pair.substr(equals + 1));
        query.remove_prefix(pair.size());
    }
    return {};
}

std::string CookieOfLogin(const std::string& secret, bool encrypted)
{
    const std::string secure = encrypted ? "; Secure" : "";
    const std::string end = secret.empty() ? "; Max-Age=0" : "";
    return std::string(SessionCookie) + "=" + secret + "; Path=/; HttpOnly; SameSite=Strict" + secure + end;
}

THttpResponse AnswerJson(const THttpRequest& request, http::status status, const nlohmann::json& answer)
{
    auto response = AnswerText(request, status, answer.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace));
    response.set(http::field::content_type, "application/json");
    return response;
}

THttpResponse AnswerText(const THttpRequest& request, http::status status, std::string_view text)
{
    auto response = Begin(request, status);
    response.set(http::field::content_type, "text/plain; charset=utf-8");
    response.set(http::field::cache_control, "no-store");
    response.body() = text;
    response.prepare_payload();
    return response;
}

THttpResponse AnswerFile(const TStaticFiles& files, const THttpRequest& request)
{
    const bool head = request.method() == http::verb::head;
    if (request.method() != http::verb::get && !head)
        return AnswerText(request, http::status::method_not_allowed, "Método não permitido.");
    const auto* file = files.Find(PathOf(request));
    if (!file)
        return AnswerText(request, http::status::not_found, "Página não encontrada.");

    const bool unchanged = View(request[http::field::if_none_match]) == file->etag;
    auto response = Begin(request, unchanged ? http::status::not_modified : http::status::ok);
    response.set(http::field::etag, file->etag);
    response.set(http::field::vary, "Accept-Encoding");
    response.set(http::field::cache_control, file->immutable ? "public, max-age=31536000, immutable" : "no-cache");
    if (unchanged)
        return response;
    response.set(http::field::content_type, file->contentType);
    const bool compressed = !file->gzip.empty() && AcceptsGzip(request);
    if (compressed)
        response.set(http::field::content_encoding, "gzip");
    const auto& content = compressed ? file->gzip : file->content;
    if (!head)
        response.body() = content;
    response.content_length(content.size());
    return response;
}

bool FromOwnPage(const THttpRequest& request, bool encrypted)
{
    const auto origin = View(request[http::field::origin]);
    const auto host = View(request[http::field::host]);
    if (host.empty())
        return false;
    return origin == "https://" + std::string(host) || (!encrypted && origin == "http://" + std::string(host));
}

std::string CookieOf(const THttpRequest& request, std::string_view name)
{
    const auto header = ";" + std::string(request[http::field::cookie]);
    for (const auto& [cookie, value] : http::param_list(header)) {
        if (View(cookie) == name)
            return std::string(value);
    }
    return {};
}

} // namespace alinhavo
