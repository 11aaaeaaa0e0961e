#pragma once

#include "platform/web/TWebSession.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace alinhavo {

struct TWebOptions {
    std::string address = "127.0.0.1";
    std::uint16_t port = 8080; ///< 0: any that is free
    std::filesystem::path clientFolder; ///< the built client
    int threads = 2; ///< for the connections; each session has one of its own besides
    std::size_t maxSessions = 500;
};

/// Answers browsers: the client's files over HTTP, and a session for each browser over a WebSocket.
class TWebServer {
public:
    /// Listens when it returns; throws std::exception when it cannot. `maker` makes each session's application.
    TWebServer(const TWebOptions& options, TApplicationMaker maker);
    /// As Stop.
    ~TWebServer();
    TWebServer(const TWebServer&) = delete;
    TWebServer& operator=(const TWebServer&) = delete;

    std::uint16_t Port() const;
    /// Sessions that have not ended, with or without a client.
    std::size_t SessionCount() const;
    /// Ends every session, tells the clients, and returns when no thread is left.
    void Stop();

private:
    class TImpl;
    std::unique_ptr<TImpl> impl_;
};

} // namespace alinhavo
