#pragma once

#include <string>

namespace alinhavo {

/// A PostgreSQL server that a test has for itself, so that it may restart it. std::runtime_error when it does not start.
class TOwnServer {
public:
    TOwnServer();
    ~TOwnServer();
    TOwnServer(const TOwnServer&) = delete;
    TOwnServer& operator=(const TOwnServer&) = delete;

    /// Of its superuser.
    const std::string& Uri() const { return uri_; }
    /// Returns when it answers again.
    void Restart();

private:
    std::string folder_;
    std::string uri_;
};

} // namespace alinhavo
