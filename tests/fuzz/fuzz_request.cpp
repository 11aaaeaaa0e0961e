// What a browser, or anybody, asks for over HTTP: whatever the bytes, nothing outside the client's folder is found, and a
// request from another page or without the cookie is known as such.

#include "Finding.h"
#include "platform/report/TWorkFolder.h"
#include "platform/web/THttpAnswer.h"
#include "platform/web/TStaticFiles.h"
#include "platform/web/TWebApi.h"

#include <boost/asio/buffer.hpp>
#include <fstream>
#include <optional>

namespace {

using namespace alinhavo;
namespace http = boost::beast::http;

constexpr std::string_view Content = "<p>Alinhavo</p>";

/// A folder of one page, beside a file that nobody may have.
const TStaticFiles& Files()
{
    static const TWorkFolder folder;
    static const TStaticFiles files = [] {
        std::filesystem::create_directory(folder.Path() / "client");
        std::ofstream(folder.Path() / "client/index.html") << Content;
        std::ofstream(folder.Path() / "secret.txt") << "secret";
        return TStaticFiles(folder.Path() / "client");
    }();
    return files;
}

std::optional<THttpRequest> Parse(const std::uint8_t* data, std::size_t size)
{
    http::request_parser<http::string_body> parser;
    parser.eager(true);
    parser.body_limit(64 * 1024);
    boost::beast::error_code error;
    parser.put(boost::asio::buffer(data, size), error);
    if (error || !parser.is_header_done())
        return std::nullopt;
    return parser.release();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto request = Parse(data, size);
    if (!request)
        return 0;
    const auto path = PathOf(*request);
    const auto answer = AnswerFile(Files(), *request);
    const bool found = answer.result() == http::status::ok;
    MustHold(!found || path == "/" || path == "/index.html", "a path leads to a file: " + path);
    MustHold(!found || answer.body().empty() || answer.body() == Content, "another file is given");
    TWebApi::Knows(path);
    TWebApi::TakesFile(*request);
    QueryOf(*request, "id");
    CookieOf(*request, SessionCookie);
    const std::string origin((*request)[http::field::origin]);
    const std::string host((*request)[http::field::host]);
    MustHold(!FromOwnPage(*request, false) || (!host.empty() && origin.ends_with("//" + host)),
        "a page elsewhere counts as own");
    return 0;
}
