#include "platform/web/THttpConnection.h"

#include "platform/web/TSessionRegistry.h"
#include "platform/web/TStaticFiles.h"
#include "platform/web/TWebApi.h"
#include "platform/web/TWebSocketConnection.h"

#include <boost/asio/post.hpp>
#include <boost/beast/websocket.hpp>
#include <nlohmann/json.hpp>

namespace alinhavo {

namespace beast = boost::beast;
namespace http = boost::beast::http;

namespace {

constexpr std::size_t MaxHeader = 16 * 1024;
constexpr std::size_t MaxBody = 64 * 1024;
constexpr std::chrono::seconds Patience(30);
constexpr std::chrono::minutes PatienceWithFile(5);

} // namespace

THttpConnection::THttpConnection(
    TClientStream stream, const TStaticFiles& files, TWebApi& api, TSessionRegistry& sessions)
    : stream_(std::move(stream))
    , files_(files)
    , api_(api)
    , sessions_(sessions)
{
    beast::error_code gone;
    if (const auto from = stream_.Socket().remote_endpoint(gone); !gone)
        address_ = from.address().to_string();
}

void THttpConnection::Read()
{
    parser_.emplace();
    parser_->header_limit(MaxHeader);
    parser_->body_limit(TSessionFiles::MaxUpload);
    stream_.ExpiresAfter(Patience);
    http::async_read_header(stream_, input_, *parser_,
        [self = shared_from_this()](beast::error_code error, std::size_t) { self->HeaderReceived(error); });
}

// Only a file from a user who is logged in may be large.
void THttpConnection::HeaderReceived(beast::error_code error)
{
    if (error == http::error::body_limit)
        return RefuseSize();
    if (error)
        return;
    const THttpRequest header(parser_->get().base());
    const bool file = TWebApi::TakesFile(header) && sessions_.UserOf(CookieOf(header, SessionCookie)).has_value();
    const auto limit = file ? TSessionFiles::MaxUpload : MaxBody;
    if (parser_->content_length().value_or(0) > limit)
        return RefuseSize();
    parser_->body_limit(limit);
    if (file)
        stream_.ExpiresAfter(PatienceWithFile);
    http::async_read(stream_, input_, *parser_, [self = shared_from_this()](beast::error_code failed, std::size_t) {
        if (failed == http::error::body_limit)
            return self->RefuseSize();
        self->Received(failed);
    });
}

// What follows is not read, so nothing more can be said over this connection.
void THttpConnection::RefuseSize()
{
    THttpRequest request(parser_->get().base());
    request.keep_alive(false);
    Answer(AnswerJson(request, http::status::payload_too_large, {{"erro", "O arquivo é grande demais."}}));
}

void THttpConnection::Received(beast::error_code error)
{
    if (error)
        return;
    const auto request = parser_->release();
    if (beast::websocket::is_upgrade(request))
        return BecomeMessages(request);
    if (TWebApi::Knows(PathOf(request)))
        return AskApi(request);
    Answer(AnswerFile(files_, request));
}

// The answer may take longer than the client's patience with a silent line: a wrong password waits.
void THttpConnection::AskApi(const THttpRequest& request)
{
    stream_.ExpiresNever();
    api_.Answer(request, address_, [self = shared_from_this()](THttpResponse response) {
        boost::asio::post(self->stream_.get_executor(), [self, response = std::move(response)]() mutable {
            self->stream_.ExpiresAfter(Patience);
            self->Answer(std::move(response));
        });
    });
}

void THttpConnection::BecomeMessages(const THttpRequest& request)
{
    if (PathOf(request) != SessionPath)
        return Answer(AnswerText(request, http::status::not_found, "Página não encontrada."));
    if (!FromOwnPage(request, stream_.Encrypted()))
        return Answer(AnswerText(request, http::status::forbidden, "Acesso negado a partir de outra página."));
    const auto secret = CookieOf(request, SessionCookie);
    if (!sessions_.UserOf(secret))
        return Answer(AnswerText(request, http::status::unauthorized, "É preciso entrar."));
    auto [session, why] = sessions_.Take(secret, QueryOf(request, "id"));
    std::make_shared<TWebSocketConnection>(std::move(stream_), std::move(session))->Accept(request, why);
}

void THttpConnection::Answer(THttpResponse response)
{
    const auto answer = std::make_shared<THttpResponse>(std::move(response));
    http::async_write(stream_, *answer, [self = shared_from_this(), answer](beast::error_code error, std::size_t) {
        if (error)
            return;
        if (answer->keep_alive())
            return self->Read();
        self->stream_.Socket().shutdown(boost::asio::ip::tcp::socket::shutdown_send, error);
    });
}

} // namespace alinhavo
