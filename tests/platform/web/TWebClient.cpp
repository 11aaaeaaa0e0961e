#include "TWebClient.h"

#include <boost/asio/connect.hpp>
#include <limits>

namespace alinhavo {

namespace beast = boost::beast;
namespace http = boost::beast::http;
using tcp = boost::asio::ip::tcp;
using json = nlohmann::json;

namespace {

tcp::endpoint At(std::uint16_t port) { return {boost::asio::ip::make_address("127.0.0.1"), port}; }

std::string HostOf(std::uint16_t port) { return "127.0.0.1:" + std::to_string(port); }

std::string OriginOf(std::uint16_t port, const TRequestOptions& options)
{
    return options.origin == "own" ? "http://" + HostOf(port) : options.origin;
}

} // namespace

TWebAnswer Request(std::uint16_t port, const std::string& path, const TRequestOptions& options)
{
    boost::asio::io_context context;
    beast::tcp_stream stream(context);
    stream.connect(At(port));
    http::request<http::string_body> request(options.verb, path, 11);
    request.set(http::field::host, HostOf(port));
    if (const auto origin = OriginOf(port, options); !origin.empty())
        request.set(http::field::origin, origin);
    if (!options.cookie.empty())
        request.set(http::field::cookie, options.cookie);
    if (!options.body.empty()) {
        request.set(http::field::content_type, "application/json");
        request.body() = options.body;
        request.prepare_payload();
    }
    if (!options.etag.empty())
        request.set(http::field::if_none_match, options.etag);
    if (!options.encoding.empty())
        request.set(http::field::accept_encoding, options.encoding);
    http::write(stream, request);
    beast::flat_buffer buffer;
    http::response_parser<http::string_body> parser;
    parser.body_limit(std::numeric_limits<std::uint64_t>::max());
    parser.skip(options.verb == http::verb::head);
    http::read(stream, buffer, parser);
    return parser.release();
}

http::status AnnouncedSize(std::uint16_t port, const std::string& path, std::size_t length, const std::string& cookie)
{
    boost::asio::io_context context;
    beast::tcp_stream stream(context);
    stream.connect(At(port));
    http::request<http::empty_body> request(http::verb::post, path, 11);
    request.set(http::field::host, HostOf(port));
    request.set(http::field::origin, "http://" + HostOf(port));
    request.set(http::field::cookie, cookie);
    request.content_length(length);
    http::request_serializer<http::empty_body> head(request);
    http::write_header(stream, head);
    beast::flat_buffer buffer;
    http::response<http::string_body> answer;
    http::read(stream, buffer, answer);
    return answer.result();
}

std::string LogIn(std::uint16_t port, const std::string& user, const std::string& password)
{
    const json account = {{"usuario", user}, {"senha", password}};
    const auto answer = Request(port, "/entrar", {.verb = http::verb::post, .body = account.dump()});
    const std::string cookie(answer[http::field::set_cookie]);
    return cookie.substr(0, cookie.find(';'));
}

TWebClient::TWebClient(std::uint16_t port, const TRequestOptions& options)
    : stream_(context_)
    , cookie_(options.cookie.empty() ? LogIn(port, options.user) : options.cookie)
{
    const std::string wanted = options.cookie.empty() ? "nova" : options.session;
    beast::get_lowest_layer(stream_).connect(At(port));
    stream_.set_option(beast::websocket::stream_base::decorator([&](beast::websocket::request_type& request) {
        if (const auto origin = OriginOf(port, options); !origin.empty())
            request.set(http::field::origin, origin);
        if (!cookie_.empty())
            request.set(http::field::cookie, cookie_);
    }));
    stream_.handshake(HostOf(port), "/sessao?id=" + wanted);
    Receive();
    number_ = state_.value("done", 0);
}

const json& TWebClient::Do(json event) { return ReceiveDone(Send(std::move(event))); }

int TWebClient::Send(json event)
{
    event["n"] = ++number_;
    event["turn"] = turn_;
    SendText(event.dump());
    return number_;
}

void TWebClient::SendText(std::string_view text)
{
    stream_.text(true);
    stream_.write(boost::asio::buffer(text.data(), text.size()));
}

const json& TWebClient::Receive()
{
    beast::flat_buffer buffer;
    stream_.read(buffer);
    state_ = json::parse(beast::buffers_to_string(buffer.data()));
    turn_ = state_.value("turn", turn_);
    if (state_.contains("focus"))
        focus_ = state_["focus"]["control"];
    for (const auto& form : state_.value("shown", json::array()))
        Note(form["controls"]);
    Note(state_.value("changed", json::array()));
    return state_;
}

const json& TWebClient::ReceiveDone(int number)
{
    do {
        Receive();
    } while (state_.value("done", -1) < number);
    return state_;
}

void TWebClient::Note(const json& controls)
{
    for (const auto& control : controls)
        controls_[control["name"].get<std::string>()].update(control);
}

json TWebClient::Property(const std::string& control, const std::string& property) const
{
    return controls_.at(control).at(property);
}

} // namespace alinhavo
