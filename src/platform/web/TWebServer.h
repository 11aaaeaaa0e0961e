#pragma once

#include "platform/web/TCertificate.h"
#include "platform/web/TSessionRegistry.h"

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace alinhavo {

struct TWebOptions {
    std::string address = "127.0.0.1";
    std::uint16_t port = 8080; ///< 0: any that is free
    std::filesystem::path clientFolder; ///< the built client
    TCertificateFiles certificate = {}; ///< without one the connections are not encrypted
    int threads = 2; ///< for the connections; each session has one of its own besides
    TSessionLimits limits;
    std::string pdfCommand; ///< the program that prints reports into PDF; empty: there is no PDF
    std::chrono::steady_clock::duration loginPenalty
        = std::chrono::seconds(1); ///< of the first wrong password too many
    std::chrono::steady_clock::duration sweep = std::chrono::seconds(15); ///< how often idle sessions are looked for
};

/// Answers browsers: the client's files and the login over HTTP, and sessions over WebSockets.
class TWebServer {
public:
    /// Listens when it returns; throws std::exception when it cannot. The host outlives it.
    TWebServer(const TWebOptions& options, ISessionHost& host);
    /// As Stop.
    ~TWebServer();
    TWebServer(const TWebServer&) = delete;
    TWebServer& operator=(const TWebServer&) = delete;

    std::uint16_t Port() const;
    /// Sessions that have not ended, with or without a client.
    std::size_t SessionCount() const;
    /// Ends every session without committing anything, tells the clients, and returns when no thread is left.
    void Stop();

private:
    class TImpl;
    std::unique_ptr<TImpl> impl_;
};

} // namespace alinhavo
