#include "platform/web/TWebServer.h"

#include "platform/web/THttpConnection.h"
#include "platform/web/TSessionRegistry.h"
#include "platform/web/TStaticFiles.h"
#include "platform/web/TTlsHandshake.h"
#include "platform/web/TWebApi.h"

#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/strand.hpp>
#include <optional>

namespace alinhavo {

namespace net = boost::asio;
using tcp = net::ip::tcp;

namespace {

constexpr std::chrono::milliseconds TimeToSayGoodbye(300);
constexpr std::chrono::milliseconds PauseAfterFailure(100);

} // namespace

class TWebServer::TImpl {
public:
    TImpl(const TWebOptions& options, ISessionHost& host)
        : files_(options.clientFolder)
        , sessions_(host, options.limits)
        , api_(context_, host, sessions_,
              {.firstPenalty = options.loginPenalty,
                  .pdfCommand = options.pdfCommand,
                  .encrypted = !options.certificate.certificate.empty()})
        , door_(net::make_strand(context_))
        , acceptor_(door_, tcp::endpoint(net::ip::make_address(options.address), options.port))
        , timer_(door_)
        , sweeper_(context_)
        , sweep_(options.sweep)
    {
        if (!options.certificate.certificate.empty())
            tls_.emplace(ReadCertificate(options.certificate));
        Accept();
        SweepLater();
        for (int thread = 0; thread < options.threads; ++thread)
            threads_.emplace_back([this] { context_.run(); });
    }

    void Stop()
    {
        if (threads_.empty())
            return;
        sessions_.EndAll("O servidor foi encerrado.");
        net::post(door_, [this] {
            boost::system::error_code ignored;
            acceptor_.close(ignored);
            timer_.expires_after(TimeToSayGoodbye);
            timer_.async_wait([this](auto) { context_.stop(); });
        });
        for (auto& thread : threads_)
            thread.join();
        threads_.clear();
    }

    std::uint16_t Port() const { return acceptor_.local_endpoint().port(); }
    std::size_t SessionCount() const { return sessions_.Count(); }

private:
    void Accept()
    {
        acceptor_.async_accept(net::make_strand(context_), [this](boost::system::error_code error, tcp::socket socket) {
            if (!acceptor_.is_open())
                return;
            if (error)
                return AcceptLater();
            boost::system::error_code ignored;
            socket.set_option(tcp::no_delay(true), ignored);
            Receive(TClientStream::TTcp(std::move(socket)));
            Accept();
        });
    }

    void Receive(TClientStream::TTcp stream)
    {
        const auto begin = [this](TClientStream client) {
            std::make_shared<THttpConnection>(std::move(client), files_, api_, sessions_)->Read();
        };
        if (tls_)
            std::make_shared<TTlsHandshake>(std::move(stream), *tls_, begin)->Begin();
        else
            begin(TClientStream(std::move(stream)));
    }

    // Out of file descriptors, mostly: some are given back soon.
    void AcceptLater()
    {
        timer_.expires_after(PauseAfterFailure);
        timer_.async_wait([this](boost::system::error_code error) {
            if (!error)
                Accept();
        });
    }

    void SweepLater()
    {
        sweeper_.expires_after(sweep_);
        sweeper_.async_wait([this](boost::system::error_code error) {
            if (error)
                return;
            sessions_.EndIdle(std::chrono::steady_clock::now());
            SweepLater();
        });
    }

    std::optional<net::ssl::context> tls_;
    net::io_context context_;
    TStaticFiles files_;
    TSessionRegistry sessions_;
    TWebApi api_;
    net::strand<net::io_context::executor_type> door_; ///< of the acceptor and its timer: one thread at a time
    tcp::acceptor acceptor_;
    net::steady_timer timer_;
    net::steady_timer sweeper_;
    const std::chrono::steady_clock::duration sweep_;
    std::vector<std::thread> threads_;
};

TWebServer::TWebServer(const TWebOptions& options, ISessionHost& host)
    : impl_(std::make_unique<TImpl>(options, host))
{
}

TWebServer::~TWebServer() { Stop(); }

std::uint16_t TWebServer::Port() const { return impl_->Port(); }

std::size_t TWebServer::SessionCount() const { return impl_->SessionCount(); }

void TWebServer::Stop() { impl_->Stop(); }

} // namespace alinhavo
