#pragma once

#include <boost/beast/core.hpp>
#include <boost/beast/ssl.hpp>
#include <boost/beast/websocket/ssl.hpp>
#include <chrono>
#include <memory>
#include <utility>

namespace alinhavo {

/// A client's connection, encrypted or not: what is above it reads and writes it without knowing which. Whoever moves it on
/// has no operation under way.
class TClientStream {
public:
    using TTcp = boost::beast::tcp_stream;
    using TTls = boost::beast::ssl_stream<TTcp>;
    using executor_type = TTcp::executor_type;

    explicit TClientStream(TTcp tcp)
        : tcp_(std::make_unique<TTcp>(std::move(tcp)))
    {
    }
    /// After its handshake.
    explicit TClientStream(std::unique_ptr<TTls> tls)
        : tls_(std::move(tls))
    {
    }

    bool Encrypted() const { return tls_ != nullptr; }
    boost::asio::ip::tcp::socket& Socket() { return Tcp().socket(); }
    executor_type get_executor() { return Tcp().get_executor(); }
    void ExpiresAfter(std::chrono::steady_clock::duration patience) { Tcp().expires_after(patience); }
    void ExpiresNever() { Tcp().expires_never(); }
    /// Operations under way fail.
    void Cancel() { Tcp().cancel(); }

    template <typename TBuffers, typename THandler>
    auto async_read_some(const TBuffers& buffers, THandler&& handler)
    {
        if (tls_)
            return tls_->async_read_some(buffers, std::forward<THandler>(handler));
        return tcp_->async_read_some(buffers, std::forward<THandler>(handler));
    }
    template <typename TBuffers, typename THandler>
    auto async_write_some(const TBuffers& buffers, THandler&& handler)
    {
        if (tls_)
            return tls_->async_write_some(buffers, std::forward<THandler>(handler));
        return tcp_->async_write_some(buffers, std::forward<THandler>(handler));
    }

    /// How a WebSocket ends what it stands on.
    template <typename THandler>
    friend void async_teardown(boost::beast::role_type role, TClientStream& stream, THandler&& handler)
    {
        using boost::beast::websocket::async_teardown;
        if (stream.tls_)
            return async_teardown(role, *stream.tls_, std::forward<THandler>(handler));
        async_teardown(role, stream.tcp_->socket(), std::forward<THandler>(handler));
    }
    friend void beast_close_socket(TClientStream& stream) { stream.Tcp().close(); }

private:
    TTcp& Tcp() { return tls_ ? tls_->next_layer() : *tcp_; }

    std::unique_ptr<TTcp> tcp_; ///< of what is not encrypted
    std::unique_ptr<TTls> tls_;
};

} // namespace alinhavo
