#pragma once

#include <boost/asio/io_context.hpp>
#include <boost/beast/core.hpp>
#include <boost/beast/http.hpp>
#include <boost/beast/websocket.hpp>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

namespace alinhavo {

/// What a browser sends besides the path.
struct TRequestOptions {
    std::string origin = "own"; ///< "own": the page of this server; "": none
    std::string cookie = {};
    std::string etag = {};
    std::string encoding = {};
    boost::beast::http::verb verb = boost::beast::http::verb::get;
    std::string user = "ANA"; ///< who comes in when there is no cookie
    std::string session = {}; ///< the one wanted
    std::string body = {};
};

using TWebAnswer = boost::beast::http::response<boost::beast::http::string_body>;

/// One request over a connection of its own; the path is sent as it stands.
TWebAnswer Request(std::uint16_t port, const std::string& path, const TRequestOptions& options = {});

/// The answer to the head of a request whose body would be that long.
boost::beast::http::status AnnouncedSize(
    std::uint16_t port, const std::string& path, std::size_t length, const std::string& cookie);

/// The cookie of a new login; empty when it is refused.
std::string LogIn(std::uint16_t port, const std::string& user, const std::string& password = "demo");

/// A small client that speaks the protocol and keeps the numbers.
class TWebClient {
public:
    /// Comes in and begins a session when it has no cookie. Throws boost::system::system_error when the server refuses.
    explicit TWebClient(std::uint16_t port, const TRequestOptions& options = {});

    const std::string& Cookie() const { return cookie_; }
    const nlohmann::json& State() const { return state_; } ///< the last message received
    int Turn() const { return turn_; }
    int LastNumber() const { return number_; }

    /// Sends an event and waits until it is answered.
    const nlohmann::json& Do(nlohmann::json event);
    /// Sends without waiting; its number.
    int Send(nlohmann::json event);
    void SendText(std::string_view text);
    /// The next message, or the next that tells of `done`.
    const nlohmann::json& Receive();
    const nlohmann::json& ReceiveDone(int number);
    /// The property of a control as it was last told.
    nlohmann::json Property(const std::string& control, const std::string& property) const;
    std::string Focus() const { return focus_; }

private:
    void Note(const nlohmann::json& controls);

    boost::asio::io_context context_;
    boost::beast::websocket::stream<boost::beast::tcp_stream> stream_;
    std::string cookie_;
    nlohmann::json state_;
    nlohmann::json controls_;
    std::string focus_;
    int number_ = 0;
    int turn_ = 0;
};

} // namespace alinhavo
