#include "platform/web/TWebSocketConnection.h"

#include "platform/web/TWebSession.h"

#include <boost/asio/dispatch.hpp>
#include <boost/asio/post.hpp>
#include <nlohmann/json.hpp>

namespace alinhavo {

namespace beast = boost::beast;
namespace websocket = boost::beast::websocket;

namespace {

constexpr std::size_t MaxOutput = 10'000; ///< messages that a client may leave unread

} // namespace

TWebSocketConnection::TWebSocketConnection(TClientStream stream, std::weak_ptr<TWebSession> session)
    : stream_(std::move(stream))
    , session_(std::move(session))
{
}

void TWebSocketConnection::Accept(const THttpRequest& request, const std::string& why)
{
    stream_.next_layer().ExpiresNever();
    websocket::stream_base::timeout timeout{std::chrono::seconds(30), std::chrono::seconds(40), true};
    stream_.set_option(timeout);
    stream_.read_message_max(TClientMessage::MaxBytes);
    stream_.async_accept(request, [self = shared_from_this(), why](beast::error_code error) {
        if (error)
            return;
        const auto session = self->session_.lock();
        if (!session)
            return self->Dismiss(why);
        session->Attach(self);
        self->Read();
    });
}

// A page cannot see why a connection of messages is refused: so it is accepted, told and closed.
void TWebSocketConnection::Dismiss(const std::string& why)
{
    Send(nlohmann::json({{"ended", why}}).dump());
    Close();
}

void TWebSocketConnection::Read()
{
    stream_.async_read(
        input_, [self = shared_from_this()](beast::error_code error, std::size_t) { self->Received(error); });
}

void TWebSocketConnection::Received(beast::error_code error)
{
    const auto session = session_.lock();
    if (!session)
        return;
    if (error)
        return session->Detach(*this);
    const auto data = input_.cdata();
    session->Receive(*this, {static_cast<const char*>(data.data()), data.size()});
    input_.consume(input_.size());
    Read();
}

void TWebSocketConnection::Send(std::string message)
{
    boost::asio::post(stream_.get_executor(),
        [self = shared_from_this(), message = std::move(message)]() mutable { self->Queue(std::move(message)); });
}

void TWebSocketConnection::Close()
{
    boost::asio::post(stream_.get_executor(), [self = shared_from_this()] {
        self->closing_ = true;
        if (self->output_.empty())
            self->BeginClosing();
    });
}

void TWebSocketConnection::Queue(std::string message)
{
    if (closing_)
        return;
    output_.push_back(std::move(message));
    if (output_.size() > MaxOutput)
        return stream_.next_layer().Cancel();
    if (output_.size() == 1)
        WriteNext();
}

void TWebSocketConnection::WriteNext()
{
    stream_.async_write(
        boost::asio::buffer(output_.front()), [self = shared_from_this()](beast::error_code error, std::size_t) {
            if (error)
                return;
            self->output_.pop_front();
            if (!self->output_.empty())
                self->WriteNext();
            else if (self->closing_)
                self->BeginClosing();
        });
}

void TWebSocketConnection::BeginClosing()
{
    stream_.async_close(websocket::close_code::normal, [self = shared_from_this()](beast::error_code) {});
}

} // namespace alinhavo
