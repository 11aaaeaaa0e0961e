#include "platform/web/THttpConnection.h"

#include "platform/web/TSessionRegistry.h"
#include "platform/web/TStaticFiles.h"
#include "platform/web/TWebSocketConnection.h"

#include <boost/beast/websocket.hpp>

namespace alinhavo {

namespace beast = boost::beast;
namespace http = boost::beast::http;

namespace {

constexpr std::size_t MaxHeader = 16 * 1024;
constexpr std::size_t MaxBody = 64 * 1024;
constexpr std::chrono::seconds Patience(30);

std::string CookieFor(const std::string& token)
{
    return std::string(SessionCookie) + "=" + token + "; Path=/; HttpOnly; SameSite=Strict";
}

} // namespace

THttpConnection::THttpConnection(
    boost::asio::ip::tcp::socket socket, const TStaticFiles& files, TSessionRegistry& sessions)
    : stream_(std::move(socket))
    , files_(files)
    , sessions_(sessions)
{
}

void THttpConnection::Read()
{
    parser_.emplace();
    parser_->header_limit(MaxHeader);
    parser_->body_limit(MaxBody);
    stream_.expires_after(Patience);
    http::async_read(stream_, input_, *parser_,
        [self = shared_from_this()](beast::error_code error, std::size_t) { self->Received(error); });
}

void THttpConnection::Received(beast::error_code error)
{
    if (error)
        return;
    const auto request = parser_->release();
    if (beast::websocket::is_upgrade(request))
        return BecomeMessages(request);
    Answer(AnswerFile(files_, request));
}

void THttpConnection::BecomeMessages(const THttpRequest& request)
{
    const auto target = request.target();
    if (std::string_view(target.data(), target.size()).substr(0, target.find('?')) != SessionPath)
        return Answer(AnswerText(request, http::status::not_found, "Página não encontrada."));
    if (!FromOwnPage(request))
        return Answer(AnswerText(request, http::status::forbidden, "Acesso negado a partir de outra página."));
    const auto entry = sessions_.FindOrStart(CookieOf(request, SessionCookie));
    if (!entry.session)
        return Answer(AnswerText(request, http::status::service_unavailable, "Limite de sessões atingido."));
    std::make_shared<TWebSocketConnection>(std::move(stream_), entry.session)
        ->Accept(request, entry.isNew ? CookieFor(entry.token) : std::string());
}

void THttpConnection::Answer(THttpResponse response)
{
    const auto answer = std::make_shared<THttpResponse>(std::move(response));
    http::async_write(stream_, *answer, [self = shared_from_this(), answer](beast::error_code error, std::size_t) {
        if (error)
            return;
        if (answer->keep_alive())
            return self->Read();
        self->stream_.socket().shutdown(boost::asio::ip::tcp::socket::shutdown_send, error);
    });
}

} // namespace alinhavo
